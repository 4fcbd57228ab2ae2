// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Checks of one open store. They only read; a failure of the engine goes to the caller.

#include "platform/storage/storage.h"
#include "stores/schema.h"
#include "tools/data/findings.h"

#include <QByteArray>
#include <QSet>
#include <QString>

#include <functional>

namespace tools {

/// The tables are there and have the columns and indexes of the schema. Shapes that a start brings up to date
/// are notices.
void checkSchema(platform::storage::Connection& store, const stores::StoreSchema& schema, const QString& file,
                 Findings& findings);

/// Each index gives every row once, in Spanish order; unique keys don't repeat and primary keys aren't Null.
void checkIndexes(platform::storage::Table& table, const QString& file, Findings& findings);

/// Values fit their columns; dates, times, states and periods that read oddly are notices.
void checkValues(platform::storage::Table& table, const QString& file, Findings& findings);

/// Keys as the stores compare them: case and trailing blanks don't count.
using KeySet = QSet<QByteArray>;

/// Keys of one text column.
[[nodiscard]] KeySet keysOf(platform::storage::Table& table, const QString& column);

/// Rows whose `column` holds a key that isn't in `known` are told to `onOrphan` with the row's name and its
/// value.
void findOrphans(platform::storage::Table& table, const QString& column, const KeySet& known,
                 const std::function<void(const QString& row, const QString& value)>& onOrphan);

/// Calls `visit` with every row of the table, in blocks, in the order of the primary index. Only the columns
/// asked for are read; all of them when `columns` is empty.
void forEachRow(platform::storage::Table& table, const std::vector<int>& columns,
                const std::function<void(platform::storage::RowId, std::span<const platform::Value>)>& visit);

/// How a row is called in a finding: the columns of its primary key with their values, or its number.
[[nodiscard]] QString rowName(platform::storage::Table& table, platform::storage::RowId id);

} // namespace tools
