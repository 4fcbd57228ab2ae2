// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The order of text in every store: traditional Spanish, from a weight table that is frozen for ever, since
// the indexes of shared files are built with it.
//
// ch and ll are letters after c and l in every mix of case, ñ after n; case is ignored; accents decide last;
// blanks (U+0020) at the end don't count; blanks, punctuation, digits and letters follow each other in this
// order; characters outside Windows-1252 come last, by code point.
//
// It is the Unicode order for `es@collation=traditional` at the secondary strength, but for four things that
// are decided here:
// - blanks at the end don't count;
// - cH and lL are letters as well, since case is ignored;
// - the control characters and the soft hyphen aren't ignored: they come first, by code, so that no two
//   different texts become one key for a character that can't be seen;
// - characters outside Windows-1252, combining accents too, come last, by code point.
// As in the Unicode order, ª º ¹ ² ³ equal a o 1 2 3, ™ equals "tm", … equals "...", and the hard blank
// equals the blank (but it counts at the end); œ, æ and ß differ from "oe", "ae" and "ss" as an accent does.

#include <QByteArray>
#include <QString>

namespace platform {

/// Negative, 0 or positive as `left` stands before, equal to or after `right`.
[[nodiscard]] int compareSpanish(QStringView left, QStringView right) noexcept;

/// The same over UTF-8 bytes, for the data engine's collation; allocates nothing. A malformed byte counts as
/// U+FFFD.
[[nodiscard]] int compareSpanishUtf8(QByteArrayView left, QByteArrayView right) noexcept;

/// A key whose byte order (memcmp) is the order of `compareSpanish`, for sorting many texts.
[[nodiscard]] QByteArray spanishSortKey(QStringView text);

} // namespace platform
