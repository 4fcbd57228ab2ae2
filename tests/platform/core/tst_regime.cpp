// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/core/failurenumbers.h"
#include "platform/core/regime.h"
#include "support/failureof.h"

#include <QTest>

#include <stdexcept>

using namespace platform;
using support::failureOf;

namespace {

[[noreturn]] void fail(int number = kObjectNotSet)
{
    throw Failure(number);
}

} // namespace

class RegimeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { clearError(); }
    void cleanup() { setUnhandledFailure({}); }

    void attemptRunsTheStatement();
    void attemptDropsAFailureAndGoesOn();
    void failedStatementLeavesItsTargetAsItWas();
    void attemptLetsOtherExceptionsThrough();
    void holdsAnswersWithTheTest();
    void failingTestCountsAsPassed();
    void failingNegatedTestCountsAsPassed();
    void holdsLetsOtherExceptionsThrough();
    void nestedAttemptKeepsTheFailureInside();
    void procedureWithoutRegimeIsCutShortAtTheFailure();
    void lastErrorIsZeroAfterClearing();
    void lastErrorIsTheLastFailureOfSeveral();
    void statementThatSucceedsKeepsTheLastError();
    void failingTestSetsTheLastError();
    void handledGoesOnWhenNothingFails();
    void handledAsksTheHandlerByTheNumber();
    void handledLeavesWhenTheHandlerSaysSo();
    void handledSetsTheLastErrorBeforeItAsks();
    void failureInsideTheHandlerGoesToTheCaller();
    void handledLetsOtherExceptionsThrough();
    void runHandlerRunsTheBody();
    void runHandlerGivesAnUnhandledFailureToItsAction();
    void runHandlerLetsOtherExceptionsThrough();
    void failureTellsItsNumberInItsText();
};

void RegimeTest::attemptRunsTheStatement()
{
    int value = 0;

    attempt([&] { value = 7; });

    QCOMPARE(value, 7);
    QCOMPARE(lastError(), 0);
}

void RegimeTest::attemptDropsAFailureAndGoesOn()
{
    int value = 0;

    attempt([] { fail(); });
    attempt([&] { value = 7; });

    QCOMPARE(value, 7);
}

void RegimeTest::failedStatementLeavesItsTargetAsItWas()
{
    const auto read = []() -> int { fail(); };
    int value = 3;

    attempt([&] { value = read(); });

    QCOMPARE(value, 3);
}

void RegimeTest::attemptLetsOtherExceptionsThrough()
{
    QVERIFY_THROWS_EXCEPTION(std::logic_error, attempt([] { throw std::logic_error("ours"); }));
}

void RegimeTest::holdsAnswersWithTheTest()
{
    QVERIFY(holds([] { return true; }));
    QCOMPARE(holds([] { return false; }), false);
}

void RegimeTest::failingTestCountsAsPassed()
{
    QVERIFY(holds([]() -> bool { fail(); }));
}

void RegimeTest::failingNegatedTestCountsAsPassed()
{
    const auto isEmpty = []() -> bool { fail(); };

    QVERIFY(holds([&] { return !isEmpty(); }));
}

void RegimeTest::holdsLetsOtherExceptionsThrough()
{
    const auto broken = []() -> bool { throw std::logic_error("ours"); };

    QVERIFY_THROWS_EXCEPTION(std::logic_error, static_cast<void>(holds(broken)));
}

void RegimeTest::nestedAttemptKeepsTheFailureInside()
{
    bool wentOn = false;

    attempt([&] {
        attempt([] { fail(); });
        wentOn = true;
    });

    QVERIFY(wentOn);
}

void RegimeTest::procedureWithoutRegimeIsCutShortAtTheFailure()
{
    QList<int> ran;
    const auto callee = [&] {
        ran.append(1);
        fail();
        ran.append(2);
    };

    attempt([&] { callee(); });
    attempt([&] { ran.append(3); });

    QCOMPARE(ran, (QList<int>{1, 3}));
}

