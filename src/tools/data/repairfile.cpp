// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/data/repairfile.h"

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"
#include "platform/storage/upkeep.h"
#include "tools/data/enginefault.h"
#include "tools/data/findings.h"
#include "tools/data/losses.h"
#include "tools/data/rootfiles.h"
#include "tools/data/toolerror.h"

#include <QFileInfo>

#include <algorithm>

namespace tools {

namespace {

using platform::storage::RepairAccount;
using platform::storage::TableDefinition;
using platform::storage::TableLosses;

/// Runs what needs the store for itself.
template <typename Work>
auto alone(const QString& file, Work&& work)
{
    try {
        return work();
    } catch (const platform::Failure& failure) {
        if (failure.number() == platform::kCouldNotLockFile)
            throw ToolError(
                QStringLiteral("un puesto tiene abierto «%1»: hay que cerrar el programa en todos "
                               "los puestos")
                    .arg(file));
        throw ToolError(QStringLiteral("%1: %2").arg(file, openingFault(failure)));
    }
}

bool isSound(const QString& file)
{
    try {
        const auto store =
            platform::storage::sqliteEngine()->open(file, platform::storage::Sharing::Exclusive);
        return store->integrityFaults().isEmpty();
    } catch (const platform::Failure& failure) {
        if (failure.number() != platform::kNotADatabase)
            throw;
        return false;
    }
}

QList<TableDefinition> expectedTables(const QString& file)
{
    const stores::StoreSchema* schema = storeNamed(QFileInfo(file).fileName());
    return schema == nullptr ? QList<TableDefinition>() : stores::tableDefinitions(schema->tables);
}

qint64 savedRows(const RepairAccount& account)
{
    qint64 rows = 0;
    for (const TableLosses& table : account.tables)
        rows += table.readable - table.refused;
    return rows;
}

} // namespace

bool repairFile(const QString& file, QTextStream& out)
{
    if (!QFileInfo(file).isFile())
        throw ToolError(QStringLiteral("no existe el fichero «%1»").arg(file));
    const QString path = QFileInfo(file).canonicalFilePath();
    if (alone(file, [&] { return isSound(path); })) {
        out << QStringLiteral("«%1» no está dañado: no se toca.\n").arg(file);
        return true;
    }
    const RepairAccount account =
        alone(file, [&] { return platform::storage::repairStore(path, expectedTables(path)); });
    Findings findings(out);
    tellLosses(account.tables, QFileInfo(file).fileName(), findings);
    const bool isAllSaved =
        findings.faults() == 0 && std::all_of(account.tables.begin(), account.tables.end(),
                                              [](const TableLosses& table) { return table.isCertain; });
    out << QStringLiteral("Reparado «%1»: %2 filas salvadas, %3.\nEl fichero dañado queda en «%4».\n")
               .arg(file)
               .arg(savedRows(account))
               .arg(isAllSaved ? QStringLiteral("nada perdido")
                               : QStringLiteral("con pérdidas (véanse las líneas de arriba)"))
               .arg(account.keptFile);
    return isAllSaved;
}

} // namespace tools
