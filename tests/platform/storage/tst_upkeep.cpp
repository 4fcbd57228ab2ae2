// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/core/failurenumbers.h"
#include "platform/storage/damage.h"
#include "platform/storage/otherstation.h"
#include "platform/storage/upkeep.h"

#include <QDir>

#include <atomic>
#include <thread>

using namespace platform;
using namespace platform::storage;
using namespace platform::storage::test;

class UpkeepTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void copyHoldsTheStore();
    void storesThatRestAreCopiedAtOneMoment();
    void withoutTimeForAllEachStoreIsAMomentOfItsOwn();
    void storeThatChangesMeanwhileIsCopiedAgain();
    void copyOfAStoreUnderWriteIsSound();
    void writersWaitNoLongerThanTheHold();
    void frozenStationMakesTheCopyFailByName();
    void copyLeavesNoHoldBehind();
    void takenNameOfACopyFails();

    void openCopyTakesNoLockAndMakesNoFile();
    void openCopyReadsOnly();
    void openCopyOfGarbageFails();

    void replacedStoreIsKeptUnderANumber();
    void replacementThatIsGivenUpLeavesTheStore();
    void storeInUseIsNotReplaced();
    void missingStoreGetsItsFile();
    void damagedStoreIsReplaced();

    void rowsOfASpoiltPageAreNamed();
    void soundStoreHasLostNothing();
    void indexEntriesOfDeletedRowsAreNoLosses();
};

namespace {

CopyJob jobTo(const StoreFolder& folder, const QString& name = u"copia.mdb"_s)
{
    return {folder.path(), folder.path(name)};
}

qint64 rowsOf(const QString& path)
{
    return openCopy(path)->openTable(u"CLIENTES"_s)->count();
}

/// Another station's thread that adds clients until it is stopped.
class Writer
{
public:
    explicit Writer(const StoreFolder& folder)
        : m_thread([this, &folder] { write(folder); })
    {}
    ~Writer() { stop(); }
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;

    void stop()
    {
        m_isStopped = true;
        if (m_thread.joinable())
            m_thread.join();
    }
    [[nodiscard]] int saved() const { return m_saved; }
    [[nodiscard]] int failures() const { return m_failures; }

private:
    void write(const StoreFolder& folder)
    {
        const auto connection = folder.open();
        const auto table = connection->openTable(u"CLIENTES"_s);
        while (!m_isStopped) {
            const Row row = client(u"W%1"_s.arg(m_saved.load()), u"de otro puesto"_s);
            if (failureOf([&] { table->insert(row); }) == kNoFailure)
                ++m_saved;
            else
                ++m_failures;
        }
    }

    std::atomic<bool> m_isStopped = false;
    std::atomic<int> m_saved = 0;
    std::atomic<int> m_failures = 0;
    std::thread m_thread;
};

} // namespace

void UpkeepTest::copyHoldsTheStore()
{
    const StoreFolder folder;
    fill(folder);

    const CopyAccount account = copyStores({{jobTo(folder)}});

    QCOMPARE(account.moments, 1);
    QCOMPARE(rowsOf(folder.path(u"copia.mdb"_s)), kRows);
    QCOMPARE(RawSqlite(folder.path(u"copia.mdb"_s)).value("PRAGMA integrity_check"), u"ok"_s);
    QCOMPARE(RawSqlite(folder.path(u"copia.mdb"_s)).value("PRAGMA application_id"),
             RawSqlite(folder.path()).value("PRAGMA application_id"));
}

void UpkeepTest::storesThatRestAreCopiedAtOneMoment()
{
    const StoreFolder first;
    const StoreFolder second;
    fill(first, 20);
    fill(second, 30);

    const CopyAccount account = copyStores({{jobTo(first)}, {jobTo(second)}});

    QCOMPARE(account.moments, 1);
    QCOMPARE(rowsOf(first.path(u"copia.mdb"_s)), 20);
    QCOMPARE(rowsOf(second.path(u"copia.mdb"_s)), 30);
}

void UpkeepTest::withoutTimeForAllEachStoreIsAMomentOfItsOwn()
{
    const StoreFolder first;
    const StoreFolder second;
    const StoreFolder third;
    fill(first, 20);
    fill(second, 30);
    fill(third, 10);

    const CopyAccount account =
        copyStores({{jobTo(first), jobTo(second)}, {jobTo(third)}}, std::chrono::milliseconds{0});

    QCOMPARE(account.moments, 3);
    QCOMPARE(rowsOf(second.path(u"copia.mdb"_s)), 30);
}

