// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The program's style: Fusion, and a frame in the highlight colour around the framed control that has the
// focus. Fusion marks the current line of a grid or a tree only, and there may be none.

#include <QProxyStyle>

namespace platform {

class FocusStyle : public QProxyStyle
{
    Q_OBJECT

public:
    FocusStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
};

} // namespace platform
