// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A document as a file: its pages as PDF, or its records as CSV. Each file is written aside and takes its
// name only when it is whole.

#include "platform/print/output/outputtask.h"

namespace platform::print {

/// A file under way, written piece by piece.
class Export
{
public:
    virtual ~Export() = default;
    /// Opens the file. False when it can't be written.
    virtual bool open() = 0;
    /// Writes a page or some records of a complete document. False when all are written.
    virtual bool step(Document& document) = 0;
    /// Gives the file its name. False when it couldn't be written; then nothing stays.
    virtual bool commit() = 0;
    /// "página 3 de 12", "registros: 1.234".
    [[nodiscard]] virtual QString progress() const = 0;
};

/// All pages, fonts embedded, with the title given.
[[nodiscard]] std::unique_ptr<Export> pdfExport(const QString& path, const QString& title);

/// One line for each record: group fields, then the fields of the details; ";" between them, numbers with a
/// decimal comma, UTF-8 with its mark.
[[nodiscard]] std::unique_ptr<Export> csvExport(const QString& path);

/// The same in one go; make the pages that are missing. False when the file can't be written.
[[nodiscard]] bool writePdf(Document& document, const QString& path, const QString& title);
[[nodiscard]] bool writeCsv(Document& document, const QString& path);

/// An export in slices of the event loop.
class ExportTask final : public OutputTask
{
public:
    /// Takes an export whose file is open. `path` is what the state names.
    ExportTask(std::shared_ptr<Document> document, std::unique_ptr<Export> file, QString path);
    ~ExportTask() override;

    [[nodiscard]] QString state() const override;

private:
    bool step() override;
    bool close() override;
    void abandon() override;

    std::unique_ptr<Export> m_file;
    QString m_path;
};

} // namespace platform::print
