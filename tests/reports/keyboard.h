// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The program worked by its keys alone: they go to the control that has the focus, whatever it is.

#include <QApplication>
#include <QString>
#include <QTimer>
#include <QWidget>

namespace reporttest {

/// A key for the menu that is open, else for the control that has the focus, else for the active window.
void pressKey(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
/// Characters for the control that has the focus, one key each.
void type(const QString& text);
/// The same, in the place of what stands there.
void typeAnew(const QString& text);
/// Presses Tab until the control has the focus; false when a hundred of them don't bring it there.
[[nodiscard]] bool tabTo(const QWidget* control);
/// Chooses the entry of the drop-down list that has the focus, from 0.
void chooseListEntry(int entry);
/// Another window of the program comes to the front, as by Alt+Tab. False when it doesn't.
[[nodiscard]] bool turnTo(QWidget& window);

/// Runs the action as soon as a window of that class is active and has the focus in it: what a user does
/// while a modal one stands there.
template <typename Window, typename Action>
void onceActive(Action action)
{
    constexpr int kEvery = 10; // milliseconds
    auto* timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, qApp, [timer, action] {
        auto* window = qobject_cast<Window*>(QApplication::activeWindow());
        const QWidget* focused = QApplication::focusWidget();
        if (window == nullptr || focused == nullptr || focused->window() != window)
            return;
        timer->stop();
        timer->deleteLater();
        action(*window);
    });
    timer->start(kEvery);
}

} // namespace reporttest
