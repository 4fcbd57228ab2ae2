// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What a grid knows of one column beside its cells.

#include "platform/window/celllist.h"

#include <Qt>

namespace platform {

enum class CellKind {
    Text,
    Date,    ///< the look may follow a format; the value stays the text
    Number,  ///< likewise
    Boolean, ///< a tick box; the value is the text "1", "0" or ""
};

/// Width of a column whose width was never set; the last one of them takes the room that is left.
inline constexpr int kDefaultWidthTwips = 960;
inline constexpr int kWidthNotSet = -1;
/// A column narrower than this is there to carry its value unseen: scraps of text would only disturb.
inline constexpr int kLeastReadableTwips = 150;

struct FlexColumn
{
    CellKind kind = CellKind::Text;
    Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter;
    Qt::Alignment headingAlignment = Qt::AlignLeft | Qt::AlignVCenter;
    int widthTwips = kWidthNotSet; ///< 1440 an inch; 0 hides the column
    QString format;                ///< look of a value: "##,##.00", "dd/mm/yyyy" or empty
    QString mask;                  ///< "99/99/9999" or empty
    CellList list;

    [[nodiscard]] bool isReadable() const
    {
        return kind == CellKind::Boolean || widthTwips == kWidthNotSet || widthTwips >= kLeastReadableTwips;
    }
};

/// The look of a value under a column's format. Never changes the value; a text that doesn't fit the format
/// looks as it is.
[[nodiscard]] QString formattedLook(const QString& value, const QString& format);

/// Qt's input mask for a mask of the design: "9" is a digit or a blank, other characters stand for
/// themselves.
[[nodiscard]] QString inputMaskFor(const QString& mask);

/// True when a text counts as ticked: it begins with a number other than 0.
[[nodiscard]] bool isTickedText(const QString& text);

} // namespace platform
