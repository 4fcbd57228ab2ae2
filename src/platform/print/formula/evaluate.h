// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Evaluates a checked tree over a context.

#include "platform/print/formula/ast.h"
#include "platform/print/formula/context.h"

#include <span>

namespace platform::print::formula {

/// `locals` are the types of the formula's Local variables, which start afresh at each call.
[[nodiscard]] Outcome evaluate(const Node& root, std::span<const Type> locals, Context& context);

} // namespace platform::print::formula
