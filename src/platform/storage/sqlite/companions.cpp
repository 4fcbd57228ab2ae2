// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/storage/sqlite/companions.h"

#include <QFile>
#include <QFileInfo>

#include <cstdio>

#include <fcntl.h>
#include <unistd.h>

namespace platform::storage::sqlite {

namespace {

constexpr const char* kCompanions[] = {"-journal", "-wal", "-shm"};

QByteArray native(const QString& path)
{
    return QFile::encodeName(path);
}

} // namespace

void removeWithCompanions(const QString& path) noexcept
{
    unlink(native(path).constData());
    removeCompanions(path);
}

void removeCompanions(const QString& path) noexcept
{
    for (const char* companion : kCompanions)
        unlink((native(path) + companion).constData());
}

bool hasJournal(const QString& path) noexcept
{
    return access((native(path) + kCompanions[0]).constData(), F_OK) == 0;
}

void moveCompanions(const QString& from, const QString& to) noexcept
{
    for (const char* companion : kCompanions)
        static_cast<void>(
            std::rename((native(from) + companion).constData(), (native(to) + companion).constData()));
}

void syncFolderOf(const QString& path) noexcept
{
    const QByteArray folder = native(QFileInfo(path).absolutePath());
    const int descriptor = open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    static_cast<void>(fsync(descriptor));
    close(descriptor);
}

} // namespace platform::storage::sqlite
