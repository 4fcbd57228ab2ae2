// SPDX-License-Identifier: GPL-3.0-or-later

// What the user does in a grid: keys, mouse, focus and editors.

#include "platform/window/flexdelegate.h"
#include "platform/window/flexgrid.h"
#include "platform/window/flexmodel.h"
#include "platform/window/focusrules.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>

#include <algorithm>
#include <utility>

namespace platform {

namespace {

constexpr int kTickReach = 3;
constexpr int kCarriageReturn = 13;
constexpr Qt::KeyboardModifiers kCommandModifiers = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;

bool isReturn(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

/// Code of a character key; 0 for the others.
int characterOf(const QKeyEvent& event)
{
    if (event.modifiers() & kCommandModifiers)
        return 0;
    if (isReturn(event.key()))
        return kCarriageReturn;
    const QString text = event.text();
    return text.isEmpty() || !text.front().isPrint() ? 0 : text.front().unicode();
}

bool opensCell(const QKeyEvent& event)
{
    return event.key() == Qt::Key_F4 || (event.key() == Qt::Key_Down && event.modifiers() == Qt::AltModifier);
}

bool opensMenu(const QKeyEvent& event)
{
    return event.key() == Qt::Key_Menu ||
           (event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier);
}

} // namespace

void FlexGrid::keyPressEvent(QKeyEvent* event)
{
    if (opensMenu(*event)) {
        pressMenuKey();
        return;
    }
    const QPointer<FlexGrid> self = this;
    reportKey(*event);
    if (!self || actsOnCell(event))
        return;
    // Letters go no further: the view would search with them.
    if (characterOf(*event) != 0 && !isReturn(event->key()))
        event->ignore();
    else
        QTableView::keyPressEvent(event);
}

void FlexGrid::reportKey(const QKeyEvent& event)
{
    const int code = characterOf(event);
    if (code != 0)
        Q_EMIT KeyPress(code);
}

void FlexGrid::pressMenuKey()
{
    QWidget* active = QApplication::focusWidget();
    if (!active || !viewport()->isAncestorOf(active)) {
        Q_EMIT MouseDown(Qt::RightButton, placeAtCursor());
        return;
    }
    // The editor of a cell has a menu of its own, or none.
    const QPoint place = active->rect().bottomLeft();
    QContextMenuEvent request(QContextMenuEvent::Keyboard, place, active->mapToGlobal(place));
    QApplication::sendEvent(active, &request);
}

QPoint FlexGrid::placeAtCursor()
{
    const QModelIndex cell = currentIndex();
    if (cell.isValid())
        scrollTo(cell);
    const int below = cell.isValid() ? visualRect(cell).bottom() + 1 : 0;
    return viewport()->mapToGlobal(
        QPoint(std::clamp(columnViewportPosition(m_col), 0, std::max(viewport()->width() - 1, 0)),
               std::clamp(below, 0, viewport()->height())));
}

bool FlexGrid::actsOnCell(QKeyEvent* event)
{
    const QModelIndex cell = currentIndex();
    if (!m_editable || !cell.isValid())
        return false;
    const FlexColumn& column = m_model->column(cell.column());
    if (column.kind == CellKind::Boolean) {
        const bool toggles = event->key() == Qt::Key_Space;
        if (toggles)
            toggleTick(cell);
        return toggles;
    }
    if (opensCell(*event) && !column.list.isPlain()) {
        pressCellButton(cell);
        return true;
    }
    if (event->key() == Qt::Key_F2)
        return edit(cell, EditKeyPressed, event);
    const bool types =
        (characterOf(*event) != 0 && !isReturn(event->key())) || event->key() == Qt::Key_Delete;
    return types && edit(cell, AnyKeyPressed, event);
}

void FlexGrid::mousePressEvent(QMouseEvent* event)
{
    const QPointer<FlexGrid> self = this;
    m_pressed = QPersistentModelIndex();
    Q_EMIT MouseDown(event->button(), event->globalPosition().toPoint());
    event->accept();
    if (!self || event->button() != Qt::LeftButton)
        return;
    const QPoint position = event->position().toPoint();
    const QModelIndex cell = indexAt(position);
    m_pressedOnButton = cell.isValid() && cell == currentIndex() && isOnButton(cell, position);
    m_pressed = cell;
    QTableView::mousePressEvent(event);
}

void FlexGrid::mouseReleaseEvent(QMouseEvent* event)
{
    QTableView::mouseReleaseEvent(event);
    const QPoint position = event->position().toPoint();
    const QModelIndex cell = indexAt(position);
    if (event->button() != Qt::LeftButton || !cell.isValid() || m_pressed != cell)
        return;
    m_pressed = QPersistentModelIndex();
    if (m_pressedOnButton && isOnButton(cell, position))
        pressCellButton(cell);
    else if (isOnTick(cell, position))
        toggleTick(cell);
}

void FlexGrid::mouseMoveEvent(QMouseEvent* event)
{
    // With a button down the view would drag the current cell along.
    if (event->buttons() == Qt::NoButton)
        QTableView::mouseMoveEvent(event);
    const QModelIndex cell = indexAt(event->position().toPoint());
    m_mouseRow = cell.isValid() ? cell.row() + 1 : -1;
    m_mouseCol = cell.isValid() ? cell.column() : -1;
    Q_EMIT MouseMove();
}

void FlexGrid::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QPointer<FlexGrid> self = this;
    const QModelIndex cell = indexAt(event->position().toPoint());
    Q_EMIT MouseDown(event->button(), event->globalPosition().toPoint());
    event->accept();
    if (!self || event->button() != Qt::LeftButton)
        return;
    m_pressed = cell;
    Q_EMIT DblClick();
    if (!self || !m_pressed.isValid() || m_pressed != currentIndex() ||
        isOnButton(m_pressed, event->position().toPoint()))
        return;
    if (m_model->column(m_pressed.column()).list.isDropDown())
        m_delegate->openDropDownNext();
    edit(m_pressed, DoubleClicked, event);
}

void FlexGrid::focusInEvent(QFocusEvent* event)
{
    // Not the item view's own: that would make the first cell current.
    QAbstractScrollArea::focusInEvent(event); // NOLINT(bugprone-parent-virtual-call)
    viewport()->update();
    const bool byTab = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    if (byTab && focusRuleRuns(*event) && currentIndex().isValid())
        scrollTo(currentIndex());
    // Behind what Qt says of the grid as a whole.
    QMetaObject::invokeMethod(
        this, [this] { tellFocus(); }, Qt::QueuedConnection);
}

void FlexGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    // Not the table view's own: it would name a cell by its place among the children of Qt's own tables.
    QAbstractItemView::currentChanged(current, previous); // NOLINT(bugprone-parent-virtual-call)
    if (!m_placingCursor && current.isValid()) {
        m_row = current.row() + 1;
        m_col = current.column();
        viewport()->update();
    }
    tellFocus();
    if (!m_placingCursor && current.isValid())
        Q_EMIT RowColChange();
}

