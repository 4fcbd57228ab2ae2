// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The program's style: Fusion, in colours that can be read (`colours.h`), at the distances of `spacing.h`,
// with one mark of the focus for every kind of control. Fusion's own mark is faint, and it shows none where
// the mouse brought the focus or where a grid or a tree has no current line.

#include <QProxyStyle>

namespace platform {

class ProgramStyle : public QProxyStyle
{
    Q_OBJECT

public:
    ProgramStyle();

    using QProxyStyle::polish;
    void polish(QPalette& palette) override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
};

} // namespace platform
