// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/core/failurenumbers.h"
#include "platform/storage/damage.h"
#include "platform/storage/upkeep.h"

using namespace platform;
using namespace platform::storage;
using namespace platform::storage::test;

class RepairTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyDamageEndsInAValidStore_data();
    void everyDamageEndsInAValidStore();
    void damagedFileIsKeptByteForByte();
    void earlierKeptFileIsNotOverwritten();
    void soundFileComesBackWhole();
    void marksOfTheMetadataSurvive();
    void rowThatViolatesAKeyIsLeftOutAndCounted();
    void olderNarrowerTableKeepsItsColumns();
    void journalOfACrashGoesWithTheDamagedFile();
    void fileOfAnotherToolIsRepairedByItsDeclaredTypes();
    void openStoreIsNotRepaired();
    void missingFileFails();
};

void RepairTest::everyDamageEndsInAValidStore_data()
{
    QTest::addColumn<QByteArray>("head");
    QTest::addColumn<double>("keptPart");
    QTest::newRow("truncated in the middle") << QByteArray() << 0.5;
    QTest::newRow("truncated within the first page") << QByteArray() << 0.001;
    QTest::newRow("header alone") << QByteArray() << -1.0;
    QTest::newRow("length 0") << QByteArray() << 0.0;
    QTest::newRow("zeroed header") << QByteArray(kHeader, '\0') << 1.0;
    QTest::newRow("zeroed first page") << QByteArray(kPageSize, '\0') << 1.0;
    QTest::newRow("zeroed first ten pages") << QByteArray(10 * kPageSize, '\0') << 1.0;
    QTest::newRow("plain text over the header") << QByteArray("Esto no es una base de datos.\r\n") << 1.0;
    QTest::newRow("plain text alone") << QByteArray("Esto no es una base de datos.\r\n").repeated(400) << 0.0;
}

void RepairTest::everyDamageEndsInAValidStore()
{
    QFETCH(QByteArray, head);
    QFETCH(double, keptPart);
    const StoreFolder folder;
    fill(folder, 40);
    QByteArray bytes = bytesOf(folder.path());
    bytes.truncate(keptPart < 0 ? kHeader
                                : static_cast<qsizetype>(static_cast<double>(bytes.size()) * keptPart));
    bytes.replace(0, head.size(), head);
    writeBytes(folder.path(), bytes);

    folder.engine().repair(folder.path(), {clients()});

    QCOMPARE(integrity(folder), u"ok"_s);
    const auto connection = folder.open();
    QCOMPARE(connection->tables().size(), 1);
    connection->openTable(u"CLIENTES"_s)->insert(clientOf(999));
    QCOMPARE(failureOf([&] { connection->openTable(u"CLIENTES"_s)->insert(clientOf(999)); }), kDuplicateKey);
}

void RepairTest::damagedFileIsKeptByteForByte()
{
    const StoreFolder folder;
    fill(folder, 20);
    QByteArray bytes = bytesOf(folder.path());
    bytes.replace(0, kHeader, QByteArray(kHeader, 'x'));
    writeBytes(folder.path(), bytes);

    folder.engine().repair(folder.path(), {clients()});

    QCOMPARE(bytesOf(folder.path(u"Clientes.mdb.dañado-1"_s)), bytes);
}

void RepairTest::earlierKeptFileIsNotOverwritten()
{
    const StoreFolder folder;
    writeBytes(folder.path(), "first");
    folder.engine().repair(folder.path(), {clients()});
    writeBytes(folder.path(), "second");

    folder.engine().repair(folder.path(), {clients()});

    QCOMPARE(bytesOf(folder.path(u"Clientes.mdb.dañado-1"_s)), "first");
    QCOMPARE(bytesOf(folder.path(u"Clientes.mdb.dañado-2"_s)), "second");
}

void RepairTest::soundFileComesBackWhole()
{
    const StoreFolder folder;
    fill(folder);
    const auto before = folder.open()->tables();

    const RepairAccount account = repairStore(folder.path(), {});

    QCOMPARE(account.tables.size(), 1U);
    QCOMPARE(account.tables.front().readable, kRows);
    QCOMPARE(account.tables.front().refused, 0);
    QVERIFY(account.tables.front().lost.empty());
    QVERIFY(account.tables.front().isCertain);
    const auto connection = folder.open();
    const auto table = connection->openTable(u"CLIENTES"_s);
    Row row;
    const std::vector<Value> keys{code(123)};
    QCOMPARE(table->seek(u"PorCodigo"_s, keys, row), std::optional<RowId>(123));
    QCOMPARE(row, clientOf(123));
    QCOMPARE(table->definition().indexes.size(), before.first().indexes.size());
}

