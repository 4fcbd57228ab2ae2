// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/formula/value.h"

using namespace Qt::StringLiterals;

namespace platform::print::formula {

Value startValue(Type type)
{
    switch (type) {
    case Type::Number:
        return 0.0;
    case Type::Text:
        return QString();
    case Type::Boolean:
        return false;
    case Type::Date:
        return Date{};
    case Type::Time:
        return Time{};
    case Type::DateTime:
        return DateTime{};
    }
    return {};
}

QString typeName(Type type)
{
    switch (type) {
    case Type::Number:
        return u"número"_s;
    case Type::Text:
        return u"texto"_s;
    case Type::Boolean:
        return u"sí o no"_s;
    case Type::Date:
        return u"fecha"_s;
    case Type::Time:
        return u"hora"_s;
    case Type::DateTime:
        return u"fecha y hora"_s;
    }
    return {};
}

Date toDate(QDate date) noexcept
{
    return Date{date.isValid() ? static_cast<qint32>(date.toJulianDay()) : 0};
}

QDate toQDate(qint32 day) noexcept
{
    return day == 0 ? QDate() : QDate::fromJulianDay(day);
}

DateTime toDateTime(const QDateTime& moment) noexcept
{
    return DateTime{toDate(moment.date()).day, moment.time().msecsSinceStartOfDay() / 1000};
}

Value withTime(Value value) noexcept
{
    if (const Date* date = std::get_if<Date>(&value))
        return DateTime{date->day, 0};
    return value;
}

} // namespace platform::print::formula
