// SPDX-License-Identifier: GPL-3.0-or-later
//
// What positions, seeks and walks ask of the storage.

#include "platform/dao/daofixture.h"
#include "platform/dao/freshness.h"
#include "support/failingengine.h"

using namespace daotest;
using namespace platform;
using namespace platform::dao;
using testsupport::FailingEngine;
using testsupport::Operation;

class CostTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aSeekAsksOnce();
    void settingTheIndexBeforeASeekAsksNothing();
    void aColumnReadAfterASeekComesWithTheNextOne();
    void aSeekBringsOnlyTheColumnsThatAreUsed();
    void aRowLostAfterASeekStillTellsItsPlace();
    void moveFirstAndMoveLastBuildNoList();
    void aWalkBuildsItsListOnce();
    void aSecondWalkKeepsTheList();
    void aWalkReadsAheadInGrowingBlocks();
    void aWalkReadsOnlyTheColumnsThatAreUsed();
    void aColumnUsedOnceIsReadAheadFromThenOn();
    void theNextWalkBeginsWithTheColumnsOfTheLast();
    void columnsReadAfterASeekAreNotReadAhead();
    void aWalkThatReadsNothingFetchesNothing();
    void seekingTheRowOfTheWalkRebuildsNothing();
    void anOldCopyAsksForTheChangeNumberOnly();
    void recordCountOfAKnownListCountsNoRows();
    void openingADynasetAsksOnce();

private:
    static constexpr int kRows = 1200;

    std::shared_ptr<FailingEngine> m_engine;
    std::unique_ptr<Store> m_store;
    Database m_database;
    Recordset m_rows;
};

void CostTest::init()
{
    resetEngine();
    setRowFreshness(std::chrono::hours{1});
    m_engine = std::make_shared<FailingEngine>();
    DBEngine().setStorage(m_engine);
    m_store = std::make_unique<Store>();
    m_store->create();
    std::vector<storage::Row> rows;
    rows.reserve(kRows);
    for (int i = 0; i < kRows; ++i)
        rows.push_back({u"c%1"_s.arg(i, 4, 10, QLatin1Char('0')), 1.0, u"nombre"_s, u"nota"_s});
    m_store->otherStation()->openTable(u"LINEAS"_s)->insertMany(rows);
    m_database = m_store->open();
    m_rows = m_database.OpenRecordset(u"LINEAS"_s, dbOpenTable);
    m_rows.setIndex(u"PRIMARIO"_s);
    m_engine->restart();
}

void CostTest::cleanup()
{
    m_rows = {};
    m_database = {};
    resetEngine();
}

void CostTest::aSeekAsksOnce()
{
    m_rows.Seek(u"=", u"c0700"_s);

    QCOMPARE(m_engine->count(), 1);
    QCOMPARE(m_engine->count(Operation::Seek), 1);
}

void CostTest::settingTheIndexBeforeASeekAsksNothing()
{
    m_rows.setIndex(u"NOMBRES"_s);
    m_rows.setIndex(u"PRIMARIO"_s);
    m_rows.Seek(u"=", u"c0700"_s);

    QCOMPARE(m_engine->count(), 1);
}

void CostTest::aColumnReadAfterASeekComesWithTheNextOne()
{
    m_rows.Seek(u"=", u"c0700"_s);
    (void)m_rows[u"NOMBRE"].Value();
    QCOMPARE(m_engine->count(Operation::Read), 1);
    m_engine->restart();

    m_rows.Seek(u"=", u"c0701"_s);
    QCOMPARE(text(m_rows, u"NOMBRE"), u"nombre"_s);
    QCOMPARE(text(m_rows, u"CODIGO"), u"c0701"_s);

    QCOMPARE(m_engine->count(), 1);
}

void CostTest::aSeekBringsOnlyTheColumnsThatAreUsed()
{
    m_engine->failColumn(u"NOTAS"_s);

    m_rows.Seek(u"=", u"c0700"_s);

    QVERIFY(!m_rows.NoMatch());
}

void CostTest::aRowLostAfterASeekStillTellsItsPlace()
{
    m_rows.Seek(u"=", u"c0700"_s);
    m_rows.Delete();
    QCOMPARE(m_engine->count(Operation::Read), 0);

    m_rows.MoveNext();

    QCOMPARE(text(m_rows, u"CODIGO"), u"c0701"_s);
}

void CostTest::moveFirstAndMoveLastBuildNoList()
{
    m_rows.MoveFirst();
    m_rows.MoveLast();

    QCOMPARE(m_engine->count(), 2);
    QCOMPARE(m_engine->count(Operation::Order), 0);
}

void CostTest::aWalkBuildsItsListOnce()
{
    QCOMPARE(walk(m_rows).size(), kRows);

    QCOMPARE(m_engine->count(Operation::Order), 1);
    QCOMPARE(m_engine->count(Operation::DataVersion), 1);
}

