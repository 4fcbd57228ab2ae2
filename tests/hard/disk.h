// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A disk as the operating system promises it and no better: what was synced is there after a power cut; of
// what was written since, any part may be there and any part may not. The model is fed with what a program
// did to its files and answers what may be found afterwards.
//
// What it takes for granted: a sector that nobody writes stays as it is, also when its neighbours are torn
// (SQLite calls it powersafe overwrite); a renaming is there or isn't; a sync that succeeded tells the truth.

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QRandomGenerator>

#include <optional>

namespace hardtest {

enum class DiskOp { Make, Write, Truncate, Sync, Unlink, Rename, SyncFolder, Acknowledge };

/// One thing that was done. `Acknowledge` says that the program was told of everything before as done.
struct DiskEvent
{
    DiskOp op;
    QByteArray path;  ///< native; the folder of `SyncFolder`
    QByteArray to;    ///< new name of `Rename`
    qint64 offset{0}; ///< of `Write`; new size of `Truncate`
    QByteArray bytes; ///< of `Write`
};

/// Files by path, whole.
using DiskImage = QMap<QByteArray, QByteArray>;

/// How a power cut treats what isn't synced.
enum class Cut {
    Lost,      ///< nothing of it is there
    Kept,      ///< all of it is there
    Prefix,    ///< what came first is there
    Subset,    ///< each call is there or isn't
    Torn512,   ///< each sector of 512 bytes is there or isn't
    Torn4096,  ///< the same of 4,096 bytes
    Spoilt512, ///< sectors that aren't there may hold anything
};

inline constexpr Cut kCuts[] = {Cut::Lost,    Cut::Kept,     Cut::Prefix,   Cut::Subset,
                                Cut::Torn512, Cut::Torn4096, Cut::Spoilt512};

[[nodiscard]] const char* nameOf(Cut cut) noexcept;

class Disk
{
public:
    /// A disk that has these files, all synced.
    explicit Disk(const DiskImage& files = {});

    void apply(const DiskEvent& event);

    /// What programs see while the power is on.
    [[nodiscard]] DiskImage seen() const;
    /// One of the states that may be found after a power cut now. Random choices come from `random`.
    [[nodiscard]] DiskImage afterCut(Cut cut, QRandomGenerator& random) const;
    /// Calls that a power cut may undo.
    [[nodiscard]] qsizetype unsynced() const { return m_pending.size(); }

private:
    using Inode = int;
    using Names = QMap<QByteArray, Inode>;

    /// A change not yet synced: of a file's bytes, or of names.
    struct Pending
    {
        DiskEvent event;
        Inode inode;
    };
    class Survivors;

    void sync(Inode inode);
    void syncFolder(const QByteArray& folder);
    static void changeNames(Names& names, const Pending& pending);
    static bool isOfNames(DiskOp op);

    Names m_syncedNames;
    Names m_seenNames;
    QMap<Inode, QByteArray> m_synced;
    QList<Pending> m_pending; ///< oldest first
    Inode m_next = 0;
};

} // namespace hardtest
