// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/data/bulktable.h"

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"

#include <algorithm>

namespace tools {

namespace {

// Enough for the cost of a commit to vanish, few enough to stay small in memory.
constexpr std::size_t kRowsPerBlock = 20000;

} // namespace

BulkTable::BulkTable(platform::storage::Connection& connection, QStringView table)
    : m_table(connection.openTable(table.toString()))
{}

void BulkTable::add(std::initializer_list<Cell> cells)
{
    platform::storage::Row row(static_cast<std::size_t>(m_table->definition().columns.size()));
    for (const Cell& cell : cells)
        set(row, cell);
    push(std::move(row));
}

void BulkTable::add(const std::vector<Cell>& cells)
{
    platform::storage::Row row(static_cast<std::size_t>(m_table->definition().columns.size()));
    for (const Cell& cell : cells)
        set(row, cell);
    push(std::move(row));
}

void BulkTable::flush()
{
    if (m_waiting.empty())
        return;
    m_table->insertMany(m_waiting);
    m_waiting.clear();
}

void BulkTable::set(platform::storage::Row& row, const Cell& cell) const
{
    const auto& columns = m_table->definition().columns;
    const auto found = std::find_if(columns.begin(), columns.end(),
                                    [&cell](const auto& column) { return column.name == cell.column; });
    if (found == columns.end())
        throw platform::Failure(platform::kItemNotInCollection, cell.column.toString());
    platform::Value value = cell.value;
    if (auto* text = std::get_if<QString>(&value); text != nullptr && found->size > 0)
        text->truncate(found->size);
    row[static_cast<std::size_t>(found - columns.begin())] = std::move(value);
}

void BulkTable::push(platform::storage::Row row)
{
    m_waiting.push_back(std::move(row));
    if (m_waiting.size() >= kRowsPerBlock)
        flush();
}

} // namespace tools
