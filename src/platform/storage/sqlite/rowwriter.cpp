// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/storage/sqlite/rowwriter.h"

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"
#include "platform/storage/sqlite/indexaccess.h"

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace platform::storage::sqlite {

namespace {

/// Sets of changed columns whose statements are kept.
constexpr std::size_t kKeptUpdates = 32;

std::vector<int> differing(const Row& original, const Row& changed)
{
    std::vector<int> columns;
    for (std::size_t i = 0; i < changed.size(); ++i) {
        if (original[i] != changed[i])
            columns.push_back(static_cast<int>(i));
    }
    return columns;
}

} // namespace

RowWriter::RowWriter(Store& store, const StoredTable& table)
    : m_store(store)
    , m_table(table)
{}

void RowWriter::requireWhole(const Row& row) const
{
    if (row.size() != static_cast<std::size_t>(m_table.definition.columns.size()))
        throw Failure(kInvalidArgument, u"a row needs every column of its table"_s);
}

void RowWriter::requirePrimaryKey(const Row& row) const
{
    for (const IndexDefinition& index : m_table.definition.indexes) {
        if (!index.primary)
            continue;
        for (const QString& column : index.columns) {
            if (isNull(row[static_cast<std::size_t>(m_table.definition.columnIndex(column))]))
                throw Failure(kNullInPrimaryKey, column);
        }
    }
}

void RowWriter::add(const Row& row)
{
    if (!m_insert) {
        QByteArray columns;
        QByteArray places;
        for (const Column& column : m_table.definition.columns) {
            columns += (columns.isEmpty() ? "" : ", ") + quoted(column.name);
            places += places.isEmpty() ? "?" : ", ?";
        }
        m_insert = m_store.prepare("INSERT INTO " + quoted(m_table.definition.name) + "(" + columns +
                                       ") VALUES(" + places + ")",
                                   Task::Write);
    }
    for (std::size_t i = 0; i < row.size(); ++i)
        m_insert.bind(static_cast<int>(i) + 1, row[i]);
    Run(m_insert, Task::Write).finish();
}

RowId RowWriter::insert(const Row& row)
{
    requireWhole(row);
    requirePrimaryKey(row);
    Writing writing(m_store, Task::Write);
    add(row);
    const RowId id = sqlite3_last_insert_rowid(m_store.database().get());
    writing.commit();
    return id;
}

void RowWriter::insertMany(std::span<const Row> rows)
{
    for (const Row& row : rows) {
        requireWhole(row);
        requirePrimaryKey(row);
    }
    Writing writing(m_store, Task::Write);
    for (const Row& row : rows)
        add(row);
    writing.commit();
}

void RowWriter::update(RowId id, const Row& original, const Row& changed)
{
    requireWhole(original);
    requireWhole(changed);
    requirePrimaryKey(changed);
    Writing writing(m_store, Task::Write);
    requireUnchanged(id, original);
    const std::vector<int> columns = differing(original, changed);
    if (columns.empty())
        return;
    Statement& statement = updateOf(columns);
    int position = 0;
    for (const int column : columns)
        statement.bind(++position, changed[static_cast<std::size_t>(column)]);
    statement.bind(++position, id);
    Run(statement, Task::Write).finish();
    writing.commit();
}

void RowWriter::requireUnchanged(RowId id, const Row& original)
{
    if (!m_read) {
        m_read = m_store.prepare("SELECT " + allColumns(m_table) + " FROM " +
                                     quoted(m_table.definition.name) + " WHERE " + m_table.rowId + " = ?",
                                 Task::Write);
    }
    m_read.bind(1, id);
    Run run(m_read, Task::Write);
    if (!run.next())
        throw Failure(kRecordDeleted, u"the row is gone"_s);
    Value now;
    for (std::size_t i = 0; i < original.size(); ++i) {
        readCell(m_read.get(), static_cast<int>(i) + 1, now);
        if (now != original[i])
            throw Failure(kDataChanged, m_table.definition.columns.at(static_cast<qsizetype>(i)).name);
    }
}

Statement& RowWriter::updateOf(const std::vector<int>& columns)
{
    if (m_updates.size() >= kKeptUpdates && !m_updates.contains(columns))
        m_updates.clear();
    Statement& statement = m_updates[columns];
    if (statement)
        return statement;
    QByteArray text;
    for (const int column : columns)
        text += (text.isEmpty() ? "" : ", ") + quoted(m_table.definition.columns.at(column).name) + " = ?";
    statement = m_store.prepare("UPDATE " + quoted(m_table.definition.name) + " SET " + text + " WHERE " +
                                    m_table.rowId + " = ?",
                                Task::Write);
    return statement;
}

void RowWriter::erase(RowId id)
{
    Writing writing(m_store, Task::Write);
    if (!m_erase) {
        m_erase = m_store.prepare("DELETE FROM " + quoted(m_table.definition.name) + " WHERE " +
                                      m_table.rowId + " = ?",
                                  Task::Write);
    }
    m_erase.bind(1, id);
    Run(m_erase, Task::Write).finish();
    if (sqlite3_changes(m_store.database().get()) == 0)
        throw Failure(kRecordDeleted, u"the row is gone"_s);
    writing.commit();
}

} // namespace platform::storage::sqlite
