// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/job.h"

#include "platform/print/definition/read_xml.h"
#include "platform/system/paths.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace platform::print {
namespace {

constexpr qint64 kMaxReportBytes = qint64{16} * 1024 * 1024;

std::unique_ptr<Report> readDefinition(const QString& path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile())
        throw Problem(kReportMissing, u"no existe el informe «%1»"_s.arg(path));
    if (!file.open(QIODevice::ReadOnly) || file.size() > kMaxReportBytes)
        throw Problem(kReportRefused, u"no se puede leer el informe «%1»"_s.arg(path));
    ReadReport read = readReport(file.readAll());
    if (!read.report)
        throw Problem(kReportRefused, describe(QFileInfo(path).fileName(), read.faults.front()));
    return std::make_unique<Report>(std::move(*read.report));
}

/// Where the tables' places of a report stand in `m_locations`: the main report, -1, first.
std::size_t place(int subreport) noexcept
{
    return static_cast<std::size_t>(subreport) + 1;
}

} // namespace

Job::Job(const QString& nativePath)
    : m_path(nativePath)
    , m_folder(QFileInfo(nativePath).path())
    , m_report(readDefinition(nativePath))
{
    m_locations.emplace_back(static_cast<qsizetype>(m_report->tables.size()));
    for (const Report& subreport : m_report->subreports)
        m_locations.emplace_back(static_cast<qsizetype>(subreport.tables.size()));
    window.title = m_report->name;
    printing.title = m_report->name;
}

Job::~Job()
{
    delete m_preview.data();
}

Report& Job::report(int subreport)
{
    return subreport < 0 ? *m_report : m_report->subreports[static_cast<std::size_t>(subreport)];
}

QString Job::tablePath(int subreport, int table) const
{
    const QString& set = m_locations[place(subreport)][table];
    if (!set.isEmpty())
        return set;
    const Report& owner =
        subreport < 0 ? *m_report : m_report->subreports[static_cast<std::size_t>(subreport)];
    const QString& file = owner.tables[static_cast<std::size_t>(table)].file;
    if (!file.startsWith(u'@'))
        return nativePath(m_folder + u'/' + file);
    // A subreport's "@k" names a table of the main report.
    const QString other = tablePath(-1, file.mid(1).section(u'/', 0, 0).toInt());
    const QString name = file.section(u'/', 1);
    return name.isEmpty() ? other : nativePath(QFileInfo(other).path() + u'/' + name);
}

void Job::setTablePath(int subreport, int table, const QString& nativePath)
{
    m_locations[place(subreport)][table] = nativePath;
}

TablePaths Job::paths(int subreport) const
{
    TablePaths paths;
    for (int table = 0; table < m_locations[place(subreport)].size(); ++table)
        paths += tablePath(subreport, table);
    return paths;
}

void Job::start(const QDateTime& moment, bool wait)
{
    if (m_state != JobState::Open)
        throw Problem(kAlreadyStarted, u"el informe ya está en marcha"_s);
    if (output == Output::None)
        throw Problem(kNoOutput, u"no se ha elegido ventana ni impresora"_s);
    if (output == Output::Printer && printerUnknown)
        throw Problem(kPrinter, u"la impresora no existe"_s);
    // The run binds formulas in place, so it gets a report of its own.
    auto document = std::make_shared<Document>(std::make_unique<Report>(*m_report), m_folder, moment);
    std::vector<TablePaths> subreports;
    subreports.reserve(m_report->subreports.size());
    for (int i = 0; i < static_cast<int>(m_report->subreports.size()); ++i)
        subreports.push_back(paths(i));
    // Asking for a printer may take its time, so it comes before the stores are open.
    std::unique_ptr<PrintTask> task;
    if (output == Output::Printer)
        task = std::make_unique<PrintTask>(printing);
    document->begin(paths(-1), subreports);
    if (wait) {
        document->makeAllPages();
    } else {
        document->work(kSliceMilliseconds);
        if (document->stage() == DocumentStage::Composing)
            document->makeFirstPage();
    }
    if (document->failure())
        throw Problem(*document->failure());
    if (task)
        task->begin(document);
    m_document = document;
    m_task = std::move(task);
    m_state = JobState::Running;
    if (m_task && wait)
        m_task->finish();
    if (!m_task)
        showPreview(document);
}

void Job::showPreview(const std::shared_ptr<Document>& document)
{
    m_preview = new PreviewWindow(document, window, printing);
    QObject::connect(m_preview, &QObject::destroyed, [this] { previewClosed(); });
    m_preview->show();
}

/// What a preview that is gone leaves; the job's own destructor closes the preview first.
void Job::previewClosed()
{
    m_failure = m_document->failure();
    if (!m_failure && !m_document->isComplete())
        m_failure = Problem(kCancelled, u"cancelado"_s);
    m_state = m_document->isComplete() ? JobState::Finished
              : m_document->failure()  ? JobState::Failed
                                       : JobState::Cancelled;
    m_document.reset();
}

void Job::finishPrinting()
{
    if (m_task)
        m_task->finish();
    if (m_preview)
        m_preview->finishPrinting();
}

JobState Job::state() const
{
    if (m_state != JobState::Running)
        return m_state;
    if (m_document->failure())
        return JobState::Failed;
    if (m_task)
        return !m_task->isDone()  ? JobState::Running
               : m_task->failed() ? JobState::Failed
                                  : JobState::Finished;
    return m_preview->wasCancelled()  ? JobState::Cancelled
           : m_document->isComplete() ? JobState::Finished
                                      : JobState::Running;
}

std::optional<Problem> Job::failure() const
{
    if (m_state != JobState::Running)
        return m_failure;
    if (m_document->failure())
        return m_document->failure();
    if (m_task && m_task->isDone() && m_task->failed())
        return Problem(kPrintingRefused, u"el sistema de impresión no ha terminado el trabajo"_s);
    if (m_preview && m_preview->wasCancelled())
        return Problem(kCancelled, u"cancelado"_s);
    return std::nullopt;
}

} // namespace platform::print
