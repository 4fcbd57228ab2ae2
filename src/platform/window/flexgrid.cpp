// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/window/flexgrid.h"

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"
#include "platform/window/flexdelegate.h"
#include "platform/window/flexmodel.h"
#include "platform/window/gridaccessible.h"

#include <QHeaderView>

#include <algorithm>

namespace platform {

FlexGrid::FlexGrid(QWidget* parent)
    : QTableView(parent)
    , m_model(std::make_unique<FlexModel>())
    , m_delegate(new FlexDelegate(this))
{
    provideGridAccessibility();
    setModel(m_model.get());
    setItemDelegate(m_delegate);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::AnyKeyPressed | QAbstractItemView::EditKeyPressed |
                    QAbstractItemView::DoubleClicked);
    setTabKeyNavigation(false);
    setMouseTracking(true);
    viewport()->setMouseTracking(true);
    setUpLook();
    horizontalHeader()->viewport()->installEventFilter(this);
    connect(m_delegate, &FlexDelegate::written, this,
            [this](const QModelIndex& index) { Q_EMIT AfterEdit(index.row() + 1, index.column()); });
    applyWidths();
    placeCursor();
}

FlexGrid::~FlexGrid()
{
    horizontalHeader()->viewport()->removeEventFilter(this);
}

int FlexGrid::rows() const
{
    return m_model->rows();
}

void FlexGrid::setRows(int rows)
{
    if (rows < 1)
        throw Failure(kInvalidPropertyValue, QStringLiteral("%1 rows").arg(rows));
    m_model->setRows(rows);
    applyWidths();
    keepCursorInside();
    updateGeometry();
}

int FlexGrid::cols() const
{
    return m_model->cols();
}

void FlexGrid::setCols(int cols)
{
    if (cols < 1)
        throw Failure(kInvalidPropertyValue, QStringLiteral("%1 columns").arg(cols));
    m_model->setCols(cols);
    applyWidths();
    keepCursorInside();
}

void FlexGrid::setRow(int row)
{
    requireRow(row);
    m_row = row;
    placeCursor();
}

void FlexGrid::setCol(int col)
{
    requireCol(col);
    m_col = col;
    placeCursor();
}

int FlexGrid::topRow() const
{
    return std::max(rowAt(0), 0) + 1;
}

void FlexGrid::setTopRow(int row)
{
    requireRow(row);
    if (row == 0)
        throw Failure(kInvalidPropertyIndex, QStringLiteral("the heading isn't a data row"));
    scrollTo(indexOf(row, std::max(columnAt(0), 0)), QAbstractItemView::PositionAtTop);
}

QString FlexGrid::text() const
{
    return m_model->text(m_row, m_col);
}

void FlexGrid::setText(const QString& text)
{
    m_model->setText(m_row, m_col, text);
}

void FlexGrid::setText(const Value& value)
{
    setText(asText(value));
}

QString FlexGrid::textMatrix(int row, int col) const
{
    requireRow(row);
    requireCol(col);
    return m_model->text(row, col);
}

void FlexGrid::setTextMatrix(int row, int col, const QString& text)
{
    requireRow(row);
    requireCol(col);
    m_model->setText(row, col, text);
    if (row == 0)
        applyWidth(col);
}

void FlexGrid::setRangeText(const QString& text)
{
    m_model->fill(text);
}

void FlexGrid::clear()
{
    if (isBound())
        bindToArray(nullptr);
    m_model->fill({});
    m_model->clearHeadings();
}

bool FlexGrid::isTicked() const
{
    return isTickedText(text());
}

void FlexGrid::setTicked(bool ticked)
{
    setText(ticked ? QStringLiteral("1") : QStringLiteral("0"));
}

bool FlexGrid::isTickedAt(int row, int col) const
{
    return isTickedText(textMatrix(row, col));
}

