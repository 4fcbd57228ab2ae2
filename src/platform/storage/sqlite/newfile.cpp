// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/storage/sqlite/newfile.h"

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"
#include "platform/storage/sqlite/companions.h"
#include "platform/storage/sqlite/rangelock.h"

#include <QFile>

#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace platform::storage::sqlite {

namespace {

/// A store of many tables on a slow share takes some seconds, and it is made once.
constexpr std::chrono::seconds kMakerWait{30};

/// Renames unless the new name is taken; 0 or the system's error.
int renameToFreeName(const QByteArray& from, const QByteArray& to) noexcept
{
    if (renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0)
        return 0;
    if (errno != EINVAL && errno != ENOSYS)
        return errno;
    // A network share may not know how to spare a taken name. Only makers of this very store could take it
    // between the two calls, and they wait for us.
    if (access(to.constData(), F_OK) == 0)
        return EEXIST;
    return std::rename(from.constData(), to.constData()) == 0 ? 0 : errno;
}

} // namespace

void startMaking(const Sidecar& sidecar)
{
    // Without a sidecar the folder can't be written, and so there will be no file either.
    if (!sidecar.exists())
        return;
    const auto deadline = std::chrono::steady_clock::now() + kMakerWait;
    if (lockUntil(sidecar.descriptor(), kMakerByte, LockKind::Exclusive, deadline) != LockResult::Taken)
        throw Failure(kCouldNotLockFile, u"another station makes the file, or the folder doesn't lock"_s);
}

void stopMaking(const Sidecar& sidecar) noexcept
{
    if (sidecar.exists())
        unlock(sidecar.descriptor(), kMakerByte);
}

NewFile::NewFile(const QString& path)
    : m_storePath(path)
    , m_path(path + u".nuevo"_s)
{
    removeWithCompanions(m_path);
}

NewFile::~NewFile()
{
    if (!m_kept)
        removeWithCompanions(m_path);
}

int NewFile::publish() noexcept
{
    if (hasJournal(m_path))
        return kCannotOpenFile;
    // A journal of a store that was deleted would be rolled back into this one.
    removeCompanions(m_storePath);
    const int error = renameToFreeName(QFile::encodeName(m_path), QFile::encodeName(m_storePath));
    if (error != 0)
        return error == EEXIST ? kDatabaseAlreadyExists : kCannotOpenFile;
    m_path = m_storePath;
    syncFolderOf(m_path);
    return 0;
}

} // namespace platform::storage::sqlite
