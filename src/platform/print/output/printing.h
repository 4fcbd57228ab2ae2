// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Pages to a printer, in slices of the event loop.

#include "platform/print/output/outputtask.h"

#include <QPainter>

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

class PrintTask final : public OutputTask
{
public:
    /// Looks for the printer. Throws `Problem` (14) when it isn't there.
    explicit PrintTask(const PrintRequest& request);
    ~PrintTask() override;

    /// Begins to print, once. Throws `Problem` (15) when the printing system refuses.
    void begin(std::shared_ptr<Document> document);
    [[nodiscard]] QString state() const override;

private:
    bool step() override;
    bool close() override;
    void abandon() override;
    void countSheets();
    [[nodiscard]] int pageAt(int sheet) const;

    PrintRequest m_request;
    std::unique_ptr<QPrinter> m_printer;
    QPainter m_painter;
    int m_first = 0;
    int m_count = 0;   ///< pages of one copy, known once all are made
    int m_repeats = 1; ///< copies that the printing system doesn't make itself
    int m_sheets = 0;  ///< pages of all copies that we make
    int m_sheet = 0;
    bool m_counted = false;
};

/// Replaces the choice of the device, for tests and tools that print to a file: it sets the printer up and
/// says whether it is there. An empty function brings the system's printers back.
void setPrinterSetup(std::function<bool(QPrinter&, const PrintRequest&)> setup);

} // namespace platform::print
