// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/recordingengine.h"

#include "platform/print/pe.h"
#include "platform/text/cp1252.h"

#include <cstring>

using namespace Qt::StringLiterals;

namespace {

QStringList calls;
EngineAnswers answers;
PEJob lastJob = 0;

QString textOf(const char* text)
{
    return u"\""_s + platform::fromCp1252(QByteArrayView(text)) + u"\""_s;
}

template <typename... Arguments>
void record(const QString& name, const Arguments&... arguments)
{
    QStringList list;
    (list.append(arguments), ...);
    calls.append(name + u"("_s + list.join(u", "_s) + u")"_s);
}

QString number(int value)
{
    return QString::number(value);
}

/// Whether the call written down last is one that is to fail.
bool fails(const QString& name)
{
    return answers.failing == name || answers.failingCall == calls.size() - 1;
}

/// What a call answers: `usual`, or `failed` where it is to fail.
template <typename T>
T answer(const QString& name, int usual, int failed = 0)
{
    return static_cast<T>(fails(name) ? failed : usual);
}

/// The same for a call on a job: without one it fails in any case.
template <typename T>
T answerOf(PEJob job, const QString& name, int usual, int failed = 0)
{
    return job == 0 ? static_cast<T>(failed) : answer<T>(name, usual, failed);
}

QStringList subreportsOf(std::int16_t sectionCode)
{
    return answers.subreportsBySection.value(sectionCode / 100 - 1);
}

} // namespace

QStringList& recordedCalls()
{
    return calls;
}

EngineAnswers& engineAnswers()
{
    return answers;
}

void resetRecordingEngine()
{
    calls.clear();
    answers = {};
    lastJob = 0;
}

std::int16_t PEOpenEngine()
{
    record(u"PEOpenEngine"_s);
    return answer<std::int16_t>(u"PEOpenEngine"_s, 1);
}

void PECloseEngine()
{
    record(u"PECloseEngine"_s);
    lastJob = 0;
}

PEJob PEOpenPrintJob(const char* path)
{
    record(u"PEOpenPrintJob"_s, textOf(path));
    // Numbers aren't given again, not even those of files that didn't open.
    return answer<PEJob>(u"PEOpenPrintJob"_s, ++lastJob);
}

std::int16_t PEGetNTables(PEJob job)
{
    record(u"PEGetNTables"_s, number(job));
    return answerOf<std::int16_t>(job, u"PEGetNTables"_s, static_cast<int>(answers.tableLocations.size()),
                                  -1);
}

std::int16_t PEGetNthTableLocation(PEJob job, std::int16_t table, PETableLocation* location)
{
    record(u"PEGetNthTableLocation"_s, number(job), number(table), number(location->StructSize));
    const int usual = answers.unreadableTables.value(table, 1);
    const auto done = answerOf<std::int16_t>(job, u"PEGetNthTableLocation"_s, usual);
    if (done == 1) {
        const QByteArray bytes = answers.tableLocations.value(table).toLatin1();
        std::memcpy(location->Location, bytes.constData(), static_cast<std::size_t>(bytes.size()));
    }
    return done;
}

std::int16_t PESetNthTableLocation(PEJob job, std::int16_t table, const PETableLocation* location)
{
    record(u"PESetNthTableLocation"_s, number(job), number(table), number(location->StructSize),
           textOf(location->Location));
    return answerOf<std::int16_t>(job, u"PESetNthTableLocation"_s, 1);
}

std::int16_t PEGetNSections(PEJob job)
{
    record(u"PEGetNSections"_s, number(job));
    return answerOf<std::int16_t>(job, u"PEGetNSections"_s,
                                  static_cast<int>(answers.subreportsBySection.size()), -1);
}

std::int16_t PEGetSectionCode(PEJob job, std::int16_t section)
{
    record(u"PEGetSectionCode"_s, number(job), number(section));
    return answerOf<std::int16_t>(job, u"PEGetSectionCode"_s, 100 * (section + 1));
}

std::int16_t PEGetNSubreportsInSection(PEJob job, std::int16_t sectionCode)
{
    record(u"PEGetNSubreportsInSection"_s, number(job), number(sectionCode));
    const int usual = sectionCode == 0 ? -1 : static_cast<int>(subreportsOf(sectionCode).size());
    return answerOf<std::int16_t>(job, u"PEGetNSubreportsInSection"_s, usual, -1);
}

std::int32_t PEGetNthSubreportInSection(PEJob job, std::int16_t sectionCode, std::int16_t subreport)
{
    record(u"PEGetNthSubreportInSection"_s, number(job), number(sectionCode), number(subreport));
    return answerOf<std::int32_t>(job, u"PEGetNthSubreportInSection"_s, sectionCode + subreport);
}

