// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/core/failurenumbers.h"
#include "platform/text/textfunctions.h"
#include "support/failureof.h"

#include <QTest>

using namespace platform;
using namespace Qt::StringLiterals;
using support::failureOf;

class TextFunctionsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isNumericWantsTheWholeText_data();
    void isNumericWantsTheWholeText();
    void trimTakesBlanksOnlyAndOnlyAtTheEnds();
    void lTrimLeavesTheRightEnd();
    void leftGivesWhatThereIs();
    void leftOfNegativeLengthFails();
    void midCountsFromOne();
    void midPastTheEndIsEmpty();
    void midBeforeTheFirstPositionFails();
    void midOfNegativeLengthFails();
    void positionsCountUtf16Units();
    void inStrCountsFromOne();
    void inStrComparesBinary();
    void inStrInAnEmptyTextIsZero();
    void inStrRevFindsTheLast();
    void stringRepeatsTheCharacter();
    void stringOfNegativeLengthFails();
    void uCaseStaysInsideTheRepertoire_data();
    void uCaseStaysInsideTheRepertoire();
    void beginningIgnoresCaseAndNothingElse_data();
    void beginningIgnoresCaseAndNothingElse();
    void ascGivesTheWindows1252Code_data();
    void ascGivesTheWindows1252Code();
    void ascOfEmptyTextFails();
    void ascOfACharacterWithoutCodeIsOutOfBounds();
    void ascOfTheZeroCharacterIsOutOfBounds();
    void dateIsZeroPadded();
    void timeIsZeroPaddedInTwentyFourHours();
};

void TextFunctionsTest::isNumericWantsTheWholeText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("numeric");
    QTest::newRow("digits") << u"00012"_s << true;
    QTest::newRow("blanks at the right") << u"12   "_s << true;
    QTest::newRow("blanks at the left") << u"   12"_s << true;
    QTest::newRow("minus") << u"-1234"_s << true;
    QTest::newRow("plus") << u"+1234"_s << true;
    QTest::newRow("decimal point") << u"12.34"_s << true;
    QTest::newRow("decimal comma") << u"12,34"_s << true;
    QTest::newRow("point at the beginning") << u".5"_s << true;
    QTest::newRow("point at the end") << u"5."_s << true;
    QTest::newRow("five zeros") << u"00000"_s << true;
    QTest::newRow("empty") << u""_s << false;
    QTest::newRow("blanks only") << u"     "_s << false;
    QTest::newRow("letters") << u"ABCDE"_s << false;
    QTest::newRow("inner blank") << u"1 234"_s << false;
    QTest::newRow("sign alone") << u"-"_s << false;
    QTest::newRow("point alone") << u"."_s << false;
    QTest::newRow("two points") << u"1.2.3"_s << false;
    QTest::newRow("two signs") << u"--12"_s << false;
    QTest::newRow("sign at the end") << u"12-"_s << false;
    QTest::newRow("exponent") << u"1e3"_s << false;
    QTest::newRow("hexadecimal") << u"&H12"_s << false;
    QTest::newRow("tab") << u"\t12"_s << false;
    QTest::newRow("digits of another script") << u"\u0661\u0662"_s << false;
    QTest::newRow("word for no number") << u"nan"_s << false;
    QTest::newRow("word for infinity") << u"inf"_s << false;
}

void TextFunctionsTest::isNumericWantsTheWholeText()
{
    QFETCH(QString, text);
    QFETCH(bool, numeric);
    QCOMPARE(IsNumeric(text), numeric);
}

void TextFunctionsTest::trimTakesBlanksOnlyAndOnlyAtTheEnds()
{
    QCOMPARE(Trim(u"  a b\t "), u"a b\t"_s);
    QCOMPARE(Trim(u"\r\n"), u"\r\n"_s);
    QCOMPARE(Trim(u"\u00A0"), u"\u00A0"_s);
    QCOMPARE(Trim(u"   "), u""_s);
}

