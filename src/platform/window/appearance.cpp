// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/window/appearance.h"

#include "platform/window/colours.h"
#include "platform/window/programstyle.h"

#include <QApplication>
#include <QIcon>
#include <QStandardPaths>

namespace platform {

namespace {

/// The folders of packaged icon themes, where the window system doesn't name them by itself.
void addIconFolders()
{
    QStringList folders = QIcon::themeSearchPaths();
    folders += QStandardPaths::locateAll(QStandardPaths::GenericDataLocation, QStringLiteral("icons"),
                                         QStandardPaths::LocateDirectory);
    folders.removeDuplicates();
    QIcon::setThemeSearchPaths(folders);
}

/// The theme whose ink shows on the palette's grounds. Where it isn't there the icons are drawn: those of the
/// other one would hardly be seen.
void chooseIconTheme(const QPalette& palette)
{
    const QString theme = isDark(palette) ? QStringLiteral("breeze-dark") : QStringLiteral("breeze");
    QIcon::setThemeName(theme);
    QIcon::setFallbackThemeName(theme);
}

} // namespace

void installAppearance()
{
    QApplication::setStyle(new ProgramStyle);
    // The style has done this to the desktop's palette; one that the program was given needs it too.
    QApplication::setPalette(readable(QApplication::palette()));
    addIconFolders();
    chooseIconTheme(QApplication::palette());
}

} // namespace platform
