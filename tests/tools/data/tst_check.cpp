// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/data/demofolder.h"

#include "platform/core/failure.h"
#include "platform/storage/storage.h"

#include <QDir>
#include <QFile>
#include <QtTest>

#include <functional>

using platform::Null;
using platform::Value;
using platform::storage::Connection;
using platform::storage::Sharing;
using tooltest::DemoFolder;
using tooltest::runTool;
using tooltest::ToolRun;

namespace {

const QString& clientsFile()
{
    static const QString kFile = QStringLiteral("Empresa00012/Clientes.mdb");
    return kFile;
}

void withStore(const QString& file, const std::function<void(Connection&)>& work)
{
    const auto store = platform::storage::sqliteEngine()->open(file, Sharing::Shared);
    work(*store);
}

/// Adds a row with the named columns; the others are Null.
void addRow(const QString& file, const QString& tableName, const QMap<QString, Value>& cells)
{
    withStore(file, [&](Connection& store) {
        const auto table = store.openTable(tableName);
        platform::storage::Row row(static_cast<std::size_t>(table->definition().columns.size()));
        for (auto cell = cells.begin(); cell != cells.end(); ++cell)
            row.at(static_cast<std::size_t>(table->definition().columnIndex(cell.key()))) = cell.value();
        table->insert(row);
    });
}

void overwrite(const QString& file, const QByteArray& bytes)
{
    QFile out(file);
    QVERIFY(out.open(QIODevice::WriteOnly | QIODevice::Truncate));
    out.write(bytes);
}

QMap<QString, Value> consultation(double number, const QString& client)
{
    return {{QStringLiteral("ORDEN"), number},
            {QStringLiteral("CLICONSULTA"), client},
            {QStringLiteral("ESTADO"), QStringLiteral("01 Abierta")}};
}

} // namespace

class CheckTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aSoundRootGivesZero();
    void noByteOfAStoreChanges();
    void aFolderWithoutCatalogueIsNoDataRoot();
    void aStoreOfGarbageIsToldInOneLine();
    void anEmptyFileIsNoDatabase();
    void aDamagedPageIsFound();
    void aDamagedCatalogueStillLetsTheCompaniesBeChecked();
    void aStoreHeldByAnotherIsToldAfterAWait();
    void aMissingStoreIsANotice();
    void aMissingCompanyFolderIsAFault();
    void aFolderThatTheCatalogueDoesNotKnowIsCheckedToo();
    void linesOfAnUnknownClientAreFaults_data();
    void linesOfAnUnknownClientAreFaults();
    void aConsultationOfAnUnknownClientIsANotice();
    void trailingBlanksAndCaseFindTheClient();
    void aTelephoneOfAnUnknownCompanyIsAFault();
    void aTelephoneOfAnUnknownClientIsAFault();
    void aTextTooLongForItsColumnIsAFault();
    void aTextInANumberColumnIsAFault();
    void oddValuesAreNotices_data();
    void oddValuesAreNotices();
    void aNullStateIsNoFinding();
    void lineEndsInAValueKeepTheFindingOnOneLine();
};

void CheckTest::aSoundRootGivesZero()
{
    const DemoFolder demo;

    const ToolRun run = demo.check();

    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.err.isEmpty());
    QVERIFY2(run.out.trimmed().endsWith(u"17 ficheros revisados."), qUtf8Printable(run.out));
}

void CheckTest::noByteOfAStoreChanges()
{
    const DemoFolder demo;
    const auto before = demo.stores();

    QCOMPARE(demo.check().exitCode, 0);

    QVERIFY(demo.stores() == before);
}

void CheckTest::aFolderWithoutCatalogueIsNoDataRoot()
{
    const QTemporaryDir folder;

    const ToolRun run = runTool({QStringLiteral("check"), folder.path()});

    QCOMPARE(run.exitCode, 2);
    QVERIFY2(run.err.contains(u"no es una raíz de datos"), qUtf8Printable(run.err));
    QVERIFY(QDir(folder.path()).isEmpty());
}

void CheckTest::aStoreOfGarbageIsToldInOneLine()
{
    const DemoFolder demo;
    overwrite(demo.path(clientsFile()), QByteArray(5000, 'x'));

    const ToolRun run = demo.check();

    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.faults(),
             QStringList{QStringLiteral("fallo: Empresa00012/Clientes.mdb: no es una base de datos o "
                                        "está dañado")});
}

