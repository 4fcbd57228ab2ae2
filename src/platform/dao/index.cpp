// SPDX-License-Identifier: GPL-3.0-or-later
//
// `Index`, `IndexFields` and `Indexes`.

#include "platform/dao/states.h"

#include <algorithm>

namespace platform::dao {
namespace {

/// 3420 when the index belongs to a table of a closed database.
IndexState& valid(const std::shared_ptr<IndexState>& state)
{
    IndexState& index = bound(state);
    if (const std::shared_ptr<TableDefState> table = index.table.lock())
        table->requireValid();
    return index;
}

/// The same, for a change; 3219 once the index is one of a stored table.
IndexState& changeable(const std::shared_ptr<IndexState>& state)
{
    IndexState& index = valid(state);
    const std::shared_ptr<TableDefState> table = index.table.lock();
    if (table && table->stored)
        throw Failure(kInvalidOperation);
    return index;
}

void requireColumns(const TableDefState& table, const storage::IndexDefinition& index)
{
    if (index.columns.isEmpty())
        throw Failure(kNoFieldDefined, index.name);
    for (const QString& column : index.columns) {
        if (table.fieldPosition(column) < 0)
            throw Failure(kItemNotInCollection, column);
    }
}

} // namespace

Index::Index(std::shared_ptr<IndexState> state, std::shared_ptr<TableDefState> table)
    : m_state(std::move(state))
    , m_table(std::move(table))
{}

QString Index::Name() const
{
    return valid(m_state).definition.name;
}

bool Index::Primary() const
{
    return valid(m_state).definition.primary;
}

void Index::setPrimary(bool primary)
{
    changeable(m_state).definition.primary = primary;
}

bool Index::Unique() const
{
    return valid(m_state).definition.unique;
}

void Index::setUnique(bool unique)
{
    changeable(m_state).definition.unique = unique;
}

Field Index::CreateField(const QString& name) const
{
    bound(m_state);
    auto field = std::make_shared<FieldState>();
    field->column.name = name;
    return Field(std::move(field));
}

IndexFields Index::Fields() const
{
    valid(m_state);
    IndexFields fields;
    fields.m_index = m_state;
    fields.m_table = m_table;
    return fields;
}

int IndexFields::Count() const
{
    return static_cast<int>(valid(m_index).definition.columns.size());
}

void IndexFields::Append(const Field& field)
{
    IndexState& index = changeable(m_index);
    const QString& name = bound(field.m_state).column.name;
    if (index.definition.columns.contains(name, Qt::CaseInsensitive))
        throw Failure(kFieldDefinedTwice, name);
    index.definition.columns.append(name);
}

int Indexes::Count() const
{
    bound(m_table).requireValid();
    return static_cast<int>(m_table->indexes.size());
}

Index Indexes::Item(int index) const
{
    bound(m_table).requireValid();
    return Index(member(m_table->indexes, index), m_table);
}

Index Indexes::Item(const QString& name) const
{
    bound(m_table).requireValid();
    return Index(member(m_table->indexes, m_table->indexPosition(name)), m_table);
}

void Indexes::Append(const Index& index)
{
    bound(m_table).requireValid();
    const storage::IndexDefinition& added = bound(index.m_state).definition;
    if (m_table->indexPosition(added.name) >= 0)
        throw Failure(kIndexAlreadyExists, added.name);
    const auto isPrimary = [](const std::shared_ptr<IndexState>& other) { return other->definition.primary; };
    if (added.primary && std::any_of(m_table->indexes.begin(), m_table->indexes.end(), isPrimary))
        throw Failure(kPrimaryKeyAlreadyExists, added.name);
    requireColumns(*m_table, added);
    if (m_table->stored)
        m_table->writableConnection().createIndex(m_table->name, added);
    index.m_state->table = m_table;
    m_table->indexes.push_back(index.m_state);
}

} // namespace platform::dao