void UpkeepTest::storeThatChangesMeanwhileIsCopiedAgain()
{
    const StoreFolder first;
    const StoreFolder second;
    fill(first, 20);
    fill(second, 20);
    // The second store's gate is shut, so the first is copied long before the moment of both.
    OtherStation station(second.path(), u"writing"_s);
    CopyAccount account;
    std::thread copying([&] { account = copyStores({{jobTo(first), jobTo(second)}}); });
    QTRY_COMPARE(QFileInfo(first.path(u"copia.mdb"_s)).size(), QFileInfo(first.path()).size());
    first.open()->openTable(u"CLIENTES"_s)->insert(client(u"NUEVO"_s, u"entretanto"_s));
    station.leave();
    copying.join();

    QCOMPARE(account.moments, 1);
    QCOMPARE(rowsOf(first.path(u"copia.mdb"_s)), 21);
}

void UpkeepTest::copyOfAStoreUnderWriteIsSound()
{
    const StoreFolder folder;
    fill(folder);
    Writer writer(folder);
    QTRY_VERIFY(writer.saved() > 3);
    const int before = writer.saved();

    const CopyAccount account = copyStores({{jobTo(folder)}});

    writer.stop();
    QCOMPARE(account.moments, 1);
    QCOMPARE(RawSqlite(folder.path(u"copia.mdb"_s)).value("PRAGMA integrity_check"), u"ok"_s);
    QVERIFY(rowsOf(folder.path(u"copia.mdb"_s)) >= kRows + before);
    QVERIFY(rowsOf(folder.path(u"copia.mdb"_s)) <= kRows + writer.saved());
    QCOMPARE(writer.failures(), 0);
}

void UpkeepTest::writersWaitNoLongerThanTheHold()
{
    const StoreFolder first;
    const StoreFolder second;
    fill(first);
    fill(second);
    Writer writer(first);
    Writer other(second);
    QTRY_VERIFY(writer.saved() > 3 && other.saved() > 3);

    for (int round = 0; round < 10; ++round) {
        const QString name = u"copia%1.mdb"_s.arg(round);
        const CopyAccount account = copyStores({{jobTo(first, name), jobTo(second, name)}});
        QVERIFY(account.longestHold <= kLongestHold);
    }

    writer.stop();
    other.stop();
    QCOMPARE(writer.failures() + other.failures(), 0);
}

void UpkeepTest::frozenStationMakesTheCopyFailByName()
{
    const StoreFolder folder;
    fill(folder, 20);
    const OtherStation station(folder.path(), u"writing"_s);
    QCOMPARE(station.answer(), u"held"_s);

    try {
        copyStores({{jobTo(folder)}});
        QFAIL("a copy was made");
    } catch (const Failure& failure) {
        QCOMPARE(failure.number(), kCouldNotLockFile);
        QCOMPARE(failure.text(), folder.path());
    }
}

void UpkeepTest::copyLeavesNoHoldBehind()
{
    const StoreFolder folder;
    fill(folder, 20);

    copyStores({{jobTo(folder)}});

    QCOMPARE(failureOf([&] { static_cast<void>(folder.open(Sharing::Exclusive)); }), kNoFailure);
}

void UpkeepTest::takenNameOfACopyFails()
{
    const StoreFolder folder;
    fill(folder, 20);
    writeBytes(folder.path(u"copia.mdb"_s), "otra cosa");

    QCOMPARE(failureOf([&] { copyStores({{jobTo(folder)}}); }), kDatabaseAlreadyExists);

    QCOMPARE(bytesOf(folder.path(u"copia.mdb"_s)), "otra cosa");
}

void UpkeepTest::openCopyTakesNoLockAndMakesNoFile()
{
    const StoreFolder folder;
    fill(folder, 20);
    copyStores({{jobTo(folder)}});

    const auto copy = openCopy(folder.path(u"copia.mdb"_s));

    QCOMPARE(copy->openTable(u"CLIENTES"_s)->count(), 20);
    QVERIFY(!QFile::exists(folder.path(u"copia.mdb.ldb"_s)));
    QCOMPARE(RawSqlite(folder.path(u"copia.mdb"_s)).run("DELETE FROM store_metadata"), SQLITE_OK);
}

void UpkeepTest::openCopyReadsOnly()
{
    const StoreFolder folder;
    fill(folder, 20);

    const auto copy = openCopy(folder.path());

    QVERIFY(copy->isReadOnly());
    QCOMPARE(failureOf([&] { copy->openTable(u"CLIENTES"_s)->erase(1); }), kReadOnly);
}

