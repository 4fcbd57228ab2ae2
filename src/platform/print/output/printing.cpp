// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/output/printing.h"

#include "platform/print/output/printers.h"
#include "platform/print/problem.h"

#include <QCursor>
#include <QGuiApplication>
#include <QPrinter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace platform::print {
namespace {

constexpr int kResolution = 600;
constexpr int kSliceMilliseconds = 30;

std::function<bool(QPrinter&, const PrintRequest&)> printerSetup;

/// An unknown name silently keeps another printer, so the name is compared afterwards.
bool selectDevice(QPrinter& printer, const PrintRequest& request)
{
    if (printerSetup)
        return printerSetup(printer, request);
    const QString device = request.device.isEmpty() ? currentPrinter().DeviceName : request.device;
    if (device.isEmpty())
        return false;
    printer.setPrinterName(device);
    return printer.printerName() == device;
}

} // namespace

void setPrinterSetup(std::function<bool(QPrinter&, const PrintRequest&)> setup)
{
    printerSetup = std::move(setup);
}

PrintTask::PrintTask(std::shared_ptr<Document> document, const PrintRequest& request)
    : m_document(std::move(document))
    , m_request(request)
    , m_printer(std::make_unique<QPrinter>(QPrinter::HighResolution))
{
    if (!selectDevice(*m_printer, request))
        throw Problem(kPrinter, u"la impresora «%1» no existe"_s.arg(request.device));
    m_printer->setResolution(kResolution);
    m_printer->setDocName(request.title);
    m_printer->setFullPage(true);
    const QPageSize size(m_document->paper(), QPageSize::Millimeter, {}, QPageSize::FuzzyOrientationMatch);
    const bool across = m_document->paper().width() > m_document->paper().height();
    m_printer->setPageLayout(
        QPageLayout(size, across ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF(0, 0, 0, 0)));
    if (m_printer->supportsMultipleCopies()) {
        m_printer->setCopyCount(request.copies);
        m_printer->setCollateCopies(request.collate);
    } else {
        m_repeats = request.copies;
    }
    if (!m_painter.begin(m_printer.get()))
        throw Problem(kPrintingRefused, u"el sistema de impresión no acepta el trabajo"_s);
    m_timer.callOnTimeout([this] { work(); });
    m_timer.start(0);
}

PrintTask::~PrintTask()
{
    if (!m_done)
        cancel();
}

void PrintTask::work()
{
    // Totals over all pages stand on the first one, so all pages are made before it is printed.
    if (m_document->makePages(kSliceMilliseconds))
        return;
    if (!printNext())
        end();
}

/// Number of the page on a sheet: collated copies go page by page, others copy by copy of each page.
int PrintTask::pageAt(int sheet) const
{
    return m_first + (m_request.collate ? sheet % m_count : sheet / m_repeats);
}

bool PrintTask::printNext()
{
    if (!m_begun) {
        m_begun = true;
        const int pages = m_document->pageCount();
        m_first = std::clamp(m_request.firstPage - 1, 0, pages);
        const int last = m_request.lastPage > 0 ? std::min(m_request.lastPage, pages) : pages;
        m_count = std::max(0, last - m_first);
    }
    if (m_sheet >= m_count * m_repeats)
        return false;
    if (m_sheet > 0)
        m_printer->newPage();
    const double scale = m_printer->resolution() / 25.4 / kUnits;
    m_painter.save();
    m_painter.scale(scale, scale);
    m_document->paint(m_painter, pageAt(m_sheet));
    m_painter.restore();
    ++m_sheet;
    return true;
}

void PrintTask::end()
{
    m_timer.stop();
    m_done = true;
    m_failed = !m_painter.end() || m_printer->printerState() == QPrinter::Error;
}

void PrintTask::finish()
{
    if (m_done)
        return;
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    m_document->makeAllPages();
    while (printNext()) {
    }
    end();
    QGuiApplication::restoreOverrideCursor();
}

void PrintTask::cancel()
{
    m_timer.stop();
    m_printer->abort();
    m_painter.end();
    m_done = true;
    m_failed = true;
}

} // namespace platform::print
