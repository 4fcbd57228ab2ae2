// SPDX-License-Identifier: GPL-3.0-or-later
// Date and time functions. The null date has year, month and day 0.
#include "platform/print/formula/functions.h"
#include "platform/print/formula/to_text.h"

#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace platform::print::formula {
namespace {

std::optional<Date> dateOf(qsizetype year, qsizetype month, qsizetype day)
{
    if (year == 0 && month == 0 && day == 0)
        return Date{};
    if (year < 1 || year > 9999 || month < 1 || month > 12 || day < 1 || day > 31)
        return std::nullopt;
    const QDate date(static_cast<int>(year), static_cast<int>(month), static_cast<int>(day));
    return date.isValid() ? std::optional(toDate(date)) : std::nullopt;
}

std::optional<Time> timeOf(qsizetype hour, qsizetype minute, qsizetype second)
{
    if (hour < 0 || hour > 23 || minute < 0 || minute > 59 || second < 0 || second > 59)
        return std::nullopt;
    return Time{static_cast<qint32>(hour * 3600 + minute * 60 + second)};
}

Value dateFromNumbers(Call& call)
{
    const std::optional<Date> date = dateOf(call.whole(0), call.whole(1), call.whole(2));
    return date ? Value(*date) : call.fail(u"fecha imposible"_s);
}

Value dateFromMoment(Call& call)
{
    return Date{std::get<DateTime>(call.arguments[0]).day};
}

Value dateFromText(Call& call)
{
    const std::optional<Date> date = parseDate(call.text(0));
    return date ? Value(*date) : call.fail(u"«%1» no es una fecha"_s.arg(call.text(0).left(40)));
}

Value momentFromNumbers(Call& call)
{
    const auto part = [&call](std::size_t i) { return i < call.count() ? call.whole(i) : 0; };
    const std::optional<Date> date = dateOf(part(0), part(1), part(2));
    const std::optional<Time> time = timeOf(part(3), part(4), part(5));
    if (!date || !time)
        return call.fail(u"fecha u hora imposible"_s);
    return DateTime{date->day, time->second};
}

Value momentItself(Call& call)
{
    return call.arguments[0];
}

Value momentFromDateAndTime(Call& call)
{
    return DateTime{std::get<Date>(call.arguments[0]).day, std::get<Time>(call.arguments[1]).second};
}

Value timeFromNumbers(Call& call)
{
    const std::optional<Time> time = timeOf(call.whole(0), call.whole(1), call.whole(2));
    return time ? Value(*time) : call.fail(u"hora imposible"_s);
}

QDate dayOf(const Call& call)
{
    return toQDate(std::get<DateTime>(call.arguments[0]).day);
}

Value year(Call& call)
{
    return static_cast<double>(dayOf(call).isValid() ? dayOf(call).year() : 0);
}

Value month(Call& call)
{
    return static_cast<double>(dayOf(call).month());
}

Value day(Call& call)
{
    return static_cast<double>(dayOf(call).day());
}

int secondOf(const Call& call)
{
    if (const Time* time = std::get_if<Time>(&call.arguments[0]))
        return time->second;
    return std::get<DateTime>(call.arguments[0]).second;
}

Value hour(Call& call)
{
    const int hours = secondOf(call) / 3600;
    return static_cast<double>(hours);
}

Value minute(Call& call)
{
    const int minutes = secondOf(call) / 60 % 60;
    return static_cast<double>(minutes);
}

Value second(Call& call)
{
    return static_cast<double>(secondOf(call) % 60);
}

Value dayOfWeek(Call& call)
{
    return static_cast<double>(weekday(std::get<DateTime>(call.arguments[0]).day));
}

Value monthNameOf(Call& call)
{
    const QString name = monthName(call.whole(0));
    return name.isEmpty() ? call.fail(u"los meses van de 1 a 12"_s) : Value(name);
}

Value weekdayNameOf(Call& call)
{
    const QString name = weekdayName(call.whole(0));
    return name.isEmpty() ? call.fail(u"los días de la semana van de 1 a 7"_s) : Value(name);
}

enum class Interval { Day, Month, Year };

std::optional<Interval> intervalOf(const QString& text)
{
    if (text.compare(u"d", Qt::CaseInsensitive) == 0)
        return Interval::Day;
    if (text.compare(u"m", Qt::CaseInsensitive) == 0)
        return Interval::Month;
    if (text.compare(u"yyyy", Qt::CaseInsensitive) == 0)
        return Interval::Year;
    return std::nullopt;
}

QDate added(QDate date, Interval interval, qsizetype count)
{
    // Ten thousand years reach past both ends of the calendar, so a wild count can't overflow.
    const auto steps = static_cast<int>(std::clamp<qsizetype>(count, -3'660'000, 3'660'000));
    switch (interval) {
    case Interval::Day:
        return date.addDays(steps);
    case Interval::Month:
        return date.addMonths(steps);
    case Interval::Year:
        return date.addYears(std::clamp(steps, -10'000, 10'000));
    }
    return date;
}

Value dateAdd(Call& call)
{
    const std::optional<Interval> interval = intervalOf(call.text(0));
    if (!interval)
        return call.fail(u"el intervalo es \"d\", \"m\" o \"yyyy\""_s);
    const Value moment = withTime(call.arguments[2]);
    const DateTime start = std::get<DateTime>(moment);
    const QDate result = added(toQDate(start.day), *interval, call.whole(1));
    if (start.day == 0 || !result.isValid() || result.year() < 1 || result.year() > 9999)
        return call.fail(u"fecha imposible"_s);
    if (std::holds_alternative<Date>(call.arguments[2]))
        return toDate(result);
    return DateTime{toDate(result).day, start.second};
}

Value dateDiff(Call& call)
{
    const std::optional<Interval> interval = intervalOf(call.text(0));
    if (!interval)
        return call.fail(u"el intervalo es \"d\", \"m\" o \"yyyy\""_s);
    const QDate from = toQDate(std::get<DateTime>(call.arguments[1]).day);
    const QDate to = toQDate(std::get<DateTime>(call.arguments[2]).day);
    if (!from.isValid() || !to.isValid())
        return call.fail(u"fecha vacía"_s);
    const int years = to.year() - from.year();
    switch (*interval) {
    case Interval::Day:
        return static_cast<double>(from.daysTo(to));
    case Interval::Month:
        return static_cast<double>(years * 12 + to.month() - from.month());
    case Interval::Year:
        return static_cast<double>(years);
    }
    return {};
}

constexpr std::array kFunctions{
    Function{"Date"_L1, "d(nnn)"_L1, dateFromNumbers},
    Function{"Date"_L1, "d(D)"_L1, dateFromMoment},
    Function{"Date"_L1, "d(s)"_L1, dateFromText},
    Function{"CDate"_L1, "d(nnn)"_L1, dateFromNumbers},
    Function{"CDate"_L1, "d(D)"_L1, dateFromMoment},
    Function{"CDate"_L1, "d(s)"_L1, dateFromText},
    Function{"DateTime"_L1, "D(nnn)"_L1, momentFromNumbers},
    Function{"DateTime"_L1, "D(nnnn)"_L1, momentFromNumbers},
    Function{"DateTime"_L1, "D(nnnnn)"_L1, momentFromNumbers},
    Function{"DateTime"_L1, "D(nnnnnn)"_L1, momentFromNumbers},
    Function{"DateTime"_L1, "D(D)"_L1, momentItself},
    Function{"DateTime"_L1, "D(dt)"_L1, momentFromDateAndTime},
    Function{"CDateTime"_L1, "D(nnn)"_L1, momentFromNumbers},
    Function{"CDateTime"_L1, "D(nnnn)"_L1, momentFromNumbers},
    Function{"CDateTime"_L1, "D(nnnnn)"_L1, momentFromNumbers},
    Function{"CDateTime"_L1, "D(nnnnnn)"_L1, momentFromNumbers},
    Function{"CDateTime"_L1, "D(D)"_L1, momentItself},
    Function{"CDateTime"_L1, "D(dt)"_L1, momentFromDateAndTime},
    Function{"Time"_L1, "t(nnn)"_L1, timeFromNumbers},
    Function{"Year"_L1, "n(D)"_L1, year},
    Function{"Month"_L1, "n(D)"_L1, month},
    Function{"Day"_L1, "n(D)"_L1, day},
    Function{"Hour"_L1, "n(t)"_L1, hour},
    Function{"Hour"_L1, "n(D)"_L1, hour},
    Function{"Minute"_L1, "n(t)"_L1, minute},
    Function{"Minute"_L1, "n(D)"_L1, minute},
    Function{"Second"_L1, "n(t)"_L1, second},
    Function{"Second"_L1, "n(D)"_L1, second},
    Function{"DayOfWeek"_L1, "n(D)"_L1, dayOfWeek},
    Function{"MonthName"_L1, "s(n)"_L1, monthNameOf},
    Function{"WeekdayName"_L1, "s(n)"_L1, weekdayNameOf},
    Function{"DateAdd"_L1, "d(snd)"_L1, dateAdd},
    Function{"DateAdd"_L1, "D(snD)"_L1, dateAdd},
    Function{"DateDiff"_L1, "n(sDD)"_L1, dateDiff},
};

} // namespace

std::span<const Function> dateFunctions()
{
    return kFunctions;
}

} // namespace platform::print::formula
