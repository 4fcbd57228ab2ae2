// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/keyboard.h"

#include <QTest>

namespace reporttest {

namespace {

constexpr int kMostTabs = 100;

QWidget* keyTarget()
{
    if (QWidget* popup = QApplication::activePopupWidget())
        return popup;
    QWidget* focused = QApplication::focusWidget();
    return focused != nullptr ? focused : QApplication::activeWindow();
}

} // namespace

void pressKey(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(keyTarget(), key, modifiers);
}

void type(const QString& text)
{
    for (const QChar character : text) {
        QWidget* focused = QApplication::focusWidget();
        if (character < QChar(0x80))
            QTest::keyClick(focused, character.toLatin1());
        else
            QTest::sendKeyEvent(QTest::Click, focused, Qt::Key_unknown, QString(character), Qt::NoModifier);
    }
}

void typeAnew(const QString& text)
{
    pressKey(Qt::Key_A, Qt::ControlModifier);
    type(text);
}

bool tabTo(const QWidget* control)
{
    for (int tabs = 0; tabs < kMostTabs && QApplication::focusWidget() != control; ++tabs)
        pressKey(Qt::Key_Tab);
    return QApplication::focusWidget() == control;
}

void chooseListEntry(int entry)
{
    pressKey(Qt::Key_Home);
    for (int step = 0; step < entry; ++step)
        pressKey(Qt::Key_Down);
}

bool turnTo(QWidget& window)
{
    window.activateWindow();
    return QTest::qWaitForWindowActive(&window);
}

} // namespace reporttest
