// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/storage/sqlite/store.h"

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace platform::storage::sqlite {

namespace {

const Store& writable(const Store& store)
{
    if (store.isReadOnly())
        throw Failure(kReadOnly, u"the file can only be read"_s);
    return store;
}

void rollBack(const Store& store) noexcept
{
    sqlite3* handle = store.database().get();
    if (sqlite3_get_autocommit(handle) == 0)
        sqlite3_exec(handle, "ROLLBACK", nullptr, nullptr, nullptr);
}

} // namespace

Store::Store(std::unique_ptr<Sidecar> sidecar, Database database, std::unique_ptr<Authorizer> authorizer,
             std::unique_ptr<NewFile> making)
    : m_sidecar(std::move(sidecar))
    , m_making(std::move(making))
    , m_authorizer(std::move(authorizer))
    , m_database(std::move(database))
    , m_readOnly(!m_sidecar->isWritable() || sqlite3_db_readonly(m_database.get(), "main") == 1)
{}

Store::~Store()
{
    if (!m_making)
        return;
    m_dataVersion = {};
    m_schemaVersion = {};
    // Looking at the file takes back a change whose end failed.
    sqlite3_exec(m_database.get(), "SELECT 1 FROM sqlite_master", nullptr, nullptr, nullptr);
    m_database = {};
    if (m_making->publish() == 0)
        m_making->keep();
}

Statement Store::prepare(const QByteArray& sql, Task task) const
{
    return Statement(m_database.get(), sql, task);
}

quint64 Store::changeNumber()
{
    if (!m_dataVersion)
        m_dataVersion = prepare("PRAGMA data_version", Task::Read);
    Run run(m_dataVersion, Task::Read);
    const quint64 others = run.next() ? static_cast<quint64>(integerAt(m_dataVersion, 0)) : 0;
    return (others << 32) ^ m_ownChanges;
}

qint64 Store::structureNumber()
{
    if (!m_schemaVersion)
        m_schemaVersion = prepare("PRAGMA schema_version", Task::Read);
    Run run(m_schemaVersion, Task::Read);
    return run.next() ? integerAt(m_schemaVersion, 0) : 0;
}

Reading::Reading(const Store& store, Task task)
    : m_pass(GatePass::forReading(store.sidecar(), task))
{}

ReadTransaction::ReadTransaction(const Store& store)
    : m_store(store)
    , m_pass(GatePass::forReading(store.sidecar(), Task::Read))
{
    store.database().execute("BEGIN", Task::Read);
}

ReadTransaction::~ReadTransaction()
{
    rollBack(m_store);
}

Writing::Writing(Store& store, Task task)
    : m_store(store)
    , m_task(task)
    , m_pass(GatePass::forWriting(writable(store).sidecar(), task))
{
    store.database().execute("BEGIN IMMEDIATE", task);
    m_open = true;
}

Writing::~Writing()
{
    if (m_open)
        rollBack(m_store);
}

void Writing::commit()
{
    m_store.database().execute("COMMIT", m_task);
    m_open = false;
    m_store.noteOwnChange();
}

} // namespace platform::storage::sqlite
