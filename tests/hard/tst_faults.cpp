// SPDX-License-Identifier: GPL-3.0-or-later

// The disk refuses one call after the other while the store procedures and the saves run. Afterwards every
// store is sound, and the outcome is that of the same work with the one statement failing that the refused
// call belonged to: the regimes decide, and nothing else is lost.

#include "hard/examiner.h"
#include "hard/faultydisk.h"
#include "hard/form.h"
#include "hard/works.h"
#include "platform/core/failurenumbers.h"
#include "platform/dao/freshness.h"
#include "support/failingengine.h"

#include <QtTest>

#include <sqlite3.h>

using namespace Qt::StringLiterals;
using namespace hardtest;
using testsupport::FailingEngine;

namespace {

constexpr DiskFault kFaults[] = {
    {"open", VfsCall::Open, SQLITE_CANTOPEN, false},
    {"read", VfsCall::Read, SQLITE_IOERR_READ, false},
    {"write", VfsCall::Write, SQLITE_IOERR_WRITE, false},
    {"write, full", VfsCall::Write, SQLITE_FULL, false},
    {"sync", VfsCall::Sync, SQLITE_IOERR_FSYNC, false},
    {"truncate", VfsCall::Truncate, SQLITE_IOERR_TRUNCATE, false},
    {"size", VfsCall::FileSize, SQLITE_IOERR_FSTAT, false},
    {"lock", VfsCall::Lock, SQLITE_IOERR_LOCK, false},
    {"lock, busy", VfsCall::Lock, SQLITE_BUSY, false},
    {"delete", VfsCall::Delete, SQLITE_IOERR_DELETE, false},
    {"access", VfsCall::Access, SQLITE_IOERR_ACCESS, false},
};

/// Refusals after which a statement may have been carried out although it is told as failed, and disks that
/// never come back: the stores are looked at, not the statements.
constexpr DiskFault kUncertainFaults[] = {
    {"sync of the folder", VfsCall::SyncFolder, SQLITE_IOERR_DIR_FSYNC, false},
    {"read for good", VfsCall::Read, SQLITE_IOERR_READ, true},
    {"write for good", VfsCall::Write, SQLITE_IOERR_WRITE, true},
    {"full for good", VfsCall::Write, SQLITE_FULL, true},
    {"sync for good", VfsCall::Sync, SQLITE_IOERR_FSYNC, true},
    {"delete for good", VfsCall::Delete, SQLITE_IOERR_DELETE, true},
    {"open for good", VfsCall::Open, SQLITE_CANTOPEN, true},
};

/// Numbers that a refused call of the disk may come as; a handler may tell them apart.
constexpr int kNumbers[] = {platform::kDiskOrNetworkError, platform::kLockedByAnother,
                            platform::kDiskFull,           platform::kCannotOpenFile,
                            platform::kCouldNotLockFile,   platform::kNotADatabase};

struct Outcome
{
    QList<Content> stores;
    QStringList messages;

    bool operator==(const Outcome& other) const = default;
    [[nodiscard]] bool isSoundToday() const { return std::all_of(stores.begin(), stores.end(), &isSound); }
};

QString textOf(const Outcome& outcome)
{
    return QString::fromUtf8(outcome.stores.join(' ')) + u" | "_s + outcome.messages.join(u" | "_s);
}

/// One piece of work that can be done over with a fault on the disk or in the engine.
class Trial
{
public:
    explicit Trial(const Work& work)
        : m_scene(work)
        , m_vfs(m_disk)
        , m_engine(std::make_shared<FailingEngine>())
    {
        platform::dao::DBEngine().setStorage(m_engine);
        m_undisturbed = outcome([] {});
    }
    ~Trial()
    {
        m_scene.close();
        platform::dao::DBEngine().setStorage(nullptr);
    }
    Trial(const Trial&) = delete;
    Trial& operator=(const Trial&) = delete;

    [[nodiscard]] const Outcome& undisturbed() const { return m_undisturbed; }

    /// Calls of the fault's kind when nothing fails.
    [[nodiscard]] int callsOf(const DiskFault& fault)
    {
        static_cast<void>(outcome([&] { m_disk.arm(fault, 0); }));
        return m_disk.calls();
    }
    [[nodiscard]] Outcome withFault(const DiskFault& fault, int nth)
    {
        m_operation = 0;
        return outcome([&] { m_disk.arm(fault, nth, [this] { m_operation = m_engine->count(); }); });
    }
    [[nodiscard]] bool hasRefused() const { return m_disk.hasRefused(); }

