// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Pages to a printer, in slices of the event loop.

#include "platform/print/output/document.h"

#include <QPainter>
#include <QTimer>

#include <functional>
#include <memory>

class QPrinter;

namespace platform::print {

struct PrintRequest
{
    QString device; ///< "" asks for the program's printer
    QString title;
    int copies = 1;
    bool collate = true;
    int firstPage = 0; ///< from 1; 0 is the first one
    int lastPage = 0;  ///< 0 is the last one
};

class PrintTask
{
public:
    /// Begins at once. Throws `Problem`: no such printer (14), the printing system refuses (15).
    PrintTask(std::shared_ptr<Document> document, const PrintRequest& request);
    ~PrintTask();
    PrintTask(const PrintTask&) = delete;
    PrintTask& operator=(const PrintTask&) = delete;

    /// Prints what is missing before it returns, with the waiting pointer.
    void finish();
    void cancel();
    [[nodiscard]] bool isDone() const noexcept { return m_done; }
    [[nodiscard]] bool failed() const noexcept { return m_failed; }

private:
    void work();
    bool printNext();
    void end();
    [[nodiscard]] int pageAt(int sheet) const;

    std::shared_ptr<Document> m_document;
    PrintRequest m_request;
    std::unique_ptr<QPrinter> m_printer;
    QPainter m_painter;
    QTimer m_timer;
    int m_first = 0;
    int m_count = 0;   ///< pages of one copy, known once all are made
    int m_repeats = 1; ///< copies that the printing system doesn't make itself
    int m_sheet = 0;
    bool m_begun = false;
    bool m_done = false;
    bool m_failed = false;
};

/// Replaces the choice of the device, for tests and tools that print to a file: it sets the printer up and
/// says whether it is there. An empty function brings the system's printers back.
void setPrinterSetup(std::function<bool(QPrinter&, const PrintRequest&)> setup);

} // namespace platform::print
