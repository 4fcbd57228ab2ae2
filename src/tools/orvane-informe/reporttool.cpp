// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/orvane-informe/reporttool.h"

#include "platform/print/definition/read_xml.h"
#include "platform/print/output/exports.h"
#include "platform/print/problem.h"
#include "platform/system/clock.h"
#include "platform/system/paths.h"

#include <QFile>
#include <QFileInfo>
#include <QTextStream>

#include <optional>

using namespace Qt::StringLiterals;
using namespace platform;
using namespace platform::print;

namespace orvane::tools {
namespace {

struct Command
{
    QString name;
    QString file;
    QString data; ///< folder of the company's stores
    QString output;
    QStringList formulas; ///< NAME=TEXT
    std::optional<QString> selection;
};

constexpr char kUsage[] =
    "orvane-informe check FICHERO [--data CARPETA]\n"
    "orvane-informe render FICHERO --data CARPETA --output SALIDA.pdf|.csv [--select FORMULA]\n"
    "               [--formula NOMBRE=TEXTO]...\n";

std::optional<Command> parseArguments(const QStringList& arguments)
{
    Command command;
    if (arguments.size() < 2)
        return std::nullopt;
    command.name = arguments[0];
    command.file = arguments[1];
    for (qsizetype i = 2; i < arguments.size(); i += 2) {
        if (i + 1 >= arguments.size())
            return std::nullopt;
        const QString& value = arguments[i + 1];
        if (arguments[i] == u"--data")
            command.data = value;
        else if (arguments[i] == u"--output")
            command.output = value;
        else if (arguments[i] == u"--select")
            command.selection = value;
        else if (arguments[i] == u"--formula" && value.contains(u'='))
            command.formulas += value;
        else
            return std::nullopt;
    }
    const bool complete = command.name == u"check" ||
                          (command.name == u"render" && !command.data.isEmpty() && !command.output.isEmpty());
    return complete ? std::optional(command) : std::nullopt;
}

std::unique_ptr<Report> readFile(const Command& command, QTextStream& err)
{
    QFile file(command.file);
    if (!file.open(QIODevice::ReadOnly)) {
        err << command.file << u": no se puede leer\n"_s;
        return nullptr;
    }
    ReadReport read = readReport(file.readAll());
    for (const DefinitionFault& fault : read.faults)
        err << describe(QFileInfo(command.file).fileName(), fault) << u'\n';
    return read.report ? std::make_unique<Report>(std::move(*read.report)) : nullptr;
}

/// A table lies in the data folder if its file is there, in the folder above, or else beside the report.
QString locate(const Command& command, const QString& name)
{
    for (const QString& folder : {command.data, command.data + u"/.."_s}) {
        const QString path = nativePath(folder + u'/' + name);
        if (QFileInfo::exists(path))
            return path;
    }
    return nativePath(QFileInfo(command.file).absolutePath() + u'/' + name);
}

TablePaths pathsOf(const Command& command, const Report& report, const TablePaths& mainPaths)
{
    TablePaths paths;
    for (const Table& table : report.tables) {
        if (!table.file.startsWith(u'@')) {
            paths += locate(command, table.file);
            continue;
        }
        const TablePaths& known = mainPaths.isEmpty() ? paths : mainPaths;
        const QString other = known.value(table.file.mid(1).section(u'/', 0, 0).toInt());
        const QString name = table.file.section(u'/', 1);
        paths += name.isEmpty() ? other : nativePath(QFileInfo(other).path() + u'/' + name);
    }
    return paths;
}

std::vector<TablePaths> subreportPaths(const Command& command, const Report& report,
                                       const TablePaths& mainPaths)
{
    std::vector<TablePaths> paths;
    for (const Report& subreport : report.subreports)
        paths.push_back(pathsOf(command, subreport, mainPaths));
    return paths;
}

int check(const Command& command, QTextStream& out, QTextStream& err)
{
    const std::unique_ptr<Report> report = readFile(command, err);
    if (!report)
        return 1;
    if (!command.data.isEmpty()) {
        const TablePaths paths = pathsOf(command, *report, {});
        Execution(*report, platform::now()).check(paths, subreportPaths(command, *report, paths));
        for (qsizetype i = 0; i < paths.size(); ++i)
            out << report->tables[static_cast<std::size_t>(i)].alias << u": "_s << paths[i] << u'\n';
    }
    out << QFileInfo(command.file).fileName() << u": correcto\n"_s;
    return 0;
}

int render(const Command& command, QTextStream& out, QTextStream& err)
{
    std::unique_ptr<Report> report = readFile(command, err);
    if (!report)
        return 1;
    if (command.selection)
        report->selection = formula::Formula(*command.selection);
    for (const QString& entry : command.formulas) {
        FormulaField* field = report->formulaField(entry.section(u'=', 0, 0));
        if (field == nullptr) {
            err << u"el informe no tiene la fórmula «"_s << entry.section(u'=', 0, 0) << u"»\n"_s;
            return 1;
        }
        field->formula = formula::Formula(entry.section(u'=', 1));
    }
    const QString title = report->name;
    const TablePaths paths = pathsOf(command, *report, {});
    const std::vector<TablePaths> inner = subreportPaths(command, *report, paths);
    Document document(std::move(report), QFileInfo(command.file).absolutePath(), platform::now());
    document.start(paths, inner);
    const bool records = command.output.endsWith(u".csv"_s, Qt::CaseInsensitive);
    if (records ? !writeCsv(document, command.output) : !writePdf(document, command.output, title)) {
        err << u"no se puede escribir «"_s << command.output << u"»\n"_s;
        return 1;
    }
    out << command.output << u": "_s << document.recordCount() << u" registros"_s;
    if (!records)
        out << u", "_s << document.pageCount() << u" páginas"_s;
    out << u'\n';
    if (!document.notes().isEmpty())
        out << document.notes() << u'\n';
    return 0;
}

} // namespace

int runReportTool(const QStringList& arguments, QTextStream& out, QTextStream& err)
{
    const std::optional<Command> command = parseArguments(arguments);
    if (!command) {
        err << QString::fromUtf8(kUsage);
        return 2;
    }
    try {
        return command->name == u"check" ? check(*command, out, err) : render(*command, out, err);
    } catch (const Problem& problem) {
        err << QFileInfo(command->file).fileName() << u": "_s << problem.text() << u'\n';
        return 1;
    }
}

} // namespace orvane::tools
