// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/layout/letters.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace platform::print {
namespace {

constexpr double kUnitsPerPoint = 25.4 / 72 * kUnits;

QString installedFamily(const QStringList& families)
{
    const QStringList installed = QFontDatabase::families();
    for (const QString& family : families) {
        if (installed.contains(family, Qt::CaseInsensitive))
            return family;
    }
    return installed.contains(u"DejaVu Sans"_s) ? u"DejaVu Sans"_s : QFont().family();
}

QFont fontOf(const Style& style)
{
    QFont font(installedFamily(style.families));
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(style.points * kUnitsPerPoint))));
    font.setBold(style.bold);
    font.setItalic(style.italic);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setKerning(false);
    return font;
}

bool isBlank(QChar character)
{
    return character == u' ' || character == u'\t';
}

} // namespace

Letters::Letters(const Style& style)
    : m_font(fontOf(style))
    , m_raw(QRawFont::fromFont(m_font))
{
    m_ascent = m_raw.ascent();
    m_lineHeight = m_raw.ascent() + m_raw.descent() + m_raw.leading();
}

const Letters::Glyph& Letters::glyph(char32_t character)
{
    const auto known = m_glyphs.constFind(character);
    if (known != m_glyphs.constEnd())
        return *known;
    Glyph made;
    const QString text = QString::fromUcs4(&character, 1);
    const QList<quint32> indexes = m_raw.glyphIndexesForString(text);
    if (!indexes.isEmpty() && indexes[0] != 0) {
        made.index = indexes[0];
        made.advance = m_raw.advancesForGlyphIndexes({indexes[0]}).constFirst().x();
    } else if (character >= U' ') {
        QTextLayout layout(text, m_font);
        layout.beginLayout();
        made.advance = layout.createLine().naturalTextWidth();
        layout.endLayout();
    }
    return *m_glyphs.insert(character, made);
}

double Letters::width(QStringView text)
{
    double sum = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        char32_t character = text[i].unicode();
        if (text[i].isHighSurrogate() && i + 1 < text.size()) {
            character = QChar::surrogateToUcs4(text[i], text[i + 1]);
            ++i;
        }
        sum += glyph(character).advance;
    }
    return sum;
}

QStringList Letters::wrap(const QString& text, double width)
{
    QStringList lines;
    QString plain = text;
    plain.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
    for (const QStringView paragraph : QStringView(plain).split(u'\n'))
        wrapParagraph(paragraph, width, lines);
    return lines;
}

void Letters::wrapParagraph(QStringView paragraph, double width, QStringList& lines)
{
    while (true) {
        double used = 0;
        qsizetype end = 0;
        qsizetype lastBlank = -1;
        while (end < paragraph.size()) {
            const qsizetype step = paragraph[end].isHighSurrogate() && end + 1 < paragraph.size() ? 2 : 1;
            const double next = used + this->width(paragraph.sliced(end, step));
            if (isBlank(paragraph[end]))
                lastBlank = end;
            else if (next > width && end > 0)
                break;
            used = next;
            end += step;
        }
        if (end >= paragraph.size()) {
            lines += paragraph.toString();
            return;
        }
        const qsizetype cut = lastBlank > 0 ? lastBlank : end;
        QStringView line = paragraph.first(cut);
        while (!line.isEmpty() && isBlank(line.back()))
            line.chop(1);
        lines += line.toString();
        paragraph = paragraph.sliced(cut);
        while (!paragraph.isEmpty() && isBlank(paragraph.front()))
            paragraph = paragraph.sliced(1);
        if (paragraph.isEmpty())
            return;
    }
}

QList<QGlyphRun> Letters::glyphs(const QString& line)
{
    QList<quint32> indexes;
    QList<QPointF> positions;
    double x = 0;
    bool complete = true;
    for (const char32_t character : line.toUcs4()) {
        const Glyph& found = glyph(character);
        complete = complete && (found.index != 0 || character < U' ');
        if (found.index != 0) {
            indexes += found.index;
            positions += QPointF(x, 0);
        }
        x += found.advance;
    }
    if (complete) {
        QGlyphRun run;
        run.setRawFont(m_raw);
        run.setGlyphIndexes(indexes);
        run.setPositions(positions);
        return {run};
    }
    QTextLayout layout(line, m_font);
    layout.beginLayout();
    QTextLine made = layout.createLine();
    made.setPosition(QPointF(0, -made.ascent()));
    layout.endLayout();
    return layout.glyphRuns();
}

} // namespace platform::print