void UpkeepTest::openCopyOfGarbageFails()
{
    const StoreFolder folder;
    writeBytes(folder.path(), QByteArray(5000, 'x'));

    QCOMPARE(failureOf([&] { static_cast<void>(openCopy(folder.path())->tables()); }), kNotADatabase);
    QCOMPARE(failureOf([&] { static_cast<void>(openCopy(folder.path(u"nada.mdb"_s))); }),
             kDatabaseFileNotFound);
}

void UpkeepTest::replacedStoreIsKeptUnderANumber()
{
    const StoreFolder folder;
    fill(folder, 20);
    const QByteArray former = bytesOf(folder.path());
    StoreReplacement replacement(folder.path());
    writeBytes(replacement.workingPath(), "nuevo");

    QCOMPARE(replacement.replace(), folder.path(u"Clientes.mdb.anterior-1"_s));

    QCOMPARE(bytesOf(folder.path()), "nuevo");
    QCOMPARE(bytesOf(folder.path(u"Clientes.mdb.anterior-1"_s)), former);
}

void UpkeepTest::replacementThatIsGivenUpLeavesTheStore()
{
    const StoreFolder folder;
    fill(folder, 20);
    const QByteArray former = bytesOf(folder.path());
    {
        const StoreReplacement replacement(folder.path());
        writeBytes(replacement.workingPath(), "nuevo");
    }

    QCOMPARE(bytesOf(folder.path()), former);
    QCOMPARE(QDir(QFileInfo(folder.path()).path()).entryList(QDir::Files),
             (QStringList{u"Clientes.mdb"_s, u"Clientes.mdb.ldb"_s}));
}

void UpkeepTest::storeInUseIsNotReplaced()
{
    const StoreFolder folder;
    const auto connection = folder.createClients();

    QCOMPARE(failureOf([&] { const StoreReplacement replacement(folder.path()); }), kCouldNotLockFile);

    QVERIFY(!QFile::exists(folder.path(u"Clientes.mdb.anterior-1"_s)));
}

void UpkeepTest::missingStoreGetsItsFile()
{
    const StoreFolder folder;
    StoreReplacement replacement(folder.path());
    writeBytes(replacement.workingPath(), "nuevo");

    QCOMPARE(replacement.replace(), QString());

    QCOMPARE(bytesOf(folder.path()), "nuevo");
}

void UpkeepTest::damagedStoreIsReplaced()
{
    const StoreFolder folder;
    writeBytes(folder.path(), "nada de esto se lee");
    StoreReplacement replacement(folder.path());
    writeBytes(replacement.workingPath(), "nuevo");

    QCOMPARE(replacement.replace(), folder.path(u"Clientes.mdb.anterior-1"_s));

    QCOMPARE(bytesOf(folder.path(u"Clientes.mdb.anterior-1"_s)), "nada de esto se lee");
}

void UpkeepTest::rowsOfASpoiltPageAreNamed()
{
    const StoreFolder folder;
    fill(folder);
    QByteArray bytes = bytesOf(folder.path());
    const quint32 page = clientLeaves(bytes).at(1);
    const QSet<QString> expected = codesOn(bytes, page);
    zeroPage(bytes, page);
    writeBytes(folder.path(), bytes);

    const std::vector<TableLosses> losses = examineStore(folder.path(), {});

    QCOMPARE(losses.size(), 1U);
    QSet<QString> named;
    for (const LostRow& row : losses.front().lost) {
        QCOMPARE(row.columns, QStringList{u"CODIGO"_s});
        named.insert(std::get<QString>(row.key.front()));
    }
    QCOMPARE(named, expected);
    QCOMPARE(losses.front().readable, kRows - expected.size());
    QVERIFY(losses.front().isCertain);
}

void UpkeepTest::soundStoreHasLostNothing()
{
    const StoreFolder folder;
    fill(folder);

    const std::vector<TableLosses> losses = examineStore(folder.path(), {clients()});

    QCOMPARE(losses.size(), 1U);
    QCOMPARE(losses.front().readable, kRows);
    QVERIFY(losses.front().lost.empty());
    QVERIFY(losses.front().isCertain);
}

void UpkeepTest::indexEntriesOfDeletedRowsAreNoLosses()
{
    const StoreFolder folder;
    fill(folder);
    QCOMPARE(RawSqlite(folder.path()).run("DELETE FROM CLIENTES WHERE rowid % 3 > 0"), SQLITE_OK);

    const std::vector<TableLosses> losses = examineStore(folder.path(), {});

    QCOMPARE(losses.front().readable, kRows / 3);
    QVERIFY(losses.front().lost.empty());
}

QTEST_GUILESS_MAIN(UpkeepTest)
#include "tst_upkeep.moc"
