// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/core/failurenumbers.h"
#include "platform/storage/openclients.h"
#include "platform/storage/rawsqlite.h"

#include <QTest>

using namespace platform;
using namespace platform::storage;
using namespace platform::storage::test;

class TableTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void insertedRowIsFoundByItsKey();
    void missingKeyFindsNothing();
    void keyIgnoresCaseAndTrailingBlanks();
    void accentsTellKeysApart();
    void fewerKeysFindTheFirstRowBelowThem();
    void noKeysFindTheFirstRow();
    void moreKeysThanColumnsFail();
    void nullKeyFindsANull();
    void numberKeyFindsANumber();
    void unknownIndexFails();
    void orderFollowsTheTraditionalAlphabet();
    void equalKeysComeByRowNumber();
    void emptyIndexNameIsThePrimaryIndex();
    void tableWithoutPrimaryIndexComesByRowNumber();
    void firstAndLastFollowTheIndex();
    void emptyTableHasNoFirstRow();
    void valuesKeepTheirTypes_data();
    void valuesKeepTheirTypes();
    void readOfAGoneRowIsFalse();
    void countFollowsOwnAndOthersChanges();
    void blockKeepsTheOrderAskedAndLeavesGoneRowsOut();
    void ascendingBlockIsTheSameAsOneByOne();
    void blockHoldsOnlyTheColumnsAsked();
    void emptyBlockIsEmpty();
    void nothingStaysLockedAfterAnOperation();
    void columnAddedByAnotherLeavesTheOpenTableAsItWas();
    void columnNamedRowidHidesNothing();
    void tableOfAnotherToolIsReadAndWritten();
};

void TableTest::insertedRowIsFoundByItsKey()
{
    const OpenClients store;
    const RowId id = store.table->insert(client(u"0000000001"_s, u"Ana"_s, 12.5, u"línea\r\notra"_s));
    store.table->insert(client(u"0000000002"_s, u"Luis"_s));

    Row row;
    QCOMPARE(store.seek(u"porcodigo"_s, {u"0000000001"_s}, row), std::optional(id));
    QCOMPARE(row, client(u"0000000001"_s, u"Ana"_s, 12.5, u"línea\r\notra"_s));
}

void TableTest::missingKeyFindsNothing()
{
    const OpenClients store;
    store.table->insert(client(u"A"_s, u"Ana"_s));

    QVERIFY(!store.seek(u"PorCodigo"_s, {u"B"_s}));
}

void TableTest::keyIgnoresCaseAndTrailingBlanks()
{
    const OpenClients store;
    const RowId id = store.table->insert(client(u"Ab  "_s, u"Ana"_s));

    QCOMPARE(store.seek(u"PorCodigo"_s, {u"aB "_s}), std::optional(id));
}

void TableTest::accentsTellKeysApart()
{
    const OpenClients store;
    store.table->insert(client(u"CAMION"_s, u"Ana"_s));

    QVERIFY(!store.seek(u"PorCodigo"_s, {u"CAMIÓN"_s}));
}

void TableTest::fewerKeysFindTheFirstRowBelowThem()
{
    const OpenClients store;
    store.table->insert(client(u"3"_s, u"Ana"_s));
    const RowId second = store.table->insert(client(u"2"_s, u"Ana"_s));
    store.table->insert(client(u"1"_s, u"Luis"_s));

    QCOMPARE(store.seek(u"PorNombre"_s, {u"Ana"_s}), std::optional(second));
}

void TableTest::noKeysFindTheFirstRow()
{
    const OpenClients store;
    store.table->insert(client(u"2"_s, u"Ana"_s));
    const RowId second = store.table->insert(client(u"1"_s, u"Luis"_s));

    QCOMPARE(store.seek(u"PorCodigo"_s, {}), std::optional(second));
}

void TableTest::moreKeysThanColumnsFail()
{
    const OpenClients store;

    QCOMPARE(failureOf([&] {
                 static_cast<void>(store.seek(u"PorCodigo"_s, {u"1"_s, u"2"_s}));
             }),
             kInvalidArgument);
}

void TableTest::nullKeyFindsANull()
{
    const OpenClients store;
    store.table->insert(client(u"1"_s, u"Ana"_s, 3.0));
    const RowId second = store.table->insert(client(u"2"_s, u"Luis"_s));

    QCOMPARE(store.seek(u"PorSaldo"_s, {Null{}}), std::optional(second));
}

void TableTest::numberKeyFindsANumber()
{
    const OpenClients store;
    const RowId first = store.table->insert(client(u"1"_s, u"Ana"_s, 430123.25));
    const RowId second = store.table->insert(client(u"2"_s, u"Ana"_s, 430123.0));

    QCOMPARE(store.seek(u"PorSaldo"_s, {430123.25}), std::optional(first));
    QCOMPARE(store.seek(u"PorSaldo"_s, {430123.0}), std::optional(second));
}