void RegimeTest::lastErrorIsZeroAfterClearing()
{
    attempt([] { fail(); });

    clearError();

    QCOMPARE(lastError(), 0);
}

void RegimeTest::lastErrorIsTheLastFailureOfSeveral()
{
    attempt([] { fail(kObjectNotSet); });
    attempt([] { fail(kNoCurrentRecord); });

    QCOMPARE(lastError(), kNoCurrentRecord);
}

void RegimeTest::statementThatSucceedsKeepsTheLastError()
{
    attempt([] { fail(kObjectNotSet); });
    attempt([] {});

    QCOMPARE(lastError(), kObjectNotSet);
}

void RegimeTest::failingTestSetsTheLastError()
{
    static_cast<void>(holds([]() -> bool { fail(kObjectInvalid); }));

    QCOMPARE(lastError(), kObjectInvalid);
}

void RegimeTest::handledGoesOnWhenNothingFails()
{
    bool asked = false;
    const auto onError = [&](int) {
        asked = true;
        return After::Leave;
    };

    const After after = handled(onError, [] {});

    QCOMPARE(after, After::NextStatement);
    QCOMPARE(asked, false);
}

void RegimeTest::handledAsksTheHandlerByTheNumber()
{
    int asked = 0;
    const auto onError = [&](int number) {
        asked = number;
        return After::NextStatement;
    };

    const After after = handled(onError, [] { fail(kDatabaseAlreadyExists); });

    QCOMPARE(after, After::NextStatement);
    QCOMPARE(asked, kDatabaseAlreadyExists);
}

void RegimeTest::handledLeavesWhenTheHandlerSaysSo()
{
    QCOMPARE(handled([](int) { return After::Leave; }, [] { fail(); }), After::Leave);
}

void RegimeTest::handledSetsTheLastErrorBeforeItAsks()
{
    int seen = 0;
    const auto onError = [&](int) {
        seen = lastError();
        return After::Leave;
    };

    static_cast<void>(handled(onError, [] { fail(kNotADatabase); }));

    QCOMPARE(seen, kNotADatabase);
}

void RegimeTest::failureInsideTheHandlerGoesToTheCaller()
{
    const auto onError = [](int) -> After { fail(kDiskFull); };

    QCOMPARE(failureOf([&] { return handled(onError, [] { fail(kObjectNotSet); }); }), kDiskFull);
}

void RegimeTest::handledLetsOtherExceptionsThrough()
{
    const auto broken = [] { throw std::logic_error("ours"); };
    const auto onError = [](int) { return After::Leave; };

    QVERIFY_THROWS_EXCEPTION(std::logic_error, static_cast<void>(handled(onError, broken)));
}

void RegimeTest::runHandlerRunsTheBody()
{
    int value = 0;

    runHandler([&] { value = 7; });

    QCOMPARE(value, 7);
}

void RegimeTest::runHandlerGivesAnUnhandledFailureToItsAction()
{
    int number = 0;
    setUnhandledFailure([&](const Failure& failure) { number = failure.number(); });

    runHandler([] { fail(kObjectNotSet); });

    QCOMPARE(number, kObjectNotSet);
}

void RegimeTest::runHandlerLetsOtherExceptionsThrough()
{
    QVERIFY_THROWS_EXCEPTION(std::logic_error, runHandler([] { throw std::logic_error("ours"); }));
}

void RegimeTest::failureTellsItsNumberInItsText()
{
    const Failure failure(kNoCurrentRecord, QStringLiteral("no current record"));

    QCOMPARE(failure.number(), kNoCurrentRecord);
    QCOMPARE(failure.text(), QStringLiteral("no current record"));
    QCOMPARE(QByteArray(failure.what()), QByteArrayLiteral("failure 3021: no current record"));
}

QTEST_GUILESS_MAIN(RegimeTest)
#include "tst_regime.moc"
