// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/data/commandline.h"

#include "platform/core/failure.h"
#include "tools/data/checkroot.h"
#include "tools/data/demoroot.h"
#include "tools/data/toolerror.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>

#include <optional>

namespace tools {

namespace {

constexpr int kMostClients = 1000000;

const QString& helpText()
{
    static const QString kText = QStringLiteral(
        "Uso: orvane-data demo CARPETA [--size N] [--seed S]\n"
        "     orvane-data check CARPETA\n"
        "\n"
        "  demo   crea en CARPETA, que no debe existir o debe estar vacía, una raíz de datos\n"
        "         de prueba con tres empresas. Los mismos argumentos dan siempre los mismos datos.\n"
        "           --size N   número de clientes de la empresa 00012 (1 a 1000000; 300 si no se dice)\n"
        "           --seed S   semilla, un número entero desde 0 (1 si no se dice)\n"
        "  check  revisa todos los ficheros de la raíz de datos CARPETA sin cambiar nada.\n"
        "         Da un fallo o un aviso por línea.\n"
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

int check(const QStringList& arguments, QTextStream& out)
{
    if (arguments.size() < 2)
        throw ToolError(QStringLiteral("falta la carpeta"));
    if (arguments.size() > 2)
        throw ToolError(QStringLiteral("sobra el argumento «%1»").arg(arguments[2]));
    if (arguments[1].startsWith(u'-'))
        throw ToolError(QStringLiteral("opción desconocida «%1»").arg(arguments[1]));
    return checkRoot(arguments[1], out) ? ExitClean : ExitFaults;
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
        throw ToolError(QStringLiteral("falta la orden: demo o check (véase --help)"));
    if (arguments.first() == u"demo")
        return demo(arguments, out);
    if (arguments.first() == u"check")
        return check(arguments, out);
    throw ToolError(
        QStringLiteral("orden desconocida «%1»: demo o check (véase --help)").arg(arguments.first()));
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
