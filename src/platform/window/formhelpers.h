// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What the program asks of a window beside its controls.

#include <QString>

class QDialog;
class QMenu;
class QPoint;
class QWidget;

namespace platform {

/// Pointer numbers of the design.
inline constexpr int kDefaultPointer = 0;
inline constexpr int kBusyPointer = 13;

/// Sets the mouse pointer of one window: 13 the arrow with an hourglass, 0 the default. Not counted. Others:
/// 380.
void setMousePointer(QWidget* form, int pointer);
[[nodiscard]] int mousePointer(const QWidget* form);

/// Moves to the next control in the tab order, after the present handler; dropped when `form` isn't the
/// active window by then.
void sendTab(QWidget* form);

/// Moves the controls of a page that came from a form of its own right behind a control of the window in the
/// tab order. Among themselves they keep the order of their form.
void placePageInTabOrder(QWidget* before, QWidget* page);

/// Shows a dialog as window-modal and returns when it is closed. Visible already: Failure 400.
void execModal(QDialog* dialog);

/// Shows a menu at a place of the screen and returns after the chosen item's handler has run. No item is
/// marked at the start: the first Enter only marks one.
void popupMenu(QMenu* menu, QPoint place);

} // namespace platform
