// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What becomes of a value that is put into a column or sought in it.

#include "platform/core/value.h"
#include "platform/storage/storage.h"

namespace platform::dao {

/// The value as the column's type has it: a number in a text column comes in its plain form, a text in a
/// numeric column is read whole (3421 when it isn't a number). Null stays Null.
[[nodiscard]] Value toColumnType(const Value& value, storage::ColumnType type);

/// `toColumnType`, and the column's own limits: 3163 for a text longer than its size (UTF-16 units), 3315 for
/// "" where it isn't allowed.
[[nodiscard]] Value toColumn(const Value& value, const storage::Column& column);

} // namespace platform::dao
