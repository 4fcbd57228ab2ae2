// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/window/flexcolumn.h"

#include <QTest>

using namespace Qt::StringLiterals;

class FlexColumnTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void look_data();
    void look();
    void ticked_data();
    void ticked();
    void maskOfDigitsAllowsBlanks();
    void columnWithoutMaskHasNoInputMask();
};

void FlexColumnTest::look_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("look");

    QTest::newRow("no format leaves the value") << u"1234,5"_s << QString() << u"1234,5"_s;
    QTest::newRow("an amount is grouped") << u"1234,5"_s << u"##,##.00"_s << u"1.234,50"_s;
    QTest::newRow("a text under the amount format stays") << u"abc"_s << u"##,##.00"_s << u"abc"_s;
    QTest::newRow("an empty amount stays empty") << QString() << u"##,##.00"_s << QString();
    QTest::newRow("a date stays") << u"01/02/2024"_s << u"dd/mm/yyyy"_s << u"01/02/2024"_s;
    QTest::newRow("an emptied date looks empty") << u"  /  /    "_s << u"dd/mm/yyyy"_s << QString();
    QTest::newRow("letters under the date format stay") << u"ayer"_s << u"dd/mm/yyyy"_s << u"ayer"_s;
}

void FlexColumnTest::look()
{
    QFETCH(QString, value);
    QFETCH(QString, format);

    QTEST(platform::formattedLook(value, format), "look");
}

void FlexColumnTest::ticked_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isTicked");

    QTest::newRow("1 is ticked") << u"1"_s << true;
    QTest::newRow("0 is unticked") << u"0"_s << false;
    QTest::newRow("the empty text is unticked") << QString() << false;
    QTest::newRow("-1 is ticked") << u"-1"_s << true;
    QTest::newRow("letters are unticked") << u"x"_s << false;
}

void FlexColumnTest::ticked()
{
    QFETCH(QString, text);

    QTEST(platform::isTickedText(text), "isTicked");
}

void FlexColumnTest::maskOfDigitsAllowsBlanks()
{
    QCOMPARE(platform::inputMaskFor(u"99/99/9999"_s), u"00/00/0000; "_s);
}

void FlexColumnTest::columnWithoutMaskHasNoInputMask()
{
    QCOMPARE(platform::inputMaskFor({}), QString());
}

QTEST_GUILESS_MAIN(FlexColumnTest)
#include "tst_flexcolumn.moc"