    /// True when the outcome is that of the work with the operation failing, by some number, during which the
    /// disk refused last; or of undisturbed work, where the refusal could be made good.
    [[nodiscard]] bool isDemanded(const Outcome& found)
    {
        if (found == m_undisturbed)
            return true;
        const int operation = m_operation;
        return std::any_of(std::begin(kNumbers), std::end(kNumbers),
                           [&](int number) { return found == withFailure(operation, number); });
    }

private:
    const Outcome& withFailure(int operation, int number)
    {
        Outcome& known = m_known[{operation, number}];
        if (known.stores.isEmpty())
            known = outcome([&] { m_engine->failNth(operation, number); });
        return known;
    }

    Outcome outcome(const std::function<void()>& prepareFault)
    {
        m_scene.restore();
        m_engine->restart();
        m_scene.ready();
        m_engine->restart();
        prepareFault();
        m_scene.run();
        m_disk.disarm();
        m_engine->restart();
        m_scene.close();
        Outcome found;
        for (const QString& store : m_scene.work().stores)
            found.stores.append(contentOf(m_scene.fixture.root.path(store)));
        found.messages = m_scene.fixture.messages.texts();
        return found;
    }

    Scene m_scene;
    FaultyDisk m_disk;
    ObservedVfs m_vfs;
    std::shared_ptr<FailingEngine> m_engine;
    Outcome m_undisturbed;
    int m_operation = 0;
    QMap<QPair<int, int>, Outcome> m_known;
};

/// Which of the calls to refuse: each one in the long form, some spread over all in the short one.
QList<int> chosen(int calls, int shortCount)
{
    QList<int> numbers;
    const int step = byForm(std::max(1, calls / shortCount), 1);
    // The last call is often the one that makes a change lasting, so count from there.
    for (int nth = calls; nth > 0; nth -= step)
        numbers.prepend(nth);
    return numbers;
}

} // namespace

class FaultsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { platform::dao::setRowFreshness(std::chrono::hours(1)); }
    void cleanupTestCase();
    void refusedCallFailsItsStatementAlone_data() { addWorks(); }
    void refusedCallFailsItsStatementAlone();
    void storesStaySoundOnADiskThatIsGone_data() { addWorks(); }
    void storesStaySoundOnADiskThatIsGone();

private:
    static void addWorks();

    int m_refused = 0;
};

void FaultsTest::cleanupTestCase()
{
    platform::dao::setRowFreshness(platform::dao::kRowFreshness);
    qInfo("%d calls refused", m_refused);
}

void FaultsTest::addWorks()
{
    QTest::addColumn<QByteArray>("name");
    for (const Work& work : works())
        QTest::newRow(work.name) << QByteArray(work.name);
}

void FaultsTest::refusedCallFailsItsStatementAlone()
{
    constexpr int kShortCount = 3;
    QFETCH(const QByteArray, name);
    Trial trial(work(name));
    QVERIFY(trial.undisturbed().isSoundToday());

    for (const DiskFault& fault : kFaults) {
        for (const int nth : chosen(trial.callsOf(fault), kShortCount)) {
            const Outcome found = trial.withFault(fault, nth);
            const QByteArray where = name + ", " + fault.name + ' ' + QByteArray::number(nth);
            QVERIFY2(trial.hasRefused(), where.constData());
            QVERIFY2(found.isSoundToday(), (where + ": " + textOf(found).toUtf8()).constData());
            QVERIFY2(trial.isDemanded(found), (where + ": " + textOf(found).toUtf8() + " instead of " +
                                               textOf(trial.undisturbed()).toUtf8())
                                                  .constData());
            ++m_refused;
        }
    }
}

void FaultsTest::storesStaySoundOnADiskThatIsGone()
{
    constexpr int kShortCount = 2;
    QFETCH(const QByteArray, name);
    Trial trial(work(name));

    for (const DiskFault& fault : kUncertainFaults) {
        for (const int nth : chosen(trial.callsOf(fault), kShortCount)) {
            const Outcome found = trial.withFault(fault, nth);
            const QByteArray where = name + ", " + fault.name + ' ' + QByteArray::number(nth);
            QVERIFY2(trial.hasRefused(), where.constData());
            QVERIFY2(found.isSoundToday(), (where + ": " + textOf(found).toUtf8()).constData());
            ++m_refused;
        }
    }
}

QTEST_MAIN(FaultsTest)
#include "tst_faults.moc"
