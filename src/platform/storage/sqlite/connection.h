// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// An open store as the data access sees it.

#include "platform/storage/sqlite/schema.h"
#include "platform/storage/sqlite/store.h"
#include "platform/storage/storage.h"

#include <functional>

namespace platform::storage::sqlite {

class StoreConnection final : public Connection
{
public:
    explicit StoreConnection(std::unique_ptr<Store> store);

    [[nodiscard]] bool isReadOnly() const override;
    [[nodiscard]] quint64 dataVersion() override;
    [[nodiscard]] QStringList integrityFaults() override;
    [[nodiscard]] QList<TableDefinition> tables() override;
    [[nodiscard]] std::unique_ptr<Table> openTable(const QString& name) override;
    [[nodiscard]] ResultSet query(const sql::Select& select) override;
    void createTable(const TableDefinition& table) override;
    void addColumn(const QString& table, const Column& column) override;
    void dropColumn(const QString& table, const QString& column) override;
    void createIndex(const QString& table, const IndexDefinition& index) override;
    void dropIndex(const QString& table, const QString& index) override;
    void setAllowZeroLength(const QString& table, const QString& column, bool allowed) override;

private:
    /// The schema of the moment, read again only when its number changed. To be called within a reading.
    [[nodiscard]] const QList<StoredTable>& schema();
    /// The table of that name, 3078 when there is none. To be called within a reading.
    [[nodiscard]] const StoredTable& table(const QString& name);
    void changeStructure(const std::function<void(const Database&)>& change);

    std::unique_ptr<Store> m_store;
    QList<StoredTable> m_schema;
    std::optional<qint64> m_schemaNumber;
};

} // namespace platform::storage::sqlite
