// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/core/failurenumbers.h"
#include "platform/storage/sqlite/gate.h"
#include "platform/storage/sqlite/heldreading.h"
#include "platform/storage/sqlite/presence.h"
#include "platform/storage/sqlite/rangelock.h"
#include "platform/storage/storefixture.h"

#include <QTest>

#include <memory>
#include <optional>
#include <thread>

using namespace platform;
using namespace platform::storage;
using namespace platform::storage::sqlite;
using namespace platform::storage::test;

namespace {

/// A reading that stays behind the gate until someone needs the store.
class Held
{
public:
    explicit Held(const QString& path)
        : m_sidecar(std::in_place, path)
    {
        takePresence(*m_sidecar, Sharing::Shared);
        m_pass = std::make_unique<Pass>(*m_sidecar);
        m_held.emplace([this] { end(); });
    }
    [[nodiscard]] bool hasEnded() const { return !m_pass; }

private:
    struct Pass
    {
        explicit Pass(const Sidecar& sidecar)
            : pass(GatePass::forReading(sidecar, Task::Read))
        {}
        GatePass pass;
    };

    void end()
    {
        m_pass.reset();
        m_sidecar.reset();
        m_held.reset();
    }

    std::optional<Sidecar> m_sidecar;
    std::unique_ptr<Pass> m_pass;
    std::optional<HeldReading> m_held;
};

} // namespace

class HeldReadingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readerBesideItLeavesItAlone();
    void writerOfTheSameThreadEndsIt();
    void readerBehindAWaitingStationEndsIt();
    void openingForOneAloneEndsIt();
    void readingOfAnotherThreadIsLeftAlone();
    void withoutOneNothingEnds();
};

void HeldReadingTest::readerBesideItLeavesItAlone()
{
    const StoreFolder folder;
    const Held held(folder.path());
    const Sidecar sidecar(folder.path());

    QCOMPARE(failureOf([&] { const GatePass pass = GatePass::forReading(sidecar, Task::Read); }), kNoFailure);

    QVERIFY(!held.hasEnded());
}

void HeldReadingTest::writerOfTheSameThreadEndsIt()
{
    const StoreFolder folder;
    const Held held(folder.path());
    const Sidecar sidecar(folder.path());

    QCOMPARE(failureOf([&] { const GatePass pass = GatePass::forWriting(sidecar, Task::Write); }),
             kNoFailure);

    QVERIFY(held.hasEnded());
}

void HeldReadingTest::readerBehindAWaitingStationEndsIt()
{
    const StoreFolder folder;
    const Held held(folder.path());
    const Sidecar sidecar(folder.path());
    int stationFailed = -1;
    std::thread station([&] {
        const Sidecar other(folder.path());
        stationFailed = failureOf([&] { const GatePass pass = GatePass::forWriting(other, Task::Write); });
    });
    // The station stands in the turnstile.
    const auto turnstileIsTaken = [&] {
        const LockResult trial = tryLock(sidecar.descriptor(), kTurnstileByte, LockKind::Exclusive);
        if (trial == LockResult::Taken)
            unlock(sidecar.descriptor(), kTurnstileByte);
        return trial == LockResult::Refused;
    };
    while (!turnstileIsTaken())
        std::this_thread::yield();

    QCOMPARE(failureOf([&] { const GatePass pass = GatePass::forReading(sidecar, Task::Read); }), kNoFailure);

    station.join();
    QCOMPARE(stationFailed, kNoFailure);
    QVERIFY(held.hasEnded());
}

void HeldReadingTest::openingForOneAloneEndsIt()
{
    const StoreFolder folder;
    const Held held(folder.path());
    const Sidecar sidecar(folder.path());

    QCOMPARE(failureOf([&] { takePresence(sidecar, Sharing::Exclusive); }), kNoFailure);

    QVERIFY(held.hasEnded());
}

void HeldReadingTest::readingOfAnotherThreadIsLeftAlone()
{
    bool asked = false;
    const HeldReading mine([&asked] { asked = true; });

    std::thread other([] { finishHeldReadings(); });
    other.join();

    QVERIFY(!asked);
}

void HeldReadingTest::withoutOneNothingEnds()
{
    QVERIFY(!finishHeldReadings());
}

QTEST_GUILESS_MAIN(HeldReadingTest)
#include "tst_heldreading.moc"
