// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/core/failurenumbers.h"
#include "platform/storage/otherstation.h"
#include "platform/storage/sqlite/gate.h"
#include "platform/storage/sqlite/rangelock.h"
#include "platform/storage/storefixture.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTest>

#include <atomic>
#include <csignal>
#include <thread>

#include <pthread.h>

using namespace platform;
using namespace platform::storage;
using namespace platform::storage::sqlite;
using namespace platform::storage::test;

class GateTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readersShareTheRoom();
    void writerOfTheSameProcessKeepsReadersOut();
    void waitIsBoundedToTwoSeconds();
    void waitEndsWhenTheOtherStationLeaves();
    void waitEndsWhenTheOtherStationDies();
    void readerThatComesLaterQueuesBehindTheWaitingWriter();
    void turnstileIsFreeAfterAWaitThatFailed();
    void otherSignalsDoNotEndTheWait();
    void refusalHasTheNumberOfTheTask_data();
    void refusalHasTheNumberOfTheTask();
    void fileThatCannotBeLockedIsUnavailable();
    void sidecarIsNeverDeleted();
    void sidecarStaysEmpty();
};

namespace {

int readingFailure(const Sidecar& sidecar)
{
    return failureOf([&] { const GatePass pass = GatePass::forReading(sidecar, Task::Read); });
}

int writingFailure(const Sidecar& sidecar)
{
    return failureOf([&] { const GatePass pass = GatePass::forWriting(sidecar, Task::Write); });
}

} // namespace

void GateTest::readersShareTheRoom()
{
    const StoreFolder folder;
    const Sidecar first(folder.path());
    const Sidecar second(folder.path());
    const GatePass pass = GatePass::forReading(first, Task::Read);

    QCOMPARE(readingFailure(second), kNoFailure);
}

void GateTest::writerOfTheSameProcessKeepsReadersOut()
{
    const StoreFolder folder;
    const Sidecar first(folder.path());
    const Sidecar second(folder.path());
    const GatePass pass = GatePass::forWriting(first, Task::Write);

    QCOMPARE(readingFailure(second), kLockedByAnother);
}

void GateTest::waitIsBoundedToTwoSeconds()
{
    const StoreFolder folder;
    const OtherStation other(folder.path(), u"reading"_s);
    QCOMPARE(other.answer(), u"held"_s);
    const Sidecar sidecar(folder.path());
    QElapsedTimer timer;
    timer.start();

    QCOMPARE(writingFailure(sidecar), kLockedByAnother);

    QVERIFY(timer.elapsed() >= 1900);
    QVERIFY(timer.elapsed() < 4000);
}

void GateTest::waitEndsWhenTheOtherStationLeaves()
{
    const StoreFolder folder;
    OtherStation other(folder.path(), u"writing"_s);
    int result = -1;
    std::thread waiting([&] {
        const Sidecar sidecar(folder.path());
        result = writingFailure(sidecar);
    });

    other.leave();
    waiting.join();

    QCOMPARE(result, kNoFailure);
}

void GateTest::waitEndsWhenTheOtherStationDies()
{
    const StoreFolder folder;
    OtherStation other(folder.path(), u"writing"_s);

    other.crash();

    const Sidecar sidecar(folder.path());
    QCOMPARE(writingFailure(sidecar), kNoFailure);
}

void GateTest::readerThatComesLaterQueuesBehindTheWaitingWriter()
{
    const StoreFolder folder;
    const Sidecar reader(folder.path());
    const Sidecar later(folder.path());
    int result = -1;
    std::thread writer;
    {
        const GatePass pass = GatePass::forReading(reader, Task::Read);
        writer = std::thread([&] {
            const Sidecar sidecar(folder.path());
            result = writingFailure(sidecar);
        });

        // The writer stands in the turnstile, so a new reader would have to wait behind it.
        const auto turnstileIsTaken = [&] {
            const LockResult trial = tryLock(later.descriptor(), kTurnstileByte, LockKind::Exclusive);
            if (trial == LockResult::Taken)
                unlock(later.descriptor(), kTurnstileByte);
            return trial == LockResult::Refused;
        };
        QTRY_VERIFY(turnstileIsTaken());
    }
    writer.join();

    QCOMPARE(result, kNoFailure);
}

void GateTest::turnstileIsFreeAfterAWaitThatFailed()
{
    const StoreFolder folder;
    const Sidecar reader(folder.path());
    const Sidecar writer(folder.path());
    const GatePass pass = GatePass::forReading(reader, Task::Read);
    QCOMPARE(writingFailure(writer), kLockedByAnother);

    const Sidecar later(folder.path());
    QCOMPARE(readingFailure(later), kNoFailure);
}

void GateTest::otherSignalsDoNotEndTheWait()
{
    const StoreFolder folder;
    struct sigaction action = {};
    action.sa_handler = [](int) {};
    struct sigaction before = {};
    sigaction(SIGUSR1, &action, &before);
    const Sidecar reader(folder.path());
    std::atomic<int> result = -1;
    std::thread writer;
    {
        const GatePass pass = GatePass::forReading(reader, Task::Read);
        writer = std::thread([&] {
            const Sidecar sidecar(folder.path());
            result = writingFailure(sidecar);
        });
        for (int i = 0; i < 50; ++i)
            pthread_kill(writer.native_handle(), SIGUSR1);
        QCOMPARE(result.load(), -1);
    }
    writer.join();
    sigaction(SIGUSR1, &before, nullptr);

    QCOMPARE(result.load(), kNoFailure);
}

void GateTest::refusalHasTheNumberOfTheTask_data()
{
    QTest::addColumn<int>("task");
    QTest::addColumn<int>("number");
    QTest::newRow("open") << static_cast<int>(Task::Open) << kCouldNotLockFile;
    QTest::newRow("read") << static_cast<int>(Task::Read) << kLockedByAnother;
    QTest::newRow("update") << static_cast<int>(Task::Write) << kLockedByAnother;
    QTest::newRow("structure") << static_cast<int>(Task::Structure) << kCouldNotLockTable;
}

void GateTest::refusalHasTheNumberOfTheTask()
{
    QFETCH(int, task);
    QFETCH(int, number);

    QCOMPARE(lockedNumber(static_cast<Task>(task)), number);
}

void GateTest::fileThatCannotBeLockedIsUnavailable()
{
    constexpr int kNoDescriptor = -1;

    QVERIFY(tryLock(kNoDescriptor, kRoomByte, LockKind::Shared) == LockResult::Unavailable);
}

void GateTest::sidecarIsNeverDeleted()
{
    const StoreFolder folder;
    static_cast<void>(folder.create());

    QVERIFY(QFile::exists(folder.path(u"Clientes.mdb.ldb"_s)));
}

void GateTest::sidecarStaysEmpty()
{
    const StoreFolder folder;
    const auto connection = folder.createClients();

    QCOMPARE(QFile(folder.path(u"Clientes.mdb.ldb"_s)).size(), 0);
}

QTEST_GUILESS_MAIN(GateTest)
#include "tst_gate.moc"
