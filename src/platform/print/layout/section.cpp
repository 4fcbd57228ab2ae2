// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/layout/section.h"

#include "platform/print/formula/compare.h"
#include "platform/print/layout/bands.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace platform::print {
namespace {

bool holdsVariables(const Item& item)
{
    const auto has = [](const std::optional<formula::Formula>& formula) {
        return formula && formula->uses().variables;
    };
    return has(item.formula) || has(item.suppress) ||
           std::any_of(item.pieces.begin(), item.pieces.end(),
                       [&has](const TextPiece& piece) { return has(piece.field); });
}

/// Moves what lies wholly below something that grew, and tells how much the section grows.
double pushDown(std::vector<PlacedItem>& items)
{
    std::vector<std::size_t> order(items.size());
    for (std::size_t i = 0; i < order.size(); ++i)
        order[i] = i;
    std::stable_sort(order.begin(), order.end(), [&items](std::size_t left, std::size_t right) {
        return items[left].item->y < items[right].item->y;
    });
    std::vector<double> shifts(items.size(), 0);
    double before = 0;
    double after = 0;
    for (std::size_t i = 0; i < order.size(); ++i) {
        PlacedItem& here = items[order[i]];
        double& shift = shifts[order[i]];
        for (std::size_t j = 0; j < i; ++j) {
            const PlacedItem& above = items[order[j]];
            const double bottom = above.item->y + above.item->height;
            const bool below = bottom <= here.item->y && above.item->y < here.item->y;
            if (below && !above.item->toFoot)
                shift = std::max(shift, shifts[order[j]] + above.height - above.item->height);
        }
        before = std::max(before, here.item->y + here.item->height);
        after = std::max(after, here.item->y + shift + here.height);
        here.y = here.item->y + shift;
    }
    return std::max(0.0, after - before);
}

} // namespace

Letters& LetterCase::letters(int style)
{
    std::unique_ptr<Letters>& made = m_letters[static_cast<std::size_t>(style)];
    if (!made)
        made = std::make_unique<Letters>(m_styles[static_cast<std::size_t>(style)]);
    return *made;
}

SectionMaker::SectionMaker(Execution& execution, LetterCase& letters)
    : m_execution(execution)
    , m_letters(letters)
{
    for (const Section& section : execution.report().sections) {
        Traits traits;
        traits.keeps = section.suppress && section.suppress->uses().variables;
        for (const Item& item : section.items) {
            traits.fixed = traits.fixed && !item.grows;
            traits.keeps = traits.keeps || holdsVariables(item);
        }
        traits.fixed = traits.fixed && !traits.keeps && !section.suppressEmpty;
        m_traits.push_back(traits);
    }
    for (std::size_t i = 0; i < execution.report().subreports.size(); ++i)
        m_subreports.push_back(
            std::make_unique<SectionMaker>(execution.subreport(static_cast<int>(i)), letters));
}

SectionMaker& SectionMaker::subreport(int i)
{
    return *m_subreports[static_cast<std::size_t>(i)];
}

bool SectionMaker::suppressed(const Section& section)
{
    return section.suppress && !section.suppress->isEmpty() && m_execution.records().met(*section.suppress);
}

double SectionMaker::height(int section)
{
    const Section& definition = m_execution.report().sections[static_cast<std::size_t>(section)];
    if (m_traits[static_cast<std::size_t>(section)].fixed)
        return suppressed(definition) ? 0 : definition.height;
    return make(section).height;
}

QString SectionMaker::fieldText(const Item& item, const formula::Formula& formula)
{
    Records& records = m_execution.records();
    const formula::Outcome outcome = formula.evaluate(records);
    if (outcome.fault) {
        records.countInvalid();
        return {};
    }
    const Style& style = m_letters.style(item.style);
    const QString shown =
        formatted(item.format ? *item.format : style.format.value_or(Format{}), outcome.value);
    const bool number = item.kind == Item::Kind::Field && std::holds_alternative<double>(outcome.value);
    return number && !item.grows ? wholeOrHashes(item, shown) : shown;
}

/// A number that lost its end would be read as another number, so one that is too wide shows none of itself.
QString SectionMaker::wholeOrHashes(const Item& item, const QString& number)
{
    Letters& letters = m_letters.letters(item.style);
    const double room = item.width * kUnits;
    if (letters.width(number) <= room)
        return number;
    const double hash = letters.width(u"#");
    return QString(hash > 0 ? std::max(1, static_cast<int>(room / hash)) : 1, u'#');
}

/// True when the record above, in the same section, shows the same value.
bool SectionMaker::repeatsAbove(const Item& item)
{
    Records& records = m_execution.records();
    const quint32 here = records.position();
    if (here == 0)
        return false;
    const formula::Outcome now = item.formula->evaluate(records);
    records.setPosition(here - 1);
    const formula::Outcome above = item.formula->evaluate(records);
    records.setPosition(here);
    return !now.fault && !above.fault && hasValue(now.value) && hasValue(above.value) &&
           formula::compareValues(now.value, above.value, records.options().caseSensitive) == 0;
}

