// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/core/failurenumbers.h"
#include "platform/storage/otherstation.h"
#include "platform/storage/storefixture.h"

#include <QTest>

using namespace platform;
using namespace platform::storage;
using namespace platform::storage::test;

class StructureTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void takenTableNameIsRefused_data();
    void takenTableNameIsRefused();
    void tableWithoutColumnsIsRefused();
    void columnTwiceIsRefusedAndNothingIsMade();
    void refusedIndexLeavesNoTable();
    void addedColumnIsNullInEveryRow();
    void takenColumnNameIsRefused();
    void columnOfAMissingTableIsRefused();
    void droppedColumnIsGone();
    void indexedColumnIsNotDropped();
    void lastColumnIsNotDropped();
    void missingColumnIsNotDropped();
    void addedIndexServes();
    void indexOverDuplicatesIsRefusedAndNothingIsMade();
    void primaryIndexOverNullsIsRefused();
    void secondPrimaryIndexIsRefused();
    void takenIndexNameIsRefused();
    void sameIndexNameStandsOnTwoTables();
    void indexOnAMissingColumnIsRefused();
    void droppedPrimaryIndexMakesRoomForAnother();
    void missingIndexIsNotDropped();
    void indexOfAMissingTableIsNotDropped();
    void zeroLengthMarkOfANumberIsRefused();
    void zeroLengthMarkOfAMissingColumnIsRefused();
    void changeIsRefusedWhileAnotherReads();
};

void StructureTest::takenTableNameIsRefused_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("same name") << u"CLIENTES"_s;
    QTest::newRow("case ignored") << u"clientes"_s;
    QTest::newRow("metadata table") << u"store_metadata"_s;
}

void StructureTest::takenTableNameIsRefused()
{
    QFETCH(QString, name);
    const StoreFolder folder;
    const auto connection = folder.createClients();

    QCOMPARE(failureOf([&] { connection->createTable({name, {text(u"A"_s)}, {}}); }), kTableAlreadyExists);
}

void StructureTest::tableWithoutColumnsIsRefused()
{
    const StoreFolder folder;
    const auto connection = folder.create();

    QCOMPARE(failureOf([&] { connection->createTable({u"T"_s, {}, {}}); }), kInvalidArgument);
}

void StructureTest::columnTwiceIsRefusedAndNothingIsMade()
{
    const StoreFolder folder;
    const auto connection = folder.create();

    QCOMPARE(failureOf([&] {
                 connection->createTable({u"T"_s, {text(u"A"_s), number(u"a"_s)}, {}});
             }),
             kFieldDefinedTwice);
    QVERIFY(connection->tables().isEmpty());
}

void StructureTest::refusedIndexLeavesNoTable()
{
    const StoreFolder folder;
    const auto connection = folder.create();
    const TableDefinition table{u"T"_s, {text(u"A"_s)}, {{u"I"_s, false, false, {u"NADA"_s}}}};

    QCOMPARE(failureOf([&] { connection->createTable(table); }), kItemNotInCollection);
    QVERIFY(connection->tables().isEmpty());
}

void StructureTest::addedColumnIsNullInEveryRow()
{
    const StoreFolder folder;
    const auto connection = folder.createClients();
    connection->openTable(u"CLIENTES"_s)->insert(client(u"A"_s, u"Ana"_s));

    connection->addColumn(u"clientes"_s, text(u"OTRA"_s, 12));

    const auto table = connection->openTable(u"CLIENTES"_s);
    Row row;
    QVERIFY(table->read(1, row));
    QCOMPARE(row.size(), std::size_t{5});
    QVERIFY(isNull(row.back()));
    QCOMPARE(table->definition().columns.constLast().size, 12);
}

void StructureTest::takenColumnNameIsRefused()
{
    const StoreFolder folder;
    const auto connection = folder.createClients();

    QCOMPARE(failureOf([&] { connection->addColumn(u"CLIENTES"_s, text(u"nombre"_s)); }), kFieldDefinedTwice);
}

void StructureTest::columnOfAMissingTableIsRefused()
{
    const StoreFolder folder;
    const auto connection = folder.createClients();

    QCOMPARE(failureOf([&] { connection->addColumn(u"NADA"_s, text(u"A"_s)); }), kNoSuchTable);
}

void StructureTest::droppedColumnIsGone()
{
    const StoreFolder folder;
    const auto connection = folder.createClients();
    connection->openTable(u"CLIENTES"_s)->insert(client(u"A"_s, u"Ana"_s, 1.0, u"x"_s));

    connection->dropColumn(u"CLIENTES"_s, u"notas"_s);

    const auto table = connection->openTable(u"CLIENTES"_s);
    Row row;
    QVERIFY(table->read(1, row));
    QCOMPARE(row, (Row{u"A"_s, u"Ana"_s, 1.0}));
}

void StructureTest::indexedColumnIsNotDropped()
{
    const StoreFolder folder;
    const auto connection = folder.createClients();

    QCOMPARE(failureOf([&] { connection->dropColumn(u"CLIENTES"_s, u"NOMBRE"_s); }), kFieldInIndex);
}

void StructureTest::lastColumnIsNotDropped()
{
    const StoreFolder folder;
    const auto connection = folder.create();
    connection->createTable({u"T"_s, {text(u"A"_s)}, {}});

    QCOMPARE(failureOf([&] { connection->dropColumn(u"T"_s, u"A"_s); }), kInvalidOperation);
}

void StructureTest::missingColumnIsNotDropped()
{
    const StoreFolder folder;
    const auto connection = folder.createClients();

    QCOMPARE(failureOf([&] { connection->dropColumn(u"CLIENTES"_s, u"NADA"_s); }), kItemNotInCollection);
}

