// SPDX-License-Identifier: GPL-3.0-or-later
//
// Creating, opening and repairing stores.

#include "platform/core/failurenumbers.h"
#include "platform/dao/daofixture.h"

#include <QDir>
#include <QFile>

using namespace daotest;
using namespace platform;
using namespace platform::dao;

class WorkspaceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { resetEngine(); }

    void aNewStoreIsReturnedOpenAndEmpty();
    void anExistingNameFailsWith3204();
    void anExistingNameInAnotherCaseFailsWith3204();
    void createInAMissingFolderFailsWith3044();
    void aMissingFileFailsWith3024();
    void aMissingFolderFailsWith3044();
    void anEmptyFileFailsWith3049();
    void rubbishFailsWith3049();
    void pathsTakeBackslashesAndAnyCase();
    void anExclusiveOpenNeedsTheFileForItself();
    void aSharedOpenOfAnExclusiveStoreFailsWith3050();
    void anExclusiveStoreIsFreeAgainOnceClosed();
    void repairMakesAnOpenableStore();
    void repairOfAnOpenStoreFails();
};

namespace {

void writeFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

} // namespace

void WorkspaceTest::aNewStoreIsReturnedOpenAndEmpty()
{
    Store store;

    const Database database = workspace().CreateDatabase(store.path(), kSpanishLocale, dbVersion40);

    QCOMPARE(database.TableDefs().Count(), kSystemTables);
    QCOMPARE(workspace().Databases().Count(), 1);
}

void WorkspaceTest::anExistingNameFailsWith3204()
{
    Store store;
    store.create();

    QCOMPARE(failureOf([&] { (void)workspace().CreateDatabase(store.path(), kSpanishLocale, dbVersion40); }),
             kDatabaseAlreadyExists);
    QCOMPARE(store.open().TableDefs().Count(), kSystemTables + 1);
}

void WorkspaceTest::anExistingNameInAnotherCaseFailsWith3204()
{
    Store store;
    store.create();

    const QString name = store.path(u"ALMACEN.MDB"_s);

    QCOMPARE(failureOf([&] { (void)workspace().CreateDatabase(name, kSpanishLocale, dbVersion40); }),
             kDatabaseAlreadyExists);
}

void WorkspaceTest::createInAMissingFolderFailsWith3044()
{
    Store store;

    QCOMPARE(failureOf([&] {
                 (void)workspace().CreateDatabase(store.path(u"no/x.mdb"_s), kSpanishLocale, dbVersion40);
             }),
             kPathNotValid);
}

void WorkspaceTest::aMissingFileFailsWith3024()
{
    Store store;

    QCOMPARE(failureOf([&] { (void)store.open(); }), kDatabaseFileNotFound);
}

void WorkspaceTest::aMissingFolderFailsWith3044()
{
    Store store;

    QCOMPARE(failureOf([&] { (void)workspace().OpenDatabase(store.path(u"no/x.mdb"_s)); }), kPathNotValid);
}

void WorkspaceTest::anEmptyFileFailsWith3049()
{
    Store store;
    writeFile(store.path(), {});

    QCOMPARE(failureOf([&] { (void)store.open(); }), kNotADatabase);
}

void WorkspaceTest::rubbishFailsWith3049()
{
    Store store;
    writeFile(store.path(), QByteArray(5000, 'x'));

    QCOMPARE(failureOf([&] { (void)store.open(); }), kNotADatabase);
}

void WorkspaceTest::pathsTakeBackslashesAndAnyCase()
{
    Store store;
    store.create();
    const QString name = store.path(u"Almacen.MDB"_s).replace(u'/', u'\\');

    QCOMPARE(workspace().OpenDatabase(name).TableDefs().Count(), kSystemTables + 1);
}

void WorkspaceTest::anExclusiveOpenNeedsTheFileForItself()
{
    Store store;
    store.create();
    const Database shared = store.open();

    QCOMPARE(failureOf([&] { (void)workspace().OpenDatabase(store.path(), true, false); }),
             kCouldNotLockFile);
}

void WorkspaceTest::aSharedOpenOfAnExclusiveStoreFailsWith3050()
{
    Store store;
    store.create();
    const Database exclusive = workspace().OpenDatabase(store.path(), true, false);

    QCOMPARE(failureOf([&] { (void)store.open(); }), kCouldNotLockFile);
}

void WorkspaceTest::anExclusiveStoreIsFreeAgainOnceClosed()
{
    Store store;
    store.create();
    Database database = workspace().OpenDatabase(store.path(), true, false);
    database.Close();

    database = store.open();

    QCOMPARE(database.TableDefs().Count(), kSystemTables + 1);
}

void WorkspaceTest::repairMakesAnOpenableStore()
{
    Store store;
    writeFile(store.path(), QByteArray(5000, 'x'));
    const storage::TableDefinition expected{
        u"CONS"_s, {{u"ORDEN"_s, storage::ColumnType::Number, 0, false}}, {}};

    DBEngine().RepairDatabase(store.path(), {expected});

    const Database database = store.open();
    QCOMPARE(database.OpenRecordset(u"CONS"_s, dbOpenTable).RecordCount(), 0);
}

void WorkspaceTest::repairOfAnOpenStoreFails()
{
    Store store;
    store.create();
    const Database open = store.open();

    QCOMPARE(failureOf([&] { DBEngine().RepairDatabase(store.path()); }), kCouldNotLockFile);
}

QTEST_GUILESS_MAIN(WorkspaceTest)
#include "tst_workspace.moc"
