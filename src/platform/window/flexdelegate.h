// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Paints a grid's cells and opens their editors.

#include <QStyledItemDelegate>

namespace platform {

class FlexGrid;

class FlexDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit FlexDelegate(FlexGrid* grid);

    /// Where the tick box of a cell stands, and where its button.
    [[nodiscard]] QRect tickRect(const QRect& cell) const;
    [[nodiscard]] static QRect buttonRect(const QRect& cell);
    /// The editor opened next shows its drop-down at once.
    void openDropDownNext() { m_opensDropDown = true; }

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// A user's edit was written to the cell.
    void written(const QModelIndex& index) const;

private:
    void endEdit(QWidget* editor);
    [[nodiscard]] bool showsButton(const QModelIndex& index) const;
    void paintTick(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;
    void paintButton(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;
    void paintCursor(QPainter* painter, const QStyleOptionViewItem& option) const;

    FlexGrid* m_grid;
    mutable bool m_opensDropDown = false;
};

} // namespace platform
