// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/core/failurenumbers.h"
#include "platform/storage/rawsqlite.h"
#include "platform/storage/sqlite/schema.h"
#include "platform/storage/storefixture.h"

#include <QTest>

using namespace platform;
using namespace platform::storage;
using namespace platform::storage::test;

class SchemaTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tableComesBackAsItWasMade();
    void tablesComeInTheOrderOfTheirMaking();
    void columnsHaveTheDeclaredTypesOfTheFormat();
    void indexesBearTheNameOfTheirTable();
    void metadataTableIsHidden();
    void zeroLengthMarkIsKept();
    void zeroLengthMarkIsSeenByAnotherStation();
    void structureOfAnotherStationIsSeen();
    void ownAndOthersChangesMoveTheDataVersion();
    void readingLeavesTheDataVersion();
    void declaredTypeTellsTypeAndSize_data();
    void declaredTypeTellsTypeAndSize();
    void columnAddedByAnotherToolIsTaken();
    void indexMadeAnewByAnotherToolLosesItsMark();
    void metadataOfAnotherShapeTellsNothing();
    void fileOfAnotherToolTakesChanges();
    void namesNeedNoEscaping();
};

void SchemaTest::tableComesBackAsItWasMade()
{
    const StoreFolder folder;
    TableDefinition made = clients();
    made.columns[1].allowZeroLength = false;
    folder.create()->createTable(made);

    const TableDefinition found = folder.open()->tables().constFirst();

    QCOMPARE(found.name, made.name);
    QCOMPARE(found.columns.size(), made.columns.size());
    for (qsizetype i = 0; i < made.columns.size(); ++i) {
        QCOMPARE(found.columns.at(i).name, made.columns.at(i).name);
        QVERIFY(found.columns.at(i).type == made.columns.at(i).type);
        QCOMPARE(found.columns.at(i).size, made.columns.at(i).size);
        QCOMPARE(found.columns.at(i).allowZeroLength, made.columns.at(i).allowZeroLength);
    }
    QCOMPARE(found.indexes.size(), made.indexes.size());
    for (qsizetype i = 0; i < made.indexes.size(); ++i) {
        QCOMPARE(found.indexes.at(i).name, made.indexes.at(i).name);
        QCOMPARE(found.indexes.at(i).primary, made.indexes.at(i).primary);
        QCOMPARE(found.indexes.at(i).unique, made.indexes.at(i).unique);
        QCOMPARE(found.indexes.at(i).columns, made.indexes.at(i).columns);
    }
}

void SchemaTest::tablesComeInTheOrderOfTheirMaking()
{
    const StoreFolder folder;
    const auto connection = folder.create();
    for (const QString& name : {u"Z"_s, u"A"_s, u"M"_s})
        connection->createTable({name, {text(u"C"_s)}, {}});

    const QList<TableDefinition> tables = connection->tables();

    QCOMPARE(tables.at(0).name, u"Z"_s);
    QCOMPARE(tables.at(1).name, u"A"_s);
    QCOMPARE(tables.at(2).name, u"M"_s);
}

void SchemaTest::columnsHaveTheDeclaredTypesOfTheFormat()
{
    const StoreFolder folder;
    static_cast<void>(folder.createClients());

    QCOMPARE(RawSqlite(folder.path()).column("SELECT type FROM pragma_table_info('CLIENTES') ORDER BY cid"),
             (QStringList{u"VARCHAR(10)"_s, u"VARCHAR(35)"_s, u"DOUBLE"_s, u"LONGTEXT"_s}));
}

void SchemaTest::indexesBearTheNameOfTheirTable()
{
    const StoreFolder folder;
    static_cast<void>(folder.createClients());

    QCOMPARE(
        RawSqlite(folder.path()).column("SELECT name FROM sqlite_master WHERE type = 'index' ORDER BY rowid"),
        (QStringList{u"CLIENTES.PorCodigo"_s, u"CLIENTES.PorNombre"_s, u"CLIENTES.PorSaldo"_s}));
}

void SchemaTest::metadataTableIsHidden()
{
    const StoreFolder folder;

    QVERIFY(folder.create()->tables().isEmpty());
}

void SchemaTest::zeroLengthMarkIsKept()
{
    const StoreFolder folder;
    const auto connection = folder.createClients();

    connection->setAllowZeroLength(u"CLIENTES"_s, u"nombre"_s, false);

    QVERIFY(!connection->tables().constFirst().columns.at(1).allowZeroLength);
    QVERIFY(!folder.open()->tables().constFirst().columns.at(1).allowZeroLength);
}

void SchemaTest::zeroLengthMarkIsSeenByAnotherStation()
{
    const StoreFolder folder;
    const auto connection = folder.createClients();
    const auto other = folder.open();
    QVERIFY(other->tables().constFirst().columns.at(1).allowZeroLength);

    connection->setAllowZeroLength(u"CLIENTES"_s, u"NOMBRE"_s, false);

    QVERIFY(!other->tables().constFirst().columns.at(1).allowZeroLength);
}

void SchemaTest::structureOfAnotherStationIsSeen()
{
    const StoreFolder folder;
    const auto connection = folder.create();
    QVERIFY(connection->tables().isEmpty());

    folder.open()->createTable(clients());

    QCOMPARE(connection->tables().size(), 1);
}

void SchemaTest::ownAndOthersChangesMoveTheDataVersion()
{
    const StoreFolder folder;
    const auto connection = folder.createClients();
    const quint64 first = connection->dataVersion();
    connection->openTable(u"CLIENTES"_s)->insert(client(u"A"_s, u"Ana"_s));
    const quint64 second = connection->dataVersion();
    folder.open()->openTable(u"CLIENTES"_s)->insert(client(u"B"_s, u"Luis"_s));
    const quint64 third = connection->dataVersion();

    QVERIFY(first != second);
    QVERIFY(second != third);
    QVERIFY(first != third);
}

