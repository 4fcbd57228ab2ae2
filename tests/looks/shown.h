// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Walks what a window shows, calls it by a name that a reader of a test's report finds, and writes that
// report.

#include <QList>
#include <QString>
#include <QStringList>

class QWidget;

namespace looks {

/// The window and every control of it that is on the screen.
[[nodiscard]] QList<QWidget*> shownIn(QWidget& window);

/// Object name, else the class, with the words that it shows.
[[nodiscard]] QString nameOf(const QWidget& control);

/// Tells every fault as a warning of the running test; true when there are none.
[[nodiscard]] bool isSound(const QStringList& faults);

} // namespace looks
