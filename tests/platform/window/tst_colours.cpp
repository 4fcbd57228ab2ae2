// SPDX-License-Identifier: GPL-3.0-or-later

// Contrast, and the palettes of desktops made readable.

#include "platform/window/colours.h"

#include <QStyle>
#include <QStyleFactory>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using platform::contrast;
using platform::kTextContrast;

namespace {

/// A text's role, and a ground that it stands on.
struct Pair
{
    QPalette::ColorRole ink;
    QPalette::ColorRole ground;
};

const QList<Pair> kPairs{
    {QPalette::WindowText, QPalette::Window},
    {QPalette::WindowText, QPalette::Base},
    {QPalette::Text, QPalette::Base},
    {QPalette::Text, QPalette::AlternateBase},
    {QPalette::Text, QPalette::Window},
    {QPalette::ButtonText, QPalette::Button},
    {QPalette::ToolTipText, QPalette::ToolTipBase},
    {QPalette::Link, QPalette::Base},
    {QPalette::Link, QPalette::Window},
    {QPalette::LinkVisited, QPalette::Window},
    {QPalette::PlaceholderText, QPalette::Base},
    {QPalette::HighlightedText, QPalette::Highlight},
};

QPalette fusion()
{
    const std::unique_ptr<QStyle> style(QStyleFactory::create(u"Fusion"_s));
    return style->standardPalette();
}

QPalette made(const QColor& window, const QColor& base, const QColor& ink, const QColor& highlight,
              const QColor& highlightedText)
{
    QPalette palette(window, window);
    palette.setColor(QPalette::Base, base);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(role, ink);
    palette.setColor(QPalette::Highlight, highlight);
    palette.setColor(QPalette::HighlightedText, highlightedText);
    return palette;
}

} // namespace

class ColoursTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void contrastIsThatOfTheGuidelines_data();
    void contrastIsThatOfTheGuidelines();
    void quietInkIsTheWeakestThatHolds();
    void inkThatHoldsIsLeftAlone();
    void everyTextOfAPaletteCanBeRead_data();
    void everyTextOfAPaletteCanBeRead();
    void highlightShowsAsAMarkOnEveryGround_data() { everyTextOfAPaletteCanBeRead_data(); }
    void highlightShowsAsAMarkOnEveryGround();
    void disabledTextIsQuieterThanTheOthers();
    void readablePaletteStaysAsItIs();
    void lightHighlightKeepsItsWhiteText();
};

void ColoursTest::contrastIsThatOfTheGuidelines_data()
{
    QTest::addColumn<QColor>("one");
    QTest::addColumn<QColor>("other");
    QTest::addColumn<double>("wanted");
    QTest::newRow("black and white") << QColor(Qt::black) << QColor(Qt::white) << 21.0;
    QTest::newRow("the same") << QColor(Qt::gray) << QColor(Qt::gray) << 1.0;
    QTest::newRow("the grey that just can be read") << QColor(0x76, 0x76, 0x76) << QColor(Qt::white) << 4.54;
    QTest::newRow("pure red") << QColor(Qt::white) << QColor(255, 0, 0) << 4.0;
}

void ColoursTest::contrastIsThatOfTheGuidelines()
{
    QFETCH(const QColor, one);
    QFETCH(const QColor, other);
    QFETCH(const double, wanted);

    QVERIFY(qAbs(contrast(one, other) - wanted) < 0.01);
    QCOMPARE(contrast(other, one), contrast(one, other));
}

void ColoursTest::quietInkIsTheWeakestThatHolds()
{
    const QColor ink = platform::quiet(Qt::black, {Qt::white, QColor(240, 240, 240)}, kTextContrast);

    const double held = contrast(ink, QColor(240, 240, 240));
    QVERIFY(held >= kTextContrast);
    QVERIFY(held < kTextContrast + 0.3);
}

void ColoursTest::inkThatHoldsIsLeftAlone()
{
    const QColor ink(20, 40, 60);

    QCOMPARE(platform::withContrast(ink, {Qt::white}, kTextContrast), ink);
}

void ColoursTest::everyTextOfAPaletteCanBeRead_data()
{
    QTest::addColumn<QPalette>("palette");
    QTest::newRow("fusion") << fusion();
    QTest::newRow("light, a pale highlight")
        << made({239, 240, 241}, Qt::white, {35, 38, 41}, {61, 174, 233}, {252, 252, 252});
    QTest::newRow("dark") << made({49, 54, 59}, {35, 38, 41}, {239, 240, 241}, {61, 174, 233},
                                  {252, 252, 252});
    QTest::newRow("dark, black on the highlight")
        << made({53, 53, 53}, {42, 42, 42}, Qt::white, {42, 130, 218}, Qt::black);
    QTest::newRow("faint ink") << made({200, 200, 200}, {220, 220, 220}, {130, 130, 130}, {190, 200, 210},
                                       {230, 230, 230});
}

void ColoursTest::everyTextOfAPaletteCanBeRead()
{
    QFETCH(const QPalette, palette);
    const QPalette readable = platform::readable(palette);

    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        for (const Pair& pair : kPairs) {
            const double held = contrast(readable.color(group, pair.ink), readable.color(group, pair.ground));
            QVERIFY2(
                held >= kTextContrast,
                qPrintable(
                    u"group %1, role %2 on %3: %4"_s.arg(group).arg(pair.ink).arg(pair.ground).arg(held)));
        }
    }
}

void ColoursTest::highlightShowsAsAMarkOnEveryGround()
{
    QFETCH(const QPalette, palette);
    const QPalette readable = platform::readable(palette);

    for (const QPalette::ColorRole ground : {QPalette::Base, QPalette::Window, QPalette::Button})
        QVERIFY(contrast(platform::focusMark(readable), readable.color(ground)) >= platform::kMarkContrast);
    QVERIFY(contrast(platform::outline(readable), readable.color(QPalette::Base)) >= platform::kMarkContrast);
}

void ColoursTest::disabledTextIsQuieterThanTheOthers()
{
    const QPalette readable = platform::readable(fusion());

    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        const QColor ground = readable.color(QPalette::Disabled, QPalette::Window);
        const double quiet = contrast(readable.color(QPalette::Disabled, role), ground);
        QVERIFY(quiet >= kTextContrast);
        QVERIFY(quiet < contrast(readable.color(QPalette::Active, role), ground) / 2);
    }
}

void ColoursTest::readablePaletteStaysAsItIs()
{
    const QPalette once = platform::readable(fusion());

    QCOMPARE(platform::readable(once), once);
}

void ColoursTest::lightHighlightKeepsItsWhiteText()
{
    const QPalette readable = platform::readable(fusion());

    QCOMPARE(readable.color(QPalette::HighlightedText), QColor(Qt::white));
    QCOMPARE(readable.color(QPalette::Highlight).hslHue() / 10,
             fusion().color(QPalette::Highlight).hslHue() / 10);
}

QTEST_MAIN(ColoursTest)
#include "tst_colours.moc"
