// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/cp1252.h"
#include "platform/text/spanishorder.h"

#include <QCryptographicHash>
#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTest>

#include <algorithm>

using namespace platform;
using namespace Qt::StringLiterals;

namespace {

[[nodiscard]] int sign(int order) noexcept
{
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

[[nodiscard]] int keyOrder(QStringView left, QStringView right)
{
    const QByteArray leftKey = spanishSortKey(left);
    const QByteArray rightKey = spanishSortKey(right);
    return sign(leftKey.compare(rightKey));
}

/// Texts over the characters that are treated specially, always the same.
[[nodiscard]] QStringList randomTexts(int count)
{
    const QStringList pieces{u"c"_s,      u"C"_s,          u"h"_s,
                             u"H"_s,      u"l"_s,          u"L"_s,
                             u"ch"_s,     u"cH"_s,         u"lL"_s,
                             u"n"_s,      u"ñ"_s,          u"a"_s,
                             u"á"_s,      u"Á"_s,          u"e"_s,
                             u"æ"_s,      u"œ"_s,          u"ß"_s,
                             u"½"_s,      u"™"_s,          u" "_s,
                             u"\u00A0"_s, u"-"_s,          u"'"_s,
                             u"\u00AD"_s, u"\u0001"_s,     u"9"_s,
                             u"ª"_s,      u"\u0301"_s,     u"Ω"_s,
                             u"\uFFFD"_s, u"\U0001F600"_s, QString(QChar(u'\0'))};
    QRandomGenerator random(20260101);
    QStringList texts;
    for (int i = 0; i < count; ++i) {
        QString text;
        for (int length = random.bounded(6); length > 0; --length)
            text += pieces[random.bounded(static_cast<int>(pieces.size()))];
        texts.append(text);
    }
    return texts;
}

} // namespace

class SpanishOrderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void earlierTextStandsBefore_data();
    void earlierTextStandsBefore();
    void textsAreEqual_data();
    void textsAreEqual();
    void orderIsTheSameInAllThreeForms();
    void orderOfAllTextsIsTotal();
    void controlsComeFirstByCode();
    void charactersOutsideComeLastByCodePoint();
    void malformedByteCountsAsTheReplacementCharacter_data();
    void malformedByteCountsAsTheReplacementCharacter();
    void halfASurrogatePairCountsAsTheReplacementCharacter();
    void weightsAreFrozen();
    void sortingAHundredThousandNamesIsFast();
};

void SpanishOrderTest::earlierTextStandsBefore_data()
{
    QTest::addColumn<QString>("earlier");
    QTest::addColumn<QString>("later");
    QTest::newRow("ch after cz") << u"czar"_s << u"chico"_s;
    QTest::newRow("ch before d") << u"chuzo"_s << u"da"_s;
    QTest::newRow("ll after lz") << u"lz"_s << u"lla"_s;
    QTest::newRow("ll before m") << u"llz"_s << u"ma"_s;
    QTest::newRow("Ch is a letter") << u"CZ"_s << u"Ch"_s;
    QTest::newRow("CH is a letter") << u"cz"_s << u"CH"_s;
    QTest::newRow("cH is a letter") << u"cz"_s << u"cH"_s;
    QTest::newRow("lL is a letter") << u"lz"_s << u"lL"_s;
    QTest::newRow("LL is a letter") << u"lz"_s << u"LL"_s;
    QTest::newRow("inside a word") << u"acz"_s << u"ach"_s;
    QTest::newRow("three l are ll and l") << u"lll"_s << u"lln"_s;
    QTest::newRow("four l are ll twice") << u"lllm"_s << u"llll"_s;
    QTest::newRow("ñ after nz") << u"nz"_s << u"ña"_s;
    QTest::newRow("ñ before o") << u"ñz"_s << u"oa"_s;
    QTest::newRow("accent decides last") << u"canto"_s << u"cánto"_s;
    QTest::newRow("letters before accents") << u"cánta"_s << u"canto"_s;
    QTest::newRow("first accent that differs") << u"papa"_s << u"papá"_s;
    QTest::newRow("accent before the second letter") << u"papá"_s << u"pápa"_s;
    QTest::newRow("shorter first") << u"ana"_s << u"anabel"_s;
    QTest::newRow("empty first") << u""_s << u"a"_s;
    QTest::newRow("blank before punctuation") << u" a"_s << u"-a"_s;
    QTest::newRow("punctuation before digits") << u"-a"_s << u"0a"_s;
    QTest::newRow("digits before letters") << u"9z"_s << u"a"_s;
    QTest::newRow("blank inside counts") << u"de la"_s << u"dela"_s;
    QTest::newRow("digits by character") << u"10"_s << u"9"_s;
    QTest::newRow("oe before œ") << u"oe"_s << u"œ"_s;
    QTest::newRow("œ before of") << u"œ"_s << u"of"_s;
    QTest::newRow("ç is a c with an accent") << u"caza"_s << u"çaza"_s;
    QTest::newRow("ch with a cedilla is no letter") << u"çh"_s << u"cz"_s;
    QTest::newRow("hard blank at the end counts") << u"a"_s << u"a\u00A0"_s;
    QTest::newRow("tab at the end counts") << u"a"_s << u"a\t"_s;
    QTest::newRow("soft hyphen counts") << u"ab"_s << u"ab\u00AD"_s;
    QTest::newRow("letters before characters outside") << u"þ"_s << u"Ω"_s;
}

