// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/output/preview.h"

#include "platform/print/formula/to_text.h"
#include "platform/print/output/exports.h"
#include "platform/print/output/pageview.h"
#include "platform/print/output/printers.h"
#include "platform/print/problem.h"

#include <QComboBox>
#include <QFileDialog>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollArea>
#include <QSpinBox>
#include <QStatusBar>

using namespace Qt::StringLiterals;

namespace platform::print {
namespace {

constexpr int kSliceMilliseconds = 30;
constexpr double kZoomStep = 1.25;

QString grouped(int number)
{
    return formula::formatNumber(number, 0, u".", u",");
}

} // namespace

PreviewWindow::PreviewWindow(std::shared_ptr<Document> document, const PreviewRequest& request,
                             const PrintRequest& printing)
    : m_document(std::move(document))
    , m_printing(printing)
    , m_canPrint(request.print)
    , m_showsProgress(request.progress)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(request.title);
    setGeometry(request.place);
    m_printing.title = request.title;
    m_area = new QScrollArea(this);
    m_area->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    m_area->setFocusPolicy(Qt::NoFocus);
    m_view = new PageView(m_document, m_area);
    m_area->setWidget(m_view);
    setCentralWidget(m_area);
    m_state = new QLabel(this);
    m_notes = new QLabel(this);
    statusBar()->addWidget(m_state);
    statusBar()->addPermanentWidget(m_notes);
    buildTools(request);
    m_view->installEventFilter(this);
    m_view->setFocus();
    m_timer.callOnTimeout(this, [this] { work(); });
    if (!m_document->isComplete())
        m_timer.start(0);
    goTo(0);
}

PreviewWindow::~PreviewWindow()
{
    // A print that the user began is not lost with its window.
    finishPrinting();
}

void PreviewWindow::work()
{
    if (!m_document->makePages(kSliceMilliseconds)) {
        m_timer.stop();
        m_view->refresh();
    }
    showState();
}

void PreviewWindow::showState()
{
    const int pages = m_document->pageCount();
    const bool running = m_timer.isActive();
    const QString total = grouped(pages) + (m_document->isComplete() ? u""_s : u"+"_s);
    QString text = u"Página %1 de %2"_s.arg(grouped(m_view->page() + 1), total);
    if (running && m_showsProgress)
        text = u"Componiendo página %1"_s.arg(grouped(pages + 1));
    if (m_cancelled)
        text += u" (cancelado)"_s;
    m_state->setText(text);
    m_notes->setText(m_document->notes());
    if (m_pageBox != nullptr) {
        const QSignalBlocker quiet(m_pageBox);
        m_pageBox->setMaximum(std::max(1, pages));
        m_pageBox->setValue(m_view->page() + 1);
    }
    const bool first = m_view->page() == 0;
    const bool last = m_view->page() + 1 >= pages;
    for (int i = 0; i < m_navigation.size(); ++i)
        m_navigation[i]->setEnabled(i < 2 ? !first : !last);
    if (m_cancel != nullptr)
        m_cancel->setEnabled(running);
}

void PreviewWindow::goTo(int page)
{
    m_view->showPage(page);
    m_area->ensureVisible(0, 0);
    showState();
}

void PreviewWindow::goPrevious()
{
    goTo(m_view->page() - 1);
}

void PreviewWindow::goNext()
{
    goTo(m_view->page() + 1);
}

void PreviewWindow::goLast()
{
    goTo(m_document->pageCount() - 1);
}

void PreviewWindow::cancelRun()
{
    if (!m_timer.isActive())
        return;
    m_timer.stop();
    m_cancelled = true;
    showState();
}

void PreviewWindow::printNow()
{
    try {
        m_tasks.push_back(std::make_unique<PrintTask>(m_document, m_printing));
        m_notes->setText(u"Imprimiendo"_s);
    } catch (const Problem& problem) {
        m_notes->setText(problem.text());
    }
}

void PreviewWindow::finishPrinting()
{
    for (const std::unique_ptr<PrintTask>& task : m_tasks)
        task->finish();
}

void PreviewWindow::choosePrinter()
{
    QStringList names;
    for (const Printer& printer : Printers())
        names += printer.DeviceName;
    if (names.isEmpty()) {
        m_notes->setText(u"no hay impresoras"_s);
        return;
    }
    bool chosen = false;
    const int now = std::max(0, static_cast<int>(names.indexOf(m_printing.device)));
    const QString name =
        QInputDialog::getItem(this, u"Configurar impresora"_s, u"Impresora:"_s, names, now, false, &chosen);
    if (chosen)
        m_printing.device = name;
}

void PreviewWindow::chooseExport()
{
    const QString path = QFileDialog::getSaveFileName(this, u"Exportar"_s, windowTitle() + u".pdf"_s,
                                                      u"PDF (*.pdf);;CSV (*.csv)"_s);
    if (!path.isEmpty() && !exportTo(path))
        m_notes->setText(u"no se puede escribir «%1»"_s.arg(path));
}

bool PreviewWindow::exportTo(const QString& path)
{
    const bool records = path.endsWith(u".csv"_s, Qt::CaseInsensitive);
    return records ? writeCsv(*m_document, path) : writePdf(*m_document, path, windowTitle());
}

void PreviewWindow::zoomBy(double factor)
{
    m_view->setZoom(m_view->zoom() * factor);
    if (m_zoom != nullptr)
        m_zoom->setEditText(u"%1 %"_s.arg(qRound(m_view->zoom() * 100)));
}

bool PreviewWindow::handleKey(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_PageUp:
        goPrevious();
        return true;
    case Qt::Key_PageDown:
        goNext();
        return true;
    case Qt::Key_Home:
        goFirst();
        return true;
    case Qt::Key_End:
        goLast();
        return true;
    case Qt::Key_Escape:
        cancelRun();
        return true;
    case Qt::Key_P:
        if (event->modifiers() != Qt::ControlModifier || !m_canPrint)
            return false;
        printNow();
        return true;
    default:
        return false;
    }
}

void PreviewWindow::keyPressEvent(QKeyEvent* event)
{
    if (!handleKey(event))
        QMainWindow::keyPressEvent(event);
}

/// Keys and wheel of the page, before the scroll area takes them for scrolling.
bool PreviewWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress && handleKey(static_cast<QKeyEvent*>(event)))
        return true;
    if (event->type() == QEvent::Wheel) {
        const auto* wheel = static_cast<QWheelEvent*>(event);
        if (wheel->modifiers() == Qt::ControlModifier) {
            zoomBy(wheel->angleDelta().y() > 0 ? kZoomStep : 1 / kZoomStep);
            return true;
        }
    }
    return QMainWindow::eventFilter(watched, event);
}

} // namespace platform::print
