// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A grid addressed by line and column, row 0 being the heading. Rows, columns and the current cell are the
// grid's own numbers: Row and Col may stand on the heading when code puts them there, and a number outside
// fails and changes nothing. Events of editing come only from the user; code that writes cells raises none.
//
// It never sorts, a click on a heading does nothing, Tab leaves it, and typing never searches in it.

#include "platform/core/value.h"
#include "platform/window/cellarray.h"
#include "platform/window/flexcolumn.h"

#include <QTableView>

#include <memory>

namespace platform {

class FlexModel;
class FlexDelegate;

class FlexGrid : public QTableView
{
    Q_OBJECT
    Q_PROPERTY(int rows READ rows WRITE setRows)
    Q_PROPERTY(int cols READ cols WRITE setCols)
    Q_PROPERTY(bool editable READ isEditable WRITE setEditable)
    Q_PROPERTY(bool fillsWidth READ fillsWidth WRITE setFillsWidth)

public:
    /// Two rows, two columns, current cell 1,0, not editable.
    explicit FlexGrid(QWidget* parent = nullptr);
    ~FlexGrid() override;

    // --- shape and current cell: failures are 381 (Row, Col, TopRow, cell addresses) and 380 (Rows, Cols)

    /// Number of rows, the heading included; at least 1. Cells of rows that stay keep their text; an array
    /// behind the grid is let go. Row is kept if it still exists, else it becomes the last row (0 when only
    /// the heading is left).
    [[nodiscard]] int rows() const;
    void setRows(int rows);
    [[nodiscard]] int cols() const;
    void setCols(int cols);

    /// The current cell: 0..rows-1 and 0..cols-1. Outside: Failure 381, value unchanged.
    [[nodiscard]] int row() const { return m_row; }
    void setRow(int row);
    [[nodiscard]] int col() const { return m_col; }
    void setCol(int col);

    /// First data row in view, 1 and on; 1 for an empty grid. Outside 1..rows-1: Failure 381.
    [[nodiscard]] int topRow() const;
    void setTopRow(int row);

    // --- text of cells

    /// Text of the current cell; on row 0 the heading. The value as written, not its formatted look.
    [[nodiscard]] QString text() const;
    void setText(const QString& text);
    /// Writes a column's value. Null fails with 94 and the cell stays.
    void setText(const Value& value);

    [[nodiscard]] QString textMatrix(int row, int col) const;
    void setTextMatrix(int row, int col, const QString& text);

    [[nodiscard]] QString heading(int col) const { return textMatrix(0, col); }
    void setHeading(int col, const QString& text) { setTextMatrix(0, col, text); }

    /// Writes one text to rows 1..last × all columns, in one operation. Headings and the current cell stay.
    void setRangeText(const QString& text);

    /// Empties every cell, the headings too. A bound grid is unbound first, and its array is left untouched.
    void clear();

    // --- tick cells: the value is the cell's text, "1" or "0"

    [[nodiscard]] bool isTicked() const;
    void setTicked(bool ticked);
    [[nodiscard]] bool isTickedAt(int row, int col) const;

    // --- columns

    void setColKind(int col, CellKind kind);
    /// See `celllist.h`. The empty text takes the list away.
    void setColList(int col, const QString& list);
    void setColFormat(int col, const QString& format);
    void setColMask(int col, const QString& mask);
    /// Alignment of rows 1 and on; of the heading.
    void setColAlignment(int col, Qt::Alignment alignment);
    void setHeadingAlignment(int col, Qt::Alignment alignment);
    /// In twips, 1440 an inch; 0 hides the column. A tick column is never narrower than its heading and its
    /// box. -1: as it comes, which for the last column is all the room that is left.
    void setColWidth(int col, int twips);
    [[nodiscard]] int colWidth(int col) const;
    /// Width of the whole control, in twips.
    [[nodiscard]] int widthTwips() const;
    [[nodiscard]] const FlexColumn& column(int col) const;
    /// On: the widths are shares of the grid's own width, and the columns fill it. Off, as at the start: the
    /// widths grow with the font only, and the grid scrolls.
    [[nodiscard]] bool fillsWidth() const { return m_fillsWidth; }
    void setFillsWidth(bool fills);

    // --- what the user does, by other means than keys and mouse

    /// Moves to a cell below the heading as the arrow keys do, and brings it into view. Outside: Failure 381.
    void moveTo(int row, int col);
    /// Does to the current cell what a key does: turns its tick, opens its list or its button's window, or
    /// begins to edit it. In a grid that isn't editable it is Enter. Nothing on the heading.
    void pressCurrentCell();

