// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A syntax tree as text, with every operator in parentheses, so that a test can say what it expects on one
// line.

#include "platform/dao/sql/ast.h"

#include <QString>

namespace treetext {

[[nodiscard]] QString ofExpression(const platform::sql::Expression& expression);

/// "column as alias, …".
[[nodiscard]] QString ofItems(const platform::sql::Select& select);

/// "" when there is no condition.
[[nodiscard]] QString ofWhere(const platform::sql::Select& select);

/// "column DESC, …".
[[nodiscard]] QString ofOrder(const platform::sql::Select& select);

} // namespace treetext
