// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/window/commandbutton.h"

#include <QKeyEvent>
#include <QShortcutEvent>

namespace platform {

CommandButton::CommandButton(QWidget* parent)
    : QPushButton(parent)
{
    setAutoDefault(false);
    setFocusPolicy(Qt::StrongFocus);
}

bool CommandButton::event(QEvent* event)
{
    if (event->type() != QEvent::Shortcut || static_cast<QShortcutEvent*>(event)->isAmbiguous())
        return QPushButton::event(event);
    setFocus(Qt::ShortcutFocusReason);
    click();
    return true;
}

void CommandButton::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QPushButton::keyPressEvent(event);
}

} // namespace platform
