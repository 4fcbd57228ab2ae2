// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/dao/states.h"

#include "platform/dao/recordsetstate.h"

namespace platform::dao {

storage::TableDefinition TableDefState::definition() const
{
    storage::TableDefinition definition{name, {}, {}};
    for (const std::shared_ptr<FieldState>& field : fields)
        definition.columns.append(field->column);
    for (const std::shared_ptr<IndexState>& index : indexes)
        definition.indexes.append(index->definition);
    return definition;
}

int TableDefState::fieldPosition(QStringView fieldName) const
{
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (fieldName.compare(fields[i]->column.name, Qt::CaseInsensitive) == 0)
            return static_cast<int>(i);
    }
    return -1;
}

int TableDefState::indexPosition(QStringView indexName) const
{
    for (std::size_t i = 0; i < indexes.size(); ++i) {
        if (indexName.compare(indexes[i]->definition.name, Qt::CaseInsensitive) == 0)
            return static_cast<int>(i);
    }
    return -1;
}

void TableDefState::requireValid() const
{
    if (!stored)
        return;
    const std::shared_ptr<DatabaseState> owner = database.lock();
    if (!owner || owner->isClosed())
        throw Failure(kObjectInvalid);
}

storage::Connection& TableDefState::writableConnection() const
{
    requireValid();
    return database.lock()->writable();
}

std::shared_ptr<TableDefState> storedTable(const storage::TableDefinition& definition,
                                           const std::shared_ptr<DatabaseState>& database)
{
    auto table = std::make_shared<TableDefState>();
    table->name = definition.name;
    table->stored = true;
    table->database = database;
    for (const storage::Column& column : definition.columns) {
        auto field = std::make_shared<FieldState>();
        field->column = column;
        field->table = table;
        field->owner = FieldState::Owner::Table;
        table->fields.push_back(std::move(field));
    }
    for (const storage::IndexDefinition& index : definition.indexes)
        table->indexes.push_back(std::make_shared<IndexState>(IndexState{index, table}));
    return table;
}

DatabaseState::~DatabaseState()
{
    close();
}

storage::Connection& DatabaseState::writable() const
{
    if (readOnly)
        throw Failure(kReadOnly);
    return *connection;
}

void DatabaseState::close() noexcept
{
    if (isClosed())
        return;
    while (!recordsets.empty())
        recordsets.back()->close();
    connection.reset();
    if (const std::shared_ptr<WorkspaceState> owner = workspace.lock())
        std::erase(owner->databases, this);
}

Database WorkspaceState::adopt(const QString& name, std::unique_ptr<storage::Connection> connection,
                               bool readOnly)
{
    auto database = std::make_shared<DatabaseState>();
    database->name = name;
    database->storage = storage;
    database->connection = std::move(connection);
    database->workspace = weak_from_this();
    database->readOnly = readOnly;
    databases.push_back(database.get());
    return Database(std::move(database));
}

void WorkspaceState::closeAll()
{
    while (!databases.empty()) {
        // Keeps the object alive while its recordsets let go of it.
        const std::shared_ptr<DatabaseState> database = databases.back()->shared_from_this();
        database->close();
    }
}

} // namespace platform::dao
