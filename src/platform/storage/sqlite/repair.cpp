// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/storage/sqlite/repair.h"

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"
#include "platform/storage/sqlite/damagedfile.h"
#include "platform/storage/sqlite/losses.h"
#include "platform/storage/sqlite/openfile.h"
#include "platform/storage/sqlite/presence.h"
#include "platform/storage/sqlite/salvage.h"
#include "platform/storage/sqlite/structure.h"

#include <QFile>

namespace platform::storage::sqlite {

namespace {

bool violatesKey(int number)
{
    return number == kDuplicateKey || number == kNullInPrimaryKey;
}

/// Puts the salvaged rows of one table into the new file.
class RowFiller
{
public:
    RowFiller(const Database& database, const SalvagedTable& table, TableLosses& losses)
        : m_table(table)
        , m_losses(losses)
        , m_insert(database.get(), insertText(table.definition), Task::Write)
    {}

    void fill(const PageFile& file)
    {
        for (const quint32 page : m_table.leaves) {
            for (const SalvagedRow& row : file.rows(page))
                put(row);
        }
    }

private:
    static QByteArray insertText(const TableDefinition& table)
    {
        QByteArray columns = "rowid";
        QByteArray places = "?";
        for (const Column& column : table.columns) {
            columns += ", " + quoted(column.name);
            places += ", ?";
        }
        return "INSERT INTO " + quoted(table.name) + "(" + columns + ") VALUES(" + places + ")";
    }

    void put(const SalvagedRow& row)
    {
        try {
            bind(row);
            Run(m_insert, Task::Write).finish();
        } catch (const Failure& failure) {
            if (!violatesKey(failure.number()))
                throw;
            ++m_losses.refused;
        }
    }

    void bind(const SalvagedRow& row)
    {
        m_insert.bind(1, row.rowId);
        const QList<Column>& columns = m_table.definition.columns;
        for (qsizetype i = 0; i < columns.size(); ++i) {
            const Value value = valueOf(row, static_cast<std::size_t>(i));
            if (isNull(value) && isPrimary(columns.at(i).name))
                throw Failure(kNullInPrimaryKey, columns.at(i).name);
            m_insert.bind(static_cast<int>(i) + 2, value);
        }
    }

    [[nodiscard]] Value valueOf(const SalvagedRow& row, std::size_t column) const
    {
        // A column that came after the row was written is Null in it.
        const Value stored = column < row.values.size() ? row.values[column] : Value(Null{});
        const bool isRowId = static_cast<int>(column) == m_table.rowIdColumn;
        return isRowId && isNull(stored) ? Value(static_cast<double>(row.rowId)) : stored;
    }

    [[nodiscard]] bool isPrimary(const QString& column) const
    {
        for (const IndexDefinition& index : m_table.definition.indexes) {
            if (index.primary && index.columns.contains(column, Qt::CaseInsensitive))
                return true;
        }
        return false;
    }

    const SalvagedTable& m_table;
    TableLosses& m_losses;
    Statement m_insert;
};

/// Makes the table, or leaves no trace of it.
bool tryTable(const Database& database, const TableDefinition& definition)
{
    database.execute("SAVEPOINT salvage", Task::Write);
    try {
        makeTable(database, definition);
        database.execute("RELEASE salvage", Task::Write);
        return true;
    } catch (const Failure& failure) {
        if (failure.number() == kDiskFull || failure.number() == kDiskOrNetworkError)
            throw;
    }
    database.execute("ROLLBACK TO salvage; RELEASE salvage", Task::Write);
    return false;
}

/// The same without its indexes where damage left some that can't stand.
bool makeSalvagedTable(const Database& database, TableDefinition definition)
{
    if (tryTable(database, definition))
        return true;
    definition.indexes.clear();
    return tryTable(database, definition);
}

void writeNewFile(const QString& path, const PageFile& file, const QList<TableDefinition>& expected,
                  std::vector<TableLosses>& losses)
{
    const Salvage salvage = salvageTables(file, expected);
    const Database database = makeStoreFile(path, salvage.options);
    database.execute("BEGIN IMMEDIATE", Task::Write);
    for (const SalvagedTable& table : salvage.tables) {
        if (!makeSalvagedTable(database, table.definition))
            continue;
        losses.push_back(lossesOf(file, table));
        RowFiller(database, table, losses.back()).fill(file);
    }
    database.execute("COMMIT", Task::Write);
}

} // namespace

RepairAccount repairStore(const QString& path, const QList<TableDefinition>& expected)
{
    requireReadable(path);
    const Sidecar sidecar(path);
    takePresence(sidecar, Sharing::Exclusive);
    DamagedFile damaged(path);
    RepairAccount account;
    account.keptFile = damaged.keptPath();
    const PageFile file(damaged.bytes());
    writeNewFile(damaged.replacementPath(), file, expected, account.tables);
    damaged.replace();
    return account;
}

} // namespace platform::storage::sqlite
