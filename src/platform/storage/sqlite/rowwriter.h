// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Writing of single rows, each one durable transaction: what was read is compared with what stands there now,
// so that nobody's change is lost unseen.

#include "platform/storage/sqlite/schema.h"
#include "platform/storage/sqlite/store.h"

#include <map>

namespace platform::storage::sqlite {

class RowWriter
{
public:
    /// Both are borrowed.
    RowWriter(Store& store, const StoredTable& table);

    /// As the operations of `Table`.
    RowId insert(const Row& row);
    void insertMany(std::span<const Row> rows);
    void update(RowId id, const Row& original, const Row& changed);
    void erase(RowId id);

private:
    void requireWhole(const Row& row) const;
    void requirePrimaryKey(const Row& row) const;
    void requireUnchanged(RowId id, const Row& original);
    /// Runs the insert of one row within the transaction that stands.
    void add(const Row& row);
    [[nodiscard]] Statement& updateOf(const std::vector<int>& columns);

    Store& m_store;
    const StoredTable& m_table;
    Statement m_read;
    Statement m_insert;
    Statement m_erase;
    std::map<std::vector<int>, Statement> m_updates; ///< by the columns that change
};

} // namespace platform::storage::sqlite
