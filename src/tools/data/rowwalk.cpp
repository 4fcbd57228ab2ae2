// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/data/checkstore.h"

#include "platform/core/value.h"
#include "platform/text/spanishorder.h"

#include <QStringList>

#include <algorithm>
#include <numeric>

namespace tools {

namespace {

using platform::storage::RowId;

constexpr std::size_t kRowsPerBlock = 2000;

std::vector<int> allColumns(const platform::storage::Table& table)
{
    std::vector<int> columns(static_cast<std::size_t>(table.definition().columns.size()));
    std::iota(columns.begin(), columns.end(), 0);
    return columns;
}

QString shown(const platform::Value& value)
{
    return platform::isNull(value) ? QStringLiteral("Null") : platform::asText(value);
}

} // namespace

void forEachRow(platform::storage::Table& table, const std::vector<int>& columns,
                const std::function<void(RowId, std::span<const platform::Value>)>& visit)
{
    const std::vector<int> wanted = columns.empty() ? allColumns(table) : columns;
    const std::vector<RowId> ids = table.order(QString());
    platform::storage::RowBlock block;
    for (std::size_t first = 0; first < ids.size(); first += kRowsPerBlock) {
        const std::size_t count = std::min(kRowsPerBlock, ids.size() - first);
        block = {};
        table.readMany(std::span(ids).subspan(first, count), wanted, block);
        for (std::size_t row = 0; row < block.rowIds.size(); ++row)
            visit(block.rowIds[row], std::span(block.cells).subspan(row * wanted.size(), wanted.size()));
    }
}

QString rowName(platform::storage::Table& table, RowId id)
{
    const auto& indexes = table.definition().indexes;
    const auto primary =
        std::find_if(indexes.begin(), indexes.end(), [](const auto& index) { return index.primary; });
    platform::storage::Row row;
    if (primary == indexes.end() || !table.read(id, row))
        return QStringLiteral("fila %1").arg(id);
    QStringList parts;
    for (const QString& column : primary->columns) {
        const int position = table.definition().columnIndex(column);
        if (position >= 0)
            parts.append(QStringLiteral("%1=%2").arg(column, shown(row[static_cast<std::size_t>(position)])));
    }
    return parts.join(QStringLiteral(", "));
}

KeySet keysOf(platform::storage::Table& table, const QString& column)
{
    KeySet keys;
    const int position = table.definition().columnIndex(column);
    if (position < 0)
        return keys;
    forEachRow(table, {position}, [&keys](RowId, std::span<const platform::Value> cells) {
        if (!platform::isNull(cells[0]))
            keys.insert(platform::spanishSortKey(platform::asText(cells[0])));
    });
    return keys;
}

void findOrphans(platform::storage::Table& table, const QString& column, const KeySet& known,
                 const std::function<void(const QString& row, const QString& value)>& onOrphan)
{
    const int position = table.definition().columnIndex(column);
    if (position < 0)
        return;
    forEachRow(table, {position}, [&](RowId id, std::span<const platform::Value> cells) {
        const QString value = shown(cells[0]);
        if (platform::isNull(cells[0]) || !known.contains(platform::spanishSortKey(value)))
            onOrphan(rowName(table, id), value);
    });
}

} // namespace tools
