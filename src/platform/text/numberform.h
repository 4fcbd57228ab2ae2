// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A number taken apart into the decimal digits that the program shows, 15 at most.

#include <QByteArray>

namespace platform {

/// ±0.d1d2d3… × 10^`point`, without zeros at either end of the digits; zero has no digits at all.
struct DecimalDigits
{
    bool negative = false;
    QByteArray digits;
    int point = 0; ///< how many digits stand before the decimal mark; 0 or negative below 0.1
};

/// The 15 significant digits of a number. An infinite one counts as the largest, one that is none as 0.
[[nodiscard]] DecimalDigits decimalDigits(double number);

/// Rounds half away from zero to `decimals` places after the decimal mark.
[[nodiscard]] DecimalDigits roundedTo(DecimalDigits number, int decimals);

} // namespace platform
