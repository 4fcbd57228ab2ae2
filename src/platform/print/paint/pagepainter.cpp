// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/paint/pagepainter.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace platform::print {
namespace {

QColor colorOf(quint32 rgb)
{
    return QColor::fromRgb(rgb);
}

QRectF rectOf(const PlacedItem& placed, double x, double y)
{
    return QRectF((x + placed.item->x) * kUnits, (y + placed.y) * kUnits, placed.item->width * kUnits,
                  placed.height * kUnits);
}

} // namespace

PagePainter::PagePainter(Paginator& paginator, SectionMaker& maker, LetterCase& letters, Pictures& pictures)
    : m_paginator(paginator)
    , m_maker(maker)
    , m_letters(letters)
    , m_pictures(pictures)
{}

void PagePainter::paint(QPainter& painter, int page)
{
    const PageList& pages = m_paginator.pages();
    const PageSetup& setup = m_maker.execution().report().page;
    const double body = setup.top + static_cast<double>(pages.page(page).headerHeight);
    m_facts = m_paginator.facts(page);
    paintSections(painter, m_maker, pages.sections(page, PagePart::Header), setup.left, setup.top);
    paintSections(painter, m_maker, pages.sections(page, PagePart::Body), setup.left, body);
    const std::vector<PlacedSection> footer = pages.sections(page, PagePart::Footer);
    double height = 0;
    for (const PlacedSection& placed : footer)
        height += placed.height;
    paintSections(painter, m_maker, footer, setup.left, setup.height - setup.bottom - height);
}

QString PagePainter::pageText(int page)
{
    QStringList texts;
    m_texts = &texts;
    QImage nowhere(1, 1, QImage::Format_RGB32);
    QPainter painter(&nowhere);
    paint(painter, page);
    m_texts = nullptr;
    return texts.join(u'\n');
}

void PagePainter::paintSections(QPainter& painter, SectionMaker& maker,
                                const std::vector<PlacedSection>& sections, double x, double y)
{
    for (const PlacedSection& placed : sections)
        paintSection(painter, maker, placed, x, y + placed.y);
}

void PagePainter::paintSection(QPainter& painter, SectionMaker& maker, const PlacedSection& placed, double x,
                               double y)
{
    PageFacts facts = m_facts;
    facts.repeatedHeader = placed.repeated;
    Records& records = maker.execution().records();
    records.setPage(facts);
    records.setPosition(placed.position);
    const SectionLayout layout = maker.make(placed.section, placed.kept.get());
    const std::optional<Span> outer = m_slice;
    if (placed.cut) {
        m_slice = Span{y, y + placed.height};
        painter.save();
        painter.setClipRect(QRectF(0, y * kUnits, maker.execution().report().page.width * kUnits * 10,
                                   placed.height * kUnits));
    }
    for (const PlacedItem& item : layout.items)
        paintItem(painter, maker, item, x, y - placed.skipped);
    if (placed.cut)
        painter.restore();
    m_slice = outer;
}

/// Of a section that goes on over several pages, only the lines of this page's slice are painted.
bool PagePainter::inSlice(double top, double height) const
{
    const double middle = top + height / 2;
    return !m_slice || (middle >= m_slice->top && middle <= m_slice->bottom);
}

void PagePainter::paintItem(QPainter& painter, SectionMaker& maker, const PlacedItem& placed, double x,
                            double y)
{
    switch (placed.item->kind) {
    case Item::Kind::Text:
    case Item::Kind::Field:
        return paintText(painter, placed, x, y);
    case Item::Kind::Line:
    case Item::Kind::Box:
        return paintFrame(painter, placed, x, y);
    case Item::Kind::Picture:
        return paintPicture(painter, maker, placed, x, y);
    case Item::Kind::Subreport:
        // The strip's records are those of the record that stands above.
        maker.execution().enterSubreport(placed.item->subreport);
        return paintSections(painter, maker.subreport(placed.item->subreport), placed.strip,
                             x + placed.item->x, y + placed.y);
    }
}

