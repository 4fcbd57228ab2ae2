// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The rows of one table, only the columns in use: cells of 8 bytes, texts in one run of UTF-8.

#include "platform/print/formula/value.h"

#include <QByteArray>

#include <vector>

namespace platform::print {

/// "No row": the partner of a record in an optional table without a match.
inline constexpr quint32 kNoRow = 0xFFFF'FFFF;

/// Longest text of a cell, in bytes of UTF-8.
inline constexpr qsizetype kMaxCellBytes = 0x7F'FFFF;

class RowStore
{
public:
    /// One type for each column: Number or Text.
    explicit RowStore(std::vector<formula::Type> columns = {});

    /// Cells are added row by row, left to right.
    void addNull();
    void addNumber(double number);
    /// At most `kMaxCellBytes`.
    void addText(QByteArrayView utf8);

    [[nodiscard]] quint32 rowCount() const noexcept;
    /// No value for a null, and for `kNoRow`.
    [[nodiscard]] formula::Value value(quint32 row, int column) const;
    /// What stands in a text cell, as it was stored; empty for a null and for `kNoRow`. Valid until rows are
    /// added.
    [[nodiscard]] QByteArrayView bytes(quint32 row, int column) const noexcept;
    /// For a table of which no column is read: how many rows it has.
    void setRowCount(quint32 count) noexcept { m_plainRows = count; }

private:
    std::vector<formula::Type> m_columns;
    std::vector<quint64> m_cells;
    QByteArray m_texts;
    quint32 m_plainRows = 0;
};

} // namespace platform::print
