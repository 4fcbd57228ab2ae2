// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/dao/recordsetstate.h"

#include "platform/dao/conversion.h"

#include <algorithm>

namespace platform::dao {

RecordsetState::RecordsetState(std::shared_ptr<DatabaseState> openDatabase, QList<storage::Column> declared)
    : m_database(std::move(openDatabase))
    , m_columns(std::move(declared))
    , m_names(m_columns)
{
    for (int position = 0; position < m_columns.size(); ++position) {
        auto field = std::make_shared<FieldState>();
        field->column = m_columns[position];
        field->recordset = this;
        field->position = position;
        field->owner = FieldState::Owner::Recordset;
        m_fields.push_back(std::move(field));
    }
    m_database->recordsets.push_back(this);
}

RecordsetState::~RecordsetState()
{
    for (const std::shared_ptr<FieldState>& field : m_fields)
        field->recordset = nullptr;
    if (m_database)
        std::erase(m_database->recordsets, this);
}

void RecordsetState::close() noexcept
{
    if (isClosed())
        return;
    m_edit.drop();
    release();
    std::erase(m_database->recordsets, this);
    m_database.reset();
}

const std::shared_ptr<FieldState>& RecordsetState::field(int position) const
{
    return member(m_fields, position);
}

const std::shared_ptr<FieldState>& RecordsetState::field(QStringView name) const
{
    return member(m_fields, m_names.position(name));
}

Value RecordsetState::value(int column)
{
    return m_edit.isPending() ? m_edit.value(column) : currentValue(column);
}

void RecordsetState::setValue(int column, const Value& value)
{
    if (!m_edit.isPending())
        throw Failure(kUpdateWithoutEdit);
    m_edit.setValue(column, toColumn(value, target(column)));
}

const storage::Column& RecordsetState::target(int column) const
{
    return m_columns[column];
}

QString RecordsetState::index() const
{
    throw Failure(kOperationNotSupported);
}

void RecordsetState::setIndex(const QString&)
{
    throw Failure(kOperationNotSupported);
}

void RecordsetState::seek(QStringView, std::span<const Value>)
{
    throw Failure(kOperationNotSupported);
}

bool RecordsetState::noMatch() const
{
    return false;
}

void RecordsetState::update()
{
    if (!m_edit.isPending())
        throw Failure(kUpdateWithoutEdit);
    database().writable();
    writeEdit();
    m_edit.drop();
}

std::shared_ptr<std::vector<std::vector<Value>>> RecordsetState::rows(qsizetype count, qsizetype& first,
                                                                      qsizetype& taken)
{
    auto copy = std::make_shared<std::vector<std::vector<Value>>>(m_fields.size());
    first = 0;
    for (taken = 0; taken < count; ++taken) {
        if (taken > 0 && eof())
            break;
        for (int column = 0; column < m_columns.size(); ++column)
            (*copy)[static_cast<std::size_t>(column)].push_back(currentValue(column));
        moveNext();
    }
    return copy;
}

} // namespace platform::dao
