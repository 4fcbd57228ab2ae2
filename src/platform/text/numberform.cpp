// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/numberform.h"

#include <cmath>
#include <limits>

namespace platform {

namespace {

constexpr int kSignificantDigits = 15;

void dropZerosAtTheEnd(QByteArray& digits)
{
    while (digits.endsWith('0'))
        digits.chop(1);
}

/// Adds one to the last digit; a carry out of the first one makes the number a digit longer.
void addOneAtTheEnd(DecimalDigits& number)
{
    qsizetype i = number.digits.size() - 1;
    while (i >= 0 && number.digits[i] == '9')
        number.digits[i--] = '0';
    if (i >= 0) {
        number.digits[i] = static_cast<char>(number.digits[i] + 1);
    } else {
        number.digits.prepend('1');
        ++number.point;
    }
}

} // namespace

DecimalDigits decimalDigits(double number)
{
    if (!std::isfinite(number))
        number = std::isnan(number) ? 0 : std::copysign(std::numeric_limits<double>::max(), number);
    // "-d.dddddddddddddde-xx"
    const QByteArray scientific = QByteArray::number(number, 'e', kSignificantDigits - 1);
    const qsizetype exponentMark = scientific.indexOf('e');
    DecimalDigits result;
    for (const char unit : scientific.first(exponentMark)) {
        if (unit >= '0' && unit <= '9')
            result.digits.append(unit);
    }
    dropZerosAtTheEnd(result.digits);
    if (result.digits.isEmpty())
        return result;
    result.negative = number < 0;
    result.point = scientific.sliced(exponentMark + 1).toInt() + 1;
    return result;
}

DecimalDigits roundedTo(DecimalDigits number, int decimals)
{
    const int kept = number.point + decimals;
    if (kept >= number.digits.size())
        return number;
    if (kept < 0)
        return {};
    const bool up = number.digits[kept] >= '5';
    number.digits.truncate(kept);
    if (up)
        addOneAtTheEnd(number);
    dropZerosAtTheEnd(number.digits);
    return number.digits.isEmpty() ? DecimalDigits{} : number;
}

} // namespace platform
