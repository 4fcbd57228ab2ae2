// SPDX-License-Identifier: GPL-3.0-or-later
#include "hard/diskrecorder.h"

#include "platform/dao/callprobe.h"

#include <QDirIterator>
#include <QFile>

#include <cstdio>

#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

namespace hardtest {

namespace {

DiskRecorder* current = nullptr;
/// Set while our own PRAGMAs run, which nobody may swallow.
bool isSettingUp = false;
const char* pragmasOfNewHandles = nullptr;

/// Called by SQLite for each handle that it opens.
int setUpHandle(sqlite3* handle, char**, const sqlite3_api_routines*)
{
    isSettingUp = true;
    const int code = sqlite3_exec(handle, pragmasOfNewHandles, nullptr, nullptr, nullptr);
    isSettingUp = false;
    return code;
}

using Extension = void (*)();

Extension handleExtension()
{
    return reinterpret_cast<Extension>(&setUpHandle);
}

QByteArray pathOf(int descriptor)
{
    QByteArray path(4096, '\0');
    const QByteArray link = "/proc/self/fd/" + QByteArray::number(descriptor);
    const ssize_t length = readlink(link.constData(), path.data(), static_cast<std::size_t>(path.size()));
    return path.left(length);
}

bool isFolder(int descriptor)
{
    struct stat status = {};
    return fstat(descriptor, &status) == 0 && S_ISDIR(status.st_mode);
}

} // namespace

DiskImage filesBelow(const QByteArray& folder)
{
    DiskImage files;
    QDirIterator entries(QFile::decodeName(folder), QDir::Files, QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        QFile file(entries.next());
        if (!file.fileName().endsWith(QLatin1String(".ldb")) && file.open(QIODevice::ReadOnly))
            files.insert(QFile::encodeName(file.fileName()), file.readAll());
    }
    return files;
}

DiskRecorder::DiskRecorder(const QByteArray& folder, const JournalMode& mode)
    : m_start(filesBelow(folder))
    , m_known(m_start.keyBegin(), m_start.keyEnd())
    , m_mode(mode)
    , m_vfs(*this)
{
    current = this;
    pragmasOfNewHandles = mode.pragmas;
    if (mode.pragmas != nullptr)
        sqlite3_auto_extension(handleExtension());
    platform::dao::setCallProbe([this](QStringView) { note({DiskOp::Acknowledge, {}, {}, 0, {}}); });
}

DiskRecorder::~DiskRecorder()
{
    platform::dao::setCallProbe({});
    sqlite3_cancel_auto_extension(handleExtension());
    current = nullptr;
}

void DiskRecorder::after(const VfsEvent& event)
{
    switch (event.call) {
    case VfsCall::Open:
        if (!event.path.isEmpty() && !m_known.contains(event.path)) {
            m_known.insert(event.path);
            note({DiskOp::Make, event.path, {}, 0, {}});
        }
        break;
    case VfsCall::Write:
        note({DiskOp::Write, event.path, {}, event.offset, event.bytes.toByteArray()});
        break;
    case VfsCall::Truncate:
        note({DiskOp::Truncate, event.path, {}, event.offset, {}});
        break;
    case VfsCall::Sync:
        note({DiskOp::Sync, event.path, {}, 0, {}});
        break;
    case VfsCall::SyncFolder:
        noteFolderSynced(event.path);
        break;
    case VfsCall::Delete:
        noteUnlinked(event.path);
        break;
    default:
        break;
    }
}

bool DiskRecorder::swallowsPragma(QByteArrayView name)
{
    return m_mode.pragmas != nullptr && !isSettingUp && name == "synchronous";
}

void DiskRecorder::noteRenamed(const QByteArray& from, const QByteArray& to)
{
    if (!m_known.remove(from))
        return;
    m_known.insert(to);
    note({DiskOp::Rename, from, to, 0, {}});
}

void DiskRecorder::noteUnlinked(const QByteArray& path)
{
    if (m_known.remove(path))
        note({DiskOp::Unlink, path, {}, 0, {}});
}

void DiskRecorder::noteFolderSynced(const QByteArray& folder)
{
    note({DiskOp::SyncFolder, folder, {}, 0, {}});
}

} // namespace hardtest

// The engine's own calls on names and folders. The linker (`--wrap`) leads them here, by names that it forms.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {

int __real_rename(const char* from, const char* to);
int __real_renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags);
int __real_unlink(const char* path);
int __real_fsync(int descriptor);

int __wrap_rename(const char* from, const char* to);
int __wrap_renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags);
int __wrap_unlink(const char* path);
int __wrap_fsync(int descriptor);

int __wrap_rename(const char* from, const char* to)
{
    const int result = __real_rename(from, to);
    if (result == 0 && hardtest::current != nullptr)
        hardtest::current->noteRenamed(from, to);
    return result;
}

int __wrap_renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags)
{
    const int result = __real_renameat2(fromFolder, from, toFolder, to, flags);
    if (result == 0 && hardtest::current != nullptr)
        hardtest::current->noteRenamed(from, to);
    return result;
}

int __wrap_unlink(const char* path)
{
    const int result = __real_unlink(path);
    if (result == 0 && hardtest::current != nullptr)
        hardtest::current->noteUnlinked(path);
    return result;
}

int __wrap_fsync(int descriptor)
{
    const int result = __real_fsync(descriptor);
    if (result == 0 && hardtest::current != nullptr && hardtest::isFolder(descriptor))
        hardtest::current->noteFolderSynced(hardtest::pathOf(descriptor));
    return result;
}
}
// NOLINTEND(bugprone-reserved-identifier)
