// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The seam between the data access objects and whatever keeps the rows: an engine opens, creates and repairs
// store files; a connection knows tables and runs queries; a table reads and writes rows by number.
//
// Every operation fails by throwing `Failure` with the data engine's number. Nothing stays half done: an
// operation that fails leaves the file as it was. No lock is held between two calls.
// Paths are native and already resolved (see `platform/system/paths.h`).

#include "platform/core/value.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace platform::sql {
struct Select;
}

namespace platform::storage {

enum class ColumnType { Text, Number, Memo };

struct Column
{
    QString name;
    ColumnType type = ColumnType::Text;
    int size = 0; ///< UTF-16 units a text may have; 0 for numbers and memos
    bool allowZeroLength = false;
};

struct IndexDefinition
{
    QString name;
    bool primary = false;
    bool unique = false;
    QStringList columns; ///< ascending, in key order
};

struct TableDefinition
{
    QString name;
    QList<Column> columns;
    QList<IndexDefinition> indexes;

    /// Position of a column by name, case ignored; -1 when there is none.
    [[nodiscard]] int columnIndex(QStringView columnName) const;
    /// The index of that name, case ignored; null when there is none. Borrowed.
    [[nodiscard]] const IndexDefinition* index(QStringView indexName) const;
};

/// Number of a row within its table, unchanged while the row lives.
using RowId = qint64;
using Row = std::vector<Value>;

/// Rows of a block read: `columns` names which columns were asked for, `cells` holds them row after row.
struct RowBlock
{
    std::vector<RowId> rowIds;
    std::vector<int> columns;
    std::vector<Value> cells;
};

/// Rows of one table. Lives no longer than its connection.
class Table
{
public:
    virtual ~Table() = default;

    /// The definition as of the opening of this object.
    [[nodiscard]] virtual const TableDefinition& definition() const = 0;

    [[nodiscard]] virtual qint64 count() = 0;
    /// Every row number in the order of the index (equal keys by row number). An empty name is the primary
    /// index, or the order of row numbers where there is none.
    [[nodiscard]] virtual std::vector<RowId> order(const QString& index) = 0;
    /// First or last row in the order of the index, all columns in `row`; nothing when the table is empty.
    [[nodiscard]] virtual std::optional<RowId> first(const QString& index, Row& row) = 0;
    [[nodiscard]] virtual std::optional<RowId> last(const QString& index, Row& row) = 0;
    /// First row, in index order, whose leading key columns equal `keys` (already of the columns' types).
    /// Fewer keys than columns leave the others free. A Null key finds a Null column.
    [[nodiscard]] virtual std::optional<RowId> seek(const QString& index, std::span<const Value> keys,
                                                    Row& row) = 0;
    /// The same where only the columns named by position are needed; `row` gets its full width, and what the
    /// other cells hold is left open. An engine that can saves the work of reading them.
    [[nodiscard]] virtual std::optional<RowId> seekColumns(const QString& index, std::span<const Value> keys,
                                                           std::span<const int> columns, Row& row)
    {
        static_cast<void>(columns);
        return seek(index, keys, row);
    }
    /// One row, all columns. False when it is gone.
    [[nodiscard]] virtual bool read(RowId id, Row& row) = 0;
    /// Several rows, only the columns named by position, in the order asked; rows that are gone are left out.
    virtual void readMany(std::span<const RowId> ids, std::span<const int> columns, RowBlock& block) = 0;

    /// Adds a row. 3022 duplicate key, 3058 Null in the primary key, 3260 locked.
    virtual RowId insert(const Row& row) = 0;
    /// Adds many rows for tools that fill a store; an engine that can does it in one transaction, all rows or
    /// none. Failures as `insert`.
    virtual void insertMany(std::span<const Row> rows)
    {
        for (const Row& row : rows)
            insert(row);
    }
    /// Writes `changed` where the row still equals `original`. 3167 gone, 3197 changed by another, 3022,
    /// 3058, 3260.
    virtual void update(RowId id, const Row& original, const Row& changed) = 0;
    /// Deletes a row. 3167 gone, 3260.
    virtual void erase(RowId id) = 0;
};

struct ResultColumn
{
    QString name; ///< alias, or the column's name as declared
    ColumnType type = ColumnType::Text;
    int size = 0; ///< declared size of a text, 8 for a number, 0 for a memo or an expression
};

/// All rows of a query, copied when it ran; column after column.
struct ResultSet
{
    std::vector<ResultColumn> columns;
    std::vector<std::vector<Value>> values; ///< [column][row]
    qint64 rowCount = 0;
    /// Row numbers and table of a query that takes every column of one table (`t.*`), else empty: such a
    /// result can be edited.
    std::vector<RowId> rowIds;
    QString table;
};

class Connection
{
public:
    virtual ~Connection() = default;

    [[nodiscard]] virtual bool isReadOnly() const = 0;
    /// A number that changes whenever anyone, this connection included, has changed the file.
    [[nodiscard]] virtual quint64 dataVersion() = 0;
    /// What the engine's own examination of the whole file finds wrong, one text a fault; empty when it is
    /// sound. Changes nothing.
    [[nodiscard]] virtual QStringList integrityFaults() { return {}; }

    /// The user's tables, in the order of their making. Reads the schema anew when another station changed
    /// it.
    [[nodiscard]] virtual QList<TableDefinition> tables() = 0;
    /// 3078 when there is no such table (names ignore case).
    [[nodiscard]] virtual std::unique_ptr<Table> openTable(const QString& name) = 0;
    /// Runs a parsed query: 3078 unknown table, 3061 unknown column, 3085 unknown function.
    [[nodiscard]] virtual ResultSet query(const sql::Select& select) = 0;

    /// Schema changes, each one transaction. 3010, 3191, 3284, 3283, 3022, 3058, 3211, 3372, 3376, 3027.
    virtual void createTable(const TableDefinition& table) = 0;
    virtual void addColumn(const QString& table, const Column& column) = 0;
    virtual void dropColumn(const QString& table, const QString& column) = 0;
    virtual void createIndex(const QString& table, const IndexDefinition& index) = 0;
    virtual void dropIndex(const QString& table, const QString& index) = 0;
    virtual void setAllowZeroLength(const QString& table, const QString& column, bool allowed) = 0;
};

enum class Sharing { Shared, Exclusive };

/// When a new file is there for others: at once, or when its maker closes it, whole. Whoever dies before that
/// leaves none.
enum class Appears { AtOnce, WhenClosed };

struct CreateOptions
{
    QString locale;
    int formatOption = 64; ///< 64 or the older 32; kept in the file, without effect
    Appears appears = Appears::AtOnce;
};

class Engine
{
public:
    virtual ~Engine() = default;

    /// 3024 no file, 3044 no folder, 3049 not a database or of length 0, 3050 locked, 3051 no permission.
    [[nodiscard]] virtual std::unique_ptr<Connection> open(const QString& path, Sharing sharing) = 0;
    /// Makes an empty file and opens it, shared. 3204 the name is taken, 3044 no folder, 3050 another station
    /// has been making it for two seconds.
    [[nodiscard]] virtual std::unique_ptr<Connection> create(const QString& path,
                                                             const CreateOptions& options) = 0;
    /// Keeps the file found beside the new one (`<name>.dañado-N`) and writes a new one with every row that
    /// can be read. `expected` gives the tables to make when the file's own schema can't be read. 3050 when
    /// anyone has the file open.
    virtual void repair(const QString& path, const QList<TableDefinition>& expected) = 0;
};

/// The engine for store files of today: SQLite 3.
[[nodiscard]] std::shared_ptr<Engine> sqliteEngine();

} // namespace platform::storage
