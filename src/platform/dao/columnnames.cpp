// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/dao/columnnames.h"

namespace platform::dao {

ColumnNames::ColumnNames(const QList<storage::Column>& columns)
{
    m_positions.reserve(static_cast<std::size_t>(columns.size()));
    int position = 0;
    for (const storage::Column& column : columns)
        m_positions.try_emplace(column.name, position++);
}

int ColumnNames::position(QStringView name) const
{
    const auto found = m_positions.find(name);
    return found == m_positions.end() ? -1 : found->second;
}

std::size_t ColumnNames::FoldedHash::operator()(QStringView name) const noexcept
{
    // FNV-1a over the folded units.
    std::size_t hash = 14695981039346656037ULL;
    for (const QChar unit : name)
        hash = (hash ^ unit.toCaseFolded().unicode()) * 1099511628211ULL;
    return hash;
}

bool ColumnNames::FoldedEqual::operator()(QStringView left, QStringView right) const noexcept
{
    return left.size() == right.size() && left.compare(right, Qt::CaseInsensitive) == 0;
}

} // namespace platform::dao
