// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The upgrade pattern of the clients and the articles stores: a store's age is the number of columns of a
// table, and a step adds the columns that came next.
//
// Taken literally the pattern doesn't end when a step can't add anything (file locked, damaged or missing):
// its test on an unbound recordset counts as passed, and the open procedure that it calls runs the test
// again. So a step re-enters the open procedure only if the table has really grown, and else opens the store
// without looking at its age.

#include "platform/dao/dao.h"
#include "stores/schema.h"

#include <QString>

#include <span>

namespace stores {

/// What an upgrade step works on. `open` is the store's open procedure, which ends with the upgrade;
/// `openOnly` is the same without the upgrade.
struct UpgradedTable
{
    platform::dao::Recordset& recordset; ///< the one whose columns were counted
    platform::dao::Database& database;
    QString path;
    QStringView table;
    void (*open)();
    void (*openOnly)();
};

/// One step, in skip mode: closes the recordset and the database, opens the database again, adds the columns
/// one by one with `MODIFICARCAMPO`, and calls the open procedure. True when the table has grown.
bool addColumns(const UpgradedTable& upgraded, std::span<const ColumnSchema> columns);

/// Calls `open` if the table has grown, else `openOnly`.
void reopen(const UpgradedTable& upgraded, bool grown);

/// True when the database handle stands for an open database.
[[nodiscard]] bool isOpen(const platform::dao::Database& database);

} // namespace stores
