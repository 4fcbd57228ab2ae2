// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A report that has been started: its records are read and its pages made step by step; finished pages can be
// painted anywhere.

#include "platform/print/paint/pagepainter.h"

#include <memory>
#include <optional>

namespace platform::print {

/// How far a document has come. Only a complete one holds the whole report.
enum class DocumentStage {
    Reading,   ///< taking rows, sorting them: there are no pages yet
    Composing, ///< making pages
    Complete,
    Cancelled, ///< let go before there were pages
    Failed     ///< see `failure`; there are no pages
};

class Document
{
public:
    /// Takes the report; `folder` is that of the report file.
    Document(std::unique_ptr<Report> report, const QString& folder, const QDateTime& moment);

    /// Looks whether the report can be made: page, tables, columns, formulas. Throws `Problem`. Otherwise the
    /// stores are open, behind their gates, until `work` has read them.
    void begin(const TablePaths& paths, const std::vector<TablePaths>& subreportPaths);
    /// Reads or makes pages for about that long, one step at least. False when there is no more to do: see
    /// `stage`.
    bool work(int milliseconds);
    /// Reads what is to be read and makes page 1.
    void makeFirstPage();
    /// Reads what is to be read and makes every page.
    void makeAllPages();
    /// While it reads: lets go of the stores for good. Pages that are finished stay as they are.
    void cancel();
    /// `begin`, then everything up to page 1. Throws `Problem`.
    void start(const TablePaths& paths, const std::vector<TablePaths>& subreportPaths);

    [[nodiscard]] DocumentStage stage() const noexcept { return m_stage; }
    [[nodiscard]] bool isComplete() const noexcept { return m_stage == DocumentStage::Complete; }
    /// True while stores are open.
    [[nodiscard]] bool isReading() const noexcept { return m_execution->isReading(); }
    /// Why a document that has failed can't be made.
    [[nodiscard]] const std::optional<Problem>& failure() const noexcept { return m_failure; }
    [[nodiscard]] qint64 rowsRead() const noexcept { return m_execution->rowsRead(); }
    /// Pages that can be painted.
    [[nodiscard]] int pageCount() const noexcept;
    /// Paper size in millimetres.
    [[nodiscard]] QSizeF paper() const noexcept { return {m_report->page.width, m_report->page.height}; }
    [[nodiscard]] const Report& report() const noexcept { return *m_report; }
    /// The records are there once pages are made.
    [[nodiscard]] Execution& execution() noexcept { return *m_execution; }
    [[nodiscard]] int recordCount();
    /// The painter's unit is a hundredth of a millimetre, its origin the paper's corner.
    void paint(QPainter& painter, int page) { m_painter->paint(painter, page); }
    [[nodiscard]] QString pageText(int page) { return m_painter->pageText(page); }
    /// "3 registros con datos no válidos" and "1 secciones recortadas", or "" when there is nothing to note.
    [[nodiscard]] QString notes() const;
    /// Memory that the list of pages takes, in bytes.
    [[nodiscard]] qsizetype pageListBytes() const noexcept;

private:
    bool step();
    void compose();

    std::unique_ptr<Report> m_report;
    Pictures m_pictures;
    std::unique_ptr<Execution> m_execution;
    std::unique_ptr<LetterCase> m_letters;
    std::unique_ptr<SectionMaker> m_maker;
    std::unique_ptr<Paginator> m_paginator;
    std::unique_ptr<PagePainter> m_painter;
    DocumentStage m_stage = DocumentStage::Reading;
    std::optional<Problem> m_failure;
};

} // namespace platform::print
