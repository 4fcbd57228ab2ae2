// SPDX-License-Identifier: GPL-3.0-or-later
//
// `Field` and `Fields`.

#include "platform/dao/recordsetstate.h"

namespace platform::dao {
namespace {

/// The field's object; 3420 when the recordset, table definition or database that it belongs to is gone or
/// closed.
FieldState& valid(const std::shared_ptr<FieldState>& state)
{
    if (!state)
        throw Failure(kObjectNotSet);
    FieldState& field = *state;
    if (field.owner == FieldState::Owner::Recordset &&
        (field.recordset == nullptr || field.recordset->isClosed()))
        throw Failure(kObjectInvalid);
    if (field.owner == FieldState::Owner::Table) {
        const std::shared_ptr<TableDefState> table = field.table.lock();
        if (!table)
            throw Failure(kObjectInvalid);
        table->requireValid();
    }
    probeCall(field.column.name);
    return field;
}

/// The recordset of a field; 3219 for a column of a table definition, which has no row.
RecordsetState& rowOf(const FieldState& field)
{
    if (field.owner != FieldState::Owner::Recordset)
        throw Failure(kInvalidOperation);
    return *field.recordset;
}

/// The stored table that a field belongs to, or null.
std::shared_ptr<TableDefState> storedOwner(const FieldState& field)
{
    const std::shared_ptr<TableDefState> table = field.table.lock();
    return table && table->stored ? table : nullptr;
}

} // namespace

Field::Field(std::shared_ptr<FieldState> state, std::shared_ptr<TableDefState> table)
    : m_state(std::move(state))
    , m_table(std::move(table))
{}

QString Field::Name() const
{
    return valid(m_state).column.name;
}

int Field::Size() const
{
    const storage::Column& column = valid(m_state).column;
    switch (column.type) {
    case storage::ColumnType::Text:
        return column.size;
    case storage::ColumnType::Number:
        return 8;
    case storage::ColumnType::Memo:
        break;
    }
    return 0;
}

void Field::setSize(int size)
{
    FieldState& field = valid(m_state);
    if (field.owner == FieldState::Owner::Recordset || storedOwner(field))
        throw Failure(kInvalidOperation);
    field.column.size = size;
}

bool Field::AllowZeroLength() const
{
    return valid(m_state).column.allowZeroLength;
}

void Field::setAllowZeroLength(bool allowed)
{
    FieldState& field = valid(m_state);
    if (field.owner == FieldState::Owner::Recordset || field.column.type == storage::ColumnType::Number)
        throw Failure(kInvalidOperation);
    if (field.column.allowZeroLength == allowed)
        return;
    if (const std::shared_ptr<TableDefState> table = storedOwner(field))
        table->writableConnection().setAllowZeroLength(table->name, field.column.name, allowed);
    field.column.allowZeroLength = allowed;
}

platform::Value Field::Value() const
{
    const FieldState& field = valid(m_state);
    return rowOf(field).value(field.position);
}

void Field::setValue(const platform::Value& value) const
{
    const FieldState& field = valid(m_state);
    rowOf(field).setValue(field.position, value);
}

void Field::setValue(const QString& text) const
{
    setValue(platform::Value(text));
}

void Field::setValue(double number) const
{
    setValue(platform::Value(number));
}

int Fields::Count() const
{
    if (m_recordset)
        return static_cast<int>(open(m_recordset).columns().size());
    bound(m_table).requireValid();
    return static_cast<int>(m_table->fields.size());
}

Field Fields::Item(int index) const
{
    if (m_recordset)
        return Field(open(m_recordset).field(index));
    bound(m_table).requireValid();
    return Field(member(m_table->fields, index), m_table);
}

Field Fields::Item(const QString& name) const
{
    if (m_recordset)
        return Field(open(m_recordset).field(name));
    bound(m_table).requireValid();
    return Field(member(m_table->fields, m_table->fieldPosition(name)), m_table);
}

void Fields::Append(const Field& field)
{
    if (m_recordset)
        throw Failure(kInvalidOperation);
    bound(m_table).requireValid();
    FieldState& added = bound(field.m_state);
    if (m_table->fieldPosition(added.column.name) >= 0)
        throw Failure(kFieldDefinedTwice, added.column.name);
    if (added.owner != FieldState::Owner::None)
        throw Failure(kInvalidOperation);
    if (m_table->stored)
        m_table->writableConnection().addColumn(m_table->name, added.column);
    added.table = m_table;
    added.owner = FieldState::Owner::Table;
    m_table->fields.push_back(field.m_state);
}

void Fields::Delete(const QString& name)
{
    if (m_recordset)
        throw Failure(kInvalidOperation);
    bound(m_table).requireValid();
    const int position = m_table->fieldPosition(name);
    const std::shared_ptr<FieldState> field = member(m_table->fields, position);
    for (const std::shared_ptr<IndexState>& index : m_table->indexes) {
        if (index->definition.columns.contains(name, Qt::CaseInsensitive))
            throw Failure(kFieldInIndex, name);
    }
    if (m_table->stored)
        m_table->writableConnection().dropColumn(m_table->name, field->column.name);
    field->owner = FieldState::Owner::None;
    field->table.reset();
    m_table->fields.erase(m_table->fields.begin() + position);
}

} // namespace platform::dao
