// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/cp1252.h"
#include "platform/text/spanishorder.h"

#include <QRandomGenerator>
#include <QSet>
#include <QTest>

#include <unicode/ucol.h>

#include <memory>

using namespace platform;
using namespace Qt::StringLiterals;

namespace {

[[nodiscard]] int sign(int order) noexcept
{
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

[[nodiscard]] QStringView withoutTrailingBlanks(QStringView text) noexcept
{
    while (text.endsWith(u' '))
        text.chop(1);
    return text;
}

/// The characters that the Unicode order ignores.
[[nodiscard]] bool isIgnorable(QChar character) noexcept
{
    const char16_t unit = character.unicode();
    return unit == 0xAD || (unit < 0x20 && (unit < 0x09 || unit > 0x0D)) || (unit >= 0x7F && unit < 0xA0);
}

[[nodiscard]] QString repertoire()
{
    QString characters;
    for (unsigned code = 0; code < 256; ++code) {
        const QChar character = cp1252Character(static_cast<unsigned char>(code));
        if (!isIgnorable(character))
            characters += character;
    }
    return characters;
}

/// Some thousands of words, always the same: real ones, their mixtures, and texts of any character.
[[nodiscard]] QStringList words()
{
    const QString characters = repertoire();
    const QStringList pieces{
        u"a"_s,    u"á"_s,       u"be"_s,     u"ca"_s,     u"cha"_s,     u"Chi"_s,   u"CHO"_s,
        u"ço"_s,   u"de"_s,      u"él"_s,     u"güe"_s,    u"hí"_s,      u"la"_s,    u"lla"_s,
        u"Lle"_s,  u"LLO"_s,     u"lz"_s,     u"cz"_s,     u"ma"_s,      u"nú"_s,    u"ña"_s,
        u"Ñu"_s,   u"nz"_s,      u"ó"_s,      u"que"_s,    u"rr"_s,      u"sa"_s,    u"tío"_s,
        u"ü"_s,    u"xi"_s,      u"yo"_s,     u"zu"_s,     u" "_s,       u"-"_s,     u"."_s,
        u", "_s,   u"'"_s,       u"&"_s,      u"/"_s,      u"0"_s,       u"12"_s,    u"9"_s,
        u"1ª"_s,   u"2º"_s,      u"œ"_s,      u"æ"_s,      u"ß"_s,       u"™"_s,     u"€"_s,
        u"…"_s,    u"García "_s, u"García"_s, u"GARCIA"_s, u"Núñez"_s,   u"Nunez"_s, u"López"_s,
        u"Peña"_s, u"Pena"_s,    u"Llull"_s,  u"Chacón"_s, u"Cáceres"_s, u"Çelik"_s, u"Álvarez"_s,
        u"S.L."_s, u"S. L."_s,   u"y Cía."_s, u"½"_s,      u"ll"_s};
    QRandomGenerator random(19490);
    QSet<QString> texts(pieces.begin(), pieces.end());
    while (texts.size() < 2200) {
        QString text;
        for (int length = 1 + random.bounded(4); length > 0; --length)
            text += pieces[random.bounded(static_cast<int>(pieces.size()))];
        texts.insert(text);
    }
    while (texts.size() < 2800) {
        QString text;
        for (int length = 1 + random.bounded(5); length > 0; --length)
            text += characters[random.bounded(static_cast<int>(characters.size()))];
        texts.insert(text);
    }
    // These two are letters for us, and in the Unicode order they aren't: see the differences below.
    texts.removeIf([](const QString& text) { return text.contains(u"cH"_s) || text.contains(u"lL"_s); });
    return texts.values();
}

} // namespace

class SpanishOrderIcuTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void everyPairOfCharactersIsInTheUnicodeOrder();
    void everyPairOfCharactersInsideAWordIsInTheUnicodeOrder();
    void everyTwoCharactersBeforeALetterAreInTheUnicodeOrder();
    void everyPairOfWordsIsInTheUnicodeOrder();

    void unicodeOrderTakesNoMixedCaseForALetter();
    void unicodeOrderCountsBlanksAtTheEnd();
    void unicodeOrderIgnoresControlCharacters();
    void unicodeOrderIgnoresTheSoftHyphen();
    void unicodeOrderJoinsCombiningAccents();
    void unicodeOrderPutsOtherLettersBesideOurs();

private:
    [[nodiscard]] int unicodeOrder(QStringView left, QStringView right) const;
    /// The first pair of texts whose order differs, "" when there is none.
    [[nodiscard]] QString firstDifference(const QStringList& texts) const;

