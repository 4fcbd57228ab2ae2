// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/orvane-informe/reporttool.h"

#include "platform/print/definition/read_xml.h"
#include "platform/print/output/exports.h"
#include "platform/print/problem.h"
#include "platform/system/clock.h"
#include "tools/orvane-informe/command.h"

#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QRegularExpression>
#include <QTextStream>

using namespace Qt::StringLiterals;
using namespace platform::print;

namespace orvane::tools {
namespace {

constexpr int kWell = 0;
constexpr int kFaults = 1;
constexpr int kRefused = 2;

constexpr char kUsage[] =
    "Uso: orvane-informe check FICHERO [--data RAÍZ [--company NÚMERO]]\n"
    "     orvane-informe render FICHERO --data RAÍZ --company NÚMERO (--pdf SALIDA | --csv SALIDA)\n"
    "                    [--where FÓRMULA] [--formula NOMBRE=TEXTO]...\n"
    "     orvane-informe fields FICHERO\n"
    "\n"
    "  check    examina el informe y dice cada falta en una línea; con la raíz de datos, también\n"
    "           busca en ella sus tablas y columnas (las de la primera empresa, si no se dice cuál)\n"
    "  render   escribe el informe con los datos de la empresa\n"
    "             --where FÓRMULA         selección, en lugar de la del informe\n"
    "             --formula NOMBRE=TEXTO  texto nuevo de una fórmula del informe\n"
    "  fields   lista las tablas, columnas y fórmulas que el informe nombra\n"
    "\n"
    "  --help     muestra esta ayuda\n"
    "  --version  muestra la versión\n"
    "\n"
    "Termina con 0 si todo va bien, 1 si el informe tiene faltas o no se puede hacer y 2 si la orden\n"
    "está mal escrita.\n";

/// Something that keeps the command from being done; one line in Spanish.
void tell(QTextStream& err, const QString& text)
{
    err << u"orvane-informe: "_s << text << u'\n';
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw CommandFault(u"no se puede leer «%1»"_s.arg(path));
    return file.readAll();
}

std::unique_ptr<Report> readFile(const Command& command, QTextStream& err)
{
    ReadReport read = readReport(contentOf(command.file));
    for (const DefinitionFault& fault : read.faults)
        err << describe(QFileInfo(command.file).fileName(), fault) << u'\n';
    return read.report ? std::make_unique<Report>(std::move(*read.report)) : nullptr;
}

std::vector<TablePaths> subreportPaths(const Command& command, const Report& report,
                                       const TablePaths& mainPaths)
{
    std::vector<TablePaths> paths;
    for (const Report& subreport : report.subreports)
        paths.push_back(tablePaths(command, subreport, mainPaths));
    return paths;
}

/// What stands in braces anywhere in the file's formulas and texts, each once, without regard to case.
QStringList namesInBraces(const QByteArray& file)
{
    static const QRegularExpression comments(u"<!--.*?-->"_s, QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression braces(u"(?<!\\{)\\{([^{}\\n]+)\\}"_s);
    QMap<QString, QString> names;
    const QString text = QString::fromUtf8(file).remove(comments);
    for (const QRegularExpressionMatch& match : braces.globalMatch(text))
        names.insert(match.captured(1).toCaseFolded(), match.captured(1));
    return names.values();
}

void listNames(const Command& command, bool formulas, QTextStream& out)
{
    for (const QString& name : namesInBraces(contentOf(command.file))) {
        const bool formula = name.startsWith(u'@');
        if (!formula || formulas)
            out << (formula ? u"fórmula "_s : u"columna "_s) << name << u'\n';
    }
}

int check(const Command& command, QTextStream& out, QTextStream& err)
{
    const std::unique_ptr<Report> report = readFile(command, err);
    if (!report)
        return kFaults;
    if (!command.data.isEmpty()) {
        const TablePaths paths = tablePaths(command, *report);
        Execution(*report, platform::now()).check(paths, subreportPaths(command, *report, paths));
        for (qsizetype i = 0; i < paths.size(); ++i)
            out << u"tabla "_s << report->tables[static_cast<std::size_t>(i)].alias << u": "_s << paths[i]
                << u'\n';
        listNames(command, false, out);
    }
    out << QFileInfo(command.file).fileName() << u": correcto\n"_s;
    return kWell;
}

void replaceFormulas(const Command& command, Report& report)
{
    if (command.where)
        report.selection = formula::Formula(*command.where);
    for (const QString& entry : command.formulas) {
        const QString name = entry.section(u'=', 0, 0);
        FormulaField* field = report.formulaField(name);
        if (field == nullptr)
            throw CommandFault(u"el informe no tiene la fórmula «%1»"_s.arg(name));
        field->formula = formula::Formula(entry.section(u'=', 1));
    }
}

int render(const Command& command, QTextStream& out, QTextStream& err)
{
    std::unique_ptr<Report> report = readFile(command, err);
    if (!report)
        return kFaults;
    replaceFormulas(command, *report);
    const QString title = report->name;
    const TablePaths paths = tablePaths(command, *report);
    const std::vector<TablePaths> inner = subreportPaths(command, *report, paths);
    Document document(std::move(report), QFileInfo(command.file).absolutePath(), platform::now());
    document.start(paths, inner);
    const bool records = !command.csv.isEmpty();
    const QString output = records ? command.csv : command.pdf;
    if (records ? !writeCsv(document, output) : !writePdf(document, output, title)) {
        tell(err, u"no se puede escribir «%1»"_s.arg(output));
        return kFaults;
    }
    out << output << u": "_s << document.recordCount() << u" registros"_s;
    if (!records)
        out << u", "_s << document.pageCount() << u" páginas"_s;
    out << u'\n';
    if (!document.notes().isEmpty())
        out << document.notes() << u'\n';
    return kWell;
}

int fields(const Command& command, QTextStream& out, QTextStream& err)
{
    const std::unique_ptr<Report> report = readFile(command, err);
    if (!report)
        return kFaults;
    for (const Table& table : report->tables)
        out << u"tabla "_s << table.alias << u": "_s << table.file << u'\n';
    listNames(command, true, out);
    return kWell;
}

int run(const Command& command, QTextStream& out, QTextStream& err)
{
    if (command.name == u"check")
        return check(command, out, err);
    return command.name == u"fields" ? fields(command, out, err) : render(command, out, err);
}

} // namespace

int runReportTool(const QStringList& arguments, QTextStream& out, QTextStream& err)
{
    if (arguments.contains(u"--help") || arguments.contains(u"-h")) {
        out << QString::fromUtf8(kUsage);
        return kWell;
    }
    if (arguments.contains(u"--version")) {
        out << u"orvane-informe "_s << QStringLiteral(ORVANE_VERSION) << u'\n';
        return kWell;
    }
    QString file;
    try {
        const Command command = parseCommand(arguments);
        file = QFileInfo(command.file).fileName();
        return run(command, out, err);
    } catch (const CommandFault& fault) {
        tell(err, file.isEmpty() ? u"%1 (véase --help)"_s.arg(fault.text()) : fault.text());
        return file.isEmpty() ? kRefused : kFaults;
    } catch (const Problem& problem) {
        err << file << u": "_s << problem.text() << u'\n';
        return kFaults;
    }
}

} // namespace orvane::tools
