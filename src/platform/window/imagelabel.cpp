// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/window/imagelabel.h"

#include <QMouseEvent>

#include <utility>

namespace platform {

ImageLabel::ImageLabel(QWidget* parent)
    : QLabel(parent)
{
    setMouseTracking(true);
    setFocusPolicy(Qt::NoFocus);
}

void ImageLabel::mousePressEvent(QMouseEvent* event)
{
    m_pressed = event->button() == Qt::LeftButton;
}

void ImageLabel::mouseReleaseEvent(QMouseEvent* event)
{
    if (std::exchange(m_pressed, false) && rect().contains(event->position().toPoint()))
        Q_EMIT clicked();
}

void ImageLabel::mouseMoveEvent(QMouseEvent* event)
{
    QLabel::mouseMoveEvent(event);
    Q_EMIT MouseMove();
}

} // namespace platform
