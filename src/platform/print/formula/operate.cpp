// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/formula/operate.h"

#include "platform/print/formula/functions.h"
#include "platform/print/formula/to_text.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace platform::print::formula {
namespace {

constexpr double kSecondsADay = 86'400.0;

Value joined(const QString& left, const QString& right, QString& error)
{
    if (left.size() + right.size() > kMaxText) {
        error = u"el texto resulta demasiado largo"_s;
        return {};
    }
    return left + right;
}

double quotient(double left, double right, QString& error)
{
    if (right == 0)
        error = u"división por cero"_s;
    return right == 0 ? 0 : left / right;
}

Value calculate(Op op, double left, double right, QString& error)
{
    double result = 0;
    switch (op) {
    case Op::Add:
        result = left + right;
        break;
    case Op::Subtract:
        result = left - right;
        break;
    case Op::Multiply:
        result = left * right;
        break;
    case Op::Divide:
        result = quotient(left, right, error);
        break;
    case Op::Percent:
        result = quotient(left, right, error) * 100;
        break;
    case Op::IntegerDivide:
        result = std::trunc(quotient(left, right, error));
        break;
    case Op::Modulo:
        quotient(left, right, error);
        result = right == 0 ? 0 : std::fmod(left, right);
        break;
    case Op::Power:
        result = std::pow(left, right);
        break;
    default:
        break;
    }
    if (error.isEmpty() && !std::isfinite(result))
        error = u"el resultado no es un número"_s;
    return error.isEmpty() ? Value(result) : Value();
}

/// A date, with or without time, moved by days.
Value moved(const Value& moment, double days, QString& error)
{
    const bool dayOnly = std::holds_alternative<Date>(moment);
    const DateTime start = std::get<DateTime>(withTime(moment));
    const double step = dayOnly ? std::trunc(days) : days;
    const double seconds = std::round(start.second + step * kSecondsADay);
    const double day = start.day + std::floor(seconds / kSecondsADay);
    static const qint64 first = QDate(1, 1, 1).toJulianDay();
    static const qint64 last = QDate(9999, 12, 31).toJulianDay();
    if (start.day == 0 || !(day >= static_cast<double>(first) && day <= static_cast<double>(last))) {
        error = u"fecha imposible"_s;
        return {};
    }
    const auto julian = static_cast<qint32>(day);
    if (dayOnly)
        return Date{julian};
    const double rest = seconds - std::floor(seconds / kSecondsADay) * kSecondsADay;
    return DateTime{julian, static_cast<qint32>(rest)};
}

Value distance(const DateTime& left, const DateTime& right, QString& error)
{
    if (left.day == 0 || right.day == 0) {
        error = u"fecha vacía"_s;
        return {};
    }
    return static_cast<double>(left.day - right.day) + (left.second - right.second) / kSecondsADay;
}

bool isMoment(const Value& value)
{
    return std::holds_alternative<Date>(value) || std::holds_alternative<DateTime>(value);
}

} // namespace

Value operate(Op op, const Value& left, const Value& right, QString& error)
{
    if (op == Op::Concatenate)
        return joined(toText(left), toText(right), error);
    if (std::holds_alternative<QString>(left))
        return joined(std::get<QString>(left), std::get<QString>(right), error);
    if (isMoment(left) && isMoment(right))
        return distance(std::get<DateTime>(withTime(left)), std::get<DateTime>(withTime(right)), error);
    if (isMoment(left)) {
        const double days = std::get<double>(right);
        return moved(left, op == Op::Add ? days : -days, error);
    }
    if (isMoment(right))
        return moved(right, std::get<double>(left), error);
    return calculate(op, std::get<double>(left), std::get<double>(right), error);
}

Value slice(const QString& text, double from, double to, QString& error)
{
    const auto size = static_cast<double>(text.size());
    const auto position = [size](double given) {
        const double whole = std::trunc(given);
        return whole < 0 ? size + 1 + whole : whole;
    };
    if (std::trunc(from) == 0 || std::trunc(to) == 0) {
        error = u"la posición empieza en 1"_s;
        return {};
    }
    const auto first = static_cast<qsizetype>(std::clamp(position(from), 1.0, size + 1));
    const auto last = static_cast<qsizetype>(std::clamp(position(to), 0.0, size));
    return last < first ? QString(u""_s) : text.mid(first - 1, last - first + 1);
}

} // namespace platform::print::formula
