// SPDX-License-Identifier: GPL-3.0-or-later
//
// Table definitions, columns and indexes.

#include "platform/core/failurenumbers.h"
#include "platform/dao/daofixture.h"

using namespace daotest;
using namespace platform;
using namespace platform::dao;

class SchemaTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void tableCountHasFourSystemTables();
    void anExistingTableFailsWith3010();
    void aTableWithoutColumnsFails();
    void aTableIsThereOnceAppended();
    void anUnknownTableFailsWith3265();
    void tableNamesIgnoreCase();
    void aTextWithoutSizeGets255();
    void sizeIsWritableUntilAppended();
    void columnsKeepTheirOrder();
    void aDoubledColumnFailsWith3191();
    void aColumnOfAStoredTableIsThereAtOnce();
    void openRecordsetsKeepTheirColumnCount();
    void existingRowsGetNullInANewColumn();
    void aDeletedColumnIsGone();
    void theHandleOfADeletedColumnIsAColumnInMemory();
    void deletingAnUnknownColumnFailsWith3265();
    void deletingAnIndexedColumnIsRefused();
    void allowZeroLengthIsFalseAtFirst();
    void allowZeroLengthIsPersisted();
    void allowZeroLengthOnANumberFailsWith3219();
    void allowZeroLengthInMemoryIsHarmless();
    void aColumnOfADefinitionHasNoValue();
    void aColumnBelongsToOneTableOnly();
    void columnsOfARecordsetCannotBeChanged();
    void indexesAreListed();
    void anIndexOfAStoredTableCannotBeChanged();
    void aDoubledKeyColumnFailsWith3191();
    void aDoubledIndexFailsWith3284();
    void aSecondPrimaryFailsWith3283();
    void aDefinitionInMemoryRefusesTheSameAsAStoredTable();
    void aUniqueIndexOverDuplicatesFailsWith3022();
    void aPrimaryOverNullsFailsWith3058();
    void anIndexOverAnUnknownColumnFails();
    void anIndexWithoutColumnsFails();
    void aNewIndexCanBeSought();
    void droppingAnIndexTakesItAway();
    void droppingAnUnknownIndexFailsWith3372();
    void droppingOnAnUnknownTableFailsWith3376();
    void executeOfAQueryFailsWith3065();
    void executeOfRubbishFailsWith3075();
    void theSchemaChangesWhileRecordsetsAreOpen();
    void aWiderPrimaryReplacesTheOldOne();
    void anUnboundColumnFailsWith91();

private:
    [[nodiscard]] TableDef lines() { return m_database.TableDefs().Item(u"LINEAS"_s); }
    [[nodiscard]] Index newIndex(const TableDef& table, const QString& name, const QStringList& columns);

    std::unique_ptr<Store> m_store;
    Database m_database;
};

void SchemaTest::init()
{
    resetEngine();
    m_store = std::make_unique<Store>();
    m_store->create();
    m_database = m_store->open();
}

void SchemaTest::cleanup()
{
    m_database = {};
}

Index SchemaTest::newIndex(const TableDef& table, const QString& name, const QStringList& columns)
{
    Index index = table.CreateIndex(name);
    for (const QString& column : columns)
        index.Fields().Append(index.CreateField(column));
    return index;
}

void SchemaTest::tableCountHasFourSystemTables()
{
    QCOMPARE(m_database.TableDefs().Count(), 5);

    m_database.TableDefs().Append(lineTable(m_database, u"OTRA"_s));

    QCOMPARE(m_database.TableDefs().Count(), 6);
}

void SchemaTest::anExistingTableFailsWith3010()
{
    const TableDef table = lineTable(m_database, u"lineas"_s);

    QCOMPARE(failureOf([&] { m_database.TableDefs().Append(table); }), kTableAlreadyExists);
    QCOMPARE(m_database.TableDefs().Count(), 5);
}

void SchemaTest::aTableWithoutColumnsFails()
{
    const TableDef table = m_database.CreateTableDef(u"VACIA"_s);

    QCOMPARE(failureOf([&] { m_database.TableDefs().Append(table); }), kNoFieldDefined);
}

void SchemaTest::aTableIsThereOnceAppended()
{
    const TableDef table = lineTable(m_database, u"OTRA"_s);
    QCOMPARE(failureOf([&] { (void)m_database.OpenRecordset(u"OTRA"_s, dbOpenTable); }), kObjectNotFound);

    m_database.TableDefs().Append(table);

    QCOMPARE(m_database.OpenRecordset(u"OTRA"_s, dbOpenTable).Fields().Count(), 4);
    QCOMPARE(table.Fields().Count(), 4);
}

