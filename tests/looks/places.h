// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Whether the controls of a window stand where they can be seen: no two on the same spot, none beyond the
// edge of what holds it, the window on its screen.

#include <QSize>
#include <QStringList>

class QWidget;

namespace looks {

/// One line for each pair of controls that overlap, each control that leaves its parent, and a window larger
/// than the room given.
[[nodiscard]] QStringList misplaced(QWidget& window, QSize room);

} // namespace looks
