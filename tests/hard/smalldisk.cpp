// SPDX-License-Identifier: GPL-3.0-or-later
#include "hard/smalldisk.h"

#include <QFile>

#include <sched.h>
#include <sys/mount.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace hardtest {

namespace {

bool writeFile(const char* path, const QByteArray& text)
{
    QFile file(QString::fromLatin1(path));
    return file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && file.write(text) == text.size();
}

/// Root within a name space of users of its own; outside of it the user stays who he is.
bool becomeRootOfOwnSpace()
{
    const uid_t user = geteuid();
    const gid_t group = getegid();
    if (unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0)
        return false;
    return writeFile("/proc/self/setgroups", "deny") &&
           writeFile("/proc/self/uid_map", "0 " + QByteArray::number(user) + " 1") &&
           writeFile("/proc/self/gid_map", "0 " + QByteArray::number(group) + " 1");
}

} // namespace

bool mayMount()
{
    const bool isOwn = unshare(CLONE_NEWNS) == 0 || becomeRootOfOwnSpace();
    return isOwn && mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

SmallDisk::SmallDisk(const QString& folder, int kilobytes)
    : m_folder(folder)
{
    const QByteArray options = "size=" + QByteArray::number(kilobytes) + "k";
    m_mounted = mount("none", QFile::encodeName(folder).constData(), "tmpfs", 0, options.constData()) == 0;
}

SmallDisk::~SmallDisk()
{
    if (m_mounted)
        umount2(QFile::encodeName(m_folder).constData(), MNT_DETACH);
}

QString SmallDisk::fillerPath() const
{
    return m_folder + QStringLiteral("/filler");
}

qint64 SmallDisk::freeBytes() const
{
    struct statvfs status = {};
    statvfs(QFile::encodeName(m_folder).constData(), &status);
    return static_cast<qint64>(status.f_bavail) * static_cast<qint64>(status.f_bsize);
}

void SmallDisk::leaveFree(int kilobytes)
{
    empty();
    QFile filler(fillerPath());
    const qint64 size = freeBytes() - qint64{kilobytes} * 1024;
    if (size < 0 || !filler.open(QIODevice::WriteOnly) || filler.write(QByteArray(size, 'f')) != size)
        qFatal("the small disk can't be filled");
}

void SmallDisk::empty()
{
    QFile::remove(fillerPath());
}

} // namespace hardtest