void TableTest::unknownIndexFails()
{
    const OpenClients store;

    QCOMPARE(failureOf([&] { static_cast<void>(store.table->order(u"PorNada"_s)); }), kNoSuchIndex);
}

void TableTest::orderFollowsTheTraditionalAlphabet()
{
    const OpenClients store;
    const QStringList sorted{u"1 taller"_s, u"Ana"_s,  u"cuna"_s, u"Chopo"_s, u"dado"_s, u"luz"_s,
                             u"Llave"_s,    u"mano"_s, u"nube"_s, u"ñu"_s,    u"ola"_s};
    for (qsizetype i = sorted.size(); i-- > 0;)
        store.table->insert(client(QString::number(i), sorted.at(i)));

    QCOMPARE(store.names(u"PorNombre"_s), sorted);
}

void TableTest::equalKeysComeByRowNumber()
{
    const OpenClients store;
    store.connection->createIndex(u"CLIENTES"_s, {u"SoloNombre"_s, false, false, {u"NOMBRE"_s}});
    const auto table = store.connection->openTable(u"CLIENTES"_s);
    const std::vector<RowId> ids{table->insert(client(u"9"_s, u"Ana"_s)),
                                 table->insert(client(u"5"_s, u"ANA"_s)),
                                 table->insert(client(u"7"_s, u"ana"_s))};

    QCOMPARE(table->order(u"SoloNombre"_s), ids);
}

void TableTest::emptyIndexNameIsThePrimaryIndex()
{
    const OpenClients store;
    store.table->insert(client(u"2"_s, u"Ana"_s));
    store.table->insert(client(u"1"_s, u"Luis"_s));

    QCOMPARE(store.names({}), (QStringList{u"Luis"_s, u"Ana"_s}));
}

void TableTest::tableWithoutPrimaryIndexComesByRowNumber()
{
    const StoreFolder folder;
    const auto connection = folder.create();
    connection->createTable({u"T"_s, {text(u"A"_s)}, {{u"I"_s, false, false, {u"A"_s}}}});
    const auto table = connection->openTable(u"T"_s);
    const std::vector<RowId> ids{table->insert({u"b"_s}), table->insert({u"a"_s})};

    QCOMPARE(table->order({}), ids);
}

void TableTest::firstAndLastFollowTheIndex()
{
    const OpenClients store;
    store.table->insert(client(u"1"_s, u"Luis"_s));
    store.table->insert(client(u"2"_s, u"Ana"_s));
    store.table->insert(client(u"3"_s, u"Zoe"_s));
    Row row;

    QCOMPARE(store.table->first(u"PorNombre"_s, row), std::optional<RowId>(2));
    QCOMPARE(row, client(u"2"_s, u"Ana"_s));
    QCOMPARE(store.table->last(u"PorNombre"_s, row), std::optional<RowId>(3));
    QCOMPARE(row, client(u"3"_s, u"Zoe"_s));
}

void TableTest::emptyTableHasNoFirstRow()
{
    const OpenClients store;
    Row row;

    QVERIFY(!store.table->first(u"PorCodigo"_s, row));
    QVERIFY(!store.table->last({}, row));
    QVERIFY(store.table->order({}).empty());
}

void TableTest::valuesKeepTheirTypes_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("written");
    QTest::newRow("digits in a text stay a text") << 0 << 2 << u"0001"_s;
    QTest::newRow("digits in a memo stay a text") << 3 << 2 << u"0001"_s;
    QTest::newRow("empty text is no Null") << 3 << 2 << QString(u""_s);
    QTest::newRow("blanks at the end stay") << 1 << 2 << u"Ana  "_s;
    QTest::newRow("letters beyond the code page stay") << 1 << 2 << u"Łódź 北京 😀"_s;
    QTest::newRow("whole number") << 2 << 1 << u"3"_s;
    QTest::newRow("negative fraction") << 2 << 1 << u"-0.125"_s;
    QTest::newRow("large number") << 2 << 1 << u"1e300"_s;
}

void TableTest::valuesKeepTheirTypes()
{
    QFETCH(int, column);
    QFETCH(int, kind);
    QFETCH(QString, written);
    constexpr int kNumber = 1;
    const OpenClients store;
    const Value value = kind == kNumber ? Value(written.toDouble()) : Value(written);
    Row row = client(u"A"_s, u"Ana"_s);
    row[static_cast<std::size_t>(column)] = value;

    const RowId id = store.table->insert(row);
    Row found;
    QVERIFY(store.table->read(id, found));

    QCOMPARE(found, row);
}

void TableTest::readOfAGoneRowIsFalse()
{
    const OpenClients store;
    const RowId id = store.table->insert(client(u"A"_s, u"Ana"_s));
    store.table->erase(id);
    Row row;

    QVERIFY(!store.table->read(id, row));
}

void TableTest::countFollowsOwnAndOthersChanges()
{
    const OpenClients store;
    QCOMPARE(store.table->count(), 0);
    store.table->insert(client(u"A"_s, u"Ana"_s));
    QCOMPARE(store.table->count(), 1);

    store.folder.open()->openTable(u"CLIENTES"_s)->insert(client(u"B"_s, u"Luis"_s));

    QCOMPARE(store.table->count(), 2);
}