void RepairTest::marksOfTheMetadataSurvive()
{
    const StoreFolder folder;
    {
        const auto connection = folder.engine().create(folder.path(), {u";LANGID=0x040A"_s, 32});
        connection->createTable(clients());
        connection->setAllowZeroLength(u"CLIENTES"_s, u"NOMBRE"_s, false);
    }
    QByteArray bytes = bytesOf(folder.path());
    bytes.replace(0, kHeader, QByteArray(kHeader, '\0'));
    writeBytes(folder.path(), bytes);

    folder.engine().repair(folder.path(), {});

    const TableDefinition table = folder.open()->tables().constFirst();
    QVERIFY(table.index(u"PorCodigo")->primary);
    QVERIFY(!table.index(u"PorSaldo")->primary);
    QVERIFY(!table.columns.at(1).allowZeroLength);
    QVERIFY(table.columns.at(0).allowZeroLength);
    QCOMPARE(RawSqlite(folder.path()).value("SELECT value FROM store_metadata WHERE property = 'format'"),
             u"32"_s);
}

void RepairTest::rowThatViolatesAKeyIsLeftOutAndCounted()
{
    const StoreFolder folder;
    fill(folder, 20);
    RawSqlite(folder.path())
        .run("DROP INDEX \"CLIENTES.PorCodigo\"; DROP INDEX \"CLIENTES.PorSaldo\";"
             "UPDATE CLIENTES SET CODIGO = '0000000001' WHERE rowid = 7;"
             "UPDATE CLIENTES SET CODIGO = NULL WHERE rowid = 8");

    const RepairAccount account = repairStore(folder.path(), {clients()});

    QCOMPARE(account.tables.front().readable, 20);
    QCOMPARE(account.tables.front().refused, 2);
    QCOMPARE(folder.open()->openTable(u"CLIENTES"_s)->count(), 18);
}

void RepairTest::olderNarrowerTableKeepsItsColumns()
{
    const StoreFolder folder;
    TableDefinition older = clients();
    older.columns.removeLast();
    {
        const auto connection = folder.create();
        connection->createTable(older);
        connection->openTable(u"CLIENTES"_s)->insert({u"A"_s, u"Ana"_s, 1.0});
    }

    folder.engine().repair(folder.path(), {clients()});

    const auto connection = folder.open();
    QCOMPARE(connection->tables().constFirst().columns.size(), 3);
    QCOMPARE(connection->openTable(u"CLIENTES"_s)->count(), 1);
}

void RepairTest::journalOfACrashGoesWithTheDamagedFile()
{
    const StoreFolder folder;
    fill(folder, 5);
    QByteArray bytes = bytesOf(folder.path());
    bytes.replace(0, kHeader, QByteArray(kHeader, '\0'));
    writeBytes(folder.path(), bytes);
    writeBytes(folder.path(u"Clientes.mdb-journal"_s), "journal");

    folder.engine().repair(folder.path(), {});

    QVERIFY(!QFile::exists(folder.path(u"Clientes.mdb-journal"_s)));
    QCOMPARE(bytesOf(folder.path(u"Clientes.mdb.dañado-1-journal"_s)), "journal");
}

void RepairTest::fileOfAnotherToolIsRepairedByItsDeclaredTypes()
{
    const StoreFolder folder;
    RawSqlite(folder.path())
        .run("CREATE TABLE EMP(NUM INTEGER PRIMARY KEY, NOMBRE TEXT(30), SALDO REAL);"
             "INSERT INTO EMP VALUES(7, 'Uno', 1.5), (9, 'Dos', 2)");

    folder.engine().repair(folder.path(), {});

    const auto connection = folder.open();
    const TableDefinition table = connection->tables().constFirst();
    QCOMPARE(table.columns.at(1).size, 30);
    Row row;
    QCOMPARE(connection->openTable(u"EMP"_s)->last({}, row), std::optional<RowId>(9));
    QCOMPARE(row, (Row{9.0, u"Dos"_s, 2.0}));
}

void RepairTest::openStoreIsNotRepaired()
{
    const StoreFolder folder;
    const auto connection = folder.createClients();

    QCOMPARE(failureOf([&] { folder.engine().repair(folder.path(), {}); }), kCouldNotLockFile);

    QVERIFY(!QFile::exists(folder.path(u"Clientes.mdb.dañado-1"_s)));
}

void RepairTest::missingFileFails()
{
    const StoreFolder folder;

    QCOMPARE(failureOf([&] { folder.engine().repair(folder.path(), {}); }), kDatabaseFileNotFound);
}

QTEST_GUILESS_MAIN(RepairTest)
#include "tst_repair.moc"
