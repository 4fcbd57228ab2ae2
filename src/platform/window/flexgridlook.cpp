// SPDX-License-Identifier: GPL-3.0-or-later

// How a grid looks: its fixed settings and the widths of its columns.

#include "platform/window/flexgrid.h"
#include "platform/window/flexmodel.h"
#include "platform/window/spacing.h"

#include <QEvent>
#include <QHeaderView>

#include <algorithm>
#include <cmath>

namespace platform {

namespace {

constexpr double kTwipsPerInch = 1440.0;
/// Width of a digit in the small font that widths in twips are made for, in pixels at 96 dots an inch.
constexpr double kDesignDigitWidth = 6.0;
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
    horizontalHeader()->setSectionsClickable(false);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setMinimumSectionSize(1);
    horizontalHeader()->viewport()->setMouseTracking(true);
    fitToFont();
}

void FlexGrid::fitToFont()
{
    const int row = fontMetrics().height() + kRowInset;
    verticalHeader()->setDefaultSectionSize(row);
    horizontalHeader()->setFixedHeight(row + 2);
    applyWidths();
}

void FlexGrid::changeEvent(QEvent* event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        fitToFont();
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
    return std::max(pixels, leastPixels(col));
}

/// What the column's heading needs; a column that isn't there to be read needs nothing.
int FlexGrid::leastPixels(int col) const
{
    if (!m_model->column(col).isReadable())
        return 1;
    return horizontalHeader()->fontMetrics().horizontalAdvance(m_model->text(0, col)) + kCellInset;
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
    // A tick column, and one that its share would cut, keeps the width of its heading and takes no share.
    QList<bool> keeps(cols());
    for (int col = 0; col < cols(); ++col)
        keeps[col] = m_model->column(col).kind == CellKind::Boolean;
    double share = sharePixels(keeps);
    for (int turn = 0; turn < cols() && share > 0; ++turn) {
        for (int col = 0; col < cols(); ++col)
            keeps[col] = keeps[col] || basePixels(col) * share < leastPixels(col);
        share = sharePixels(keeps);
    }
    return share > 0 ? std::max(1.0, share) : fontScale;
}

/// What one pixel of the design gets of the room that the columns which keep their width leave; 0 where all
/// do.
double FlexGrid::sharePixels(const QList<bool>& keeps) const
{
    double wanted = 0;
    double room = viewport()->width();
    for (int col = 0; col < cols(); ++col) {
        if (keeps[col])
            room -= leastPixels(col);
        else
            wanted += basePixels(col);
    }
    return wanted > 0 ? room / wanted : 0;
}

} // namespace platform
