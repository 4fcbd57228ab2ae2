// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/storage/upkeep.h"

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"
#include "platform/storage/sqlite/connection.h"
#include "platform/storage/sqlite/functions.h"
#include "platform/storage/sqlite/gate.h"
#include "platform/storage/sqlite/losses.h"
#include "platform/storage/sqlite/openfile.h"
#include "platform/storage/sqlite/repair.h"

#include <QFile>
#include <QUrl>

#include <sqlite3.h>

namespace platform::storage {

namespace {

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw Failure(kCannotOpenFile, path);
    QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        throw Failure(kDiskOrNetworkError, path);
    return bytes;
}

sqlite::Database openImmutable(const QString& path)
{
    const QByteArray address = QUrl::fromLocalFile(path).toEncoded() + "?immutable=1";
    sqlite3* handle = nullptr;
    const int code = sqlite3_open_v2(
        address.constData(), &handle,
        SQLITE_OPEN_READONLY | SQLITE_OPEN_URI | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, nullptr);
    sqlite::Database database(handle);
    if (code != SQLITE_OK)
        sqlite::fail(code, handle, sqlite::Task::Open);
    sqlite::registerFunctions(handle);
    database.execute("PRAGMA cell_size_check = ON", sqlite::Task::Open);
    return database;
}

} // namespace

std::vector<TableLosses> examineStore(const QString& path, const QList<TableDefinition>& expected)
{
    sqlite::requireReadable(path);
    const sqlite::Sidecar sidecar(path);
    std::optional<sqlite::PageFile> file;
    {
        const sqlite::GatePass pass = sqlite::GatePass::forReading(sidecar, sqlite::Task::Read);
        file.emplace(bytesOf(path));
    }
    std::vector<TableLosses> losses;
    for (const sqlite::SalvagedTable& table : sqlite::salvageTables(*file, expected).tables)
        losses.push_back(sqlite::lossesOf(*file, table));
    return losses;
}

RepairAccount repairStore(const QString& path, const QList<TableDefinition>& expected)
{
    return sqlite::repairStore(path, expected);
}

std::unique_ptr<Connection> openCopy(const QString& path)
{
    sqlite::requireReadable(path);
    sqlite::Database database = openImmutable(path);
    auto authorizer = std::make_unique<sqlite::Authorizer>(database.get());
    return std::make_unique<sqlite::StoreConnection>(std::make_unique<sqlite::Store>(
        std::make_unique<sqlite::Sidecar>(), std::move(database), std::move(authorizer)));
}

} // namespace platform::storage
