// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/output/printing.h"

#include "platform/print/formula/to_text.h"
#include "platform/print/output/printers.h"
#include "platform/print/problem.h"

#include <QPrinter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace platform::print {
namespace {

constexpr int kResolution = 600;

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

PrintTask::PrintTask(const PrintRequest& request)
    : m_request(request)
    , m_printer(std::make_unique<QPrinter>(QPrinter::HighResolution))
{
    if (!selectDevice(*m_printer, request))
        throw Problem(kPrinter, u"la impresora «%1» no existe"_s.arg(request.device));
}

PrintTask::~PrintTask()
{
    cancel();
}

void PrintTask::begin(std::shared_ptr<Document> document)
{
    const QSizeF paper = document->paper();
    m_printer->setResolution(kResolution);
    m_printer->setDocName(m_request.title);
    m_printer->setFullPage(true);
    const QPageSize size(paper, QPageSize::Millimeter, {}, QPageSize::FuzzyOrientationMatch);
    const bool across = paper.width() > paper.height();
    m_printer->setPageLayout(
        QPageLayout(size, across ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF(0, 0, 0, 0)));
    if (m_printer->supportsMultipleCopies()) {
        m_printer->setCopyCount(m_request.copies);
        m_printer->setCollateCopies(m_request.collate);
    } else {
        m_repeats = m_request.copies;
    }
    if (!m_painter.begin(m_printer.get()))
        throw Problem(kPrintingRefused, u"el sistema de impresión no acepta el trabajo"_s);
    run(std::move(document));
}

/// Number of the page on a sheet: collated copies go page by page, others copy by copy of each page.
int PrintTask::pageAt(int sheet) const
{
    return m_first + (m_request.collate ? sheet % m_count : sheet / m_repeats);
}

void PrintTask::countSheets()
{
    const int pages = document().pageCount();
    m_first = std::clamp(m_request.firstPage - 1, 0, pages);
    const int last = m_request.lastPage > 0 ? std::min(m_request.lastPage, pages) : pages;
    m_count = std::max(0, last - m_first);
    m_sheets = m_count * m_repeats;
    m_counted = true;
}

bool PrintTask::step()
{
    if (!m_counted)
        countSheets();
    if (m_sheet >= m_sheets)
        return false;
    if (m_sheet > 0)
        m_printer->newPage();
    const double scale = m_printer->resolution() / 25.4 / kUnits;
    m_painter.save();
    m_painter.scale(scale, scale);
    document().paint(m_painter, pageAt(m_sheet));
    m_painter.restore();
    ++m_sheet;
    return true;
}

bool PrintTask::close()
{
    return m_painter.end() && m_printer->printerState() != QPrinter::Error;
}

void PrintTask::abandon()
{
    if (!m_painter.isActive())
        return;
    m_printer->abort();
    m_painter.end();
}

QString PrintTask::state() const
{
    if (isDone())
        return failed() ? u"No se ha impreso"_s : u"Impreso"_s;
    return m_counted
               ? u"Imprimiendo página %1 de %2"_s.arg(formula::grouped(m_sheet), formula::grouped(m_sheets))
               : u"Imprimiendo"_s;
}

} // namespace platform::print
