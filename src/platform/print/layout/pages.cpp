// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/layout/pages.h"

#include <algorithm>

namespace platform::print {
namespace {

constexpr quint16 kRepeated = 1;
constexpr quint16 kCut = 2;
constexpr quint16 kHasRest = 4;

} // namespace

void PageList::beginPage(quint32 position)
{
    Page page;
    page.begin = static_cast<quint32>(m_placed.size());
    page.first = position;
    page.last = position;
    m_pages.push_back(page);
}

void PageList::add(PagePart part, const PlacedSection& section)
{
    quint16 flags = 0;
    flags |= section.repeated ? kRepeated : 0;
    flags |= section.cut ? kCut : 0;
    if (section.kept || section.skipped > 0) {
        flags |= kHasRest;
        m_rests.push_back(
            {static_cast<quint32>(m_placed.size()), static_cast<float>(section.skipped), section.kept});
    }
    m_placed.push_back({section.position, static_cast<float>(section.y), static_cast<float>(section.height),
                        static_cast<quint16>(section.section), flags});
    if (part == PagePart::Header)
        ++m_pages.back().headers;
    else if (part == PagePart::Footer)
        ++m_pages.back().footers;
}

std::size_t PageList::endOf(std::size_t page) const
{
    return page + 1 < m_pages.size() ? m_pages[page + 1].begin : m_placed.size();
}

PlacedSection PageList::unpacked(std::size_t place) const
{
    const Placed& placed = m_placed[place];
    PlacedSection section;
    section.section = placed.section;
    section.position = placed.position;
    section.y = placed.y;
    section.height = placed.height;
    section.repeated = (placed.flags & kRepeated) != 0;
    section.cut = (placed.flags & kCut) != 0;
    if ((placed.flags & kHasRest) != 0) {
        const auto rest =
            std::lower_bound(m_rests.begin(), m_rests.end(), place,
                             [](const Rest& left, std::size_t wanted) { return left.place < wanted; });
        section.skipped = rest->skipped;
        section.kept = rest->kept;
    }
    return section;
}

std::vector<PlacedSection> PageList::sections(int page, PagePart part) const
{
    const auto number = static_cast<std::size_t>(page);
    const Page& shown = m_pages[number];
    std::size_t begin = shown.begin;
    std::size_t end = endOf(number);
    if (part == PagePart::Header)
        end = begin + shown.headers;
    else if (part == PagePart::Footer)
        begin = end - shown.footers;
    else {
        begin += shown.headers;
        end -= shown.footers;
    }
    std::vector<PlacedSection> found;
    for (std::size_t place = begin; place < end; ++place)
        found.push_back(unpacked(place));
    return found;
}

qsizetype PageList::bytes() const noexcept
{
    const std::size_t held = m_pages.capacity() * sizeof(Page) + m_placed.capacity() * sizeof(Placed) +
                             m_rests.capacity() * sizeof(Rest);
    return static_cast<qsizetype>(held);
}

} // namespace platform::print
