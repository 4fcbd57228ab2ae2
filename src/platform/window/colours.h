// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The colours of the program by their roles. The desktop's palette decides what they are, light or dark; this
// sees to it that every text in them can be read and every mark seen. Nothing else in the program names a
// colour.

#include <QColor>
#include <QList>
#include <QPalette>

namespace platform {

/// What a text must have against its ground, and what a mark (of the focus, of a tick box) must have.
inline constexpr double kTextContrast = 4.5;
inline constexpr double kMarkContrast = 3;
/// What a quiet text has: plainly weaker than the others, and still read without effort.
inline constexpr double kQuietContrast = 5.5;

/// The contrast of two opaque colours as the web's accessibility guidelines reckon it: 1 for equal ones, 21
/// for black and white.
[[nodiscard]] double contrast(const QColor& one, const QColor& other);

/// `ground` with so much of `tint` in it.
[[nodiscard]] QColor mixed(const QColor& ground, const QColor& tint, int percent);

/// The weakest mixture of `ink` and the first ground that has the contrast on all grounds; `ink` where none
/// has.
[[nodiscard]] QColor quiet(const QColor& ink, const QList<QColor>& grounds, double least);

/// `ink` as it is if it has the contrast on all grounds, else as little lighter or darker as it takes.
[[nodiscard]] QColor withContrast(const QColor& ink, const QList<QColor>& grounds, double least);

[[nodiscard]] bool isDark(const QPalette& palette);

/// The palette, with the texts of every role and state at `kTextContrast` or more, disabled ones and hints
/// quiet, and a highlight that shows as a mark on every ground. A palette that has all this comes back as it
/// is.
[[nodiscard]] QPalette readable(QPalette palette);

// --- what the program paints itself

/// The frame of the control or cell that has the focus.
[[nodiscard]] QColor focusMark(const QPalette& palette);
/// The ground of the row that a grid's cursor is in.
[[nodiscard]] QColor cursorRow(const QPalette& palette);
/// The outline of a tick box, and of the cursor of a grid without the focus.
[[nodiscard]] QColor outline(const QPalette& palette);
/// The line under a choice that isn't the one taken.
[[nodiscard]] QColor faintLine(const QPalette& palette);

} // namespace platform