/// A view doesn't move from a cell of a hidden column, where code may have put the cursor.
QModelIndex FlexGrid::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    const QModelIndex current = currentIndex();
    int col = current.column();
    while (current.isValid() && col < cols() && isColumnHidden(col))
        ++col;
    if (current.isValid() && col != current.column() && col < cols())
        setCol(col);
    return QTableView::moveCursor(action, modifiers);
}

bool FlexGrid::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event)
{
    if (isEditing())
        return QTableView::edit(index, trigger, event);
    const bool opens = trigger == AllEditTriggers || editTriggers().testFlag(trigger);
    return opens && trigger != NoEditTriggers && startsEdit(index) && QTableView::edit(index, trigger, event);
}

bool FlexGrid::startsEdit(const QModelIndex& index)
{
    if (!index.isValid() || !(m_model->flags(index) & Qt::ItemIsEditable))
        return false;
    const CellList& list = m_model->column(index.column()).list;
    if (list.hasButton && !list.allowsTyping)
        return false;
    const QPointer<FlexGrid> self = this;
    bool cancel = false;
    Q_EMIT StartEdit(index.row() + 1, index.column(), &cancel);
    return self && !cancel;
}

void FlexGrid::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint)
{
    // Tab leaves the grid instead of going to the next cell.
    const bool leavesForward = hint == QAbstractItemDelegate::EditNextItem;
    const bool leavesBack = hint == QAbstractItemDelegate::EditPreviousItem;
    QTableView::closeEditor(editor, leavesForward || leavesBack ? QAbstractItemDelegate::NoHint : hint);
    if (leavesForward || leavesBack)
        focusNextPrevChild(leavesForward);
}

void FlexGrid::keyboardSearch(const QString&) {}

bool FlexGrid::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == horizontalHeader()->viewport()) {
        if (event->type() == QEvent::MouseButtonPress) {
            const auto* press = static_cast<QMouseEvent*>(event);
            Q_EMIT MouseDown(press->button(), press->globalPosition().toPoint());
        } else if (event->type() == QEvent::MouseMove) {
            m_mouseRow = 0;
            m_mouseCol = columnAt(static_cast<QMouseEvent*>(event)->position().toPoint().x());
            Q_EMIT MouseMove();
        }
    }
    return QTableView::eventFilter(watched, event);
}

void FlexGrid::pressCellButton(const QModelIndex& index)
{
    if (m_model->column(index.column()).list.hasButton) {
        commitOpenEditor();
        Q_EMIT CellButtonClick(index.row() + 1, index.column());
        return;
    }
    m_delegate->openDropDownNext();
    edit(index, EditKeyPressed, nullptr);
}

void FlexGrid::toggleTick(const QModelIndex& index)
{
    const int row = index.row() + 1;
    const int col = index.column();
    m_model->setText(row, col,
                     isTickedText(m_model->text(row, col)) ? QStringLiteral("0") : QStringLiteral("1"));
    tellCheck(index);
    Q_EMIT AfterEdit(row, col);
}

bool FlexGrid::isOnButton(const QModelIndex& index, QPoint position) const
{
    return m_editable && index.isValid() && !m_model->column(index.column()).list.isPlain() &&
           FlexDelegate::buttonRect(visualRect(index)).contains(position);
}

bool FlexGrid::isOnTick(const QModelIndex& index, QPoint position) const
{
    const QRect reach =
        m_delegate->tickRect(visualRect(index)).adjusted(-kTickReach, -kTickReach, kTickReach, kTickReach);
    return m_editable && m_model->column(index.column()).kind == CellKind::Boolean &&
           reach.contains(position);
}

} // namespace platform
