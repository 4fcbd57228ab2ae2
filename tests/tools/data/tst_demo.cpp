// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/data/demofolder.h"

#include "platform/storage/storage.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using tooltest::DemoFolder;
using tooltest::filesUnder;
using tooltest::runTool;
using tooltest::ToolRun;

namespace {

qint64 rowsOf(const QString& file, const QString& table)
{
    const auto store = platform::storage::sqliteEngine()->open(file, platform::storage::Sharing::Shared);
    return store->openTable(table)->count();
}

void write(const QString& file, const QByteArray& text)
{
    QFile out(file);
    QVERIFY(out.open(QIODevice::WriteOnly));
    out.write(text);
}

} // namespace

class DemoTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void helpIsGiven();
    void versionIsGiven();
    void badCallsAreRefusedInOneLine_data();
    void badCallsAreRefusedInOneLine();
    void aFolderWithSomethingInItIsRefused();
    void aFolderWithAHiddenFileIsRefused();
    void aFileInPlaceOfTheFolderIsRefused();
    void anEmptyFolderIsFilled();
    void missingParentsAreMade();
    void threeCompaniesHaveAllTheirStores();
    void theSizeIsTheNumberOfClientsOfTheMainCompany();
    void theSameSeedGivesTheSameBytes();
    void anotherSeedGivesOtherClients();
    void theDemoIsSound();
    void reportFilesComeAlong();
};

void DemoTest::helpIsGiven()
{
    const ToolRun run = runTool({QStringLiteral("--help")});

    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.out.contains(u"orvane-data demo CARPETA"));
    QVERIFY(run.out.contains(u"orvane-data check CARPETA"));
}

void DemoTest::versionIsGiven()
{
    const ToolRun run = runTool({QStringLiteral("--version")});

    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.out, QStringLiteral("orvane-data 3.32.3009\n"));
}

void DemoTest::badCallsAreRefusedInOneLine_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char* name, const QStringList& arguments, const QString& reason) {
        QTest::newRow(name) << arguments << reason;
    };
    const QString demo = QStringLiteral("demo");
    const QString check = QStringLiteral("check");
    const QString folder = QStringLiteral("/nonexistent/orvane");
    row("no command", {}, QStringLiteral("falta la orden"));
    row("unknown command", {QStringLiteral("borra")}, QStringLiteral("orden desconocida «borra»"));
    row("demo without a folder", {demo}, QStringLiteral("falta la carpeta"));
    row("two folders", {demo, folder, folder}, QStringLiteral("sobra el argumento"));
    row("unknown option", {demo, folder, QStringLiteral("--color")},
        QStringLiteral("opción desconocida «--color»"));
    row("size without a value", {demo, folder, QStringLiteral("--size")},
        QStringLiteral("falta el valor de --size"));
    row("size of nothing", {demo, folder, QStringLiteral("--size=0")},
        QStringLiteral("--size quiere un número"));
    row("size in words", {demo, folder, QStringLiteral("--size"), QStringLiteral("mil")},
        QStringLiteral("--size quiere un número"));
    row("size past the limit", {demo, folder, QStringLiteral("--size=1000001")},
        QStringLiteral("--size quiere un número"));
    row("seed below zero", {demo, folder, QStringLiteral("--seed=-1")},
        QStringLiteral("--seed quiere un número"));
    row("check without a folder", {check}, QStringLiteral("falta la carpeta"));
    row("check of two folders", {check, folder, folder}, QStringLiteral("sobra el argumento"));
    row("check with an option", {check, QStringLiteral("--fix")},
        QStringLiteral("opción desconocida «--fix»"));
    row("check of no folder", {check, folder}, QStringLiteral("no existe la carpeta"));
}

void DemoTest::badCallsAreRefusedInOneLine()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, reason);

    const ToolRun run = runTool(arguments);

    QCOMPARE(run.exitCode, 2);
    QVERIFY2(run.err.contains(reason), qUtf8Printable(run.err));
    QCOMPARE(run.err.count(u'\n'), 1);
    QVERIFY(run.out.isEmpty());
}

void DemoTest::aFolderWithSomethingInItIsRefused()
{
    const QTemporaryDir folder;
    write(folder.filePath(QStringLiteral("carta.txt")), "no tocar");

    const ToolRun run = runTool({QStringLiteral("demo"), folder.path()});

    QCOMPARE(run.exitCode, 2);
    QVERIFY2(run.err.contains(u"no está vacía"), qUtf8Printable(run.err));
    QCOMPARE(run.err.count(u'\n'), 1);
    QCOMPARE(filesUnder(folder.path()),
             (QMap<QString, QByteArray>{{QStringLiteral("carta.txt"), QByteArrayLiteral("no tocar")}}));
}

