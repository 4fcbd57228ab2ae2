// SPDX-License-Identifier: GPL-3.0-or-later
//
// Moving from row to row of a table-type recordset, and reading the current one.

#include "platform/dao/tablerecordset.h"
#include "platform/text/spanishorder.h"

#include <unordered_set>

namespace platform::dao {
namespace {

/// Order of two key cells: Null, numbers, texts.
int compareCells(const Value& left, const Value& right)
{
    if (left.index() != right.index())
        return left.index() < right.index() ? -1 : 1;
    if (const double* number = std::get_if<double>(&left)) {
        const double other = std::get<double>(right);
        return *number < other ? -1 : (other < *number ? 1 : 0);
    }
    if (const QString* text = std::get_if<QString>(&left))
        return compareSpanish(*text, std::get<QString>(right));
    return 0;
}

} // namespace

void TableRecordset::moveNext()
{
    m_edit.drop();
    resolveFirst();
    if (m_at == At::Nowhere)
        throw Failure(kNoCurrentRecord);
    const qsizetype next = nextPosition();
    if (next >= m_list.size()) {
        m_at = At::Nowhere;
        m_bof = m_list.size() == 0;
        m_eof = true;
        return;
    }
    m_bof = m_eof = false;
    m_at = At::Row;
    m_position = next;
    m_id = m_list.at(next);
    m_hasRow = false;
    m_walking = true;
}

qsizetype TableRecordset::nextPosition()
{
    std::vector<storage::RowId> replaced;
    if (m_list.refresh(connection(), *m_table, m_indexName, database().ownChanges, replaced))
        m_ahead.clear();
    else if (m_list.holdsAt(m_position, m_id))
        return m_position + 1;
    // The number of a deleted row may have gone to a new one, so it isn't looked for.
    const qsizetype found = m_at == At::Deleted ? -1 : m_list.find(m_id, m_position);
    return found >= 0 ? found + 1 : successor(replaced);
}

/// Position of the row that followed the current one, which is gone. Its copy tells its place by the key; a
/// row known only by its number was in the list before, and the first row behind it that is still there
/// follows it.
qsizetype TableRecordset::successor(const std::vector<storage::RowId>& replaced)
{
    if (!m_hasRow) {
        const std::unordered_set<storage::RowId> behind(replaced.begin() + m_position + 1, replaced.end());
        qsizetype position = 0;
        while (position < m_list.size() && !behind.contains(m_list.at(position)))
            ++position;
        return position;
    }
    qsizetype from = 0;
    qsizetype to = m_list.size();
    while (from < to) {
        const qsizetype middle = from + (to - from) / 2;
        if (standsBefore(m_list.at(middle)))
            from = middle + 1;
        else
            to = middle;
    }
    return from;
}

bool TableRecordset::standsBefore(storage::RowId id)
{
    if (!m_table->read(id, m_found))
        return true;
    for (const int column : m_keyColumns) {
        const auto cell = static_cast<std::size_t>(column);
        const int order = compareCells(m_found[cell], m_row[cell]);
        if (order != 0)
            return order < 0;
    }
    return id < m_id;
}

Value TableRecordset::currentValue(int column)
{
    requireRow();
    if (m_walking)
        m_walkColumns.note(column);
    if (!m_hasRow)
        return walkedCell(column);
    trustRow();
    if (!m_isWhole && !m_sought.holds(column)) {
        m_sought.note(column);
        loadRow();
    }
    return m_row[static_cast<std::size_t>(column)];
}

const Value& TableRecordset::walkedCell(int column)
{
    trustBlock();
    if (!m_hasRow && !m_ahead.covers(m_position)) {
        m_ahead.stamp = Stamp::now(database().ownChanges);
        if (!m_ahead.fetch(*m_table, m_list, m_position, m_walkColumns.wanted()))
            loseRow();
    }
    if (const Value* cell = m_hasRow ? nullptr : m_ahead.cell(m_position, column))
        return *cell;
    // First use of a column that the block doesn't hold: the whole row, and the next blocks will have it.
    if (!m_hasRow)
        loadRow();
    return m_row[static_cast<std::size_t>(column)];
}

void TableRecordset::loadRow()
{
    const Stamp stamp = Stamp::now(database().ownChanges);
    if (!m_table->read(m_id, m_found))
        loseRow();
    std::swap(m_row, m_found);
    m_hasRow = m_isWhole = true;
    m_rowStamp = stamp;
}

/// Looks at the file when the copy of the row is too old, and reads it anew when the file has changed.
void TableRecordset::trustRow()
{
    if (m_rowStamp.isFresh(database().ownChanges))
        return;
    const quint64 version = connection().dataVersion();
    if (m_rowStamp.version != version)
        loadRow();
    m_rowStamp = Stamp::now(database().ownChanges, version);
}

void TableRecordset::trustBlock()
{
    if (!m_ahead.covers(m_position) || m_ahead.stamp.isFresh(database().ownChanges))
        return;
    const quint64 version = connection().dataVersion();
    if (m_list.isCurrent(version)) {
        m_ahead.stamp = Stamp::now(database().ownChanges, version);
        return;
    }
    m_ahead.clear();
    loadRow();
}

void TableRecordset::loseRow()
{
    m_at = At::Deleted;
    throw Failure(kRecordDeleted);
}

} // namespace platform::dao
