// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Whether a window shows every word that the program itself says: no label, button, tab, title, heading, menu
// item, entry or hint is cut. Data may be longer than its field; a field of a code shows the code whole.

#include <QStringList>

class QWidget;

namespace looks {

/// One line for each text that lacks room, with what it needs and what it has, in pixels. `dataLists` are the
/// names of lists that show entries of data.
[[nodiscard]] QStringList cutTexts(QWidget& window, const QStringList& dataLists = {});

/// Whether a bar has so little room that some of its tools stand behind its "»".
[[nodiscard]] bool hidesTools(const QWidget& window);

} // namespace looks
