// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// One page of a document on the screen, drawn when it is seen; the last eight are kept as pictures.

#include "platform/print/output/document.h"

#include <QCache>
#include <QWidget>

#include <memory>

namespace platform::print {

class PageView : public QWidget
{
    Q_OBJECT

public:
    explicit PageView(std::shared_ptr<Document> document, QWidget* parent = nullptr);

    /// Page from 0. Its text becomes the widget's accessible description.
    void showPage(int page);
    [[nodiscard]] int page() const noexcept { return m_page; }
    /// 1 is the paper's own size on this screen.
    void setZoom(double zoom);
    [[nodiscard]] double zoom() const noexcept { return m_zoom; }
    /// Zoom at which the paper has this width or fits this size, in pixels of the widget.
    [[nodiscard]] double zoomForWidth(int width) const;
    [[nodiscard]] double zoomForSize(QSize size) const;
    /// Forgets drawn pages, since totals over all pages have become known.
    void refresh();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QSizeF paperPixels() const;
    [[nodiscard]] QPixmap drawn();

    std::shared_ptr<Document> m_document;
    QCache<int, QPixmap> m_cache;
    int m_page = 0;
    double m_zoom = 1;
};

} // namespace platform::print
