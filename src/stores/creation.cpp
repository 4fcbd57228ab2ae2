// SPDX-License-Identifier: GPL-3.0-or-later
#include "stores/creation.h"

#include "platform/core/failurenumbers.h"

namespace stores {

namespace {

using platform::After;
using platform::handled;
using platform::dao::Database;
using platform::dao::Field;
using platform::dao::Index;
using platform::dao::TableDef;

After onCreateError(int number)
{
    return number == platform::kDatabaseAlreadyExists ? After::Leave : After::NextStatement;
}

After appendColumn(const TableDef& table, const ColumnSchema& column, CreationHandler onError)
{
    Field field;
    if (handled(onError, [&] { field = table.CreateField(column.name.toString(), column.type); }) ==
        After::Leave)
        return After::Leave;
    if (column.type == platform::dao::dbText) {
        if (handled(onError, [&] { field.setSize(column.size); }) == After::Leave)
            return After::Leave;
    }
    return handled(onError, [&] { table.Fields().Append(field); });
}

After appendKeyColumn(const Index& index, QStringView column, CreationHandler onError)
{
    Field field;
    if (handled(onError, [&] { field = index.CreateField(column.toString()); }) == After::Leave)
        return After::Leave;
    return handled(onError, [&] { index.Fields().Append(field); });
}

After appendIndex(const TableDef& table, const IndexSchema& schema, CreationHandler onError)
{
    Index index;
    if (handled(onError, [&] { index = table.CreateIndex(schema.name.toString()); }) == After::Leave)
        return After::Leave;
    if (handled(onError, [&] { index.setPrimary(schema.primary); }) == After::Leave)
        return After::Leave;
    if (handled(onError, [&] { index.setUnique(schema.unique); }) == After::Leave)
        return After::Leave;
    for (const QStringView column : schema.key) {
        if (!column.isEmpty() && appendKeyColumn(index, column, onError) == After::Leave)
            return After::Leave;
    }
    return handled(onError, [&] { table.Indexes().Append(index); });
}

} // namespace

After allowZeroLengths(const TableDef& table, CreationHandler onError, std::int16_t& counter)
{
    // A bound that can't be read lets the body run once, and so does this loop.
    int last = 0;
    counter = 0;
    if (handled(onError, [&] { last = table.Fields().Count() - 1; }) == After::Leave)
        return After::Leave;
    for (; counter <= last; ++counter) {
        if (handled(onError, [&] { table.Fields().Item(counter).setAllowZeroLength(true); }) == After::Leave)
            return After::Leave;
    }
    return After::NextStatement;
}

After createTable(const Database& database, const TableSchema& schema, CreationHandler onError,
                  std::int16_t& counter)
{
    TableDef table;
    if (handled(onError, [&] { table = database.CreateTableDef(schema.name.toString()); }) == After::Leave)
        return After::Leave;
    for (const ColumnSchema& column : schema.columns) {
        if (appendColumn(table, column, onError) == After::Leave)
            return After::Leave;
    }
    for (const IndexSchema& index : schema.indexes) {
        if (appendIndex(table, index, onError) == After::Leave)
            return After::Leave;
    }
    if (handled(onError, [&] { database.TableDefs().Append(table); }) == After::Leave)
        return After::Leave;
    return allowZeroLengths(table, onError, counter);
}

void createStore(const QString& path, const StoreSchema& store)
{
    Database database;
    const auto create = [&] {
        database = platform::dao::DBEngine().Workspaces(0).CreateDatabase(
            path, platform::dao::kSpanishLocale, store.formatOption, platform::storage::Appears::WhenClosed);
    };
    if (handled(&onCreateError, create) == After::Leave)
        return;
    for (const TableSchema& schema : store.tables) {
        std::int16_t counter = 0;
        if (createTable(database, schema, &onCreateError, counter) == After::Leave)
            return;
    }
    // Nothing stands behind the close, so what the handler answers makes no difference.
    static_cast<void>(handled(&onCreateError, [&] { database.Close(); }));
}

} // namespace stores
