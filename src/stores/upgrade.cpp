// SPDX-License-Identifier: GPL-3.0-or-later
#include "stores/upgrade.h"

#include "platform/core/regime.h"
#include "stores/bdcliente.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace stores {

namespace {

using platform::attempt;
using platform::dao::TableDef;

std::optional<int> columnCount(const TableDef& table)
{
    std::optional<int> count;
    attempt([&] { count = table.Fields().Count(); });
    return count;
}

} // namespace

bool addColumns(const UpgradedTable& upgraded, std::span<const ColumnSchema> columns)
{
    TableDef table;
    attempt([&] { upgraded.recordset.Close(); });
    attempt([&] { upgraded.database.Close(); });
    attempt([&] { upgraded.database = platform::dao::DBEngine().Workspaces(0).OpenDatabase(upgraded.path); });
    attempt([&] { table = upgraded.database.TableDefs().Item(upgraded.table.toString()); });
    const std::optional<int> before = columnCount(table);
    for (const ColumnSchema& column : columns)
        attempt(
            [&] { MODIFICARCAMPO(table, u"APPEND"_s, column.name.toString(), column.type, column.size); });
    const bool grown = before.has_value() && columnCount(table) > before;
    reopen(upgraded, grown);
    return grown;
}

void reopen(const UpgradedTable& upgraded, bool grown)
{
    if (grown)
        attempt([&] { upgraded.open(); });
    else
        attempt([&] { upgraded.openOnly(); });
}

bool isOpen(const platform::dao::Database& database)
{
    bool open = false;
    attempt([&] { open = database.Recordsets().Count() >= 0; });
    return open;
}

} // namespace stores
