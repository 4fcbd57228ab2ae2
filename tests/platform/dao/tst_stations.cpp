// SPDX-License-Identifier: GPL-3.0-or-later
//
// What another station does to the same file while a recordset holds its position.

#include "platform/core/failurenumbers.h"
#include "platform/dao/daofixture.h"
#include "platform/dao/freshness.h"

using namespace daotest;
using namespace platform;
using namespace platform::dao;

class StationsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aRowChangedElsewhereIsSeenOnTheNextRead();
    void aRowDeletedElsewhereFailsWith3167();
    void moveNextAfterALostRowGoesToTheRowThatFollowed();
    void moveNextAfterALostRowOfAWalkGoesToTheRowThatFollowed();
    void moveNextAfterALostBeginningOfAWalkGoesToTheRowThatFollowed();
    void aRowNumberUsedAgainDoesNotMisleadMoveNext();
    void aLostRowsNumberUsedAgainDoesNotMisleadMoveNext();
    void aRowAddedElsewhereIsMetByTheWalk();
    void aRowAddedElsewhereIsReadWhereRowsWereReadAhead();
    void aRowDeletedElsewhereIsLeftOutOfTheWalk();
    void aRowMovedInTheOrderIsFoundAtItsNewPlace();
    void aRowMovedBackInTheOrderIsFoundAtItsNewPlace();
    void recordCountHasTheOthersRows();
    void theFirstRecordOfAnEmptyTableIsNoticed();
    void theFirstRecordAfterAVainSeekLeavesEof();
    void seekSeesTheOthersRows();
    void moveLastSeesTheOthersRows();
    void updateAfterAnotherStationsChangeFailsWith3197();
    void aSecondUpdateAfter3197Overwrites();
    void updateOfARowDeletedElsewhereFailsWith3167();
    void editOfARowDeletedElsewhereFailsWith3167();
    void deleteOfARowDeletedElsewhereFailsWith3167();
    void aPendingEditHoldsNothing();
    void aSeekAndEditAfreshOverwrites();
    void aChangeThroughTheOtherHandleOfThisRunIsSeen();
    void aYoungCopyIsUsedAsItIs();
    void aYoungCopyIsLookedAtAfterAnOwnChange();
    void aYoungCopyIsLookedAtAfterAnOwnDeletion();

private:
    std::unique_ptr<Store> m_store;
    std::unique_ptr<storage::Connection> m_other;
    Database m_database;
    Recordset m_rows;
};

void StationsTest::init()
{
    resetEngine();
    m_store = std::make_unique<Store>();
    m_store->create();
    m_database = m_store->open();
    m_other = m_store->otherStation();
    for (int i = 1; i <= 4; ++i)
        addLine(*m_other, u"a"_s, i * 10, u"n%1"_s.arg(i));
    m_rows = m_database.OpenRecordset(u"LINEAS"_s, dbOpenTable);
    m_rows.setIndex(u"PRIMARIO"_s);
}

void StationsTest::cleanup()
{
    m_rows = {};
    m_database = {};
    m_other.reset();
}

void StationsTest::aRowChangedElsewhereIsSeenOnTheNextRead()
{
    QCOMPARE(text(m_rows, u"NOMBRE"), u"n1"_s);

    renameLine(*m_other, u"a"_s, 10, u"nuevo"_s);

    QCOMPARE(text(m_rows, u"NOMBRE"), u"nuevo"_s);
}

void StationsTest::aRowDeletedElsewhereFailsWith3167()
{
    m_rows.Seek(u"=", u"a"_s, 20.0);

    deleteLine(*m_other, u"a"_s, 20);

    QCOMPARE(failureOf([&] { (void)m_rows[u"NOMBRE"].Value(); }), kRecordDeleted);
    QCOMPARE(failureOf([&] { (void)m_rows[u"CODIGO"].Value(); }), kRecordDeleted);
}

