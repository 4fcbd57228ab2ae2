// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Puts the bands of a report on pages, step by step, so that the first pages can be shown while the rest
// follows.

#include "platform/print/layout/bands.h"
#include "platform/print/layout/pages.h"

namespace platform::print {

class Paginator
{
public:
    /// Throws `Problem` 16 when less than 20 mm stay for the body.
    static void requireBody(const Report& report);

    /// For a report that has a body.
    Paginator(SectionMaker& maker, LetterCase& letters);

    /// Places one band. False when all of them are placed.
    bool step();
    [[nodiscard]] bool isComplete() const noexcept { return m_complete; }
    /// Pages that are finished; the last one of them may still grow until the report is complete.
    [[nodiscard]] const PageList& pages() const noexcept { return m_pages; }
    [[nodiscard]] int finishedPages() const noexcept;
    /// Sections that didn't fit a page and couldn't be cut.
    [[nodiscard]] int clippedCount() const noexcept { return m_clipped; }
    /// Page number and counts; the counts are right once the report is complete.
    [[nodiscard]] PageFacts facts(int page) const;

private:
    void startPage(quint32 position);
    void finishPage();
    void breakPage(quint32 position);
    void placeBand(const Band& band);
    void placeSections(const Band& band);
    void placeSection(int section, quint32 position, bool repeated);
    void placeCut(int section, quint32 position, const SectionLayout& layout);
    void placeAtFoot(const Band& band, std::size_t from);
    /// At the present place of the body, `y` left to be set.
    void put(PlacedSection placed);
    void repeatHeaders(quint32 position);
    [[nodiscard]] double measured(const Band& band);
    [[nodiscard]] double neededRoom(const Band& band);
    [[nodiscard]] double groupHeight(const Band& header);
    [[nodiscard]] double room() const noexcept { return m_bodyHeight - m_y; }
    [[nodiscard]] const Section& section(int number) const;
    /// Of the page under way; the counts aren't known yet.
    [[nodiscard]] PageFacts currentFacts() const;
    /// Places the sections of the page's header or footer; their height.
    double placePart(PagePart part, quint32 position);

    SectionMaker& m_maker;
    LetterCase& m_letters;
    const Report& m_report;
    View& m_view;
    BandWalk m_walk;
    PageList m_pages;
    double m_fullHeight = 0; ///< between the margins, less the page footer
    double m_bodyHeight = 0;
    double m_y = 0;
    bool m_emptyBody = true; ///< nothing but repeated headers stands on the page yet
    bool m_breakPending = false;
    bool m_complete = false;
    int m_clipped = 0;
    int m_groupPage = 0;  ///< of the page under way, from 1 since the count last began
    int m_openGroups = 0; ///< groups, from the outermost, whose header has been placed
};

} // namespace platform::print
