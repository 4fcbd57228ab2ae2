// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/dao/columnnames.h"

#include <algorithm>

namespace platform::dao {

namespace {

/// Column names are nearly all ASCII, and each field access folds one.
char16_t folded(QChar unit) noexcept
{
    const char16_t code = unit.unicode();
    if (code < 0x80)
        return code >= u'A' && code <= u'Z' ? static_cast<char16_t>(code + (u'a' - u'A')) : code;
    return unit.toCaseFolded().unicode();
}

} // namespace

ColumnNames::ColumnNames(const QList<storage::Column>& columns)
{
    m_positions.reserve(static_cast<std::size_t>(columns.size()));
    int position = 0;
    for (const storage::Column& column : columns)
        m_positions.try_emplace(column.name, position++);
}

int ColumnNames::position(QStringView name) const
{
    // The last unit tells names of one table apart better than the first: they begin with the table's prefix.
    const std::size_t slot =
        name.isEmpty() ? 0
                       : (static_cast<std::size_t>(name.size()) * 7U + name.back().unicode()) % kSpellings;
    Spelling& spelling = m_spellings[slot];
    if (spelling.name == name && !name.isEmpty())
        return spelling.position;
    const auto found = m_positions.find(name);
    if (found == m_positions.end())
        return -1;
    spelling.name = name.toString();
    spelling.position = found->second;
    return found->second;
}

std::size_t ColumnNames::FoldedHash::operator()(QStringView name) const noexcept
{
    // FNV-1a over the folded units.
    std::size_t hash = 14695981039346656037ULL;
    for (const QChar unit : name)
        hash = (hash ^ folded(unit)) * 1099511628211ULL;
    return hash;
}

bool ColumnNames::FoldedEqual::operator()(QStringView left, QStringView right) const noexcept
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](QChar a, QChar b) { return folded(a) == folded(b); });
}

} // namespace platform::dao
