// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/core/failurenumbers.h"
#include "platform/core/value.h"
#include "support/failureof.h"

#include <QTest>

using namespace platform;
using namespace Qt::StringLiterals;
using support::failureOf;

class ValueTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nullIsNeitherEmptyTextNorZero();
    void textComesAsItStands();
    void numberComesInItsPlainForm();
    void nullIsNoText();
    void numberComesAsItStands();
    void textIsReadWhole();
    void textThatIsNoNumberIsATypeMismatch();
    void nullIsNoNumber();
};

void ValueTextTest::nullIsNeitherEmptyTextNorZero()
{
    QVERIFY(isNull(Value(Null())));
    QCOMPARE(isNull(Value(u""_s)), false);
    QCOMPARE(isNull(Value(0.0)), false);
}

void ValueTextTest::textComesAsItStands()
{
    QCOMPARE(asText(Value(u" a "_s)), u" a "_s);
    QCOMPARE(asText(Value(u""_s)), u""_s);
}

void ValueTextTest::numberComesInItsPlainForm()
{
    QCOMPARE(asText(Value(430123.0)), u"430123"_s);
    QCOMPARE(asText(Value(-0.5)), u"-0,5"_s);
    QCOMPARE(asText(Value(1e15)), u"1E+15"_s);
}

void ValueTextTest::nullIsNoText()
{
    QCOMPARE(failureOf([] { return asText(Value(Null())); }), kInvalidUseOfNull);
}

void ValueTextTest::numberComesAsItStands()
{
    QCOMPARE(asNumber(Value(1.25)), 1.25);
}

void ValueTextTest::textIsReadWhole()
{
    QCOMPARE(asNumber(Value(u" 1.234,5 "_s)), 1234.5);
}

void ValueTextTest::textThatIsNoNumberIsATypeMismatch()
{
    QCOMPARE(failureOf([] { return asNumber(Value(u"12a"_s)); }), kTypeMismatch);
    QCOMPARE(failureOf([] { return asNumber(Value(u""_s)); }), kTypeMismatch);
}

void ValueTextTest::nullIsNoNumber()
{
    QCOMPARE(failureOf([] { return asNumber(Value(Null())); }), kInvalidUseOfNull);
}

QTEST_GUILESS_MAIN(ValueTextTest)
#include "tst_valuetext.moc"
