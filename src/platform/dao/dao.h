// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The data access objects that the program works with, under their published names and with their rules and
// failure numbers.
//
// Every class here is a counted handle: a copy means the same object. A handle that nothing has bound fails
// with 91 on any member; one whose object was closed, or went with its database, fails with 3420. Binding a
// new object over the last handle of an old one closes the old one. `h = <call that fails>` leaves `h` as it
// was. All calls are made on one thread.

#include "platform/core/value.h"
#include "platform/dao/constants.h"
#include "platform/storage/storage.h"

#include <QString>

#include <memory>
#include <span>
#include <vector>

namespace platform::dao {

class Fields;
class Indexes;
class IndexFields;
class Database;
class Workspace;
struct FieldState;
struct IndexState;
struct TableDefState;
struct RecordsetState;
struct DatabaseState;
struct WorkspaceState;

/// A column: of a table definition (`Size`, `AllowZeroLength`), or of a recordset (`Value`).
class Field
{
public:
    Field() = default;
    /// `table` is the definition that the column was taken from, kept as long as the handle.
    explicit Field(std::shared_ptr<FieldState> state, std::shared_ptr<TableDefState> table = nullptr);

    [[nodiscard]] QString Name() const;
    /// Declared units for text, 8 for a number, 0 for a memo.
    [[nodiscard]] int Size() const;
    /// Only before the column is appended to a stored table.
    void setSize(int size);
    [[nodiscard]] bool AllowZeroLength() const;
    /// On a stored table it acts at once. 3219 on a numeric column.
    void setAllowZeroLength(bool allowed);
    /// Value in the edit buffer while an edit is pending, else in the current row. 3021 no current record,
    /// 3167 deleted. Fails on a column of a table definition, which has no row.
    [[nodiscard]] platform::Value Value() const;
    /// Into the edit buffer, converted to the column's type at once. 3020 no edit pending, 3163 text longer
    /// than `Size`, 3421 no number in a numeric column, 3315 "" where it isn't allowed. A failure leaves the
    /// buffer's value.
    void setValue(const platform::Value& value) const;
    void setValue(const QString& text) const;
    void setValue(double number) const;

private:
    friend class Fields;
    friend class IndexFields;
    std::shared_ptr<FieldState> m_state;
    std::shared_ptr<TableDefState> m_table;
};

/// Columns of a table definition or of a recordset, by position from 0 or by name without regard to case.
class Fields
{
public:
    [[nodiscard]] int Count() const;
    [[nodiscard]] Field Item(int index) const;           ///< 3265
    [[nodiscard]] Field Item(const QString& name) const; ///< 3265
    /// Of a table definition. On a stored table the column is there at once. 3191 a name that is taken, 91 an
    /// unbound field.
    void Append(const Field& field);
    void Delete(const QString& name);

private:
    friend class TableDef;
    friend class Recordset;
    std::shared_ptr<TableDefState> m_table;
    std::shared_ptr<RecordsetState> m_recordset;
};

class IndexFields
{
public:
    [[nodiscard]] int Count() const;
    void Append(const Field& field);

private:
    friend class Index;
    std::shared_ptr<IndexState> m_index;
    std::shared_ptr<TableDefState> m_table;
};

class Index
{
public:
    Index() = default;
    /// `table` is the definition that the index was taken from, kept as long as the handle.
    explicit Index(std::shared_ptr<IndexState> state, std::shared_ptr<TableDefState> table = nullptr);

    [[nodiscard]] QString Name() const;
    [[nodiscard]] bool Primary() const;
    void setPrimary(bool primary);
    [[nodiscard]] bool Unique() const;
    void setUnique(bool unique);
    [[nodiscard]] Field CreateField(const QString& name) const;
    [[nodiscard]] IndexFields Fields() const;

private:
    friend class Indexes;
    std::shared_ptr<IndexState> m_state;
    std::shared_ptr<TableDefState> m_table;
};

class Indexes
{
public:
    [[nodiscard]] int Count() const;
    [[nodiscard]] Index Item(int index) const;
    [[nodiscard]] Index Item(const QString& name) const;
    /// On a stored table the index is built at once: 3022 duplicates, 3058 Null in a primary key, 3284 name
    /// taken, 3283 second primary. A failure changes nothing.
    void Append(const Index& index);

private:
    friend class TableDef;
    std::shared_ptr<TableDefState> m_table;
};

/// A table's definition, in memory until it is appended to `TableDefs`.
class TableDef
{
public:
    TableDef() = default;
    explicit TableDef(std::shared_ptr<TableDefState> state);

    [[nodiscard]] QString Name() const;
    /// Builds a column in memory; nothing fails but an unbound handle. A text without a size gets 255.
    [[nodiscard]] Field CreateField(const QString& name, FieldType type, int size = 0) const;
    [[nodiscard]] Index CreateIndex(const QString& name) const;
    [[nodiscard]] dao::Fields Fields() const;
    [[nodiscard]] dao::Indexes Indexes() const;

private:
    friend class TableDefs;
    std::shared_ptr<TableDefState> m_state;
};

class TableDefs
{
public:
    /// The user's tables and `kSystemTables`.
    [[nodiscard]] int Count() const;
    [[nodiscard]] TableDef Item(const QString& name) const; ///< 3265
    /// Creates the table with its appended columns and indexes in one step. 3010 when the name is taken.
    void Append(const TableDef& table);

private:
    friend class Database;
    std::shared_ptr<DatabaseState> m_database;
};

/// Rows as `GetRows` gives them: `at(field, row)`, both from 0.
class RowArray
{
public:
    [[nodiscard]] int fieldCount() const;
    [[nodiscard]] qsizetype rowCount() const;
    [[nodiscard]] const Value& at(int field, qsizetype row) const;
    /// Writes a cell; copies that share the rows are left alone.
    void set(int field, qsizetype row, Value value);

private:
    friend class Recordset;
    std::shared_ptr<std::vector<std::vector<Value>>> m_columns;
    qsizetype m_first = 0;
    qsizetype m_count = 0;
};

/// A table-type recordset (held position on a table, with `Index` and `Seek`), a dynaset or a snapshot (rows
/// copied at the opening).
class Recordset
{
public:
    Recordset() = default;
    explicit Recordset(std::shared_ptr<RecordsetState> state);

