// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/storage/sqlite/damagedfile.h"

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"
#include "platform/storage/sqlite/companions.h"

#include <QFile>

#include <cerrno>
#include <cstdio>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace platform::storage::sqlite {

namespace {

QByteArray native(const QString& path)
{
    return QFile::encodeName(path);
}

bool exists(const QString& path)
{
    struct stat status = {};
    return lstat(native(path).constData(), &status) == 0;
}

} // namespace

DamagedFile::DamagedFile(const QString& path, const AsideNames& names)
    : m_path(path)
    , m_keptStart(path + names.kept)
    , m_replacement(path + names.replacement)
{
    removeWithCompanions(m_replacement);
    putAside();
}

DamagedFile::~DamagedFile()
{
    if (m_replaced)
        return;
    removeWithCompanions(m_replacement);
    moveCompanions(m_kept, m_path);
    if (m_linked)
        unlink(native(m_kept).constData());
    else
        static_cast<void>(std::rename(native(m_kept).constData(), native(m_path).constData()));
}

void DamagedFile::putAside()
{
    for (int number = 1;; ++number) {
        const QString kept = m_keptStart + QString::number(number);
        if (!takeName(kept))
            continue;
        m_kept = kept;
        moveCompanions(m_path, m_kept);
        return;
    }
}

bool DamagedFile::takeName(const QString& kept)
{
    if (exists(kept))
        return false;
    m_linked = link(native(m_path).constData(), native(kept).constData()) == 0;
    if (m_linked)
        return true;
    if (errno == EEXIST)
        return false;
    if (std::rename(native(m_path).constData(), native(kept).constData()) != 0)
        throw Failure(kCannotOpenFile, kept);
    return true;
}

QByteArray DamagedFile::bytes() const
{
    QFile file(m_kept);
    if (!file.open(QIODevice::ReadOnly))
        throw Failure(kCannotOpenFile, m_kept);
    QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        throw Failure(kDiskOrNetworkError, m_kept);
    return bytes;
}

void DamagedFile::replace()
{
    struct stat status = {};
    if (stat(native(m_kept).constData(), &status) == 0)
        static_cast<void>(chmod(native(m_replacement).constData(), status.st_mode & 07777));
    if (std::rename(native(m_replacement).constData(), native(m_path).constData()) != 0)
        throw Failure(kCannotOpenFile, m_path);
    m_replaced = true;
    syncFolderOf(m_path);
}

void DamagedFile::withdraw()
{
    if (m_linked && unlink(native(m_path).constData()) != 0)
        throw Failure(kCannotOpenFile, m_path);
    m_replaced = true;
    syncFolderOf(m_path);
}

} // namespace platform::storage::sqlite