void TextFunctionsTest::lTrimLeavesTheRightEnd()
{
    QCOMPARE(LTrim(u"  a "), u"a "_s);
}

void TextFunctionsTest::leftGivesWhatThereIs()
{
    QCOMPARE(Left(u"12345", 2), u"12"_s);
    QCOMPARE(Left(u"12", 5), u"12"_s);
    QCOMPARE(Left(u"12", 0), u""_s);
    QCOMPARE(Left(u"", 3), u""_s);
}

void TextFunctionsTest::leftOfNegativeLengthFails()
{
    const QString shortName = u"a.b"_s;

    QCOMPARE(failureOf([&] { return Left(shortName, shortName.size() - 4); }), kInvalidProcedureCall);
}

void TextFunctionsTest::midCountsFromOne()
{
    QCOMPARE(Mid(u"00012 ana", 7), u"ana"_s);
    QCOMPARE(Mid(u"31/12/2026", 4, 2), u"12"_s);
    QCOMPARE(Mid(u"31/12/2026", 7, 4), u"2026"_s);
    QCOMPARE(Mid(u"abc", 2, 10), u"bc"_s);
}

void TextFunctionsTest::midPastTheEndIsEmpty()
{
    QCOMPARE(Mid(u"00012", 7), u""_s);
    QCOMPARE(Mid(u"abc", 4), u""_s);
    QCOMPARE(Mid(u"abc", 9, 2), u""_s);
}

void TextFunctionsTest::midBeforeTheFirstPositionFails()
{
    QCOMPARE(failureOf([] { return Mid(u"abc", 0); }), kInvalidProcedureCall);
    QCOMPARE(failureOf([] { return Mid(u"abc", 0, 1); }), kInvalidProcedureCall);
}

void TextFunctionsTest::midOfNegativeLengthFails()
{
    QCOMPARE(failureOf([] { return Mid(u"abc", 1, -1); }), kInvalidProcedureCall);
}

void TextFunctionsTest::positionsCountUtf16Units()
{
    const QString text = u"\U0001F600b"_s;

    QCOMPARE(Mid(text, 3), u"b"_s);
    QCOMPARE(InStr(text, u"b"), qsizetype{3});
}

void TextFunctionsTest::inStrCountsFromOne()
{
    QCOMPARE(InStr(u"Artículo", u"Art"), qsizetype{1});
    QCOMPARE(InStr(u"Cod. Artículo", u"Artículo"), qsizetype{6});
    QCOMPARE(InStr(u"Zona", u"x"), qsizetype{0});
    QCOMPARE(InStr(u"Zona", u""), qsizetype{1});
}

void TextFunctionsTest::inStrComparesBinary()
{
    QCOMPARE(InStr(u"ARTÍCULO", u"artículo"), qsizetype{0});
}

void TextFunctionsTest::inStrInAnEmptyTextIsZero()
{
    QCOMPARE(InStr(u"", u""), qsizetype{0});
    QCOMPARE(InStrRev(u"", u""), qsizetype{0});
    QCOMPARE(InStr(u"", u"a"), qsizetype{0});
}

void TextFunctionsTest::inStrRevFindsTheLast()
{
    QCOMPARE(InStrRev(u"C:\\Q\\Empresa", u"\\"), qsizetype{5});
    QCOMPARE(InStrRev(u"abc", u"\\"), qsizetype{0});
    QCOMPARE(InStrRev(u"abc", u""), qsizetype{3});
}

void TextFunctionsTest::stringRepeatsTheCharacter()
{
    QCOMPARE(String(3, u'0'), u"000"_s);
    QCOMPARE(String(0, u'0'), u""_s);
}

void TextFunctionsTest::stringOfNegativeLengthFails()
{
    QCOMPARE(failureOf([] { return String(-1, u'0'); }), kInvalidProcedureCall);
}

