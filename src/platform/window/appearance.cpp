// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/window/appearance.h"

#include "platform/window/focusstyle.h"

#include <QApplication>
#include <QPalette>
#include <QStandardPaths>

namespace platform {

namespace {

constexpr int kMiddleLightness = 128;
constexpr float kDisabledInk = 0.65F;

/// The folders of packaged icon themes, where the window system doesn't name them by itself.
void addIconFolders()
{
    QStringList folders = QIcon::themeSearchPaths();
    folders += QStandardPaths::locateAll(QStandardPaths::GenericDataLocation, QStringLiteral("icons"),
                                         QStandardPaths::LocateDirectory);
    folders.removeDuplicates();
    QIcon::setThemeSearchPaths(folders);
}

/// A disabled field is still there to be read.
void makeDisabledTextReadable()
{
    QPalette palette = QApplication::palette();
    QColor ink = palette.color(QPalette::Active, QPalette::Text);
    ink.setAlphaF(kDisabledInk);
    palette.setColor(QPalette::Disabled, QPalette::Text, ink);
    QApplication::setPalette(palette);
}

bool isDark(const QPalette& palette)
{
    return palette.color(QPalette::Window).lightness() < kMiddleLightness;
}

} // namespace

void installAppearance()
{
    QApplication::setStyle(new FocusStyle);
    makeDisabledTextReadable();
    addIconFolders();
    QIcon::setThemeName(isDark(QApplication::palette()) ? QStringLiteral("breeze-dark")
                                                        : QStringLiteral("breeze"));
    QIcon::setFallbackThemeName(QStringLiteral("breeze"));
}

} // namespace platform