void CheckTest::anEmptyFileIsNoDatabase()
{
    const DemoFolder demo;
    overwrite(demo.path(QStringLiteral("Empresa00001/ZONAS.MDB")), {});

    const ToolRun run = demo.check();

    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.faults(),
             QStringList{QStringLiteral("fallo: Empresa00001/ZONAS.MDB: no es una base de datos o "
                                        "está dañado")});
}

void CheckTest::aDamagedPageIsFound()
{
    const DemoFolder demo;
    const QString file = demo.path(QStringLiteral("Empresa00012/ASISTENCIAS.MDB"));
    QFile store(file);
    QVERIFY(store.open(QIODevice::ReadWrite));
    // The last page holds rows or keys, never the schema.
    QVERIFY(store.seek(store.size() - 4096));
    store.write(QByteArray(4096, '\x7f'));
    store.close();

    const ToolRun run = demo.check();

    QCOMPARE(run.exitCode, 1);
    QVERIFY2(!run.faults().isEmpty() &&
                 run.faults().front().startsWith(u"fallo: Empresa00012/ASISTENCIAS.MDB: "),
             qUtf8Printable(run.out));
}

void CheckTest::aDamagedCatalogueStillLetsTheCompaniesBeChecked()
{
    const DemoFolder demo;
    overwrite(demo.path(QStringLiteral("Empresas de Quenda.mdb")), QByteArray(5000, 'x'));

    const ToolRun run = demo.check();

    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.faults().size(), 1);
    QVERIFY(run.out.contains(u"aviso: Empresa00012: el catálogo no conoce esta empresa"));
    QVERIFY(run.out.contains(u"17 ficheros revisados"));
}

void CheckTest::aStoreHeldByAnotherIsToldAfterAWait()
{
    const DemoFolder demo;
    const auto held = platform::storage::sqliteEngine()->open(demo.path(clientsFile()), Sharing::Exclusive);

    const ToolRun run = demo.check();

    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.faults(),
             QStringList{QStringLiteral("fallo: Empresa00012/Clientes.mdb: otro puesto lo tiene bloqueado")});
}

void CheckTest::aMissingStoreIsANotice()
{
    const DemoFolder demo;
    QVERIFY(QFile::remove(demo.path(QStringLiteral("Empresa00012/ZONAS.MDB"))));

    const ToolRun run = demo.check();

    QCOMPARE(run.exitCode, 0);
    QVERIFY(
        run.notices().contains(QStringLiteral("aviso: Empresa00012/ZONAS.MDB: falta; se crea al arrancar")));
}

void CheckTest::aMissingCompanyFolderIsAFault()
{
    const DemoFolder demo;
    QVERIFY(QDir(demo.path(QStringLiteral("Empresa00027"))).removeRecursively());

    const ToolRun run = demo.check();

    QCOMPARE(run.exitCode, 1);
    QVERIFY(run.faults().contains(QStringLiteral("fallo: Empresa00027: falta la carpeta de la empresa")));
}

void CheckTest::aFolderThatTheCatalogueDoesNotKnowIsCheckedToo()
{
    const DemoFolder demo;
    QVERIFY(QDir(demo.path()).mkdir(QStringLiteral("Empresa00099")));
    overwrite(demo.path(QStringLiteral("Empresa00099/ZONAS.MDB")), "basura");

    const ToolRun run = demo.check();

    QVERIFY(
        run.notices().contains(QStringLiteral("aviso: Empresa00099: el catálogo no conoce esta empresa")));
    QVERIFY(run.faults().contains(
        QStringLiteral("fallo: Empresa00099/ZONAS.MDB: no es una base de datos o está dañado")));
}

void CheckTest::linesOfAnUnknownClientAreFaults_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<QStringList>("columns"); ///< of the primary key, the client's first
    QTest::newRow("address") << QStringLiteral("CLIDIRENVIOS")
                             << QStringList{QStringLiteral("CLIENVICODIGO"),
                                            QStringLiteral("CLIENVIDIRECCION")};
    QTest::newRow("account") << QStringLiteral("CLIBANCOSDISP")
                             << QStringList{QStringLiteral("CLIBANCOSCODIGO"),
                                            QStringLiteral("CLIBANCOSCUENTA")};
    QTest::newRow("price") << QStringLiteral("TarifasCliente")
                           << QStringList{QStringLiteral("TariCodCliente"), QStringLiteral("TariCodArticul")};
}