void SchemaTest::anUnknownTableFailsWith3265()
{
    QCOMPARE(failureOf([&] { (void)m_database.TableDefs().Item(u"NADA"_s); }), kItemNotInCollection);
}

void SchemaTest::tableNamesIgnoreCase()
{
    QCOMPARE(m_database.TableDefs().Item(u"lineas"_s).Name(), u"LINEAS"_s);
    QCOMPARE(m_database.OpenRecordset(u"Lineas"_s, dbOpenTable).RecordCount(), 0);
}

void SchemaTest::aTextWithoutSizeGets255()
{
    const TableDef table = m_database.CreateTableDef(u"OTRA"_s);

    QCOMPARE(table.CreateField(u"T"_s, dbText).Size(), 255);
    QCOMPARE(table.CreateField(u"T"_s, dbText, 12).Size(), 12);
    QCOMPARE(table.CreateField(u"N"_s, dbDouble).Size(), 8);
    QCOMPARE(table.CreateField(u"M"_s, dbMemo).Size(), 0);
}

void SchemaTest::sizeIsWritableUntilAppended()
{
    TableDef table = m_database.CreateTableDef(u"OTRA"_s);
    Field field = table.CreateField(u"T"_s, dbText);
    field.setSize(7);
    table.Fields().Append(field);
    m_database.TableDefs().Append(table);

    QCOMPARE(m_database.TableDefs().Item(u"OTRA"_s).Fields().Item(0).Size(), 7);
    QCOMPARE(failureOf([&] { field.setSize(9); }), kInvalidOperation);
}

void SchemaTest::columnsKeepTheirOrder()
{
    const TableDef table = lines();

    QCOMPARE(table.Fields().Count(), 4);
    QCOMPARE(table.Fields().Item(0).Name(), u"CODIGO"_s);
    QCOMPARE(table.Fields().Item(3).Name(), u"NOTAS"_s);
    QCOMPARE(table.Fields().Item(u"nombre"_s).Size(), 20);
    QCOMPARE(failureOf([&] { (void)table.Fields().Item(4); }), kItemNotInCollection);
    QCOMPARE(failureOf([&] { (void)table.Fields().Item(u"OTRA"_s); }), kItemNotInCollection);
}

void SchemaTest::aDoubledColumnFailsWith3191()
{
    TableDef table = lines();

    QCOMPARE(failureOf([&] { table.Fields().Append(table.CreateField(u"nombre"_s, dbText, 5)); }),
             kFieldDefinedTwice);
    QCOMPARE(table.Fields().Count(), 4);
}

void SchemaTest::aColumnOfAStoredTableIsThereAtOnce()
{
    TableDef table = lines();

    table.Fields().Append(table.CreateField(u"NUEVA"_s, dbText, 12));

    QCOMPARE(table.Fields().Count(), 5);
    const Recordset rows = m_database.OpenRecordset(u"LINEAS"_s, dbOpenTable);
    QCOMPARE(rows.Fields().Count(), 5);
    QCOMPARE(rows[4].Size(), 12);
}

void SchemaTest::openRecordsetsKeepTheirColumnCount()
{
    Recordset rows = m_database.OpenRecordset(u"LINEAS"_s, dbOpenTable);
    TableDef table = lines();

    table.Fields().Append(table.CreateField(u"NUEVA"_s, dbText, 12));

    QCOMPARE(rows.Fields().Count(), 4);
    addLine(rows, u"a"_s, 1, u"uno"_s);
    QCOMPARE(walk(rows), QStringList{u"uno"_s});
}

void SchemaTest::existingRowsGetNullInANewColumn()
{
    Recordset rows = m_database.OpenRecordset(u"LINEAS"_s, dbOpenTable);
    addLine(rows, u"a"_s, 1, u"uno"_s);
    TableDef table = lines();

    table.Fields().Append(table.CreateField(u"NUEVA"_s, dbDouble));

    QVERIFY(isNull(m_database.OpenRecordset(u"LINEAS"_s, dbOpenTable)[u"NUEVA"].Value()));
}

void SchemaTest::aDeletedColumnIsGone()
{
    TableDef table = lines();

    table.Fields().Delete(u"notas"_s);

    QCOMPARE(table.Fields().Count(), 3);
    QCOMPARE(lines().Fields().Count(), 3);
}

