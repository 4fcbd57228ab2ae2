// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Writes a parsed query anew in SQLite's language. Every name is looked up in the schema first, every text
// goes as a bound value, so nothing of the original text ever reaches SQLite.

#include "platform/dao/sql/ast.h"
#include "platform/storage/sqlite/schema.h"

namespace platform::storage::sqlite {

struct WrittenQuery
{
    QByteArray sql; ///< its columns are those below, after the row number for whole rows
    std::vector<Value> values;
    std::vector<ResultColumn> columns;
    bool wholeRows = false; ///< every column of the table, nothing else
};

/// 3061 unknown column, 3078 unknown table, 3085 unknown function, 3075 a function with the wrong arguments.
[[nodiscard]] WrittenQuery writeQuery(const sql::Select& select, const StoredTable& table);

} // namespace platform::storage::sqlite
