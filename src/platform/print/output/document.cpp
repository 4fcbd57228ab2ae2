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

void Document::begin(const TablePaths& paths, const std::vector<TablePaths>& subreportPaths)
{
    Paginator::requireBody(*m_report);
    m_execution->begin(paths, subreportPaths);
}

void Document::start(const TablePaths& paths, const std::vector<TablePaths>& subreportPaths)
{
    begin(paths, subreportPaths);
    makeFirstPage();
    if (m_failure)
        throw Problem(*m_failure);
}

/// The records are there: pages can be made.
void Document::compose()
{
    m_letters = std::make_unique<LetterCase>(m_report->styles);
    m_maker = std::make_unique<SectionMaker>(*m_execution, *m_letters);
    m_paginator = std::make_unique<Paginator>(*m_maker, *m_letters);
    m_painter = std::make_unique<PagePainter>(*m_paginator, *m_maker, *m_letters, m_pictures);
    m_stage = DocumentStage::Composing;
}

bool Document::step()
{
    if (m_stage == DocumentStage::Composing) {
        if (m_paginator->step())
            return true;
        m_stage = DocumentStage::Complete;
    }
    if (m_stage != DocumentStage::Reading)
        return false;
    try {
        if (!m_execution->step())
            compose();
        return true;
    } catch (const Problem& problem) {
        m_failure = problem;
        m_stage = DocumentStage::Failed;
        return false;
    }
}

bool Document::work(int milliseconds)
{
    QElapsedTimer timer;
    timer.start();
    do {
        if (!step())
            return false;
    } while (timer.elapsed() < milliseconds);
    return true;
}

void Document::makeFirstPage()
{
    while (pageCount() == 0 && step()) {
    }
}

void Document::makeAllPages()
{
    while (step()) {
    }
}

void Document::cancel()
{
    if (m_stage != DocumentStage::Reading)
        return;
    m_execution->cancel();
    m_stage = DocumentStage::Cancelled;
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
    const auto counted = [](int count, const QString& what) {
        return count == 0 ? QString() : formula::grouped(count) + what;
    };
    QStringList notes{counted(m_execution->invalidCount(), u" registros con datos no válidos"_s),
                      counted(m_paginator ? m_paginator->clippedCount() : 0, u" secciones recortadas"_s)};
    notes.removeAll(QString());
    return notes.join(u", "_s);
}

qsizetype Document::pageListBytes() const noexcept
{
    return m_paginator ? m_paginator->pages().bytes() : 0;
}

} // namespace platform::print
