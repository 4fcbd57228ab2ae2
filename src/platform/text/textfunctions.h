// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The text and number functions of the program's procedures, with the failures that they rely on.
// Regional settings are Spanish and fixed here: decimal ",", thousands ".", dates dd/mm/yyyy. Sizes and
// positions count UTF-16 units; positions start at 1. None of these looks at the system's locale.

#include <QDate>
#include <QString>
#include <QTime>

#include <cstdint>

namespace platform {

/// Number at the beginning of a text: leading blanks, sign, digits, one "."; reading stops at the first other
/// character. A text without a number gives 0, one too large the largest number. Never fails.
[[nodiscard]] double Val(QStringView text) noexcept;

/// Number to text with a blank in front when it isn't negative; "." decimal without a zero before it (" .5");
/// 15 significant digits; " 1E+15" from 10^15.
[[nodiscard]] QString Str(double number);

/// Plain digits: no blank, decimal ",", 15 significant digits, "1E+15" from 10^15. A number that needs more
/// than 15 places after the comma has an exponent as well ("1E-16").
[[nodiscard]] QString CStr(double number);

/// Whole text to number: blanks at both ends, sign, "," decimal, "." thousands mark behind a digit, so that
/// "12.5" is 125. Anything else, "" too, fails with 13; a number too large with 6.
[[nodiscard]] double CDbl(QStringView text);

/// As `CDbl`, rounded half to even into 16 bits; outside −32768..32767 fails with 6.
[[nodiscard]] std::int16_t CInt(QStringView text);
[[nodiscard]] std::int16_t CInt(double number);

/// True when the whole text converts: blanks at the ends, one sign, digits, one decimal point ("." or ",").
[[nodiscard]] bool IsNumeric(QStringView text) noexcept;

/// Remove blanks (U+0020 only) at both ends, or at the left.
[[nodiscard]] QString Trim(QStringView text);
[[nodiscard]] QString LTrim(QStringView text);

/// First `count` units, or what there is. A negative count fails with 5.
[[nodiscard]] QString Left(QStringView text, qsizetype count);
/// Units from `start` (1-based) on; "" past the end. A start below 1 or a negative count fails with 5.
[[nodiscard]] QString Mid(QStringView text, qsizetype start);
[[nodiscard]] QString Mid(QStringView text, qsizetype start, qsizetype count);

/// 1-based position of `wanted`, 0 when it isn't there or the text searched is empty. Binary compare. An
/// empty `wanted` is found at the first position, or at the last by `InStrRev`.
[[nodiscard]] qsizetype InStr(QStringView text, QStringView wanted) noexcept;
[[nodiscard]] qsizetype InStrRev(QStringView text, QStringView wanted) noexcept;

/// `count` times the character. A negative count fails with 5.
[[nodiscard]] QString String(qsizetype count, QChar character);

/// Upper case, one unit for one. A character of Windows-1252 whose capital isn't there stays (ß, µ, ƒ).
[[nodiscard]] QString UCase(QStringView text);
/// True when `text` begins with `beginning`, both in upper case. Allocates nothing.
[[nodiscard]] bool beginsIgnoringCase(QStringView text, QStringView beginning) noexcept;

/// Windows-1252 code, 1 to 255, of the first character. "" fails with 5; a character without a code there
/// fails with 9.
[[nodiscard]] int Asc(QStringView text);

/// "dd/mm/yyyy" and "hh:mm:ss", zero-padded, 24 hours.
[[nodiscard]] QString FormatDate(QDate date);
[[nodiscard]] QString FormatTime(QTime time);

/// The format "##,##.00": groups of three with ".", two decimals after ",", half away from zero, no zero
/// before the comma (",50"), "-" first. A text that `CDbl` refuses comes back as it is.
[[nodiscard]] QString FormatAmount(QStringView text);

} // namespace platform
