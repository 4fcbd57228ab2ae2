// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Lets the data engine drop rows of table 0 that a selection would drop anyway, so that they needn't be
// copied. Every row that comes back is evaluated again.
//
// Pushed are the terms of a formula joined by And that compare one column of table 0, or Mid, Left, Right,
// Length or Val of it, with constants, or ask for its null. Comparisons are done by functions of ours on the
// connection, which are those of the formulas; so both sides agree on every value.

#include "platform/print/data/binder.h"

#include <QByteArray>

struct sqlite3;

namespace platform::print {

/// A condition in SQL over the columns of table 0; empty when nothing can be pushed.
[[nodiscard]] QByteArray pushedCondition(const std::vector<const formula::Formula*>& conditions,
                                         const std::vector<Slot>& slots,
                                         const std::vector<SourceColumn>& columns,
                                         const formula::Options& options);

/// Registers the functions that such conditions use.
void registerPushdown(sqlite3* database);

/// Off, every row is copied and evaluated. On at first; for tests and measuring.
void setPushdown(bool on);
[[nodiscard]] bool pushdownIsOn();

} // namespace platform::print
