// SPDX-License-Identifier: GPL-3.0-or-later

// How a grid looks: its fixed settings and the widths of its columns.

#include "platform/window/flexgrid.h"
#include "platform/window/flexmodel.h"

#include <QHeaderView>

#include <algorithm>
#include <cmath>

namespace platform {

namespace {

constexpr double kTwipsPerInch = 1440.0;
/// Width of a digit in the small font that widths in twips are made for, in pixels at 96 dots an inch.
constexpr double kDesignDigitWidth = 6.0;
constexpr int kRowPadding = 8;
constexpr int kHeadingPadding = 14;
constexpr int kRowsInHint = 4;

} // namespace

void FlexGrid::setUpLook()
{
    setAlternatingRowColors(true);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRowPadding);
    horizontalHeader()->setSectionsClickable(false);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setMinimumSectionSize(1);
    horizontalHeader()->setFixedHeight(fontMetrics().height() + kRowPadding + 2);
    horizontalHeader()->viewport()->setMouseTracking(true);
}

void FlexGrid::setFillsWidth(bool fills)
{
    m_fillsWidth = fills;
    horizontalHeader()->setSectionResizeMode(fills ? QHeaderView::Fixed : QHeaderView::Interactive);
    applyWidths();
}

int FlexGrid::widthTwips() const
{
    return static_cast<int>(std::lround(width() * kTwipsPerInch / logicalDpiX()));
}

void FlexGrid::setRedraw(bool redraw)
{
    m_redraw = redraw;
    setUpdatesEnabled(redraw);
}

void FlexGrid::refresh()
{
    viewport()->update();
}

QSize FlexGrid::sizeHint() const
{
    const QSize hint = QTableView::sizeHint();
    return sizePolicy().verticalPolicy() == QSizePolicy::Fixed ? QSize(hint.width(), heightOfRows()) : hint;
}

QSize FlexGrid::minimumSizeHint() const
{
    if (sizePolicy().verticalPolicy() == QSizePolicy::Fixed)
        return {QTableView::minimumSizeHint().width(), heightOfRows()};
    const int rowHeight = verticalHeader()->defaultSectionSize();
    return {QTableView::minimumSizeHint().width(), horizontalHeader()->height() + kRowsInHint * rowHeight};
}

void FlexGrid::resizeEvent(QResizeEvent* event)
{
    QTableView::resizeEvent(event);
    if (m_fillsWidth)
        applyWidths();
}

int FlexGrid::heightOfRows() const
{
    return horizontalHeader()->height() + (rows() - 1) * verticalHeader()->defaultSectionSize() +
           2 * frameWidth();
}

void FlexGrid::applyWidths()
{
    for (int col = 0; col < cols(); ++col)
        applyWidth(col);
}

void FlexGrid::applyWidth(int col)
{
    const int twips = m_model->column(col).widthTwips;
    setColumnHidden(col, twips == 0);
    if (twips != 0)
        setColumnWidth(col, widthPixels(col));
    if (col == cols() - 1)
        horizontalHeader()->setStretchLastSection(twips == kWidthNotSet);
}

int FlexGrid::widthPixels(int col) const
{
    const int pixels = static_cast<int>(basePixels(col) * widthScale());
    const FlexColumn& column = m_model->column(col);
    const bool followsHeading = column.kind == CellKind::Boolean || column.widthTwips == kWidthNotSet;
    if (!followsHeading)
        return std::max(pixels, 1);
    return std::max(pixels, horizontalHeader()->fontMetrics().horizontalAdvance(m_model->text(0, col)) +
                                kHeadingPadding);
}

double FlexGrid::basePixels(int col) const
{
    return colWidth(col) * logicalDpiX() / kTwipsPerInch;
}

double FlexGrid::widthScale() const
{
    const double fontScale =
        std::max(1.0, fontMetrics().horizontalAdvance(QLatin1Char('0')) / kDesignDigitWidth);
    if (!m_fillsWidth)
        return fontScale;
    double wanted = 0;
    double room = viewport()->width();
    for (int col = 0; col < cols(); ++col) {
        // A tick column keeps the width of its heading and takes no share.
        if (m_model->column(col).kind == CellKind::Boolean)
            room -= columnWidth(col);
        else
            wanted += basePixels(col);
    }
    return wanted > 0 ? std::max(1.0, room / wanted) : fontScale;
}

} // namespace platform
