// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/storage/sqlite/storecopy.h"

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"
#include "platform/storage/sqlite/openfile.h"
#include "platform/system/durable.h"

#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>

namespace platform::storage::sqlite {

namespace {

/// Pages of one slice, some 1 MB: a matter of milliseconds.
constexpr int kSlicePages = 256;

Database makeCopyFile(const QString& path)
{
    if (QFileInfo::exists(path))
        throw Failure(kDatabaseAlreadyExists, path);
    sqlite3* handle = nullptr;
    const int code = sqlite3_open_v2(
        path.toUtf8().constData(), &handle,
        SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, nullptr);
    Database copy(handle);
    if (code != SQLITE_OK)
        fail(code, handle, Task::Open);
    // A copy that a crash leaves unfinished is never used, so nothing of it needs to be taken back.
    copy.execute("PRAGMA journal_mode = OFF", Task::Open);
    copy.execute("PRAGMA synchronous = OFF", Task::Open);
    return copy;
}

/// SQLite's backup of one handle's file into another's.
class Backup
{
public:
    Backup(const Database& from, const Database& to)
        : m_to(to)
        , m_backup(sqlite3_backup_init(to.get(), "main", from.get(), "main"))
    {
        if (!m_backup)
            fail(sqlite3_extended_errcode(to.get()), to.get(), Task::Read);
    }

    /// Copies a slice. True when that was the last one. It begins anew by itself where the store has changed
    /// since the last slice.
    [[nodiscard]] bool copySlice()
    {
        const int code = sqlite3_backup_step(m_backup.get(), kSlicePages);
        if (code != SQLITE_OK && code != SQLITE_DONE)
            fail(code, m_to.get(), Task::Read);
        return code == SQLITE_DONE;
    }
    /// Slices of the whole store, known after the first.
    [[nodiscard]] int slices() const { return sqlite3_backup_pagecount(m_backup.get()) / kSlicePages + 1; }

private:
    struct Finish
    {
        void operator()(sqlite3_backup* backup) const noexcept { sqlite3_backup_finish(backup); }
    };
    const Database& m_to;
    std::unique_ptr<sqlite3_backup, Finish> m_backup;
};

} // namespace

StoreCopy::StoreCopy(const QString& from, const QString& to)
    : m_from(from)
    , m_to(to)
    , m_store(openStore(from, Sharing::Shared))
    , m_copy(makeCopyFile(to))
{}

void StoreCopy::copyAhead()
{
    Backup backup(m_store->database(), m_copy);
    bool isWhole = false;
    for (int slice = 0; !isWhole && slice <= 2 * backup.slices(); ++slice) {
        const Reading reading(*m_store);
        isWhole = backup.copySlice();
        if (isWhole)
            m_copied = m_store->changeNumber();
    }
}

bool StoreCopy::enter(std::chrono::milliseconds wait)
{
    try {
        m_stay.emplace(m_store->sidecar(), wait);
        return true;
    } catch (const Failure& failure) {
        if (failure.number() != lockedNumber(Task::Read))
            throw;
        return false;
    }
}

bool StoreCopy::copyInside(Deadline deadline)
{
    if (m_copied == m_store->changeNumber())
        return true;
    m_copied.reset();
    const Database& original = m_store->database();
    // Keeps tools that don't know the gate from writing between two slices.
    original.execute("BEGIN", Task::Read);
    static_cast<void>(original.number("SELECT count(*) FROM sqlite_master", Task::Read));
    Backup backup(original, m_copy);
    bool isWhole = false;
    while (!isWhole && std::chrono::steady_clock::now() < deadline)
        isWhole = backup.copySlice();
    original.execute("COMMIT", Task::Read);
    if (isWhole)
        m_copied = m_store->changeNumber();
    return isWhole;
}

void StoreCopy::finish()
{
    m_store.reset();
    m_copy = {};
    makeLasting(m_to);
}

} // namespace platform::storage::sqlite