void SchemaTest::theHandleOfADeletedColumnIsAColumnInMemory()
{
    TableDef table = lines();
    Field notes = table.Fields().Item(u"NOTAS"_s);
    table.Fields().Delete(u"NOTAS"_s);

    notes.setAllowZeroLength(true);
    table.Fields().Append(notes);

    QVERIFY(lines().Fields().Item(u"NOTAS"_s).AllowZeroLength());
}

void SchemaTest::deletingAnUnknownColumnFailsWith3265()
{
    QCOMPARE(failureOf([&] { lines().Fields().Delete(u"OTRA"_s); }), kItemNotInCollection);
}

void SchemaTest::deletingAnIndexedColumnIsRefused()
{
    QCOMPARE(failureOf([&] { lines().Fields().Delete(u"NOMBRE"_s); }), kFieldInIndex);
    QCOMPARE(lines().Fields().Count(), 4);
}

void SchemaTest::allowZeroLengthIsFalseAtFirst()
{
    QVERIFY(!lines().Fields().Item(0).AllowZeroLength());
}

void SchemaTest::allowZeroLengthIsPersisted()
{
    lines().Fields().Item(u"NOTAS"_s).setAllowZeroLength(true);
    m_database.Close();

    m_database = m_store->open();

    QVERIFY(lines().Fields().Item(u"NOTAS"_s).AllowZeroLength());
    QVERIFY(!lines().Fields().Item(u"NOMBRE"_s).AllowZeroLength());
    lines().Fields().Item(u"NOTAS"_s).setAllowZeroLength(false);
    QVERIFY(!lines().Fields().Item(u"NOTAS"_s).AllowZeroLength());
}

void SchemaTest::allowZeroLengthOnANumberFailsWith3219()
{
    QCOMPARE(failureOf([&] { lines().Fields().Item(u"NUMERO"_s).setAllowZeroLength(true); }),
             kInvalidOperation);
    TableDef table = m_database.CreateTableDef(u"OTRA"_s);
    Field number = table.CreateField(u"N"_s, dbDouble);
    QCOMPARE(failureOf([&] { number.setAllowZeroLength(true); }), kInvalidOperation);
}

void SchemaTest::allowZeroLengthInMemoryIsHarmless()
{
    TableDef table = lineTable(m_database, u"LINEAS"_s);
    QCOMPARE(failureOf([&] { m_database.TableDefs().Append(table); }), kTableAlreadyExists);

    table.Fields().Item(0).setAllowZeroLength(true);

    QVERIFY(table.Fields().Item(0).AllowZeroLength());
    QVERIFY(!lines().Fields().Item(0).AllowZeroLength());
}

void SchemaTest::aColumnOfADefinitionHasNoValue()
{
    QCOMPARE(failureOf([&] { (void)lines().Fields().Item(0).Value(); }), kInvalidOperation);
    QCOMPARE(failureOf([&] { lines().Fields().Item(0).setValue(u"x"_s); }), kInvalidOperation);
}

void SchemaTest::aColumnBelongsToOneTableOnly()
{
    TableDef first = m_database.CreateTableDef(u"OTRA"_s);
    TableDef second = m_database.CreateTableDef(u"TERCERA"_s);
    const Field field = first.CreateField(u"T"_s, dbText);
    first.Fields().Append(field);

    QCOMPARE(failureOf([&] { second.Fields().Append(field); }), kInvalidOperation);
    QCOMPARE(second.Fields().Count(), 0);
}

void SchemaTest::columnsOfARecordsetCannotBeChanged()
{
    const Recordset rows = m_database.OpenRecordset(u"LINEAS"_s, dbOpenTable);
    Field name = rows[u"NOMBRE"];

    QCOMPARE(failureOf([&] { rows.Fields().Append(lines().CreateField(u"T"_s, dbText)); }),
             kInvalidOperation);
    QCOMPARE(failureOf([&] { rows.Fields().Delete(u"NOTAS"_s); }), kInvalidOperation);
    QCOMPARE(failureOf([&] { name.setSize(5); }), kInvalidOperation);
    QCOMPARE(failureOf([&] { name.setAllowZeroLength(true); }), kInvalidOperation);

    QCOMPARE(rows.Fields().Count(), 4);
    QCOMPARE(name.Size(), 20);
}

void SchemaTest::indexesAreListed()
{
    const TableDef table = lines();

    QCOMPARE(table.Indexes().Count(), 2);
    const Index primary = table.Indexes().Item(u"primario"_s);
    QVERIFY(primary.Primary());
    QVERIFY(primary.Unique());
    QCOMPARE(primary.Fields().Count(), 2);
    QVERIFY(!table.Indexes().Item(u"NOMBRES"_s).Unique());
    QCOMPARE(failureOf([&] { (void)table.Indexes().Item(2); }), kItemNotInCollection);
}

