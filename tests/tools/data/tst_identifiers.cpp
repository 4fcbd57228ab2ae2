// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/data/identifiers.h"

#include <QtTest>

using namespace tools;

class IdentifiersTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aPersonsLetterFollowsFromTheNumber_data();
    void aPersonsLetterFollowsFromTheNumber();
    void aCompanyEndsInADigit();
    void aTownHallEndsInALetter();
    void smallNumbersKeepTheirZeros();
    void accountDigitsAreThoseOfTheBank_data();
    void accountDigitsAreThoseOfTheBank();
};

void IdentifiersTest::aPersonsLetterFollowsFromTheNumber_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("whole");
    QTest::newRow("known example") << 12345678 << QStringLiteral("12345678Z");
    QTest::newRow("zero") << 0 << QStringLiteral("00000000T");
    QTest::newRow("the last letter") << 22 << QStringLiteral("00000022E");
    QTest::newRow("the letters begin again") << 23 << QStringLiteral("00000023T");
}

void IdentifiersTest::aPersonsLetterFollowsFromTheNumber()
{
    QFETCH(int, number);
    QFETCH(QString, whole);

    QCOMPARE(nif(number), whole);
}

void IdentifiersTest::aCompanyEndsInADigit()
{
    QCOMPARE(cif(u'A', 5881850), QStringLiteral("A58818501"));
}

void IdentifiersTest::aTownHallEndsInALetter()
{
    QCOMPARE(cif(u'P', 2807900), QStringLiteral("P2807900B"));
}

void IdentifiersTest::smallNumbersKeepTheirZeros()
{
    QCOMPARE(cif(u'B', 1).size(), 9);
    QVERIFY(cif(u'B', 1).startsWith(u"B0000001"));
}

void IdentifiersTest::accountDigitsAreThoseOfTheBank_data()
{
    QTest::addColumn<QString>("bank");
    QTest::addColumn<QString>("branch");
    QTest::addColumn<QString>("account");
    QTest::addColumn<QString>("digits");
    QTest::newRow("known example") << QStringLiteral("1234") << QStringLiteral("5678")
                                   << QStringLiteral("1234567890") << QStringLiteral("06");
    QTest::newRow("eleven is written 0") << QStringLiteral("0000") << QStringLiteral("0000")
                                         << QStringLiteral("0000000000") << QStringLiteral("00");
    QTest::newRow("ten is written 1") << QStringLiteral("0000") << QStringLiteral("0000")
                                      << QStringLiteral("1000000000") << QStringLiteral("01");
}

void IdentifiersTest::accountDigitsAreThoseOfTheBank()
{
    QFETCH(QString, bank);
    QFETCH(QString, branch);
    QFETCH(QString, account);
    QFETCH(QString, digits);

    QCOMPARE(accountCheckDigits(bank, branch, account), digits);
}

QTEST_GUILESS_MAIN(IdentifiersTest)
#include "tst_identifiers.moc"
