// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Formula text to syntax tree. Knows the grammar only: names and types are the checker's business.

#include "platform/print/formula/ast.h"

#include <optional>

namespace platform::print::formula {

/// Longest text, deepest nesting of parentheses and deepest tree that are accepted.
inline constexpr qsizetype kMaxFormulaLength = 65'535;
inline constexpr int kMaxNesting = 100;
inline constexpr int kMaxDepth = 1'000;

struct Parsed
{
    NodePtr root; ///< null for an empty text, and when there is a fault
    std::optional<Fault> fault;
};

/// The tree, or the first fault of the text (code 10).
[[nodiscard]] Parsed parse(QStringView text);

} // namespace platform::print::formula
