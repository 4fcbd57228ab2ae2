// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/window/picturebox.h"

#include "platform/window/icons.h"
#include "platform/window/spacing.h"

#include <QKeyEvent>

#include <algorithm>

namespace platform {

namespace {

constexpr int kLeastPicture = 16;

} // namespace

PictureBox::PictureBox(QWidget* parent)
    : QToolButton(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAutoRaise(true);
    setIcon(platform::icon(Icon::Search));
    fitToFont();
}

QSize PictureBox::sizeHint() const
{
    const int side = fontMetrics().height() + kRowInset;
    return {side, side};
}

void PictureBox::fitToFont()
{
    const int picture = std::max(kLeastPicture, fontMetrics().height());
    setIconSize({picture, picture});
}

void PictureBox::changeEvent(QEvent* event)
{
    QToolButton::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        fitToFont();
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
