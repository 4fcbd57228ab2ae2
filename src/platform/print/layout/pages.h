// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The pages of a report as lists of what stands on them: less than 2 KB for a page of 60 lines, so that a
// long report stays in memory whole. Lengths are millimetres.

#include "platform/print/layout/section.h"

#include <vector>

namespace platform::print {

enum class PagePart { Header, Body, Footer };

class PageList
{
public:
    /// What a page is besides its sections.
    struct Page
    {
        quint32 begin = 0;   ///< its first section in the list of all
        quint16 headers = 0; ///< how many sections its header has
        quint16 footers = 0; ///< and its footer
        quint32 first = 0;   ///< record that the page header shows
        quint32 last = 0;    ///< record that the page footer shows
        float headerHeight = 0;
        bool restarts = false; ///< the count of a group begins here
    };

    [[nodiscard]] int count() const noexcept { return static_cast<int>(m_pages.size()); }
    [[nodiscard]] const Page& page(int page) const { return m_pages[static_cast<std::size_t>(page)]; }
    /// The page under way, the last one.
    [[nodiscard]] Page& current() { return m_pages.back(); }
    /// Sections of a page, from the top down; y counts from the top of their part.
    [[nodiscard]] std::vector<PlacedSection> sections(int page, PagePart part) const;

    void beginPage(quint32 position);
    /// To the page under way: its header first, then the body, then the footer.
    void add(PagePart part, const PlacedSection& section);

    /// Bytes of the list, without the texts that are kept for formulas with variables.
    [[nodiscard]] qsizetype bytes() const noexcept;

private:
    struct Placed
    {
        quint32 position;
        float y;
        float height;
        quint16 section;
        quint16 flags;
    };
    /// What few sections have.
    struct Rest
    {
        quint32 place; ///< in the list of all
        float skipped;
        std::shared_ptr<const KeptTexts> kept;
    };

    [[nodiscard]] std::size_t endOf(std::size_t page) const;
    [[nodiscard]] PlacedSection unpacked(std::size_t place) const;

    std::vector<Page> m_pages;
    std::vector<Placed> m_placed; ///< page after page
    std::vector<Rest> m_rests;    ///< by place
};

} // namespace platform::print