    std::unique_ptr<UCollator, decltype(&ucol_close)> m_collator{nullptr, ucol_close};
};

void SpanishOrderIcuTest::initTestCase()
{
    UErrorCode status = U_ZERO_ERROR;
    m_collator.reset(ucol_open("es@collation=traditional", &status));
    QVERIFY(U_SUCCESS(status));
    ucol_setStrength(m_collator.get(), UCOL_SECONDARY);
}

int SpanishOrderIcuTest::unicodeOrder(QStringView left, QStringView right) const
{
    return ucol_strcoll(m_collator.get(), left.utf16(), static_cast<int32_t>(left.size()), right.utf16(),
                        static_cast<int32_t>(right.size()));
}

QString SpanishOrderIcuTest::firstDifference(const QStringList& texts) const
{
    for (const QString& left : texts) {
        for (const QString& right : texts) {
            const int expected = unicodeOrder(withoutTrailingBlanks(left), withoutTrailingBlanks(right));
            if (sign(compareSpanish(left, right)) != expected)
                return u'"' + left + u"\" \""_s + right + u'"';
        }
    }
    return {};
}

void SpanishOrderIcuTest::everyPairOfCharactersIsInTheUnicodeOrder()
{
    QStringList texts;
    for (const QChar character : repertoire())
        texts.append(character);

    QCOMPARE(texts.size(), 256 - 34);
    QCOMPARE(firstDifference(texts), QString());
}

void SpanishOrderIcuTest::everyPairOfCharactersInsideAWordIsInTheUnicodeOrder()
{
    QStringList texts;
    for (const QChar character : repertoire())
        texts.append(u"má"_s + character + u"z"_s);

    QCOMPARE(firstDifference(texts), QString());
}

void SpanishOrderIcuTest::everyTwoCharactersBeforeALetterAreInTheUnicodeOrder()
{
    for (const QChar first : repertoire()) {
        QStringList texts{first + u"cz"_s, first + u"lz"_s};
        for (const QChar second : u"acChHlLnñ.9œ"_s)
            texts.append(QString(first) + second + u'a');
        texts.removeIf([](const QString& text) { return text.contains(u"cH"_s) || text.contains(u"lL"_s); });
        QCOMPARE(firstDifference(texts), QString());
    }
}

void SpanishOrderIcuTest::everyPairOfWordsIsInTheUnicodeOrder()
{
    QCOMPARE(firstDifference(words()), QString());
}

void SpanishOrderIcuTest::unicodeOrderTakesNoMixedCaseForALetter()
{
    QVERIFY(unicodeOrder(u"cH", u"cz") < 0);
    QVERIFY(compareSpanish(u"cH", u"cz") > 0);
    QVERIFY(unicodeOrder(u"lL", u"lz") < 0);
    QVERIFY(compareSpanish(u"lL", u"lz") > 0);
}

void SpanishOrderIcuTest::unicodeOrderCountsBlanksAtTheEnd()
{
    QVERIFY(unicodeOrder(u"a ", u"a") > 0);
    QCOMPARE(compareSpanish(u"a ", u"a"), 0);
}

void SpanishOrderIcuTest::unicodeOrderIgnoresControlCharacters()
{
    for (unsigned code = 0; code < 256; ++code) {
        const QChar character = cp1252Character(static_cast<unsigned char>(code));
        if (isIgnorable(character)) {
            QCOMPARE(unicodeOrder(u"a"_s + character, u"a"), 0);
            QVERIFY(compareSpanish(u"a"_s + character, u"a") > 0);
        }
    }
}

void SpanishOrderIcuTest::unicodeOrderIgnoresTheSoftHyphen()
{
    QCOMPARE(unicodeOrder(u"co\u00ADsa", u"cosa"), 0);
    QVERIFY(compareSpanish(u"co\u00ADsa", u"cosa") < 0);
}

void SpanishOrderIcuTest::unicodeOrderJoinsCombiningAccents()
{
    QCOMPARE(unicodeOrder(u"a\u0301", u"á"), 0);
    QVERIFY(compareSpanish(u"a\u0301", u"á") > 0);
}

void SpanishOrderIcuTest::unicodeOrderPutsOtherLettersBesideOurs()
{
    QVERIFY(unicodeOrder(u"ā", u"b") < 0);
    QVERIFY(compareSpanish(u"ā", u"b") > 0);
}

QTEST_GUILESS_MAIN(SpanishOrderIcuTest)
#include "tst_spanishordericu.moc"
