// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/textfunctions.h"

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"
#include "platform/text/numberform.h"

#include <QVarLengthArray>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace platform {

namespace {

constexpr int kScientificFrom = 15; // digits before the decimal mark, or places after it

using Buffer = QVarLengthArray<char, 64>;

[[nodiscard]] bool isDigit(QChar unit) noexcept
{
    return unit >= u'0' && unit <= u'9';
}

[[nodiscard]] bool isSign(QChar unit) noexcept
{
    return unit == u'+' || unit == u'-';
}

/// Value of a text of digits with at most one ".", infinite when it is too large for a number.
[[nodiscard]] double valueOf(const Buffer& digits) noexcept
{
    double value = 0;
    const auto [end, error] = std::from_chars(digits.constData(), digits.constData() + digits.size(), value);
    if (error != std::errc::result_out_of_range)
        return value;
    const bool large = std::any_of(digits.cbegin(), std::find(digits.cbegin(), digits.cend(), '.'),
                                   [](char unit) { return unit != '0'; });
    return large ? std::numeric_limits<double>::infinity() : 0;
}

[[noreturn]] void failConversion()
{
    throw Failure(kTypeMismatch, QStringLiteral("the text is no number"));
}

/// Digits of a whole text with "." for the decimal mark and without the thousands marks, which need a digit
/// before them. Fails with 13.
[[nodiscard]] Buffer spanishDigits(QStringView text)
{
    Buffer digits;
    bool anyDigit = false;
    bool decimals = false;
    for (const QChar unit : text) {
        if (isDigit(unit)) {
            digits.append(static_cast<char>(unit.unicode()));
            anyDigit = true;
        } else if (unit == u',' && !decimals) {
            digits.append('.');
            decimals = true;
        } else if (unit != u'.' || decimals || !anyDigit) {
            failConversion();
        }
    }
    if (!anyDigit)
        failConversion();
    return digits;
}

/// "1,5E+15", "-3E-16".
[[nodiscard]] QString scientificForm(const DecimalDigits& number, char decimalMark)
{
    QByteArray result = number.digits.first(1);
    if (number.digits.size() > 1)
        result += decimalMark + number.digits.sliced(1);
    const int exponent = number.point - 1;
    result += exponent < 0 ? "E-" : "E+";
    result += QByteArray::number(std::abs(exponent)).rightJustified(2, '0');
    return QString::fromLatin1(result);
}

/// The digits without a sign. `zero` is what stands before the decimal mark of a number below 1.
[[nodiscard]] QString plainForm(const DecimalDigits& number, char decimalMark, const QByteArray& zero)
{
    const qsizetype count = number.digits.size();
    if (count == 0)
        return QStringLiteral("0");
    if (number.point > kScientificFrom || count - number.point > kScientificFrom)
        return scientificForm(number, decimalMark);
    if (number.point >= count)
        return QString::fromLatin1(number.digits.leftJustified(number.point, '0'));
    if (number.point > 0)
        return QString::fromLatin1(number.digits.first(number.point) + decimalMark +
                                   number.digits.sliced(number.point));
    return QString::fromLatin1(zero + decimalMark + QByteArray(-number.point, '0') + number.digits);
}

/// Digits before the decimal mark in groups of three, "" for a number below 1.
[[nodiscard]] QByteArray groupedDigits(const DecimalDigits& number)
{
    if (number.point <= 0)
        return {};
    QByteArray whole = number.digits.first(std::min<qsizetype>(number.point, number.digits.size()))
                           .leftJustified(number.point, '0');
    for (qsizetype at = whole.size() - 3; at > 0; at -= 3)
        whole.insert(at, '.');
    return whole;
}

/// The two digits after the decimal mark of a number rounded to two places.
[[nodiscard]] QByteArray twoDecimals(const DecimalDigits& number)
{
    QByteArray padded = number.digits;
    if (number.point < 0)
        padded.prepend(-number.point, '0');
    const qsizetype from = std::max(number.point, 0);
    return (from < padded.size() ? padded.sliced(from) : QByteArray()).leftJustified(2, '0');
}

[[nodiscard]] QString amountForm(double number)
{
    const DecimalDigits rounded = roundedTo(decimalDigits(number), 2);
    return QString::fromLatin1((rounded.negative ? "-" : "") + groupedDigits(rounded) + ',' +
                               twoDecimals(rounded));
}

} // namespace

double Val(QStringView text) noexcept
{
    Buffer digits;
    bool decimals = false;
    qsizetype at = 0;
    while (at < text.size() && text[at] == u' ')
        ++at;
    const bool negative = at < text.size() && text[at] == u'-';
    if (at < text.size() && isSign(text[at]))
        ++at;
    for (; at < text.size(); ++at) {
        if (!isDigit(text[at]) && (text[at] != u'.' || decimals))
            break;
        decimals = decimals || text[at] == u'.';
        digits.append(static_cast<char>(text[at].unicode()));
    }
    const double value = std::min(valueOf(digits), std::numeric_limits<double>::max());
    return negative && value != 0 ? -value : value;
}

QString Str(double number)
{
    const DecimalDigits digits = decimalDigits(number);
    return (digits.negative ? u'-' : u' ') + plainForm(digits, '.', {});
}

QString CStr(double number)
{
    const DecimalDigits digits = decimalDigits(number);
    const QString plain = plainForm(digits, ',', "0");
    return digits.negative ? u'-' + plain : plain;
}

double CDbl(QStringView text)
{
    const QString trimmed = Trim(text);
    QStringView digits = trimmed;
    const bool negative = digits.startsWith(u'-');
    if (!digits.isEmpty() && isSign(digits.front()))
        digits = digits.sliced(1);
    const double value = valueOf(spanishDigits(digits));
    if (std::isinf(value))
        throw Failure(kOverflow, QStringLiteral("the number is too large"));
    return negative && value != 0 ? -value : value;
}

std::int16_t CInt(QStringView text)
{
    return CInt(CDbl(text));
}

std::int16_t CInt(double number)
{
    // The default rounding mode takes a half to the even neighbour.
    const double rounded = std::nearbyint(number);
    if (!(rounded >= std::numeric_limits<std::int16_t>::min() &&
          rounded <= std::numeric_limits<std::int16_t>::max()))
        throw Failure(kOverflow, QStringLiteral("the number doesn't fit 16 bits"));
    return static_cast<std::int16_t>(rounded);
}

QString FormatAmount(QStringView text)
{
    double number = 0;
    try {
        number = CDbl(text);
    } catch (const Failure&) {
        return text.toString();
    }
    return amountForm(number);
}

} // namespace platform
