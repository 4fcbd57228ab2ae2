// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/window/appearance.h"

#include "platform/window/focusstyle.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QPalette>
#include <QStandardPaths>
#include <QTranslator>

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
    QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Spain));
}

bool installSpanishTexts()
{
    const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    bool allLoaded = true;
    for (const QString& file : {QStringLiteral("qt_es"), QStringLiteral("qtbase_es")}) {
        auto* translator = new QTranslator(qApp);
        if (translator->load(file, folder))
            QCoreApplication::installTranslator(translator);
        else
            allLoaded = false;
    }
    return allLoaded;
}

} // namespace platform