void SchemaTest::anIndexOfAStoredTableCannotBeChanged()
{
    // The definition it was taken from needn't be held.
    Index names = lines().Indexes().Item(u"NOMBRES"_s);

    QCOMPARE(failureOf([&] { names.setPrimary(true); }), kInvalidOperation);
    QCOMPARE(failureOf([&] { names.setUnique(true); }), kInvalidOperation);
    QCOMPARE(failureOf([&] { names.Fields().Append(names.CreateField(u"NUMERO"_s)); }), kInvalidOperation);

    QVERIFY(!names.Primary());
    QVERIFY(!names.Unique());
    QCOMPARE(names.Fields().Count(), 1);
}

void SchemaTest::aDoubledKeyColumnFailsWith3191()
{
    Index index = newIndex(lines(), u"OTRO"_s, {u"NUMERO"_s});

    QCOMPARE(failureOf([&] { index.Fields().Append(index.CreateField(u"numero"_s)); }), kFieldDefinedTwice);
    QCOMPARE(index.Fields().Count(), 1);
}

void SchemaTest::aDoubledIndexFailsWith3284()
{
    TableDef table = lines();

    QCOMPARE(failureOf([&] { table.Indexes().Append(newIndex(table, u"nombres"_s, {u"NOTAS"_s})); }),
             kIndexAlreadyExists);
}

void SchemaTest::aSecondPrimaryFailsWith3283()
{
    TableDef table = lines();
    Index second = newIndex(table, u"SEGUNDO"_s, {u"NUMERO"_s});
    second.setPrimary(true);

    QCOMPARE(failureOf([&] { table.Indexes().Append(second); }), kPrimaryKeyAlreadyExists);
    QCOMPARE(table.Indexes().Count(), 2);
}

void SchemaTest::aDefinitionInMemoryRefusesTheSameAsAStoredTable()
{
    TableDef table = lineTable(m_database, u"OTRA"_s);
    Index second = newIndex(table, u"SEGUNDO"_s, {u"NUMERO"_s});
    second.setPrimary(true);

    QCOMPARE(failureOf([&] { table.Indexes().Append(second); }), kPrimaryKeyAlreadyExists);
    QCOMPARE(failureOf([&] { table.Indexes().Append(newIndex(table, u"nombres"_s, {u"NOTAS"_s})); }),
             kIndexAlreadyExists);
    QCOMPARE(failureOf([&] { table.Fields().Append(table.CreateField(u"nombre"_s, dbText, 5)); }),
             kFieldDefinedTwice);
    QCOMPARE(failureOf([&] { table.Fields().Delete(u"NOMBRE"_s); }), kFieldInIndex);

    QCOMPARE(table.Indexes().Count(), 2);
    QCOMPARE(table.Fields().Count(), 4);
}

void SchemaTest::aUniqueIndexOverDuplicatesFailsWith3022()
{
    Recordset rows = m_database.OpenRecordset(u"LINEAS"_s, dbOpenTable);
    addLine(rows, u"a"_s, 1, u"igual"_s);
    addLine(rows, u"b"_s, 1, u"Igual "_s);
    TableDef table = lines();
    Index unique = newIndex(table, u"UNICO"_s, {u"NOMBRE"_s});
    unique.setUnique(true);

    QCOMPARE(failureOf([&] { table.Indexes().Append(unique); }), kDuplicateKey);

    QCOMPARE(lines().Indexes().Count(), 2);
}

void SchemaTest::aPrimaryOverNullsFailsWith3058()
{
    m_database.Execute(u"DROP INDEX PRIMARIO ON LINEAS"_s);
    Recordset rows = m_database.OpenRecordset(u"LINEAS"_s, dbOpenTable);
    addLine(rows, u"a"_s, 1, u"uno"_s);
    TableDef table = lines();
    Index primary = newIndex(table, u"PRIMARIO"_s, {u"NOTAS"_s});
    primary.setPrimary(true);

    QCOMPARE(failureOf([&] { table.Indexes().Append(primary); }), kNullInPrimaryKey);
}

void SchemaTest::anIndexOverAnUnknownColumnFails()
{
    TableDef table = lines();

    QCOMPARE(failureOf([&] { table.Indexes().Append(newIndex(table, u"OTRO"_s, {u"OTRA"_s})); }),
             kItemNotInCollection);
}

void SchemaTest::anIndexWithoutColumnsFails()
{
    TableDef table = lines();

    QCOMPARE(failureOf([&] { table.Indexes().Append(newIndex(table, u"OTRO"_s, {})); }), kNoFieldDefined);
}

