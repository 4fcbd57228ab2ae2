// SPDX-License-Identifier: GPL-3.0-or-later

// Stores on file systems whose locks lie. The system's `fcntl` is led here by the linker and plays the share.

#include "platform/core/failurenumbers.h"
#include "platform/storage/damage.h"
#include "platform/storage/otherstation.h"
#include "platform/storage/sqlite/locktrial.h"
#include "platform/storage/sqlite/sidecar.h"

#include <QDir>
#include <QElapsedTimer>

#include <cerrno>
#include <cstdarg>

#include <fcntl.h>

using namespace platform;
using namespace platform::storage;
using namespace platform::storage::sqlite;
using namespace platform::storage::test;

namespace {

/// How the share answers the locks of open files.
enum class Share { Honest, SaysYesToAll, RefusesAll, KnowsNone };
Share share = Share::Honest;

bool isFileLock(int command)
{
    return command == F_OFD_SETLK || command == F_OFD_SETLKW;
}

} // namespace

// The linker (`--wrap`) leads the calls here, by names that it forms.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {

int __real_fcntl(int descriptor, int command, ...);
int __wrap_fcntl(int descriptor, int command, ...);
int __wrap_fcntl64(int descriptor, int command, ...);

int __wrap_fcntl(int descriptor, int command, ...)
{
    std::va_list arguments;
    va_start(arguments, command);
    void* argument = va_arg(arguments, void*);
    va_end(arguments);
    if (!isFileLock(command) || share == Share::Honest)
        return __real_fcntl(descriptor, command, argument);
    switch (share) {
    case Share::RefusesAll:
        errno = ENOLCK;
        return -1;
    case Share::KnowsNone:
        errno = EINVAL;
        return -1;
    default:
        return 0;
    }
}

int __wrap_fcntl64(int descriptor, int command, ...)
{
    std::va_list arguments;
    va_start(arguments, command);
    void* argument = va_arg(arguments, void*);
    va_end(arguments);
    return __wrap_fcntl(descriptor, command, argument);
}
}
// NOLINTEND(bugprone-reserved-identifier)

class LockTrialTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { share = Share::Honest; }
    void honestLocksAreTrue();
    void honestLocksAreTrueWhileOthersTryThem();
    void lyingShareGetsNoStore_data();
    void lyingShareGetsNoStore();
    void lyingShareLeavesAStoreAlone_data();
    void lyingShareLeavesAStoreAlone();
    void lyingShareIsFoundBeforeARepair();
    void trialLeavesNoLockBehind();
    void trialCostsNextToNothing();
    void mountOptionsThatKeepLocksLocalAreKnown_data();
    void mountOptionsThatKeepLocksLocalAreKnown();

private:
    static void shares()
    {
        QTest::addColumn<int>("kind");
        QTest::newRow("says yes to every lock") << static_cast<int>(Share::SaysYesToAll);
        QTest::newRow("refuses every lock") << static_cast<int>(Share::RefusesAll);
        QTest::newRow("doesn't know such locks") << static_cast<int>(Share::KnowsNone);
    }
};

void LockTrialTest::honestLocksAreTrue()
{
    const StoreFolder folder;
    const Sidecar sidecar(folder.path());

    QVERIFY(tryLocking(sidecar.descriptor(), QFile::encodeName(folder.path() + u".ldb"_s)) == Locking::True);
}

void LockTrialTest::honestLocksAreTrueWhileOthersTryThem()
{
    const StoreFolder folder;
    const Sidecar sidecar(folder.path());
    const Sidecar other(folder.path());
    QVERIFY(tryLock(other.descriptor(), kTrialByte, LockKind::Exclusive) == LockResult::Taken);

    QVERIFY(tryLocking(sidecar.descriptor(), QFile::encodeName(folder.path() + u".ldb"_s)) == Locking::True);
}

void LockTrialTest::lyingShareGetsNoStore_data()
{
    shares();
}

void LockTrialTest::lyingShareGetsNoStore()
{
    QFETCH(int, kind);
    const StoreFolder folder;
    share = static_cast<Share>(kind);

    QCOMPARE(failureOf([&] { static_cast<void>(folder.create()); }), kCouldNotLockFile);

    QCOMPARE(QDir(QFileInfo(folder.path()).path()).entryList(QDir::Files),
             QStringList{u"Clientes.mdb.ldb"_s});
}

