// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What tools do to store files beside opening them: looking into a damaged one, repairing it with an account
// of what was saved and lost, and reading a copy that nobody shares. The program itself needs none of it.
//
// Failures are those of the storage seam. Paths are native.

#include "platform/storage/storage.h"

#include <chrono>

namespace platform::storage {

/// A row that an index still names and no page holds any more.
struct LostRow
{
    RowId id = 0;
    QStringList columns; ///< of the index that names it, the primary one where it can
    Row key;             ///< its values, one a column
};

/// What a table of a damaged file holds and lacks.
struct TableLosses
{
    QString table;
    qint64 readable = 0; ///< rows that stand whole in some page
    qint64 refused = 0;  ///< of a repair: readable rows that would break a key
    std::vector<LostRow> lost;
    /// An index could be read whole, so that `lost` names every row that is missing.
    bool isCertain = false;
};

struct RepairAccount
{
    QString keptFile; ///< where the damaged file is now
    std::vector<TableLosses> tables;
};

/// Looks into the bytes of a store, sound or not, behind its gate, and changes nothing. `expected` gives the
/// tables that the file's own schema may not tell any more. This process must not have the store open. 3260
/// when the gate stays shut, 3043 when the disk doesn't give the bytes.
[[nodiscard]] std::vector<TableLosses> examineStore(const QString& path,
                                                    const QList<TableDefinition>& expected);

/// As `Engine::repair`, and says what came of it.
RepairAccount repairStore(const QString& path, const QList<TableDefinition>& expected);

/// Opens a copy that nobody changes meanwhile, for reading, without locks and without a sidecar. 3024, 3044,
/// 3049, 3051.
[[nodiscard]] std::unique_ptr<Connection> openCopy(const QString& path);

/// A store that another file is to take the place of. Nobody else has it open from the making of the object
/// to its end, whether its file is there or not.
class StoreReplacement
{
public:
    /// What a crash left half done in the store is taken back first; a damaged store is taken as it is. 3050
    /// when anyone has it open.
    explicit StoreReplacement(const QString& path);
    /// Without `replace()` the store is as it was, and what stands at `workingPath()` is gone.
    ~StoreReplacement();
    StoreReplacement(const StoreReplacement&) = delete;
    StoreReplacement& operator=(const StoreReplacement&) = delete;

    /// Where the new file is to be written; nothing stands there yet.
    [[nodiscard]] QString workingPath() const;
    /// Puts the new file in the store's place, lastingly. The store that stood there is kept as
    /// `<name>.anterior-N`. That name, or "" when there was no store.
    QString replace();
    /// Keeps the store that stood there in the same way, with no other in its place.
    QString putAside();

private:
    struct State;
    std::unique_ptr<State> m_state;
};

/// A store to copy, and where its copy is to be written: a file that isn't there yet.
struct CopyJob
{
    QString from;
    QString to;
};

struct CopyAccount
{
    /// Into how many groups the stores fell that are each of one moment: 1 is all at once.
    qsizetype moments = 0;
    /// How long stations had to stay out at the longest.
    std::chrono::milliseconds longestHold{0};
};

/// How long all gates together may be held for copying. A station waits at a gate for twice as long.
inline constexpr std::chrono::milliseconds kLongestHold{1000};

/// Copies stores while stations work on them, each whole and as of one moment, onto the disk.
///
/// Each store is first copied in slices, with a short stay behind its gate for each. Then all gates are held
/// together, for `longestHold` at most, while the stores that have changed since are copied again: so all
/// copies are of one moment. Where that can't be had in a few turns, each group is copied for itself in the
/// same way, and in the end each store. 3260 when a store can't be had even so, and the failures of an
/// opening; the failure's text is then the path of the store. Copies made until then stay.
CopyAccount copyStores(const QList<QList<CopyJob>>& groups,
                       std::chrono::milliseconds longestHold = kLongestHold);

} // namespace platform::storage