void StationsTest::moveNextAfterALostRowGoesToTheRowThatFollowed()
{
    m_rows.Seek(u"=", u"a"_s, 20.0);
    deleteLine(*m_other, u"a"_s, 20);
    QCOMPARE(failureOf([&] { (void)m_rows[u"NOMBRE"].Value(); }), kRecordDeleted);

    m_rows.MoveNext();

    QCOMPARE(text(m_rows, u"NOMBRE"), u"n3"_s);
}

void StationsTest::moveNextAfterALostRowOfAWalkGoesToTheRowThatFollowed()
{
    m_rows.MoveFirst();
    m_rows.MoveNext();
    QCOMPARE(text(m_rows, u"NOMBRE"), u"n2"_s);
    deleteLine(*m_other, u"a"_s, 20);
    QCOMPARE(failureOf([&] { (void)m_rows[u"NOMBRE"].Value(); }), kRecordDeleted);

    m_rows.MoveNext();

    QCOMPARE(text(m_rows, u"NOMBRE"), u"n3"_s);
}

void StationsTest::moveNextAfterALostBeginningOfAWalkGoesToTheRowThatFollowed()
{
    m_rows.MoveFirst();
    m_rows.MoveNext();
    QCOMPARE(text(m_rows, u"NOMBRE"), u"n2"_s);
    deleteLine(*m_other, u"a"_s, 10);
    deleteLine(*m_other, u"a"_s, 20);

    m_rows.MoveNext();

    QCOMPARE(text(m_rows, u"NOMBRE"), u"n3"_s);
}

void StationsTest::aRowNumberUsedAgainDoesNotMisleadMoveNext()
{
    m_rows.MoveLast();
    m_rows.Delete();
    addLine(*m_other, u"0"_s, 1, u"reusada"_s);

    m_rows.MoveNext();

    QVERIFY(m_rows.EOF_());
}

void StationsTest::aLostRowsNumberUsedAgainDoesNotMisleadMoveNext()
{
    m_rows.MoveLast();
    deleteLine(*m_other, u"a"_s, 40);
    QCOMPARE(failureOf([&] { (void)m_rows[u"NOMBRE"].Value(); }), kRecordDeleted);
    addLine(*m_other, u"0"_s, 1, u"reusada"_s);

    m_rows.MoveNext();

    QVERIFY(m_rows.EOF_());
}

void StationsTest::aRowAddedElsewhereIsMetByTheWalk()
{
    m_rows.MoveFirst();
    m_rows.MoveNext();
    addLine(*m_other, u"a"_s, 25, u"n2b"_s);

    m_rows.MoveNext();

    QCOMPARE(text(m_rows, u"NOMBRE"), u"n2b"_s);
}

void StationsTest::aRowAddedElsewhereIsReadWhereRowsWereReadAhead()
{
    m_rows.MoveFirst();
    m_rows.MoveNext();
    QCOMPARE(text(m_rows, u"NOMBRE"), u"n2"_s);
    m_rows.MoveNext();
    QCOMPARE(text(m_rows, u"NOMBRE"), u"n3"_s); // n4 came with it
    addLine(*m_other, u"a"_s, 35, u"n3b"_s);

    m_rows.MoveNext();

    QCOMPARE(text(m_rows, u"NOMBRE"), u"n3b"_s);
}

void StationsTest::aRowDeletedElsewhereIsLeftOutOfTheWalk()
{
    m_rows.MoveFirst();
    m_rows.MoveNext();
    deleteLine(*m_other, u"a"_s, 30);

    m_rows.MoveNext();

    QCOMPARE(text(m_rows, u"NOMBRE"), u"n4"_s);
}

void StationsTest::aRowMovedInTheOrderIsFoundAtItsNewPlace()
{
    m_rows.setIndex(u"NOMBRES"_s);
    m_rows.MoveFirst();
    m_rows.MoveNext();
    renameLine(*m_other, u"a"_s, 20, u"n35"_s);

    m_rows.MoveNext();

    QCOMPARE(text(m_rows, u"NOMBRE"), u"n4"_s);
}

