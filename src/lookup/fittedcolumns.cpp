// SPDX-License-Identifier: GPL-3.0-or-later
#include "lookup/fittedcolumns.h"

#include "platform/window/flexgrid.h"
#include "platform/window/spacing.h"

#include <QEvent>
#include <QHeaderView>

#include <algorithm>

namespace lookup {

namespace {

constexpr int kNarrowTwips = 1000;
constexpr int kLeastPixels = 40;
/// What a narrow column must show whole: a code of ten digits.
constexpr QStringView kCode = u"0000000000";

} // namespace

FittedColumns::FittedColumns(platform::FlexGrid* grid)
    : QObject(grid)
    , m_grid(grid)
{
    m_grid->viewport()->installEventFilter(this);
}

bool FittedColumns::eventFilter(QObject* watched, QEvent* event)
{
    const bool isHandled = QObject::eventFilter(watched, event);
    if (event->type() == QEvent::Resize)
        fit();
    return isHandled;
}

bool FittedColumns::isNarrow(int col) const
{
    return m_grid->colWidth(col) <= kNarrowTwips;
}

int FittedColumns::narrowPixels(int col) const
{
    if (m_grid->isColumnHidden(col))
        return 0;
    // A column of ticks is as wide as the grid has made it.
    if (m_grid->column(col).kind == platform::CellKind::Boolean)
        return m_grid->columnWidth(col);
    const int heading = m_grid->horizontalHeader()->fontMetrics().horizontalAdvance(m_grid->heading(col));
    return std::max(m_grid->fontMetrics().horizontalAdvance(kCode.toString()), heading) + platform::kCellInset;
}

void FittedColumns::fit()
{
    int room = m_grid->viewport()->width();
    int shares = 0;
    for (int col = 0; col < m_grid->cols(); ++col) {
        if (isNarrow(col))
            room -= narrowPixels(col);
        else
            shares += m_grid->colWidth(col);
    }
    for (int col = 0; col < m_grid->cols(); ++col) {
        if (m_grid->isColumnHidden(col) || m_grid->column(col).kind == platform::CellKind::Boolean)
            continue;
        const int share = shares == 0 ? 0 : room * m_grid->colWidth(col) / shares;
        m_grid->setColumnWidth(col, isNarrow(col) ? narrowPixels(col) : std::max(share, kLeastPixels));
    }
}

} // namespace lookup
