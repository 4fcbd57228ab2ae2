// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The array behind a bound grid: [column][row], both from 0. The grid reads it on demand and never copies it.

#include <QString>

namespace platform {

class CellArray
{
public:
    virtual ~CellArray() = default;

    [[nodiscard]] virtual int columns() const = 0;
    [[nodiscard]] virtual int rows() const = 0;

    /// Text of one cell. Null shows as the empty text. Called for visible cells at every repaint: keep it
    /// cheap.
    [[nodiscard]] virtual QString text(int column, int row) const = 0;

    /// Takes a text that the user or the program wrote in the grid.
    virtual void setText(int column, int row, const QString& text) = 0;
};

} // namespace platform
