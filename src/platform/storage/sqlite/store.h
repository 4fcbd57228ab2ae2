// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// An open store file: its sidecar with the presence lock, its SQLite handle, and the two ways of getting at
// the rows, each behind the gate: a `Reading` and a `Writing`.

#include "platform/storage/sqlite/authorizer.h"
#include "platform/storage/sqlite/gate.h"
#include "platform/storage/sqlite/handle.h"
#include "platform/storage/sqlite/newfile.h"
#include "platform/storage/sqlite/sidecar.h"

#include <memory>

namespace platform::storage::sqlite {

class Store
{
public:
    /// Takes what `openStore` and `createStore` made. With a file in the making, the end of the store gives
    /// it its name; if that fails there is no such store.
    Store(std::unique_ptr<Sidecar> sidecar, Database database, std::unique_ptr<Authorizer> authorizer,
          std::unique_ptr<NewFile> making = nullptr);
    ~Store();
    Store(const Store&) = delete;
    Store& operator=(const Store&) = delete;

    [[nodiscard]] bool isReadOnly() const noexcept { return m_readOnly; }
    [[nodiscard]] const Sidecar& sidecar() const noexcept { return *m_sidecar; }
    [[nodiscard]] const Database& database() const noexcept { return m_database; }
    [[nodiscard]] Authorizer& authorizer() const noexcept { return *m_authorizer; }
    [[nodiscard]] Statement prepare(const QByteArray& sql, Task task) const;

    /// A number that changes with every change of the file by anyone. To be asked within a `Reading`.
    [[nodiscard]] quint64 changeNumber();
    /// Number of the file's structure. To be asked within a `Reading`.
    [[nodiscard]] qint64 structureNumber();
    /// Counts a change of our own, which SQLite's own number leaves out.
    void noteOwnChange() noexcept { ++m_ownChanges; }
    [[nodiscard]] quint64 ownChanges() const noexcept { return m_ownChanges; }

private:
    // In this order: the presence lock goes after the last use of the file.
    std::unique_ptr<Sidecar> m_sidecar;
    std::unique_ptr<NewFile> m_making;
    std::unique_ptr<Authorizer> m_authorizer;
    Database m_database;
    Statement m_dataVersion;
    Statement m_schemaVersion;
    quint64 m_ownChanges = 0;
    bool m_readOnly = false;
};

/// One statement's reading behind the gate.
class Reading
{
public:
    explicit Reading(const Store& store, Task task = Task::Read);

private:
    GatePass m_pass;
};

/// Several statements that see the file at one moment.
class ReadTransaction
{
public:
    explicit ReadTransaction(const Store& store);
    ~ReadTransaction();
    ReadTransaction(const ReadTransaction&) = delete;
    ReadTransaction& operator=(const ReadTransaction&) = delete;

private:
    const Store& m_store;
    GatePass m_pass;
};

/// One change of the file, alone behind the gate. Unless `commit()` succeeds, the file stays as it was.
/// Fails with 3027 on a file that can only be read.
class Writing
{
public:
    explicit Writing(Store& store, Task task);
    ~Writing();
    Writing(const Writing&) = delete;
    Writing& operator=(const Writing&) = delete;

    void commit();

private:
    Store& m_store;
    Task m_task;
    GatePass m_pass;
    bool m_open = false;
};

} // namespace platform::storage::sqlite
