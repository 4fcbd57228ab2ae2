// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The schema of a damaged file: what its schema rows say is made anew in an empty database in memory, which
// then tells tables, types and indexes as for any store.

#include "platform/storage/sqlite/handle.h"
#include "platform/storage/sqlite/pagefile.h"
#include "platform/storage/storage.h"

namespace platform::storage::sqlite {

/// A row of SQLite's schema table.
struct SchemaRow
{
    QString type; ///< "table" or "index"
    QString name;
    quint32 root = 0;
    QString sql;
};

/// The schema row in the values of a record, if it is one.
[[nodiscard]] std::optional<SchemaRow> schemaRowOf(const std::vector<Value>& values);

class SalvagedSchema
{
public:
    SalvagedSchema();

    /// Makes the object. A text that is no longer a plain CREATE TABLE or CREATE INDEX is passed over.
    void add(const SchemaRow& row);
    /// Puts a row into the metadata table.
    void addMetadata(const std::vector<Value>& values);

    [[nodiscard]] QList<TableDefinition> tables() const;
    [[nodiscard]] CreateOptions options() const;
    /// Position of a table's INTEGER PRIMARY KEY, -1 when it has none.
    [[nodiscard]] int rowIdColumn(const TableDefinition& table) const;

private:
    Database m_memory;
};

} // namespace platform::storage::sqlite
