// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Values to text and back in the one Spanish form that reports use. The system's locale is never asked.

#include "platform/print/formula/value.h"

#include <QString>

#include <optional>

namespace platform::print::formula {

/// Decimals are held within 0 and this.
inline constexpr int kMaxDecimals = 15;

/// Rounds half away from zero on the shortest decimal form of the number. Negative places round before the
/// point.
[[nodiscard]] double roundNumber(double number, int places);

/// "1.234,50": rounded, grouped by three with `thousands`, decimals after `point`. "-" only beside a digit
/// that isn't 0.
[[nodiscard]] QString formatNumber(double number, int decimals, QStringView thousands, QStringView point);

/// A count as a person reads it: "1.725".
[[nodiscard]] QString grouped(qint64 count);

/// Shortest decimal form with "." ("12", "0.5"): how a number stored in a text column reads.
[[nodiscard]] QString plainNumber(double number);

/// A date by a pattern of d dd ddd dddd M MM MMM MMMM yy yyyy H HH m mm s ss; other characters stand for
/// themselves, as does what is in apostrophes. The null date gives "".
[[nodiscard]] QString formatMoment(const DateTime& moment, QStringView pattern);

/// The text of any value: numbers with two decimals, dates dd/mm/yyyy, times hh:mm:ss, True or False.
[[nodiscard]] QString toText(const Value& value);

/// A whole text as number, Spanish form: "1.234,50". Nothing when it isn't one.
[[nodiscard]] std::optional<double> parseNumber(QStringView text);

/// "dd/mm/yyyy" with one or two digits for day and month and four for the year. Nothing when it is no such
/// date.
[[nodiscard]] std::optional<Date> parseDate(QStringView text);

/// 1 = enero; 1 = domingo. "" out of bounds.
[[nodiscard]] QString monthName(qsizetype month);
[[nodiscard]] QString weekdayName(qsizetype day);
/// 1 = domingo; 0 for the null date.
[[nodiscard]] int weekday(qint32 day);

} // namespace platform::print::formula
