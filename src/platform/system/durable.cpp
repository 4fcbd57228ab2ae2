// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/system/durable.h"

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

void makeLasting(const QString& path)
{
    const int descriptor = open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0)
        throw Failure(kFileNotFound, path);
    const int error = fsync(descriptor) == 0 ? 0 : errno;
    close(descriptor);
    // Some file systems keep no folder to sync; theirs are lasting by themselves.
    if (error != 0 && error != EINVAL)
        throw Failure(error == ENOSPC || error == EDQUOT ? kDiskFull : kDiskOrNetworkError, path);
}

void renameLasting(const QString& from, const QString& to)
{
    if (std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) != 0)
        throw Failure(kCannotOpenFile, to);
    makeLasting(QFileInfo(to).absolutePath());
}

bool isSameFile(const QString& left, const QString& right)
{
    struct stat one = {};
    struct stat other = {};
    return stat(QFile::encodeName(left).constData(), &one) == 0 &&
           stat(QFile::encodeName(right).constData(), &other) == 0 && one.st_dev == other.st_dev &&
           one.st_ino == other.st_ino;
}

} // namespace platform
