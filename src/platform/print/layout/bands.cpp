// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/layout/bands.h"

namespace platform::print {

std::vector<int> sectionsOf(const Report& report, SectionKind kind, int group)
{
    std::vector<int> found;
    for (std::size_t i = 0; i < report.sections.size(); ++i) {
        const Section& section = report.sections[i];
        if (section.kind == kind && section.group == group)
            found.push_back(static_cast<int>(i));
    }
    return found;
}

BandWalk::BandWalk(const Report& report, const View& view)
    : m_report(report)
    , m_view(view)
    , m_details(sectionsOf(report, SectionKind::Detail))
{
    for (std::size_t i = 0; i < report.groups.size(); ++i) {
        m_headers.push_back(sectionsOf(report, SectionKind::GroupHeader, static_cast<int>(i)));
        m_footers.push_back(sectionsOf(report, SectionKind::GroupFooter, static_cast<int>(i)));
    }
    m_band.sections = sectionsOf(report, view.size() == 0 ? SectionKind::NoData : SectionKind::ReportHeader);
    m_band.kind = view.size() == 0 ? SectionKind::NoData : SectionKind::ReportHeader;
}

void BandWalk::set(SectionKind kind, int group)
{
    const auto level = static_cast<std::size_t>(group);
    m_band.kind = kind;
    m_band.group = group;
    m_band.sections = kind == SectionKind::Detail        ? m_details
                      : kind == SectionKind::GroupHeader ? m_headers[level]
                                                         : m_footers[level];
}

void BandWalk::next()
{
    const int levels = static_cast<int>(m_headers.size());
    switch (m_stage) {
    case Stage::Start:
        if (m_view.size() == 0)
            m_stage = Stage::End;
        else
            enterRecord();
        return;
    case Stage::Header:
        if (++m_level < levels) {
            set(SectionKind::GroupHeader, m_level);
        } else {
            m_stage = Stage::Detail;
            set(SectionKind::Detail, -1);
        }
        return;
    case Stage::Detail:
        m_level = levels;
        m_stage = Stage::Footer;
        leaveDetail();
        return;
    case Stage::Footer:
        leaveDetail();
        return;
    case Stage::ReportFooter:
    case Stage::End:
        m_stage = Stage::End;
        return;
    }
}

/// Goes to the first header of the record, or to its detail.
void BandWalk::enterRecord()
{
    const int levels = static_cast<int>(m_headers.size());
    for (m_level = 0; m_level < levels; ++m_level) {
        if (m_view.startsGroup(static_cast<std::size_t>(m_level), m_band.position)) {
            m_stage = Stage::Header;
            set(SectionKind::GroupHeader, m_level);
            return;
        }
    }
    m_stage = Stage::Detail;
    set(SectionKind::Detail, -1);
}

/// Goes to the next footer outwards, else to the next record, else to the report's footer.
void BandWalk::leaveDetail()
{
    if (m_level > 0 && m_view.endsGroup(static_cast<std::size_t>(m_level - 1), m_band.position)) {
        --m_level;
        set(SectionKind::GroupFooter, m_level);
        return;
    }
    if (m_band.position + 1 < m_view.size()) {
        ++m_band.position;
        enterRecord();
        return;
    }
    m_stage = Stage::ReportFooter;
    m_band.kind = SectionKind::ReportFooter;
    m_band.group = -1;
    m_band.sections = sectionsOf(m_report, SectionKind::ReportFooter);
}

std::vector<Band> BandWalk::footersAt(quint32 position) const
{
    std::vector<Band> bands;
    for (std::size_t level = m_footers.size(); level-- > 0 && m_view.endsGroup(level, position);)
        bands.push_back({SectionKind::GroupFooter, static_cast<int>(level), position, m_footers[level]});
    return bands;
}

std::vector<Band> BandWalk::headersAt(quint32 position, int level) const
{
    std::vector<Band> bands;
    for (auto i = static_cast<std::size_t>(level); i < m_headers.size(); ++i) {
        if (m_view.startsGroup(i, position))
            bands.push_back({SectionKind::GroupHeader, static_cast<int>(i), position, m_headers[i]});
    }
    return bands;
}

Band BandWalk::detailAt(quint32 position) const
{
    return {SectionKind::Detail, -1, position, m_details};
}

} // namespace platform::print