void StationsTest::aRowMovedBackInTheOrderIsFoundAtItsNewPlace()
{
    m_rows.setIndex(u"NOMBRES"_s);
    m_rows.MoveFirst();
    m_rows.MoveNext();
    m_rows.MoveNext();
    renameLine(*m_other, u"a"_s, 30, u"n0"_s);

    m_rows.MoveNext();

    QCOMPARE(text(m_rows, u"NOMBRE"), u"n1"_s);
}

void StationsTest::recordCountHasTheOthersRows()
{
    (void)walk(m_rows);
    QCOMPARE(m_rows.RecordCount(), 4);

    addLine(*m_other, u"b"_s, 1, u"x"_s);

    QCOMPARE(m_rows.RecordCount(), 5);
}

void StationsTest::theFirstRecordOfAnEmptyTableIsNoticed()
{
    for (int i = 1; i <= 4; ++i)
        deleteLine(*m_other, u"a"_s, i * 10);
    m_rows = m_database.OpenRecordset(u"LINEAS"_s, dbOpenTable);
    QVERIFY(m_rows.EOF_());
    QVERIFY(m_rows.BOF());

    addLine(*m_other, u"a"_s, 1, u"primera"_s);

    QVERIFY(!(m_rows.EOF_() && m_rows.BOF()));
    m_rows.MoveLast();
    QCOMPARE(text(m_rows, u"NOMBRE"), u"primera"_s);
}

void StationsTest::theFirstRecordAfterAVainSeekLeavesEof()
{
    for (int i = 1; i <= 4; ++i)
        deleteLine(*m_other, u"a"_s, i * 10);
    m_rows = m_database.OpenRecordset(u"LINEAS"_s, dbOpenTable);
    m_rows.setIndex(u"PRIMARIO"_s);
    m_rows.Seek(u"=", u"a"_s, 1.0);
    QVERIFY(m_rows.BOF() && m_rows.EOF_());

    addLine(*m_other, u"a"_s, 1, u"primera"_s);

    QVERIFY(!m_rows.BOF());
    QVERIFY(m_rows.EOF_());
}

void StationsTest::seekSeesTheOthersRows()
{
    addLine(*m_other, u"b"_s, 1, u"x"_s);

    m_rows.Seek(u"=", u"b"_s, 1.0);

    QVERIFY(!m_rows.NoMatch());
}

void StationsTest::moveLastSeesTheOthersRows()
{
    (void)walk(m_rows);
    addLine(*m_other, u"b"_s, 1, u"x"_s);

    m_rows.MoveLast();

    QCOMPARE(text(m_rows, u"NOMBRE"), u"x"_s);
}

void StationsTest::updateAfterAnotherStationsChangeFailsWith3197()
{
    m_rows.Edit();
    m_rows[u"NOTAS"].setValue(u"mía"_s);
    renameLine(*m_other, u"a"_s, 10, u"suya"_s);

    QCOMPARE(failureOf([&] { m_rows.Update(); }), kDataChanged);

    m_rows.MoveFirst();
    QCOMPARE(text(m_rows, u"NOMBRE"), u"suya"_s);
    QVERIFY(isNull(m_rows[u"NOTAS"].Value()));
}

void StationsTest::aSecondUpdateAfter3197Overwrites()
{
    m_rows.Edit();
    m_rows[u"NOMBRE"].setValue(u"mía"_s);
    renameLine(*m_other, u"a"_s, 10, u"suya"_s);
    QCOMPARE(failureOf([&] { m_rows.Update(); }), kDataChanged);

    m_rows.Update();

    m_rows.MoveFirst();
    QCOMPARE(text(m_rows, u"NOMBRE"), u"mía"_s);
}

