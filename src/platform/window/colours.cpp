// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/window/colours.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace platform {

namespace {

constexpr int kWhole = 100;
constexpr int kMiddleLightness = 128;
constexpr int kRowTint = 10;

constexpr std::array kGroups{QPalette::Active, QPalette::Inactive, QPalette::Disabled};

/// A text's role and the grounds that it stands on.
struct TextRole
{
    QPalette::ColorRole ink;
    QList<QPalette::ColorRole> grounds;
};

const QList<TextRole>& textRoles()
{
    static const QList<TextRole> roles{
        {QPalette::WindowText, {QPalette::Window, QPalette::Base}},
        {QPalette::Text, {QPalette::Base, QPalette::AlternateBase, QPalette::Window}},
        {QPalette::ButtonText, {QPalette::Button, QPalette::Window}},
        {QPalette::ToolTipText, {QPalette::ToolTipBase}},
        {QPalette::Link, {QPalette::Base, QPalette::Window}},
        {QPalette::LinkVisited, {QPalette::Base, QPalette::Window}},
    };
    return roles;
}

double linear(double part)
{
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& colour)
{
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

bool hasContrast(const QColor& ink, const QList<QColor>& grounds, double least)
{
    return std::all_of(grounds.begin(), grounds.end(),
                       [&](const QColor& ground) { return contrast(ink, ground) >= least; });
}

/// How much of `pole` makes the ink hold; more than the whole where nothing does.
int amountNeeded(const QColor& ink, const QColor& pole, const QList<QColor>& grounds, double least)
{
    int percent = 0;
    while (percent <= kWhole && !hasContrast(mixed(ink, pole, percent), grounds, least))
        ++percent;
    return percent;
}

QList<QColor> coloursOf(const QPalette& palette, QPalette::ColorGroup group,
                        const QList<QPalette::ColorRole>& roles)
{
    QList<QColor> colours;
    for (const QPalette::ColorRole role : roles)
        colours.append(palette.color(group, role));
    return colours;
}

void set(QPalette& palette, QPalette::ColorGroup group, QPalette::ColorRole role, const QColor& colour)
{
    // A palette that is touched no longer follows the desktop in that role.
    if (palette.color(group, role) != colour)
        palette.setColor(group, role, colour);
}

/// The highlight is the ground of what is chosen and the mark of the focus: rather than lose either, its text
/// goes to the other end.
void makeHighlightReadable(QPalette& palette, QPalette::ColorGroup group)
{
    const QList<QColor> grounds =
        coloursOf(palette, group, {QPalette::Base, QPalette::Window, QPalette::Button});
    const QColor given = palette.color(group, QPalette::Highlight);
    QColor text = palette.color(group, QPalette::HighlightedText);
    QColor highlight = withContrast(given, {text}, kTextContrast);
    if (!hasContrast(highlight, grounds, kMarkContrast)) {
        highlight = withContrast(given, grounds, kMarkContrast);
        text = withContrast(text, {highlight}, kTextContrast);
    }
    set(palette, group, QPalette::Highlight, highlight);
    set(palette, group, QPalette::HighlightedText, text);
}

void makeQuiet(QPalette& palette, QPalette::ColorGroup group, QPalette::ColorRole role,
               const QList<QPalette::ColorRole>& grounds)
{
    const QColor ink =
        palette.color(QPalette::Active, role == QPalette::PlaceholderText ? QPalette::Text : role);
    set(palette, group, role, quiet(ink, coloursOf(palette, group, grounds), kQuietContrast));
}

} // namespace

double contrast(const QColor& one, const QColor& other)
{
    constexpr double kFlare = 0.05;
    const double first = luminance(one) + kFlare;
    const double second = luminance(other) + kFlare;
    return std::max(first, second) / std::min(first, second);
}

QColor mixed(const QColor& ground, const QColor& tint, int percent)
{
    const auto part = [percent](int from, int to) { return from + (to - from) * percent / kWhole; };
    return {part(ground.red(), tint.red()), part(ground.green(), tint.green()),
            part(ground.blue(), tint.blue())};
}

QColor quiet(const QColor& ink, const QList<QColor>& grounds, double least)
{
    const int percent = amountNeeded(grounds.first(), ink, grounds, least);
    return percent > kWhole ? ink : mixed(grounds.first(), ink, percent);
}

QColor withContrast(const QColor& ink, const QList<QColor>& grounds, double least)
{
    const int black = amountNeeded(ink, Qt::black, grounds, least);
    const int white = amountNeeded(ink, Qt::white, grounds, least);
    if (std::min(black, white) > kWhole)
        return ink;
    return black <= white ? mixed(ink, Qt::black, black) : mixed(ink, Qt::white, white);
}

bool isDark(const QPalette& palette)
{
    return palette.color(QPalette::Window).lightness() < kMiddleLightness;
}

QPalette readable(QPalette palette)
{
    for (const QPalette::ColorGroup group : kGroups) {
        for (const TextRole& role : textRoles()) {
            const QColor ink = palette.color(group, role.ink);
            set(palette, group, role.ink,
                withContrast(ink, coloursOf(palette, group, role.grounds), kTextContrast));
        }
        makeHighlightReadable(palette, group);
        makeQuiet(palette, group, QPalette::PlaceholderText,
                  {QPalette::Base, QPalette::AlternateBase, QPalette::Window});
    }
    for (const TextRole& role : textRoles()) {
        if (role.ink == QPalette::WindowText || role.ink == QPalette::Text ||
            role.ink == QPalette::ButtonText)
            makeQuiet(palette, QPalette::Disabled, role.ink, role.grounds);
    }
    return palette;
}

QColor focusMark(const QPalette& palette)
{
    return palette.color(QPalette::Highlight);
}

QColor cursorRow(const QPalette& palette)
{
    return mixed(palette.color(QPalette::Base), palette.color(QPalette::Highlight), kRowTint);
}

QColor outline(const QPalette& palette)
{
    const QList<QColor> grounds{palette.color(QPalette::Base), palette.color(QPalette::AlternateBase),
                                cursorRow(palette)};
    return quiet(palette.color(QPalette::Text), grounds, kMarkContrast);
}

QColor faintLine(const QPalette& palette)
{
    return palette.color(QPalette::Midlight);
}

} // namespace platform
