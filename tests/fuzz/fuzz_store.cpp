// SPDX-License-Identifier: GPL-3.0-or-later

// Opens, reads, examines and repairs a damaged store. An input that begins as an SQLite file is the store;
// any other is a list of changes to a sound one: three bytes of place and one byte to put there.

#include "fuzz/require.h"
#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"
#include "platform/storage/upkeep.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstddef>
#include <cstdint>

using namespace platform;
using namespace platform::storage;
using fuzz::require;

namespace {

QString storePath()
{
    static const QTemporaryDir folder;
    return folder.filePath(QStringLiteral("Clientes.mdb"));
}

TableDefinition clients()
{
    return {QStringLiteral("CLIENTES"),
            {{QStringLiteral("CODIGO"), ColumnType::Text, 10, true},
             {QStringLiteral("SALDO"), ColumnType::Number, 0, false},
             {QStringLiteral("NOTAS"), ColumnType::Memo, 0, true}},
            {{QStringLiteral("PorCodigo"), true, true, {QStringLiteral("CODIGO")}},
             {QStringLiteral("PorSaldo"), false, false, {QStringLiteral("SALDO")}}}};
}

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void clearFolder()
{
    QDir folder(QFileInfo(storePath()).path());
    for (const QString& name : folder.entryList(QDir::Files | QDir::Hidden))
        folder.remove(name);
}

/// A sound store with some rows, one of them on overflow pages.
const QByteArray& soundStore()
{
    static const QByteArray bytes = [] {
        clearFolder();
        {
            const auto store = sqliteEngine()->create(storePath(), {});
            store->createTable(clients());
            const auto table = store->openTable(QStringLiteral("CLIENTES"));
            for (int row = 0; row < 60; ++row)
                table->insert({QStringLiteral("C%1").arg(row), static_cast<double>(row % 7),
                               QString(row == 30 ? 9000 : 80, u'ñ')});
        }
        return bytesOf(storePath());
    }();
    return bytes;
}

QByteArray storeOf(const QByteArray& input)
{
    if (input.startsWith("SQLite format 3"))
        return input;
    QByteArray bytes = soundStore();
    for (qsizetype at = 0; at + 4 <= input.size(); at += 4) {
        const auto byte = [&](qsizetype i) { return static_cast<unsigned char>(input[at + i]); };
        const qsizetype place = (byte(0) << 16 | byte(1) << 8 | byte(2)) % bytes.size();
        bytes[place] = input[at + 3];
    }
    return bytes;
}

void readWhole(Connection& store)
{
    for (const TableDefinition& definition : store.tables()) {
        const auto table = store.openTable(definition.name);
        RowBlock block;
        const std::vector<int> columns{0};
        table->readMany(table->order({}), columns, block);
        for (const IndexDefinition& index : definition.indexes)
            static_cast<void>(table->order(index.name));
    }
}

bool opensAndReads()
{
    try {
        readWhole(*sqliteEngine()->open(storePath(), Sharing::Shared));
        return true;
    } catch (const Failure& failure) {
        require(failure.number() >= 3000, "a damaged store fails with a number of the data engine");
        return false;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes =
        storeOf(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    clearFolder();
    QFile file(storePath());
    require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(), "the input can be written");
    file.close();

    static_cast<void>(opensAndReads());
    for (const TableLosses& table : examineStore(storePath(), {clients()}))
        require(table.readable >= 0, "a damaged store can be examined");
    const QByteArray found = bytesOf(storePath());
    const RepairAccount account = repairStore(storePath(), {clients()});
    require(bytesOf(account.keptFile) == found, "repair keeps the file that it found");
    const auto store = sqliteEngine()->open(storePath(), Sharing::Shared);
    require(store->integrityFaults().isEmpty(), "a repaired store is sound");
    readWhole(*store);
    return 0;
}
