// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/system/clock.h"

#include <QTest>

using namespace platform;

class ClockTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { setClock({}); }

    void systemClockIsTheDefault();
    void replacedClockIsRead();
    void emptyFunctionBringsTheSystemClockBack();
};

void ClockTest::systemClockIsTheDefault()
{
    const QDateTime before = QDateTime::currentDateTime();

    const QDateTime read = now();

    QVERIFY(before <= read && read <= QDateTime::currentDateTime());
}

void ClockTest::replacedClockIsRead()
{
    static const QDateTime fixed(QDate(2026, 2, 28), QTime(23, 59, 59));

    setClock([] { return fixed; });

    QCOMPARE(now(), fixed);
}

void ClockTest::emptyFunctionBringsTheSystemClockBack()
{
    const QDateTime before = QDateTime::currentDateTime();
    setClock([] { return QDateTime(QDate(1999, 1, 1), QTime(0, 0)); });

    setClock({});

    QVERIFY(now() >= before);
}

QTEST_GUILESS_MAIN(ClockTest)
#include "tst_clock.moc"
