// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Arithmetic between two values whose types the checker has allowed.

#include "platform/print/formula/ast.h"

namespace platform::print::formula {

/// The result, or no value with the reason in `error`.
[[nodiscard]] Value operate(Op op, const Value& left, const Value& right, QString& error);

/// A part of a text by positions from 1, negative ones from the end; what lies outside is left out. Position
/// 0 is an error.
[[nodiscard]] Value slice(const QString& text, double from, double to, QString& error);

} // namespace platform::print::formula
