// SPDX-License-Identifier: GPL-3.0-or-later

// A new store is there whole or not at all.

#include "platform/core/failurenumbers.h"
#include "platform/storage/rawsqlite.h"
#include "platform/storage/storefixture.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <algorithm>
#include <atomic>
#include <future>

#include <sys/stat.h>

using namespace platform;
using namespace platform::storage;
using namespace platform::storage::test;

namespace {

constexpr auto kWorkingName = "Clientes.mdb.nuevo"_L1;

std::unique_ptr<Connection> make(const StoreFolder& folder)
{
    return folder.engine().create(folder.path(), {u";LANGID=0x040A"_s, 64, Appears::WhenClosed});
}

/// True once somebody stands in the system's queue for the maker's lock.
bool isWaited(const StoreFolder& folder)
{
    struct stat status = {};
    if (stat(QFile::encodeName(folder.path(u"Clientes.mdb.ldb"_s)).constData(), &status) != 0)
        return false;
    QFile locks(u"/proc/locks"_s);
    const QByteArray inode = ':' + QByteArray::number(static_cast<quint64>(status.st_ino)) + ' ';
    if (!locks.open(QIODevice::ReadOnly))
        return false;
    const QList<QByteArray> lines = locks.readAll().split('\n');
    return std::any_of(lines.begin(), lines.end(),
                       [&](const QByteArray& line) { return line.contains("->") && line.contains(inode); });
}

} // namespace

class NewFileTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void storeInTheMakingIsNotThere();
    void closedStoreIsThereWithItsTables();
    void storeThatAppearsAtOnceIsThereAtOnce();
    void leftoversOfADeadMakerAreReplaced();
    void failedMakingLeavesNothing();
    void nameTakenMeanwhileIsLeftAlone();
    void secondMakerWaitsAndFindsTheStore();
    void makerDoesNotWaitForThoseWhoOpen();
    void journalOfADeletedStoreIsNotTakenOver();
    void unfinishedStoreGetsNoName();
};

void NewFileTest::storeInTheMakingIsNotThere()
{
    const StoreFolder folder;

    const auto store = make(folder);
    store->createTable(clients());

    QVERIFY(!QFile::exists(folder.path()));
    QVERIFY(QFile::exists(folder.path(kWorkingName)));
    QCOMPARE(failureOf([&] { static_cast<void>(folder.open()); }), kDatabaseFileNotFound);
}

void NewFileTest::closedStoreIsThereWithItsTables()
{
    const StoreFolder folder;
    make(folder)->createTable(clients());

    QCOMPARE(folder.open()->tables().constFirst().name, u"CLIENTES"_s);
    QVERIFY(!QFile::exists(folder.path(kWorkingName)));
}

void NewFileTest::storeThatAppearsAtOnceIsThereAtOnce()
{
    const StoreFolder folder;

    const auto store = folder.create();

    QVERIFY(QFile::exists(folder.path()));
    QVERIFY(!QFile::exists(folder.path(kWorkingName)));
    QCOMPARE(folder.open()->tables().size(), 0);
}

void NewFileTest::leftoversOfADeadMakerAreReplaced()
{
    const StoreFolder folder;
    for (const QString& name : {u"Clientes.mdb.nuevo"_s, u"Clientes.mdb.nuevo-journal"_s}) {
        QFile file(folder.path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write("half a store"), 12);
    }

    make(folder)->createTable(clients());

    QCOMPARE(folder.open()->tables().size(), 1);
    QCOMPARE(QDir(folder.path({})).entryList(QDir::Files),
             (QStringList{u"Clientes.mdb"_s, u"Clientes.mdb.ldb"_s}));
}

void NewFileTest::failedMakingLeavesNothing()
{
    const StoreFolder folder;
    // Something that can't be replaced by a file stands in the way.
    QVERIFY(QDir(folder.path({})).mkpath(u"Clientes.mdb.nuevo/x"_s));

    QCOMPARE(failureOf([&] { static_cast<void>(make(folder)); }), kDatabaseAlreadyExists);

    QVERIFY(!QFile::exists(folder.path()));
}

void NewFileTest::nameTakenMeanwhileIsLeftAlone()
{
    const StoreFolder folder;
    auto store = make(folder);
    QFile other(folder.path());
    QVERIFY(other.open(QIODevice::WriteOnly));
    QCOMPARE(other.write("other"), 5);
    other.close();

    store.reset();

    QCOMPARE(QFile(folder.path()).size(), 5);
    QVERIFY(!QFile::exists(folder.path(kWorkingName)));
}

void NewFileTest::secondMakerWaitsAndFindsTheStore()
{
    const StoreFolder folder;
    std::unique_ptr<Connection> first = make(folder);
    first->createTable(clients());
    std::atomic<bool> isOver = false;
    std::future<int> second = std::async(std::launch::async, [&] {
        const int number = failureOf([&] { static_cast<void>(make(folder)); });
        isOver = true;
        return number;
    });
    QVERIFY(QTest::qWaitFor([&] { return isWaited(folder); }));
    QVERIFY(!isOver);

    first.reset();

    QCOMPARE(second.get(), kDatabaseAlreadyExists);
    QCOMPARE(folder.open()->tables().size(), 1);
}

void NewFileTest::makerDoesNotWaitForThoseWhoOpen()
{
    const StoreFolder folder;
    make(folder)->createTable(clients());
    const auto open = folder.open();

    QCOMPARE(failureOf([&] { static_cast<void>(make(folder)); }), kDatabaseAlreadyExists);
    QVERIFY(QFile::remove(folder.path()));
    QCOMPARE(failureOf([&] { static_cast<void>(make(folder)); }), kNoFailure);
}

void NewFileTest::journalOfADeletedStoreIsNotTakenOver()
{
    const StoreFolder folder;
    {
        const StoreFolder other;
        static_cast<void>(other.createClients());
        RawSqlite writer(other.path());
        // A small cache makes SQLite write the journal in the middle of the transaction.
        writer.run(
            "PRAGMA cache_size = 2; BEGIN IMMEDIATE; WITH RECURSIVE r(n) AS (SELECT 1 UNION ALL SELECT "
            "n + 1 FROM r WHERE n < 2000) INSERT INTO CLIENTES SELECT n, 'x', n, 'y' FROM r");
        QVERIFY(QFile::copy(other.path(u"Clientes.mdb-journal"_s), folder.path(u"Clientes.mdb-journal"_s)));
    }

    std::unique_ptr<Connection> store = make(folder);
    store->createTable(clients());
    store->openTable(u"CLIENTES"_s)->insert(client(u"A"_s, u"Ana"_s));
    store.reset();

    QCOMPARE(folder.open()->openTable(u"CLIENTES"_s)->count(), 1);
    QCOMPARE(folder.open()->integrityFaults(), QStringList());
}

void NewFileTest::unfinishedStoreGetsNoName()
{
    const StoreFolder folder;
    std::unique_ptr<Connection> store = make(folder);
    store->createTable(clients());
    // Something that SQLite can't take back stands beside the file.
    QVERIFY(QDir(folder.path({})).mkpath(u"Clientes.mdb.nuevo-journal/x"_s));

    store.reset();

    QVERIFY(!QFile::exists(folder.path()));
}

QTEST_GUILESS_MAIN(NewFileTest)
#include "tst_newfile.moc"
