// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/window/focusstyle.h"

#include <QPainter>
#include <QStyleOption>

namespace platform {

FocusStyle::FocusStyle()
    : QProxyStyle(QStringLiteral("Fusion"))
{}

void FocusStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const
{
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (element != PE_Frame || !option->state.testFlag(State_HasFocus))
        return;
    painter->save();
    painter->setPen(option->palette.highlight().color());
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
    painter->restore();
}

} // namespace platform
