// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/core/failurenumbers.h"
#include "platform/storage/rawsqlite.h"
#include "platform/storage/storefixture.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

using namespace platform;
using namespace platform::storage;
using namespace platform::storage::test;

namespace {

/// Gives up the rights of the superuser, whom no permission stops, for as long as it lives.
class PlainUser
{
public:
    PlainUser()
        : m_before(geteuid())
    {
        constexpr uid_t kNobody = 65534;
        if (m_before == 0 && seteuid(kNobody) != 0)
            qFatal("the user can't be changed");
    }
    ~PlainUser()
    {
        if (seteuid(m_before) != 0)
            qFatal("the user can't be changed back");
    }
    PlainUser(const PlainUser&) = delete;
    PlainUser& operator=(const PlainUser&) = delete;

private:
    uid_t m_before;
};

void setMode(const QString& path, mode_t mode)
{
    QCOMPARE(chmod(QFile::encodeName(path).constData(), mode), 0);
}

void write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    QCOMPARE(file.write(bytes), bytes.size());
}

int openFailure(const StoreFolder& folder)
{
    return failureOf([&] { static_cast<void>(folder.open()); });
}

int createFailure(const StoreFolder& folder, const QString& name)
{
    return failureOf([&] { static_cast<void>(folder.engine().create(folder.path(name), {})); });
}

} // namespace

class OpenFileTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newStoreCarriesTheMarkOfOurs();
    void newStoreIsReadableByAnotherStationAtOnce();
    void newStoreKeepsItsOptions();
    void takenNameIsRefused();
    void takenNameIsRefusedWithoutRegardToCase();
    void takenNameOfAnyFileIsRefused();
    void missingFolderIsRefusedAtTheMaking();
    void folderThatCannotBeWrittenIsRefusedAtTheMaking();
    void missingFileIsRefused();
    void missingFolderIsRefused();
    void folderInPlaceOfAFileIsRefused();
    void fileOfNoDatabaseIsRefused_data();
    void fileOfNoDatabaseIsRefused();
    void truncatedFileIsRefused();
    void zeroedTableIsRefused();
    void fileThatCannotBeReadIsRefused();
    void fileThatCannotBeWrittenOpensForReading();
    void folderThatCannotBeWrittenOpensForReading();
    void writingToAReadOnlyStoreFails();
    void fileOfAnotherToolOpens();
    void fileOfAnotherToolInWriteAheadModeIsConverted();
    void fileInWriteAheadUseIsRefused();
    void fileHeldByAnotherToolIsRefusedAsLocked();
    void journalOfACrashIsRolledBack();
    void sidecarTakesThePermissionsOfTheStore();
};

void OpenFileTest::newStoreCarriesTheMarkOfOurs()
{
    const StoreFolder folder;
    static_cast<void>(folder.create());

    QFile file(folder.path());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.read(72).last(4), "ORVN");
}

void OpenFileTest::newStoreIsReadableByAnotherStationAtOnce()
{
    const StoreFolder folder;
    const auto first = folder.create();

    QCOMPARE(folder.open()->tables().size(), 0);
}

void OpenFileTest::newStoreKeepsItsOptions()
{
    const StoreFolder folder;
    static_cast<void>(folder.engine().create(folder.path(), {u";LANGID=0x040A"_s, 32}));

    RawSqlite raw(folder.path());
    QCOMPARE(raw.column("SELECT value FROM store_metadata WHERE kind = 'file' ORDER BY property"),
             (QStringList{u"32"_s, u";LANGID=0x040A"_s}));
}

void OpenFileTest::takenNameIsRefused()
{
    const StoreFolder folder;
    static_cast<void>(folder.create());

    QCOMPARE(createFailure(folder, u"Clientes.mdb"_s), kDatabaseAlreadyExists);
}

void OpenFileTest::takenNameIsRefusedWithoutRegardToCase()
{
    const StoreFolder folder;
    static_cast<void>(folder.create());

    QCOMPARE(createFailure(folder, u"CLIENTES.MDB"_s), kDatabaseAlreadyExists);
}

void OpenFileTest::takenNameOfAnyFileIsRefused()
{
    const StoreFolder folder;
    write(folder.path(), "text");

    QCOMPARE(createFailure(folder, u"Clientes.mdb"_s), kDatabaseAlreadyExists);
    QCOMPARE(QFile(folder.path()).size(), 4);
}

