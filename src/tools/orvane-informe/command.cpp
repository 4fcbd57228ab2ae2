// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/orvane-informe/command.h"

#include "platform/system/paths.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;
using namespace platform::print;

namespace orvane::tools {
namespace {

constexpr int kCompanyDigits = 5;

/// The option's place in the command; null for one that has none.
QString* placeOf(Command& command, const QString& option)
{
    if (option == u"--data")
        return &command.data;
    if (option == u"--company")
        return &command.company;
    if (option == u"--pdf")
        return &command.pdf;
    return option == u"--csv" ? &command.csv : nullptr;
}

void takeOption(Command& command, const QString& option, const QString& value)
{
    if (QString* place = placeOf(command, option)) {
        if (value.isEmpty())
            throw CommandFault(u"%1 está vacío"_s.arg(option));
        *place = value;
    } else if (option == u"--where") {
        command.where = value;
    } else if (option == u"--formula") {
        if (!value.contains(u'='))
            throw CommandFault(u"--formula quiere NOMBRE=TEXTO, no «%1»"_s.arg(value));
        command.formulas += value;
    } else if (option.startsWith(u'-')) {
        throw CommandFault(u"opción desconocida «%1»"_s.arg(option));
    } else {
        throw CommandFault(u"sobra el argumento «%1»"_s.arg(option));
    }
}

bool isKnownOption(const QString& option)
{
    Command nowhere;
    return option == u"--where" || option == u"--formula" || placeOf(nowhere, option) != nullptr;
}

void checkUse(const Command& command)
{
    const bool rendering = command.name == u"render";
    if (command.name == u"fields" && !command.data.isEmpty())
        throw CommandFault(u"fields no lleva --data"_s);
    if (!rendering &&
        (command.where || !command.formulas.isEmpty() || !command.pdf.isEmpty() || !command.csv.isEmpty()))
        throw CommandFault(u"--where, --formula, --pdf y --csv son de render"_s);
    if (rendering && command.data.isEmpty())
        throw CommandFault(u"falta --data"_s);
    if (rendering && command.company.isEmpty())
        throw CommandFault(u"falta --company"_s);
    if (rendering && command.pdf.isEmpty() == command.csv.isEmpty())
        throw CommandFault(u"hace falta una salida: --pdf o --csv"_s);
    if (command.data.isEmpty() && !command.company.isEmpty())
        throw CommandFault(u"--company sin --data"_s);
}

/// Turns the company's number, or nothing, into the name of its folder: without a number the first there is.
void findCompany(Command& command)
{
    if (command.data.isEmpty())
        return;
    const QDir root(command.data);
    if (!root.exists())
        throw CommandFault(u"no existe la carpeta «%1»"_s.arg(command.data));
    if (command.company.isEmpty()) {
        const QStringList folders = root.entryList({u"Empresa?????"_s}, QDir::Dirs, QDir::Name);
        if (folders.isEmpty())
            throw CommandFault(u"«%1» no tiene ninguna carpeta de empresa"_s.arg(command.data));
        command.company = folders.first();
        return;
    }
    const QString number = command.company.rightJustified(kCompanyDigits, u'0');
    command.company = u"Empresa"_s + number;
    if (!QFileInfo(platform::nativePath(command.data + u'/' + command.company)).isDir())
        throw CommandFault(u"«%1» no tiene la empresa %2"_s.arg(command.data, number));
}

QString locate(const Command& command, const QString& name)
{
    if (!command.data.isEmpty()) {
        for (const QString& folder : {command.data + u'/' + command.company, command.data}) {
            QString path = platform::nativePath(folder + u'/' + name);
            if (QFileInfo::exists(path))
                return path;
        }
    }
    return platform::nativePath(QFileInfo(command.file).absolutePath() + u'/' + name);
}

} // namespace

Command parseCommand(const QStringList& arguments)
{
    Command command;
    if (arguments.isEmpty())
        throw CommandFault(u"falta la orden: check, render o fields"_s);
    command.name = arguments[0];
    if (command.name != u"check" && command.name != u"render" && command.name != u"fields")
        throw CommandFault(u"orden desconocida «%1»: check, render o fields"_s.arg(command.name));
    if (arguments.size() < 2 || arguments[1].startsWith(u'-'))
        throw CommandFault(u"falta el fichero del informe"_s);
    command.file = arguments[1];
    for (qsizetype i = 2; i < arguments.size(); i += 2) {
        if (isKnownOption(arguments[i]) && i + 1 >= arguments.size())
            throw CommandFault(u"falta el valor de %1"_s.arg(arguments[i]));
        takeOption(command, arguments[i], arguments.value(i + 1));
    }
    checkUse(command);
    findCompany(command);
    return command;
}

TablePaths tablePaths(const Command& command, const Report& report, const TablePaths& mainPaths)
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
        paths += name.isEmpty() ? other : platform::nativePath(QFileInfo(other).path() + u'/' + name);
    }
    return paths;
}

} // namespace orvane::tools
