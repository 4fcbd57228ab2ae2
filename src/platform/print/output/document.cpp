// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/output/document.h"

#include "platform/print/formula/to_text.h"

#include <QElapsedTimer>

using namespace Qt::StringLiterals;

namespace platform::print {
namespace {

/// A report without a section for "no data" says it in its own words.
void completeNoData(Report& report)
{
    for (const Section& section : report.sections) {
        if (section.kind == SectionKind::NoData)
            return;
    }
    Section section;
    section.kind = SectionKind::NoData;
    section.height = 10;
    Item item;
    item.width = report.page.width - report.page.left - report.page.right;
    item.height = 8;
    item.pieces.push_back({u"No hay datos para la selección."_s, std::nullopt});
    section.items.push_back(std::move(item));
    report.sections.push_back(std::move(section));
}

} // namespace

Document::Document(std::unique_ptr<Report> report, const QString& folder, const QDateTime& moment)
    : m_report(std::move(report))
    , m_pictures(folder)
{
    completeNoData(*m_report);
    m_execution = std::make_unique<Execution>(*m_report, moment);
}

void Document::start(const TablePaths& paths, const std::vector<TablePaths>& subreportPaths)
{
    m_execution->run(paths, subreportPaths);
    m_letters = std::make_unique<LetterCase>(m_report->styles);
    m_maker = std::make_unique<SectionMaker>(*m_execution, *m_letters);
    m_paginator = std::make_unique<Paginator>(*m_maker, *m_letters);
    m_painter = std::make_unique<PagePainter>(*m_paginator, *m_maker, *m_letters, m_pictures);
    while (pageCount() == 0 && m_paginator->step()) {
    }
}

bool Document::makePages(int milliseconds)
{
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < milliseconds) {
        if (!m_paginator->step())
            return false;
    }
    return true;
}

void Document::makeAllPages()
{
    while (m_paginator->step()) {
    }
}

int Document::pageCount() const noexcept
{
    return m_paginator ? m_paginator->finishedPages() : 0;
}

int Document::recordCount()
{
    return static_cast<int>(m_execution->records().view()->size());
}

QString Document::notes() const
{
    const int invalid = m_execution->invalidCount();
    if (invalid == 0)
        return {};
    return u"%1 registros con datos no válidos"_s.arg(formula::formatNumber(invalid, 0, u".", u","));
}

} // namespace platform::print
