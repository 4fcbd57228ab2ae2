// SPDX-License-Identifier: GPL-3.0-or-later
#include "looks/ink.h"

#include "platform/window/colours.h"

#include <QHash>

#include <algorithm>

namespace looks {

namespace {

/// Fewer pixels of one colour than this are an accident of the drawing.
constexpr int kLeastPixels = 4;
/// A part of the ground, such as a step of a gradient: this share of the picture or more.
constexpr int kGroundShare = 8;
/// Colours as close as this to the ink belong to it.
constexpr double kSameInk = 1.15;

QHash<QRgb, int> countsOf(const QImage& picture)
{
    QHash<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            ++counts[picture.pixel(x, y)];
    }
    return counts;
}

QRgb mostFrequent(const QHash<QRgb, int>& counts)
{
    QRgb found = counts.constBegin().key();
    for (auto entry = counts.constBegin(); entry != counts.constEnd(); ++entry) {
        if (entry.value() > counts.value(found))
            found = entry.key();
    }
    return found;
}

} // namespace

std::optional<Ink> inkOf(const QImage& picture)
{
    const QHash<QRgb, int> counts = countsOf(picture);
    if (counts.size() < 2)
        return std::nullopt;
    Ink found;
    const QColor ground(mostFrequent(counts));
    found.ground = ground;
    for (auto entry = counts.constBegin(); entry != counts.constEnd(); ++entry) {
        const double contrast = platform::contrast(QColor(entry.key()), ground);
        if (entry.value() >= kLeastPixels && contrast > found.contrast) {
            found.ink = QColor(entry.key());
            found.contrast = contrast;
        }
    }
    if (!found.ink.isValid())
        return std::nullopt;
    const int share = picture.width() * picture.height() / kGroundShare;
    for (auto entry = counts.constBegin(); entry != counts.constEnd(); ++entry) {
        const double contrast = platform::contrast(found.ink, QColor(entry.key()));
        if (entry.value() >= share && contrast > kSameInk && contrast < found.contrast) {
            found.ground = QColor(entry.key());
            found.contrast = contrast;
        }
    }
    return found;
}

} // namespace looks
