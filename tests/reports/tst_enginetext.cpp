// SPDX-License-Identifier: GPL-3.0-or-later
// Texts on their way to the print engine, byte by byte.
#include "reports/enginetext.h"

#include <QTest>

#include <array>

using namespace Qt::StringLiterals;
using namespace reports;

class EngineTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textIsWindows1252AndEndsInAZero();
    void characterWithoutACodeBecomesAQuestionMark();
    void pathThatFitsIsWindows1252();
    void pathThatDoesNotFitIsUtf8();
    void fieldIsFilledFromTheLeftAndEndsInAZero();
    void longPathIsCutBeforeTheLastZero();
    void fieldIsReadUpToItsFirstZero();
    void fullFieldIsReadWhole();
};

void EngineTextTest::textIsWindows1252AndEndsInAZero()
{
    QCOMPARE(engineText(u"Peñíscola 5 €"_s).bytes(), QByteArray("Pe\xF1\xEDscola 5 \x80\0", 14));
}

void EngineTextTest::characterWithoutACodeBecomesAQuestionMark()
{
    QCOMPARE(engineText(u"Łódź"_s).bytes(), QByteArray("?\xF3"
                                                       "d?\0",
                                                       5));
}

void EngineTextTest::pathThatFitsIsWindows1252()
{
    QCOMPARE(enginePath(u"C:\\Año\\a.rpt"_s).bytes(), QByteArray("C:\\A\xF1o\\a.rpt\0", 13));
}

void EngineTextTest::pathThatDoesNotFitIsUtf8()
{
    QCOMPARE(enginePath(u"C:\\Łódź"_s).bytes(), u"C:\\Łódź"_s.toUtf8() + '\0');
}

void EngineTextTest::fieldIsFilledFromTheLeftAndEndsInAZero()
{
    std::array<char, 8> field;
    field.fill('x');

    fillEngineField(field.data(), field.size(), u"C:\\a"_s);

    QCOMPARE(QByteArray(field.data(), field.size()), QByteArray("C:\\a\0\0\0\0", 8));
}

void EngineTextTest::longPathIsCutBeforeTheLastZero()
{
    std::array<char, 256> field;
    field.fill('x');

    fillEngineField(field.data(), field.size(), QString(300, u'a'));

    QCOMPARE(QByteArray(field.data(), field.size()), QByteArray(255, 'a') + '\0');
}

void EngineTextTest::fieldIsReadUpToItsFirstZero()
{
    const std::array<char, 8> field{'a', '\xF1', '\0', 'b', 'c', '\0', 'd', 'e'};

    QCOMPARE(fromEngineField(field.data(), field.size()), u"añ"_s);
}

void EngineTextTest::fullFieldIsReadWhole()
{
    const std::array<char, 3> field{'a', 'b', 'c'};

    QCOMPARE(fromEngineField(field.data(), field.size()), u"abc"_s);
}

QTEST_GUILESS_MAIN(EngineTextTest)
#include "tst_enginetext.moc"
