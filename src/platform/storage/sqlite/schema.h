// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A store's tables as SQLite's own schema tells them, annotated by the metadata. Works as well for a file
// made with another tool: types and sizes come from the declared types, indexes are as they are.

#include "platform/storage/sqlite/handle.h"
#include "platform/storage/storage.h"

namespace platform::storage::sqlite {

/// One table: what the data access sees, and the names that SQLite knows its indexes by.
struct StoredTable
{
    TableDefinition definition;
    QStringList indexNames; ///< as many as `definition.indexes`, in the same order
    QByteArray rowId;       ///< a name of the row number that no column hides

    /// SQLite's name of an index of the definition.
    [[nodiscard]] QString storedName(const IndexDefinition& index) const;
};

/// Column type and size of a declared type: VARCHAR(n), TEXT(n), CHAR(n) are texts of size n; DOUBLE, REAL,
/// integers and decimals are numbers; anything else is a memo.
[[nodiscard]] Column columnOfDeclaredType(const QString& name, const QString& declaredType);
/// Declared type of a column in a store of ours, with its collation.
[[nodiscard]] QByteArray declaredType(const Column& column);

/// SQLite's name of an index: names are per file there, per table here.
[[nodiscard]] QString storedIndexName(const QString& table, const QString& index);

/// The user's tables in the order of their making. System tables, views, virtual tables, tables without row
/// numbers and the metadata table are left out. To be called within a reading or writing.
[[nodiscard]] QList<StoredTable> readSchema(const Database& database);

/// The table of that name, case ignored; null when there is none. Borrowed.
[[nodiscard]] const StoredTable* findTable(const QList<StoredTable>& schema, QStringView name);

} // namespace platform::storage::sqlite
