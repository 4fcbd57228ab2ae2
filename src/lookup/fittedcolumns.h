// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Fits the columns of the lookup's list to the room that there is, so that nothing has to be scrolled
// sideways: the widths in twips that the list was given say who is narrow and how the others share.

#include <QObject>

namespace platform {
class FlexGrid;
}

namespace lookup {

class FittedColumns : public QObject
{
    Q_OBJECT

public:
    /// Watches `grid`, which it belongs to, and fits its columns at each change of size.
    explicit FittedColumns(platform::FlexGrid* grid);

    /// Fits the columns now; to be called when the grid has got other columns.
    void fit();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] bool isNarrow(int col) const;
    [[nodiscard]] int narrowPixels(int col) const;

    platform::FlexGrid* m_grid;
};

} // namespace lookup
