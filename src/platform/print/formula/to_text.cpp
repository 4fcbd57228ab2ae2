// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/formula/to_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

using namespace Qt::StringLiterals;

namespace platform::print::formula {
namespace {

constexpr std::array kMonths{"enero"_L1,      "febrero"_L1, "marzo"_L1,     "abril"_L1,
                             "mayo"_L1,       "junio"_L1,   "julio"_L1,     "agosto"_L1,
                             "septiembre"_L1, "octubre"_L1, "noviembre"_L1, "diciembre"_L1};
const std::array kWeekdays{u"domingo"_s, u"lunes"_s,   u"martes"_s, u"miércoles"_s,
                           u"jueves"_s,  u"viernes"_s, u"sábado"_s};

/// A number in plain decimal digits; `fraction` has as many digits as were asked for.
struct Decimal
{
    bool negative = false;
    QByteArray integer;
    QByteArray fraction;
};

/// Significant digits and how many of them stand before the point (may be negative, or more than there are).
struct Digits
{
    QByteArray digits;
    int beforePoint = 0;
};

Digits shortestDigits(double magnitude)
{
    std::array<char, 40> buffer{};
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude, std::chars_format::scientific)
            .ptr;
    const QByteArray text(buffer.data(), end - buffer.data());
    const qsizetype mark = text.indexOf('e');
    Digits result;
    result.digits = text.first(mark);
    result.digits.replace(".", "");
    result.beforePoint = text.sliced(mark + 1).toInt() + 1;
    return result;
}

/// Cuts after `keep` digits, rounding half up; a carry adds a digit in front.
void roundDigits(Digits& number, int keep)
{
    if (keep >= number.digits.size())
        return;
    const bool up = keep >= 0 && number.digits[keep] >= '5';
    number.digits.truncate(std::max(keep, 0));
    if (!up)
        return;
    qsizetype i = number.digits.size();
    while (i > 0 && number.digits[i - 1] == '9')
        number.digits[--i] = '0';
    if (i > 0) {
        number.digits[i - 1] = static_cast<char>(number.digits[i - 1] + 1);
    } else {
        number.digits.prepend('1');
        ++number.beforePoint;
    }
}

Decimal toDecimal(double number, int places)
{
    Decimal result;
    Digits digits = shortestDigits(std::abs(number));
    roundDigits(digits, digits.beforePoint + places);
    const int before = digits.beforePoint;
    for (int i = 0; i < before; ++i)
        result.integer += i < digits.digits.size() ? digits.digits[i] : '0';
    for (int i = before; i < before + places; ++i)
        result.fraction += i >= 0 && i < digits.digits.size() ? digits.digits[i] : '0';
    if (result.integer.isEmpty())
        result.integer = "0";
    const auto isZero = [](char digit) { return digit == '0'; };
    const bool zero = std::all_of(result.integer.begin(), result.integer.end(), isZero) &&
                      std::all_of(result.fraction.begin(), result.fraction.end(), isZero);
    result.negative = number < 0 && !zero;
    return result;
}

QString twoDigits(int number)
{
    return u"%1"_s.arg(number, 2, 10, QChar(u'0'));
}

/// One run of a pattern letter; nothing when the run stands for itself.
std::optional<QString> patternPart(const DateTime& moment, QDate date, QChar letter, qsizetype length)
{
    const int hour = moment.second / 3600;
    const int minute = moment.second / 60 % 60;
    const int second = moment.second % 60;
    const auto numeric = [length](int number) {
        return length == 1 ? QString::number(number) : twoDigits(number);
    };
    switch (letter.unicode()) {
    case u'd':
        if (length <= 2)
            return numeric(date.day());
        return length == 3 ? weekdayName(weekday(moment.day)).first(3) : weekdayName(weekday(moment.day));
    case u'M':
        if (length <= 2)
            return numeric(date.month());
        return length == 3 ? monthName(date.month()).first(3) : monthName(date.month());
    case u'y':
        return length == 2 ? twoDigits(date.year() % 100) : u"%1"_s.arg(date.year(), 4, 10, QChar(u'0'));
    case u'H':
        return numeric(hour);
    case u'm':
        return numeric(minute);
    case u's':
        return numeric(second);
    default:
        return std::nullopt;
    }
}

bool needsDate(QStringView pattern)
{
    return pattern.contains(u'd') || pattern.contains(u'M') || pattern.contains(u'y');
}

} // namespace

double roundNumber(double number, int places)
{
    if (!std::isfinite(number))
        return number;
    const Decimal rounded = toDecimal(number, std::clamp(places, -kMaxDecimals, kMaxDecimals));
    const QByteArray text = (rounded.negative ? "-" : "") + rounded.integer + '.' + rounded.fraction + '0';
    return text.toDouble();
}

QString formatNumber(double number, int decimals, QStringView thousands, QStringView point)
{
    if (!std::isfinite(number))
        return {};
    const Decimal parts = toDecimal(number, std::clamp(decimals, 0, kMaxDecimals));
    QString text = parts.negative ? u"-"_s : QString();
    for (qsizetype i = 0; i < parts.integer.size(); ++i) {
        if (i > 0 && (parts.integer.size() - i) % 3 == 0)
            text += thousands;
        text += QLatin1Char(parts.integer[i]);
    }
    if (!parts.fraction.isEmpty())
        text += point.toString() + QString::fromLatin1(parts.fraction);
    return text;
}

