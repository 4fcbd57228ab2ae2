// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// One cell and one heading of a grid, as screen readers know them. They outlive neither their grid nor their
// row: then they are invalid, and answer nothing.

#include <QAccessible>
#include <QPersistentModelIndex>
#include <QPointer>

namespace platform {

class FlexGrid;

class GridCellAccessible : public QAccessibleInterface,
                           public QAccessibleTableCellInterface,
                           public QAccessibleActionInterface
{
public:
    /// `grid` is borrowed and may go first. `index` is one of its model's.
    GridCellAccessible(FlexGrid* grid, const QModelIndex& index);

    [[nodiscard]] bool isValid() const override { return m_grid && m_index.isValid(); }
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* parent() const override;
    [[nodiscard]] QAccessibleInterface* child(int) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    /// Name: column and text, "Telefono: 968123456"; of a tick the column alone. Value: the text.
    [[nodiscard]] QString text(QAccessible::Text text) const override;
    void setText(QAccessible::Text, const QString&) override {}
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::Cell; }
    [[nodiscard]] QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    [[nodiscard]] bool isSelected() const override;
    [[nodiscard]] QList<QAccessibleInterface*> columnHeaderCells() const override;
    [[nodiscard]] QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
    [[nodiscard]] int columnIndex() const override { return m_index.column(); }
    [[nodiscard]] int rowIndex() const override { return m_index.row(); }
    [[nodiscard]] int columnExtent() const override { return 1; }
    [[nodiscard]] int rowExtent() const override { return 1; }
    [[nodiscard]] QAccessibleInterface* table() const override { return parent(); }

    /// "Toggle" for a tick, "ShowMenu" for a list, "Press" for the others; "SetFocus" for each.
    [[nodiscard]] QStringList actionNames() const override;
    /// Runs once control is back in the event loop, so that a window that it opens keeps no reader waiting.
    void doAction(const QString& name) override;
    [[nodiscard]] QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    QPointer<FlexGrid> m_grid;
    QPersistentModelIndex m_index;
};

class GridHeadingAccessible : public QAccessibleInterface
{
public:
    /// `grid` is borrowed and may go first. `col` counts from 0.
    GridHeadingAccessible(FlexGrid* grid, int col);

    [[nodiscard]] bool isValid() const override;
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* parent() const override;
    [[nodiscard]] QAccessibleInterface* child(int) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    [[nodiscard]] QString text(QAccessible::Text text) const override;
    void setText(QAccessible::Text, const QString&) override {}
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::ColumnHeader; }
    [[nodiscard]] QAccessible::State state() const override;

private:
    QPointer<FlexGrid> m_grid;
    int m_col;
};

} // namespace platform