void OpenFileTest::missingFolderIsRefusedAtTheMaking()
{
    const StoreFolder folder;

    QCOMPARE(createFailure(folder, u"none/Clientes.mdb"_s), kPathNotValid);
    QVERIFY(!QDir(folder.path(u"none"_s)).exists());
}

void OpenFileTest::folderThatCannotBeWrittenIsRefusedAtTheMaking()
{
    const StoreFolder folder;
    setMode(folder.path({}), 0555);
    const PlainUser user;

    QCOMPARE(createFailure(folder, u"Clientes.mdb"_s), kCannotOpenFile);
}

void OpenFileTest::missingFileIsRefused()
{
    const StoreFolder folder;

    QCOMPARE(openFailure(folder), kDatabaseFileNotFound);
    QVERIFY(!QFile::exists(folder.path(u"Clientes.mdb.ldb"_s)));
}

void OpenFileTest::missingFolderIsRefused()
{
    const StoreFolder folder;
    const QString path = folder.path(u"none/Clientes.mdb"_s);

    QCOMPARE(failureOf([&] { static_cast<void>(folder.engine().open(path, Sharing::Shared)); }),
             kPathNotValid);
}

void OpenFileTest::folderInPlaceOfAFileIsRefused()
{
    const StoreFolder folder;
    QVERIFY(QDir().mkdir(folder.path()));

    QCOMPARE(openFailure(folder), kCannotOpenFile);
}

void OpenFileTest::fileOfNoDatabaseIsRefused_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("length 0") << QByteArray();
    QTest::newRow("one byte") << QByteArray("x");
    QTest::newRow("short text") << QByteArray("Esto no es una base de datos.\r\n");
    QTest::newRow("long text") << QByteArray("Esto no es una base de datos.\r\n").repeated(1000);
    QTest::newRow("zeroes") << QByteArray(8192, '\0');
    QTest::newRow("header name alone") << QByteArray("SQLite format 3\0", 16);
}

void OpenFileTest::fileOfNoDatabaseIsRefused()
{
    QFETCH(QByteArray, bytes);
    const StoreFolder folder;
    write(folder.path(), bytes);

    QCOMPARE(openFailure(folder), kNotADatabase);
}

void OpenFileTest::truncatedFileIsRefused()
{
    const StoreFolder folder;
    static_cast<void>(folder.createClients());
    QFile file(folder.path());
    QVERIFY(file.resize(file.size() - 4096));

    QCOMPARE(openFailure(folder), kNotADatabase);
}

void OpenFileTest::zeroedTableIsRefused()
{
    const StoreFolder folder;
    static_cast<void>(folder.createClients());
    const qint64 root = RawSqlite(folder.path())
                            .value("SELECT rootpage FROM sqlite_master WHERE name = 'CLIENTES.PorNombre'")
                            .toLongLong();
    QFile file(folder.path());
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.seek((root - 1) * 4096));
    QCOMPARE(file.write(QByteArray(4096, '\0')), 4096);
    file.close();

    QCOMPARE(openFailure(folder), kNotADatabase);
}

void OpenFileTest::fileThatCannotBeReadIsRefused()
{
    const StoreFolder folder;
    static_cast<void>(folder.create());
    setMode(folder.path({}), 0777);
    setMode(folder.path(), 0);
    const PlainUser user;

    QCOMPARE(openFailure(folder), kCannotOpenFile);
}

void OpenFileTest::fileThatCannotBeWrittenOpensForReading()
{
    const StoreFolder folder;
    static_cast<void>(folder.createClients());
    setMode(folder.path({}), 0777);
    setMode(folder.path(), 0444);
    const PlainUser user;

    const auto connection = folder.open();

    QVERIFY(connection->isReadOnly());
    QCOMPARE(connection->openTable(u"CLIENTES"_s)->count(), 0);
}

void OpenFileTest::folderThatCannotBeWrittenOpensForReading()
{
    const StoreFolder folder;
    static_cast<void>(folder.createClients());
    QVERIFY(QFile::remove(folder.path(u"Clientes.mdb.ldb"_s)));
    setMode(folder.path(), 0644);
    setMode(folder.path({}), 0555);
    {
        const PlainUser user;

        const auto connection = folder.open();

        QVERIFY(connection->isReadOnly());
        QCOMPARE(connection->openTable(u"CLIENTES"_s)->count(), 0);
    }
    QVERIFY(!QFile::exists(folder.path(u"Clientes.mdb.ldb"_s)));
    setMode(folder.path({}), 0755);
}