void FlexGrid::setColKind(int col, CellKind kind)
{
    requireCol(col);
    m_model->changeColumn(col, [kind](FlexColumn& column) { column.kind = kind; });
    applyWidth(col);
}

void FlexGrid::setColList(int col, const QString& list)
{
    requireCol(col);
    m_model->changeColumn(col, [&](FlexColumn& column) { column.list = parseCellList(list); });
}

void FlexGrid::setColFormat(int col, const QString& format)
{
    requireCol(col);
    m_model->changeColumn(col, [&](FlexColumn& column) { column.format = format; });
}

void FlexGrid::setColMask(int col, const QString& mask)
{
    requireCol(col);
    m_model->changeColumn(col, [&](FlexColumn& column) { column.mask = mask; });
}

void FlexGrid::setColAlignment(int col, Qt::Alignment alignment)
{
    requireCol(col);
    m_model->changeColumn(col, [alignment](FlexColumn& column) { column.alignment = alignment; });
}

void FlexGrid::setHeadingAlignment(int col, Qt::Alignment alignment)
{
    requireCol(col);
    m_model->changeColumn(col, [alignment](FlexColumn& column) { column.headingAlignment = alignment; });
}

void FlexGrid::setColWidth(int col, int twips)
{
    requireCol(col);
    m_model->changeColumn(col,
                          [twips](FlexColumn& column) { column.widthTwips = std::max(twips, kWidthNotSet); });
    applyWidth(col);
}

int FlexGrid::colWidth(int col) const
{
    const int twips = column(col).widthTwips;
    return twips == kWidthNotSet ? kDefaultWidthTwips : twips;
}

const FlexColumn& FlexGrid::column(int col) const
{
    requireCol(col);
    return m_model->column(col);
}

void FlexGrid::setEditable(bool editable)
{
    m_editable = editable;
    m_model->setEditable(editable);
    viewport()->update();
}

void FlexGrid::setEditMaxLength(int length)
{
    if (length < 0)
        throw Failure(kInvalidPropertyValue, QStringLiteral("length %1").arg(length));
    m_editMaxLength = length;
}

void FlexGrid::commitOpenEditor()
{
    if (!isEditing())
        return;
    QWidget* editor = indexWidget(currentIndex());
    if (!editor)
        return;
    commitData(editor);
    closeEditor(editor, QAbstractItemDelegate::NoHint);
}

bool FlexGrid::isEditing() const
{
    return state() == QAbstractItemView::EditingState;
}

void FlexGrid::bindToArray(std::shared_ptr<CellArray> array)
{
    m_model->bind(std::move(array));
    applyWidths();
    if (m_row == 0 && rows() > 1)
        m_row = 1;
    keepCursorInside();
}

bool FlexGrid::isBound() const
{
    return m_model->isBound();
}

void FlexGrid::requireRow(int row) const
{
    if (row < 0 || row >= rows())
        throw Failure(kInvalidPropertyIndex, QStringLiteral("no row %1").arg(row));
}

void FlexGrid::requireCol(int col) const
{
    if (col < 0 || col >= cols())
        throw Failure(kInvalidPropertyIndex, QStringLiteral("no column %1").arg(col));
}

QModelIndex FlexGrid::indexOf(int row, int col) const
{
    return row == 0 ? QModelIndex() : m_model->index(row - 1, col);
}

void FlexGrid::keepCursorInside()
{
    m_row = std::min(m_row, rows() - 1);
    m_col = std::min(m_col, cols() - 1);
    placeCursor();
}

/// Shows the current cell without moving the view: only the user's moves scroll.
void FlexGrid::placeCursor()
{
    m_placingCursor = true;
    setAutoScroll(false);
    selectionModel()->setCurrentIndex(indexOf(m_row, m_col), QItemSelectionModel::ClearAndSelect);
    setAutoScroll(true);
    m_placingCursor = false;
    viewport()->update();
    Q_EMIT RowColChange();
}

} // namespace platform
