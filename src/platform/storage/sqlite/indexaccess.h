// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The prepared statements that read a table in the order of one index. Each is prepared when it is first
// needed and kept; all are to be used within a reading.

#include "platform/storage/sqlite/schema.h"
#include "platform/storage/sqlite/store.h"

#include <span>
#include <vector>

namespace platform::storage::sqlite {

class IndexAccess
{
public:
    /// `index` is null for the order of the row numbers. All is borrowed.
    IndexAccess(const Store& store, const StoredTable& table, const IndexDefinition* index);

    /// Row numbers in order.
    [[nodiscard]] Statement& order();
    /// Row number and all columns of the first or last row.
    [[nodiscard]] Statement& first();
    [[nodiscard]] Statement& last();
    /// Row number and all columns of the first row under the keys, which are bound already. 3001 too many
    /// keys.
    [[nodiscard]] Statement& seek(std::span<const Value> keys);
    /// Row number and the columns named by position of that row. No key may be Null.
    [[nodiscard]] Statement& seek(std::span<const Value> keys, std::span<const int> columns);

private:
    /// A seek for some columns; only the latest list is kept.
    struct Projected
    {
        std::vector<int> columns;
        Statement statement;
    };

    void requireKeys(std::size_t count) const;
    [[nodiscard]] Statement prepare(const QByteArray& columns, const QByteArray& rest) const;
    [[nodiscard]] QByteArray orderText(const char* direction) const;
    [[nodiscard]] QByteArray keyText(std::size_t count, const char* comparison) const;
    [[nodiscard]] Statement& kept(Statement& statement, const char* direction);

    const Store& m_store;
    const StoredTable& m_table;
    const IndexDefinition* m_index;
    Statement m_order;
    Statement m_first;
    Statement m_last;
    std::vector<Statement> m_seek;     ///< by number of keys
    std::vector<Statement> m_seekNull; ///< the same where a key is Null
    std::vector<Projected> m_seekSome; ///< by number of keys
};

/// Row number and every column, for the head of a SELECT.
[[nodiscard]] QByteArray allColumns(const StoredTable& table);

} // namespace platform::storage::sqlite