QString SectionMaker::text(const Item& item)
{
    if (item.kind == Item::Kind::Text || item.kind == Item::Kind::Picture) {
        QString text;
        for (const TextPiece& piece : item.pieces)
            text += piece.field ? fieldText(item, *piece.field) : piece.text;
        return text;
    }
    if (!item.formula || (item.blankRepeated && repeatsAbove(item)))
        return {};
    return fieldText(item, *item.formula);
}

void SectionMaker::fill(PlacedItem& placed, const QString& text)
{
    const Item& item = *placed.item;
    if (text.isEmpty())
        return;
    Letters& letters = m_letters.letters(item.style);
    if (item.grows) {
        placed.lines = letters.wrap(text, item.width * kUnits);
        const double needed = static_cast<double>(placed.lines.size()) * letters.lineHeight() / kUnits;
        placed.height = std::max(item.height, needed);
        return;
    }
    // A fixed field takes as many lines as its height shows, at least one.
    const auto room = static_cast<qsizetype>(item.height * kUnits / letters.lineHeight());
    if (room <= 1 && !text.contains(u'\n')) {
        placed.lines = QStringList{text};
        return;
    }
    placed.lines = letters.wrap(text, item.width * kUnits).mid(0, std::max<qsizetype>(room, 1));
}

SectionLayout SectionMaker::make(int section, const KeptTexts* kept)
{
    const Section& definition = m_execution.report().sections[static_cast<std::size_t>(section)];
    SectionLayout layout;
    if (kept == nullptr && suppressed(definition)) {
        layout.suppressed = true;
        return layout;
    }
    bool empty = true;
    for (std::size_t i = 0; i < definition.items.size(); ++i) {
        const Item& item = definition.items[i];
        // A suppressed item of a kept section has a null text.
        const bool hidden = kept != nullptr ? (*kept)[i].isNull()
                                            : item.suppress && !item.suppress->isEmpty() &&
                                                  m_execution.records().met(*item.suppress);
        QString shown = kept != nullptr ? (*kept)[i] : QString();
        if (!hidden && kept == nullptr) {
            shown = text(item);
            if (shown.isNull())
                shown = u""_s;
        }
        layout.texts.push_back(hidden ? QString() : shown);
        if (hidden)
            continue;
        PlacedItem placed;
        placed.item = &item;
        placed.height = item.kind == Item::Kind::Line ? item.toY - item.y : item.height;
        const bool standsIn = item.kind == Item::Kind::Picture && !item.pieces.empty();
        if (item.kind == Item::Kind::Text || item.kind == Item::Kind::Field || standsIn)
            fill(placed, shown);
        else if (item.kind == Item::Kind::Subreport)
            placed.strip = strip(item.subreport, placed.height);
        empty = empty && placed.lines.isEmpty() && placed.strip.empty();
        layout.items.push_back(std::move(placed));
    }
    if (empty && definition.suppressEmpty) {
        layout.suppressed = true;
        layout.items.clear();
        return layout;
    }
    const double growth = pushDown(layout.items);
    layout.height = definition.height + growth;
    for (PlacedItem& placed : layout.items)
        placed.height += placed.item->toFoot ? growth : 0;
    return layout;
}

/// A subreport knows no pages: its sections follow each other in one strip.
std::vector<PlacedSection> SectionMaker::strip(int subreport, double& height)
{
    std::vector<PlacedSection> placed;
    View& view = m_execution.enterSubreport(subreport);
    SectionMaker& inner = this->subreport(subreport);
    const Report& report = inner.m_execution.report();
    double y = 0;
    for (BandWalk walk(report, view); !walk.atEnd(); walk.next()) {
        inner.m_execution.records().setPosition(walk.band().position);
        for (const int section : walk.band().sections) {
            const SectionLayout layout = inner.make(section);
            if (layout.suppressed)
                continue;
            PlacedSection made;
            made.section = section;
            made.position = walk.band().position;
            made.y = y;
            made.height = layout.height;
            if (inner.keepsTexts(section))
                made.kept = std::make_shared<const KeptTexts>(layout.texts);
            y += layout.height;
            placed.push_back(std::move(made));
        }
    }
    height = std::max(height, y);
    return placed;
}

double SectionMaker::cutPoint(const SectionLayout& layout, double skipped, double room, LetterCase& letters)
{
    struct Whole
    {
        double top;
        double bottom;
    };
    std::vector<Whole> wholes;
    for (const PlacedItem& placed : layout.items) {
        if (!placed.lines.isEmpty()) {
            const double line = letters.letters(placed.item->style).lineHeight() / kUnits;
            for (qsizetype i = 0; i < placed.lines.size(); ++i)
                wholes.push_back(
                    {placed.y + static_cast<double>(i) * line, placed.y + static_cast<double>(i + 1) * line});
        }
        for (const PlacedSection& section : placed.strip)
            wholes.push_back({placed.y + section.y, placed.y + section.y + section.height});
    }
    double cut = skipped + room;
    bool moved = true;
    while (moved) {
        moved = false;
        for (const Whole& whole : wholes) {
            if (whole.top < cut - 0.001 && whole.bottom > cut + 0.001) {
                cut = whole.top;
                moved = true;
            }
        }
    }
    return std::max(0.0, cut - skipped);
}

} // namespace platform::print
