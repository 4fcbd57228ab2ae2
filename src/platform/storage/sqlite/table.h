// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Rows of one table of a store, read and written by row number.

#include "platform/storage/sqlite/indexaccess.h"
#include "platform/storage/sqlite/rowwriter.h"
#include "platform/storage/sqlite/store.h"
#include "platform/storage/storage.h"

#include <map>
#include <memory>

namespace platform::storage::sqlite {

class StoreTable final : public Table
{
public:
    StoreTable(Store& store, StoredTable table);

    [[nodiscard]] const TableDefinition& definition() const override { return m_table.definition; }
    [[nodiscard]] qint64 count() override;
    [[nodiscard]] std::vector<RowId> order(const QString& index) override;
    [[nodiscard]] std::optional<RowId> first(const QString& index, Row& row) override;
    [[nodiscard]] std::optional<RowId> last(const QString& index, Row& row) override;
    [[nodiscard]] std::optional<RowId> seek(const QString& index, std::span<const Value> keys,
                                            Row& row) override;
    [[nodiscard]] std::optional<RowId> seekColumns(const QString& index, std::span<const Value> keys,
                                                   std::span<const int> columns, Row& row) override;
    [[nodiscard]] bool read(RowId id, Row& row) override;
    void readMany(std::span<const RowId> ids, std::span<const int> columns, RowBlock& block) override;
    RowId insert(const Row& row) override;
    void insertMany(std::span<const Row> rows) override;
    void update(RowId id, const Row& original, const Row& changed) override;
    void erase(RowId id) override;

private:
    /// Statements of a block read with one list of columns.
    struct Projection
    {
        std::vector<int> columns;
        Statement range; ///< rows from one number to another
        Statement single;
    };

    [[nodiscard]] IndexAccess& access(const QString& index);
    [[nodiscard]] std::optional<RowId> oneRow(Statement& statement, Row& row);
    [[nodiscard]] Projection& projection(std::span<const int> columns);
    void readRange(Statement& statement, std::span<const RowId> ids, RowBlock& block);
    void readSingles(Statement& statement, std::span<const RowId> ids, RowBlock& block);

    Store& m_store;
    const StoredTable m_table;
    std::vector<std::unique_ptr<IndexAccess>> m_access; ///< as the definition's indexes, then the row numbers
    std::vector<std::unique_ptr<Projection>> m_projections;
    RowWriter m_writer;
    Statement m_read;
    Statement m_count;
    qint64 m_knownCount = 0;
    std::optional<quint64> m_countedAt;
};

} // namespace platform::storage::sqlite