void SchemaTest::aNewIndexCanBeSought()
{
    Recordset rows = m_database.OpenRecordset(u"LINEAS"_s, dbOpenTable);
    addLine(rows, u"a"_s, 5, u"uno"_s);
    TableDef table = lines();
    table.Indexes().Append(newIndex(table, u"NUMEROS"_s, {u"NUMERO"_s}));

    rows = m_database.OpenRecordset(u"LINEAS"_s, dbOpenTable);
    rows.setIndex(u"NUMEROS"_s);
    rows.Seek(u"=", 5.0);

    QCOMPARE(text(rows, u"NOMBRE"), u"uno"_s);
}

void SchemaTest::droppingAnIndexTakesItAway()
{
    m_database.Execute(u"DROP INDEX nombres ON lineas"_s);

    QCOMPARE(lines().Indexes().Count(), 1);
    Recordset rows = m_database.OpenRecordset(u"LINEAS"_s, dbOpenTable);
    QCOMPARE(failureOf([&] { rows.setIndex(u"NOMBRES"_s); }), kNoSuchIndex);
}

void SchemaTest::droppingAnUnknownIndexFailsWith3372()
{
    QCOMPARE(failureOf([&] { m_database.Execute(u"DROP INDEX OTRO ON LINEAS"_s); }), kNoSuchIndexOnTable);
}

void SchemaTest::droppingOnAnUnknownTableFailsWith3376()
{
    QCOMPARE(failureOf([&] { m_database.Execute(u"DROP INDEX PRIMARIO ON NADA"_s); }), kNoSuchTable);
}

void SchemaTest::executeOfAQueryFailsWith3065()
{
    QCOMPARE(failureOf([&] { m_database.Execute(u"SELECT * FROM LINEAS"_s); }), kConstructNotSupported);
}

void SchemaTest::executeOfRubbishFailsWith3075()
{
    QCOMPARE(failureOf([&] { m_database.Execute(u"DROP TABLE LINEAS"_s); }), kSyntaxError);
    QCOMPARE(m_database.TableDefs().Count(), 5);
}

void SchemaTest::theSchemaChangesWhileRecordsetsAreOpen()
{
    Recordset rows = m_database.OpenRecordset(u"LINEAS"_s, dbOpenTable);
    addLine(rows, u"a"_s, 1, u"uno"_s);
    addLine(rows, u"b"_s, 1, u"dos"_s);
    rows.MoveFirst();
    Recordset query = m_database.OpenRecordset(u"SELECT * FROM LINEAS"_s, dbOpenDynaset);

    m_database.Execute(u"DROP INDEX NOMBRES ON LINEAS"_s);
    m_database.TableDefs().Append(lineTable(m_database, u"OTRA"_s));

    rows.MoveNext();
    QCOMPARE(text(rows, u"NOMBRE"), u"dos"_s);
    query.MoveNext();
    QCOMPARE(text(query, u"NOMBRE"), u"dos"_s);
}

void SchemaTest::aWiderPrimaryReplacesTheOldOne()
{
    Database exclusive;
    m_database.Close();
    exclusive = workspace().OpenDatabase(m_store->path(), true, false);
    exclusive.Execute(u"DROP INDEX PRIMARIO ON LINEAS"_s);
    TableDef table = exclusive.TableDefs().Item(u"LINEAS"_s);
    Index primary = newIndex(table, u"PRIMARIO"_s, {u"CODIGO"_s, u"NOMBRE"_s, u"NUMERO"_s});
    primary.setPrimary(true);
    primary.setUnique(true);
    table.Indexes().Append(primary);
    exclusive.Close();

    m_database = m_store->open();

    QCOMPARE(lines().Indexes().Item(u"PRIMARIO"_s).Fields().Count(), 3);
}

void SchemaTest::anUnboundColumnFailsWith91()
{
    TableDef table = lines();

    QCOMPARE(failureOf([&] { table.Fields().Append(Field()); }), kObjectNotSet);
    QCOMPARE(failureOf([&] { table.Indexes().Append(Index()); }), kObjectNotSet);
    QCOMPARE(failureOf([&] { m_database.TableDefs().Append(TableDef()); }), kObjectNotSet);
    QCOMPARE(failureOf([] { (void)TableDef().Fields(); }), kObjectNotSet);
    QCOMPARE(failureOf([] { (void)Index().Name(); }), kObjectNotSet);
}

QTEST_GUILESS_MAIN(SchemaTest)
#include "tst_schema.moc"
