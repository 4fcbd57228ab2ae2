// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/window/gridaccessible.h"

#include "platform/window/flexgrid.h"
#include "platform/window/gridcellaccessible.h"

#include <QAccessibleWidget>
#include <QHash>
#include <QHeaderView>

#include <algorithm>

namespace platform {

namespace {

class GridAccessible : public QAccessibleWidget, public QAccessibleTableInterface
{
public:
    explicit GridAccessible(FlexGrid* grid)
        : QAccessibleWidget(grid, QAccessible::Table)
    {}
    ~GridAccessible() override { forgetCells(); }
    GridAccessible(const GridAccessible&) = delete;
    GridAccessible& operator=(const GridAccessible&) = delete;

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::TableInterface)
            return static_cast<QAccessibleTableInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    [[nodiscard]] int childCount() const override { return grid().rows() * grid().cols(); }
    [[nodiscard]] QAccessibleInterface* child(int index) const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;
    [[nodiscard]] QAccessibleInterface* focusChild() const override;

    [[nodiscard]] int rowCount() const override { return grid().rows() - 1; }
    [[nodiscard]] int columnCount() const override { return grid().cols(); }
    [[nodiscard]] QAccessibleInterface* cellAt(int row, int column) const override;
    [[nodiscard]] QAccessibleInterface* caption() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* summary() const override { return nullptr; }
    [[nodiscard]] QString columnDescription(int column) const override;
    [[nodiscard]] QString rowDescription(int) const override { return {}; }

    // The row of the current cell is what is chosen; code may put it on the heading.
    [[nodiscard]] int selectedRowCount() const override { return grid().row() == 0 ? 0 : 1; }
    [[nodiscard]] QList<int> selectedRows() const override;
    [[nodiscard]] bool isRowSelected(int row) const override { return selectedRows().contains(row); }
    bool selectRow(int row) override;
    bool unselectRow(int) override { return false; }
    [[nodiscard]] int selectedColumnCount() const override { return 0; }
    [[nodiscard]] QList<int> selectedColumns() const override { return {}; }
    [[nodiscard]] bool isColumnSelected(int) const override { return false; }
    bool selectColumn(int) override { return false; }
    bool unselectColumn(int) override { return false; }
    [[nodiscard]] int selectedCellCount() const override { return static_cast<int>(selectedCells().size()); }
    [[nodiscard]] QList<QAccessibleInterface*> selectedCells() const override;

    void modelChange(QAccessibleTableModelChangeEvent* event) override;

private:
    [[nodiscard]] FlexGrid& grid() const { return *static_cast<FlexGrid*>(widget()); }
    void forgetCells();

    /// Cells and headings that were asked for, by their place among the children.
    mutable QHash<int, QAccessible::Id> m_known;
};

QAccessibleInterface* GridAccessible::child(int index) const
{
    if (index < 0 || index >= childCount())
        return nullptr;
    if (const auto known = m_known.constFind(index); known != m_known.constEnd()) {
        QAccessibleInterface* left = QAccessible::accessibleInterface(*known);
        if (left && left->isValid())
            return left;
        QAccessible::deleteAccessibleInterface(*known);
    }
    const int row = index / grid().cols();
    const int col = index % grid().cols();
    QAccessibleInterface* made = nullptr;
    if (row == 0)
        made = new GridHeadingAccessible(&grid(), col);
    else
        made = new GridCellAccessible(&grid(), grid().model()->index(row - 1, col));
    m_known.insert(index, QAccessible::registerAccessibleInterface(made));
    return made;
}

int GridAccessible::indexOfChild(const QAccessibleInterface* child) const
{
    const auto found = std::find_if(m_known.constBegin(), m_known.constEnd(), [child](QAccessible::Id id) {
        return QAccessible::accessibleInterface(id) == child;
    });
    return found == m_known.constEnd() ? -1 : found.key();
}

QAccessibleInterface* GridAccessible::childAt(int x, int y) const
{
    const QPoint place = grid().viewport()->mapFromGlobal(QPoint(x, y));
    const int col = grid().columnAt(place.x());
    const QHeaderView* headings = grid().horizontalHeader();
    if (headings->rect().contains(headings->mapFromGlobal(QPoint(x, y))))
        return col < 0 ? nullptr : child(col);
    const int row = grid().viewport()->rect().contains(place) ? grid().rowAt(place.y()) : -1;
    return cellAt(row, col);
}

QAccessibleInterface* GridAccessible::focusChild() const
{
    return grid().hasFocus() ? cellAt(grid().row() - 1, grid().col()) : QAccessibleWidget::focusChild();
}

QAccessibleInterface* GridAccessible::cellAt(int row, int column) const
{
    const bool isInside = row >= 0 && row < rowCount() && column >= 0 && column < columnCount();
    return isInside ? child((row + 1) * columnCount() + column) : nullptr;
}

QString GridAccessible::columnDescription(int column) const
{
    return column >= 0 && column < columnCount() ? grid().heading(column) : QString();
}

QList<int> GridAccessible::selectedRows() const
{
    return grid().row() == 0 ? QList<int>() : QList<int>{grid().row() - 1};
}

bool GridAccessible::selectRow(int row)
{
    if (row < 0 || row >= rowCount())
        return false;
    grid().moveTo(row + 1, grid().col());
    return true;
}

QList<QAccessibleInterface*> GridAccessible::selectedCells() const
{
    QList<QAccessibleInterface*> cells;
    for (const int row : selectedRows()) {
        for (int column = 0; column < columnCount(); ++column) {
            QAccessibleInterface* cell = cellAt(row, column);
            if (cell && cell->state().selected)
                cells.append(cell);
        }
    }
    return cells;
}

void GridAccessible::modelChange(QAccessibleTableModelChangeEvent* event)
{
    if (event->modelChangeType() != QAccessibleTableModelChangeEvent::DataChanged)
        forgetCells();
}

void GridAccessible::forgetCells()
{
    for (const QAccessible::Id id : std::as_const(m_known))
        QAccessible::deleteAccessibleInterface(id);
    m_known.clear();
}

QAccessibleInterface* makeGridAccessible(const QString&, QObject* object)
{
    auto* grid = qobject_cast<FlexGrid*>(object);
    return grid ? new GridAccessible(grid) : nullptr;
}

} // namespace

void provideGridAccessibility()
{
    QAccessible::installFactory(&makeGridAccessible);
}

} // namespace platform
