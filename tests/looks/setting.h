// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What a window is looked at under: the colour scheme and the scale of the process, and the fonts and screens
// that a test goes through.

#include <QFont>
#include <QList>
#include <QPalette>
#include <QScreen>
#include <QSize>

#include <functional>

class QObject;

namespace looks {

/// The scheme and the scale come from outside, since neither changes while a program runs: "light" or "dark"
/// in ORVANE_LOOK_SCHEME, and QT_SCALE_FACTOR.
[[nodiscard]] bool isDarkScheme();
[[nodiscard]] double scale();

/// The sizes of type that a desk may ask for, in points; the first is the standard one.
inline const QList<int> kFontSizes{9, 10, 12, 14, 16};
/// The sizes of screens, in device-independent pixels, the smallest first. Each is a screen of the process.
inline const QList<QSize> kScreenSizes{{1024, 700}, {1366, 768}, {1920, 1080}, {3840, 2160}};

/// The screens that a window must fit with type of that size: all of them, but the smallest one with the
/// largest type.
[[nodiscard]] QList<QSize> screensFor(int points);

/// The screen of one of those sizes.
[[nodiscard]] QScreen* screenOf(QSize size);

/// Gives the application a font of that size. Without smoothing every pixel of a letter has the letter's
/// colour, so that the colours on the screen can be told.
void setFontSize(int points);

/// A dark palette as desktops ship it.
[[nodiscard]] QPalette darkPalette();

/// Runs a test object under the setting of the process, dressed as the program dresses itself.
int run(int argc, char** argv, const std::function<QObject*()>& makeTest);

} // namespace looks

/// The `main` of a test of looks.
#define ORVANE_LOOKS_MAIN(Test)                                                                              \
    int main(int argc, char** argv)                                                                          \
    {                                                                                                        \
        return looks::run(argc, argv, [] { return new Test; });                                              \
    }