void StationsTest::updateOfARowDeletedElsewhereFailsWith3167()
{
    m_rows.Edit();
    deleteLine(*m_other, u"a"_s, 10);

    QCOMPARE(failureOf([&] { m_rows.Update(); }), kRecordDeleted);
}

void StationsTest::editOfARowDeletedElsewhereFailsWith3167()
{
    m_rows.MoveFirst();
    deleteLine(*m_other, u"a"_s, 10);

    QCOMPARE(failureOf([&] { m_rows.Edit(); }), kRecordDeleted);
}

void StationsTest::deleteOfARowDeletedElsewhereFailsWith3167()
{
    m_rows.MoveFirst();
    deleteLine(*m_other, u"a"_s, 10);

    QCOMPARE(failureOf([&] { m_rows.Delete(); }), kRecordDeleted);
    m_rows.MoveNext();
    QCOMPARE(text(m_rows, u"NOMBRE"), u"n2"_s);
}

void StationsTest::aPendingEditHoldsNothing()
{
    m_rows.setLockEdits(false);
    m_rows.Edit();

    renameLine(*m_other, u"a"_s, 10, u"libre"_s);

    m_rows.MoveFirst();
    QCOMPARE(text(m_rows, u"NOMBRE"), u"libre"_s);
}

void StationsTest::aSeekAndEditAfreshOverwrites()
{
    m_rows.Seek(u"=", u"a"_s, 10.0);
    m_rows.Edit();
    renameLine(*m_other, u"a"_s, 10, u"suya"_s);

    m_rows.Seek(u"=", u"a"_s, 10.0);
    m_rows.Edit();
    m_rows[u"NOMBRE"].setValue(u"mía"_s);
    m_rows.Update();

    QCOMPARE(text(m_rows, u"NOMBRE"), u"mía"_s);
}

void StationsTest::aChangeThroughTheOtherHandleOfThisRunIsSeen()
{
    Database second = m_store->open();
    Recordset rows = second.OpenRecordset(u"LINEAS"_s, dbOpenTable);
    QCOMPARE(text(m_rows, u"NOMBRE"), u"n1"_s);

    rows.Edit();
    rows[u"NOMBRE"].setValue(u"otra"_s);
    rows.Update();

    QCOMPARE(text(m_rows, u"NOMBRE"), u"otra"_s);
}

void StationsTest::aYoungCopyIsUsedAsItIs()
{
    setRowFreshness(std::chrono::hours{1});
    m_rows.MoveFirst();
    renameLine(*m_other, u"a"_s, 10, u"nuevo"_s);

    QCOMPARE(text(m_rows, u"NOMBRE"), u"n1"_s);
    m_rows.MoveFirst();
    QCOMPARE(text(m_rows, u"NOMBRE"), u"nuevo"_s);
}

void StationsTest::aYoungCopyIsLookedAtAfterAnOwnChange()
{
    setRowFreshness(std::chrono::hours{1});
    Recordset second = m_database.OpenRecordset(u"LINEAS"_s, dbOpenTable);
    QCOMPARE(text(m_rows, u"NOMBRE"), u"n1"_s);

    second.Edit();
    second[u"NOMBRE"].setValue(u"nuevo"_s);
    second.Update();

    QCOMPARE(text(m_rows, u"NOMBRE"), u"nuevo"_s);
}

void StationsTest::aYoungCopyIsLookedAtAfterAnOwnDeletion()
{
    setRowFreshness(std::chrono::hours{1});
    Recordset second = m_database.OpenRecordset(u"LINEAS"_s, dbOpenTable);
    QCOMPARE(text(m_rows, u"NOMBRE"), u"n1"_s);

    second.Delete();

    QCOMPARE(failureOf([&] { (void)m_rows[u"NOMBRE"].Value(); }), kRecordDeleted);
}

QTEST_GUILESS_MAIN(StationsTest)
#include "tst_stations.moc"
