// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Whether the texts of a window can be read and its focus be seen, judged by what is painted.

#include <QStringList>

class QWidget;

namespace looks {

/// One line for each text that isn't painted, or whose colour is too close to its ground's.
[[nodiscard]] QStringList unreadable(QWidget& window);

/// Gives the focus to each control that the keyboard reaches, and takes it away. One line for each one that
/// then doesn't change where the user sees it. The window must be active; no rule of a field runs.
[[nodiscard]] QStringList unmarkedFocus(QWidget& window);

} // namespace looks
