// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/storage/sqlite/salvagedschema.h"

#include "platform/core/failure.h"
#include "platform/storage/sqlite/functions.h"
#include "platform/storage/sqlite/metadata.h"
#include "platform/storage/sqlite/schema.h"

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace platform::storage::sqlite {

namespace {

/// While text of the damaged file runs: nothing but making tables and indexes.
int allowMaking(void*, int action, const char*, const char*, const char*, const char*) noexcept
{
    switch (action) {
    case SQLITE_CREATE_TABLE:
    case SQLITE_CREATE_INDEX:
    case SQLITE_INSERT:
    case SQLITE_UPDATE:
    case SQLITE_READ:
    case SQLITE_REINDEX:
        return SQLITE_OK;
    default:
        return SQLITE_DENY;
    }
}

Database openMemory()
{
    sqlite3* handle = nullptr;
    const int code =
        sqlite3_open_v2(":memory:", &handle, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    Database database(handle);
    if (code != SQLITE_OK)
        fail(code, handle, Task::Open);
    registerFunctions(handle);
    for (const int option : {SQLITE_DBCONFIG_DQS_DDL, SQLITE_DBCONFIG_TRUSTED_SCHEMA})
        sqlite3_db_config(handle, option, 0, nullptr);
    return database;
}

bool makesTableOrIndex(const QString& sql)
{
    for (const QLatin1String head : {"CREATE TABLE"_L1, "CREATE INDEX"_L1, "CREATE UNIQUE INDEX"_L1}) {
        if (sql.startsWith(head, Qt::CaseInsensitive))
            return true;
    }
    return false;
}

} // namespace

std::optional<SchemaRow> schemaRowOf(const std::vector<Value>& values)
{
    constexpr std::size_t kColumns = 5;
    constexpr double kMostPages = 2147483647.0;
    if (values.size() != kColumns)
        return std::nullopt;
    const auto* type = std::get_if<QString>(&values[0]);
    const auto* name = std::get_if<QString>(&values[1]);
    const auto* root = std::get_if<double>(&values[3]);
    const auto* sql = std::get_if<QString>(&values[4]);
    const bool isRow = type != nullptr && name != nullptr && root != nullptr && sql != nullptr &&
                       (*type == "table"_L1 || *type == "index"_L1) && *root >= 0 && *root <= kMostPages &&
                       makesTableOrIndex(*sql);
    if (!isRow)
        return std::nullopt;
    return SchemaRow{*type, *name, static_cast<quint32>(*root), *sql};
}

SalvagedSchema::SalvagedSchema()
    : m_memory(openMemory())
{
    makeMetadataTable(m_memory);
}

void SalvagedSchema::add(const SchemaRow& row)
{
    sqlite3_set_authorizer(m_memory.get(), &allowMaking, nullptr);
    try {
        Statement statement(m_memory.get(), row.sql.toUtf8(), Task::Read);
        Run(statement, Task::Read).finish();
    } catch (const Failure&) {
        // The text is damaged; the expected table stands in for it.
    }
    sqlite3_set_authorizer(m_memory.get(), nullptr, nullptr);
}

void SalvagedSchema::addMetadata(const std::vector<Value>& values)
{
    try {
        Statement statement(m_memory.get(),
                            QByteArray("INSERT INTO ") + kMetadataTable + " VALUES(?, ?, ?, ?, ?)",
                            Task::Read);
        for (std::size_t i = 0; i < values.size(); ++i)
            statement.bind(static_cast<int>(i) + 1, values[i]);
        Run(statement, Task::Read).finish();
    } catch (const Failure&) {
        // The notes are lost; the schema without them is still right.
    }
}

QList<TableDefinition> SalvagedSchema::tables() const
{
    QList<TableDefinition> definitions;
    for (const StoredTable& table : readSchema(m_memory))
        definitions.append(table.definition);
    return definitions;
}

CreateOptions SalvagedSchema::options() const
{
    return Metadata(m_memory).options();
}

int SalvagedSchema::rowIdColumn(const TableDefinition& table) const
{
    Statement statement(m_memory.get(),
                        "SELECT name FROM pragma_table_info(?1) WHERE pk > 0 AND upper(type) = 'INTEGER'"
                        " AND (SELECT count(*) FROM pragma_table_info(?1) WHERE pk > 0) = 1",
                        Task::Read);
    statement.bind(1, table.name);
    Run run(statement, Task::Read);
    return run.next() ? table.columnIndex(textAt(statement, 0)) : -1;
}

} // namespace platform::storage::sqlite
