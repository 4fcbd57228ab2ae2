// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/data/commandline.h"

#include "platform/core/failure.h"
#include "tools/data/backup.h"
#include "tools/data/checkroot.h"
#include "tools/data/demoroot.h"
#include "tools/data/repairfile.h"
#include "tools/data/toolerror.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>

#include <array>
#include <optional>

namespace tools {

namespace {

constexpr int kMostClients = 1000000;

const QString& helpText()
{
    static const QString kText = QStringLiteral(
        "Uso: orvane-data demo CARPETA [--size N] [--seed S]\n"
        "     orvane-data check CARPETA\n"
        "     orvane-data backup CARPETA COPIA\n"
        "     orvane-data verify COPIA\n"
        "     orvane-data restore COPIA CARPETA [--replace]\n"
        "     orvane-data repair FICHERO\n"
        "\n"
        "  demo   crea en CARPETA, que no debe existir o debe estar vacía, una raíz de datos\n"
        "         de prueba con tres empresas. Los mismos argumentos dan siempre los mismos datos.\n"
        "           --size N   número de clientes de la empresa 00012 (1 a 1000000; 300 si no se dice)\n"
        "           --seed S   semilla, un número entero desde 0 (1 si no se dice)\n"
        "  check  revisa todos los ficheros de la raíz de datos CARPETA sin cambiar nada.\n"
        "         Da un fallo o un aviso por línea. De un fichero dañado dice cuántas filas quedan\n"
        "         y qué claves se han perdido, hasta donde lo cuentan sus índices.\n"
        "  backup copia los ficheros de la raíz CARPETA (catálogo, empresas, teléfonos, informes) en\n"
        "         COPIA, una carpeta que no debe existir o debe estar vacía. Los puestos pueden seguir\n"
        "         trabajando: ninguno espera más de un segundo, y todo queda de un mismo instante.\n"
        "         Si un fichero está dañado no se hace la copia.\n"
        "  verify comprueba cada byte y cada fila de COPIA con la lista que lleva.\n"
        "  restore comprueba COPIA y la devuelve a CARPETA, que no debe existir o debe estar vacía.\n"
        "           --replace  si CARPETA tiene contenido, sustituye sus ficheros por los de COPIA;\n"
        "                      los que había quedan como «NOMBRE.anterior-N». Ningún puesto puede\n"
        "                      tenerlos abiertos.\n"
        "  repair repara un fichero dañado, que queda aparte como «NOMBRE.dañado-N», y dice qué se\n"
        "         ha salvado y qué se ha perdido. Ningún puesto puede tenerlo abierto.\n"
        "\n"
        "  --help     muestra esta ayuda\n"
        "  --version  muestra la versión\n"
        "\n"
        "Termina con 0 si todo va bien, 1 si hay fallos y 2 si no se puede hacer lo pedido.\n");
    return kText;
}

/// The value of `--name value` or `--name=value` at `position`, which moves on to the last argument used;
/// nothing when another argument stands there.
std::optional<QString> optionValue(const QStringList& arguments, qsizetype& position, const QString& name)
{
    const QString& argument = arguments[position];
    if (argument.startsWith(name + u'='))
        return argument.mid(name.size() + 1);
    if (argument != name)
        return std::nullopt;
    if (position + 1 == arguments.size())
        throw ToolError(QStringLiteral("falta el valor de %1").arg(name));
    return arguments[++position];
}

int sizeOf(const QString& text)
{
    bool whole = false;
    const int number = text.toInt(&whole);
    if (!whole || number < 1 || number > kMostClients)
        throw ToolError(
            QStringLiteral("--size quiere un número de 1 a %1, no «%2»").arg(kMostClients).arg(text));
    return number;
}

std::uint64_t seedOf(const QString& text)
{
    bool whole = false;
    const qulonglong number = text.toULongLong(&whole);
    if (!whole)
        throw ToolError(QStringLiteral("--seed quiere un número entero desde 0, no «%1»").arg(text));
    return number;
}

/// The folder of the report files that came with the program: beside an installed one, or the source's.
QString reportsFolder()
{
    QString installed = QCoreApplication::applicationDirPath() + QStringLiteral("/../share/orvane/reports");
    if (QDir(installed).exists())
        return installed;
    const QString source = QStringLiteral(ORVANE_REPORTS_DIR);
    return QDir(source).exists() ? source : QString();
}

DemoRequest demoRequest(const QStringList& arguments)
{
    DemoRequest request;
    request.reports = reportsFolder();
    for (qsizetype i = 1; i < arguments.size(); ++i) {
        if (const auto size = optionValue(arguments, i, QStringLiteral("--size")))
            request.clients = sizeOf(*size);
        else if (const auto seed = optionValue(arguments, i, QStringLiteral("--seed")))
            request.seed = seedOf(*seed);
        else if (arguments[i].startsWith(u'-'))
            throw ToolError(QStringLiteral("opción desconocida «%1»").arg(arguments[i]));
        else if (!request.folder.isEmpty())
            throw ToolError(QStringLiteral("sobra el argumento «%1»").arg(arguments[i]));
        else
            request.folder = arguments[i];
    }
    if (request.folder.isEmpty())
        throw ToolError(QStringLiteral("falta la carpeta"));
    return request;
}

int demo(const QStringList& arguments, QTextStream& out)
{
    const DemoRequest request = demoRequest(arguments);
    QElapsedTimer timer;
    timer.start();
    makeDemoRoot(request);
    out << QStringLiteral("Raíz de datos creada en «%1» con %2 clientes en la empresa 00012 (%3 s).\n")
               .arg(request.folder)
               .arg(request.clients)
               .arg(static_cast<double>(timer.elapsed()) / 1000.0, 0, 'f', 1);
    return ExitClean;
}

/// The arguments of a command that takes none but `names`, each said in the fault when it is missing, and the
/// flag, if any.
struct Operands
{
    QStringList values;
    bool hasFlag = false;
};

Operands operandsOf(const QStringList& arguments, const QStringList& names, QStringView flag = {})
{
    Operands operands;
    for (const QString& argument : arguments.mid(1)) {
        if (!flag.isEmpty() && argument == flag)
            operands.hasFlag = true;
        else if (argument.startsWith(u'-'))
            throw ToolError(QStringLiteral("opción desconocida «%1»").arg(argument));
        else if (operands.values.size() == names.size())
            throw ToolError(QStringLiteral("sobra el argumento «%1»").arg(argument));
        else
            operands.values.append(argument);
    }
    // "" is where a name should be and no name: an absolute path would become the current folder.
    for (qsizetype i = 0; i < names.size(); ++i) {
        if (operands.values.value(i).isEmpty())
            throw ToolError(QStringLiteral("falta %1").arg(names.at(i)));
    }
    return operands;
}

int check(const QStringList& arguments, QTextStream& out)
{
    const Operands operands = operandsOf(arguments, {QStringLiteral("la carpeta")});
    return checkRoot(operands.values.at(0), out) ? ExitClean : ExitFaults;
}

int backup(const QStringList& arguments, QTextStream& out)
{
    const Operands operands =
        operandsOf(arguments, {QStringLiteral("la carpeta"), QStringLiteral("la carpeta de la copia")});
    backUp(operands.values.at(0), operands.values.at(1), out);
    return ExitClean;
}

int verify(const QStringList& arguments, QTextStream& out)
{
    const Operands operands = operandsOf(arguments, {QStringLiteral("la carpeta de la copia")});
    return verifyCopy(operands.values.at(0), out) ? ExitClean : ExitFaults;
}

int restoreCopy(const QStringList& arguments, QTextStream& out)
{
    const Operands operands = operandsOf(
        arguments, {QStringLiteral("la carpeta de la copia"), QStringLiteral("la carpeta")}, u"--replace");
    return restore(operands.values.at(0), operands.values.at(1), operands.hasFlag, out) ? ExitClean
                                                                                        : ExitFaults;
}

int repair(const QStringList& arguments, QTextStream& out)
{
    const Operands operands = operandsOf(arguments, {QStringLiteral("el fichero")});
    return repairFile(operands.values.at(0), out) ? ExitClean : ExitFaults;
}

struct Command
{
    QStringView name;
    int (*run)(const QStringList& arguments, QTextStream& out);
};
constexpr std::array kCommands{
    Command{u"demo", &demo},     Command{u"check", &check},         Command{u"backup", &backup},
    Command{u"verify", &verify}, Command{u"restore", &restoreCopy}, Command{u"repair", &repair},
};

QString commandNames()
{
    QStringList names;
    for (const Command& command : kCommands)
        names.append(command.name.toString());
    return names.join(QStringLiteral(", "));
}

int run(const QStringList& arguments, QTextStream& out)
{
    if (arguments.contains(QStringLiteral("--help")) || arguments.contains(QStringLiteral("-h"))) {
        out << helpText();
        return ExitClean;
    }
    if (arguments.contains(QStringLiteral("--version"))) {
        out << QStringLiteral("orvane-data %1\n").arg(QStringLiteral(ORVANE_VERSION));
        return ExitClean;
    }
    if (arguments.isEmpty())
        throw ToolError(QStringLiteral("falta la orden: %1 (véase --help)").arg(commandNames()));
    for (const Command& command : kCommands) {
        if (arguments.first() == command.name)
            return command.run(arguments, out);
    }
    throw ToolError(
        QStringLiteral("orden desconocida «%1»: %2 (véase --help)").arg(arguments.first(), commandNames()));
}

} // namespace

int runDataTool(const QStringList& arguments, QTextStream& out, QTextStream& err)
{
    try {
        return run(arguments, out);
    } catch (const ToolError& error) {
        err << QStringLiteral("orvane-data: ") << error.text() << u'\n';
        return ExitRefused;
    } catch (const platform::Failure& failure) {
        err << QStringLiteral("orvane-data: fallo %1 del motor de datos: %2\n")
                   .arg(failure.number())
                   .arg(failure.text());
        return ExitFaults;
    }
}

} // namespace tools