std::int16_t PEGetSubreportInfo(PEJob job, std::int32_t subreport, PESubreportInfo* info)
{
    record(u"PEGetSubreportInfo"_s, number(job), number(subreport), number(info->StructSize));
    const auto done = answerOf<std::int16_t>(job, u"PEGetSubreportInfo"_s, subreport == 0 ? 0 : 1);
    if (done == 1) {
        const QStringList names = subreportsOf(static_cast<std::int16_t>(subreport));
        const QByteArray bytes = names.value(subreport % 100).toLatin1();
        std::memset(info->name, 0, sizeof info->name);
        std::memcpy(info->name, bytes.constData(), static_cast<std::size_t>(bytes.size()));
    }
    return done;
}

PEJob PEOpenSubreport(PEJob job, const char* name)
{
    record(u"PEOpenSubreport"_s, number(job), textOf(name));
    QStringList all;
    for (const QStringList& names : answers.subreportsBySection)
        all.append(names);
    const qsizetype position = all.indexOf(platform::fromCp1252(QByteArrayView(name)));
    const int usual = position < 0 ? 0 : 100 * job + static_cast<int>(position) + 1;
    return answerOf<PEJob>(job, u"PEOpenSubreport"_s, usual);
}

std::int16_t PESelectPrinter(PEJob job, const char* driver, const char* device, const char* port,
                             const void* mode)
{
    record(u"PESelectPrinter"_s, number(job), textOf(driver), textOf(device), textOf(port),
           mode == nullptr ? u"none"_s : u"mode"_s);
    return answerOf<std::int16_t>(job, u"PESelectPrinter"_s, 1);
}

std::int16_t PESetGroupSelectionFormula(PEJob job, const char* text)
{
    record(u"PESetGroupSelectionFormula"_s, number(job), textOf(text));
    return answerOf<std::int16_t>(job, u"PESetGroupSelectionFormula"_s, 1);
}

std::int16_t PESetSelectionFormula(PEJob job, const char* text)
{
    record(u"PESetSelectionFormula"_s, number(job), textOf(text));
    return answerOf<std::int16_t>(job, u"PESetSelectionFormula"_s, 1);
}

std::int16_t PESetFormula(PEJob job, const char* name, const char* text)
{
    record(u"PESetFormula"_s, number(job), textOf(name), textOf(text));
    return answerOf<std::int16_t>(job, u"PESetFormula"_s, 1);
}

std::int16_t PESetWindowOptions(PEJob job, const PEWindowOptions* options)
{
    const auto flags = {
        options->hasGroupTree,    options->canDrillDown,        options->hasNavigationControls,
        options->hasCancelButton, options->hasPrintButton,      options->hasExportButton,
        options->hasZoomControl,  options->hasCloseButton,      options->hasProgressControls,
        options->hasSearchButton, options->hasPrintSetupButton, options->hasRefreshButton};
    QString text;
    for (const std::int16_t flag : flags)
        text += QString::number(flag);
    record(u"PESetWindowOptions"_s, number(job), number(options->StructSize), text);
    return answerOf<std::int16_t>(job, u"PESetWindowOptions"_s, 1);
}

std::int16_t PEOutputToWindow(PEJob job, const char* title, std::int32_t left, std::int32_t top,
                              std::int32_t width, std::int32_t height, std::int32_t style, void* parent)
{
    record(u"PEOutputToWindow"_s, number(job), textOf(title), number(left), number(top), number(width),
           number(height), number(style), parent == nullptr ? u"0"_s : u"parent"_s);
    return answerOf<std::int16_t>(job, u"PEOutputToWindow"_s, 1);
}

std::int16_t PEOutputToPrinter(PEJob job, std::int16_t copies)
{
    record(u"PEOutputToPrinter"_s, number(job), number(copies));
    return answerOf<std::int16_t>(job, u"PEOutputToPrinter"_s, 1);
}

std::int16_t PESetPrintOptions(PEJob job, const PEPrintOptions* options)
{
    record(u"PESetPrintOptions"_s, number(job), number(options->StructSize), number(options->startPageN),
           number(options->stopPageN), number(options->nReportCopies), number(options->collation));
    return answerOf<std::int16_t>(job, u"PESetPrintOptions"_s, 1);
}

std::int16_t PEStartPrintJob(PEJob job, std::int16_t wait)
{
    record(u"PEStartPrintJob"_s, number(job), number(wait));
    return answerOf<std::int16_t>(job, u"PEStartPrintJob"_s, 1);
}

std::int16_t PEGetErrorCode(PEJob job)
{
    record(u"PEGetErrorCode"_s, number(job));
    return 4;
}

std::int16_t PEGetHandleString(void* handle, char* /*buffer*/, std::int16_t length)
{
    record(u"PEGetHandleString"_s, handle == nullptr ? u"0"_s : u"handle"_s, number(length));
    return 0;
}