void OpenFileTest::writingToAReadOnlyStoreFails()
{
    const StoreFolder folder;
    static_cast<void>(folder.createClients());
    setMode(folder.path({}), 0777);
    setMode(folder.path(), 0444);
    const PlainUser user;
    const auto connection = folder.open();
    const auto table = connection->openTable(u"CLIENTES"_s);

    QCOMPARE(failureOf([&] { table->insert(client(u"A"_s, u"Ana"_s)); }), kReadOnly);
    QCOMPARE(failureOf([&] { connection->addColumn(u"CLIENTES"_s, text(u"OTRA"_s)); }), kReadOnly);
}

void OpenFileTest::fileOfAnotherToolOpens()
{
    const StoreFolder folder;
    RawSqlite(folder.path())
        .run("CREATE TABLE EMP(MENUMEMPRESA VARCHAR(5) UNIQUE, MENOMBRE TEXT(35));"
             "CREATE INDEX PorNombre ON EMP(MENOMBRE COLLATE NOCASE);"
             "CREATE INDEX Cara ON EMP(upper(MENOMBRE)); CREATE VIEW V AS SELECT 1");

    const auto tables = folder.open()->tables();

    QCOMPARE(tables.size(), 1);
    QCOMPARE(tables.constFirst().name, u"EMP"_s);
}

void OpenFileTest::fileOfAnotherToolInWriteAheadModeIsConverted()
{
    const StoreFolder folder;
    RawSqlite(folder.path())
        .run("PRAGMA journal_mode = WAL; CREATE TABLE EMP(A TEXT); INSERT INTO EMP VALUES('x')");

    QCOMPARE(folder.open()->openTable(u"EMP"_s)->count(), 1);

    QCOMPARE(RawSqlite(folder.path()).value("PRAGMA journal_mode"), u"delete"_s);
}

void OpenFileTest::fileInWriteAheadUseIsRefused()
{
    const StoreFolder folder;
    RawSqlite other(folder.path());
    other.run("PRAGMA journal_mode = WAL; CREATE TABLE EMP(A TEXT); BEGIN; SELECT * FROM EMP");

    QCOMPARE(openFailure(folder), kCouldNotLockFile);
}

void OpenFileTest::fileHeldByAnotherToolIsRefusedAsLocked()
{
    const StoreFolder folder;
    static_cast<void>(folder.createClients());
    RawSqlite other(folder.path());
    QCOMPARE(other.run("BEGIN EXCLUSIVE"), SQLITE_OK);

    QCOMPARE(openFailure(folder), kCouldNotLockFile);
}

void OpenFileTest::journalOfACrashIsRolledBack()
{
    const StoreFolder folder;
    static_cast<void>(folder.createClients());
    RawSqlite writer(folder.path());
    // A small cache makes SQLite write pages, and the journal before them, in the middle of the transaction.
    writer.run(
        "PRAGMA cache_size = 2; BEGIN IMMEDIATE; WITH RECURSIVE r(n) AS (SELECT 1 UNION ALL SELECT n + 1 "
        "FROM r"
        " WHERE n < 2000) INSERT INTO CLIENTES SELECT printf('%010d', n), 'x', n, hex(zeroblob(100)) FROM r");
    const StoreFolder crashed;
    QVERIFY(QFile::copy(folder.path(), crashed.path()));
    QVERIFY(QFile::copy(folder.path(u"Clientes.mdb-journal"_s), crashed.path(u"Clientes.mdb-journal"_s)));

    const auto connection = crashed.open();

    QCOMPARE(connection->openTable(u"CLIENTES"_s)->count(), 0);
    QVERIFY(!QFile::exists(crashed.path(u"Clientes.mdb-journal"_s)));
}

void OpenFileTest::sidecarTakesThePermissionsOfTheStore()
{
    const StoreFolder folder;
    static_cast<void>(folder.create());
    QVERIFY(QFile::remove(folder.path(u"Clientes.mdb.ldb"_s)));
    setMode(folder.path(), 0666);

    static_cast<void>(folder.open());

    struct stat status = {};
    QCOMPARE(stat(QFile::encodeName(folder.path(u"Clientes.mdb.ldb"_s)).constData(), &status), 0);
    QCOMPARE(status.st_mode & 0777, mode_t{0666});
}

QTEST_GUILESS_MAIN(OpenFileTest)
#include "tst_openfile.moc"
