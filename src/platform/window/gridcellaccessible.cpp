// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/window/gridcellaccessible.h"

#include "platform/window/flexgrid.h"

#include <QHeaderView>

namespace platform {

GridCellAccessible::GridCellAccessible(FlexGrid* grid, const QModelIndex& index)
    : m_grid(grid)
    , m_index(index)
{}

QAccessibleInterface* GridCellAccessible::parent() const
{
    return QAccessible::queryAccessibleInterface(m_grid);
}

QString GridCellAccessible::text(QAccessible::Text text) const
{
    if (!isValid())
        return {};
    if (text == QAccessible::Name)
        return m_index.data(Qt::AccessibleTextRole).toString();
    return text == QAccessible::Value ? m_index.data(Qt::EditRole).toString() : QString();
}

QRect GridCellAccessible::rect() const
{
    if (!isValid())
        return {};
    const QRect cell = m_grid->visualRect(m_index);
    return {m_grid->viewport()->mapToGlobal(cell.topLeft()), cell.size()};
}

QAccessible::State GridCellAccessible::state() const
{
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    const QRect cell = m_grid->visualRect(m_index);
    state.invisible = !m_grid->isVisible() || m_grid->isColumnHidden(columnIndex());
    state.offscreen = !m_grid->viewport()->rect().intersects(cell);
    state.disabled = !m_grid->isEnabled();
    state.focusable = !m_grid->isColumnHidden(columnIndex());
    state.selectable = true;
    state.selected = isSelected();
    state.focused = m_grid->hasFocus() && m_index == m_grid->currentIndex();
    state.active = state.focused;
    const Qt::ItemFlags flags = m_index.flags();
    state.editable = flags.testFlag(Qt::ItemIsEditable);
    state.readOnly = !state.editable;
    if (m_grid->column(columnIndex()).kind == CellKind::Boolean) {
        state.checkable = flags.testFlag(Qt::ItemIsUserCheckable);
        state.checked = m_grid->isTickedAt(rowIndex() + 1, columnIndex());
    }
    return state;
}

void* GridCellAccessible::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::TableCellInterface)
        return static_cast<QAccessibleTableCellInterface*>(this);
    if (type == QAccessible::ActionInterface)
        return static_cast<QAccessibleActionInterface*>(this);
    return nullptr;
}

bool GridCellAccessible::isSelected() const
{
    const bool wholeRow = isValid() && m_grid->selectionBehavior() == QAbstractItemView::SelectRows;
    return isValid() && rowIndex() + 1 == m_grid->row() && (wholeRow || columnIndex() == m_grid->col());
}

QList<QAccessibleInterface*> GridCellAccessible::columnHeaderCells() const
{
    if (!isValid())
        return {};
    return {parent()->child(columnIndex())};
}

QStringList GridCellAccessible::actionNames() const
{
    if (!isValid())
        return {};
    const FlexColumn& column = m_grid->column(columnIndex());
    QString own = pressAction();
    if (m_grid->isEditable() && column.kind == CellKind::Boolean)
        own = toggleAction();
    else if (m_grid->isEditable() && column.list.isDropDown())
        own = showMenuAction();
    return {own, setFocusAction()};
}

void GridCellAccessible::doAction(const QString& name)
{
    if (!actionNames().contains(name))
        return;
    const auto run = [grid = m_grid, cell = m_index, presses = name != setFocusAction()] {
        if (!cell.isValid())
            return;
        grid->setFocus(Qt::OtherFocusReason);
        if (grid && cell.isValid())
            grid->moveTo(cell.row() + 1, cell.column());
        if (presses && grid && cell.isValid())
            grid->pressCurrentCell();
    };
    QMetaObject::invokeMethod(m_grid, run, Qt::QueuedConnection);
}

GridHeadingAccessible::GridHeadingAccessible(FlexGrid* grid, int col)
    : m_grid(grid)
    , m_col(col)
{}

bool GridHeadingAccessible::isValid() const
{
    return m_grid && m_col < m_grid->cols();
}

QAccessibleInterface* GridHeadingAccessible::parent() const
{
    return QAccessible::queryAccessibleInterface(m_grid);
}

QString GridHeadingAccessible::text(QAccessible::Text text) const
{
    return isValid() && text == QAccessible::Name ? m_grid->heading(m_col) : QString();
}

QRect GridHeadingAccessible::rect() const
{
    if (!isValid())
        return {};
    const QHeaderView* headings = m_grid->horizontalHeader();
    const QPoint corner(headings->sectionViewportPosition(m_col), 0);
    return {headings->viewport()->mapToGlobal(corner), QSize(m_grid->columnWidth(m_col), headings->height())};
}

QAccessible::State GridHeadingAccessible::state() const
{
    QAccessible::State state;
    if (isValid())
        state.invisible = !m_grid->isVisible() || m_grid->isColumnHidden(m_col);
    else
        state.invalid = true;
    return state;
}

} // namespace platform