void DemoTest::aFolderWithAHiddenFileIsRefused()
{
    const QTemporaryDir folder;
    write(folder.filePath(QStringLiteral(".oculto")), "x");

    QCOMPARE(runTool({QStringLiteral("demo"), folder.path()}).exitCode, 2);
}

void DemoTest::aFileInPlaceOfTheFolderIsRefused()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("datos"));
    write(file, "x");

    const ToolRun run = runTool({QStringLiteral("demo"), file});

    QCOMPARE(run.exitCode, 2);
    QVERIFY2(run.err.contains(u"no es una carpeta"), qUtf8Printable(run.err));
}

void DemoTest::anEmptyFolderIsFilled()
{
    const QTemporaryDir folder;

    const ToolRun run = runTool({QStringLiteral("demo"), folder.path(), QStringLiteral("--size=3")});

    QCOMPARE(run.exitCode, 0);
    QVERIFY(QFile::exists(folder.filePath(QStringLiteral("Empresas de Quenda.mdb"))));
}

void DemoTest::missingParentsAreMade()
{
    const QTemporaryDir folder;
    const QString root = folder.filePath(QStringLiteral("a/b/raíz de datos"));

    QCOMPARE(runTool({QStringLiteral("demo"), root, QStringLiteral("--size=3")}).exitCode, 0);

    QVERIFY(QFile::exists(root + QStringLiteral("/TELEFONOS DE CLIENTES.MDB")));
}

void DemoTest::threeCompaniesHaveAllTheirStores()
{
    const DemoFolder demo;

    QStringList names = demo.stores().keys();
    names.removeIf([](const QString& name) { return name.endsWith(u".rpt"); });

    QStringList expected{QStringLiteral("Empresas de Quenda.mdb"),
                         QStringLiteral("TELEFONOS DE CLIENTES.MDB")};
    for (const QString& company :
         {QStringLiteral("00001"), QStringLiteral("00012"), QStringLiteral("00027")}) {
        for (const QString& file :
             {QStringLiteral("ARTICULOS.MDB"), QStringLiteral("Clientes.mdb"), QStringLiteral("ZONAS.MDB"),
              QStringLiteral("TIPOS DE CLIENTES.MDB"), QStringLiteral("ASISTENCIAS.MDB")})
            expected.append(QStringLiteral("Empresa%1/%2").arg(company, file));
    }
    expected.sort();
    names.sort();
    QCOMPARE(names, expected);
}

void DemoTest::theSizeIsTheNumberOfClientsOfTheMainCompany()
{
    const DemoFolder demo;

    QCOMPARE(rowsOf(demo.path(QStringLiteral("Empresa00012/Clientes.mdb")), QStringLiteral("ClientesTabla")),
             20);
    QVERIFY(rowsOf(demo.path(QStringLiteral("Empresa00012/ASISTENCIAS.MDB")), QStringLiteral("CONS")) > 20);
    QVERIFY(rowsOf(demo.path(QStringLiteral("Empresa00001/Clientes.mdb")), QStringLiteral("ClientesTabla")) >
            20);
}

void DemoTest::theSameSeedGivesTheSameBytes()
{
    const QTemporaryDir folder;
    const QString first = folder.filePath(QStringLiteral("1"));
    const QString second = folder.filePath(QStringLiteral("2"));
    const QStringList options{QStringLiteral("--size=10"), QStringLiteral("--seed=9")};

    QCOMPARE(runTool(QStringList{QStringLiteral("demo"), first} + options).exitCode, 0);
    QCOMPARE(runTool(QStringList{QStringLiteral("demo"), second} + options).exitCode, 0);

    QVERIFY(filesUnder(first) == filesUnder(second));
}

void DemoTest::anotherSeedGivesOtherClients()
{
    const DemoFolder demo; // seed 1
    const QTemporaryDir folder;
    QCOMPARE(runTool({QStringLiteral("demo"), folder.path(), QStringLiteral("--size=20"),
                      QStringLiteral("--seed=2")})
                 .exitCode,
             0);

    const QString clients = QStringLiteral("Empresa00012/Clientes.mdb");
    QVERIFY(filesUnder(folder.path()).value(clients) != demo.stores().value(clients));
}

void DemoTest::theDemoIsSound()
{
    const DemoFolder demo;

    const ToolRun run = demo.check();

    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.faults(), QStringList());
    QVERIFY2(run.out.contains(u"0 fallos"), qUtf8Printable(run.out));
}

void DemoTest::reportFilesComeAlong()
{
    const DemoFolder demo;
    const QDir shipped(QStringLiteral(ORVANE_REPORTS_DIR));
    const QStringList reports = shipped.entryList({QStringLiteral("*.rpt")}, QDir::Files, QDir::Name);

    QStringList copied = demo.stores().keys();
    copied.removeIf([](const QString& name) { return !name.endsWith(u".rpt"); });

    QCOMPARE(copied, reports);
}

QTEST_GUILESS_MAIN(DemoTest)
#include "tst_demo.moc"