QString grouped(qint64 count)
{
    return formatNumber(static_cast<double>(count), 0, u".", u",");
}

QString plainNumber(double number)
{
    if (number == 0 || !std::isfinite(number))
        return u"0"_s;
    const Digits digits = shortestDigits(std::abs(number));
    const int places = std::max<int>(0, static_cast<int>(digits.digits.size()) - digits.beforePoint);
    const Decimal parts = toDecimal(number, places);
    QString text = (parts.negative ? u"-"_s : QString()) + QString::fromLatin1(parts.integer);
    if (!parts.fraction.isEmpty())
        text += u'.' + QString::fromLatin1(parts.fraction);
    return text;
}

QString formatMoment(const DateTime& moment, QStringView pattern)
{
    if (moment.day == 0 && needsDate(pattern))
        return {};
    const QDate date = toQDate(moment.day);
    QString text;
    for (qsizetype i = 0; i < pattern.size();) {
        const QChar letter = pattern[i];
        if (letter == u'\'') {
            const qsizetype close = pattern.indexOf(u'\'', i + 1);
            const qsizetype end = close < 0 ? pattern.size() : close;
            text += pattern.sliced(i + 1, end - i - 1);
            i = end + 1;
            continue;
        }
        qsizetype length = 1;
        while (i + length < pattern.size() && pattern[i + length] == letter && length < 4)
            ++length;
        const std::optional<QString> part = patternPart(moment, date, letter, length);
        text += part ? *part : pattern.sliced(i, length).toString();
        i += length;
    }
    return text;
}

QString toText(const Value& value)
{
    if (const QString* text = std::get_if<QString>(&value))
        return *text;
    if (const double* number = std::get_if<double>(&value))
        return formatNumber(*number, 2, u".", u",");
    if (const bool* flag = std::get_if<bool>(&value))
        return *flag ? u"True"_s : u"False"_s;
    if (const Date* date = std::get_if<Date>(&value))
        return formatMoment({date->day, 0}, u"dd/MM/yyyy");
    if (const Time* time = std::get_if<Time>(&value))
        return formatMoment({0, time->second}, u"HH:mm:ss");
    if (const DateTime* moment = std::get_if<DateTime>(&value))
        return formatMoment(*moment, u"dd/MM/yyyy HH:mm:ss");
    return {};
}

std::optional<double> parseNumber(QStringView text)
{
    QStringView rest = text.trimmed();
    const bool signed_ = rest.startsWith(u'-') || rest.startsWith(u'+');
    QString plain = rest.startsWith(u'-') ? u"-"_s : QString();
    rest = rest.sliced(signed_ ? 1 : 0);
    const qsizetype comma = rest.indexOf(u',');
    const QStringView integer = comma < 0 ? rest : rest.first(comma);
    const QStringView fraction = comma < 0 ? QStringView() : rest.sliced(comma + 1);
    const QList<QStringView> groups = integer.split(u'.');
    for (qsizetype i = 0; i < groups.size(); ++i) {
        const bool wellSized = groups.size() == 1 || (i == 0 ? groups[i].size() <= 3 : groups[i].size() == 3);
        if (groups[i].isEmpty() || !wellSized)
            return std::nullopt;
        plain += groups[i];
    }
    if (comma >= 0 && fraction.isEmpty())
        return std::nullopt;
    plain += u'.';
    plain += fraction;
    const auto isDigit = [](QChar c) { return (c >= u'0' && c <= u'9') || c == u'.' || c == u'-'; };
    if (fraction.contains(u'.') || integer.contains(u'-') || fraction.contains(u'-') ||
        !std::all_of(plain.begin(), plain.end(), isDigit)) {
        return std::nullopt;
    }
    bool read = false;
    const double number = (plain + u'0').toDouble(&read);
    return read ? std::optional(number) : std::nullopt;
}

std::optional<Date> parseDate(QStringView text)
{
    const QList<QStringView> parts = text.trimmed().split(u'/');
    if (parts.size() != 3 || parts[0].size() > 2 || parts[1].size() > 2 || parts[2].size() != 4)
        return std::nullopt;
    bool read[3] = {};
    const QDate date(parts[2].toInt(&read[2]), parts[1].toInt(&read[1]), parts[0].toInt(&read[0]));
    if (!read[0] || !read[1] || !read[2] || !date.isValid() || date.year() < 1)
        return std::nullopt;
    return toDate(date);
}

QString monthName(qsizetype month)
{
    return month >= 1 && month <= 12 ? QString(kMonths[static_cast<std::size_t>(month - 1)]) : QString();
}

QString weekdayName(qsizetype day)
{
    return day >= 1 && day <= 7 ? kWeekdays[static_cast<std::size_t>(day - 1)] : QString();
}

int weekday(qint32 day)
{
    return day == 0 ? 0 : toQDate(day).dayOfWeek() % 7 + 1;
}

} // namespace platform::print::formula
