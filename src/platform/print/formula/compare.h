// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The one comparison of the report engine, for formulas, sorting, grouping and links: the stores' Spanish
// order of text, with blanks at the end significant and, on request, capitals told apart.

#include "platform/print/formula/value.h"

#include <QByteArray>

namespace platform::print::formula {

/// Negative, 0 or positive as `left` stands before, equal to or after `right`.
[[nodiscard]] int compareText(QStringView left, QStringView right, bool caseSensitive) noexcept;

/// The same for values of one type. A Date beside a DateTime counts as its midnight; "no value" comes first.
[[nodiscard]] int compareValues(const Value& left, const Value& right, bool caseSensitive) noexcept;

/// Position from 0 of `wanted` in `text` from `start` on, −1 when it isn't there. Letters without regard to
/// case unless asked otherwise; accents and ñ are told apart.
[[nodiscard]] qsizetype findText(QStringView text, QStringView wanted, bool caseSensitive,
                                 qsizetype start = 0);

/// A key whose byte order is the order of `compareText`.
[[nodiscard]] QByteArray sortKey(QStringView text, bool caseSensitive);

} // namespace platform::print::formula
