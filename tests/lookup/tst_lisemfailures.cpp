// SPDX-License-Identifier: GPL-3.0-or-later

// Every procedure of the lookup skips a step that fails: each call of the data engine is made to fail in
// turn.

#include "lookup/lookupfixture.h"

#include "lookup/buscar.h"
#include "shell/globalsat.h"
#include "support/failingcalls.h"
#include "support/messagerecorder.h"

#include <QtTest>

using namespace Qt::StringLiterals;
using lookuptest::LookupFixture;
using lookuptest::Rows;
using testsupport::FailingCalls;

namespace {

const Rows& types()
{
    static const Rows kTypes{
        {u"0001"_s, u"Ana"_s}, {u"0002"_s, u"Berta"_s}, {u"0003"_s, u"Carla"_s}, {u"0004"_s, u"Delia"_s}};
    return kTypes;
}

} // namespace

class LisemFailuresTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aLoadGoesOnAfterAnyFailure();
    void theFirstListOfClientsGoesOnAfterAnyFailure();
    void aSearchGoesOnAfterAnyFailure();
    void aChoiceIsHandedOverWhenItsIndexFails();
    void nothingWorksAndNothingIsShown();
};

void LisemFailuresTest::aLoadGoesOnAfterAnyFailure()
{
    LookupFixture fixture;
    fixture.givenTypes(types());
    const testsupport::MessageRecorder messages;
    FailingCalls calls;
    fixture.open(15);
    const int count = calls.count();
    QVERIFY(count > 5);
    const QStringList all{u"Ana"_s, u"Berta"_s, u"Carla"_s, u"Delia"_s};
    int complete = 0;

    for (int n = 1; n <= count; ++n) {
        calls.failNth(n);
        fixture.open(15);
        QVERIFY(fixture.window()->isVisible());
        QVERIFY2(fixture.caption().startsWith(u"  Tipos de Cliente  "), qUtf8Printable(fixture.caption()));
        // All rows; none when the query failed; the first or the last when a move did.
        for (const QString& name : fixture.column(1))
            QVERIFY2(all.contains(name), qUtf8Printable(name));
        complete += fixture.busi().rows() == 5 ? 1 : 0;
    }

    // Six calls bring the rows: the opening, the test for rows, two moves, the count, the rows.
    QVERIFY2(complete >= count - 6, qPrintable(u"%1 of %2"_s.arg(complete).arg(count)));
}

void LisemFailuresTest::theFirstListOfClientsGoesOnAfterAnyFailure()
{
    LookupFixture fixture;
    fixture.givenClients({{u"0000000001"_s, u"Ana"_s, u"Jaca"_s}});
    FailingCalls calls;
    fixture.open(20);
    const int count = calls.count();
    QVERIFY(count > 5);

    for (int n = 1; n <= count; ++n) {
        calls.failNth(n);
        fixture.open(20);
        QVERIFY(fixture.window()->isVisible());
        QVERIFY(fixture.busi().redraw());
        QCOMPARE(fixture.caption(), u"   Convenios Colectivos"_s);
    }
}

void LisemFailuresTest::aSearchGoesOnAfterAnyFailure()
{
    LookupFixture fixture;
    fixture.givenTypes(types());
    FailingCalls calls;
    fixture.open(15);
    calls.restart();
    fixture.search(u"a"_s);
    const int count = calls.count();
    QVERIFY(count > 5);

    for (int n = 1; n <= count; ++n) {
        calls.restart();
        fixture.open(15);
        fixture.type(u"a"_s);
        calls.failNth(n);
        fixture.press(fixture.box(), Qt::Key_Return);
        QVERIFY(fixture.window()->isVisible());
        QCOMPARE(fixture.busi().colWidth(0), 0);
        calls.restart();
        fixture.box().setText({}); // a search stands, whatever it found
        QCOMPARE(fixture.busi().rows(), 5);
    }
}

void LisemFailuresTest::aChoiceIsHandedOverWhenItsIndexFails()
{
    LookupFixture fixture;
    fixture.givenTypes(types());
    fixture.open(15);
    FailingCalls calls;
    calls.failAll();

    fixture.doubleClickRow(2);

    QCOMPARE(RESULTADOBUSQUEDA, u"0002"_s);
    QVERIFY(!fixture.window()->isVisible());
}

void LisemFailuresTest::nothingWorksAndNothingIsShown()
{
    LookupFixture fixture;
    fixture.givenTypes(types());
    const testsupport::MessageRecorder messages;
    FailingCalls calls;
    calls.failAll();

    fixture.open(15);
    fixture.search(u"a"_s);

    QVERIFY(messages.isEmpty());
    QVERIFY(fixture.window()->isVisible());
    QCOMPARE(fixture.busi().rows(), 1);
}

QTEST_MAIN(LisemFailuresTest)
#include "tst_lisemfailures.moc"
