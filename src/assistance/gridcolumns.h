// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The columns of a grid as data, and the drawing of a grid from them.

#include "platform/window/flexcolumn.h"

#include <QStringView>

#include <span>

namespace platform {
class FlexGrid;
}

/// Width of a column that takes the room that is left.
inline constexpr int kWidthAsItComes = -1;
/// No input limit of its own: an edit keeps the limit that the last edit left.
inline constexpr int kLimitNotSet = -1;

struct GridColumn
{
    QStringView heading;
    int widthTwips = kWidthAsItComes;
    int editLimit = kLimitNotSet; ///< UTF-16 units
    platform::CellKind kind = platform::CellKind::Text;
    QStringView list = {};
    QStringView format = {};
    QStringView mask = {};
    Qt::Alignment alignment = Qt::AlignCenter; ///< of rows 1 and on
    Qt::Alignment headingAlignment = Qt::AlignCenter;
};

/// Writes headings, then alignments, widths, and lists, kinds, formats and masks. Skip mode.
void drawGridColumns(platform::FlexGrid& grid, std::span<const GridColumn> columns);

/// Sets the grid's input limit for an edit that begins in `col`. Columns without a limit leave it as it is.
void limitEdit(platform::FlexGrid& grid, std::span<const GridColumn> columns, int col);
