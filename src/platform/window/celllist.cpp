// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/window/celllist.h"

namespace platform {

namespace {

const QString kButtonMark = QStringLiteral("...");

/// Takes "#n*m;" off the front of an item's text and answers m, the column shown; 0 without one. The item's
/// number isn't kept: the cell holds the text that it shows.
int takeHead(QString& item)
{
    const qsizetype end = item.indexOf(QLatin1Char(';'));
    if (!item.startsWith(QLatin1Char('#')) || end < 0)
        return 0;
    const QString head = item.left(end);
    item.remove(0, end + 1);
    const qsizetype star = head.indexOf(QLatin1Char('*'));
    return star < 0 ? 0 : head.mid(star + 1).toInt();
}

CellListItem itemOf(const QString& text, int shownColumn)
{
    const QStringList columns = text.split(QLatin1Char('\t'));
    return {.cellText = columns.value(shownColumn, columns.first()),
            .displayText = columns.join(QStringLiteral("   "))};
}

} // namespace

CellList parseCellList(const QString& text)
{
    CellList list;
    if (text.isEmpty())
        return list;
    list.allowsTyping = text.startsWith(QLatin1Char('|'));
    const QString body = list.allowsTyping ? text.mid(1) : text;
    if (body == kButtonMark) {
        list.hasButton = true;
        return list;
    }
    int shownColumn = 0;
    for (QString part : body.split(QLatin1Char('|'))) {
        const int headColumn = takeHead(part);
        // The shown column is named once, on the first item, and holds for the list.
        if (list.items.isEmpty())
            shownColumn = headColumn;
        list.items.append(itemOf(part, shownColumn));
    }
    return list;
}

} // namespace platform
