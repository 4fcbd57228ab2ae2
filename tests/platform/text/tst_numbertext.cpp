// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/core/failurenumbers.h"
#include "platform/text/textfunctions.h"
#include "support/failureof.h"

#include <QTest>

#include <cmath>
#include <limits>

using namespace platform;
using namespace Qt::StringLiterals;
using support::failureOf;

class NumberTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void valReadsTheLeadingNumber_data();
    void valReadsTheLeadingNumber();
    void valOfVeryLongTextIsTheLargestNumber();
    void strPutsABlankInFront_data();
    void strPutsABlankInFront();
    void cStrGivesPlainDigits_data();
    void cStrGivesPlainDigits();
    void cDblReadsSpanishNumbers_data();
    void cDblReadsSpanishNumbers();
    void cDblRefusesOtherText_data();
    void cDblRefusesOtherText();
    void cDblOfTooLargeANumberOverflows();
    void cIntRoundsHalfToEven_data();
    void cIntRoundsHalfToEven();
    void cIntReadsZeroFilledText();
    void cIntOutsideSixteenBitsOverflows();
    void cIntOfEmptyTextIsATypeMismatch();
    void amountHasGroupsAndTwoDecimals_data();
    void amountHasGroupsAndTwoDecimals();
    void amountOfTextThatIsNoNumberComesBack_data();
    void amountOfTextThatIsNoNumberComesBack();
    void formattedAmountFormatsToItself();
};

void NumberTextTest::valReadsTheLeadingNumber_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("number");
    QTest::newRow("zero-filled") << u"00012"_s << 12.0;
    QTest::newRow("blanks at the right") << u"12   "_s << 12.0;
    QTest::newRow("blanks at the left") << u"  12"_s << 12.0;
    QTest::newRow("point is decimal") << u"12.5"_s << 12.5;
    QTest::newRow("comma stops") << u"12,50"_s << 12.0;
    QTest::newRow("thousands mark reads as decimal") << u"1.234,50"_s << 1.234;
    QTest::newRow("second point stops") << u"1.2.3"_s << 1.2;
    QTest::newRow("inner blank stops") << u"12 3"_s << 12.0;
    QTest::newRow("exponent stops") << u"1e3"_s << 1.0;
    QTest::newRow("hexadecimal is none") << u"&H10"_s << 0.0;
    QTest::newRow("letter behind") << u"15A"_s << 15.0;
    QTest::newRow("minus") << u"-7 uds"_s << -7.0;
    QTest::newRow("plus") << u"+7"_s << 7.0;
    QTest::newRow("blank after the sign") << u"- 7"_s << 0.0;
    QTest::newRow("two signs") << u"--7"_s << 0.0;
    QTest::newRow("point first") << u".5"_s << 0.5;
    QTest::newRow("point last") << u"5."_s << 5.0;
    QTest::newRow("point alone") << u"."_s << 0.0;
    QTest::newRow("empty") << u""_s << 0.0;
    QTest::newRow("blanks only") << u"   "_s << 0.0;
    QTest::newRow("letters") << u"ABC"_s << 0.0;
    QTest::newRow("tab isn't a blank") << u"\t5"_s << 0.0;
    QTest::newRow("word for no number") << u"nan"_s << 0.0;
    QTest::newRow("digits of another script") << u"\u0661"_s << 0.0;
    QTest::newRow("company entry") << u"00012 Ferretería"_s << 12.0;
}

void NumberTextTest::valReadsTheLeadingNumber()
{
    QFETCH(QString, text);
    QFETCH(double, number);
    QCOMPARE(Val(text), number);
}

void NumberTextTest::valOfVeryLongTextIsTheLargestNumber()
{
    QCOMPARE(Val(QString(400, u'9')), std::numeric_limits<double>::max());
    QCOMPARE(Val(u"0."_s + QString(400, u'0') + u'1'), 0.0);
}

void NumberTextTest::strPutsABlankInFront_data()
{
    QTest::addColumn<double>("number");
    QTest::addColumn<QString>("text");
    QTest::newRow("positive") << 91.0 << u" 91"_s;
    QTest::newRow("zero") << 0.0 << u" 0"_s;
    QTest::newRow("negative zero") << -0.0 << u" 0"_s;
    QTest::newRow("negative") << -91.0 << u"-91"_s;
    QTest::newRow("no zero before the point") << 0.5 << u" .5"_s;
    QTest::newRow("negative below one") << -0.5 << u"-.5"_s;
    QTest::newRow("point is the decimal mark") << 1234.5 << u" 1234.5"_s;
    QTest::newRow("fifteen digits") << 999999999999999.0 << u" 999999999999999"_s;
    QTest::newRow("ten to the fifteenth") << 1e15 << u" 1E+15"_s;
    QTest::newRow("a third") << 1.0 / 3 << u" .333333333333333"_s;
}

