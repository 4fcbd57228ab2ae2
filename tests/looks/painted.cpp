// SPDX-License-Identifier: GPL-3.0-or-later
#include "looks/painted.h"

#include "looks/ink.h"
#include "looks/shown.h"
#include "looks/textplaces.h"
#include "platform/window/colours.h"
#include "platform/window/focusrules.h"

#include <QApplication>
#include <QLineEdit>
#include <QPixmap>
#include <QWidget>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace looks {

namespace {

/// What a focus mark may reach beyond its control.
constexpr int kReach = 3;

QImage pictureOf(QWidget& window)
{
    return window.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

QImage partOf(const QImage& picture, const QRect& place)
{
    const double scale = picture.devicePixelRatio();
    return picture.copy(QRectF(place.topLeft() * scale, place.size() * scale).toRect());
}

bool takesFocus(const QWidget& control)
{
    return (control.focusPolicy() & Qt::TabFocus) == Qt::TabFocus && control.isEnabled() &&
           !control.focusProxy();
}

/// Pixels that became another colour, far enough from what they were.
int pixelsMarked(const QImage& before, const QImage& after)
{
    int marked = 0;
    for (int y = 0; y < before.height(); ++y) {
        for (int x = 0; x < before.width(); ++x) {
            if (before.pixel(x, y) != after.pixel(x, y) &&
                platform::contrast(QColor(before.pixel(x, y)), QColor(after.pixel(x, y))) >=
                    platform::kMarkContrast)
                ++marked;
        }
    }
    return marked;
}

} // namespace

QStringList unreadable(QWidget& window)
{
    // A line that is chosen in part has two inks on two grounds; the rows of grids and trees show the chosen
    // ones.
    for (QLineEdit* line : window.findChildren<QLineEdit*>())
        line->deselect();
    const QImage picture = pictureOf(window);
    QStringList faults;
    for (const TextPlace& text : textPlaces(window)) {
        const std::optional<Ink> ink = inkOf(partOf(picture, text.place));
        if (!ink)
            faults += text.name + u": no text is painted"_s;
        else if (ink->contrast < platform::kTextContrast)
            faults += u"%1: %2 on %3 has a contrast of %4"_s.arg(
                text.name, ink->ink.name(), ink->ground.name(), QString::number(ink->contrast, 'f', 2));
    }
    return faults;
}

QStringList unmarkedFocus(QWidget& window)
{
    const platform::QuietFocus quiet;
    QStringList faults;
    for (QWidget* control : shownIn(window)) {
        if (!takesFocus(*control))
            continue;
        if (QWidget* focused = QApplication::focusWidget())
            focused->clearFocus();
        const QRect place = QRect(control->mapTo(&window, QPoint()), control->size())
                                .adjusted(-kReach, -kReach, kReach, kReach)
                                .intersected(window.rect());
        const QImage before = partOf(pictureOf(window), place);
        control->setFocus(Qt::TabFocusReason);
        const QImage after = partOf(pictureOf(window), place);
        // A frame has more pixels than this, a mere cursor of a text has fewer.
        const QSize seen = control->visibleRegion().boundingRect().size();
        const int wanted = 2 * std::min(seen.width(), seen.height());
        const int marked = pixelsMarked(before, after);
        if (marked < wanted)
            faults += u"%1: the focus changes %2 pixels, %3 are wanted"_s.arg(nameOf(*control))
                          .arg(marked)
                          .arg(wanted);
    }
    return faults;
}

} // namespace looks
