// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/window/picturebox.h"

#include "platform/window/icons.h"

#include <QKeyEvent>

namespace platform {

PictureBox::PictureBox(QWidget* parent)
    : QToolButton(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAutoRaise(true);
    setIcon(platform::icon(Icon::Search));
}

void PictureBox::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QToolButton::keyPressEvent(event);
}

void PictureBox::mouseMoveEvent(QMouseEvent* event)
{
    QToolButton::mouseMoveEvent(event);
    Q_EMIT MouseMove();
}

} // namespace platform
