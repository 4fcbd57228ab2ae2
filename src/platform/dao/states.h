// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What the handles of dao.h refer to. For the sources of this folder only.

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"
#include "platform/dao/callprobe.h"
#include "platform/dao/dao.h"

#include <memory>
#include <vector>

namespace platform::dao {

/// A column. It belongs to at most one of: a table definition, a recordset.
struct FieldState
{
    storage::Column column;
    std::weak_ptr<TableDefState> table;  ///< set once it is appended to a table definition
    RecordsetState* recordset = nullptr; ///< borrowed; cleared when the recordset goes
    int position = 0;                    ///< in the recordset
    enum class Owner { None, Table, Recordset } owner = Owner::None;
};

struct IndexState
{
    storage::IndexDefinition definition;
    std::weak_ptr<TableDefState> table; ///< set once it is appended to a table definition
};

struct TableDefState : std::enable_shared_from_this<TableDefState>
{
    QString name;
    std::vector<std::shared_ptr<FieldState>> fields;
    std::vector<std::shared_ptr<IndexState>> indexes;
    bool stored = false;                   ///< appended to a database, or taken from one
    std::weak_ptr<DatabaseState> database; ///< of a stored table

    /// The whole definition as the storage takes it.
    [[nodiscard]] storage::TableDefinition definition() const;
    /// Position of a column by name, or -1.
    [[nodiscard]] int fieldPosition(QStringView fieldName) const;
    [[nodiscard]] int indexPosition(QStringView indexName) const;
    /// 3420 when it is stored in a database that was closed.
    void requireValid() const;
    /// The connection of a stored table. 3027 when its database was opened for reading only.
    [[nodiscard]] storage::Connection& writableConnection() const;
};

/// Takes a stored table's definition into a table definition object.
[[nodiscard]] std::shared_ptr<TableDefState> storedTable(const storage::TableDefinition& definition,
                                                         const std::shared_ptr<DatabaseState>& database);

struct DatabaseState : std::enable_shared_from_this<DatabaseState>
{
    ~DatabaseState();

    QString name;
    std::shared_ptr<storage::Engine> storage; ///< outlives the connection
    std::unique_ptr<storage::Connection> connection;
    std::weak_ptr<WorkspaceState> workspace;
    std::vector<RecordsetState*> recordsets; ///< borrowed, in the order of opening
    bool readOnly = false;
    quint64 ownChanges = 0; ///< writes made through this object

    [[nodiscard]] bool isClosed() const noexcept { return connection == nullptr; }
    /// 3027 when it was opened for reading only.
    storage::Connection& writable() const;
    /// Closes every recordset on it, then the connection. Nothing happens when it is closed already.
    void close() noexcept;
};

struct WorkspaceState : std::enable_shared_from_this<WorkspaceState>
{
    std::shared_ptr<storage::Engine> storage;
    std::vector<DatabaseState*> databases; ///< borrowed, in the order of opening

    /// Makes an open connection a member of the collection.
    [[nodiscard]] Database adopt(const QString& name, std::unique_ptr<storage::Connection> connection,
                                 bool readOnly);
    void closeAll();
};

/// The object of a bound handle; 91 when nothing has bound it.
template <typename State>
State& bound(const std::shared_ptr<State>& state)
{
    if (!state)
        throw Failure(kObjectNotSet);
    probeCall();
    return *state;
}

/// The same, and 3420 when the object was closed.
template <typename State>
State& open(const std::shared_ptr<State>& state)
{
    State& object = bound(state);
    if (object.isClosed())
        throw Failure(kObjectInvalid);
    return object;
}

/// A member of a collection by position from 0; 3265 outside.
template <typename Members>
[[nodiscard]] auto& member(Members& members, int index)
{
    if (index < 0 || static_cast<std::size_t>(index) >= members.size())
        throw Failure(kItemNotInCollection);
    return members[static_cast<std::size_t>(index)];
}

} // namespace platform::dao
