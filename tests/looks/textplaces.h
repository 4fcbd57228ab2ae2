// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Where a window shows texts, of its own and of the data.

#include <QList>
#include <QRect>
#include <QString>

class QWidget;

namespace looks {

struct TextPlace
{
    QString name; ///< of the control, and which of its texts
    QRect place;  ///< in the window, without frames, pictures and lines around the text
};

[[nodiscard]] QList<TextPlace> textPlaces(QWidget& window);

} // namespace looks
