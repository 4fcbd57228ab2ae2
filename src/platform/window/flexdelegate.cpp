// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/window/flexdelegate.h"

#include "platform/window/celleditors.h"
#include "platform/window/colours.h"
#include "platform/window/flexgrid.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace platform {

namespace {

constexpr int kCursorWidth = 2;

bool movesLine(const QKeyEvent& event)
{
    return event.key() == Qt::Key_Up || event.key() == Qt::Key_Down;
}

/// Ctrl+Tab belongs to the pages that the grid stands on.
bool turnsPage(const QKeyEvent& event)
{
    return event.modifiers().testFlag(Qt::ControlModifier) &&
           (event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab);
}

template <typename Use>
void useEditor(QWidget* editor, Use&& use)
{
    if (auto* combo = qobject_cast<CellCombo*>(editor))
        use(*combo);
    else if (auto* line = qobject_cast<CellLine*>(editor))
        use(*line);
}

} // namespace

FlexDelegate::FlexDelegate(FlexGrid* grid)
    : QStyledItemDelegate(grid)
    , m_grid(grid)
{}

QRect FlexDelegate::tickRect(const QRect& cell) const
{
    const QStyle* style = m_grid->style();
    const QSize size(style->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, m_grid),
                     style->pixelMetric(QStyle::PM_IndicatorHeight, nullptr, m_grid));
    return QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, size, cell);
}

QRect FlexDelegate::buttonRect(const QRect& cell)
{
    const int width = std::min(cell.height(), cell.width() / 3);
    return {cell.right() - width + 1, cell.top(), width, cell.height()};
}

QWidget* FlexDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                    const QModelIndex& index) const
{
    const FlexColumn& column = m_grid->column(index.column());
    const bool opensDropDown = std::exchange(m_opensDropDown, false);
    QWidget* editor = nullptr;
    if (column.list.isDropDown()) {
        auto* combo = new CellCombo(column.list, m_grid->editMaxLength(), parent);
        auto* self = const_cast<FlexDelegate*>(this); // the editor's events come back through signals of this
        connect(combo, &CellCombo::picked, self, [self, combo] { self->endEdit(combo); });
        if (opensDropDown)
            QTimer::singleShot(0, combo, [combo] { combo->showPopup(); });
        editor = combo;
    } else {
        auto* line = new CellLine(column.mask, m_grid->editMaxLength(), parent);
        line->setAlignment(column.alignment);
        editor = line;
    }
    editor->setAccessibleName(m_grid->heading(index.column()));
    return editor;
}

void FlexDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    useEditor(editor, [&](auto& cell) { cell.setCellText(index.data(Qt::EditRole).toString()); });
}

void FlexDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const
{
    useEditor(editor, [&](auto& cell) {
        if (const auto text = cell.cellText())
            model->setData(index, *text, Qt::EditRole);
    });
    Q_EMIT written(index);
}

void FlexDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                        const QModelIndex& index) const
{
    QRect place = option.rect;
    const CellList& list = m_grid->column(index.column()).list;
    if (list.hasButton)
        place.setRight(buttonRect(place).left() - 1);
    if (list.isDropDown())
        place.setWidth(std::max(place.width(), editor->minimumSizeHint().width()));
    editor->setGeometry(place);
}

void FlexDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const
{
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    const bool isCursorRow = index.row() + 1 == m_grid->row();
    const bool isCursor = isCursorRow && index.column() == m_grid->col();
    cell.state.setFlag(QStyle::State_HasFocus, false);
    cell.state.setFlag(QStyle::State_Selected, isCursorRow && !m_grid->isEditable());
    cell.features.setFlag(QStyleOptionViewItem::HasCheckIndicator, false);
    if (isCursorRow && m_grid->isEditable())
        cell.backgroundBrush = cursorRow(cell.palette);
    const QRect whole = cell.rect;
    if (isCursor && showsButton(index)) {
        painter->fillRect(whole, cell.backgroundBrush);
        cell.rect.setRight(buttonRect(whole).left() - 1);
    }
    m_grid->style()->drawControl(QStyle::CE_ItemViewItem, &cell, painter, m_grid);
    cell.rect = whole;

    if (m_grid->column(index.column()).kind == CellKind::Boolean)
        paintTick(painter, cell, index);
    if (isCursor && showsButton(index))
        paintButton(painter, cell, index);
    if (isCursor && m_grid->isEditable())
        paintCursor(painter, cell);
}

bool FlexDelegate::showsButton(const QModelIndex& index) const
{
    return m_grid->isEditable() && !m_grid->column(index.column()).list.isPlain();
}

bool FlexDelegate::editorEvent(QEvent*, QAbstractItemModel*, const QStyleOptionViewItem&, const QModelIndex&)
{
    return false; // ticks are the grid's own business
}

bool FlexDelegate::eventFilter(QObject* watched, QEvent* event)
{
    auto* editor = qobject_cast<QWidget*>(watched);
    if (editor && event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (turnsPage(*key) || (qobject_cast<CellLine*>(editor) && movesLine(*key))) {
            endEdit(editor);
            QApplication::sendEvent(m_grid, key);
            return true;
        }
    }
    return QStyledItemDelegate::eventFilter(watched, event);
}

void FlexDelegate::endEdit(QWidget* editor)
{
    Q_EMIT commitData(editor);
    Q_EMIT closeEditor(editor);
}

void FlexDelegate::paintTick(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const
{
    QStyleOptionViewItem tick = option;
    tick.rect = tickRect(option.rect);
    const bool isTicked = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    tick.state.setFlag(QStyle::State_On, isTicked);
    tick.state.setFlag(QStyle::State_Off, !isTicked);
    m_grid->style()->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &tick, painter, m_grid);
    // The style's own outline hardly shows on a dark ground.
    painter->save();
    painter->setPen(outline(option.palette));
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(tick.rect.adjusted(0, 0, -1, -1));
    painter->restore();
}

void FlexDelegate::paintButton(QPainter* painter, const QStyleOptionViewItem& option,
                               const QModelIndex& index) const
{
    QStyleOptionButton button;
    button.QStyleOption::operator=(option);
    button.rect = buttonRect(option.rect).adjusted(0, 2, -2, -2);
    button.state = QStyle::State_Enabled | QStyle::State_Raised;
    if (m_grid->column(index.column()).list.hasButton) {
        button.text = QStringLiteral("…");
        m_grid->style()->drawControl(QStyle::CE_PushButton, &button, painter, m_grid);
    } else {
        m_grid->style()->drawPrimitive(QStyle::PE_IndicatorArrowDown, &button, painter, m_grid);
    }
}

void FlexDelegate::paintCursor(QPainter* painter, const QStyleOptionViewItem& option) const
{
    painter->save();
    painter->setPen(
        QPen(m_grid->hasFocus() ? focusMark(option.palette) : outline(option.palette), kCursorWidth));
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(option.rect.adjusted(1, 1, -1, -1));
    painter->restore();
}

} // namespace platform
