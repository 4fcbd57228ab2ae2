// SPDX-License-Identifier: GPL-3.0-or-later
#include "assistance/longitudes.h"

#include "shell/globalsat.h"

#include <QtTest>

using namespace Qt::StringLiterals;

class LongitudesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void codeOfDigitsIsFilledAndAnyOtherIsTrimmed_data();
    void codeOfDigitsIsFilledAndAnyOtherIsTrimmed();
    void numberWiderThanTheFieldLeavesTheLastResult();
    void filledCodeIsTheSameWhenFilledAgain();
};

void LongitudesTest::init()
{
    resetProgramState();
}

void LongitudesTest::codeOfDigitsIsFilledAndAnyOtherIsTrimmed_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<int>("width");
    QTest::addColumn<QString>("result");

    QTest::newRow("digits are filled to ten") << u"123"_s << 10 << u"0000000123"_s;
    QTest::newRow("typed zeros are rebuilt") << u"0007"_s << 10 << u"0000000007"_s;
    QTest::newRow("a letter stays as typed") << u"A1"_s << 10 << u"A1"_s;
    QTest::newRow("zero gives zeros") << u"0"_s << 10 << u"0000000000"_s;
    QTest::newRow("an inner blank isn't a digit") << u"12 3"_s << 10 << u"12 3"_s;
    QTest::newRow("blanks round letters go") << u"  C100 "_s << 10 << u"C100"_s;
    QTest::newRow("width of four") << u"12"_s << 4 << u"0012"_s;
    QTest::newRow("exact width") << u"9999999999"_s << 10 << u"9999999999"_s;
    QTest::newRow("a sign isn't a digit") << u"-5"_s << 10 << u"-5"_s;
    QTest::newRow("digits of another script aren't digits") << u"\u0661\u0662"_s << 10 << u"\u0661\u0662"_s;
}

void LongitudesTest::codeOfDigitsIsFilledAndAnyOtherIsTrimmed()
{
    QFETCH(const QString, code);
    QFETCH(const int, width);
    VALORLONGITUD = code;
    ANCHOLONGITUD = width;

    AJUSTALONGITUD();

    QTEST(RESULTADOLONGITUD, "result");
}

void LongitudesTest::numberWiderThanTheFieldLeavesTheLastResult()
{
    RESULTADOLONGITUD = u"0012"_s;
    VALORLONGITUD = u"12345"_s;
    ANCHOLONGITUD = 4;

    AJUSTALONGITUD();

    QCOMPARE(RESULTADOLONGITUD, u"0012"_s);
}

void LongitudesTest::filledCodeIsTheSameWhenFilledAgain()
{
    VALORLONGITUD = u"58"_s;
    ANCHOLONGITUD = 10;
    AJUSTALONGITUD();
    VALORLONGITUD = RESULTADOLONGITUD;

    AJUSTALONGITUD();

    QCOMPARE(RESULTADOLONGITUD, u"0000000058"_s);
}

QTEST_GUILESS_MAIN(LongitudesTest)
#include "tst_longitudes.moc"
