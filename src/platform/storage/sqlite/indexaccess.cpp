// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/storage/sqlite/indexaccess.h"

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace platform::storage::sqlite {

IndexAccess::IndexAccess(const Store& store, const StoredTable& table, const IndexDefinition* index)
    : m_store(store)
    , m_table(table)
    , m_index(index)
{
    const std::size_t keys = index != nullptr ? static_cast<std::size_t>(index->columns.size()) : 0;
    m_seek.resize(keys + 1);
    m_seekNull.resize(keys + 1);
    m_seekSome.resize(keys + 1);
}

Statement& IndexAccess::order()
{
    if (!m_order)
        m_order = prepare(m_table.rowId, orderText(""));
    return m_order;
}

Statement& IndexAccess::first()
{
    return kept(m_first, "");
}

Statement& IndexAccess::last()
{
    return kept(m_last, " DESC");
}

Statement& IndexAccess::kept(Statement& statement, const char* direction)
{
    if (!statement)
        statement = prepare(allColumns(m_table), orderText(direction) + " LIMIT 1");
    return statement;
}

Statement& IndexAccess::seek(std::span<const Value> keys)
{
    requireKeys(keys.size());
    const bool hasNull = std::any_of(keys.begin(), keys.end(), isNull);
    Statement& statement = (hasNull ? m_seekNull : m_seek)[keys.size()];
    if (!statement) {
        statement = prepare(allColumns(m_table),
                            keyText(keys.size(), hasNull ? " IS ?" : " = ?") + orderText("") + " LIMIT 1");
    }
    for (std::size_t i = 0; i < keys.size(); ++i)
        statement.bind(static_cast<int>(i) + 1, keys[i]);
    return statement;
}

Statement& IndexAccess::seek(std::span<const Value> keys, std::span<const int> columns)
{
    requireKeys(keys.size());
    Projected& known = m_seekSome[keys.size()];
    if (!known.statement ||
        !std::equal(known.columns.begin(), known.columns.end(), columns.begin(), columns.end())) {
        QByteArray text = m_table.rowId;
        for (const int column : columns)
            text += ", " + quoted(m_table.definition.columns.at(column).name);
        known.statement = prepare(text, keyText(keys.size(), " = ?") + orderText("") + " LIMIT 1");
        known.columns.assign(columns.begin(), columns.end());
    }
    for (std::size_t i = 0; i < keys.size(); ++i)
        known.statement.bind(static_cast<int>(i) + 1, keys[i]);
    return known.statement;
}

void IndexAccess::requireKeys(std::size_t count) const
{
    if (count >= m_seek.size())
        throw Failure(kInvalidArgument, u"more keys than the index has columns"_s);
}

Statement IndexAccess::prepare(const QByteArray& columns, const QByteArray& rest) const
{
    const QByteArray head = "SELECT " + columns + " FROM " + quoted(m_table.definition.name);
    if (m_index == nullptr)
        return m_store.prepare(head + rest, Task::Read);
    try {
        return m_store.prepare(head + " INDEXED BY " + quoted(m_table.storedName(*m_index)) + rest,
                               Task::Read);
    } catch (const Failure& failure) {
        // An index made elsewhere may sort otherwise than its columns do and so not serve.
        if (failure.number() != kSyntaxError)
            throw;
    }
    return m_store.prepare(head + rest, Task::Read);
}

QByteArray IndexAccess::orderText(const char* direction) const
{
    QByteArray text = " ORDER BY ";
    if (m_index != nullptr) {
        for (const QString& column : m_index->columns)
            text += quoted(column) + direction + ", ";
    }
    return text + m_table.rowId + direction;
}

QByteArray IndexAccess::keyText(std::size_t count, const char* comparison) const
{
    QByteArray text;
    for (std::size_t i = 0; i < count; ++i)
        text += (i == 0 ? " WHERE " : " AND ") + quoted(m_index->columns.at(static_cast<qsizetype>(i))) +
                comparison;
    return text;
}

QByteArray allColumns(const StoredTable& table)
{
    QByteArray text = table.rowId;
    for (const Column& column : table.definition.columns)
        text += ", " + quoted(column.name);
    return text;
}

} // namespace platform::storage::sqlite
