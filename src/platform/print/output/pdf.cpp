// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/output/exports.h"

#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

namespace platform::print {
namespace {

constexpr int kResolution = 600;

} // namespace

bool writePdf(Document& document, const QString& path, const QString& title)
{
    document.makeAllPages();
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    {
        QPdfWriter writer(&file);
        writer.setTitle(title);
        writer.setResolution(kResolution);
        writer.setPageLayout(
            QPageLayout(QPageSize(document.paper(), QPageSize::Millimeter, {}, QPageSize::ExactMatch),
                        QPageLayout::Portrait, QMarginsF(0, 0, 0, 0)));
        QPainter painter;
        if (!painter.begin(&writer))
            return false;
        const double scale = kResolution / 25.4 / kUnits;
        for (int page = 0; page < document.pageCount(); ++page) {
            if (page > 0)
                writer.newPage();
            painter.save();
            painter.scale(scale, scale);
            document.paint(painter, page);
            painter.restore();
        }
        painter.end();
    }
    return file.commit();
}

} // namespace platform::print
