// SPDX-License-Identifier: GPL-3.0-or-later
//
// `TableDef` and `TableDefs`.

#include "platform/dao/states.h"

namespace platform::dao {
namespace {

constexpr int kDefaultTextSize = 255;

storage::ColumnType columnType(FieldType type)
{
    switch (type) {
    case dbDouble:
        return storage::ColumnType::Number;
    case dbMemo:
        return storage::ColumnType::Memo;
    case dbText:
        break;
    }
    return storage::ColumnType::Text;
}

} // namespace

TableDef::TableDef(std::shared_ptr<TableDefState> state)
    : m_state(std::move(state))
{}

QString TableDef::Name() const
{
    bound(m_state).requireValid();
    return m_state->name;
}

Field TableDef::CreateField(const QString& name, FieldType type, int size) const
{
    bound(m_state).requireValid();
    auto field = std::make_shared<FieldState>();
    field->column.name = name;
    field->column.type = columnType(type);
    if (type == dbText)
        field->column.size = size > 0 ? size : kDefaultTextSize;
    return Field(std::move(field));
}

Index TableDef::CreateIndex(const QString& name) const
{
    bound(m_state).requireValid();
    auto index = std::make_shared<IndexState>();
    index->definition.name = name;
    return Index(std::move(index));
}

dao::Fields TableDef::Fields() const
{
    bound(m_state).requireValid();
    dao::Fields fields;
    fields.m_table = m_state;
    return fields;
}

dao::Indexes TableDef::Indexes() const
{
    bound(m_state).requireValid();
    dao::Indexes indexes;
    indexes.m_table = m_state;
    return indexes;
}

int TableDefs::Count() const
{
    return static_cast<int>(open(m_database).connection->tables().size()) + kSystemTables;
}

TableDef TableDefs::Item(const QString& name) const
{
    const QList<storage::TableDefinition> tables = open(m_database).connection->tables();
    for (const storage::TableDefinition& table : tables) {
        if (table.name.compare(name, Qt::CaseInsensitive) == 0)
            return TableDef(storedTable(table, m_database));
    }
    throw Failure(kItemNotInCollection, name);
}

void TableDefs::Append(const TableDef& table)
{
    storage::Connection& connection = open(m_database).writable();
    TableDefState& added = bound(table.m_state);
    if (added.fields.empty())
        throw Failure(kNoFieldDefined, added.name);
    connection.createTable(added.definition());
    added.stored = true;
    added.database = m_database;
}

} // namespace platform::dao
