// SPDX-License-Identifier: GPL-3.0-or-later
//
// Counted handles, 91 and 3420, and the collections of what is open.

#include "platform/core/failurenumbers.h"
#include "platform/dao/daofixture.h"

using namespace daotest;
using namespace platform;
using namespace platform::dao;

class HandlesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { resetEngine(); }

    void anUnboundDatabaseFailsWith91();
    void anUnboundRecordsetFailsWith91();
    void anUnboundWorkspaceFailsWith91();
    void aMemberOfAClosedDatabaseFailsWith3420();
    void aMemberOfAClosedRecordsetFailsWith3420();
    void aSecondCloseFailsWith3420();
    void closingTheDatabaseClosesItsRecordsets();
    void closingTheDatabaseDropsPendingEdits();
    void aFieldOfAClosedRecordsetFailsWith3420();
    void aFieldOfARecordsetOutOfScopeFailsWith3420();
    void aTableDefinitionOfAClosedDatabaseFailsWith3420();
    void anIndexOfAClosedDatabaseFailsWith3420();
    void collectionsOfAClosedDatabaseFailWith3420();
    void aTableDefinitionDoesNotKeepItsDatabase();
    void aRecordsetKeepsItsDatabase();
    void aCopyOfAHandleMeansTheSameObject();
    void bindingOverTheLastHandleClosesTheOldObject();
    void aFailingBindingLeavesTheHandle();
    void databasesShrinkAsTheyClose();
    void recordsetsShrinkAsTheyClose();
    void anIndexPastTheEndFailsWith3265();
    void theUnloadLoopsStepOverEveryOtherMember();
    void theSameFileMayBeOpenTwice();
    void aRecordsetOutOfScopeLeavesTheCollection();
    void onlyWorkspace0IsThere();
    void aDatabaseKeepsTheNameItWasOpenedBy();
    void replacingTheStorageClosesEveryDatabase();
};

void HandlesTest::anUnboundDatabaseFailsWith91()
{
    Database database;

    QVERIFY(!database.isBound());
    QCOMPARE(failureOf([&] { database.Close(); }), kObjectNotSet);
    QCOMPARE(failureOf([&] { (void)database.OpenRecordset(u"LINEAS"_s, dbOpenTable); }), kObjectNotSet);
    QCOMPARE(failureOf([&] { (void)database.Name(); }), kObjectNotSet);
    QCOMPARE(failureOf([&] { (void)database.TableDefs(); }), kObjectNotSet);
    QCOMPARE(failureOf([&] { (void)database.CreateTableDef(u"LINEAS"_s); }), kObjectNotSet);
    QCOMPARE(failureOf([&] { (void)database.Recordsets(); }), kObjectNotSet);
    QCOMPARE(failureOf([&] { database.Execute(u"DROP INDEX a ON b"_s); }), kObjectNotSet);
}

void HandlesTest::anUnboundRecordsetFailsWith91()
{
    Recordset rows;

    QVERIFY(!rows.isBound());
    QCOMPARE(failureOf([&] { rows.MoveFirst(); }), kObjectNotSet);
    QCOMPARE(failureOf([&] { (void)rows.EOF_(); }), kObjectNotSet);
    QCOMPARE(failureOf([&] { (void)rows.NoMatch(); }), kObjectNotSet);
    QCOMPARE(failureOf([&] { rows.setIndex(u"PRIMARIO"_s); }), kObjectNotSet);
    QCOMPARE(failureOf([&] { rows.Seek(u"=", u"x"_s); }), kObjectNotSet);
    QCOMPARE(failureOf([&] { (void)rows[u"CODIGO"]; }), kObjectNotSet);
    QCOMPARE(failureOf([&] { rows.setLockEdits(false); }), kObjectNotSet);
    QCOMPARE(failureOf([&] { rows.Close(); }), kObjectNotSet);
}

void HandlesTest::anUnboundWorkspaceFailsWith91()
{
    Workspace unbound;

    QCOMPARE(failureOf([&] { (void)unbound.OpenDatabase(u"x"_s); }), kObjectNotSet);
    QCOMPARE(failureOf([&] { (void)unbound.Databases(); }), kObjectNotSet);
}