void TextFunctionsTest::uCaseStaysInsideTheRepertoire_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("upper");
    QTest::newRow("plain letters") << u"abcXYZ1"_s << u"ABCXYZ1"_s;
    QTest::newRow("accents and ene") << u"áéíóúüñç"_s << u"ÁÉÍÓÚÜÑÇ"_s;
    QTest::newRow("sharp s stays one character") << u"ß"_s << u"ß"_s;
    QTest::newRow("micro sign stays") << u"µ"_s << u"µ"_s;
    QTest::newRow("florin stays") << u"ƒ"_s << u"ƒ"_s;
    QTest::newRow("y with diaeresis") << u"ÿ"_s << u"Ÿ"_s;
    QTest::newRow("s with caron") << u"šžœ"_s << u"ŠŽŒ"_s;
    QTest::newRow("ordinals stay") << u"1º 2ª"_s << u"1º 2ª"_s;
}

void TextFunctionsTest::uCaseStaysInsideTheRepertoire()
{
    QFETCH(QString, text);
    QFETCH(QString, upper);
    QCOMPARE(UCase(text), upper);
}

void TextFunctionsTest::beginningIgnoresCaseAndNothingElse_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("beginning");
    QTest::addColumn<bool>("begins");
    QTest::newRow("another case") << u"Ñíguez"_s << u"ñÍG"_s << true;
    QTest::newRow("the whole text") << u"Chacón"_s << u"CHACÓN"_s << true;
    QTest::newRow("an accent tells apart") << u"Chacón"_s << u"chaco"_s << false;
    QTest::newRow("longer than the text") << u"Ch"_s << u"Cha"_s << false;
    QTest::newRow("nothing begins all") << u"Ch"_s << u""_s << true;
    QTest::newRow("nothing begins nothing") << u""_s << u""_s << true;
}

void TextFunctionsTest::beginningIgnoresCaseAndNothingElse()
{
    QFETCH(QString, text);
    QFETCH(QString, beginning);
    QTEST(beginsIgnoringCase(text, beginning), "begins");
}

void TextFunctionsTest::ascGivesTheWindows1252Code_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("code");
    QTest::newRow("letter") << u"Ana"_s << 65;
    QTest::newRow("blank") << u" "_s << 32;
    QTest::newRow("ene") << u"Ñ"_s << 0xD1;
    QTest::newRow("euro") << u"€"_s << 0x80;
    QTest::newRow("last code") << u"ÿ"_s << 255;
    QTest::newRow("first code") << u"\u0001"_s << 1;
}

void TextFunctionsTest::ascGivesTheWindows1252Code()
{
    QFETCH(QString, text);
    QFETCH(int, code);
    QCOMPARE(Asc(text), code);
}

void TextFunctionsTest::ascOfEmptyTextFails()
{
    QCOMPARE(failureOf([] { return Asc(u""); }), kInvalidProcedureCall);
}

void TextFunctionsTest::ascOfACharacterWithoutCodeIsOutOfBounds()
{
    QCOMPARE(failureOf([] { return Asc(u"Ω"); }), kSubscriptOutOfRange);
    QCOMPARE(failureOf([] { return Asc(u"\U0001F600"); }), kSubscriptOutOfRange);
}

void TextFunctionsTest::ascOfTheZeroCharacterIsOutOfBounds()
{
    QCOMPARE(failureOf([] { return Asc(QString(QChar(u'\0'))); }), kSubscriptOutOfRange);
}

void TextFunctionsTest::dateIsZeroPadded()
{
    QCOMPARE(FormatDate(QDate(2026, 3, 7)), u"07/03/2026"_s);
    QCOMPARE(FormatDate(QDate(987, 12, 31)), u"31/12/0987"_s);
}

void TextFunctionsTest::timeIsZeroPaddedInTwentyFourHours()
{
    QCOMPARE(FormatTime(QTime(9, 5, 3)), u"09:05:03"_s);
    QCOMPARE(FormatTime(QTime(23, 59, 59)), u"23:59:59"_s);
    QCOMPARE(FormatTime(QTime(0, 0, 0)), u"00:00:00"_s);
}

QTEST_GUILESS_MAIN(TextFunctionsTest)
#include "tst_textfunctions.moc"
