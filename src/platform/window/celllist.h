// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The list text of a grid column, taken apart. Needs no widget.
//
//   "a|b"        only the items may be chosen          "|a|b"   free text too
//   "..."        a button, no typing in the cell       "|..."   a button, typing too
//   "#n;text"    item number n, which is not kept       "*0"     the drop-down's column that the cell keeps
//   and shows tab          parts the drop-down's columns

#include <QList>
#include <QString>
#include <QStringList>

namespace platform {

struct CellListItem
{
    QString cellText;    ///< what a pick writes in the cell
    QString displayText; ///< what the drop-down shows: all the columns of the item

    friend bool operator==(const CellListItem&, const CellListItem&) = default;
};

struct CellList
{
    QList<CellListItem> items;
    bool hasButton = false;
    bool allowsTyping = true;

    /// A column without a list: plain typing.
    [[nodiscard]] bool isPlain() const { return items.isEmpty() && !hasButton; }
    /// A column with a drop-down.
    [[nodiscard]] bool isDropDown() const { return !items.isEmpty(); }

    friend bool operator==(const CellList&, const CellList&) = default;
};

/// Takes a column's list text apart. The empty text gives a column without a list.
[[nodiscard]] CellList parseCellList(const QString& text);

} // namespace platform