void TableTest::blockKeepsTheOrderAskedAndLeavesGoneRowsOut()
{
    const OpenClients store;
    for (const QString& name : {u"a"_s, u"b"_s, u"c"_s, u"d"_s})
        store.table->insert(client(name, name));
    store.table->erase(2);
    const std::vector<RowId> ids{4, 2, 1, 3};
    const std::vector<int> columns{1};
    RowBlock block;

    store.table->readMany(ids, columns, block);

    QCOMPARE(block.rowIds, (std::vector<RowId>{4, 1, 3}));
    QCOMPARE(block.cells, (std::vector<Value>{u"d"_s, u"a"_s, u"c"_s}));
}

void TableTest::ascendingBlockIsTheSameAsOneByOne()
{
    const OpenClients store;
    for (int i = 1; i <= 9; ++i)
        store.table->insert(client(QString::number(i), u"n"_s));
    store.table->erase(5);
    const std::vector<RowId> ids{2, 4, 5, 6, 9};
    const std::vector<int> columns{0};
    RowBlock block;

    store.table->readMany(ids, columns, block);

    QCOMPARE(block.rowIds, (std::vector<RowId>{2, 4, 6, 9}));
    QCOMPARE(block.cells, (std::vector<Value>{u"2"_s, u"4"_s, u"6"_s, u"9"_s}));
}

void TableTest::blockHoldsOnlyTheColumnsAsked()
{
    const OpenClients store;
    store.table->insert(client(u"A"_s, u"Ana"_s, 2.0));
    const std::vector<RowId> ids{1};
    const std::vector<int> columns{2, 0};
    RowBlock block;

    store.table->readMany(ids, columns, block);

    QCOMPARE(block.columns, columns);
    QCOMPARE(block.cells, (std::vector<Value>{2.0, u"A"_s}));
}

void TableTest::emptyBlockIsEmpty()
{
    const OpenClients store;
    RowBlock block{{1}, {0}, {u"left over"_s}};

    store.table->readMany({}, {}, block);

    QVERIFY(block.rowIds.empty());
    QVERIFY(block.cells.empty());
}

void TableTest::nothingStaysLockedAfterAnOperation()
{
    const OpenClients store;
    store.table->insert(client(u"A"_s, u"Ana"_s));
    static_cast<void>(store.table->order({}));
    static_cast<void>(store.seek(u"PorCodigo"_s, {u"A"_s}));
    static_cast<void>(failureOf([&] { store.table->insert(client(u"A"_s, u"Ana"_s)); }));

    RawSqlite other(store.folder.path());

    QCOMPARE(other.run("BEGIN EXCLUSIVE; INSERT INTO CLIENTES(CODIGO) VALUES('B'); COMMIT"), SQLITE_OK);
}

void TableTest::columnAddedByAnotherLeavesTheOpenTableAsItWas()
{
    const OpenClients store;
    const RowId id = store.table->insert(client(u"A"_s, u"Ana"_s));
    store.folder.open()->addColumn(u"CLIENTES"_s, text(u"OTRA"_s));
    Row row;

    QVERIFY(store.table->read(id, row));

    QCOMPARE(row.size(), std::size_t{4});
    QCOMPARE(store.connection->openTable(u"CLIENTES"_s)->definition().columns.size(), 5);
}

void TableTest::columnNamedRowidHidesNothing()
{
    const StoreFolder folder;
    const auto connection = folder.create();
    connection->createTable({u"T"_s, {text(u"ROWID"_s), text(u"_rowid_"_s)}, {}});
    const auto table = connection->openTable(u"T"_s);
    const RowId id = table->insert({u"x"_s, u"y"_s});
    Row row;

    QVERIFY(table->read(id, row));

    QCOMPARE(id, 1);
    QCOMPARE(row, (Row{u"x"_s, u"y"_s}));
}

void TableTest::tableOfAnotherToolIsReadAndWritten()
{
    const StoreFolder folder;
    RawSqlite(folder.path())
        .run("CREATE TABLE EMP(NUM INTEGER PRIMARY KEY, NOMBRE TEXT(30) UNIQUE, FOTO BLOB);"
             "INSERT INTO EMP VALUES(7, 'Uno', x'4142')");
    const auto connection = folder.open();
    const auto table = connection->openTable(u"emp"_s);
    table->insert({9.0, u"Dos"_s, Null{}});
    Row row;

    QCOMPARE(table->first({}, row), std::optional<RowId>(7));
    QCOMPARE(row, (Row{7.0, u"Uno"_s, u"AB"_s}));
    QCOMPARE(table->order(table->definition().indexes.constFirst().name), (std::vector<RowId>{9, 7}));
}

QTEST_GUILESS_MAIN(TableTest)
#include "tst_table.moc"
