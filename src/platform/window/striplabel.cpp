// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/window/striplabel.h"

#include "platform/window/colours.h"
#include "platform/window/spacing.h"

#include <QPainter>

namespace platform {

namespace {

constexpr int kLineWidth = 2;

} // namespace

StripLabel::StripLabel(QWidget* parent)
    : ImageLabel(parent)
{
    setContentsMargins(kInset, kTight, kInset, kTight + kLineWidth);
}

void StripLabel::setUp(bool up)
{
    m_up = up;
    QFont type = font();
    type.setBold(up);
    setFont(type);
}

void StripLabel::paintEvent(QPaintEvent* event)
{
    ImageLabel::paintEvent(event);
    QPainter painter(this);
    painter.fillRect(QRect(0, height() - kLineWidth, width(), kLineWidth),
                     m_up ? focusMark(palette()) : faintLine(palette()));
}

} // namespace platform
