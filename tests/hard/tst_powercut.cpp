// SPDX-License-Identifier: GPL-3.0-or-later

// The power goes in the middle of creating, upgrading, numbering anew, saving and deleting. The same program
// proves that it would notice: weaker ways of writing don't pass.

#include "hard/form.h"
#include "hard/powercut.h"

#include <QtTest>

using namespace Qt::StringLiterals;
using namespace hardtest;

class PowerCutTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void storesOutliveThePowerCut_data();
    void storesOutliveThePowerCut();
    void weakerWritingIsNoticed_data();
    void weakerWritingIsNoticed();
    void cleanupTestCase();

private:
    PowerCuts m_all;
};

namespace {

constexpr JournalMode kOurs{"ours", nullptr};

/// Work that changes no file when all goes well has no moment to cut.
bool changesStores(const Work& work)
{
    return !QByteArray(work.name).startsWith("open ");
}

qsizetype statesOf()
{
    constexpr qsizetype kShort = 5'000;
    constexpr qsizetype kLong = 100'000;
    const auto pieces = std::count_if(works().begin(), works().end(), &changesStores);
    return byForm(kShort, kLong) / pieces + 1;
}

} // namespace

void PowerCutTest::storesOutliveThePowerCut_data()
{
    QTest::addColumn<QByteArray>("name");
    for (const Work& work : works()) {
        if (changesStores(work))
            QTest::newRow(work.name) << QByteArray(work.name);
    }
}

void PowerCutTest::storesOutliveThePowerCut()
{
    QFETCH(const QByteArray, name);

    const PowerCuts cuts = cutPower(work(name), kOurs, statesOf(), 20261121);

    QVERIFY2(cuts.faults.isEmpty(), qPrintable(cuts.faults.join(u'\n')));
    QVERIFY(cuts.moments > 20);
    m_all.moments += cuts.moments;
    m_all.states += cuts.states;
    m_all.opened += cuts.opened;
}

void PowerCutTest::weakerWritingIsNoticed_data()
{
    QTest::addColumn<QByteArray>("pragmas");
    QTest::newRow("no syncs") << QByteArray("PRAGMA synchronous = OFF");
    QTest::newRow("no sync of the folder") << QByteArray("PRAGMA synchronous = FULL");
    QTest::newRow("journal in memory")
        << QByteArray("PRAGMA synchronous = EXTRA; PRAGMA journal_mode = MEMORY");
    QTest::newRow("no journal") << QByteArray("PRAGMA synchronous = EXTRA; PRAGMA journal_mode = OFF");
}

void PowerCutTest::weakerWritingIsNoticed()
{
    QFETCH(const QByteArray, pragmas);

    const PowerCuts cuts =
        cutPower(work("save known client"), {"weaker", pragmas.constData()}, byForm(150, 5'000), 20261121);

    QVERIFY(cuts.faulty > 0);
    qInfo("%lld of %lld states are faulty: %s", static_cast<long long>(cuts.faulty),
          static_cast<long long>(cuts.states), qPrintable(cuts.faults.value(0)));
}

void PowerCutTest::cleanupTestCase()
{
    qInfo("%lld moments, %lld states, %lld different files opened", static_cast<long long>(m_all.moments),
          static_cast<long long>(m_all.states), static_cast<long long>(m_all.opened));
}

QTEST_MAIN(PowerCutTest)
#include "tst_powercut.moc"
