// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Records in print order with their groups and totals.

#include "platform/print/formula/value.h"

#include <QtGlobal>

#include <vector>

namespace platform::print {

/// Positions `first` to `last`, both within the group.
struct Span
{
    quint32 first = 0;
    quint32 last = 0;
};

struct View
{
    std::vector<quint32> order;                      ///< record at each position
    std::vector<std::vector<Span>> groups;           ///< by level, outermost first
    std::vector<std::vector<formula::Value>> totals; ///< by request; empty until asked for

    [[nodiscard]] quint32 size() const noexcept { return static_cast<quint32>(order.size()); }
    /// Number of the group of a level that holds the position.
    [[nodiscard]] std::size_t groupAt(std::size_t level, quint32 position) const noexcept;
    [[nodiscard]] bool startsGroup(std::size_t level, quint32 position) const noexcept;
    [[nodiscard]] bool endsGroup(std::size_t level, quint32 position) const noexcept;
};

} // namespace platform::print
