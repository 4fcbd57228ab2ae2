// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/formula/to_text.h"
#include "platform/print/output/exports.h"

#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace platform::print {
namespace {

constexpr int kResolution = 600;

class PdfExport final : public Export
{
public:
    PdfExport(const QString& path, QString title)
        : m_title(std::move(title))
        , m_file(path)
    {}

    bool open() override { return m_file.open(QIODevice::WriteOnly); }

    bool step(Document& document) override
    {
        if (m_page == 0 && !begin(document))
            return false;
        if (m_page > 0)
            m_writer->newPage();
        const double scale = kResolution / 25.4 / kUnits;
        m_painter.save();
        m_painter.scale(scale, scale);
        document.paint(m_painter, m_page);
        m_painter.restore();
        return ++m_page < m_pages;
    }

    bool commit() override
    {
        const bool written = m_painter.isActive() && m_painter.end();
        m_writer.reset();
        return written && m_file.commit();
    }

    [[nodiscard]] QString progress() const override
    {
        return u"página %1 de %2"_s.arg(formula::grouped(m_page), formula::grouped(m_pages));
    }

private:
    bool begin(Document& document)
    {
        m_pages = document.pageCount();
        m_writer = std::make_unique<QPdfWriter>(&m_file);
        m_writer->setTitle(m_title);
        m_writer->setResolution(kResolution);
        m_writer->setPageLayout(
            QPageLayout(QPageSize(document.paper(), QPageSize::Millimeter, {}, QPageSize::ExactMatch),
                        QPageLayout::Portrait, QMarginsF(0, 0, 0, 0)));
        return m_painter.begin(m_writer.get());
    }

    QString m_title;
    QSaveFile m_file;
    std::unique_ptr<QPdfWriter> m_writer;
    QPainter m_painter; // goes before what it paints on
    int m_page = 0;
    int m_pages = 0;
};

} // namespace

std::unique_ptr<Export> pdfExport(const QString& path, const QString& title)
{
    return std::make_unique<PdfExport>(path, title);
}

} // namespace platform::print
