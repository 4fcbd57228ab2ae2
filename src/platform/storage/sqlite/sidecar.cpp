// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/storage/sqlite/sidecar.h"

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"
#include "platform/storage/sqlite/locktrial.h"

#include <QFile>

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace platform::storage::sqlite {

namespace {

constexpr mode_t kReadWriteBits = 0666;

/// Everyone who may open the store must be able to lock its sidecar, whatever the maker's mask.
void takeOverPermissions(int descriptor, const QByteArray& storePath)
{
    struct stat store = {};
    if (stat(storePath.constData(), &store) == 0)
        static_cast<void>(fchmod(descriptor, store.st_mode & kReadWriteBits));
}

void requireTrueLocks(int descriptor, const QByteArray& path)
{
    switch (tryLocking(descriptor, path)) {
    case Locking::True:
        return;
    case Locking::Local:
        throw Failure(kCouldNotLockFile, u"the share keeps locks on this machine alone"_s);
    case Locking::None:
        throw Failure(kCouldNotLockFile, u"the file system does not lock"_s);
    }
}

} // namespace

Sidecar::Sidecar(const QString& storePath)
{
    const QByteArray store = QFile::encodeName(storePath);
    const QByteArray path = store + ".ldb";
    m_descriptor = open(path.constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, kReadWriteBits);
    if (m_descriptor >= 0)
        takeOverPermissions(m_descriptor, store);
    else if (errno == EEXIST)
        m_descriptor = open(path.constData(), O_RDWR | O_CLOEXEC);
    m_writable = m_descriptor >= 0;
    if (m_descriptor < 0)
        m_descriptor = open(path.constData(), O_RDONLY | O_CLOEXEC);
    if (m_descriptor >= 0)
        m_line = std::make_unique<WaitingLine>(m_descriptor);
    if (!m_writable)
        return;
    try {
        requireTrueLocks(m_descriptor, path);
    } catch (const Failure&) {
        close(m_descriptor);
        throw;
    }
}

Sidecar::~Sidecar()
{
    if (m_descriptor >= 0)
        close(m_descriptor);
}

} // namespace platform::storage::sqlite
