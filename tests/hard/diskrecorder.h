// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Notes what the store engine does to its files: SQLite's calls by way of the observed layer, and the
// engine's own renamings and syncs, which the linker leads past this file. Calls of the data access objects
// are noted as acknowledgements: when the next one begins, the program has been told that the last one is
// done.

#include "hard/disk.h"
#include "hard/observedvfs.h"

#include <QSet>

namespace hardtest {

/// How SQLite is to work while a recorder lives.
struct JournalMode
{
    const char* name;
    /// PRAGMAs that stand in place of the engine's own; null for the engine's choice.
    const char* pragmas;
};

class DiskRecorder final : public VfsObserver
{
public:
    /// Takes the files below the folder as synced and begins to note. One at a time.
    DiskRecorder(const QByteArray& folder, const JournalMode& mode);
    ~DiskRecorder() override;
    DiskRecorder(const DiskRecorder&) = delete;
    DiskRecorder& operator=(const DiskRecorder&) = delete;

    [[nodiscard]] const DiskImage& start() const { return m_start; }
    [[nodiscard]] const QList<DiskEvent>& events() const { return m_events; }

    void noteRenamed(const QByteArray& from, const QByteArray& to);
    void noteUnlinked(const QByteArray& path);
    void noteFolderSynced(const QByteArray& folder);

    void after(const VfsEvent& event) override;
    bool swallowsPragma(QByteArrayView name) override;

private:
    void note(DiskEvent event) { m_events.append(std::move(event)); }

    DiskImage m_start;
    QSet<QByteArray> m_known; ///< names that stand for a file at the moment
    QList<DiskEvent> m_events;
    JournalMode m_mode;
    ObservedVfs m_vfs;
};

/// Every file below the folder with its bytes; the lock files left out, which hold none.
[[nodiscard]] DiskImage filesBelow(const QByteArray& folder);

} // namespace hardtest
