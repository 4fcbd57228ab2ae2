// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/output/preview.h"

#include "platform/print/formula/to_text.h"
#include "platform/print/output/exports.h"
#include "platform/print/output/pageview.h"
#include "platform/print/output/printers.h"
#include "platform/print/problem.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollArea>
#include <QSpinBox>
#include <QStatusBar>
#include <QStyleOption>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace platform::print {

using formula::grouped;

namespace {

constexpr double kZoomStep = 1.25;

/// Stays where it is scrolled to when Tab leaves the page for the tools, and shows the page's focus in its
/// frame: the page itself may be larger than what is in view.
class PageArea final : public QScrollArea
{
public:
    using QScrollArea::QScrollArea;

protected:
    void initStyleOption(QStyleOptionFrame* option) const override
    {
        QScrollArea::initStyleOption(option);
        if (widget() && widget()->hasFocus())
            option->state |= QStyle::State_HasFocus;
    }
    bool focusNextPrevChild(bool next) override
    {
        return QWidget::focusNextPrevChild(next); // NOLINT(bugprone-parent-virtual-call)
    }
};

/// The list that a combo of the file dialog drops bears the words of the combo's label. The dialog doesn't
/// join the two; it only names them alike.
void nameLists(const QFileDialog& dialog)
{
    for (const auto* combo : dialog.findChildren<QComboBox*>()) {
        const QString twin = combo->objectName().replace(u"Combo"_s, u"Label"_s);
        if (const auto* label = dialog.findChild<QLabel*>(twin))
            combo->view()->setAccessibleName(label->text().remove(u'&'));
    }
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
    m_area = new PageArea(this);
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
    m_slices.start();
    follow();
}

PreviewWindow::~PreviewWindow()
{
    m_slices.stop();
    for (const std::unique_ptr<OutputTask>& task : m_tasks)
        task->setProgress({});
    // A print that the user began is not lost with its window.
    finishPrinting();
    m_tasks.clear();
    m_document->cancel();
}

void PreviewWindow::work()
{
    if (!m_document->work(kSliceMilliseconds))
        m_slices.stop();
    follow();
}

/// Shows what has been made since it was called last, by this window or by a print of it.
void PreviewWindow::follow()
{
    if (!m_hasPages && m_document->pageCount() > 0) {
        m_hasPages = true;
        goTo(0);
    }
    if (!m_isComplete && m_document->isComplete()) {
        m_isComplete = true;
        m_view->refresh();
    }
    showState();
}

bool PreviewWindow::wasCancelled() const
{
    return m_cancelled && !m_document->isComplete();
}

bool PreviewWindow::isRunning() const
{
    return m_slices.isActive() ||
           std::any_of(m_tasks.begin(), m_tasks.end(),
                       [](const std::unique_ptr<OutputTask>& task) { return !task->isDone(); });
}

QString PreviewWindow::stateText() const
{
    const int pages = m_document->pageCount();
    const bool composes = m_slices.isActive() && m_showsProgress;
    QString text;
    if (m_document->failure())
        text = m_document->failure()->text();
    else if (composes && m_document->stage() == DocumentStage::Reading)
        text = u"Leyendo registros: %1"_s.arg(grouped(m_document->rowsRead()));
    else if (composes)
        text = u"Componiendo página %1"_s.arg(grouped(pages + 1));
    else if (pages > 0)
        text = u"Página %1 de %2"_s.arg(grouped(m_view->page() + 1), grouped(pages)) +
               (m_document->isComplete() ? u""_s : u"+"_s);
    else if (wasCancelled())
        text = u"Sin páginas"_s;
    return wasCancelled() ? text + u" (cancelado)"_s : text;
}

QString PreviewWindow::notesText() const
{
    QStringList notes{m_document->notes(), m_message};
    if (m_message.isEmpty() && !m_tasks.empty())
        notes += m_tasks.back()->state();
    notes.removeAll(QString());
    return notes.join(u" · "_s);
}

void PreviewWindow::showState()
{
    const int pages = m_document->pageCount();
    m_state->setText(stateText());
    m_notes->setText(notesText());
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
        m_cancel->setEnabled(isRunning());
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
    for (const std::unique_ptr<OutputTask>& task : m_tasks)
        task->cancel();
    if (m_slices.isActive()) {
        m_slices.stop();
        m_document->cancel();
        m_cancelled = true;
    }
    showState();
}

void PreviewWindow::addTask(std::unique_ptr<OutputTask> task)
{
    std::erase_if(m_tasks, [](const std::unique_ptr<OutputTask>& old) { return old->isDone(); });
    task->setProgress([this] { follow(); });
    m_tasks.push_back(std::move(task));
    m_message.clear();
    showState();
}

void PreviewWindow::printNow()
{
    try {
        auto task = std::make_unique<PrintTask>(m_printing);
        task->begin(m_document);
        addTask(std::move(task));
    } catch (const Problem& problem) {
        m_message = problem.text();
        showState();
    }
}

void PreviewWindow::finishPrinting()
{
    for (const std::unique_ptr<OutputTask>& task : m_tasks) {
        if (dynamic_cast<PrintTask*>(task.get()) != nullptr)
            task->finish();
    }
}

void PreviewWindow::choosePrinter()
{
    QStringList names;
    for (const Printer& printer : Printers())
        names += printer.DeviceName;
    if (names.isEmpty()) {
        m_message = u"no hay impresoras"_s;
        showState();
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
    QFileDialog dialog(this, u"Exportar"_s, QDir::currentPath(), u"PDF (*.pdf);;CSV (*.csv)"_s);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.selectFile(windowTitle() + u".pdf"_s);
    nameLists(dialog);
    if (dialog.exec() == QDialog::Accepted)
        exportTo(dialog.selectedFiles().constFirst());
}

bool PreviewWindow::exportTo(const QString& path)
{
    const bool records = path.endsWith(u".csv"_s, Qt::CaseInsensitive);
    std::unique_ptr<Export> file = records ? csvExport(path) : pdfExport(path, windowTitle());
    if (!file->open()) {
        m_message = u"no se puede escribir «%1»"_s.arg(path);
        showState();
        return false;
    }
    addTask(std::make_unique<ExportTask>(m_document, std::move(file), path));
    return true;
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
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
        m_area->update();
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
