// SPDX-License-Identifier: GPL-3.0-or-later

// What the user does in a grid by other means than its keys and the mouse, and what a screen reader is told.

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"
#include "platform/window/flexgrid.h"
#include "platform/window/flexmodel.h"

#include <QAccessible>
#include <QItemSelection>

namespace platform {

namespace {

constexpr int kCarriageReturn = 13;

} // namespace

void FlexGrid::moveTo(int row, int col)
{
    requireRow(row);
    requireCol(col);
    if (row == 0)
        throw Failure(kInvalidPropertyIndex, QStringLiteral("the heading isn't a data row"));
    setCurrentIndex(indexOf(row, col));
}

void FlexGrid::pressCurrentCell()
{
    const QModelIndex cell = currentIndex();
    if (!cell.isValid())
        return;
    if (!m_editable)
        Q_EMIT KeyPress(kCarriageReturn);
    else if (m_model->column(cell.column()).kind == CellKind::Boolean)
        toggleTick(cell);
    else if (!m_model->column(cell.column()).list.isPlain())
        pressCellButton(cell);
    else
        edit(cell, EditKeyPressed, nullptr);
}

void FlexGrid::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected)
{
    // Not the table view's own: see `currentChanged`.
    QAbstractItemView::selectionChanged(selected, deselected); // NOLINT(bugprone-parent-virtual-call)
}

/// Tells which cell has the keyboard, while one has.
void FlexGrid::tellFocus()
{
    if (!QAccessible::isActive() || !hasFocus() || m_row == 0 || !currentIndex().isValid())
        return;
    QAccessibleEvent focused(this, QAccessible::Focus);
    focused.setChild(m_row * cols() + m_col);
    QAccessible::updateAccessibility(&focused);
}

/// Tells that a tick was turned.
void FlexGrid::tellCheck(const QModelIndex& index)
{
    if (!QAccessible::isActive())
        return;
    QAccessible::State changed;
    changed.checked = true;
    QAccessibleStateChangeEvent event(this, changed);
    event.setChild((index.row() + 1) * cols() + index.column());
    QAccessible::updateAccessibility(&event);
}

} // namespace platform