void SpanishOrderTest::earlierTextStandsBefore()
{
    QFETCH(QString, earlier);
    QFETCH(QString, later);

    QVERIFY(compareSpanish(earlier, later) < 0);
    QVERIFY(compareSpanish(later, earlier) > 0);
}

void SpanishOrderTest::textsAreEqual_data()
{
    QTest::addColumn<QString>("left");
    QTest::addColumn<QString>("right");
    QTest::newRow("case") << u"ñandú Álvarez"_s << u"ÑANDÚ áLVAREZ"_s;
    QTest::newRow("blanks at the end") << u"A1 "_s << u"A1"_s;
    QTest::newRow("only blanks") << u"   "_s << u""_s;
    QTest::newRow("ch in any case") << u"chico"_s << u"cHICO"_s;
    QTest::newRow("ll in any case") << u"LLave"_s << u"lLave"_s;
    QTest::newRow("feminine ordinal") << u"1ª"_s << u"1a"_s;
    QTest::newRow("masculine ordinal") << u"1º"_s << u"1o"_s;
    QTest::newRow("raised digits") << u"m¹²³"_s << u"m123"_s;
    QTest::newRow("trade mark") << u"x™"_s << u"xtm"_s;
    QTest::newRow("ellipsis") << u"etc…"_s << u"etc..."_s;
    QTest::newRow("hard blank inside") << u"de\u00A0la"_s << u"de la"_s;
    QTest::newRow("OE and oe ligature") << u"Œ"_s << u"œ"_s;
    QTest::newRow("Y with diaeresis") << u"Ÿ"_s << u"ÿ"_s;
}

void SpanishOrderTest::textsAreEqual()
{
    QFETCH(QString, left);
    QFETCH(QString, right);

    QCOMPARE(compareSpanish(left, right), 0);
    QCOMPARE(spanishSortKey(left), spanishSortKey(right));
}

void SpanishOrderTest::orderIsTheSameInAllThreeForms()
{
    const QStringList texts = randomTexts(500);
    for (const QString& left : texts) {
        const QByteArray leftUtf8 = left.toUtf8();
        for (const QString& right : texts) {
            const int order = sign(compareSpanish(left, right));
            if (sign(compareSpanishUtf8(leftUtf8, right.toUtf8())) != order || keyOrder(left, right) != order)
                QFAIL(qPrintable(left + u" | "_s + right));
        }
    }
}

void SpanishOrderTest::orderOfAllTextsIsTotal()
{
    QStringList texts = randomTexts(500);
    std::stable_sort(texts.begin(), texts.end(), [](const QString& left, const QString& right) {
        return compareSpanish(left, right) < 0;
    });

    // In a sorted list, no text may stand behind a later one, whichever two are taken, and equal ones are a
    // run.
    for (qsizetype i = 0; i < texts.size(); ++i) {
        bool behindTheRun = false;
        for (qsizetype k = i; k < texts.size(); ++k) {
            const int order = compareSpanish(texts[i], texts[k]);
            QCOMPARE(sign(compareSpanish(texts[k], texts[i])), -sign(order));
            QVERIFY(order <= 0);
            QVERIFY(order < 0 || !behindTheRun);
            behindTheRun = order < 0;
        }
    }
}

void SpanishOrderTest::controlsComeFirstByCode()
{
    const QString inOrder =
        u"\u0001\u0008\u000E\u001F\u007F\u0081\u008D\u008F\u0090\u009D\u00AD\t\n\v\f\r "_s;

    QVERIFY(compareSpanish(QString(QChar(u'\0')), u"\u0001") < 0);
    for (qsizetype i = 1; i < inOrder.size(); ++i)
        QVERIFY(compareSpanish(inOrder.sliced(i - 1, 1) + u'x', inOrder.sliced(i, 1) + u'x') < 0);
}

