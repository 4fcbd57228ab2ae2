// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/storage/sqlite/connection.h"
#include "platform/storage/sqlite/openfile.h"
#include "platform/storage/sqlite/repair.h"

namespace platform::storage {

namespace {

class SqliteEngine final : public Engine
{
public:
    std::unique_ptr<Connection> open(const QString& path, Sharing sharing) override
    {
        return std::make_unique<sqlite::StoreConnection>(sqlite::openStore(path, sharing));
    }
    std::unique_ptr<Connection> create(const QString& path, const CreateOptions& options) override
    {
        return std::make_unique<sqlite::StoreConnection>(sqlite::createStore(path, options));
    }
    void repair(const QString& path, const QList<TableDefinition>& expected) override
    {
        sqlite::repairStore(path, expected);
    }
};

} // namespace

std::shared_ptr<Engine> sqliteEngine()
{
    return std::make_shared<SqliteEngine>();
}

} // namespace platform::storage