void CheckTest::linesOfAnUnknownClientAreFaults()
{
    QFETCH(QString, table);
    QFETCH(QStringList, columns);
    const DemoFolder demo;
    addRow(demo.path(clientsFile()), table,
           {{columns[0], QStringLiteral("0000009999")}, {columns[1], QStringLiteral("1")}});

    const ToolRun run = demo.check();

    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.faults(),
             QStringList{QStringLiteral("fallo: Empresa00012/Clientes.mdb: %1: %2=0000009999, %3=1: el "
                                        "cliente «0000009999» no existe")
                             .arg(table, columns[0], columns[1])});
}

void CheckTest::aConsultationOfAnUnknownClientIsANotice()
{
    const DemoFolder demo;
    addRow(demo.path(QStringLiteral("Empresa00012/ASISTENCIAS.MDB")), QStringLiteral("CONS"),
           consultation(900001, QStringLiteral("NADIE")));

    const ToolRun run = demo.check();

    QCOMPARE(run.exitCode, 0);
    QVERIFY2(run.notices().contains(QStringLiteral("aviso: Empresa00012/ASISTENCIAS.MDB: CONS: ORDEN=900001, "
                                                   "CLICONSULTA=NADIE: el cliente «NADIE» no existe")),
             qUtf8Printable(run.out));
}

void CheckTest::trailingBlanksAndCaseFindTheClient()
{
    const DemoFolder demo;
    addRow(demo.path(clientsFile()), QStringLiteral("ClientesTabla"),
           {{QStringLiteral("CliCodigo"), QStringLiteral("Ñandú")}});
    addRow(demo.path(clientsFile()), QStringLiteral("CLIDIRENVIOS"),
           {{QStringLiteral("CLIENVICODIGO"), QStringLiteral("ñandú ")},
            {QStringLiteral("CLIENVIDIRECCION"), QStringLiteral("1")}});

    QCOMPARE(demo.check().faults(), QStringList());
}

void CheckTest::aTelephoneOfAnUnknownCompanyIsAFault()
{
    const DemoFolder demo;
    addRow(demo.path(QStringLiteral("TELEFONOS DE CLIENTES.MDB")), QStringLiteral("TELEFON"),
           {{QStringLiteral("TELECODIGOEMPRESA"), QStringLiteral("00044")},
            {QStringLiteral("TELECODIGO"), QStringLiteral("0000000001")},
            {QStringLiteral("TELETELEFONO"), QStringLiteral("976000000")}});

    const ToolRun run = demo.check();

    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.faults().size(), 1);
    QVERIFY2(run.faults().front().endsWith(u"la empresa «00044» no existe"), qUtf8Printable(run.out));
}

void CheckTest::aTelephoneOfAnUnknownClientIsAFault()
{
    const DemoFolder demo;
    addRow(demo.path(QStringLiteral("TELEFONOS DE CLIENTES.MDB")), QStringLiteral("TELEFON"),
           {{QStringLiteral("TELECODIGOEMPRESA"), QStringLiteral("00012")},
            {QStringLiteral("TELECODIGO"), QStringLiteral("0000009999")},
            {QStringLiteral("TELETELEFONO"), QStringLiteral("976000000")}});

    const ToolRun run = demo.check();

    QCOMPARE(run.exitCode, 1);
    QVERIFY2(run.faults().front().endsWith(u"el cliente «0000009999» no existe"), qUtf8Printable(run.out));
}

void CheckTest::aTextTooLongForItsColumnIsAFault()
{
    const DemoFolder demo;
    addRow(demo.path(clientsFile()), QStringLiteral("ClientesTabla"),
           {{QStringLiteral("CliCodigo"), QStringLiteral("LARGO")},
            {QStringLiteral("CliNombre"), QString(36, u'ñ')}});

    const ToolRun run = demo.check();

    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.faults(),
             QStringList{QStringLiteral("fallo: Empresa00012/Clientes.mdb: ClientesTabla: "
                                        "CliCodigo=LARGO: CliNombre tiene 36 caracteres y caben 35")});
}

