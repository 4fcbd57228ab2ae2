// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Fills one table of a store with many rows, in blocks of one transaction each. For the demo data only: the
// program itself writes row by row.

#include "platform/storage/storage.h"

#include <QStringView>

#include <initializer_list>
#include <memory>

namespace tools {

struct Cell
{
    QStringView column; ///< as the schema spells it
    platform::Value value;
};

class BulkTable
{
public:
    /// `connection` must outlive the object. 3078 when there is no such table.
    BulkTable(platform::storage::Connection& connection, QStringView table);

    /// Adds a row; columns that aren't named are Null. A text longer than its column is cut. 3265 for a
    /// column that the table hasn't.
    void add(std::initializer_list<Cell> cells);
    /// The same, with more columns from a list that is built at run time.
    void add(const std::vector<Cell>& cells);
    /// Writes the rows that are still waiting. Must be called last: rows not written by then are lost.
    void flush();

private:
    void set(platform::storage::Row& row, const Cell& cell) const;
    void push(platform::storage::Row row);

    std::unique_ptr<platform::storage::Table> m_table;
    std::vector<platform::storage::Row> m_waiting;
};

} // namespace tools