    [[nodiscard]] bool isBound() const noexcept; ///< false: never bound

    [[nodiscard]] QString Index() const;
    /// 3015 no such index (the old one stays), 3251 not a table-type recordset. Drops a pending edit; the
    /// first record becomes current.
    void setIndex(const QString& name);
    /// Finds the first row, in index order, whose leading key columns equal `keys`; sets `NoMatch`. Not
    /// found: no current record. 3019 no index, 3421 a key that can't be converted, 3001 too many keys or
    /// another comparison than "=". A failing seek changes neither `NoMatch` nor the position; a pending edit
    /// is dropped either way.
    template <typename... Keys>
    void Seek(QStringView comparison, const Keys&... keys)
    {
        const platform::Value values[] = {platform::Value(keys)...};
        seek(comparison, values);
    }
    /// Written by `Seek` only.
    [[nodiscard]] bool NoMatch() const;

    void MoveFirst();
    void MoveNext();
    void MoveLast();
    [[nodiscard]] bool BOF() const;
    [[nodiscard]] bool EOF_() const;
    /// Table-type: exact at the moment. Others: rows visited so far.
    [[nodiscard]] int RecordCount() const;

    void AddNew();
    void Edit();
    void Update();
    void Delete();
    void Close();

    [[nodiscard]] bool LockEdits() const;
    void setLockEdits(bool pessimistic);

    [[nodiscard]] dao::Fields Fields() const;
    /// Shorthand for `Fields().Item(name)` and `.Item(position)`.
    [[nodiscard]] Field operator[](QStringView name) const;
    [[nodiscard]] Field operator[](int position) const;

    /// At most `count` rows from the current one on; the cursor stands after the last row taken.
    [[nodiscard]] RowArray GetRows(qsizetype count);

private:
    void seek(QStringView comparison, std::span<const platform::Value> keys);
    std::shared_ptr<RecordsetState> m_state;
};

class Recordsets
{
public:
    [[nodiscard]] int Count() const;
    [[nodiscard]] Recordset Item(int index) const; ///< 3265

private:
    friend class Database;
    std::shared_ptr<DatabaseState> m_database;
};

class Database
{
public:
    Database() = default;
    explicit Database(std::shared_ptr<DatabaseState> state);

    [[nodiscard]] bool isBound() const noexcept;

    [[nodiscard]] QString Name() const; ///< the path as the program gave it
    [[nodiscard]] TableDef CreateTableDef(const QString& name) const;
    [[nodiscard]] dao::TableDefs TableDefs() const;
    [[nodiscard]] dao::Recordsets Recordsets() const;
    /// Table-type: `source` is a table's name (3011). Dynaset and snapshot: a table's name or a query (3078,
    /// 3061, 3075, 3085, 3142, 3219), run at once.
    [[nodiscard]] Recordset OpenRecordset(const QString& source, RecordsetType type) const;
    /// Takes `DROP INDEX name ON table`; 3065 for a query.
    void Execute(const QString& sql);
    /// Closes every recordset on it and drops their pending edits.
    void Close();

private:
    std::shared_ptr<DatabaseState> m_state;
};

class Databases
{
public:
    [[nodiscard]] int Count() const;
    [[nodiscard]] Database Item(int index) const; ///< 3265

private:
    friend class Workspace;
    std::shared_ptr<WorkspaceState> m_workspace;
};

class Workspace
{
public:
    Workspace() = default;

    /// Creates an empty store and opens it. 3204 when any file of that name is there. A store that appears
    /// when it is closed is made whole or not at all, whatever happens to this station meanwhile.
    [[nodiscard]] Database CreateDatabase(const QString& path, QStringView locale, int option,
                                          storage::Appears appears = storage::Appears::AtOnce);
    [[nodiscard]] Database OpenDatabase(const QString& path, bool exclusive = false, bool readOnly = false);
    [[nodiscard]] dao::Databases Databases() const;

private:
    friend class Engine;
    std::shared_ptr<WorkspaceState> m_state;
};

/// The one engine of the process.
class Engine
{
public:
    [[nodiscard]] Workspace Workspaces(int index); ///< only 0; else 3265
    /// Repairs a store file in place and keeps the damaged one beside it. `expected` gives the tables to make
    /// when the file's own schema is lost.
    void RepairDatabase(const QString& path, const QList<storage::TableDefinition>& expected = {});

    /// Replaces what keeps the rows (tests); null brings the real engine back. Closes every open database.
    void setStorage(std::shared_ptr<storage::Engine> storage);
};

[[nodiscard]] Engine& DBEngine();

} // namespace platform::dao
