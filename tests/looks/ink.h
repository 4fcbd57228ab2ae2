// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The colour of a text and of its ground, told from the pixels of a picture of it.

#include <QColor>
#include <QImage>

#include <optional>

namespace looks {

struct Ink
{
    QColor ink;
    QColor ground;       ///< of all that the text stands on, the colour that is hardest to tell from the ink
    double contrast = 1; ///< of the two
};

/// Nothing for a picture of one colour. The text must be drawn without smoothing.
[[nodiscard]] std::optional<Ink> inkOf(const QImage& picture);

} // namespace looks
