// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/storage/sqlite/table.h"

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"

#include <algorithm>

namespace platform::storage::sqlite {

namespace {

/// Lists of columns whose statements are kept; a program asks for few.
constexpr std::size_t kKeptProjections = 8;
/// A block whose numbers ascend and fill at least one in this many is read as one range.
constexpr qint64 kSparsestRange = 2;

bool isDenseAscending(std::span<const RowId> ids)
{
    if (ids.size() < 2 || ids.front() >= ids.back())
        return false;
    const quint64 width = static_cast<quint64>(ids.back()) - static_cast<quint64>(ids.front());
    return width / kSparsestRange <= ids.size() && std::is_sorted(ids.begin(), ids.end());
}

QByteArray projectionText(const StoredTable& table, std::span<const int> columns)
{
    QByteArray text = "SELECT " + table.rowId;
    for (const int column : columns)
        text += ", " + quoted(table.definition.columns.at(column).name);
    return text + " FROM " + quoted(table.definition.name) + " WHERE " + table.rowId;
}

/// Appends the current row of a block read. The cells stand there already, so that their memory serves again.
void appendRow(const Statement& statement, RowBlock& block)
{
    const std::size_t start = block.rowIds.size() * block.columns.size();
    block.rowIds.push_back(integerAt(statement, 0));
    for (std::size_t i = 0; i < block.columns.size(); ++i)
        readCell(statement.get(), static_cast<int>(i) + 1, block.cells[start + i]);
}

} // namespace

StoreTable::StoreTable(Store& store, StoredTable table)
    : m_store(store)
    , m_table(std::move(table))
    , m_writer(store, m_table)
{
    for (const IndexDefinition& index : m_table.definition.indexes)
        m_access.push_back(std::make_unique<IndexAccess>(store, m_table, &index));
    m_access.push_back(std::make_unique<IndexAccess>(store, m_table, nullptr));
}

IndexAccess& StoreTable::access(const QString& index)
{
    const QList<IndexDefinition>& indexes = m_table.definition.indexes;
    for (qsizetype i = 0; i < indexes.size(); ++i) {
        const bool wanted = index.isEmpty() ? indexes.at(i).primary
                                            : indexes.at(i).name.compare(index, Qt::CaseInsensitive) == 0;
        if (wanted)
            return *m_access[static_cast<std::size_t>(i)];
    }
    if (!index.isEmpty())
        throw Failure(kNoSuchIndex, index);
    return *m_access.back();
}

qint64 StoreTable::count()
{
    const Reading reading(m_store);
    const quint64 now = m_store.changeNumber();
    if (m_countedAt == now)
        return m_knownCount;
    if (!m_count)
        m_count = m_store.prepare("SELECT count(*) FROM " + quoted(m_table.definition.name), Task::Read);
    Run run(m_count, Task::Read);
    m_knownCount = run.next() ? integerAt(m_count, 0) : 0;
    m_countedAt = now;
    return m_knownCount;
}

std::vector<RowId> StoreTable::order(const QString& index)
{
    IndexAccess& wanted = access(index);
    std::vector<RowId> ids;
    ids.reserve(static_cast<std::size_t>(m_knownCount));
    const Reading reading(m_store);
    Statement& statement = wanted.order();
    Run run(statement, Task::Read);
    while (run.next())
        ids.push_back(integerAt(statement, 0));
    return ids;
}

std::optional<RowId> StoreTable::oneRow(Statement& statement, Row& row)
{
    Run run(statement, Task::Read);
    if (!run.next())
        return std::nullopt;
    row.resize(static_cast<std::size_t>(m_table.definition.columns.size()));
    for (std::size_t i = 0; i < row.size(); ++i)
        readCell(statement.get(), static_cast<int>(i) + 1, row[i]);
    return integerAt(statement, 0);
}

std::optional<RowId> StoreTable::first(const QString& index, Row& row)
{
    IndexAccess& wanted = access(index);
    const Reading reading(m_store);
    return oneRow(wanted.first(), row);
}

std::optional<RowId> StoreTable::last(const QString& index, Row& row)
{
    IndexAccess& wanted = access(index);
    const Reading reading(m_store);
    return oneRow(wanted.last(), row);
}

std::optional<RowId> StoreTable::seek(const QString& index, std::span<const Value> keys, Row& row)
{
    IndexAccess& wanted = access(index);
    const Reading reading(m_store);
    return oneRow(wanted.seek(keys), row);
}

std::optional<RowId> StoreTable::seekColumns(const QString& index, std::span<const Value> keys,
                                             std::span<const int> columns, Row& row)
{
    if (std::any_of(keys.begin(), keys.end(), isNull))
        return seek(index, keys, row);
    IndexAccess& wanted = access(index);
    const Reading reading(m_store);
    Statement& statement = wanted.seek(keys, columns);
    Run run(statement, Task::Read);
    if (!run.next())
        return std::nullopt;
    row.resize(static_cast<std::size_t>(m_table.definition.columns.size()));
    for (std::size_t i = 0; i < columns.size(); ++i)
        readCell(statement.get(), static_cast<int>(i) + 1, row[static_cast<std::size_t>(columns[i])]);
    return integerAt(statement, 0);
}

bool StoreTable::read(RowId id, Row& row)
{
    const Reading reading(m_store);
    if (!m_read) {
        m_read = m_store.prepare("SELECT " + allColumns(m_table) + " FROM " +
                                     quoted(m_table.definition.name) + " WHERE " + m_table.rowId + " = ?",
                                 Task::Read);
    }
    m_read.bind(1, id);
    return oneRow(m_read, row).has_value();
}

void StoreTable::readMany(std::span<const RowId> ids, std::span<const int> columns, RowBlock& block)
{
    block.rowIds.clear();
    block.rowIds.reserve(ids.size());
    block.columns.assign(columns.begin(), columns.end());
    block.cells.resize(ids.size() * columns.size());
    if (ids.empty())
        return;
    const ReadTransaction transaction(m_store);
    Projection& statements = projection(columns);
    if (isDenseAscending(ids))
        readRange(statements.range, ids, block);
    else
        readSingles(statements.single, ids, block);
    block.cells.resize(block.rowIds.size() * columns.size());
}

StoreTable::Projection& StoreTable::projection(std::span<const int> columns)
{
    for (const std::unique_ptr<Projection>& known : m_projections) {
        if (std::equal(known->columns.begin(), known->columns.end(), columns.begin(), columns.end()))
            return *known;
    }
    const QByteArray text = projectionText(m_table, columns);
    auto made = std::make_unique<Projection>();
    made->columns.assign(columns.begin(), columns.end());
    made->single = m_store.prepare(text + " = ?", Task::Read);
    made->range = m_store.prepare(text + " BETWEEN ? AND ? ORDER BY " + m_table.rowId, Task::Read);
    if (m_projections.size() >= kKeptProjections)
        m_projections.erase(m_projections.begin());
    return *m_projections.emplace_back(std::move(made));
}

void StoreTable::readRange(Statement& statement, std::span<const RowId> ids, RowBlock& block)
{
    statement.bind(1, ids.front());
    statement.bind(2, ids.back());
    Run run(statement, Task::Read);
    auto wanted = ids.begin();
    while (run.next()) {
        const RowId found = integerAt(statement, 0);
        while (wanted != ids.end() && *wanted < found)
            ++wanted;
        for (; wanted != ids.end() && *wanted == found; ++wanted)
            appendRow(statement, block);
    }
}

void StoreTable::readSingles(Statement& statement, std::span<const RowId> ids, RowBlock& block)
{
    for (const RowId id : ids) {
        statement.bind(1, id);
        Run run(statement, Task::Read);
        if (run.next())
            appendRow(statement, block);
    }
}

RowId StoreTable::insert(const Row& row)
{
    return m_writer.insert(row);
}

void StoreTable::insertMany(std::span<const Row> rows)
{
    m_writer.insertMany(rows);
}

void StoreTable::update(RowId id, const Row& original, const Row& changed)
{
    m_writer.update(id, original, changed);
}

void StoreTable::erase(RowId id)
{
    m_writer.erase(id);
}

} // namespace platform::storage::sqlite