void CheckTest::aTextInANumberColumnIsAFault()
{
    const DemoFolder demo;
    addRow(demo.path(clientsFile()), QStringLiteral("ClientesTabla"),
           {{QStringLiteral("CliCodigo"), QStringLiteral("LETRAS")},
            {QStringLiteral("CliPGC"), QStringLiteral("430-7")}});

    const ToolRun run = demo.check();

    QCOMPARE(run.exitCode, 1);
    QVERIFY2(run.faults().front().endsWith(u"CliPGC debe ser un número: «430-7»"), qUtf8Printable(run.out));
}

void CheckTest::oddValuesAreNotices_data()
{
    QTest::addColumn<QString>("column");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("notice"); ///< empty: the value is in order
    const auto row = [](const char* name, const QString& column, const QString& value,
                        const QString& notice) { QTest::newRow(name) << column << value << notice; };
    const QString date = QStringLiteral("FEINICIO");
    const QString time = QStringLiteral("HOINICIO");
    const QString state = QStringLiteral("ESTADO");
    row("a day that isn't", date, QStringLiteral("31/02/2021"),
        QStringLiteral("la fecha FEINICIO no se entiende: «31/02/2021»"));
    row("another manner of date", date, QStringLiteral("1-3-21"),
        QStringLiteral("la fecha FEINICIO no se entiende: «1-3-21»"));
    row("the mask left empty", date, QStringLiteral("  /  /"), {});
    row("no due date", date, QStringLiteral("01/01/100"), {});
    row("an empty date", date, {}, {});
    row("an hour past the day", time, QStringLiteral("25:00:00"),
        QStringLiteral("la hora HOINICIO no se entiende: «25:00:00»"));
    row("an hour", time, QStringLiteral("23:59:59"), {});
    row("neither open nor closed", state, QStringLiteral("03 Dudosa"),
        QStringLiteral("el estado «03 Dudosa» no es abierto ni cerrado: la consulta no sale en el árbol"));
    row("closed", state, QStringLiteral("02 Cerrada"), {});
}

void CheckTest::oddValuesAreNotices()
{
    QFETCH(QString, column);
    QFETCH(QString, value);
    QFETCH(QString, notice);
    const DemoFolder demo;
    QMap<QString, Value> row = consultation(900001, QStringLiteral("0000000001"));
    row.insert(column, value.isNull() ? QStringLiteral("") : value);
    addRow(demo.path(QStringLiteral("Empresa00012/ASISTENCIAS.MDB")), QStringLiteral("CONS"), row);

    const ToolRun run = demo.check();

    QCOMPARE(run.exitCode, 0);
    QStringList told = run.notices().filter(QStringLiteral("ORDEN=900001"));
    told.replaceInStrings(
        QStringLiteral("aviso: Empresa00012/ASISTENCIAS.MDB: CONS: ORDEN=900001, CLICONSULTA=0000000001: "),
        QString());
    QCOMPARE(told, notice.isEmpty() ? QStringList() : QStringList{notice});
}

void CheckTest::aNullStateIsNoFinding()
{
    const DemoFolder demo;
    QMap<QString, Value> row = consultation(900001, QStringLiteral("0000000001"));
    row.insert(QStringLiteral("ESTADO"), Null{});
    addRow(demo.path(QStringLiteral("Empresa00012/ASISTENCIAS.MDB")), QStringLiteral("CONS"), row);

    QVERIFY(!demo.check().out.contains(u"ORDEN=900001"));
}

void CheckTest::lineEndsInAValueKeepTheFindingOnOneLine()
{
    const DemoFolder demo;
    addRow(demo.path(clientsFile()), QStringLiteral("CLIDIRENVIOS"),
           {{QStringLiteral("CLIENVICODIGO"), QStringLiteral("A\r\nB")},
            {QStringLiteral("CLIENVIDIRECCION"), QStringLiteral("1")}});

    const ToolRun run = demo.check();

    QCOMPARE(run.faults().size(), 1);
    QVERIFY2(run.faults().front().endsWith(u"el cliente «A  B» no existe"), qUtf8Printable(run.out));
}

QTEST_GUILESS_MAIN(CheckTest)
#include "tst_check.moc"
