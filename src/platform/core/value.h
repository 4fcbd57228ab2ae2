// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A column value: Null, a number or a text, never one silently turned into another.

#include <QString>

#include <variant>

namespace platform {

/// The Null of the stores: no value at all, unlike "" and 0.
struct Null
{
    friend bool operator==(Null, Null) noexcept { return true; }
};

using Value = std::variant<Null, double, QString>;

[[nodiscard]] inline bool isNull(const Value& value) noexcept
{
    return std::holds_alternative<Null>(value);
}

/// The value as text. A number comes in its plain form (15 digits, decimal comma, "1E+15" from 10^15).
/// Null fails with 94.
[[nodiscard]] QString asText(const Value& value);

/// The value as a number. A text is read whole (blanks at both ends, sign, decimal comma, point as thousands
/// mark), else 13. Null fails with 94.
[[nodiscard]] double asNumber(const Value& value);

} // namespace platform
