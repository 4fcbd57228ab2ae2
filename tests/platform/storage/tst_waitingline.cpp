// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/core/failurenumbers.h"
#include "platform/storage/otherstation.h"
#include "platform/storage/sqlite/gate.h"
#include "platform/storage/sqlite/waitingline.h"
#include "platform/storage/storefixture.h"

#include <QTest>

#include <atomic>
#include <mutex>
#include <thread>

using namespace platform;
using namespace platform::storage;
using namespace platform::storage::sqlite;
using namespace platform::storage::test;

using Clock = std::chrono::steady_clock;

class WaitingLineTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lineOfNobodyIsEmpty();
    void orderIsThatOfComing();
    void stationThatDiesGivesUpItsPlace();
    void waitEndsAtTheDeadline();
    void frozenOnesArePassedOver();
    void whoWasPassedOverIsNotMindedAgain();
    void nobodyIsPassedOverWhileTheTurnstileIsTaken();
    void fileSystemThatCannotTellLeavesTheOrderToTheSystem();
    void whoComesStandsBehindTheOneThatHasYetToWake_data();
    void whoComesStandsBehindTheOneThatHasYetToWake();
    void readersOfTheLineGoInBesideEachOther();
    void manyPassesBesideAFrozenOneCostItOnce();
};

namespace {

/// Whoever freezes isn't passed over within a test.
constexpr std::chrono::hours kForEver{1};

Clock::time_point inTenSeconds()
{
    return Clock::now() + std::chrono::seconds(10);
}

/// An opening of the sidecar that waits for its turn, however long the others take.
struct Patient
{
    explicit Patient(const StoreFolder& folder)
        : sidecar(folder.path())
    {
        sidecar.line().setPatience(kForEver);
    }
    Sidecar sidecar;
};

/// One that passes over whoever doesn't move.
struct Hasty
{
    explicit Hasty(const StoreFolder& folder)
        : sidecar(folder.path())
    {
        sidecar.line().setPatience(std::chrono::milliseconds(1));
    }
    Sidecar sidecar;
};

LockResult takeAndLeaveTurnstile(const Sidecar& sidecar, Place& place, Clock::time_point deadline)
{
    const LockResult result = place.takeTurnstile(deadline);
    if (result == LockResult::Taken)
        unlock(sidecar.descriptor(), kTurnstileByte);
    return result;
}

} // namespace

void WaitingLineTest::lineOfNobodyIsEmpty()
{
    const StoreFolder folder;
    const Patient other(folder);
    const Patient one(folder);
    QVERIFY(one.sidecar.line().isEmpty());
    {
        const Place place(other.sidecar.line());
        QVERIFY(!one.sidecar.line().isEmpty());
    }
    QVERIFY(one.sidecar.line().isEmpty());
}

void WaitingLineTest::orderIsThatOfComing()
{
    constexpr int kStations = 5;
    const StoreFolder folder;
    const Patient first(folder);
    auto front = std::make_unique<Place>(first.sidecar.line());
    std::vector<std::unique_ptr<Patient>> stations;
    std::vector<std::unique_ptr<Place>> places;
    stations.reserve(kStations);
    places.reserve(kStations);
    for (int number = 0; number < kStations; ++number) {
        stations.push_back(std::make_unique<Patient>(folder));
        places.push_back(std::make_unique<Place>(stations.back()->sidecar.line()));
    }
    std::mutex mutex;
    QList<int> order;
    std::vector<std::thread> threads;
    threads.reserve(kStations);

    // Who came last is the first to run.
    for (int number = kStations - 1; number >= 0; --number) {
        const auto at = static_cast<std::size_t>(number);
        threads.emplace_back([&, number, at] {
            const LockResult result = places.at(at)->takeTurnstile(inTenSeconds());
            {
                const std::lock_guard lock(mutex);
                order.append(result == LockResult::Taken ? number : -1);
            }
            unlock(stations.at(at)->sidecar.descriptor(), kTurnstileByte);
            places.at(at).reset();
        });
    }
    front.reset();
    for (std::thread& thread : threads)
        thread.join();

    QCOMPARE(order, QList<int>({0, 1, 2, 3, 4}));
}

void WaitingLineTest::stationThatDiesGivesUpItsPlace()
{
    const StoreFolder folder;
    OtherStation other(folder.path(), u"line"_s);
    QCOMPARE(other.answer(), u"held"_s);
    const Patient one(folder);
    Place place(one.sidecar.line());

    other.crash();

    QVERIFY(takeAndLeaveTurnstile(one.sidecar, place, inTenSeconds()) == LockResult::Taken);
}

void WaitingLineTest::waitEndsAtTheDeadline()
{
    const StoreFolder folder;
    const OtherStation other(folder.path(), u"line"_s);
    const Patient one(folder);
    Place place(one.sidecar.line());

    QVERIFY(place.takeTurnstile(Clock::now() + std::chrono::milliseconds(20)) == LockResult::Refused);
}

void WaitingLineTest::frozenOnesArePassedOver()
{
    const StoreFolder folder;
    const OtherStation frozen(folder.path(), u"line"_s);
    const OtherStation frozenToo(folder.path(), u"line"_s);
    const Hasty one(folder);
    Place place(one.sidecar.line());

    QVERIFY(takeAndLeaveTurnstile(one.sidecar, place, inTenSeconds()) == LockResult::Taken);
}