void LockTrialTest::lyingShareLeavesAStoreAlone_data()
{
    shares();
}

void LockTrialTest::lyingShareLeavesAStoreAlone()
{
    QFETCH(int, kind);
    const StoreFolder folder;
    fill(folder, 5);
    const QByteArray before = bytesOf(folder.path());
    share = static_cast<Share>(kind);

    QCOMPARE(failureOf([&] { static_cast<void>(folder.open()); }), kCouldNotLockFile);
    QCOMPARE(failureOf([&] { static_cast<void>(folder.open(Sharing::Exclusive)); }), kCouldNotLockFile);

    QCOMPARE(bytesOf(folder.path()), before);
}

void LockTrialTest::lyingShareIsFoundBeforeARepair()
{
    const StoreFolder folder;
    writeBytes(folder.path(), "no es una base de datos");
    share = Share::SaysYesToAll;

    QCOMPARE(failureOf([&] { folder.engine().repair(folder.path(), {clients()}); }), kCouldNotLockFile);

    QCOMPARE(bytesOf(folder.path()), "no es una base de datos");
}

void LockTrialTest::trialLeavesNoLockBehind()
{
    const StoreFolder folder;
    const Sidecar sidecar(folder.path());
    const Sidecar other(folder.path());

    QVERIFY(tryLock(other.descriptor(), kTrialByte, LockKind::Exclusive) == LockResult::Taken);
}

void LockTrialTest::trialCostsNextToNothing()
{
    constexpr int kRounds = 2000;
    const StoreFolder folder;
    const Sidecar sidecar(folder.path());
    const QByteArray path = QFile::encodeName(folder.path() + u".ldb"_s);
    QElapsedTimer timer;
    timer.start();

    for (int round = 0; round < kRounds; ++round)
        static_cast<void>(tryLocking(sidecar.descriptor(), path));

    const double microseconds = static_cast<double>(timer.nsecsElapsed()) / 1000 / kRounds;
    qInfo("%.1f microseconds a trial", microseconds);
    // A start makes seven and takes many milliseconds; this is the bound of a loaded machine.
    QVERIFY(microseconds < 500);
}

void LockTrialTest::mountOptionsThatKeepLocksLocalAreKnown_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<bool>("isLocal");
    const QByteArray nfs = "52 28 0:47 / /datos rw,relatime shared:1 - nfs4 servidor:/datos rw,vers=4.2,";
    const QByteArray smb = "53 28 0:47 / /datos rw,relatime - cifs //servidor/datos rw,vers=3.1.1,";
    QTest::newRow("NFS as it should be") << QByteArray(nfs + "hard,local_lock=none,addr=10.0.0.1") << false;
    QTest::newRow("NFS without lock daemon") << QByteArray(nfs + "nolock,addr=10.0.0.1") << true;
    QTest::newRow("NFS with local locks") << QByteArray(nfs + "local_lock=all") << true;
    QTest::newRow("NFS with local range locks") << QByteArray(nfs + "local_lock=posix") << true;
    QTest::newRow("NFS with local whole-file locks") << QByteArray(nfs + "local_lock=flock") << false;
    QTest::newRow("SMB as it should be") << QByteArray(smb + "cache=strict") << false;
    QTest::newRow("SMB without range locks") << QByteArray(smb + "cache=strict,nobrl") << true;
    QTest::newRow("another mount") << QByteArray(nfs + "nolock").replace("0:47", "0:48") << false;
    QTest::newRow("a cut line") << QByteArray("52 28 0:47 / /datos") << false;
    QTest::newRow("nothing") << QByteArray() << false;
}

void LockTrialTest::mountOptionsThatKeepLocksLocalAreKnown()
{
    QFETCH(QByteArray, line);
    QFETCH(bool, isLocal);

    QCOMPARE(keepsLocksLocal("1 1 8:1 / / rw - ext4 /dev/sda1 rw\n" + line + '\n', 0, 47), isLocal);
}

QTEST_GUILESS_MAIN(LockTrialTest)
#include "tst_locktrial.moc"