void SchemaTest::readingLeavesTheDataVersion()
{
    const StoreFolder folder;
    const auto connection = folder.createClients();
    const quint64 before = connection->dataVersion();
    static_cast<void>(connection->openTable(u"CLIENTES"_s)->order({}));
    static_cast<void>(folder.open()->openTable(u"CLIENTES"_s)->count());

    QCOMPARE(connection->dataVersion(), before);
}

void SchemaTest::declaredTypeTellsTypeAndSize_data()
{
    QTest::addColumn<QString>("declared");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("size");
    const int text = static_cast<int>(ColumnType::Text);
    const int number = static_cast<int>(ColumnType::Number);
    const int memo = static_cast<int>(ColumnType::Memo);
    QTest::newRow("VARCHAR(n)") << u"VARCHAR(35)"_s << text << 35;
    QTest::newRow("TEXT(n)") << u"TEXT( 10 )"_s << text << 10;
    QTest::newRow("lower case") << u"varchar(4)"_s << text << 4;
    QTest::newRow("NCHAR(n)") << u"NCHAR(2)"_s << text << 2;
    QTest::newRow("the widest text") << u"VARCHAR(255)"_s << text << 255;
    QTest::newRow("wider than a text") << u"VARCHAR(256)"_s << memo << 0;
    QTest::newRow("text without a size") << u"TEXT"_s << memo << 0;
    QTest::newRow("LONGTEXT") << u"LONGTEXT"_s << memo << 0;
    QTest::newRow("no type") << QString() << memo << 0;
    QTest::newRow("BLOB") << u"BLOB"_s << memo << 0;
    QTest::newRow("unknown type") << u"MEMO"_s << memo << 0;
    QTest::newRow("DOUBLE") << u"DOUBLE"_s << number << 0;
    QTest::newRow("REAL") << u"REAL"_s << number << 0;
    QTest::newRow("INTEGER") << u"INTEGER"_s << number << 0;
    QTest::newRow("DECIMAL(n,m)") << u"DECIMAL(10,2)"_s << number << 0;
}

void SchemaTest::declaredTypeTellsTypeAndSize()
{
    QFETCH(QString, declared);
    QFETCH(int, type);
    QFETCH(int, size);

    const Column column = sqlite::columnOfDeclaredType(u"C"_s, declared);

    QCOMPARE(static_cast<int>(column.type), type);
    QCOMPARE(column.size, size);
}

void SchemaTest::columnAddedByAnotherToolIsTaken()
{
    const StoreFolder folder;
    static_cast<void>(folder.createClients());
    RawSqlite(folder.path()).run("ALTER TABLE CLIENTES ADD COLUMN OTRA VARCHAR(7)");

    const Column column = folder.open()->tables().constFirst().columns.constLast();

    QCOMPARE(column.name, u"OTRA"_s);
    QCOMPARE(column.size, 7);
    QVERIFY(column.allowZeroLength);
}

void SchemaTest::indexMadeAnewByAnotherToolLosesItsMark()
{
    const StoreFolder folder;
    static_cast<void>(folder.createClients());
    RawSqlite(folder.path())
        .run("DROP INDEX \"CLIENTES.PorCodigo\";"
             "CREATE INDEX \"CLIENTES.PorCodigo\" ON CLIENTES(CODIGO)");

    const TableDefinition table = folder.open()->tables().constFirst();

    QVERIFY(!table.index(u"PorCodigo")->primary);
    QVERIFY(!table.index(u"PorCodigo")->unique);
}

void SchemaTest::metadataOfAnotherShapeTellsNothing()
{
    const StoreFolder folder;
    RawSqlite(folder.path()).run("CREATE TABLE store_metadata(x); CREATE TABLE T(A VARCHAR(3))");

    const QList<TableDefinition> tables = folder.open()->tables();

    QCOMPARE(tables.size(), 1);
    QVERIFY(tables.constFirst().columns.constFirst().allowZeroLength);
}

void SchemaTest::fileOfAnotherToolTakesChanges()
{
    const StoreFolder folder;
    RawSqlite(folder.path()).run("CREATE TABLE EMP(NUM VARCHAR(5)); INSERT INTO EMP VALUES('1')");
    const auto connection = folder.open();

    connection->addColumn(u"EMP"_s, text(u"NOMBRE"_s));
    connection->createIndex(u"EMP"_s, {u"P"_s, true, true, {u"NUM"_s}});
    connection->setAllowZeroLength(u"EMP"_s, u"NUM"_s, false);

    const TableDefinition table = connection->tables().constFirst();
    QVERIFY(table.index(u"P")->primary);
    QVERIFY(!table.columns.at(0).allowZeroLength);
    QCOMPARE(table.columns.size(), 2);
}

void SchemaTest::namesNeedNoEscaping()
{
    const StoreFolder folder;
    const auto connection = folder.create();
    const TableDefinition table{
        u"Año \"1\"; --"_s, {text(u"select"_s), text(u"a'b]"_s)}, {{u"í.x"_s, true, true, {u"a'b]"_s}}}};
    connection->createTable(table);
    const auto opened = connection->openTable(u"AÑO \"1\"; --"_s);
    opened->insert({u"x"_s, u"y"_s});

    const std::vector<Value> keys{u"Y"_s};
    Row row;
    QVERIFY(opened->seek(u"Í.X"_s, keys, row));
}

QTEST_GUILESS_MAIN(SchemaTest)
#include "tst_schema.moc"
