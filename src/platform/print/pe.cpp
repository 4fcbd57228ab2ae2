// SPDX-License-Identifier: GPL-3.0-or-later
// The print operations: arguments checked, texts decoded, the rest handed to the engine.
#include "platform/print/pe.h"

#include "platform/print/engine.h"
#include "platform/print/output/printers.h"
#include "platform/system/paths.h"
#include "platform/text/cp1252.h"

#include <QFileInfo>

#include <algorithm>
#include <cstring>

using namespace Qt::StringLiterals;
using namespace platform;
using namespace platform::print;

namespace {

constexpr int kShortLocation = 258;
constexpr int kLongLocation = 1026;
constexpr int kMaxCopies = 9999;

QByteArrayView bytesOf(const char* text)
{
    return text != nullptr ? QByteArrayView(text, static_cast<qsizetype>(std::strlen(text)))
                           : QByteArrayView();
}

QString textOf(const char* text)
{
    return fromCp1252(bytesOf(text));
}

/// A path that isn't there in Windows-1252 is tried once more as UTF-8.
QString pathOf(QByteArrayView bytes)
{
    QString path = nativePath(fromCp1252(bytes));
    if (QFileInfo::exists(path))
        return path;
    const QString other = nativePath(QString::fromUtf8(bytes));
    return QFileInfo::exists(other) ? other : path;
}

QByteArray bytesOfPath(const QString& native)
{
    const QString path = programPath(native);
    return toCp1252(path).value_or(path.toUtf8());
}

std::int16_t refuse(JobEntry& entry, ErrorCode code, const QString& text)
{
    entry.code = code;
    entry.text = text;
    return 0;
}

std::int16_t done(JobEntry& entry)
{
    entry.code = kNoError;
    entry.text.clear();
    return 1;
}

int sectionCode(const Section& section)
{
    return 100 * (static_cast<int>(section.kind) + 1) + 10 * (section.group + 1) + section.letter;
}

const Section* findSection(const Report& report, int code)
{
    const auto found = std::find_if(report.sections.begin(), report.sections.end(),
                                    [code](const Section& section) { return sectionCode(section) == code; });
    return found == report.sections.end() ? nullptr : &*found;
}

std::vector<int> subreportsIn(const Section& section)
{
    std::vector<int> found;
    for (const Item& item : section.items) {
        if (item.kind == Item::Kind::Subreport)
            found.push_back(item.subreport);
    }
    return found;
}

bool acceptsLocation(JobEntry& entry, int table, const PETableLocation* location)
{
    const auto count = static_cast<int>(entry.job->report(entry.subreport).tables.size());
    if (table < 0 || table >= count)
        return refuse(entry, kTableNumber, u"la tabla %1 no existe"_s.arg(table)) != 0;
    const bool sized = location != nullptr &&
                       (location->StructSize == kShortLocation || location->StructSize == kLongLocation);
    return sized || refuse(entry, kRecordSize, u"tamaño de registro no admitido"_s) != 0;
}

std::int16_t setCondition(PEJob job, const char* text, formula::Formula Report::*member, const QString& name)
{
    JobEntry* entry = Engine::instance().entry(job);
    if (entry == nullptr)
        return 0;
    formula::Formula& target = entry->job->report(entry->subreport).*member;
    target = formula::Formula(textOf(text));
    if (target.fault())
        return refuse(*entry, kFormulaSyntax, describe(name, *target.fault()));
    return done(*entry);
}

} // namespace

std::int16_t PEOpenEngine()
{
    Engine::instance().open();
    return 1;
}

void PECloseEngine()
{
    Engine::instance().close();
}

PEJob PEOpenPrintJob(const char* path)
{
    return static_cast<PEJob>(Engine::instance().openJob(pathOf(bytesOf(path))));
}

std::int16_t PEGetNTables(PEJob job)
{
    const JobEntry* entry = Engine::instance().entry(job);
    return entry == nullptr ? std::int16_t(-1)
                            : static_cast<std::int16_t>(entry->job->report(entry->subreport).tables.size());
}

std::int16_t PEGetNthTableLocation(PEJob job, std::int16_t table, PETableLocation* location)
{
    JobEntry* entry = Engine::instance().entry(job);
    if (entry == nullptr || !acceptsLocation(*entry, table, location))
        return 0;
    const QByteArray bytes = bytesOfPath(entry->job->tablePath(entry->subreport, table));
    const std::size_t length =
        std::min(static_cast<std::size_t>(bytes.size()), sizeof location->Location - 1);
    std::memcpy(location->Location, bytes.constData(), length);
    location->Location[length] = '\0';
    return done(*entry);
}

