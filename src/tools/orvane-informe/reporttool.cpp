// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/orvane-informe/reporttool.h"

#include "platform/print/definition/read_xml.h"
#include "platform/print/output/exports.h"
#include "platform/print/problem.h"
#include "platform/system/clock.h"
#include "platform/system/paths.h"

#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QRegularExpression>
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
    QString data;    ///< data root
    QString company; ///< number of the company whose stores are read
    QString pdf;
    QString csv;
    QStringList formulas; ///< NAME=TEXT
    std::optional<QString> where;
};

constexpr char kUsage[] =
    "orvane-informe check FICHERO [--data RAÍZ --company NÚMERO]\n"
    "    examina el informe y dice cada falta en una línea; con la raíz de datos, también sus columnas\n"
    "orvane-informe render FICHERO --data RAÍZ --company NÚMERO (--pdf SALIDA | --csv SALIDA)\n"
    "               [--where FÓRMULA] [--formula NOMBRE=TEXTO]...\n"
    "    escribe el informe con los datos de la empresa\n"
    "orvane-informe fields FICHERO\n"
    "    lista las tablas, columnas y fórmulas que el informe nombra\n"
    "orvane-informe --help\n";

/// The option's place in the command; null for an unknown option.
QString* optionOf(Command& command, const QString& option)
{
    if (option == u"--data")
        return &command.data;
    if (option == u"--company")
        return &command.company;
    if (option == u"--pdf")
        return &command.pdf;
    return option == u"--csv" ? &command.csv : nullptr;
}

bool isComplete(const Command& command)
{
    if (command.name == u"fields")
        return true;
    const bool hasData = !command.data.isEmpty() && !command.company.isEmpty();
    if (command.name == u"check")
        return hasData || command.data.isEmpty();
    return command.name == u"render" && hasData && command.pdf.isEmpty() != command.csv.isEmpty();
}

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
        if (QString* place = optionOf(command, arguments[i]))
            *place = value;
        else if (arguments[i] == u"--where")
            command.where = value;
        else if (arguments[i] == u"--formula" && value.contains(u'='))
            command.formulas += value;
        else
            return std::nullopt;
    }
    return isComplete(command) ? std::optional(command) : std::nullopt;
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

/// A table lies in the company's folder if its file is there, in the data root, or else beside the report.
QString locate(const Command& command, const QString& name)
{
    for (const QString& folder : {command.data + u"/Empresa"_s + command.company, command.data}) {
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
    if (command.where)
        report->selection = formula::Formula(*command.where);
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
    const bool records = !command.csv.isEmpty();
    const QString output = records ? command.csv : command.pdf;
    if (records ? !writeCsv(document, output) : !writePdf(document, output, title)) {
        err << u"no se puede escribir «"_s << output << u"»\n"_s;
        return 1;
    }
    out << output << u": "_s << document.recordCount() << u" registros"_s;
    if (!records)
        out << u", "_s << document.pageCount() << u" páginas"_s;
    out << u'\n';
    if (!document.notes().isEmpty())
        out << document.notes() << u'\n';
    return 0;
}

/// What stands in braces anywhere in the file's formulas and texts, each once, without regard to case.
QStringList namesInBraces(const QByteArray& file)
{
    static const QRegularExpression braces(u"(?<!\\{)\\{([^{}\\n]+)\\}"_s);
    QMap<QString, QString> names;
    for (const QRegularExpressionMatch& match : braces.globalMatch(QString::fromUtf8(file)))
        names.insert(match.captured(1).toCaseFolded(), match.captured(1));
    return names.values();
}

int fields(const Command& command, QTextStream& out, QTextStream& err)
{
    const std::unique_ptr<Report> report = readFile(command, err);
    if (!report)
        return 1;
    for (const Table& table : report->tables)
        out << u"tabla "_s << table.alias << u": "_s << table.file << u'\n';
    QFile file(command.file);
    if (!file.open(QIODevice::ReadOnly))
        return 1;
    for (const QString& name : namesInBraces(file.readAll()))
        out << (name.startsWith(u'@') ? u"fórmula "_s : u"columna "_s) << name << u'\n';
    return 0;
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
    if (arguments.size() == 1 && arguments.first() == u"--help") {
        out << QString::fromUtf8(kUsage);
        return 0;
    }
    const std::optional<Command> command = parseArguments(arguments);
    if (!command) {
        err << QString::fromUtf8(kUsage);
        return 2;
    }
    try {
        return run(*command, out, err);
    } catch (const Problem& problem) {
        err << QFileInfo(command->file).fileName() << u": "_s << problem.text() << u'\n';
        return 1;
    }
}

} // namespace orvane::tools
