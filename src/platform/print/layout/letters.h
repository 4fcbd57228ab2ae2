// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The letters of one style: widths by table, so that measuring a page costs next to nothing, and glyphs kept
// for drawing. All lengths are hundredths of a millimetre, whatever the device.

#include "platform/print/definition/model.h"

#include <QGlyphRun>
#include <QHash>
#include <QList>
#include <QRawFont>

namespace platform::print {

/// Hundredths of a millimetre in a millimetre.
inline constexpr double kUnits = 100.0;

class Letters
{
public:
    explicit Letters(const Style& style);

    [[nodiscard]] double ascent() const noexcept { return m_ascent; }
    [[nodiscard]] double lineHeight() const noexcept { return m_lineHeight; }
    [[nodiscard]] double width(QStringView text);
    /// Lines of a text within a width: broken at line ends and blanks, a longer word between its letters.
    [[nodiscard]] QStringList wrap(const QString& text, double width);
    /// Glyphs for one line, with positions from its left end on the base line. A character that the style's
    /// font lacks comes from another font.
    [[nodiscard]] QList<QGlyphRun> glyphs(const QString& line);

private:
    struct Glyph
    {
        quint32 index = 0;
        double advance = 0;
    };

    [[nodiscard]] const Glyph& glyph(char32_t character);
    void wrapParagraph(QStringView paragraph, double width, QStringList& lines);

    QFont m_font;
    QRawFont m_raw;
    double m_ascent = 0;
    double m_lineHeight = 0;
    QHash<char32_t, Glyph> m_glyphs;
};

} // namespace platform::print
