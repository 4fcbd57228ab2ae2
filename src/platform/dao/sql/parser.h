// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Recursive-descent parser of the stores' query language. It knows no schema: names are bound by the engine.

#include "platform/dao/sql/ast.h"

#include <QStringView>

namespace platform::sql {

/// Parses a query. Failures: 3075 syntax (a missing operand, a stray apostrophe, `as S-Pedido`, UNION, IN, a
/// join, an action word inside, an empty text), 3142 text after the end (a second statement), 3219 an action
/// query. A nesting deeper than 200 is 3075 as well, so that no text can exhaust the stack, and so is a list
/// of more than 255. Time goes with the length of the text.
[[nodiscard]] Select parseSelect(QStringView text);

/// Parses `DROP INDEX name ON table`, the one statement that `Execute` takes. A SELECT fails with 3065,
/// anything else with 3075.
[[nodiscard]] DropIndex parseAction(QStringView text);

} // namespace platform::sql
