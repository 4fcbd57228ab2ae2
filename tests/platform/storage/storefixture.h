// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What the tests of the store engine share: a folder of its own, a small table, and the number of a failure.

#include "platform/core/failure.h"
#include "platform/storage/storage.h"

#include <QTemporaryDir>

#include <functional>

namespace platform::storage::test {

using namespace Qt::StringLiterals;

inline constexpr int kNoFailure = 0;

/// The number that the body failed with, 0 when it didn't.
[[nodiscard]] inline int failureOf(const std::function<void()>& body)
{
    try {
        body();
    } catch (const Failure& failure) {
        return failure.number();
    }
    return kNoFailure;
}

[[nodiscard]] inline Column text(const QString& name, int size = 10)
{
    return {name, ColumnType::Text, size, true};
}

[[nodiscard]] inline Column number(const QString& name)
{
    return {name, ColumnType::Number, 0, false};
}

[[nodiscard]] inline Column memo(const QString& name)
{
    return {name, ColumnType::Memo, 0, true};
}

/// CODIGO, NOMBRE, SALDO, NOTAS; primary on the code, a plain index on the name, a unique one on the balance.
[[nodiscard]] inline TableDefinition clients()
{
    TableDefinition table{
        u"CLIENTES"_s, {text(u"CODIGO"_s), text(u"NOMBRE"_s, 35), number(u"SALDO"_s), memo(u"NOTAS"_s)}, {}};
    table.indexes = {{u"PorCodigo"_s, true, true, {u"CODIGO"_s}},
                     {u"PorNombre"_s, false, false, {u"NOMBRE"_s, u"CODIGO"_s}},
                     {u"PorSaldo"_s, false, true, {u"SALDO"_s}}};
    return table;
}

[[nodiscard]] inline Row client(const QString& code, const QString& name, Value balance = Null{},
                                Value notes = Null{})
{
    return {code, name, std::move(balance), std::move(notes)};
}

/// A folder that goes with the test, and a store in it.
class StoreFolder
{
public:
    [[nodiscard]] QString path(const QString& name = u"Clientes.mdb"_s) const
    {
        return m_folder.filePath(name);
    }
    [[nodiscard]] Engine& engine() const { return *m_engine; }
    [[nodiscard]] std::unique_ptr<Connection> open(Sharing sharing = Sharing::Shared) const
    {
        return m_engine->open(path(), sharing);
    }
    [[nodiscard]] std::unique_ptr<Connection> create() const
    {
        return m_engine->create(path(), {u";LANGID=0x040A;CP=1252;COUNTRY=0"_s, 64});
    }
    /// A new store with the table of `clients()`.
    [[nodiscard]] std::unique_ptr<Connection> createClients() const
    {
        std::unique_ptr<Connection> connection = create();
        connection->createTable(clients());
        return connection;
    }

private:
    QTemporaryDir m_folder;
    std::shared_ptr<Engine> m_engine = sqliteEngine();
};

} // namespace platform::storage::test
