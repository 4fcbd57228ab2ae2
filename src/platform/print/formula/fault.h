// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A fault of a formula: where it is, which code it gives, and what a person reads about it.

#include "platform/print/errorcodes.h"

#include <QString>

namespace platform::print::formula {

/// Line and column of a character in a formula's text, both from 1; columns count UTF-16 units.
struct Position
{
    int line = 1;
    int column = 1;
};

struct Fault
{
    ErrorCode code = kNoError;
    Position position;
    QString text; ///< Spanish, without a full stop
};

/// "selección, 1:50: se esperaba un valor".
[[nodiscard]] QString describe(const QString& formulaName, const Fault& fault);

} // namespace platform::print::formula