    // --- editing

    [[nodiscard]] bool isEditable() const { return m_editable; }
    void setEditable(bool editable);
    /// Greatest length of a text typed in a cell, 0 for none. Read when an edit has begun, so it is set in
    /// StartEdit; it keeps its last value.
    [[nodiscard]] int editMaxLength() const { return m_editMaxLength; }
    void setEditMaxLength(int length);
    /// Ends an open cell editor as if the user had left the cell. Nothing without one.
    void commitOpenEditor();
    [[nodiscard]] bool isEditing() const;

    // --- binding

    /// Shows an array below the headings: cols = its columns, rows = its rows + 1. Headings stay. Row becomes
    /// 1 if it was 0 and there are rows. Edits are written back to the array. Null unbinds: one row, no
    /// array.
    void bindToArray(std::shared_ptr<CellArray> array);
    [[nodiscard]] bool isBound() const;

    // --- painting and mouse

    /// A flag, not a count: off holds painting back until it is on again.
    [[nodiscard]] bool redraw() const { return m_redraw; }
    void setRedraw(bool redraw);
    void refresh();
    /// Cell under the pointer at the last mouse move; -1 outside the cells, row 0 on the heading.
    [[nodiscard]] int mouseRow() const { return m_mouseRow; }
    [[nodiscard]] int mouseCol() const { return m_mouseCol; }

    /// With a fixed vertical size policy the grid is as high as its rows.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// Typing or a drop-down is about to begin. *cancel starts false; true keeps the cell as it is. A tick
    /// raises none.
    void StartEdit(int row, int col, bool* cancel);
    /// A user's edit has ended with the cell written; also after a tick and when the focus is lost.
    void AfterEdit(int row, int col);
    void CellButtonClick(int row, int col);
    /// A button went down, before the current cell moves. The right button never moves it. The Menu key and
    /// Shift+F10 count as the right button. `place`, on the screen, is where a menu goes: at the pointer, or
    /// below the part of the current cell that is in view.
    void MouseDown(Qt::MouseButton button, QPoint place);
    void MouseMove();
    void DblClick();
    /// A character key (Enter and blank included) while no cell is being edited. `code` is its UTF-16 unit.
    void KeyPress(int code);
    /// The current cell moved, by the user or by code.
    void RowColChange();

protected:
    // flexgridevents.cpp
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
    void keyboardSearch(const QString& search) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // flexgrid.cpp
    void requireRow(int row) const;
    void requireCol(int col) const;
    [[nodiscard]] QModelIndex indexOf(int row, int col) const;
    void keepCursorInside();
    void placeCursor();

    // flexgridlook.cpp
    void setUpLook();
    void fitToFont();
    void applyWidths();
    void applyWidth(int col);
    [[nodiscard]] int widthPixels(int col) const;
    [[nodiscard]] int leastPixels(int col) const;
    [[nodiscard]] double widthScale() const;
    [[nodiscard]] double sharePixels(const QList<bool>& keeps) const;
    [[nodiscard]] double basePixels(int col) const;
    [[nodiscard]] int heightOfRows() const;

    // flexgridpress.cpp
    void tellFocus();
    void tellCheck(const QModelIndex& index);

    // flexgridevents.cpp
    void reportKey(const QKeyEvent& event);
    void pressMenuKey();
    [[nodiscard]] QPoint placeAtCursor();
    [[nodiscard]] bool actsOnCell(QKeyEvent* event);
    [[nodiscard]] bool startsEdit(const QModelIndex& index);
    void pressCellButton(const QModelIndex& index);
    void toggleTick(const QModelIndex& index);
    [[nodiscard]] bool isOnButton(const QModelIndex& index, QPoint position) const;
    [[nodiscard]] bool isOnTick(const QModelIndex& index, QPoint position) const;

    std::unique_ptr<FlexModel> m_model;
    FlexDelegate* m_delegate;
    QPersistentModelIndex m_pressed;
    int m_row = 1;
    int m_col = 0;
    int m_editMaxLength = 0;
    int m_mouseRow = -1;
    int m_mouseCol = -1;
    bool m_pressedOnButton = false;
    bool m_editable = false;
    bool m_fillsWidth = false;
    bool m_redraw = true;
    bool m_placingCursor = false;
};

} // namespace platform
