// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/launch.h"

#include <QtTest>

using namespace Qt::StringLiterals;

class LaunchTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void commandLineIsTheArgumentsJoinedBySingleBlanks_data();
    void commandLineIsTheArgumentsJoinedBySingleBlanks();
    void lengthNeverEqualsTheEmptyText_data();
    void lengthNeverEqualsTheEmptyText();
    void companyAndUserAreCutFromTheTrimmedLine_data();
    void companyAndUserAreCutFromTheTrimmedLine();
    void contractIsTested_data();
    void contractIsTested();
    void titleEndsInTheVersion();
    void bandFallsOutsideTheScreen_data();
    void bandFallsOutsideTheScreen();
};

void LaunchTest::commandLineIsTheArgumentsJoinedBySingleBlanks_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("expected");

    QTest::newRow("none") << QStringList{u"orvane"_s} << QString();
    QTest::newRow("one") << QStringList{u"orvane"_s, u"00012 ana"_s} << u"00012 ana"_s;
    QTest::newRow("two") << QStringList{u"orvane"_s, u"00012"_s, u"ana"_s} << u"00012 ana"_s;
    QTest::newRow("user of two words")
        << QStringList{u"orvane"_s, u"00012"_s, u"ana"_s, u"paz"_s} << u"00012 ana paz"_s;
    QTest::newRow("blanks inside an argument stay")
        << QStringList{u"orvane"_s, u"12   ana"_s} << u"12   ana"_s;
}

void LaunchTest::commandLineIsTheArgumentsJoinedBySingleBlanks()
{
    QFETCH(QStringList, arguments);

    QTEST(shell::commandLine(arguments), "expected");
}

void LaunchTest::lengthNeverEqualsTheEmptyText_data()
{
    QTest::addColumn<QString>("line");

    QTest::newRow("empty line") << QString();
    QTest::newRow("usual line") << u"00012 ana"_s;
}

void LaunchTest::lengthNeverEqualsTheEmptyText()
{
    QFETCH(QString, line);

    QVERIFY(!shell::isLaunchedByHand(line));
}

void LaunchTest::companyAndUserAreCutFromTheTrimmedLine_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("company");
    QTest::addColumn<QString>("user");

    QTest::newRow("usual") << u"00012 ana"_s << u"00012"_s << u"ana"_s;
    QTest::newRow("sixth character is not looked at") << u"00012xana"_s << u"00012"_s << u"ana"_s;
    QTest::newRow("short number with blanks") << u"12   ana"_s << u"12   "_s << u"na"_s;
    QTest::newRow("blanks at both ends") << u"  00012 ana  "_s << u"00012"_s << u"ana"_s;
    QTest::newRow("user with blanks") << u"00012 ana paz"_s << u"00012"_s << u"ana paz"_s;
    QTest::newRow("number alone") << u"00012"_s << u"00012"_s << u""_s;
    QTest::newRow("number and separator") << u"00012x"_s << u"00012"_s << u""_s;
    QTest::newRow("empty") << u""_s << u""_s << u""_s;
}

void LaunchTest::companyAndUserAreCutFromTheTrimmedLine()
{
    QFETCH(QString, line);

    QTEST(shell::companyNumber(line), "company");
    QTEST(shell::userName(line), "user");
}

void LaunchTest::contractIsTested_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("message");

    QTest::newRow("usual") << u"00012 ana"_s << QString();
    QTest::newRow("short number with blanks") << u"12   ana"_s << QString();
    QTest::newRow("zeros") << u"00000 ana"_s << QString();
    QTest::newRow("sign") << u"-0012 ana"_s << QString();
    QTest::newRow("decimal point") << u"12.50 ana"_s << QString();
    QTest::newRow("empty") << u""_s << u"Parámetro incorrecto"_s;
    QTest::newRow("fewer than five") << u"0012"_s << u"Parámetro incorrecto"_s;
    QTest::newRow("letters") << u"ABCDE ana"_s << u"Parámetro incorrecto"_s;
    QTest::newRow("number with a letter") << u"0001A ana"_s << u"Parámetro incorrecto"_s;
    QTest::newRow("five characters") << u"00012"_s << u"El usuario no es correcto"_s;
    QTest::newRow("six characters") << u"00012x"_s << u"El usuario no es correcto"_s;
}

void LaunchTest::contractIsTested()
{
    QFETCH(QString, line);

    QTEST(shell::launchFault(shell::companyNumber(line), shell::userName(line)).value_or(QString()),
          "message");
}

void LaunchTest::titleEndsInTheVersion()
{
    QCOMPARE(shell::mainWindowTitle(3, 32, 3009), u"Orvane - Gestión S.A.T. para Quenda Build 3.32.3009"_s);
}

void LaunchTest::bandFallsOutsideTheScreen_data()
{
    QTest::addColumn<QRect>("screen");
    QTest::addColumn<double>("dotsPerInch");
    QTest::addColumn<QPoint>("topLeft");
    QTest::addColumn<int>("width");

    QTest::newRow("96 dots an inch") << QRect(0, 0, 1920, 1080) << 96.0 << QPoint(-2, -2) << 1925;
    QTest::newRow("192 dots an inch") << QRect(0, 0, 1920, 1080) << 192.0 << QPoint(-5, -5) << 1929;
    QTest::newRow("second screen") << QRect(1920, 0, 1024, 700) << 96.0 << QPoint(1918, -2) << 1029;
}

void LaunchTest::bandFallsOutsideTheScreen()
{
    QFETCH(QRect, screen);
    QFETCH(double, dotsPerInch);

    const shell::BandPlacement band = shell::bandPlacement(screen, dotsPerInch);

    QTEST(band.topLeft, "topLeft");
    QTEST(band.width, "width");
}

QTEST_GUILESS_MAIN(LaunchTest)
#include "tst_launch.moc"
