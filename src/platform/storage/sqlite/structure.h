// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Changes of a store's structure. Each is to be called within a writing of its own, which the caller commits.

#include "platform/storage/sqlite/schema.h"

namespace platform::storage::sqlite {

/// 3010 the name is taken, 3191 a column twice, 3001 no column; indexes fail as in `makeIndex`.
void makeTable(const Database& database, const TableDefinition& table);
/// 3376 no such table, 3191 the name is taken. Existing rows hold Null in it.
void makeColumn(const Database& database, const QString& table, const Column& column);
/// 3376, 3265 no such column, 3280 an index has it.
void removeColumn(const Database& database, const QString& table, const QString& column);
/// 3376, 3284 the name is taken, 3283 a second primary, 3265 no such column, 3022 duplicates, 3058 Null under
/// a primary index.
void makeIndex(const Database& database, const QString& table, const IndexDefinition& index);
/// 3376 no such table, 3372 no such index.
void removeIndex(const Database& database, const QString& table, const QString& index);
/// 3376, 3265 no such column, 3219 a number.
void changeZeroLength(const Database& database, const QString& table, const QString& column, bool allowed);

} // namespace platform::storage::sqlite