void StructureTest::addedIndexServes()
{
    const StoreFolder folder;
    const auto connection = folder.createClients();
    connection->openTable(u"CLIENTES"_s)->insert(client(u"A"_s, u"Ana"_s, 5.0, u"x"_s));

    connection->createIndex(u"CLIENTES"_s, {u"PorNotas"_s, false, false, {u"notas"_s}});

    const std::vector<Value> keys{u"X"_s};
    Row row;
    QVERIFY(connection->openTable(u"CLIENTES"_s)->seek(u"PorNotas"_s, keys, row));
}

void StructureTest::indexOverDuplicatesIsRefusedAndNothingIsMade()
{
    const StoreFolder folder;
    const auto connection = folder.createClients();
    const auto table = connection->openTable(u"CLIENTES"_s);
    table->insert(client(u"A"_s, u"Ana"_s));
    table->insert(client(u"B"_s, u"ANA"_s));

    QCOMPARE(failureOf([&] {
                 connection->createIndex(u"CLIENTES"_s, {u"U"_s, false, true, {u"NOMBRE"_s}});
             }),
             kDuplicateKey);
    QVERIFY(connection->tables().constFirst().index(u"U") == nullptr);
}

void StructureTest::primaryIndexOverNullsIsRefused()
{
    const StoreFolder folder;
    const auto connection = folder.create();
    connection->createTable({u"T"_s, {text(u"A"_s), text(u"B"_s)}, {}});
    connection->openTable(u"T"_s)->insert({u"x"_s, Null{}});

    QCOMPARE(failureOf([&] {
                 connection->createIndex(u"T"_s, {u"P"_s, true, true, {u"A"_s, u"B"_s}});
             }),
             kNullInPrimaryKey);
}

void StructureTest::secondPrimaryIndexIsRefused()
{
    const StoreFolder folder;
    const auto connection = folder.createClients();

    QCOMPARE(failureOf([&] {
                 connection->createIndex(u"CLIENTES"_s, {u"P"_s, true, true, {u"NOMBRE"_s}});
             }),
             kPrimaryKeyAlreadyExists);
}

void StructureTest::takenIndexNameIsRefused()
{
    const StoreFolder folder;
    const auto connection = folder.createClients();

    QCOMPARE(failureOf([&] {
                 connection->createIndex(u"CLIENTES"_s, {u"PORNOMBRE"_s, false, false, {u"SALDO"_s}});
             }),
             kIndexAlreadyExists);
}

void StructureTest::sameIndexNameStandsOnTwoTables()
{
    const StoreFolder folder;
    const auto connection = folder.createClients();
    TableDefinition second = clients();
    second.name = u"OTROS"_s;

    QCOMPARE(failureOf([&] { connection->createTable(second); }), kNoFailure);
}

void StructureTest::indexOnAMissingColumnIsRefused()
{
    const StoreFolder folder;
    const auto connection = folder.createClients();

    QCOMPARE(failureOf([&] {
                 connection->createIndex(u"CLIENTES"_s, {u"I"_s, false, false, {u"NADA"_s}});
             }),
             kItemNotInCollection);
}

void StructureTest::droppedPrimaryIndexMakesRoomForAnother()
{
    const StoreFolder folder;
    const auto connection = folder.createClients();

    connection->dropIndex(u"clientes"_s, u"PORCODIGO"_s);
    connection->createIndex(u"CLIENTES"_s, {u"PorCodigo"_s, true, true, {u"CODIGO"_s, u"NOMBRE"_s}});

    const TableDefinition table = connection->tables().constFirst();
    QVERIFY(table.index(u"PorCodigo")->primary);
    QCOMPARE(table.index(u"PorCodigo")->columns, (QStringList{u"CODIGO"_s, u"NOMBRE"_s}));
}

void StructureTest::missingIndexIsNotDropped()
{
    const StoreFolder folder;
    const auto connection = folder.createClients();

    QCOMPARE(failureOf([&] { connection->dropIndex(u"CLIENTES"_s, u"NADA"_s); }), kNoSuchIndexOnTable);
}

void StructureTest::indexOfAMissingTableIsNotDropped()
{
    const StoreFolder folder;
    const auto connection = folder.createClients();

    QCOMPARE(failureOf([&] { connection->dropIndex(u"NADA"_s, u"PorCodigo"_s); }), kNoSuchTable);
}

void StructureTest::zeroLengthMarkOfANumberIsRefused()
{
    const StoreFolder folder;
    const auto connection = folder.createClients();

    QCOMPARE(failureOf([&] { connection->setAllowZeroLength(u"CLIENTES"_s, u"SALDO"_s, true); }),
             kInvalidOperation);
}

void StructureTest::zeroLengthMarkOfAMissingColumnIsRefused()
{
    const StoreFolder folder;
    const auto connection = folder.createClients();

    QCOMPARE(failureOf([&] { connection->setAllowZeroLength(u"CLIENTES"_s, u"NADA"_s, true); }),
             kItemNotInCollection);
}

void StructureTest::changeIsRefusedWhileAnotherReads()
{
    const StoreFolder folder;
    const auto connection = folder.createClients();
    const OtherStation other(folder.path(), u"reading"_s);
    QCOMPARE(other.answer(), u"held"_s);

    QCOMPARE(failureOf([&] { connection->addColumn(u"CLIENTES"_s, text(u"OTRA"_s)); }), kCouldNotLockTable);
}

QTEST_GUILESS_MAIN(StructureTest)
#include "tst_structure.moc"