void WaitingLineTest::whoWasPassedOverIsNotMindedAgain()
{
    const StoreFolder folder;
    const OtherStation frozen(folder.path(), u"line"_s);
    const Hasty one(folder);
    {
        Place place(one.sidecar.line());
        QVERIFY(takeAndLeaveTurnstile(one.sidecar, place, inTenSeconds()) == LockResult::Taken);
    }
    one.sidecar.line().setPatience(kForEver);

    QVERIFY(one.sidecar.line().isEmpty());
    QVERIFY(!Sidecar(folder.path()).line().isEmpty());
    Place again(one.sidecar.line());
    QVERIFY(takeAndLeaveTurnstile(one.sidecar, again, Clock::now()) == LockResult::Taken);
}

void WaitingLineTest::nobodyIsPassedOverWhileTheTurnstileIsTaken()
{
    const StoreFolder folder;
    const OtherStation slow(folder.path(), u"line"_s);
    const Patient atTheTurnstile(folder);
    QVERIFY(tryLock(atTheTurnstile.sidecar.descriptor(), kTurnstileByte, LockKind::Exclusive) ==
            LockResult::Taken);
    const Hasty one(folder);
    {
        Place place(one.sidecar.line());
        QVERIFY(place.takeTurnstile(Clock::now() + std::chrono::milliseconds(100)) == LockResult::Refused);
    }

    QVERIFY(!one.sidecar.line().isEmpty());
}

void WaitingLineTest::fileSystemThatCannotTellLeavesTheOrderToTheSystem()
{
    const StoreFolder folder;
    const Patient other(folder);
    // As if the whole line were locked, which is all that some shares can say.
    QVERIFY(tryLock(other.sidecar.descriptor(), kLineEnd, LockKind::Exclusive) == LockResult::Taken);
    const Patient one(folder);
    Place place(one.sidecar.line());

    QVERIFY(takeAndLeaveTurnstile(one.sidecar, place, Clock::now()) == LockResult::Taken);
}

void WaitingLineTest::whoComesStandsBehindTheOneThatHasYetToWake_data()
{
    QTest::addColumn<bool>("writes");
    QTest::newRow("a reader") << false;
    QTest::newRow("a writer") << true;
}

void WaitingLineTest::whoComesStandsBehindTheOneThatHasYetToWake()
{
    QFETCH(bool, writes);
    const StoreFolder folder;
    const Patient comer(folder);
    const Patient onlooker(folder);
    const auto pass = [&] {
        return failureOf([&] {
            const GatePass stay = writes ? GatePass::forWriting(comer.sidecar, Task::Write)
                                         : GatePass::forReading(comer.sidecar, Task::Read, kForEver);
        });
    };
    // It has just had its turn, and is running.
    QCOMPARE(pass(), kNoFailure);
    OtherStation waiting(folder.path(), u"line"_s);
    const ByteSpan wholeLine{kLineByte, kLineEnd};
    const auto waiter = lockOfOthers(onlooker.sidecar.descriptor(), wholeLine, LockKind::Exclusive);
    QVERIFY(waiter);

    // Turnstile and room are free; yet it stands behind.
    std::atomic<int> result = -1;
    std::thread again([&] { result = pass(); });
    const auto standsBehind = [&] {
        return lockOfOthers(onlooker.sidecar.descriptor(), {waiter->last + 1, kLineEnd}, LockKind::Exclusive)
                   .has_value() ||
               result != -1;
    };
    while (!standsBehind())
        std::this_thread::yield();
    QCOMPARE(result.load(), -1);

    waiting.leave();
    again.join();
    QCOMPARE(result.load(), kNoFailure);
}

void WaitingLineTest::readersOfTheLineGoInBesideEachOther()
{
    const StoreFolder folder;
    const Patient first(folder);
    auto front = std::make_unique<Place>(first.sidecar.line());
    std::atomic<int> inside = 0;
    const auto readBesideTheOther = [&] {
        const Patient reader(folder);
        const GatePass pass = GatePass::forReading(reader.sidecar, Task::Read, kForEver);
        ++inside;
        while (inside < 2)
            std::this_thread::yield();
    };
    std::thread one(readBesideTheOther);
    std::thread other(readBesideTheOther);

    front.reset();
    one.join();
    other.join();

    QCOMPARE(inside.load(), 2);
}

void WaitingLineTest::manyPassesBesideAFrozenOneCostItOnce()
{
    constexpr int kPasses = 200;
    const StoreFolder folder;
    const OtherStation frozen(folder.path(), u"line"_s);
    const Sidecar sidecar(folder.path());

    // All of them have the time that one may take.
    const Clock::time_point end = Clock::now() + kGateWait;
    for (int number = 0; number < kPasses; ++number) {
        QCOMPARE(failureOf([&] { const GatePass pass = GatePass::forWriting(sidecar, Task::Write); }),
                 kNoFailure);
    }

    QVERIFY(Clock::now() < end);
}

QTEST_GUILESS_MAIN(WaitingLineTest)
#include "tst_waitingline.moc"