void HandlesTest::aMemberOfAClosedDatabaseFailsWith3420()
{
    Store store;
    store.create();
    Database database = store.open();
    database.Close();

    QVERIFY(database.isBound());
    QCOMPARE(failureOf([&] { (void)database.Name(); }), kObjectInvalid);
    QCOMPARE(failureOf([&] { (void)database.TableDefs(); }), kObjectInvalid);
    QCOMPARE(failureOf([&] { (void)database.OpenRecordset(u"LINEAS"_s, dbOpenTable); }), kObjectInvalid);
}

void HandlesTest::aMemberOfAClosedRecordsetFailsWith3420()
{
    Store store;
    store.create();
    Database database = store.open();
    Recordset rows = database.OpenRecordset(u"LINEAS"_s, dbOpenTable);
    rows.Close();

    QCOMPARE(failureOf([&] { (void)rows.EOF_(); }), kObjectInvalid);
    QCOMPARE(failureOf([&] { (void)rows.Fields(); }), kObjectInvalid);
}

void HandlesTest::aSecondCloseFailsWith3420()
{
    Store store;
    store.create();
    Database database = store.open();
    Recordset rows = database.OpenRecordset(u"LINEAS"_s, dbOpenTable);
    rows.Close();
    database.Close();

    QCOMPARE(failureOf([&] { rows.Close(); }), kObjectInvalid);
    QCOMPARE(failureOf([&] { database.Close(); }), kObjectInvalid);
}

void HandlesTest::closingTheDatabaseClosesItsRecordsets()
{
    Store store;
    store.create();
    Database database = store.open();
    Recordset table = database.OpenRecordset(u"LINEAS"_s, dbOpenTable);
    Recordset query = database.OpenRecordset(u"SELECT * FROM LINEAS"_s, dbOpenDynaset);

    database.Close();

    QCOMPARE(failureOf([&] { table.MoveFirst(); }), kObjectInvalid);
    QCOMPARE(failureOf([&] { query.Close(); }), kObjectInvalid);
}

void HandlesTest::closingTheDatabaseDropsPendingEdits()
{
    Store store;
    store.create();
    Database database = store.open();
    Recordset rows = database.OpenRecordset(u"LINEAS"_s, dbOpenTable);
    rows.AddNew();
    rows[u"CODIGO"].setValue(u"a"_s);
    rows[u"NUMERO"].setValue(1);
    database.Close();

    Database again = store.open();

    QCOMPARE(again.OpenRecordset(u"LINEAS"_s, dbOpenTable).RecordCount(), 0);
}

void HandlesTest::aFieldOfAClosedRecordsetFailsWith3420()
{
    Store store;
    store.create();
    Database database = store.open();
    Recordset rows = database.OpenRecordset(u"LINEAS"_s, dbOpenTable);
    const Field field = rows[u"CODIGO"];
    rows.Close();

    QCOMPARE(failureOf([&] { (void)field.Value(); }), kObjectInvalid);
    rows = {};
    QCOMPARE(failureOf([&] { (void)field.Name(); }), kObjectInvalid);
}

void HandlesTest::aFieldOfARecordsetOutOfScopeFailsWith3420()
{
    Store store;
    store.create();
    const Database database = store.open();

    const Field field = database.OpenRecordset(u"LINEAS"_s, dbOpenTable)[u"NOMBRE"];

    QCOMPARE(failureOf([&] { (void)field.Name(); }), kObjectInvalid);
    QCOMPARE(failureOf([&] { (void)field.Value(); }), kObjectInvalid);
}

void HandlesTest::aTableDefinitionOfAClosedDatabaseFailsWith3420()
{
    Store store;
    store.create();
    Database database = store.open();
    const TableDef table = database.TableDefs().Item(u"LINEAS"_s);
    const Field field = table.Fields().Item(0);
    database.Close();

    QCOMPARE(failureOf([&] { (void)table.Name(); }), kObjectInvalid);
    QCOMPARE(failureOf([&] { (void)table.Fields(); }), kObjectInvalid);
    QCOMPARE(failureOf([&] { (void)field.Size(); }), kObjectInvalid);
}

void HandlesTest::anIndexOfAClosedDatabaseFailsWith3420()
{
    Store store;
    store.create();
    Database database = store.open();
    const TableDef table = database.TableDefs().Item(u"LINEAS"_s);
    const Index index = table.Indexes().Item(0);
    database.Close();

    QCOMPARE(failureOf([&] { (void)table.Indexes(); }), kObjectInvalid);
    QCOMPARE(failureOf([&] { (void)index.Name(); }), kObjectInvalid);
    QCOMPARE(failureOf([&] { (void)index.Primary(); }), kObjectInvalid);
    QCOMPARE(failureOf([&] { (void)index.Unique(); }), kObjectInvalid);
    QCOMPARE(failureOf([&] { (void)index.Fields(); }), kObjectInvalid);
}

