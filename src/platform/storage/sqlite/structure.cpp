// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/storage/sqlite/structure.h"

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"
#include "platform/storage/sqlite/metadata.h"

using namespace Qt::StringLiterals;

namespace platform::storage::sqlite {

namespace {

void run(const Database& database, const QByteArray& sql)
{
    database.execute(sql, Task::Structure);
}

StoredTable tableOf(const Database& database, const QString& name)
{
    const QList<StoredTable> schema = readSchema(database);
    const StoredTable* table = findTable(schema, name);
    if (table == nullptr)
        throw Failure(kNoSuchTable, name);
    return *table;
}

/// The column's name as declared.
QString columnOf(const StoredTable& table, const QString& name)
{
    const int position = table.definition.columnIndex(name);
    if (position < 0)
        throw Failure(kItemNotInCollection, name);
    return table.definition.columns.at(position).name;
}

bool objectExists(const Database& database, const QString& name)
{
    Statement statement(database.get(), "SELECT name FROM sqlite_master", Task::Structure);
    Run names(statement, Task::Structure);
    while (names.next()) {
        if (textAt(statement, 0).compare(name, Qt::CaseInsensitive) == 0)
            return true;
    }
    return false;
}

void requireColumnsOnce(const TableDefinition& table)
{
    if (table.columns.isEmpty())
        throw Failure(kInvalidArgument, u"a table needs a column"_s);
    for (qsizetype i = 0; i < table.columns.size(); ++i) {
        if (table.columnIndex(table.columns.at(i).name) != i)
            throw Failure(kFieldDefinedTwice, table.columns.at(i).name);
    }
}

QByteArray columnText(const Column& column)
{
    return quoted(column.name) + ' ' + declaredType(column);
}

void requireFreeIndex(const TableDefinition& table, const IndexDefinition& index)
{
    if (table.index(index.name) != nullptr)
        throw Failure(kIndexAlreadyExists, index.name);
    for (const IndexDefinition& other : table.indexes) {
        if (index.primary && other.primary)
            throw Failure(kPrimaryKeyAlreadyExists, other.name);
    }
}

void requireNoNulls(const Database& database, const QString& table, const QStringList& columns)
{
    for (const QString& column : columns) {
        const QByteArray sql =
            "SELECT EXISTS(SELECT 1 FROM " + quoted(table) + " WHERE " + quoted(column) + " IS NULL)";
        if (database.number(sql, Task::Structure) != 0)
            throw Failure(kNullInPrimaryKey, column);
    }
}

/// Numbers the structure anew, so that every station reads the notes again.
void announceChange(const Database& database)
{
    const qint64 number = database.number("PRAGMA schema_version", Task::Structure);
    run(database, "PRAGMA schema_version = " + QByteArray::number(number + 1));
}

} // namespace

void makeTable(const Database& database, const TableDefinition& table)
{
    if (objectExists(database, table.name))
        throw Failure(kTableAlreadyExists, table.name);
    requireColumnsOnce(table);
    QByteArray columns;
    for (const Column& column : table.columns)
        columns += (columns.isEmpty() ? "" : ", ") + columnText(column);
    run(database, "CREATE TABLE " + quoted(table.name) + "(" + columns + ")");
    for (const Column& column : table.columns)
        noteColumn(database, table.name, column);
    for (const IndexDefinition& index : table.indexes)
        makeIndex(database, table.name, index);
}

void makeColumn(const Database& database, const QString& table, const Column& column)
{
    const StoredTable stored = tableOf(database, table);
    if (stored.definition.columnIndex(column.name) >= 0)
        throw Failure(kFieldDefinedTwice, column.name);
    const QString& name = stored.definition.name;
    run(database, "ALTER TABLE " + quoted(name) + " ADD COLUMN " + columnText(column));
    noteColumn(database, name, column);
}

void removeColumn(const Database& database, const QString& table, const QString& column)
{
    const StoredTable stored = tableOf(database, table);
    const QString name = columnOf(stored, column);
    for (const IndexDefinition& index : stored.definition.indexes) {
        if (index.columns.contains(name, Qt::CaseInsensitive))
            throw Failure(kFieldInIndex, index.name);
    }
    if (stored.definition.columns.size() == 1)
        throw Failure(kInvalidOperation, u"a table keeps one column at least"_s);
    run(database, "ALTER TABLE " + quoted(stored.definition.name) + " DROP COLUMN " + quoted(name));
    forgetColumn(database, stored.definition.name, name);
}

void makeIndex(const Database& database, const QString& table, const IndexDefinition& index)
{
    const StoredTable stored = tableOf(database, table);
    const QString& owner = stored.definition.name;
    requireFreeIndex(stored.definition, index);
    if (index.columns.isEmpty())
        throw Failure(kInvalidArgument, u"an index needs a column"_s);

    IndexDefinition noted = index;
    noted.unique = index.unique || index.primary;
    noted.columns.clear();
    QByteArray key;
    for (const QString& column : index.columns) {
        noted.columns.append(columnOf(stored, column));
        key += (key.isEmpty() ? "" : ", ") + quoted(noted.columns.constLast());
    }
    if (noted.primary)
        requireNoNulls(database, owner, noted.columns);
    const QString name = storedIndexName(owner, index.name);
    if (objectExists(database, name))
        throw Failure(kIndexAlreadyExists, index.name);
    run(database, QByteArray("CREATE ") + (noted.unique ? "UNIQUE " : "") + "INDEX " + quoted(name) + " ON " +
                      quoted(owner) + "(" + key + ")");
    noteIndex(database, owner, noted);
}

void removeIndex(const Database& database, const QString& table, const QString& index)
{
    const StoredTable stored = tableOf(database, table);
    const IndexDefinition* found = stored.definition.index(index);
    if (found == nullptr)
        throw Failure(kNoSuchIndexOnTable, index);
    run(database, "DROP INDEX " + quoted(stored.storedName(*found)));
    forgetIndex(database, stored.definition.name, found->name);
}

void changeZeroLength(const Database& database, const QString& table, const QString& column, bool allowed)
{
    const StoredTable stored = tableOf(database, table);
    const QString name = columnOf(stored, column);
    if (stored.definition.columns.at(stored.definition.columnIndex(name)).type == ColumnType::Number)
        throw Failure(kInvalidOperation, u"a number has no zero length"_s);
    noteZeroLength(database, stored.definition.name, name, allowed);
    announceChange(database);
}

} // namespace platform::storage::sqlite
