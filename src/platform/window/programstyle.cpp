// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/window/programstyle.h"

#include "platform/window/colours.h"
#include "platform/window/spacing.h"

#include <QAbstractScrollArea>
#include <QFrame>
#include <QGroupBox>
#include <QPainter>
#include <QPushButton>
#include <QStackedWidget>
#include <QStyleOption>

#include <algorithm>

namespace platform {

namespace {

constexpr int kMarkWidth = 2;
/// A control as small as a tick box: the mark covers its outline and leaves room for the tick.
constexpr int kSmallSide = 16;
/// Between the edge of a tab and its mark.
constexpr int kTabInset = 3;
/// Fusion's own, so that the mark covers the frame.
constexpr double kCorner = 2;

void drawMark(const QStyleOption& option, QPainter* painter, const QColor& colour, double corner)
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const bool isSmall = std::min(option.rect.width(), option.rect.height()) < kSmallSide;
    const double half = isSmall ? 0 : kMarkWidth / 2.0;
    painter->setPen(QPen(colour, kMarkWidth, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter->setBrush(Qt::NoBrush);
    painter->drawRoundedRect(QRectF(option.rect).adjusted(half, half, -half, -half), corner, corner);
    painter->restore();
}

void drawMark(const QStyleOption& option, QPainter* painter, double corner = kCorner)
{
    drawMark(option, painter, focusMark(option.palette), corner);
}

/// The focus within what is chosen shows in the colour of the text there.
void drawInnerMark(const QStyleOption& option, QPainter* painter)
{
    const bool isChosen =
        option.state.testFlag(QStyle::State_Item) && option.state.testFlag(QStyle::State_Selected);
    drawMark(option, painter,
             isChosen ? option.palette.color(QPalette::HighlightedText) : focusMark(option.palette), kCorner);
}

bool hasFocus(const QStyleOption& option)
{
    return option.state.testFlag(QStyle::State_HasFocus) && option.state.testFlag(QStyle::State_Enabled);
}

/// The distance around what a widget's layout holds.
int marginOf(const QWidget* widget)
{
    if (widget == nullptr || widget->isWindow())
        return kGap;
    const auto* frame = qobject_cast<const QFrame*>(widget);
    const bool isBlock = frame != nullptr && frame->frameShape() != QFrame::NoFrame;
    return isBlock || qobject_cast<const QStackedWidget*>(widget->parentWidget()) ? kInset : 0;
}

/// A flat group is its title above its contents.
bool isFlatGroup(const QWidget* widget)
{
    const auto* group = qobject_cast<const QGroupBox*>(widget);
    return group != nullptr && group->isFlat();
}

bool isFlat(const QStyleOption& option)
{
    const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(&option);
    return frame != nullptr && frame->features.testFlag(QStyleOptionFrame::Flat);
}

} // namespace

ProgramStyle::ProgramStyle()
    : QProxyStyle(QStringLiteral("Fusion"))
{}

void ProgramStyle::polish(QPalette& palette)
{
    QProxyStyle::polish(palette);
    palette = readable(palette);
}

int ProgramStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    switch (metric) {
    case PM_LayoutTopMargin:
        return isFlatGroup(widget) ? kTight : marginOf(widget);
    case PM_LayoutLeftMargin:
    case PM_LayoutRightMargin:
    case PM_LayoutBottomMargin:
        return marginOf(widget);
    case PM_LayoutHorizontalSpacing:
    case PM_LayoutVerticalSpacing:
        return kGap;
    case PM_DefaultFrameWidth:
        // What scrolls covers all but its frame, so the frame must have room for the mark.
        if (qobject_cast<const QAbstractScrollArea*>(widget))
            return kMarkWidth;
        break;
    default:
        break;
    }
    return QProxyStyle::pixelMetric(metric, option, widget);
}

QRect ProgramStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                                   const QWidget* widget) const
{
    QRect rect = QProxyStyle::subControlRect(control, option, part, widget);
    // Without a frame nothing stands between the edge of a group and what it holds.
    if (control == CC_GroupBox && part == SC_GroupBoxContents && isFlatGroup(widget))
        rect = QRect(QPoint(option->rect.left(), rect.top()), option->rect.bottomRight());
    return rect;
}

void ProgramStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                 const QWidget* widget) const
{
    if (element == PE_FrameFocusRect) {
        drawInnerMark(*option, painter);
        return;
    }
    if (element == PE_FrameGroupBox && isFlat(*option))
        return;
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (!hasFocus(*option))
        return;
    if (element == PE_Frame)
        drawMark(*option, painter, 0);
    else if (element == PE_FrameLineEdit ||
             (element == PE_PanelButtonCommand && qobject_cast<const QPushButton*>(widget)))
        drawMark(*option, painter);
}

void ProgramStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const
{
    QProxyStyle::drawControl(element, option, painter, widget);
    const bool isUp = option->state.testFlag(State_Selected);
    if (element != CE_TabBarTab || !isUp || widget == nullptr || !widget->hasFocus())
        return;
    QStyleOption tab = *option;
    tab.rect.adjust(kTabInset, kTabInset, -kTabInset, -kTabInset);
    drawMark(tab, painter);
}

void ProgramStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                      QPainter* painter, const QWidget* widget) const
{
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    const auto* combo = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    const auto* spin = qstyleoption_cast<const QStyleOptionSpinBox*>(option);
    if (((combo != nullptr && combo->frame) || (spin != nullptr && spin->frame)) && hasFocus(*option))
        drawMark(*option, painter);
}

} // namespace platform
