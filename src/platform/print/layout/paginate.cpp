// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/layout/paginate.h"

#include "platform/print/problem.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace platform::print {
namespace {

constexpr double kLeastBody = 20;
/// Rounding of sums of millimetres.
constexpr double kSlack = 0.001;

double heightOf(const Report& report, SectionKind kind)
{
    double height = 0;
    for (const int number : sectionsOf(report, kind))
        height += report.sections[static_cast<std::size_t>(number)].height;
    return height;
}

/// Between the margins, less the page footer.
double fullHeight(const Report& report)
{
    return report.page.height - report.page.top - report.page.bottom -
           heightOf(report, SectionKind::PageFooter);
}

} // namespace

void Paginator::requireBody(const Report& report)
{
    const double body = fullHeight(report) - heightOf(report, SectionKind::PageHeader);
    if (body < kLeastBody || report.page.width <= report.page.left + report.page.right)
        throw Problem(kPageTooSmall, u"la página no deja sitio para el contenido"_s);
}

Paginator::Paginator(SectionMaker& maker, LetterCase& letters)
    : m_maker(maker)
    , m_letters(letters)
    , m_report(maker.execution().report())
    , m_view(*maker.execution().records().view())
    , m_walk(m_report, m_view)
    , m_fullHeight(fullHeight(m_report))
{
    startPage(0);
}

const Section& Paginator::section(int number) const
{
    return m_report.sections[static_cast<std::size_t>(number)];
}

int Paginator::finishedPages() const noexcept
{
    return m_pages.count() - (m_complete ? 0 : 1);
}

PageFacts Paginator::facts(int page) const
{
    PageFacts facts;
    facts.page = page + 1;
    facts.pageCount = m_pages.count();
    const auto restarts = [this](int i) { return m_pages.page(i).restarts; };
    int first = page;
    while (first > 0 && !restarts(first))
        --first;
    int end = page + 1;
    while (end < facts.pageCount && !restarts(end))
        ++end;
    facts.groupPage = page - first + 1;
    facts.groupPageCount = end - first;
    return facts;
}

PageFacts Paginator::currentFacts() const
{
    PageFacts facts;
    facts.page = m_pages.count();
    facts.pageCount = facts.page;
    facts.groupPage = m_groupPage;
    facts.groupPageCount = m_groupPage;
    return facts;
}

double Paginator::placePart(PagePart part, quint32 position)
{
    const SectionKind kind = part == PagePart::Header ? SectionKind::PageHeader : SectionKind::PageFooter;
    m_maker.execution().records().setPage(currentFacts());
    m_maker.execution().records().setPosition(position);
    double height = 0;
    for (const int number : sectionsOf(m_report, kind)) {
        const SectionLayout layout = m_maker.make(number);
        if (layout.suppressed)
            continue;
        PlacedSection made;
        made.section = number;
        made.position = position;
        made.y = height;
        made.height = layout.height;
        if (m_maker.keepsTexts(number))
            made.kept = std::make_shared<const KeptTexts>(layout.texts);
        height += layout.height;
        m_pages.add(part, made);
    }
    return height;
}

void Paginator::startPage(quint32 position)
{
    m_pages.beginPage(position);
    ++m_groupPage;
    // A header that grows leaves the body at least its least height.
    const double header = std::min(placePart(PagePart::Header, position), m_fullHeight - kLeastBody);
    m_pages.current().headerHeight = static_cast<float>(header);
    m_bodyHeight = m_fullHeight - header;
    m_y = 0;
    m_emptyBody = true;
    m_breakPending = false;
}

void Paginator::finishPage()
{
    placePart(PagePart::Footer, m_pages.current().last);
}

void Paginator::breakPage(quint32 position)
{
    finishPage();
    startPage(position);
    repeatHeaders(position);
}

/// Headers of the groups that go on, on the page just begun.
void Paginator::repeatHeaders(quint32 position)
{
    for (int level = 0; level < m_openGroups; ++level) {
        for (const int number : sectionsOf(m_report, SectionKind::GroupHeader, level)) {
            if (section(number).repeat)
                placeSection(number, position, true);
        }
    }
    m_emptyBody = true;
}

bool Paginator::step()
{
    if (m_complete)
        return false;
    if (m_walk.atEnd()) {
        finishPage();
        m_complete = true;
        return false;
    }
    placeBand(m_walk.band());
    m_walk.next();
    return true;
}

void Paginator::placeBand(const Band& band)
{
    // A page may have been painted since the last step.
    m_maker.execution().records().setPage(currentFacts());
    m_maker.execution().records().setPosition(band.position);
    if (band.kind == SectionKind::GroupHeader) {
        const Group& group = m_report.groups[static_cast<std::size_t>(band.group)];
        m_openGroups = band.group;
        if (group.newPage && !m_emptyBody)
            m_breakPending = true;
        if (m_breakPending || (!m_emptyBody && room() + kSlack < neededRoom(band)))
            breakPage(band.position);
        if (group.restartPages && m_emptyBody) {
            m_pages.current().restarts = true;
            m_groupPage = 1;
        }
    } else if (band.kind == SectionKind::Detail && !m_emptyBody && room() + kSlack < neededRoom(band)) {
        breakPage(band.position);
    }
    placeSections(band);
    if (band.kind == SectionKind::GroupHeader)
        m_openGroups = band.group + 1;
    if (band.kind == SectionKind::GroupFooter)
        m_openGroups = band.group;
}

