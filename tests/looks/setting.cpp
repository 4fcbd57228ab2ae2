// SPDX-License-Identifier: GPL-3.0-or-later
#include "looks/setting.h"

#include "platform/window/appearance.h"
#include "platform/window/spanishtexts.h"

#include <QApplication>
#include <QIcon>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryFile>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace looks {

namespace {

/// The off-screen platform's description of its screens, side by side.
QByteArray screensDescription()
{
    constexpr int kDotsPerInch = 96;
    QJsonArray screens;
    int left = 0;
    for (const QSize& size : kScreenSizes) {
        const QSize native(qRound(size.width() * scale()), qRound(size.height() * scale()));
        screens.append(QJsonObject{{u"name"_s, u"%1x%2"_s.arg(size.width()).arg(size.height())},
                                   {u"x"_s, left},
                                   {u"y"_s, 0},
                                   {u"width"_s, native.width()},
                                   {u"height"_s, native.height()},
                                   {u"logicalDpi"_s, kDotsPerInch},
                                   {u"logicalBaseDpi"_s, kDotsPerInch},
                                   {u"dpr"_s, 1}});
        left += native.width();
    }
    return QJsonDocument(QJsonObject{{u"screens"_s, screens}}).toJson();
}

} // namespace

bool isDarkScheme()
{
    return qgetenv("ORVANE_LOOK_SCHEME") == "dark";
}

double scale()
{
    bool isNumber = false;
    const double given = qgetenv("QT_SCALE_FACTOR").toDouble(&isNumber);
    return isNumber ? given : 1;
}

QList<QSize> screensFor(int points)
{
    return points < kFontSizes.last() ? kScreenSizes : kScreenSizes.mid(1);
}

QScreen* screenOf(QSize size)
{
    return QGuiApplication::screens().at(kScreenSizes.indexOf(size));
}

void setFontSize(int points)
{
    QFont font(u"DejaVu Sans"_s, points);
    font.setStyleStrategy(QFont::NoAntialias);
    QApplication::setFont(font);
}

QPalette darkPalette()
{
    QPalette palette;
    const QColor window(49, 54, 59);
    const QColor base(35, 38, 41);
    const QColor ink(239, 240, 241);
    const QColor faint(127, 132, 137);
    for (const QPalette::ColorRole role : {QPalette::Window, QPalette::Button})
        palette.setColor(role, window);
    palette.setColor(QPalette::ToolTipBase, window);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::AlternateBase, QColor(42, 46, 50));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                                           QPalette::ToolTipText, QPalette::HighlightedText})
        palette.setColor(role, ink);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, faint);
    palette.setColor(QPalette::PlaceholderText, faint);
    palette.setColor(QPalette::Highlight, QColor(61, 174, 233));
    palette.setColor(QPalette::Link, QColor(41, 128, 185));
    palette.setColor(QPalette::LinkVisited, QColor(127, 140, 141));
    palette.setColor(QPalette::Light, window.lighter(150));
    palette.setColor(QPalette::Midlight, window.lighter(125));
    palette.setColor(QPalette::Mid, window.darker(120));
    palette.setColor(QPalette::Dark, window.darker(150));
    palette.setColor(QPalette::Shadow, QColor(20, 22, 24));
    return palette;
}

int run(int argc, char** argv, const std::function<QObject*()>& makeTest)
{
    QTemporaryFile screens;
    if (!screens.open())
        return 1;
    screens.write(screensDescription());
    screens.close();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screens.fileName().toUtf8());
    const QApplication application(argc, argv);
    QApplication::setApplicationName(u"Orvane"_s);
    QApplication::setWindowIcon(QIcon(u":/orvane.svg"_s));
    if (isDarkScheme())
        QApplication::setPalette(darkPalette());
    platform::installAppearance();
    platform::installSpanishTexts();
    setFontSize(kFontSizes.first());
    const std::unique_ptr<QObject> test(makeTest());
    return QTest::qExec(test.get(), argc, argv);
}

} // namespace looks
