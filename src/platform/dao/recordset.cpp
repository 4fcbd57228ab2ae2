// SPDX-License-Identifier: GPL-3.0-or-later
//
// `Recordset` and `RowArray`: each member goes to the open object, or fails with 91 or 3420.

#include "platform/dao/recordsetstate.h"

namespace platform::dao {

Recordset::Recordset(std::shared_ptr<RecordsetState> state)
    : m_state(std::move(state))
{}

bool Recordset::isBound() const noexcept
{
    return m_state != nullptr;
}

QString Recordset::Index() const
{
    return open(m_state).index();
}

void Recordset::setIndex(const QString& name)
{
    open(m_state).setIndex(name);
}

void Recordset::seek(QStringView comparison, std::span<const platform::Value> keys)
{
    open(m_state).seek(comparison, keys);
}

bool Recordset::NoMatch() const
{
    return open(m_state).noMatch();
}

void Recordset::MoveFirst()
{
    open(m_state).moveFirst();
}

void Recordset::MoveNext()
{
    open(m_state).moveNext();
}

void Recordset::MoveLast()
{
    open(m_state).moveLast();
}

bool Recordset::BOF() const
{
    return open(m_state).bof();
}

bool Recordset::EOF_() const
{
    return open(m_state).eof();
}

int Recordset::RecordCount() const
{
    return open(m_state).recordCount();
}

void Recordset::AddNew()
{
    open(m_state).addNew();
}

void Recordset::Edit()
{
    open(m_state).edit();
}

void Recordset::Update()
{
    open(m_state).update();
}

void Recordset::Delete()
{
    open(m_state).erase();
}

void Recordset::Close()
{
    open(m_state).close();
}

bool Recordset::LockEdits() const
{
    return open(m_state).lockEdits;
}

void Recordset::setLockEdits(bool pessimistic)
{
    open(m_state).lockEdits = pessimistic;
}

dao::Fields Recordset::Fields() const
{
    open(m_state);
    dao::Fields fields;
    fields.m_recordset = m_state;
    return fields;
}

Field Recordset::operator[](QStringView name) const
{
    return Field(open(m_state).field(name));
}

Field Recordset::operator[](int position) const
{
    return Field(open(m_state).field(position));
}

RowArray Recordset::GetRows(qsizetype count)
{
    RowArray array;
    array.m_columns = open(m_state).rows(count, array.m_first, array.m_count);
    return array;
}

int RowArray::fieldCount() const
{
    return m_columns ? static_cast<int>(m_columns->size()) : 0;
}

qsizetype RowArray::rowCount() const
{
    return m_count;
}

const Value& RowArray::at(int field, qsizetype row) const
{
    if (field < 0 || field >= fieldCount() || row < 0 || row >= m_count)
        throw Failure(kSubscriptOutOfRange);
    return (*m_columns)[static_cast<std::size_t>(field)][static_cast<std::size_t>(m_first + row)];
}

void RowArray::set(int field, qsizetype row, Value value)
{
    if (field < 0 || field >= fieldCount() || row < 0 || row >= m_count)
        throw Failure(kSubscriptOutOfRange);
    if (m_columns.use_count() > 1)
        m_columns = std::make_shared<std::vector<std::vector<Value>>>(*m_columns);
    (*m_columns)[static_cast<std::size_t>(field)][static_cast<std::size_t>(m_first + row)] = std::move(value);
}

} // namespace platform::dao
