// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/output/pageview.h"

#include <QAccessibleWidget>
#include <QPainter>
#include <QPixmap>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace platform::print {
namespace {

constexpr int kCachedPages = 8;
/// Blank margin around the paper, in pixels.
constexpr int kBorder = 12;
constexpr double kLeastZoom = 0.25;
constexpr double kMostZoom = 4;

/// To a screen reader the page is a document.
QAccessibleInterface* makePageAccessible(const QString&, QObject* object)
{
    auto* page = qobject_cast<PageView*>(object);
    return page ? new QAccessibleWidget(page, QAccessible::Document) : nullptr;
}

} // namespace

PageView::PageView(std::shared_ptr<Document> document, QWidget* parent)
    : QWidget(parent)
    , m_document(std::move(document))
    , m_cache(kCachedPages)
{
    QAccessible::installFactory(&makePageAccessible);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(u"Página del informe"_s);
    setZoom(1);
}

QSizeF PageView::paperPixels() const
{
    return m_document->paper() * (logicalDpiX() / 25.4 * m_zoom);
}

void PageView::showPage(int page)
{
    m_page = std::clamp(page, 0, std::max(0, m_document->pageCount() - 1));
    setAccessibleDescription(m_document->pageCount() > 0 ? m_document->pageText(m_page) : QString());
    update();
}

void PageView::setZoom(double zoom)
{
    m_zoom = std::clamp(zoom, kLeastZoom, kMostZoom);
    m_cache.clear();
    const QSizeF paper = paperPixels();
    setFixedSize(static_cast<int>(paper.width()) + 2 * kBorder,
                 static_cast<int>(paper.height()) + 2 * kBorder);
    update();
}

double PageView::zoomForWidth(int width) const
{
    return (width - 2 * kBorder) / (m_document->paper().width() * logicalDpiX() / 25.4);
}

double PageView::zoomForSize(QSize size) const
{
    const double byHeight =
        (size.height() - 2 * kBorder) / (m_document->paper().height() * logicalDpiY() / 25.4);
    return std::min(zoomForWidth(size.width()), byHeight);
}

void PageView::refresh()
{
    m_cache.clear();
    showPage(m_page);
}

QPixmap PageView::drawn()
{
    if (const QPixmap* known = m_cache.object(m_page))
        return *known;
    const QSizeF paper = paperPixels() * devicePixelRatioF();
    auto pixmap = std::make_unique<QPixmap>(paper.toSize());
    pixmap->fill(Qt::white);
    QPainter painter(pixmap.get());
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                           QPainter::SmoothPixmapTransform);
    const double scale = paper.width() / (m_document->paper().width() * kUnits);
    painter.scale(scale, scale);
    m_document->paint(painter, m_page);
    painter.end();
    pixmap->setDevicePixelRatio(devicePixelRatioF());
    QPixmap shown = *pixmap;
    m_cache.insert(m_page, pixmap.release());
    return shown;
}

void PageView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Mid));
    if (m_document->pageCount() == 0)
        return;
    painter.drawPixmap(kBorder, kBorder, drawn());
    painter.setPen(palette().color(QPalette::Shadow));
    painter.drawRect(rect().adjusted(kBorder, kBorder, -kBorder - 1, -kBorder - 1));
}

} // namespace platform::print