void PagePainter::paintText(QPainter& painter, const PlacedItem& placed, double x, double y)
{
    const Style& style = m_letters.style(placed.item->style);
    Letters& letters = m_letters.letters(placed.item->style);
    if (m_texts != nullptr) {
        const double height = letters.lineHeight() / kUnits;
        QStringList lines;
        for (qsizetype i = 0; i < placed.lines.size(); ++i) {
            if (inSlice(y + placed.y + static_cast<double>(i) * height, height))
                lines += placed.lines[i];
        }
        if (!lines.isEmpty())
            *m_texts += lines.join(u' ');
        return;
    }
    const QRectF rect = rectOf(placed, x, y);
    if (style.background)
        painter.fillRect(rect, colorOf(*style.background));
    const double spare = rect.height() - letters.lineHeight() * static_cast<double>(placed.lines.size());
    double top = rect.top();
    if (style.vertical != VerticalAlign::Top && spare > 0)
        top += style.vertical == VerticalAlign::Center ? spare / 2 : spare;
    painter.setPen(colorOf(style.color));
    for (const QString& line : placed.lines) {
        if (!inSlice(top / kUnits, letters.lineHeight() / kUnits)) {
            top += letters.lineHeight();
            continue;
        }
        const double width = letters.width(line);
        const double free = rect.width() - width;
        double left = rect.left();
        if (style.align != Align::Left && free > 0)
            left += style.align == Align::Center ? free / 2 : free;
        const QPointF base(left, top + letters.ascent());
        // Clipping every field would make large files, so only what overflows is clipped.
        if (free < 0) {
            painter.save();
            painter.setClipRect(rect.adjusted(0, -rect.height(), 0, rect.height()), Qt::IntersectClip);
        }
        for (const QGlyphRun& run : letters.glyphs(line))
            painter.drawGlyphRun(base, run);
        if (style.underline)
            painter.fillRect(QRectF(left, base.y() + letters.ascent() * 0.1, width, letters.ascent() * 0.06),
                             colorOf(style.color));
        if (free < 0)
            painter.restore();
        top += letters.lineHeight();
    }
}

void PagePainter::paintFrame(QPainter& painter, const PlacedItem& placed, double x, double y)
{
    if (m_texts != nullptr)
        return;
    const Item& item = *placed.item;
    QPen pen(colorOf(item.color), item.thickness * kUnits);
    pen.setCapStyle(Qt::FlatCap);
    pen.setJoinStyle(Qt::MiterJoin);
    painter.setPen(item.thickness > 0 ? pen : QPen(Qt::NoPen));
    painter.setBrush(item.background ? QBrush(colorOf(*item.background)) : QBrush(Qt::NoBrush));
    if (item.kind == Item::Kind::Line) {
        painter.drawLine(QPointF((x + item.x) * kUnits, (y + placed.y) * kUnits),
                         QPointF((x + item.toX) * kUnits, (y + placed.y + placed.height) * kUnits));
    } else if (item.rounding > 0) {
        painter.drawRoundedRect(rectOf(placed, x, y), item.rounding * kUnits, item.rounding * kUnits);
    } else {
        painter.drawRect(rectOf(placed, x, y));
    }
}

/// A column holds the picture itself or its path.
QImage PagePainter::pictureOf(const Item& item, Records& records)
{
    if (!item.formula)
        return m_pictures.picture(item.file);
    const formula::Node* root = item.formula->root();
    if (root != nullptr && root->kind == formula::NodeKind::Field) {
        const QByteArrayView bytes = records.columnBytes(root->slot);
        if (Pictures::isPicture(bytes))
            return m_pictures.picture(bytes);
    }
    const formula::Outcome outcome = item.formula->evaluate(records);
    return outcome.fault ? QImage() : m_pictures.picture(formatted({}, outcome.value));
}

void PagePainter::paintPicture(QPainter& painter, SectionMaker& maker, const PlacedItem& placed, double x,
                               double y)
{
    const Item& item = *placed.item;
    const QImage image = pictureOf(item, maker.execution().records());
    if (image.isNull() && !item.pieces.empty())
        return paintText(painter, placed, x, y);
    if (m_texts != nullptr)
        return;
    const QRectF room = rectOf(placed, x, y);
    if (image.isNull() || room.isEmpty()) {
        // A picture that must be there leaves its empty frame, so that the lack is seen.
        if (!item.optional) {
            painter.setPen(QPen(Qt::gray, 0.1 * kUnits));
            painter.setBrush(Qt::NoBrush);
            painter.drawRect(room);
        }
        return;
    }
    const QSizeF size = QSizeF(image.size()).scaled(room.size(), Qt::KeepAspectRatio);
    // A letterhead's letters would smear in the PDF otherwise.
    painter.setRenderHint(QPainter::LosslessImageRendering);
    painter.drawImage(QRectF(room.topLeft(), size), image);
}

} // namespace platform::print
