// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/cp1252.h"

#include <QTest>

using namespace platform;
using namespace Qt::StringLiterals;

class Cp1252Test : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyCodeComesBackFromItsCharacter();
    void codesBelowEightyAndFromA0AreThemselves();
    void theSpecialsAreAtTheirCodes_data();
    void theSpecialsAreAtTheirCodes();
    void theUnusedCodesAreTheControlsOfTheSameCode_data();
    void theUnusedCodesAreTheControlsOfTheSameCode();
    void otherControlsHaveNoCode();
    void textGoesToBytesAndBack();
    void textOutsideTheRepertoireGivesNothing();
    void emptyTextIsNoBytes();
};

void Cp1252Test::everyCodeComesBackFromItsCharacter()
{
    for (unsigned code = 0; code < 256; ++code) {
        const auto byte = static_cast<unsigned char>(code);
        QCOMPARE(cp1252Code(cp1252Character(byte)), std::optional(byte));
    }
}

void Cp1252Test::codesBelowEightyAndFromA0AreThemselves()
{
    for (unsigned code = 0; code < 256; ++code) {
        if (code < 0x80 || code >= 0xA0)
            QCOMPARE(cp1252Character(static_cast<unsigned char>(code)), QChar(code));
    }
}

void Cp1252Test::theSpecialsAreAtTheirCodes_data()
{
    QTest::addColumn<QChar>("character");
    QTest::addColumn<int>("code");
    QTest::newRow("euro") << QChar(u'€') << 0x80;
    QTest::newRow("florin") << QChar(u'ƒ') << 0x83;
    QTest::newRow("ellipsis") << QChar(u'…') << 0x85;
    QTest::newRow("S with caron") << QChar(u'Š') << 0x8A;
    QTest::newRow("OE") << QChar(u'Œ') << 0x8C;
    QTest::newRow("Z with caron") << QChar(u'Ž') << 0x8E;
    QTest::newRow("left quote") << QChar(u'‘') << 0x91;
    QTest::newRow("dash") << QChar(u'—') << 0x97;
    QTest::newRow("trade mark") << QChar(u'™') << 0x99;
    QTest::newRow("Y with diaeresis") << QChar(u'Ÿ') << 0x9F;
}

void Cp1252Test::theSpecialsAreAtTheirCodes()
{
    QFETCH(QChar, character);
    QFETCH(int, code);
    QCOMPARE(cp1252Code(character), std::optional(static_cast<unsigned char>(code)));
}

void Cp1252Test::theUnusedCodesAreTheControlsOfTheSameCode_data()
{
    QTest::addColumn<int>("code");
    for (const int code : {0x81, 0x8D, 0x8F, 0x90, 0x9D})
        QTest::addRow("%02X", code) << code;
}

void Cp1252Test::theUnusedCodesAreTheControlsOfTheSameCode()
{
    QFETCH(int, code);
    QCOMPARE(cp1252Character(static_cast<unsigned char>(code)), QChar(code));
}

void Cp1252Test::otherControlsHaveNoCode()
{
    QCOMPARE(cp1252Code(QChar(0x80)), std::nullopt);
    QCOMPARE(cp1252Code(QChar(0x85)), std::nullopt);
    QCOMPARE(cp1252Code(QChar(0x9F)), std::nullopt);
}

void Cp1252Test::textGoesToBytesAndBack()
{
    const QString text = u"Señor Núñez: 5 €"_s;

    const auto bytes = toCp1252(text);

    QVERIFY(bytes.has_value());
    QCOMPARE(*bytes, QByteArrayLiteral("Se\xF1or N\xFA\xF1"
                                       "ez: 5 \x80"));
    QCOMPARE(fromCp1252(*bytes), text);
}

void Cp1252Test::textOutsideTheRepertoireGivesNothing()
{
    QCOMPARE(toCp1252(u"Ω"), std::nullopt);
    QCOMPARE(toCp1252(u"a\U0001F600"), std::nullopt);
}

void Cp1252Test::emptyTextIsNoBytes()
{
    QCOMPARE(toCp1252(u""), std::optional(QByteArray()));
    QCOMPARE(fromCp1252(QByteArray()), QString());
}

QTEST_GUILESS_MAIN(Cp1252Test)
#include "tst_cp1252.moc"
