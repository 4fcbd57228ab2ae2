// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// All texts that a window shows or that a screen reader says of it.

#include <QSet>
#include <QString>

class QWidget;

namespace testsupport {

/// Captions, entries, headings, the first rows of lists, tool tips, names of keys, accessible names,
/// descriptions and actions of a window and everything in it, what is hidden for now too. Marks of keys and
/// blanks around are taken away; texts without two letters in a row are left out.
[[nodiscard]] QSet<QString> shownTexts(QWidget* window);

} // namespace testsupport
