// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The row numbers of a table in the order of one index, for moving from row to row. Built when it is first
// needed and kept while the store doesn't change.

#include "platform/dao/freshness.h"
#include "platform/storage/storage.h"

#include <span>
#include <vector>

namespace platform::dao {

class WalkList
{
public:
    [[nodiscard]] bool isBuilt() const noexcept { return m_built; }
    [[nodiscard]] qsizetype size() const noexcept { return static_cast<qsizetype>(m_ids.size()); }
    [[nodiscard]] storage::RowId at(qsizetype position) const
    {
        return m_ids[static_cast<std::size_t>(position)];
    }
    [[nodiscard]] bool holdsAt(qsizetype position, storage::RowId id) const noexcept;
    /// At most `count` row numbers from a position on.
    [[nodiscard]] std::span<const storage::RowId> part(qsizetype position, qsizetype count) const;
    /// Position of a row, looked for from `near` on and then from the start; -1 when it isn't there.
    [[nodiscard]] qsizetype find(storage::RowId id, qsizetype near) const;

    /// Forgets the list.
    void clear();
    /// Makes sure that the list is that of the index as the store stands. True when it was built anew;
    /// `replaced` then holds the row numbers it had before.
    bool refresh(storage::Connection& connection, storage::Table& table, const QString& index,
                 quint64 ownChanges, std::vector<storage::RowId>& replaced);
    /// True when the store's change number is still that of the list.
    [[nodiscard]] bool isCurrent(quint64 version) const noexcept
    {
        return m_built && m_stamp.version == version;
    }

private:
    bool m_built = false;
    Stamp m_stamp;
    std::vector<storage::RowId> m_ids;
};

} // namespace platform::dao
