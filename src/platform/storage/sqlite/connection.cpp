// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/storage/sqlite/connection.h"

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"
#include "platform/storage/sqlite/query.h"
#include "platform/storage/sqlite/structure.h"
#include "platform/storage/sqlite/table.h"

namespace platform::storage::sqlite {

StoreConnection::StoreConnection(std::unique_ptr<Store> store)
    : m_store(std::move(store))
{}

bool StoreConnection::isReadOnly() const
{
    return m_store->isReadOnly();
}

quint64 StoreConnection::dataVersion()
{
    const Reading reading(*m_store);
    return m_store->changeNumber();
}

QStringList StoreConnection::integrityFaults()
{
    const Reading reading(*m_store);
    Statement examination = m_store->prepare("PRAGMA integrity_check", Task::Read);
    QStringList faults;
    Run run(examination, Task::Read);
    while (run.next())
        faults.append(textAt(examination, 0));
    // A sound file answers "ok" and nothing else.
    return faults == QStringList{QStringLiteral("ok")} ? QStringList() : faults;
}

const QList<StoredTable>& StoreConnection::schema()
{
    const qint64 number = m_store->structureNumber();
    if (m_schemaNumber != number) {
        m_schema = readSchema(m_store->database());
        m_schemaNumber = number;
    }
    return m_schema;
}

const StoredTable& StoreConnection::table(const QString& name)
{
    const StoredTable* found = findTable(schema(), name);
    if (found == nullptr)
        throw Failure(kInputTableNotFound, name);
    return *found;
}

QList<TableDefinition> StoreConnection::tables()
{
    const ReadTransaction transaction(*m_store);
    QList<TableDefinition> definitions;
    for (const StoredTable& stored : schema())
        definitions.append(stored.definition);
    return definitions;
}

std::unique_ptr<Table> StoreConnection::openTable(const QString& name)
{
    const ReadTransaction transaction(*m_store);
    return std::make_unique<StoreTable>(*m_store, table(name));
}

ResultSet StoreConnection::query(const sql::Select& select)
{
    const ReadTransaction transaction(*m_store);
    return runQuery(*m_store, select, table(select.table));
}

void StoreConnection::changeStructure(const std::function<void(const Database&)>& change)
{
    Writing writing(*m_store, Task::Structure);
    change(m_store->database());
    writing.commit();
}

void StoreConnection::createTable(const TableDefinition& table)
{
    changeStructure([&](const Database& database) { makeTable(database, table); });
}

void StoreConnection::addColumn(const QString& table, const Column& column)
{
    changeStructure([&](const Database& database) { makeColumn(database, table, column); });
}

void StoreConnection::dropColumn(const QString& table, const QString& column)
{
    changeStructure([&](const Database& database) { removeColumn(database, table, column); });
}

void StoreConnection::createIndex(const QString& table, const IndexDefinition& index)
{
    changeStructure([&](const Database& database) { makeIndex(database, table, index); });
}

void StoreConnection::dropIndex(const QString& table, const QString& index)
{
    changeStructure([&](const Database& database) { removeIndex(database, table, index); });
}

void StoreConnection::setAllowZeroLength(const QString& table, const QString& column, bool allowed)
{
    changeStructure([&](const Database& database) { changeZeroLength(database, table, column, allowed); });
}

} // namespace platform::storage::sqlite
