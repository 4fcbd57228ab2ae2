// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/core/failurenumbers.h"
#include "platform/text/likepattern.h"
#include "support/failureof.h"

#include <QElapsedTimer>
#include <QTest>

using namespace platform;
using namespace Qt::StringLiterals;
using support::failureOf;

class LikePatternTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void patternFitsTheWholeText_data();
    void patternFitsTheWholeText();
    void unclosedSetFails_data();
    void unclosedSetFails();
    void unclosedSetFailsWhateverTheText();
    void manyRunsStayFast();
};

void LikePatternTest::patternFitsTheWholeText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<bool>("fits");
    QTest::newRow("run on both sides") << u"Ferretería López"_s << u"*lópez*"_s << true;
    QTest::newRow("run takes nothing") << u"lópez"_s << u"*lópez*"_s << true;
    QTest::newRow("not there") << u"García"_s << u"*lópez*"_s << false;
    QTest::newRow("case is ignored") << u"ÑOÑO"_s << u"ñoño"_s << true;
    QTest::newRow("accents tell apart") << u"Lopez"_s << u"*lópez*"_s << false;
    QTest::newRow("whole text, more behind") << u"abcd"_s << u"abc"_s << false;
    QTest::newRow("whole text, more before") << u"xabc"_s << u"abc"_s << false;
    QTest::newRow("blank at the end counts") << u"abc "_s << u"abc"_s << false;
    QTest::newRow("empty text, empty pattern") << u""_s << u""_s << true;
    QTest::newRow("empty text, run") << u""_s << u"**"_s << true;
    QTest::newRow("empty text, one character") << u""_s << u"?"_s << false;
    QTest::newRow("one character") << u"casa"_s << u"c?sa"_s << true;
    QTest::newRow("one character can't be none") << u"csa"_s << u"c?sa"_s << false;
    QTest::newRow("digit") << u"piso 3"_s << u"piso #"_s << true;
    QTest::newRow("letter is no digit") << u"piso b"_s << u"piso #"_s << false;
    QTest::newRow("digit of another script is none") << u"\u0663"_s << u"#"_s << false;
    QTest::newRow("set") << u"b"_s << u"[abc]"_s << true;
    QTest::newRow("set misses") << u"d"_s << u"[abc]"_s << false;
    QTest::newRow("range") << u"m"_s << u"[a-z]"_s << true;
    QTest::newRow("range ignores case") << u"M"_s << u"[a-z]"_s << true;
    QTest::newRow("range written in capitals") << u"m"_s << u"[A-Z]"_s << true;
    QTest::newRow("range misses a digit") << u"5"_s << u"[a-z]"_s << false;
    QTest::newRow("range the wrong way round is empty") << u"m"_s << u"[z-a]"_s << false;
    QTest::newRow("two ranges") << u"7"_s << u"[a-z0-9]"_s << true;
    QTest::newRow("not in a range") << u"5"_s << u"[!a-z]"_s << true;
    QTest::newRow("not in a range misses") << u"m"_s << u"[!a-z]"_s << false;
    QTest::newRow("exclamation mark alone") << u"!"_s << u"[!]"_s << true;
    QTest::newRow("hyphen first is itself") << u"-"_s << u"[-a]"_s << true;
    QTest::newRow("hyphen last is itself") << u"-"_s << u"[a-]"_s << true;
    QTest::newRow("wildcard in a set is itself") << u"*"_s << u"[*]"_s << true;
    QTest::newRow("wildcard in a set isn't a run") << u"ab"_s << u"[*]"_s << false;
    QTest::newRow("digit mark in a set is itself") << u"#"_s << u"[#]"_s << true;
    QTest::newRow("opening bracket in a set") << u"["_s << u"[[]"_s << true;
    QTest::newRow("empty set is nothing") << u"ab"_s << u"a[]b"_s << true;
    QTest::newRow("closing bracket alone is itself") << u"a]"_s << u"a]"_s << true;
    QTest::newRow("percent is itself") << u"50%"_s << u"50%"_s << true;
    QTest::newRow("percent is no run") << u"500"_s << u"50%"_s << false;
    QTest::newRow("underscore is itself") << u"a_b"_s << u"a_b"_s << true;
    QTest::newRow("underscore is no wildcard") << u"axb"_s << u"a_b"_s << false;
    QTest::newRow("second try of a run") << u"aXbXc"_s << u"a*Xc"_s << true;
    QTest::newRow("two runs") << u"uno dos tres"_s << u"*no*tr*"_s << true;
    QTest::newRow("two runs in the wrong order") << u"tres dos uno"_s << u"*no*tr*"_s << false;
    QTest::newRow("overlapping ranges") << u"m"_s << u"[a-fd-zb]"_s << true;
    QTest::newRow("ranges out of order") << u"b"_s << u"[x-za-c]"_s << true;
    QTest::newRow("between two ranges") << u"m"_s << u"[x-za-c]"_s << false;
    QTest::newRow("runs side by side are one") << u"abc"_s << u"a***c"_s << true;
    QTest::newRow("shorter than its pattern") << u"ab"_s << u"*a?b*"_s << false;
    QTest::newRow("ch is two characters") << u"chico"_s << u"c*"_s << true;
}

void LikePatternTest::patternFitsTheWholeText()
{
    QFETCH(QString, text);
    QFETCH(QString, pattern);
    QFETCH(bool, fits);
    QCOMPARE(likeMatches(text, pattern), fits);
}

void LikePatternTest::unclosedSetFails_data()
{
    QTest::addColumn<QString>("pattern");
    for (const auto& pattern : {u"["_s, u"*["_s, u"a[bc"_s, u"[!"_s, u"[a][b"_s})
        QTest::newRow(qPrintable(pattern)) << pattern;
}

void LikePatternTest::unclosedSetFails()
{
    QFETCH(QString, pattern);
    QCOMPARE(failureOf([&] { return likeMatches(u"abc", pattern); }), kSyntaxError);
}

void LikePatternTest::unclosedSetFailsWhateverTheText()
{
    QCOMPARE(failureOf([] { return likeMatches(u"", u"x["); }), kSyntaxError);
}

void LikePatternTest::manyRunsStayFast()
{
    const QString text(2000, u'a');
    const QString pattern = u"*a"_s.repeated(200) + u"*b"_s;
    QElapsedTimer timer;
    timer.start();

    QCOMPARE(likeMatches(text, pattern), false);

    QVERIFY(timer.elapsed() < 2000);
}

QTEST_GUILESS_MAIN(LikePatternTest)
#include "tst_likepattern.moc"
