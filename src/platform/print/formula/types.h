// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The type checker: binds names, gives every node its type, turns calls about records into nodes of their
// own.

#include "platform/print/formula/ast.h"
#include "platform/print/formula/names.h"

#include <optional>
#include <vector>

namespace platform::print::formula {

struct Checked
{
    Type type = Type::Boolean;
    Uses uses;
    std::vector<Type> locals;   ///< Local variables by slot
    std::optional<Fault> fault; ///< code 9 or 11
};

/// Checks a tree in place, once. Afterwards it can be evaluated if there is no fault.
[[nodiscard]] Checked check(NodePtr& root, Names& names);

/// True when values of both types can be compared: one type, or a date beside a date and time.
[[nodiscard]] bool comparable(Type left, Type right) noexcept;

} // namespace platform::print::formula