std::int16_t PESetNthTableLocation(PEJob job, std::int16_t table, const PETableLocation* location)
{
    JobEntry* entry = Engine::instance().entry(job);
    if (entry == nullptr || !acceptsLocation(*entry, table, location))
        return 0;
    const char* const end = location->Location + sizeof location->Location;
    const char* const zero = std::find(location->Location, end, '\0');
    if (zero == end)
        return refuse(*entry, kRecordSize, u"la ruta es demasiado larga"_s);
    entry->job->setTablePath(entry->subreport, table, pathOf(QByteArrayView(location->Location, zero)));
    return done(*entry);
}

std::int16_t PEGetNSections(PEJob job)
{
    const JobEntry* entry = Engine::instance().entry(job);
    return entry == nullptr ? std::int16_t(-1)
                            : static_cast<std::int16_t>(entry->job->report(entry->subreport).sections.size());
}

std::int16_t PEGetSectionCode(PEJob job, std::int16_t section)
{
    JobEntry* entry = Engine::instance().entry(job);
    if (entry == nullptr)
        return 0;
    const std::vector<Section>& sections = entry->job->report(entry->subreport).sections;
    if (section < 0 || static_cast<std::size_t>(section) >= sections.size())
        return refuse(*entry, kSectionOrSubreport, u"la sección no existe"_s);
    done(*entry);
    return static_cast<std::int16_t>(sectionCode(sections[static_cast<std::size_t>(section)]));
}

std::int16_t PEGetNSubreportsInSection(PEJob job, std::int16_t code)
{
    JobEntry* entry = Engine::instance().entry(job);
    if (entry == nullptr)
        return -1;
    const Section* section = findSection(entry->job->report(entry->subreport), code);
    if (section == nullptr) {
        refuse(*entry, kSectionOrSubreport, u"la sección no existe"_s);
        return -1;
    }
    done(*entry);
    return static_cast<std::int16_t>(subreportsIn(*section).size());
}

std::int32_t PEGetNthSubreportInSection(PEJob job, std::int16_t code, std::int16_t subreport)
{
    JobEntry* entry = Engine::instance().entry(job);
    if (entry == nullptr)
        return 0;
    const Section* section = findSection(entry->job->report(entry->subreport), code);
    const std::vector<int> found = section != nullptr ? subreportsIn(*section) : std::vector<int>();
    if (subreport < 0 || static_cast<std::size_t>(subreport) >= found.size())
        return refuse(*entry, kSectionOrSubreport, u"el subinforme no existe"_s);
    done(*entry);
    return found[static_cast<std::size_t>(subreport)] + 1;
}

std::int16_t PEGetSubreportInfo(PEJob job, std::int32_t subreport, PESubreportInfo* info)
{
    JobEntry* entry = Engine::instance().entry(job);
    if (entry == nullptr)
        return 0;
    if (info == nullptr || info->StructSize != sizeof(PESubreportInfo))
        return refuse(*entry, kRecordSize, u"tamaño de registro no admitido"_s);
    const std::vector<Report>& subreports = entry->job->report(entry->subreport).subreports;
    if (subreport < 1 || static_cast<std::size_t>(subreport) > subreports.size())
        return refuse(*entry, kSectionOrSubreport, u"el subinforme no existe"_s);
    const QString& name = subreports[static_cast<std::size_t>(subreport) - 1].name;
    const QByteArray bytes = toCp1252(name).value_or(name.toUtf8());
    std::memset(info->name, 0, sizeof info->name);
    std::memcpy(info->name, bytes.constData(),
                std::min(static_cast<std::size_t>(bytes.size()), sizeof info->name - 1));
    return done(*entry);
}

PEJob PEOpenSubreport(PEJob job, const char* name)
{
    JobEntry* entry = Engine::instance().entry(job);
    if (entry == nullptr)
        return 0;
    const int subreport = entry->subreport >= 0 ? -1 : entry->job->report().subreportIndex(textOf(name));
    if (subreport < 0)
        return refuse(*entry, kSectionOrSubreport, u"el subinforme no existe"_s);
    done(*entry);
    return static_cast<PEJob>(Engine::instance().openSubreport(job, subreport));
}

std::int16_t PESelectPrinter(PEJob job, const char*, const char* device, const char*, const void*)
{
    JobEntry* entry = Engine::instance().entry(job);
    if (entry == nullptr)
        return 0;
    const QString name = textOf(device);
    const QList<Printer> printers = Printers();
    const bool known = std::any_of(printers.begin(), printers.end(),
                                   [&name](const Printer& printer) { return printer.DeviceName == name; });
    entry->job->printing.device = known ? name : QString();
    entry->job->printerUnknown = !known;
    return known ? done(*entry) : refuse(*entry, kPrinter, u"la impresora «%1» no existe"_s.arg(name));
}

std::int16_t PESetGroupSelectionFormula(PEJob job, const char* text)
{
    return setCondition(job, text, &Report::groupSelection, u"selección de grupos"_s);
}