void HandlesTest::collectionsOfAClosedDatabaseFailWith3420()
{
    Store store;
    store.create();
    Database database = store.open();
    const TableDef table = database.TableDefs().Item(u"LINEAS"_s);
    const TableDefs tables = database.TableDefs();
    Fields fields = table.Fields();
    Indexes indexes = table.Indexes();
    const IndexFields keyColumns = indexes.Item(0).Fields();
    database.Close();

    QCOMPARE(failureOf([&] { (void)tables.Count(); }), kObjectInvalid);
    QCOMPARE(failureOf([&] { (void)tables.Item(u"LINEAS"_s); }), kObjectInvalid);
    QCOMPARE(failureOf([&] { (void)fields.Count(); }), kObjectInvalid);
    QCOMPARE(failureOf([&] { (void)fields.Item(0); }), kObjectInvalid);
    QCOMPARE(failureOf([&] { (void)fields.Item(u"CODIGO"_s); }), kObjectInvalid);
    QCOMPARE(failureOf([&] { fields.Append(Field()); }), kObjectInvalid);
    QCOMPARE(failureOf([&] { fields.Delete(u"NOTAS"_s); }), kObjectInvalid);
    QCOMPARE(failureOf([&] { (void)indexes.Count(); }), kObjectInvalid);
    QCOMPARE(failureOf([&] { (void)indexes.Item(0); }), kObjectInvalid);
    QCOMPARE(failureOf([&] { (void)indexes.Item(u"PRIMARIO"_s); }), kObjectInvalid);
    QCOMPARE(failureOf([&] { indexes.Append(Index()); }), kObjectInvalid);
    QCOMPARE(failureOf([&] { (void)keyColumns.Count(); }), kObjectInvalid);
}

void HandlesTest::aTableDefinitionDoesNotKeepItsDatabase()
{
    Store store;
    store.create();
    Database database = store.open();
    const TableDef table = database.TableDefs().Item(u"LINEAS"_s);

    database = {};

    QCOMPARE(workspace().Databases().Count(), 0);
    QCOMPARE(failureOf([&] { (void)table.Name(); }), kObjectInvalid);
}

void HandlesTest::aRecordsetKeepsItsDatabase()
{
    Store store;
    store.create();
    Database database = store.open();
    Recordset rows = database.OpenRecordset(u"LINEAS"_s, dbOpenTable);

    database = {};

    QCOMPARE(workspace().Databases().Count(), 1);
    QCOMPARE(rows.RecordCount(), 0);
    rows = {};
    QCOMPARE(workspace().Databases().Count(), 0);
}

void HandlesTest::aCopyOfAHandleMeansTheSameObject()
{
    Store store;
    store.create();
    Database database = store.open();
    Recordset rows = database.OpenRecordset(u"LINEAS"_s, dbOpenTable);
    Recordset copy = rows;

    copy.Close();

    QCOMPARE(failureOf([&] { (void)rows.EOF_(); }), kObjectInvalid);
}

void HandlesTest::bindingOverTheLastHandleClosesTheOldObject()
{
    Store store;
    store.create();
    Database database = store.open();
    Recordset rows = database.OpenRecordset(u"LINEAS"_s, dbOpenTable);

    database = store.open();
    rows = database.OpenRecordset(u"LINEAS"_s, dbOpenTable);

    QCOMPARE(workspace().Databases().Count(), 1);
    QCOMPARE(database.Recordsets().Count(), 1);
}

void HandlesTest::aFailingBindingLeavesTheHandle()
{
    Store store;
    store.create();
    Database database = store.open();

    QCOMPARE(failureOf([&] { database = workspace().OpenDatabase(store.path(u"otro.mdb"_s)); }),
             kDatabaseFileNotFound);
    QCOMPARE(database.Name(), store.path());

    Recordset rows = database.OpenRecordset(u"LINEAS"_s, dbOpenTable);
    QCOMPARE(failureOf([&] { rows = database.OpenRecordset(u"NADA"_s, dbOpenTable); }), kObjectNotFound);
    QCOMPARE(rows.RecordCount(), 0);
}

