// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/storage/sqlite/schema.h"

#include "platform/storage/sqlite/functions.h"
#include "platform/storage/sqlite/metadata.h"

using namespace Qt::StringLiterals;

namespace platform::storage::sqlite {

namespace {

/// Largest size that a text column may declare; anything wider is a memo.
constexpr int kLargestText = 255;

bool holdsAny(const QString& type, std::initializer_list<QLatin1String> words)
{
    for (const QLatin1String word : words) {
        if (type.contains(word, Qt::CaseInsensitive))
            return true;
    }
    return false;
}

/// The number in the parentheses of a declared type, 0 without one.
int declaredSize(const QString& type)
{
    const qsizetype open = type.indexOf(u'(');
    const qsizetype close = type.indexOf(u')', open + 1);
    if (open < 0 || close < 0)
        return 0;
    return type.mid(open + 1, close - open - 1).trimmed().toInt();
}

Statement bound(const Database& database, const QByteArray& sql, const QString& name)
{
    Statement statement(database.get(), sql, Task::Read);
    statement.bind(1, name);
    return statement;
}

QList<Column> readColumns(const Database& database, const Metadata& metadata, const QString& table)
{
    QList<Column> columns;
    // Generated and hidden columns are not the user's to write.
    Statement statement =
        bound(database, "SELECT name, type FROM pragma_table_xinfo(?1) WHERE hidden = 0 ORDER BY cid", table);
    Run run(statement, Task::Read);
    while (run.next()) {
        Column column = columnOfDeclaredType(textAt(statement, 0), textAt(statement, 1));
        if (column.type != ColumnType::Number)
            column.allowZeroLength = metadata.allowsZeroLength(table, column.name);
        if (column.type == ColumnType::Text && column.size == 0)
            column.size = metadata.columnSize(table, column.name);
        columns.append(column);
    }
    return columns;
}

/// Key columns of an index; empty when one of them is no plain column.
QStringList readKey(const Database& database, const QString& index)
{
    QStringList columns;
    Statement statement = bound(database, "SELECT name FROM pragma_index_info(?1) ORDER BY seqno", index);
    Run run(statement, Task::Read);
    while (run.next()) {
        const QString name = textAt(statement, 0);
        if (name.isEmpty())
            return {};
        columns.append(name);
    }
    return columns;
}

/// An index's own name, without the table's before it.
QString plainIndexName(const QString& table, const QString& stored)
{
    const bool prefixed = stored.startsWith(table + u'.', Qt::CaseInsensitive);
    return prefixed ? stored.mid(table.size() + 1) : stored;
}

void readIndexes(const Database& database, const Metadata& metadata, StoredTable& table)
{
    const QString& owner = table.definition.name;
    // Their list comes with the youngest first.
    Statement statement = bound(
        database,
        "SELECT name, \"unique\", origin FROM pragma_index_list(?1) WHERE partial = 0 ORDER BY seq DESC",
        owner);
    Run run(statement, Task::Read);
    while (run.next()) {
        const QString stored = textAt(statement, 0);
        IndexDefinition index;
        index.name = plainIndexName(owner, stored);
        index.unique = integerAt(statement, 1) != 0;
        index.columns = readKey(database, stored);
        if (index.columns.isEmpty())
            continue;
        const bool noted = metadata.isPrimary(owner, index.name, index.columns);
        index.primary = index.unique && (noted || textAt(statement, 2) == "pk"_L1);
        table.definition.indexes.append(index);
        table.indexNames.append(stored);
    }
}

QByteArray freeRowIdName(const TableDefinition& table)
{
    for (const char* name : {"rowid", "_rowid_", "oid"}) {
        if (table.columnIndex(QLatin1String(name).toString()) < 0)
            return name;
    }
    return {};
}

} // namespace

QString StoredTable::storedName(const IndexDefinition& index) const
{
    for (qsizetype i = 0; i < definition.indexes.size(); ++i) {
        if (definition.indexes.at(i).name.compare(index.name, Qt::CaseInsensitive) == 0)
            return indexNames.at(i);
    }
    return {};
}

Column columnOfDeclaredType(const QString& name, const QString& declaredType)
{
    Column column{name, ColumnType::Memo, 0, true};
    const int size = declaredSize(declaredType);
    if (holdsAny(declaredType, {"CHAR"_L1, "TEXT"_L1, "CLOB"_L1})) {
        if (size > 0 && size <= kLargestText) {
            column.type = ColumnType::Text;
            column.size = size;
        }
        return column;
    }
    const bool isNumber =
        holdsAny(declaredType, {"INT"_L1, "REAL"_L1, "DOUB"_L1, "FLOA"_L1, "NUM"_L1, "DEC"_L1});
    if (isNumber) {
        column.type = ColumnType::Number;
        column.allowZeroLength = false;
    }
    return column;
}

QByteArray declaredType(const Column& column)
{
    const QByteArray collation = QByteArray(" COLLATE ") + kCollation;
    switch (column.type) {
    case ColumnType::Text:
        return "VARCHAR(" + QByteArray::number(column.size) + ")" + collation;
    case ColumnType::Number:
        return "DOUBLE";
    case ColumnType::Memo:
        break;
    }
    return "LONGTEXT" + collation;
}

QString storedIndexName(const QString& table, const QString& index)
{
    return table + u'.' + index;
}

QList<StoredTable> readSchema(const Database& database)
{
    QStringList names;
    {
        Statement statement = bound(
            database,
            "SELECT m.name FROM sqlite_master AS m JOIN pragma_table_list AS l ON l.schema = 'main'"
            " AND l.name = m.name WHERE m.type = 'table' AND l.type = 'table' AND l.wr = 0"
            " AND m.name NOT LIKE 'sqlite\\_%' ESCAPE '\\' AND m.name <> ?1 COLLATE NOCASE ORDER BY m.rowid",
            QString::fromLatin1(kMetadataTable));
        Run run(statement, Task::Read);
        while (run.next())
            names.append(textAt(statement, 0));
    }
    const Metadata metadata(database);
    QList<StoredTable> schema;
    for (const QString& name : names) {
        StoredTable table;
        table.definition.name = name;
        table.definition.columns = readColumns(database, metadata, name);
        table.rowId = freeRowIdName(table.definition);
        if (table.rowId.isEmpty())
            continue;
        readIndexes(database, metadata, table);
        schema.append(table);
    }
    return schema;
}

const StoredTable* findTable(const QList<StoredTable>& schema, QStringView name)
{
    for (const StoredTable& table : schema) {
        if (table.definition.name.compare(name, Qt::CaseInsensitive) == 0)
            return &table;
    }
    return nullptr;
}

} // namespace platform::storage::sqlite
