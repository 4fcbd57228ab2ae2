// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/storage/sqlite/locktrial.h"

#include "platform/storage/sqlite/sidecar.h"

#include <QFile>
#include <QList>

#include <algorithm>
#include <array>

#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/vfs.h>
#include <unistd.h>

namespace platform::storage::sqlite {

namespace {

/// Two openings of one file conflict, or a third station's trial conflicts with ours: either shows that locks
/// are kept.
bool locksConflict(int first, int second) noexcept
{
    const LockResult one = tryLock(first, kTrialByte, LockKind::Exclusive);
    if (one != LockResult::Taken)
        return one == LockResult::Refused;
    const bool isRefused = tryLock(second, kTrialByte, LockKind::Exclusive) == LockResult::Refused;
    unlock(second, kTrialByte);
    unlock(first, kTrialByte);
    return isRefused;
}

bool isOnShare(int descriptor) noexcept
{
    struct statfs system = {};
    if (fstatfs(descriptor, &system) != 0)
        return false;
    const auto type = static_cast<unsigned long>(system.f_type) & 0xFFFFFFFFUL;
    return type == NFS_SUPER_MAGIC || type == CIFS_SUPER_MAGIC || type == SMB2_SUPER_MAGIC ||
           type == SMB_SUPER_MAGIC;
}

/// Options of NFS and SMB mounts under which locks don't reach the server.
constexpr std::array kLocalOptions{"nolock", "local_lock=all", "local_lock=posix", "nobrl"};

bool hasLocalOption(const QByteArray& options)
{
    const QList<QByteArray> all = options.split(',');
    return std::any_of(kLocalOptions.begin(), kLocalOptions.end(),
                       [&all](const char* option) { return all.contains(option); });
}

bool staysLocal(int descriptor)
{
    struct stat status = {};
    QFile mounts(QStringLiteral("/proc/self/mountinfo"));
    return isOnShare(descriptor) && fstat(descriptor, &status) == 0 && mounts.open(QIODevice::ReadOnly) &&
           keepsLocksLocal(mounts.readAll(), major(status.st_dev), minor(status.st_dev));
}

} // namespace

Locking tryLocking(int descriptor, const QByteArray& path) noexcept
{
    const int second = open(path.constData(), O_RDWR | O_CLOEXEC);
    if (second < 0)
        return Locking::None;
    const bool isKept = locksConflict(descriptor, second);
    close(second);
    if (!isKept)
        return Locking::None;
    return staysLocal(descriptor) ? Locking::Local : Locking::True;
}

bool keepsLocksLocal(const QByteArray& mountInfo, unsigned deviceMajor, unsigned deviceMinor)
{
    // "36 35 98:0 /mnt1 /mnt2 rw,noatime master:1 - ext3 /dev/root rw,errors=continue"
    const QByteArray device = QByteArray::number(deviceMajor) + ':' + QByteArray::number(deviceMinor);
    for (const QByteArray& line : mountInfo.split('\n')) {
        const QList<QByteArray> fields = line.split(' ');
        const qsizetype end = fields.indexOf("-");
        if (end > 5 && fields.at(2) == device && hasLocalOption(fields.at(5) + ',' + fields.value(end + 3)))
            return true;
    }
    return false;
}

} // namespace platform::storage::sqlite