void NumberTextTest::strPutsABlankInFront()
{
    QFETCH(double, number);
    QFETCH(QString, text);
    QCOMPARE(Str(number), text);
}

void NumberTextTest::cStrGivesPlainDigits_data()
{
    QTest::addColumn<double>("number");
    QTest::addColumn<QString>("text");
    QTest::newRow("account") << 430123.0 << u"430123"_s;
    QTest::newRow("zero") << 0.0 << u"0"_s;
    QTest::newRow("negative") << -1.0 << u"-1"_s;
    QTest::newRow("half") << 0.5 << u"0,5"_s;
    QTest::newRow("comma is the decimal mark") << 1234.56 << u"1234,56"_s;
    QTest::newRow("small") << 0.001 << u"0,001"_s;
    QTest::newRow("binary dust is rounded away") << 0.1 + 0.2 << u"0,3"_s;
    QTest::newRow("zeros before the mark") << 1200000.0 << u"1200000"_s;
    QTest::newRow("ten digits") << 9999999999.0 << u"9999999999"_s;
    QTest::newRow("below ten to the fifteenth") << 999999999999999.0 << u"999999999999999"_s;
    QTest::newRow("ten to the fifteenth") << 1e15 << u"1E+15"_s;
    QTest::newRow("large with decimals") << -1.25e20 << u"-1,25E+20"_s;
    QTest::newRow("rounds up to ten to the fifteenth") << 999999999999999.9 << u"1E+15"_s;
    QTest::newRow("fifteen places") << 1e-15 << u"0,000000000000001"_s;
    QTest::newRow("more than fifteen places") << 1e-16 << u"1E-16"_s;
    QTest::newRow("a thirtieth") << 1.0 / 30 << u"3,33333333333333E-02"_s;
    QTest::newRow("three-digit exponent") << 1e300 << u"1E+300"_s;
    QTest::newRow("largest") << std::numeric_limits<double>::max() << u"1,79769313486232E+308"_s;
    QTest::newRow("infinite counts as the largest") << HUGE_VAL << u"1,79769313486232E+308"_s;
}

void NumberTextTest::cStrGivesPlainDigits()
{
    QFETCH(double, number);
    QFETCH(QString, text);
    QCOMPARE(CStr(number), text);
}

void NumberTextTest::cDblReadsSpanishNumbers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("number");
    QTest::newRow("digits") << u"0000000012"_s << 12.0;
    QTest::newRow("comma is decimal") << u"12,5"_s << 12.5;
    QTest::newRow("point marks thousands") << u"1.234,50"_s << 1234.5;
    QTest::newRow("point is never decimal") << u"12.5"_s << 125.0;
    QTest::newRow("blanks at both ends") << u"  7  "_s << 7.0;
    QTest::newRow("minus") << u"-1"_s << -1.0;
    QTest::newRow("plus") << u"+1"_s << 1.0;
    QTest::newRow("comma first") << u",5"_s << 0.5;
    QTest::newRow("comma last") << u"5,"_s << 5.0;
    QTest::newRow("minus zero") << u"-0"_s << 0.0;
}

void NumberTextTest::cDblReadsSpanishNumbers()
{
    QFETCH(QString, text);
    QFETCH(double, number);
    QCOMPARE(CDbl(text), number);
}

void NumberTextTest::cDblRefusesOtherText_data()
{
    QTest::addColumn<QString>("text");
    for (const auto& text : {u""_s,    u"   "_s,  u"abc"_s,   u"12a"_s,   u"1 2"_s,    u"-"_s,   u","_s,
                             u"."_s,   u".5"_s,   u"1,2,3"_s, u"1,2.3"_s, u"--1"_s,    u"1e3"_s, u"nan"_s,
                             u"inf"_s, u"&H10"_s, u"(5)"_s,   u"5 €"_s,   u"\u0661"_s, u"12\t"_s})
        QTest::newRow(qPrintable(u'"' + text + u'"')) << text;
}

void NumberTextTest::cDblRefusesOtherText()
{
    QFETCH(QString, text);
    QCOMPARE(failureOf([&] { return CDbl(text); }), kTypeMismatch);
}

void NumberTextTest::cDblOfTooLargeANumberOverflows()
{
    QCOMPARE(failureOf([] { return CDbl(QString(400, u'9')); }), kOverflow);
}

