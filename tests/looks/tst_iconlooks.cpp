// SPDX-License-Identifier: GPL-3.0-or-later

// Every picture of the program shows on the grounds of its scheme, whether the packaged themes are there or
// not.

#include "looks/setting.h"
#include "looks/shown.h"
#include "platform/window/colours.h"
#include "platform/window/icons.h"

#include <QApplication>
#include <QIcon>
#include <QPainter>
#include <QtTest>

using namespace Qt::StringLiterals;
using platform::Icon;

namespace {

constexpr int kSize = 22;
/// Pictures stand beside the words that say the same, and some are red: less than a mark is enough.
constexpr double kPictureContrast = 2;
/// A line of a picture has more pixels than this.
constexpr int kLeastPixels = 12;

/// How many pixels of the picture stand off from the ground.
int pixelsSeen(const QIcon& icon, const QColor& ground)
{
    QImage picture(QSize(kSize, kSize) * qApp->devicePixelRatio(), QImage::Format_RGB32);
    picture.setDevicePixelRatio(qApp->devicePixelRatio());
    picture.fill(ground);
    QPainter painter(&picture);
    icon.paint(&painter, 0, 0, kSize, kSize);
    painter.end();
    int seen = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (platform::contrast(QColor(picture.pixel(x, y)), ground) >= kPictureContrast)
                ++seen;
        }
    }
    return seen;
}

} // namespace

class IconLooksTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void themeIsThatOfTheScheme();
    void everyPictureShows_data();
    void everyPictureShows();
};

void IconLooksTest::themeIsThatOfTheScheme()
{
    const QString wanted = looks::isDarkScheme() ? u"breeze-dark"_s : u"breeze"_s;
    QCOMPARE(QIcon::themeName(), wanted);
    QCOMPARE(QIcon::fallbackThemeName(), wanted);
    for (const char* name : {"document-save", "edit-find", "go-next"})
        QVERIFY2(QIcon::hasThemeIcon(QString::fromLatin1(name)), name);
}

void IconLooksTest::everyPictureShows_data()
{
    QTest::addColumn<bool>("isThemeThere");
    QTest::newRow("from the theme") << true;
    QTest::newRow("drawn, without the theme") << false;
}

void IconLooksTest::everyPictureShows()
{
    QFETCH(const bool, isThemeThere);
    const QString theme = QIcon::themeName();
    if (!isThemeThere) {
        QIcon::setThemeName(u"none"_s);
        QIcon::setFallbackThemeName(u"none"_s);
    }

    QStringList hardlySeen;
    // The last one is the program's own picture lit up, which is weaker than the picture by intention.
    for (int name = 0; name < static_cast<int>(Icon::ApplicationLit); ++name) {
        const QIcon icon = platform::icon(static_cast<Icon>(name));
        for (const QPalette::ColorRole ground : {QPalette::Window, QPalette::Base, QPalette::Button}) {
            if (pixelsSeen(icon, QApplication::palette().color(ground)) < kLeastPixels)
                hardlySeen += u"%1 on role %2"_s.arg(name).arg(ground);
        }
    }
    QIcon::setThemeName(theme);
    QIcon::setFallbackThemeName(theme);

    QVERIFY(looks::isSound(hardlySeen));
}

ORVANE_LOOKS_MAIN(IconLooksTest)
#include "tst_iconlooks.moc"