/// Room that must be left for the band to begin on this page; 0 where nothing is asked.
double Paginator::neededRoom(const Band& band)
{
    if (band.kind == SectionKind::GroupHeader) {
        const Together together = m_report.groups[static_cast<std::size_t>(band.group)].together;
        if (together == Together::No)
            return 0;
        if (together == Together::All) {
            const double whole = groupHeight(band);
            if (whole <= m_bodyHeight)
                return whole;
        }
        double needed = 0;
        for (const Band& header : m_walk.headersAt(band.position, band.group))
            needed += measured(header);
        return std::min(needed + measured(m_walk.detailAt(band.position)), m_bodyHeight);
    }
    // The last detail goes along with a footer that would stand alone.
    double needed = measured(band);
    for (const Band& footer : m_walk.footersAt(band.position)) {
        if (!footer.sections.empty() && section(footer.sections.front()).newPageBefore)
            break;
        needed += measured(footer);
    }
    return needed <= m_bodyHeight ? needed : 0;
}

double Paginator::measured(const Band& band)
{
    const quint32 here = m_maker.execution().records().position();
    m_maker.execution().records().setPosition(band.position);
    double height = 0;
    for (const int number : band.sections)
        height += m_maker.keepsTexts(number) ? section(number).height : m_maker.height(number);
    m_maker.execution().records().setPosition(here);
    return height;
}

/// Height of a whole group; stops counting once it can't fit a page.
double Paginator::groupHeight(const Band& header)
{
    double height = 0;
    BandWalk ahead = m_walk;
    while (!ahead.atEnd() && height <= m_bodyHeight) {
        height += measured(ahead.band());
        const bool last = ahead.band().kind == SectionKind::GroupFooter && ahead.band().group == header.group;
        if (last)
            break;
        ahead.next();
    }
    return height;
}

void Paginator::placeSections(const Band& band)
{
    for (std::size_t i = 0; i < band.sections.size(); ++i) {
        const int number = band.sections[i];
        m_maker.execution().records().setPosition(band.position);
        if (section(number).atFoot) {
            placeAtFoot(band, i);
            return;
        }
        placeSection(number, band.position, false);
    }
}

void Paginator::placeSection(int number, quint32 position, bool repeated)
{
    Records& records = m_maker.execution().records();
    PageFacts facts = currentFacts();
    facts.repeatedHeader = repeated;
    records.setPage(facts);
    records.setPosition(position);
    const Section& definition = section(number);
    const bool plain = !m_maker.keepsTexts(number);
    std::shared_ptr<const KeptTexts> kept;
    SectionLayout layout;
    double height = 0;
    if (plain) {
        height = m_maker.height(number);
    } else {
        layout = m_maker.make(number);
        height = layout.height;
        kept = std::make_shared<const KeptTexts>(layout.texts);
    }
    if (height <= 0)
        return;
    if (!repeated && (m_breakPending || (definition.newPageBefore && !m_emptyBody)))
        breakPage(position);
    double block = height;
    // "junto" keeps a section with the next one of its band.
    if (definition.together && !repeated) {
        const std::vector<int> band = sectionsOf(m_report, definition.kind, definition.group);
        const auto here = std::find(band.begin(), band.end(), number);
        if (here + 1 != band.end() && plain)
            block += m_maker.height(*(here + 1));
    }
    if (!repeated && !m_emptyBody && room() + kSlack < std::min(block, m_bodyHeight))
        breakPage(position);
    if (height > room() + kSlack) {
        // A repeated header that leaves no room is left out rather than cut.
        if (repeated)
            return;
        records.setPosition(position);
        placeCut(number, position, plain ? m_maker.make(number) : layout);
    } else {
        PlacedSection placed;
        placed.section = number;
        placed.position = position;
        placed.height = height;
        placed.repeated = repeated;
        placed.kept = std::move(kept);
        put(std::move(placed));
    }
    m_breakPending = definition.newPageAfter && !repeated;
}

/// A section higher than the body goes on over several pages; each takes at least one line of it.
void Paginator::placeCut(int number, quint32 position, const SectionLayout& layout)
{
    PlacedSection placed;
    placed.section = number;
    placed.position = position;
    placed.cut = true;
    placed.kept = std::make_shared<const KeptTexts>(layout.texts);
    while (placed.skipped + kSlack < layout.height) {
        const double left = layout.height - placed.skipped;
        double part = left <= room() + kSlack
                          ? left
                          : SectionMaker::cutPoint(layout, placed.skipped, room(), m_letters);
        if (part <= kSlack && !m_emptyBody) {
            breakPage(position);
            continue;
        }
        if (part <= kSlack) {
            // Nothing can be cut here: it is clipped at the page's end.
            part = std::max(room(), kSlack * 2);
            ++m_clipped;
        }
        placed.height = part;
        put(placed);
        placed.skipped += part;
        if (placed.skipped + kSlack < layout.height)
            breakPage(position);
    }
}

void Paginator::placeAtFoot(const Band& band, std::size_t from)
{
    double height = 0;
    for (std::size_t i = from; i < band.sections.size(); ++i)
        height += m_maker.height(band.sections[i]);
    if (height <= 0)
        return;
    if (m_breakPending || (room() + kSlack < height && !m_emptyBody))
        breakPage(band.position);
    m_y = std::max(m_y, m_bodyHeight - height);
    for (std::size_t i = from; i < band.sections.size(); ++i)
        placeSection(band.sections[i], band.position, false);
}

void Paginator::put(PlacedSection placed)
{
    placed.y = m_y;
    m_pages.add(PagePart::Body, placed);
    m_pages.current().last = placed.position;
    m_y += placed.height;
    m_emptyBody = m_emptyBody && placed.repeated;
}

} // namespace platform::print
