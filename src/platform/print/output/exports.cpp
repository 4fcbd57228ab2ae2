// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/output/exports.h"

using namespace Qt::StringLiterals;

namespace platform::print {
namespace {

bool write(Document& document, Export& file)
{
    document.makeAllPages();
    if (!document.isComplete() || !file.open())
        return false;
    while (file.step(document)) {
    }
    return file.commit();
}

} // namespace

bool writePdf(Document& document, const QString& path, const QString& title)
{
    return write(document, *pdfExport(path, title));
}

bool writeCsv(Document& document, const QString& path)
{
    return write(document, *csvExport(path));
}

ExportTask::ExportTask(std::shared_ptr<Document> document, std::unique_ptr<Export> file, QString path)
    : m_file(std::move(file))
    , m_path(std::move(path))
{
    run(std::move(document));
}

ExportTask::~ExportTask()
{
    cancel();
}

bool ExportTask::step()
{
    return m_file->step(document());
}

bool ExportTask::close()
{
    return m_file->commit();
}

void ExportTask::abandon()
{
    m_file.reset();
}

QString ExportTask::state() const
{
    if (!isDone())
        return u"Exportando "_s + m_file->progress();
    if (!m_file)
        return u"Exportación cancelada"_s;
    return (failed() ? u"no se puede escribir «%1»"_s : u"Exportado a «%1»"_s).arg(m_path);
}

} // namespace platform::print
