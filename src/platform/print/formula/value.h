// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Types and values of the formula language. Ranges and lists are no values: they stand only where `In`, a
// subscript, `Minimum` or `Maximum` reads them.

#include <QDateTime>
#include <QString>

#include <variant>

namespace platform::print::formula {

enum class Type { Number, Text, Boolean, Date, Time, DateTime };

/// A day by its Julian number; 0 is the null date, which lies before all others.
struct Date
{
    qint32 day = 0;
    // NOLINTNEXTLINE(modernize-use-nullptr): the check takes the comparison's own 0 for a pointer.
    friend auto operator<=>(const Date&, const Date&) = default;
};

/// A time of day in seconds from midnight.
struct Time
{
    qint32 second = 0;
    // NOLINTNEXTLINE(modernize-use-nullptr): as above.
    friend auto operator<=>(const Time&, const Time&) = default;
};

struct DateTime
{
    qint32 day = 0;
    qint32 second = 0;
    // NOLINTNEXTLINE(modernize-use-nullptr): as above.
    friend auto operator<=>(const DateTime&, const DateTime&) = default;
};

/// `std::monostate` stands for "no value".
using Value = std::variant<std::monostate, double, QString, bool, Date, Time, DateTime>;

[[nodiscard]] inline bool hasValue(const Value& value) noexcept
{
    return !std::holds_alternative<std::monostate>(value);
}

/// What a variable holds before it is given a value: 0, "", False, the null date.
[[nodiscard]] Value startValue(Type type);

/// The type's name as messages show it ("número", "texto", ...).
[[nodiscard]] QString typeName(Type type);

[[nodiscard]] Date toDate(QDate date) noexcept;
[[nodiscard]] QDate toQDate(qint32 day) noexcept;
[[nodiscard]] DateTime toDateTime(const QDateTime& moment) noexcept;

/// A Date as the DateTime of its midnight; a DateTime as it is; anything else unchanged.
[[nodiscard]] Value withTime(Value value) noexcept;

} // namespace platform::print::formula
