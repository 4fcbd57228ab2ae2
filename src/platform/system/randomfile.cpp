// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/system/randomfile.h"

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"
#include "platform/system/paths.h"

#include <QFile>

#include <fcntl.h>
#include <unistd.h>

namespace platform {

namespace {

constexpr int kBadFileNumber = 52;
constexpr int kBadRecordLength = 59;
constexpr int kPermissionDenied = 70;

} // namespace

RandomFile::~RandomFile()
{
    close();
}

void RandomFile::open(const QString& path, qsizetype recordLength)
{
    if (recordLength < 1)
        throw Failure(kInvalidProcedureCall);
    const QByteArray name = QFile::encodeName(nativePath(path));
    const int descriptor = ::open(name.constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    if (descriptor < 0)
        throw Failure(kFileNotFound, path);
    close();
    m_descriptor = descriptor;
    m_recordLength = recordLength;
}

void RandomFile::lock(qint64 record)
{
    setLock(record, F_WRLCK);
}

void RandomFile::unlock(qint64 record)
{
    setLock(record, F_UNLCK);
}

void RandomFile::setLock(qint64 record, short type)
{
    if (m_descriptor < 0)
        throw Failure(kBadFileNumber);
    struct flock range = {};
    range.l_type = type;
    range.l_whence = SEEK_SET;
    range.l_start = (record - 1) * m_recordLength;
    range.l_len = m_recordLength;
    if (fcntl(m_descriptor, F_OFD_SETLK, &range) != 0)
        throw Failure(kPermissionDenied);
}

void RandomFile::put(qint64 record, const QByteArray& bytes)
{
    if (m_descriptor < 0)
        throw Failure(kBadFileNumber);
    if (bytes.size() > m_recordLength)
        throw Failure(kBadRecordLength);
    const QByteArray whole = bytes.leftJustified(m_recordLength, '\0');
    if (pwrite(m_descriptor, whole.constData(), static_cast<std::size_t>(whole.size()),
               (record - 1) * m_recordLength) != whole.size())
        throw Failure(kDiskOrNetworkError);
}

void RandomFile::close()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
    m_descriptor = -1;
}

} // namespace platform
