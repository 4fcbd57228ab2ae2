// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Rows that a walk reads ahead: a run of positions of a `WalkList`, of which only the columns are fetched
// that the walk has really read so far.

#include "platform/dao/walklist.h"

#include <vector>

namespace platform::dao {

/// The columns that a walk reads, learned as it goes. The next walk starts with what the last one read.
class WalkColumns
{
public:
    /// A new walk begins.
    void restart();
    void note(int column);
    [[nodiscard]] const std::vector<int>& wanted() const noexcept { return m_wanted; }

private:
    std::vector<int> m_wanted;
    std::vector<int> m_seen;
};

/// The columns that are read after a seek, learned as the program goes.
class SoughtColumns
{
public:
    [[nodiscard]] bool holds(int column) const noexcept;
    void note(int column);
    [[nodiscard]] const std::vector<int>& wanted() const noexcept { return m_wanted; }

private:
    std::vector<int> m_wanted;
    std::vector<bool> m_holds; ///< by column
};

class ReadAhead
{
public:
    void clear();
    /// The cell of a row, or null when the row or the column isn't here.
    [[nodiscard]] const Value* cell(qsizetype position, int column) const;
    [[nodiscard]] bool covers(qsizetype position) const noexcept;
    /// Fetches rows from a position on: one at first, then 32, then 512 as long as the walk goes straight on.
    /// False when the row at `position` is gone.
    [[nodiscard]] bool fetch(storage::Table& table, const WalkList& list, qsizetype position,
                             const std::vector<int>& columns);

    Stamp stamp;

private:
    [[nodiscard]] qsizetype nextSize(qsizetype position) const;

    qsizetype m_first = 0;
    qsizetype m_count = 0;
    storage::RowBlock m_block;
};

} // namespace platform::dao
