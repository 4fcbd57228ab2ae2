// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The lines of a client in a detail table and in their grid: one record a line. Everything here runs in skip
// mode.

#include <QString>
#include <QStringView>

#include <span>

namespace platform {
class FlexGrid;
}
namespace platform::dao {
class Recordset;
}

/// How a cell goes to its column. On read every cell is trimmed, but for ticks.
enum class CellWriting {
    AsItStands,
    Trimmed,
    Tick, ///< 1 or 0; on read the number 1 ticks the cell
};

struct LineColumn
{
    int col;
    QStringView column;
    CellWriting writing;
};

/// A column that every line of the client has alike.
struct FixedColumn
{
    QStringView column;
    QString value;
};

/// A detail table and its grid. `columns` stand in the order of the grid.
struct LineTable
{
    platform::dao::Recordset& rows;
    QStringView index;
    platform::FlexGrid& grid;
    std::span<const LineColumn> columns;
    int keyCol; ///< the cell without which a line isn't one
};

/// Walks the whole table in index order and writes the records whose `clientColumn` is `client` to the grid's
/// lines from 1 on. Records beyond the grid's last line are written over it.
void readLines(const LineTable& table, QStringView clientColumn, const QString& client);

/// Writes a line's cells, left to right, from the current record to the grid's current row.
void readCells(const LineTable& table, const platform::dao::Recordset& record);

/// Merges every line with a key into the table: found by the fixed columns and the key it is changed, else
/// added.
void writeLines(const LineTable& table, std::span<const FixedColumn> fixed);

/// Deletes the record of the grid's current line and empties the line; a line that isn't in the table stays.
/// `fixed` are the leading key columns.
void deleteLine(const LineTable& table, std::span<const FixedColumn> fixed);
