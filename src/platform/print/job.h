// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// One opened report through its life: definition, table locations, formulas, output, start. Callers outside
// the engine reach it through `pe.h`.

#include "platform/print/output/document.h"
#include "platform/print/output/preview.h"
#include "platform/print/output/printing.h"
#include "platform/print/problem.h"

#include <QPointer>

#include <memory>
#include <optional>

namespace platform::print {

enum class JobState { Open, Running, Finished, Cancelled, Failed };

enum class Output { None, Window, Printer };

class Job
{
public:
    /// Reads the definition. Throws `Problem` 3 or 4.
    explicit Job(const QString& nativePath);
    ~Job();

    /// The main report (`subreport` −1) or one inside it.
    [[nodiscard]] Report& report(int subreport = -1);
    /// Native path of a table as it is now in force.
    [[nodiscard]] QString tablePath(int subreport, int table) const;
    void setTablePath(int subreport, int table, const QString& nativePath);

    /// Looks whether everything is there, begins to read and begins the output; the rest is done in slices of
    /// the event loop, or at once with `wait`. Throws `Problem`; then nothing has begun and no store is open.
    void start(const QDateTime& moment, bool wait);
    /// Runs what has been started for the printer to its end.
    void finishPrinting();
    [[nodiscard]] JobState state() const;
    /// Why a job that had started came to nothing; none for one that runs or is finished.
    [[nodiscard]] std::optional<Problem> failure() const;

    Output output = Output::None;
    PreviewRequest window;
    PrintRequest printing;
    bool printerUnknown = false; ///< a device was named that isn't there

private:
    [[nodiscard]] TablePaths paths(int subreport) const;
    void showPreview(const std::shared_ptr<Document>& document);
    void previewClosed();

    QString m_path;
    QString m_folder;
    std::unique_ptr<Report> m_report;
    std::vector<QStringList> m_locations; ///< main report, then the subreports; "" where the program set none
    std::shared_ptr<Document> m_document;
    std::unique_ptr<PrintTask> m_task;
    QPointer<PreviewWindow> m_preview;
    JobState m_state = JobState::Open;
    std::optional<Problem> m_failure; ///< of a job that isn't running any more
};

} // namespace platform::print
