// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/dao/queryrecordset.h"

#include <algorithm>

namespace platform::dao {
namespace {

QList<storage::Column> columnsOf(const storage::ResultSet& result)
{
    QList<storage::Column> columns;
    for (const storage::ResultColumn& column : result.columns)
        columns.append({column.name, column.type, column.size, true});
    return columns;
}

} // namespace

QueryRecordset::QueryRecordset(std::shared_ptr<DatabaseState> openDatabase, storage::ResultSet result,
                               bool dynaset)
    : RecordsetState(std::move(openDatabase), columnsOf(result))
    , m_values(std::make_shared<std::vector<std::vector<Value>>>(std::move(result.values)))
    , m_rowCount(result.rowCount)
    , m_rowIds(std::move(result.rowIds))
    , m_tableName(dynaset ? result.table : QString())
{
    m_visited = std::min<qsizetype>(m_rowCount, 1);
}

void QueryRecordset::requireRow() const
{
    if (m_current >= m_rowCount)
        throw Failure(kNoCurrentRecord);
}

void QueryRecordset::moveTo(qsizetype row)
{
    m_current = row;
    m_visited = std::max(m_visited, std::min(row + 1, m_rowCount));
}

void QueryRecordset::moveFirst()
{
    m_edit.drop();
    if (m_rowCount == 0)
        throw Failure(kNoCurrentRecord);
    moveTo(0);
}

void QueryRecordset::moveNext()
{
    m_edit.drop();
    requireRow();
    moveTo(m_current + 1);
}

void QueryRecordset::moveLast()
{
    m_edit.drop();
    if (m_rowCount == 0)
        throw Failure(kNoCurrentRecord);
    moveTo(m_rowCount - 1);
}

bool QueryRecordset::bof()
{
    return m_rowCount == 0;
}

bool QueryRecordset::eof()
{
    return m_current >= m_rowCount;
}

int QueryRecordset::recordCount()
{
    return static_cast<int>(m_visited);
}

void QueryRecordset::addNew()
{
    throw Failure(kNotUpdatable);
}

void QueryRecordset::erase()
{
    throw Failure(kNotUpdatable);
}

void QueryRecordset::edit()
{
    if (m_tableName.isEmpty())
        throw Failure(kNotUpdatable);
    requireRow();
    storage::Row row;
    const storage::RowId id = m_rowIds[static_cast<std::size_t>(m_current)];
    if (!table().read(id, row))
        throw Failure(kRecordDeleted);
    m_edit.beginEdit(id, std::move(row));
}

storage::Table& QueryRecordset::table()
{
    if (!m_table)
        m_table = connection().openTable(m_tableName);
    return *m_table;
}

const storage::Column& QueryRecordset::target(int column) const
{
    return m_table->definition().columns[column];
}

void QueryRecordset::writeEdit()
{
    m_edit.write(table());
    noteOwnChange();
    // Arrays handed out by GetRows keep the rows as they were.
    if (m_values.use_count() > 1)
        m_values = std::make_shared<std::vector<std::vector<Value>>>(*m_values);
    for (int column = 0; column < columns().size(); ++column)
        (*m_values)[static_cast<std::size_t>(column)][static_cast<std::size_t>(m_current)] =
            m_edit.value(column);
}

Value QueryRecordset::currentValue(int column)
{
    requireRow();
    return (*m_values)[static_cast<std::size_t>(column)][static_cast<std::size_t>(m_current)];
}

std::shared_ptr<std::vector<std::vector<Value>>> QueryRecordset::rows(qsizetype count, qsizetype& first,
                                                                      qsizetype& taken)
{
    m_edit.drop();
    requireRow();
    first = m_current;
    taken = std::clamp<qsizetype>(count, 0, m_rowCount - m_current);
    m_current += taken;
    return m_values;
}

void QueryRecordset::release() noexcept
{
    m_table.reset();
}

} // namespace platform::dao
