// SPDX-License-Identifier: GPL-3.0-or-later
#include "clients/detaillines.h"

#include "platform/core/regime.h"
#include "platform/dao/dao.h"
#include "platform/text/textfunctions.h"
#include "platform/window/flexgrid.h"

using platform::asText;
using platform::attempt;
using platform::FlexGrid;
using platform::holds;
using platform::dao::Recordset;

namespace {

void readCell(FlexGrid& grid, const LineColumn& cell, const Recordset& record)
{
    attempt([&] { grid.setCol(cell.col); });
    if (cell.writing != CellWriting::Tick) {
        attempt([&] { grid.setText(platform::Trim(asText(record[cell.column].Value()))); });
        return;
    }
    // A Null fails the test and so ticks the cell.
    if (holds([&] { return platform::Val(asText(record[cell.column].Value())) == 1; }))
        attempt([&] { grid.setTicked(true); });
    else
        attempt([&] { grid.setTicked(false); });
}

void writeCell(FlexGrid& grid, const LineColumn& cell, const Recordset& record)
{
    attempt([&] { grid.setCol(cell.col); });
    switch (cell.writing) {
    case CellWriting::AsItStands:
        attempt([&] { record[cell.column].setValue(grid.text()); });
        return;
    case CellWriting::Trimmed:
        attempt([&] { record[cell.column].setValue(platform::Trim(grid.text())); });
        return;
    case CellWriting::Tick:
        if (holds([&] { return grid.isTicked(); }))
            attempt([&] { record[cell.column].setValue(1.0); });
        else
            attempt([&] { record[cell.column].setValue(0.0); });
        return;
    }
}

/// The fixed columns lead the table's index, and the key of the line follows them.
void seekLine(Recordset& rows, std::span<const FixedColumn> fixed, const QString& key)
{
    if (fixed.size() == 1)
        rows.Seek(u"=", fixed[0].value, key);
    else
        rows.Seek(u"=", fixed[0].value, fixed[1].value, key);
}

QStringView keyColumn(const LineTable& table)
{
    for (const LineColumn& cell : table.columns) {
        if (cell.col == table.keyCol)
            return cell.column;
    }
    return {};
}

/// Reads the record that the walk stands on into the grid's line after `line`. The key is sought trimmed, so
/// another record may be found, or none; the walk goes on from where it stood all the same.
void readWalkedLine(const LineTable& table, QStringView clientColumn, const QString& client, int& line)
{
    platform::Value storedClient;
    attempt([&] { storedClient = table.rows[clientColumn].Value(); });
    platform::Value storedKey;
    attempt([&] { storedKey = table.rows[keyColumn(table)].Value(); });
    if (platform::isNull(storedKey))
        return; // gone since the walk came to it: nothing to seek by
    QString key;
    attempt([&] { key = platform::Trim(asText(storedKey)); });
    attempt([&] { table.rows.Seek(u"=", client, key); });
    if (holds([&] { return table.rows.NoMatch(); })) {
        attempt([&] { table.rows.Seek(u"=", storedClient, storedKey); });
        return;
    }
    // Never updated: the next positioning drops it.
    attempt([&] { table.rows.Edit(); });
    ++line;
    attempt([&] { table.grid.setRow(line); });
    readCells(table, table.rows);
    if (asText(storedKey) != key)
        attempt([&] { table.rows.Seek(u"=", storedClient, storedKey); });
}

void writeLine(const LineTable& table, std::span<const FixedColumn> fixed, const QString& key)
{
    attempt([&] { seekLine(table.rows, fixed, key); });
    if (holds([&] { return table.rows.NoMatch(); }))
        attempt([&] { table.rows.AddNew(); });
    else
        attempt([&] { table.rows.Edit(); });
    for (const FixedColumn& column : fixed)
        attempt([&] { table.rows[column.column].setValue(column.value); });
    attempt([&] { table.rows[keyColumn(table)].setValue(key); });
    for (const LineColumn& cell : table.columns) {
        if (cell.col != table.keyCol)
            writeCell(table.grid, cell, table.rows);
    }
    attempt([&] { table.rows.Update(); });
}

} // namespace

void readCells(const LineTable& table, const Recordset& record)
{
    for (const LineColumn& cell : table.columns)
        readCell(table.grid, cell, record);
}

void readLines(const LineTable& table, QStringView clientColumn, const QString& client)
{
    attempt([&] { table.rows.setIndex(table.index.toString()); });
    attempt([&] { table.rows.MoveFirst(); });
    int count = 0;
    attempt([&] { count = table.rows.RecordCount(); });
    int line = 0;
    for (int pass = 0; pass < count; ++pass) {
        const bool isOfClient = holds([&] {
            const platform::Value code = table.rows[clientColumn].Value();
            return !platform::isNull(code) && asText(code) == client;
        });
        if (isOfClient)
            readWalkedLine(table, clientColumn, client, line);
        attempt([&] { table.rows.MoveNext(); });
    }
}

void writeLines(const LineTable& table, std::span<const FixedColumn> fixed)
{
    attempt([&] { table.rows.setIndex(table.index.toString()); });
    QString key;
    // One pass beyond the last row: that row can't be set, so the last line is merged once more.
    for (int row = 1; row <= table.grid.rows(); ++row) {
        attempt([&] { table.grid.setRow(row); });
        attempt([&] { table.grid.setCol(table.keyCol); });
        attempt([&] { key = platform::Trim(table.grid.text()); });
        if (!key.isEmpty())
            writeLine(table, fixed, key);
    }
}

void deleteLine(const LineTable& table, std::span<const FixedColumn> fixed)
{
    attempt([&] { table.rows.setIndex(table.index.toString()); });
    QString key;
    attempt([&] { table.grid.setCol(table.keyCol); });
    attempt([&] { key = platform::Trim(table.grid.text()); });
    if (key.isEmpty())
        return;
    attempt([&] { seekLine(table.rows, fixed, key); });
    if (holds([&] { return table.rows.NoMatch(); }))
        return;
    attempt([&] { table.rows.Delete(); });
    for (const LineColumn& cell : table.columns) {
        attempt([&] { table.grid.setCol(cell.col); });
        attempt([&] { table.grid.setText(QString()); });
    }
}