void HandlesTest::databasesShrinkAsTheyClose()
{
    Store store;
    store.create();
    Database first = store.open();
    Database second = workspace().CreateDatabase(store.path(u"segundo.mdb"_s), kSpanishLocale, dbVersion30);
    QCOMPARE(workspace().Databases().Count(), 2);

    workspace().Databases().Item(0).Close();

    QCOMPARE(workspace().Databases().Count(), 1);
    QCOMPARE(workspace().Databases().Item(0).Name(), second.Name());
}

void HandlesTest::recordsetsShrinkAsTheyClose()
{
    Store store;
    store.create();
    Database database = store.open();
    Recordset first = database.OpenRecordset(u"LINEAS"_s, dbOpenTable);
    Recordset second = database.OpenRecordset(u"LINEAS"_s, dbOpenDynaset);

    database.Recordsets().Item(0).Close();

    QCOMPARE(database.Recordsets().Count(), 1);
    QCOMPARE(failureOf([&] { (void)first.EOF_(); }), kObjectInvalid);
    QVERIFY(second.EOF_());
}

void HandlesTest::anIndexPastTheEndFailsWith3265()
{
    Store store;
    store.create();
    Database database = store.open();

    QCOMPARE(failureOf([&] { (void)workspace().Databases().Item(1); }), kItemNotInCollection);
    QCOMPARE(failureOf([&] { (void)workspace().Databases().Item(-1); }), kItemNotInCollection);
    QCOMPARE(failureOf([&] { (void)database.Recordsets().Item(0); }), kItemNotInCollection);
}

void HandlesTest::theUnloadLoopsStepOverEveryOtherMember()
{
    Store store;
    store.create();
    Database database = store.open();
    Recordset rows[4];
    for (Recordset& one : rows)
        one = database.OpenRecordset(u"LINEAS"_s, dbOpenTable);

    const int bound = database.Recordsets().Count();
    QList<int> failures;
    for (int i = 0; i < bound; ++i)
        failures.append(failureOf([&] { database.Recordsets().Item(i).Close(); }));

    QCOMPARE(failures, (QList<int>{0, 0, kItemNotInCollection, kItemNotInCollection}));
    QCOMPARE(failureOf([&] { (void)rows[0].EOF_(); }), kObjectInvalid);
    QCOMPARE(failureOf([&] { (void)rows[1].EOF_(); }), 0);
    QCOMPARE(failureOf([&] { (void)rows[2].EOF_(); }), kObjectInvalid);
    QCOMPARE(failureOf([&] { (void)rows[3].EOF_(); }), 0);
}

void HandlesTest::theSameFileMayBeOpenTwice()
{
    Store store;
    store.create();
    Database first = store.open();
    Database second = store.open();

    QCOMPARE(workspace().Databases().Count(), 2);
    first.Close();
    QCOMPARE(second.TableDefs().Count(), 1 + kSystemTables);
}

void HandlesTest::aRecordsetOutOfScopeLeavesTheCollection()
{
    Store store;
    store.create();
    Database database = store.open();
    {
        const Recordset rows = database.OpenRecordset(u"LINEAS"_s, dbOpenTable);
        QCOMPARE(database.Recordsets().Count(), 1);
    }
    QCOMPARE(database.Recordsets().Count(), 0);
}

void HandlesTest::onlyWorkspace0IsThere()
{
    QCOMPARE(failureOf([] { (void)DBEngine().Workspaces(1); }), kItemNotInCollection);
}

void HandlesTest::aDatabaseKeepsTheNameItWasOpenedBy()
{
    Store store;
    store.create();
    const QString name = store.path().replace(u'/', u'\\');

    QCOMPARE(workspace().OpenDatabase(name).Name(), name);
}

void HandlesTest::replacingTheStorageClosesEveryDatabase()
{
    Store store;
    store.create();
    Database database = store.open();
    Recordset rows = database.OpenRecordset(u"LINEAS"_s, dbOpenTable);

    DBEngine().setStorage(nullptr);

    QCOMPARE(failureOf([&] { (void)database.Name(); }), kObjectInvalid);
    QCOMPARE(failureOf([&] { (void)rows.EOF_(); }), kObjectInvalid);
    QCOMPARE(workspace().Databases().Count(), 0);
}

QTEST_GUILESS_MAIN(HandlesTest)
#include "tst_handles.moc"
