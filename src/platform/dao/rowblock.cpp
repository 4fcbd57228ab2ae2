// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/dao/rowblock.h"

#include <algorithm>

namespace platform::dao {
namespace {

constexpr qsizetype kFirstBlock = 1;
constexpr qsizetype kSecondBlock = 32;
constexpr qsizetype kFullBlock = 512;

void insertSorted(std::vector<int>& columns, int column)
{
    const auto place = std::lower_bound(columns.begin(), columns.end(), column);
    if (place == columns.end() || *place != column)
        columns.insert(place, column);
}

} // namespace

void WalkColumns::restart()
{
    if (!m_seen.empty())
        m_wanted = std::exchange(m_seen, {});
}

void WalkColumns::note(int column)
{
    insertSorted(m_seen, column);
    insertSorted(m_wanted, column);
}

bool SoughtColumns::holds(int column) const noexcept
{
    const auto position = static_cast<std::size_t>(column);
    return position < m_holds.size() && m_holds[position];
}

void SoughtColumns::note(int column)
{
    if (holds(column))
        return;
    insertSorted(m_wanted, column);
    const auto position = static_cast<std::size_t>(column);
    if (m_holds.size() <= position)
        m_holds.resize(position + 1);
    m_holds[position] = true;
}

void ReadAhead::clear()
{
    m_first = 0;
    m_count = 0;
}

bool ReadAhead::covers(qsizetype position) const noexcept
{
    return position >= m_first && position < m_first + m_count;
}

const Value* ReadAhead::cell(qsizetype position, int column) const
{
    if (!covers(position))
        return nullptr;
    const auto found = std::lower_bound(m_block.columns.begin(), m_block.columns.end(), column);
    if (found == m_block.columns.end() || *found != column)
        return nullptr;
    const auto width = static_cast<qsizetype>(m_block.columns.size());
    const qsizetype offset = (position - m_first) * width + (found - m_block.columns.begin());
    return &m_block.cells[static_cast<std::size_t>(offset)];
}

qsizetype ReadAhead::nextSize(qsizetype position) const
{
    if (m_count == 0 || position != m_first + m_count)
        return kFirstBlock;
    return m_count == kFirstBlock ? kSecondBlock : kFullBlock;
}

bool ReadAhead::fetch(storage::Table& table, const WalkList& list, qsizetype position,
                      const std::vector<int>& columns)
{
    const std::span<const storage::RowId> ids = list.part(position, nextSize(position));
    clear();
    // The block keeps its memory, so that its texts are written over those of the rows before.
    table.readMany(ids, columns, m_block);
    // A row that is gone ends the run: what follows it no longer lies at its position.
    const auto differs = std::mismatch(ids.begin(), ids.end(), m_block.rowIds.begin(), m_block.rowIds.end());
    m_first = position;
    m_count = differs.first - ids.begin();
    return m_count > 0;
}

} // namespace platform::dao