void NumberTextTest::cIntRoundsHalfToEven_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("number");
    QTest::newRow("0,5") << u"0,5"_s << 0;
    QTest::newRow("1,5") << u"1,5"_s << 2;
    QTest::newRow("2,5") << u"2,5"_s << 2;
    QTest::newRow("3,5") << u"3,5"_s << 4;
    QTest::newRow("-2,5") << u"-2,5"_s << -2;
    QTest::newRow("2,51") << u"2,51"_s << 3;
    QTest::newRow("2,49") << u"2,49"_s << 2;
}

void NumberTextTest::cIntRoundsHalfToEven()
{
    QFETCH(QString, text);
    QFETCH(int, number);
    QCOMPARE(int{CInt(text)}, number);
}

void NumberTextTest::cIntReadsZeroFilledText()
{
    QCOMPARE(int{CInt(u"0001")}, 1);
    QCOMPARE(int{CInt(u"-1")}, -1);
}

void NumberTextTest::cIntOutsideSixteenBitsOverflows()
{
    QCOMPARE(int{CInt(32767.4)}, 32767);
    QCOMPARE(int{CInt(-32768.5)}, -32768);
    QCOMPARE(failureOf([] { return CInt(32767.5); }), kOverflow);
    QCOMPARE(failureOf([] { return CInt(u"32768"); }), kOverflow);
    QCOMPARE(failureOf([] { return CInt(u"-32769"); }), kOverflow);
    QCOMPARE(failureOf([] { return CInt(std::nan("")); }), kOverflow);
}

void NumberTextTest::cIntOfEmptyTextIsATypeMismatch()
{
    QCOMPARE(failureOf([] { return CInt(u""); }), kTypeMismatch);
}

void NumberTextTest::amountHasGroupsAndTwoDecimals_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("amount");
    QTest::newRow("no zero before the comma") << u"0,5"_s << u",50"_s;
    QTest::newRow("zero") << u"0"_s << u",00"_s;
    QTest::newRow("cents below ten") << u"0,05"_s << u",05"_s;
    QTest::newRow("one digit") << u"7"_s << u"7,00"_s;
    QTest::newRow("three digits") << u"999"_s << u"999,00"_s;
    QTest::newRow("four digits") << u"1234,5"_s << u"1.234,50"_s;
    QTest::newRow("seven digits") << u"1234567,891"_s << u"1.234.567,89"_s;
    QTest::newRow("zeros at the end") << u"1000000"_s << u"1.000.000,00"_s;
    QTest::newRow("half up") << u"1,005"_s << u"1,01"_s;
    QTest::newRow("half away from zero") << u"-1,005"_s << u"-1,01"_s;
    QTest::newRow("carry through all digits") << u"999,995"_s << u"1.000,00"_s;
    QTest::newRow("carry into the first digit") << u"0,995"_s << u"1,00"_s;
    QTest::newRow("rounded to a cent") << u"0,005"_s << u",01"_s;
    QTest::newRow("rounded to nothing") << u"0,004"_s << u",00"_s;
    QTest::newRow("minus is lost with nothing") << u"-0,004"_s << u",00"_s;
    QTest::newRow("far below a cent") << u"0,0000001"_s << u",00"_s;
    QTest::newRow("minus first") << u"-1234"_s << u"-1.234,00"_s;
    QTest::newRow("point marks thousands") << u"12.5"_s << u"125,00"_s;
}

void NumberTextTest::amountHasGroupsAndTwoDecimals()
{
    QFETCH(QString, text);
    QFETCH(QString, amount);
    QCOMPARE(FormatAmount(text), amount);
}

void NumberTextTest::amountOfTextThatIsNoNumberComesBack_data()
{
    QTest::addColumn<QString>("text");
    for (const auto& text : {u""_s, u"abc"_s, u" 12 a "_s, u"1,2,3"_s})
        QTest::newRow(qPrintable(u'"' + text + u'"')) << text;
}

void NumberTextTest::amountOfTextThatIsNoNumberComesBack()
{
    QFETCH(QString, text);
    QCOMPARE(FormatAmount(text), text);
}

void NumberTextTest::formattedAmountFormatsToItself()
{
    QCOMPARE(FormatAmount(FormatAmount(u"-1234567,891")), u"-1.234.567,89"_s);
    QCOMPARE(FormatAmount(FormatAmount(u"0,5")), u",50"_s);
}

QTEST_GUILESS_MAIN(NumberTextTest)
#include "tst_numbertext.moc"
