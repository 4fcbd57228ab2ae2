// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The create pattern that all stores share: walks a schema and appends its tables to a file just made.
// Handler mode; which failures go on and which leave is the caller's table of numbers.

#include "platform/core/regime.h"
#include "platform/dao/dao.h"
#include "stores/schema.h"

#include <QString>

#include <cstdint>

namespace stores {

/// What a create procedure's handler answers to a failure number.
using CreationHandler = platform::After (*)(int number);

/// Builds one table with its columns and indexes, appends it, and then lets each of its columns take "",
/// counting them with `counter`. Stops and answers `Leave` as soon as the handler does.
[[nodiscard]] platform::After createTable(const platform::dao::Database& database, const TableSchema& schema,
                                          CreationHandler onError, std::int16_t& counter);

/// Sets `AllowZeroLength` on every column; the same loop with the same handler.
[[nodiscard]] platform::After allowZeroLengths(const platform::dao::TableDef& table, CreationHandler onError,
                                               std::int16_t& counter);

/// The whole create procedure of every store but the assistance store: 3204, the file is there, ends it at
/// once and closes nothing; any other failure goes on with the next statement.
void createStore(const QString& path, const StoreSchema& store);

} // namespace stores
