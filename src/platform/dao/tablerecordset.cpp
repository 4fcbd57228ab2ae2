// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/dao/tablerecordset.h"

#include "platform/dao/conversion.h"

namespace platform::dao {
namespace {

const storage::IndexDefinition* primaryIndex(const storage::TableDefinition& table)
{
    for (const storage::IndexDefinition& index : table.indexes) {
        if (index.primary)
            return &index;
    }
    return nullptr;
}

std::vector<int> keyColumns(const storage::TableDefinition& table, const storage::IndexDefinition* index)
{
    std::vector<int> positions;
    if (index != nullptr) {
        for (const QString& column : index->columns)
            positions.push_back(table.columnIndex(column));
    }
    return positions;
}

} // namespace

TableRecordset::TableRecordset(std::shared_ptr<DatabaseState> openDatabase,
                               std::unique_ptr<storage::Table> openTable)
    : RecordsetState(std::move(openDatabase), openTable->definition().columns)
    , m_table(std::move(openTable))
{
    m_keyColumns = keyColumns(m_table->definition(), primaryIndex(m_table->definition()));
}

void TableRecordset::release() noexcept
{
    m_index = nullptr;
    m_table.reset();
}

QString TableRecordset::index() const
{
    return m_indexName;
}

void TableRecordset::setIndex(const QString& name)
{
    const storage::IndexDefinition* index = m_table->definition().index(name);
    if (index == nullptr)
        throw Failure(kNoSuchIndex, name);
    m_edit.drop();
    if (index != m_index) {
        m_index = index;
        m_indexName = index->name;
        m_keyColumns = keyColumns(m_table->definition(), index);
        wantKeyColumns();
        m_list.clear();
        m_ahead.clear();
        m_position = -1;
    }
    m_at = At::First;
    m_endsUnknown = false;
}

/// The key tells a row's place in the order, also once the row is gone.
void TableRecordset::wantKeyColumns()
{
    for (const int column : m_keyColumns)
        m_sought.note(column);
}

void TableRecordset::resolveFirst()
{
    if (m_at != At::First)
        return;
    const std::optional<storage::RowId> id = m_table->first(m_indexName, m_row);
    m_bof = m_eof = !id;
    m_at = At::Nowhere;
    if (id) {
        standOn(*id);
        m_walking = true;
    }
}

void TableRecordset::standOn(storage::RowId id)
{
    m_at = At::Row;
    m_id = id;
    m_hasRow = true;
    m_isWhole = true;
    m_walking = false;
    m_rowStamp = Stamp::now(database().ownChanges);
}

void TableRecordset::requireRow()
{
    resolveFirst();
    if (m_at == At::Deleted)
        throw Failure(kRecordDeleted);
    if (m_at == At::Nowhere)
        throw Failure(kNoCurrentRecord);
}

std::span<const Value> TableRecordset::convertKeys(std::span<const Value> keys)
{
    if (keys.empty() || keys.size() > m_keyColumns.size())
        throw Failure(kInvalidArgument);
    m_keys.clear();
    for (std::size_t i = 0; i < keys.size(); ++i)
        m_keys.push_back(toColumnType(keys[i], columns()[m_keyColumns[i]].type));
    return m_keys;
}

void TableRecordset::seek(QStringView comparison, std::span<const Value> keys)
{
    m_edit.drop();
    if (m_index == nullptr)
        throw Failure(kNoCurrentIndex);
    if (comparison != QStringView(u"="))
        throw Failure(kInvalidArgument);
    const std::optional<storage::RowId> id =
        m_table->seekColumns(m_indexName, convertKeys(keys), m_sought.wanted(), m_found);
    m_noMatch = !id;
    if (id) {
        std::swap(m_row, m_found);
        standOn(*id);
        m_isWhole = false;
        m_bof = m_eof = m_endsUnknown = false;
        return;
    }
    m_endsUnknown = m_endsUnknown || m_at == At::First;
    m_at = At::Nowhere;
}

bool TableRecordset::noMatch() const
{
    return m_noMatch;
}

void TableRecordset::moveToEnd(End end, bool atStart)
{
    m_edit.drop();
    const std::optional<storage::RowId> id = (*m_table.*end)(m_indexName, m_found);
    m_endsUnknown = false;
    m_bof = m_eof = !id;
    if (!id) {
        m_at = At::Nowhere;
        throw Failure(kNoCurrentRecord);
    }
    std::swap(m_row, m_found);
    standOn(*id);
    m_walking = true;
    m_walkColumns.restart();
    m_position = atStart ? 0 : m_list.size() - 1;
}

void TableRecordset::moveFirst()
{
    moveToEnd(&storage::Table::first, true);
}

void TableRecordset::moveLast()
{
    moveToEnd(&storage::Table::last, false);
}

void TableRecordset::lookAgain()
{
    resolveFirst();
    const bool wasEmpty = m_bof && m_eof;
    if (!wasEmpty && !m_endsUnknown)
        return;
    const bool isEmpty = !m_table->first(m_indexName, m_found);
    m_bof = isEmpty;
    // A record that comes to an empty table makes BOF False and leaves EOF True.
    m_eof = isEmpty || (wasEmpty && !m_endsUnknown);
    m_endsUnknown = false;
}

bool TableRecordset::bof()
{
    lookAgain();
    return m_bof;
}

bool TableRecordset::eof()
{
    lookAgain();
    return m_eof;
}

int TableRecordset::recordCount()
{
    if (m_list.isBuilt() && m_list.isCurrent(connection().dataVersion()))
        return static_cast<int>(m_list.size());
    return static_cast<int>(m_table->count());
}

void TableRecordset::addNew()
{
    resolveFirst();
    m_edit.beginAdd(static_cast<std::size_t>(columns().size()));
}

void TableRecordset::edit()
{
    requireRow();
    loadRow();
    m_edit.beginEdit(m_id, m_row);
}

void TableRecordset::writeEdit()
{
    m_edit.write(*m_table);
    noteOwnChange();
    if (m_edit.isAdding()) {
        m_bof = false;
        return;
    }
    m_row = m_edit.values();
    m_hasRow = m_isWhole = true;
    m_rowStamp = Stamp::now(database().ownChanges);
}

void TableRecordset::erase()
{
    database().writable();
    requireRow();
    // The whole row is kept, to find the one that followed it.
    if (!m_hasRow)
        loadRow();
    try {
        m_table->erase(m_id);
    } catch (const Failure& failure) {
        if (failure.number() == kRecordDeleted)
            m_at = At::Deleted;
        throw;
    }
    noteOwnChange();
    m_edit.drop();
    m_at = At::Deleted;
}

} // namespace platform::dao
