// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The cells of a grid: own texts, or an array that it reads on demand. Row 0 is the heading and lives in the
// header. Addresses here are always valid; the grid tests them.

#include "platform/window/cellarray.h"
#include "platform/window/flexcolumn.h"

#include <QAbstractTableModel>

#include <memory>
#include <vector>

namespace platform {

class FlexModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    explicit FlexModel(QObject* parent = nullptr);

    // --- by the grid's addresses, row 0 the heading
    [[nodiscard]] int rows() const { return m_rows; }
    [[nodiscard]] int cols() const { return static_cast<int>(m_columns.size()); }
    void setRows(int rows);
    void setCols(int cols);
    [[nodiscard]] QString text(int row, int col) const;
    void setText(int row, int col, const QString& text);
    void fill(const QString& text);
    void clearHeadings();
    [[nodiscard]] const FlexColumn& column(int col) const
    {
        return m_columns.at(static_cast<std::size_t>(col));
    }
    /// Changes a column's settings and repaints it.
    template <typename Change>
    void changeColumn(int col, Change&& change)
    {
        change(m_columns.at(static_cast<std::size_t>(col)));
        Q_EMIT headerDataChanged(Qt::Horizontal, col, col);
        repaintCells();
    }
    void bind(std::shared_ptr<CellArray> array);
    [[nodiscard]] bool isBound() const { return m_array != nullptr; }
    void setEditable(bool editable) { m_editable = editable; }

    // --- Qt's model, row 0 the first row below the heading
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    using Line = std::vector<QString>;

    [[nodiscard]] QString look(int row, int col) const;
    [[nodiscard]] QString spokenText(int row, int col) const;
    void repaintCells();

    std::vector<FlexColumn> m_columns;
    std::vector<QString> m_headings;
    std::vector<Line> m_lines; ///< own texts; a line that holds none is empty
    std::shared_ptr<CellArray> m_array;
    int m_rows = 2;
    bool m_editable = false;
};

} // namespace platform
