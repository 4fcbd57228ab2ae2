// SPDX-License-Identifier: GPL-3.0-or-later
#include "stores/schema.h"

namespace stores {

namespace {

using platform::storage::ColumnType;

ColumnType columnType(platform::dao::FieldType type)
{
    switch (type) {
    case platform::dao::dbDouble:
        return ColumnType::Number;
    case platform::dao::dbMemo:
        return ColumnType::Memo;
    case platform::dao::dbText:
        break;
    }
    return ColumnType::Text;
}

platform::storage::IndexDefinition indexDefinition(const IndexSchema& index)
{
    platform::storage::IndexDefinition definition{
        .name = index.name.toString(), .primary = index.primary, .unique = index.unique, .columns = {}};
    for (const QStringView column : index.key) {
        if (!column.isEmpty())
            definition.columns.append(column.toString());
    }
    return definition;
}

} // namespace

platform::storage::TableDefinition tableDefinition(const TableSchema& table)
{
    platform::storage::TableDefinition definition{
        .name = table.name.toString(), .columns = {}, .indexes = {}};
    for (const ColumnSchema& column : table.columns) {
        const ColumnType type = columnType(column.type);
        definition.columns.append({.name = column.name.toString(),
                                   .type = type,
                                   .size = column.size,
                                   .allowZeroLength = type != ColumnType::Number});
    }
    for (const IndexSchema& index : table.indexes)
        definition.indexes.append(indexDefinition(index));
    return definition;
}

QList<platform::storage::TableDefinition> tableDefinitions(std::span<const TableSchema> tables)
{
    QList<platform::storage::TableDefinition> definitions;
    for (const TableSchema& table : tables)
        definitions.append(tableDefinition(table));
    return definitions;
}

} // namespace stores