std::int16_t PESetSelectionFormula(PEJob job, const char* text)
{
    return setCondition(job, text, &Report::selection, u"selección"_s);
}

std::int16_t PESetFormula(PEJob job, const char* name, const char* text)
{
    JobEntry* entry = Engine::instance().entry(job);
    if (entry == nullptr)
        return 0;
    QString wanted = textOf(name);
    if (wanted.startsWith(u'@'))
        wanted.remove(0, 1);
    FormulaField* field = entry->job->report(entry->subreport).formulaField(wanted);
    if (field == nullptr)
        return refuse(*entry, kFormulaMissing, u"el informe no tiene la fórmula «%1»"_s.arg(wanted));
    field->formula = formula::Formula(textOf(text));
    if (field->formula.fault())
        return refuse(*entry, kFormulaSyntax, describe(u"@"_s + field->name, *field->formula.fault()));
    return done(*entry);
}

std::int16_t PESetWindowOptions(PEJob job, const PEWindowOptions* options)
{
    JobEntry* entry = Engine::instance().entry(job);
    if (entry == nullptr)
        return 0;
    if (options == nullptr || options->StructSize != sizeof(PEWindowOptions))
        return refuse(*entry, kRecordSize, u"tamaño de registro no admitido"_s);
    PreviewRequest& window = entry->job->window;
    window.navigation = options->hasNavigationControls != 0;
    window.cancel = options->hasCancelButton != 0;
    window.print = options->hasPrintButton != 0;
    window.exports = options->hasExportButton != 0;
    window.zoom = options->hasZoomControl != 0;
    window.progress = options->hasProgressControls != 0;
    window.printSetup = options->hasPrintSetupButton != 0;
    return done(*entry);
}

std::int16_t PEOutputToWindow(PEJob job, const char* title, std::int32_t left, std::int32_t top,
                              std::int32_t width, std::int32_t height, std::int32_t, void*)
{
    JobEntry* entry = Engine::instance().entry(job);
    if (entry == nullptr)
        return 0;
    if (width <= 0 || height <= 0)
        return refuse(*entry, kBadValue, u"el tamaño de la ventana no vale"_s);
    entry->job->window.title = textOf(title);
    entry->job->window.place = QRect(left, top, width, height);
    entry->job->output = Output::Window;
    return done(*entry);
}

std::int16_t PEOutputToPrinter(PEJob job, std::int16_t copies)
{
    JobEntry* entry = Engine::instance().entry(job);
    if (entry == nullptr)
        return 0;
    if (copies < 1 || copies > kMaxCopies)
        return refuse(*entry, kBadValue, u"las copias van de 1 a 9999"_s);
    entry->job->printing.copies = copies;
    entry->job->output = Output::Printer;
    return done(*entry);
}

std::int16_t PESetPrintOptions(PEJob job, const PEPrintOptions* options)
{
    JobEntry* entry = Engine::instance().entry(job);
    if (entry == nullptr)
        return 0;
    if (options == nullptr || options->StructSize != sizeof(PEPrintOptions))
        return refuse(*entry, kRecordSize, u"tamaño de registro no admitido"_s);
    const bool copies = options->nReportCopies >= 1 && options->nReportCopies <= kMaxCopies;
    const bool pages = options->stopPageN == 0 || options->startPageN <= options->stopPageN;
    if (!copies || !pages || options->collation > 2)
        return refuse(*entry, kBadValue, u"copias, páginas o intercalado no valen"_s);
    PrintRequest& printing = entry->job->printing;
    printing.copies = options->nReportCopies;
    printing.collate = options->collation != 0;
    printing.firstPage = options->startPageN;
    printing.lastPage = options->stopPageN;
    return done(*entry);
}

std::int16_t PEStartPrintJob(PEJob job, std::int16_t wait)
{
    Engine& engine = Engine::instance();
    JobEntry* entry = engine.entry(job);
    if (entry == nullptr)
        return 0;
    if (entry->subreport >= 0)
        return refuse(*entry, kNoOutput, u"un subinforme no se imprime solo"_s);
    try {
        entry->job->start(engine.now(), wait != 0);
    } catch (const Problem& problem) {
        return refuse(*entry, problem.code(), problem.text());
    }
    return done(*entry);
}

std::int16_t PEGetErrorCode(PEJob job)
{
    return static_cast<std::int16_t>(Engine::instance().error(job).code);
}

std::int16_t PEGetHandleString(void* handle, char* buffer, std::int16_t length)
{
    if (handle == nullptr || buffer == nullptr || length <= 0)
        return 0;
    const QByteArrayView text = bytesOf(static_cast<const char*>(handle));
    const qsizetype copied = std::min<qsizetype>(text.size(), length - 1);
    std::memcpy(buffer, text.data(), static_cast<std::size_t>(copied));
    buffer[copied] = '\0';
    return 1;
}
