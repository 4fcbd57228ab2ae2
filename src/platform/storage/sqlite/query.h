// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Running of a query: all rows are copied at once, so that nothing stays open in the file.

#include "platform/dao/sql/ast.h"
#include "platform/storage/sqlite/schema.h"
#include "platform/storage/sqlite/store.h"

namespace platform::storage::sqlite {

/// The rows of a query over `table`. To be called within a reading. Failures as `writeQuery`.
[[nodiscard]] ResultSet runQuery(const Store& store, const sql::Select& select, const StoredTable& table);

} // namespace platform::storage::sqlite
