// SPDX-License-Identifier: GPL-3.0-or-later
#include "assistance/gridcolumns.h"

#include "platform/core/regime.h"
#include "platform/window/flexgrid.h"

using platform::attempt;
using platform::FlexGrid;

namespace {

/// Runs `step(col, column)` for each column, each as a statement of its own.
template <typename Step>
void forEachColumn(std::span<const GridColumn> columns, Step&& step)
{
    int col = 0;
    for (const GridColumn& column : columns) {
        attempt([&] { step(col, column); });
        ++col;
    }
}

void setCellKinds(FlexGrid& grid, std::span<const GridColumn> columns)
{
    forEachColumn(columns,
                  [&](int col, const GridColumn& column) { grid.setColList(col, column.list.toString()); });
    forEachColumn(columns, [&](int col, const GridColumn& column) {
        grid.setColFormat(col, column.format.toString());
    });
    forEachColumn(columns,
                  [&](int col, const GridColumn& column) { grid.setColMask(col, column.mask.toString()); });
    forEachColumn(columns, [&](int col, const GridColumn& column) { grid.setColKind(col, column.kind); });
}

} // namespace

void drawGridColumns(FlexGrid& grid, std::span<const GridColumn> columns)
{
    forEachColumn(
        columns, [&](int col, const GridColumn& column) { grid.setHeading(col, column.heading.toString()); });
    forEachColumn(columns, [&](int col, const GridColumn& column) {
        grid.setHeadingAlignment(col, column.headingAlignment);
    });
    forEachColumn(columns,
                  [&](int col, const GridColumn& column) { grid.setColAlignment(col, column.alignment); });
    forEachColumn(columns,
                  [&](int col, const GridColumn& column) { grid.setColWidth(col, column.widthTwips); });
    setCellKinds(grid, columns);
}

void limitEdit(FlexGrid& grid, std::span<const GridColumn> columns, int col)
{
    if (col < 0 || static_cast<std::size_t>(col) >= columns.size())
        return;
    const int limit = columns[static_cast<std::size_t>(col)].editLimit;
    if (limit != kLimitNotSet)
        attempt([&] { grid.setEditMaxLength(limit); });
}
