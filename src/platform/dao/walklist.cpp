// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/dao/walklist.h"

#include <algorithm>
#include <utility>

namespace platform::dao {

bool WalkList::holdsAt(qsizetype position, storage::RowId id) const noexcept
{
    return position >= 0 && position < size() && at(position) == id;
}

std::span<const storage::RowId> WalkList::part(qsizetype position, qsizetype count) const
{
    const qsizetype length = std::min(count, size() - position);
    return std::span(m_ids).subspan(static_cast<std::size_t>(position), static_cast<std::size_t>(length));
}

qsizetype WalkList::find(storage::RowId id, qsizetype near) const
{
    const auto start = m_ids.begin() + std::clamp<qsizetype>(near, 0, size());
    const auto ahead = std::find(start, m_ids.end(), id);
    if (ahead != m_ids.end())
        return ahead - m_ids.begin();
    const auto behind = std::find(m_ids.begin(), start, id);
    return behind == start ? -1 : behind - m_ids.begin();
}

void WalkList::clear()
{
    m_built = false;
    m_ids.clear();
}

bool WalkList::refresh(storage::Connection& connection, storage::Table& table, const QString& index,
                       quint64 ownChanges, std::vector<storage::RowId>& replaced)
{
    if (m_built && m_stamp.isFresh(ownChanges))
        return false;
    // Asked before the reading, so that a change during it is noticed at the next time.
    const quint64 version = connection.dataVersion();
    if (isCurrent(version)) {
        m_stamp = Stamp::now(ownChanges, version);
        return false;
    }
    std::vector<storage::RowId> ids = table.order(index);
    replaced = std::exchange(m_ids, std::move(ids));
    m_stamp = Stamp::now(ownChanges, version);
    m_built = true;
    return true;
}

} // namespace platform::dao