void CostTest::aSecondWalkKeepsTheList()
{
    (void)walk(m_rows);
    m_rows.setIndex(u"PRIMARIO"_s);
    m_engine->restart();

    (void)walk(m_rows);

    QCOMPARE(m_engine->count(Operation::Order), 0);
}

void CostTest::aWalkReadsAheadInGrowingBlocks()
{
    (void)walk(m_rows);

    // 1, 32, 512, 512 and what is left of the 1199 rows behind the first.
    QCOMPARE(m_engine->count(Operation::ReadMany), 5);
    QCOMPARE(m_engine->count(Operation::Read), 0);
}

void CostTest::aWalkReadsOnlyTheColumnsThatAreUsed()
{
    m_engine->failColumn(u"NOTAS"_s);

    QCOMPARE(walk(m_rows).size(), kRows);
}

void CostTest::aColumnUsedOnceIsReadAheadFromThenOn()
{
    int row = 0;
    for (m_rows.MoveFirst(); !m_rows.EOF_(); m_rows.MoveNext()) {
        QCOMPARE(text(m_rows, u"NOMBRE"), u"nombre"_s);
        if (++row > 10)
            QCOMPARE(text(m_rows, u"NOTAS"), u"nota"_s);
    }

    // Rows 11 to 34, of the blocks fetched before the column was used.
    QCOMPARE(m_engine->count(Operation::Read), 24);
    QCOMPARE(m_engine->count(Operation::ReadMany), 5);
}

void CostTest::theNextWalkBeginsWithTheColumnsOfTheLast()
{
    for (m_rows.MoveFirst(); !m_rows.EOF_(); m_rows.MoveNext())
        (void)m_rows[u"NOTAS"].Value();
    (void)walk(m_rows);
    m_engine->restart();
    m_engine->failColumn(u"NOTAS"_s);

    QCOMPARE(walk(m_rows).size(), kRows);
    QCOMPARE(m_engine->count(Operation::Read), 0);
}

void CostTest::columnsReadAfterASeekAreNotReadAhead()
{
    m_engine->failColumn(u"NOTAS"_s);

    int row = 0;
    for (m_rows.MoveFirst(); !m_rows.EOF_(); m_rows.MoveNext()) {
        const platform::Value code = m_rows[u"CODIGO"].Value();
        if (++row == 20) {
            m_rows.Seek(u"=", code, 1.0);
            QCOMPARE(text(m_rows, u"NOTAS"), u"nota"_s);
        }
    }

    QCOMPARE(row, kRows);
}

void CostTest::aWalkThatReadsNothingFetchesNothing()
{
    int rows = 0;
    for (m_rows.MoveFirst(); !m_rows.EOF_(); m_rows.MoveNext())
        ++rows;

    QCOMPARE(rows, kRows);
    QCOMPARE(m_engine->count(Operation::ReadMany), 0);
    QCOMPARE(m_engine->count(Operation::Read), 0);
}

void CostTest::seekingTheRowOfTheWalkRebuildsNothing()
{
    m_rows.MoveFirst();
    const int passes = m_rows.RecordCount();
    for (int pass = 0; pass < passes; ++pass) {
        const platform::Value code = m_rows[u"CODIGO"].Value();
        if (pass % 100 == 0) {
            m_rows.Seek(u"=", code, 1.0);
            m_rows.Edit();
        }
        m_rows.MoveNext();
    }

    QVERIFY(m_rows.EOF_());
    QCOMPARE(m_engine->count(Operation::Order), 1);
    QCOMPARE(m_engine->count(Operation::Seek), 12);
    QCOMPARE(m_engine->count(Operation::ReadMany), 5);
}

void CostTest::anOldCopyAsksForTheChangeNumberOnly()
{
    m_rows.MoveFirst();
    (void)text(m_rows, u"NOMBRE");
    setRowFreshness(std::chrono::milliseconds{0});
    (void)text(m_rows, u"NOMBRE");
    m_engine->restart();

    (void)text(m_rows, u"NOMBRE");

    QCOMPARE(m_engine->count(), 1);
    QCOMPARE(m_engine->count(Operation::DataVersion), 1);
}

void CostTest::recordCountOfAKnownListCountsNoRows()
{
    (void)walk(m_rows);

    QCOMPARE(m_rows.RecordCount(), kRows);

    QCOMPARE(m_engine->count(Operation::Count), 0);
}

void CostTest::openingADynasetAsksOnce()
{
    Recordset rows = m_database.OpenRecordset(u"SELECT * FROM LINEAS"_s, dbOpenDynaset);
    QCOMPARE(rows.GetRows(kRows).rowCount(), kRows);

    QCOMPARE(m_engine->count(), 1);
}

QTEST_GUILESS_MAIN(CostTest)
#include "tst_cost.moc"
