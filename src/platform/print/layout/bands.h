// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The bands of a report in print order: report header, then for each record the headers of the groups that
// begin, the detail, the footers of the groups that end; report footer. Without records: the section
// "sin-datos".

#include "platform/print/data/view.h"
#include "platform/print/definition/model.h"

#include <vector>

namespace platform::print {

struct Band
{
    SectionKind kind = SectionKind::Detail;
    int group = -1;
    quint32 position = 0;
    std::vector<int> sections; ///< a, b, c
};

/// Sections of a kind, and of a group where that matters, from a on.
[[nodiscard]] std::vector<int> sectionsOf(const Report& report, SectionKind kind, int group = -1);

class BandWalk
{
public:
    /// Both are kept by reference.
    BandWalk(const Report& report, const View& view);

    [[nodiscard]] bool atEnd() const noexcept { return m_stage == Stage::End; }
    [[nodiscard]] const Band& band() const noexcept { return m_band; }
    void next();
    /// Footers that follow the detail of this position, innermost first, as bands.
    [[nodiscard]] std::vector<Band> footersAt(quint32 position) const;
    /// Headers of the groups from `level` on that begin at this position.
    [[nodiscard]] std::vector<Band> headersAt(quint32 position, int level) const;
    [[nodiscard]] Band detailAt(quint32 position) const;

private:
    enum class Stage { Start, Header, Detail, Footer, ReportFooter, End };

    void set(SectionKind kind, int group);
    void enterRecord();
    void leaveDetail();

    const Report& m_report;
    const View& m_view;
    Stage m_stage = Stage::Start;
    int m_level = 0;
    Band m_band;
    std::vector<std::vector<int>> m_headers;
    std::vector<std::vector<int>> m_footers;
    std::vector<int> m_details;
};

} // namespace platform::print
