// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A report that has been started: its records read, its pages made step by step, ready to be painted
// anywhere.

#include "platform/print/paint/pagepainter.h"

#include <memory>

namespace platform::print {

class Document
{
public:
    /// Takes the report; `folder` is that of the report file.
    Document(std::unique_ptr<Report> report, const QString& folder, const QDateTime& moment);

    /// Reads the stores and begins page 1. Throws `Problem`.
    void start(const TablePaths& paths, const std::vector<TablePaths>& subreportPaths);
    /// Makes pages for about that long. False when all are made.
    bool makePages(int milliseconds);
    void makeAllPages();

    [[nodiscard]] bool isComplete() const noexcept { return m_paginator && m_paginator->isComplete(); }
    /// Pages that can be painted.
    [[nodiscard]] int pageCount() const noexcept;
    /// Paper size in millimetres.
    [[nodiscard]] QSizeF paper() const noexcept { return {m_report->page.width, m_report->page.height}; }
    [[nodiscard]] const Report& report() const noexcept { return *m_report; }
    [[nodiscard]] Execution& execution() noexcept { return *m_execution; }
    [[nodiscard]] int recordCount();
    /// The painter's unit is a hundredth of a millimetre, its origin the paper's corner.
    void paint(QPainter& painter, int page) { m_painter->paint(painter, page); }
    [[nodiscard]] QString pageText(int page) { return m_painter->pageText(page); }
    /// "3 registros con datos no válidos", or "" when all were valid.
    [[nodiscard]] QString notes() const;

private:
    std::unique_ptr<Report> m_report;
    Pictures m_pictures;
    std::unique_ptr<Execution> m_execution;
    std::unique_ptr<LetterCase> m_letters;
    std::unique_ptr<SectionMaker> m_maker;
    std::unique_ptr<Paginator> m_paginator;
    std::unique_ptr<PagePainter> m_painter;
};

} // namespace platform::print
