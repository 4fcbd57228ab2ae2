// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/data/view.h"

#include <algorithm>

namespace platform::print {

std::size_t View::groupAt(std::size_t level, quint32 position) const noexcept
{
    const std::vector<Span>& spans = groups[level];
    const auto after = std::upper_bound(spans.begin(), spans.end(), position,
                                        [](quint32 wanted, const Span& span) { return wanted < span.first; });
    return static_cast<std::size_t>(after - spans.begin()) - 1;
}

bool View::startsGroup(std::size_t level, quint32 position) const noexcept
{
    return groups[level][groupAt(level, position)].first == position;
}

bool View::endsGroup(std::size_t level, quint32 position) const noexcept
{
    return groups[level][groupAt(level, position)].last == position;
}

} // namespace platform::print