void SpanishOrderTest::charactersOutsideComeLastByCodePoint()
{
    const QStringList inOrder{u"þ"_s, u"\u0080"_s, u"\u0100"_s,    u"\u0301"_s,
                              u"Ω"_s, u"\uFFFF"_s, u"\U0001F600"_s};

    for (qsizetype i = 1; i < inOrder.size(); ++i)
        QVERIFY(compareSpanish(inOrder[i - 1], inOrder[i]) < 0);
}

void SpanishOrderTest::malformedByteCountsAsTheReplacementCharacter_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("readAs");
    QTest::newRow("byte of another encoding") << QByteArrayLiteral("Mu\xF1oz") << u"Mu\uFFFDoz"_s;
    QTest::newRow("continuation alone") << QByteArrayLiteral("a\x80z") << u"a\uFFFDz"_s;
    QTest::newRow("cut at the end") << QByteArrayLiteral("a\xC3") << u"a\uFFFD"_s;
    QTest::newRow("overlong") << QByteArrayLiteral("\xC0\xAF") << u"\uFFFD\uFFFD"_s;
    QTest::newRow("overlong in three bytes") << QByteArrayLiteral("\xE0\x80\xAF") << u"\uFFFD\uFFFD\uFFFD"_s;
    QTest::newRow("surrogate") << QByteArrayLiteral("\xED\xA0\x80") << u"\uFFFD\uFFFD\uFFFD"_s;
    QTest::newRow("beyond the last") << QByteArrayLiteral("\xF4\x90\x80\x80")
                                     << u"\uFFFD\uFFFD\uFFFD\uFFFD"_s;
    QTest::newRow("no lead byte") << QByteArrayLiteral("\xFF") << u"\uFFFD"_s;
}

void SpanishOrderTest::malformedByteCountsAsTheReplacementCharacter()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, readAs);

    QCOMPARE(compareSpanishUtf8(bytes, readAs.toUtf8()), 0);
}

void SpanishOrderTest::halfASurrogatePairCountsAsTheReplacementCharacter()
{
    const QString replaced = u"a\uFFFDb"_s;

    QCOMPARE(compareSpanish(u"a"_s + QChar(0xD83D) + u'b', replaced), 0);
    QCOMPARE(compareSpanish(u"a"_s + QChar(0xDE00) + u'b', replaced), 0);
    QCOMPARE(compareSpanish(u"a"_s + QChar(0xD83D), u"a\uFFFD"), 0);
}

void SpanishOrderTest::weightsAreFrozen()
{
    // Stores on shared disks are indexed by these very weights: whoever changes one loses rows there.
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (unsigned code = 0; code < 256; ++code)
        hash.addData(spanishSortKey(cp1252Character(static_cast<unsigned char>(code)) + u"."_s));
    hash.addData(spanishSortKey(u"ch ll \u0100 \U0001F600"));

    QCOMPARE(hash.result().toHex(),
             QByteArrayLiteral("59767476e1ddd087d94d89ee86eeb6b9e19e8e28fad693459f62ebbff3ddc52a"));
}

void SpanishOrderTest::sortingAHundredThousandNamesIsFast()
{
    const QStringList parts{u"Construcciones"_s, u"Hermanos"_s, u"Muñoz"_s, u"Llorente"_s, u"Chacón"_s,
                            u"Álvarez"_s,        u"y Cía."_s,   u"S.L."_s,  u"López"_s,    u"Peluquería"_s};
    QRandomGenerator random(7);
    std::vector<QByteArray> names(100000);
    for (QByteArray& name : names) {
        for (int i = 0; i < 4; ++i)
            name += parts[random.bounded(static_cast<int>(parts.size()))].toUtf8() + ' ';
        name += QByteArray::number(random.bounded(1000));
    }
    QElapsedTimer timer;
    timer.start();

    std::sort(names.begin(), names.end(),
              [](const auto& left, const auto& right) { return compareSpanishUtf8(left, right) < 0; });

    QVERIFY(timer.elapsed() < 20000);
    QVERIFY(compareSpanishUtf8(names.front(), names.back()) < 0);
}

QTEST_GUILESS_MAIN(SpanishOrderTest)
#include "tst_spanishorder.moc"
