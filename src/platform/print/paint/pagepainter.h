// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The one painter of pages, for screen, printer and PDF alike.

#include "platform/print/layout/paginate.h"
#include "platform/print/paint/pictures.h"

class QPainter;

namespace platform::print {

class PagePainter
{
public:
    /// All are kept by reference.
    PagePainter(Paginator& paginator, SectionMaker& maker, LetterCase& letters, Pictures& pictures);

    /// Paints a page from its top left corner; one unit of the painter is a hundredth of a millimetre.
    void paint(QPainter& painter, int page);
    /// The texts of a page from the top down, one line for each: for screen readers.
    [[nodiscard]] QString pageText(int page);

private:
    /// Part of the paper's height, in millimetres.
    struct Span
    {
        double top = 0;
        double bottom = 0;
    };

    [[nodiscard]] bool inSlice(double top, double height) const;
    void paintSections(QPainter& painter, SectionMaker& maker, const std::vector<PlacedSection>& sections,
                       double x, double y);
    void paintSection(QPainter& painter, SectionMaker& maker, const PlacedSection& placed, double x,
                      double y);
    void paintItem(QPainter& painter, SectionMaker& maker, const PlacedItem& placed, double x, double y);
    void paintText(QPainter& painter, const PlacedItem& placed, double x, double y);
    void paintFrame(QPainter& painter, const PlacedItem& placed, double x, double y);
    [[nodiscard]] QImage pictureOf(const Item& item, Records& records);
    void paintPicture(QPainter& painter, SectionMaker& maker, const PlacedItem& placed, double x, double y);

    Paginator& m_paginator;
    SectionMaker& m_maker;
    LetterCase& m_letters;
    Pictures& m_pictures;
    PageFacts m_facts;
    std::optional<Span> m_slice;    ///< of a section under way that is cut
    QStringList* m_texts = nullptr; ///< collects instead of painting
};

} // namespace platform::print
