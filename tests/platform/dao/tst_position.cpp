// SPDX-License-Identifier: GPL-3.0-or-later
//
// Table-type recordsets: order, Index, moving, BOF, EOF and RecordCount.

#include "platform/core/failurenumbers.h"
#include "platform/dao/daofixture.h"

using namespace daotest;
using namespace platform;
using namespace platform::dao;

class PositionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void anEmptyTableOpensAtBothEnds();
    void aTableOpensOnItsFirstRecord();
    void orderBeforeAnyIndexIsThePrimaryOne();
    void indexGivesItsOrder();
    void anotherIndexGivesAnotherOrderToTheNextWalk();
    void aSeekAfterAWalkGoesOnFromTheRowSought();
    void indexIsEmptyBeforeItIsSet();
    void indexNamesIgnoreCase();
    void settingAnIndexMakesTheFirstRecordCurrent();
    void settingTheSameIndexMakesTheFirstRecordCurrent();
    void anUnknownIndexFailsWith3015AndTheOldOneStays();
    void settingAnIndexDropsAPendingEdit();
    void equalKeysComeInTheOrderOfAdding();
    void textOrderIsTraditionalSpanish();
    void nullsComeFirst();
    void moveFirstOnAnEmptyTableFailsWith3021();
    void moveLastGoesToTheLastInIndexOrder();
    void moveNextPastTheLastSetsEof();
    void moveNextAfterEofFailsWith3021();
    void readingAtEofFailsWith3021();
    void moveFirstAfterEofWorks();
    void moveNextFromTheFirstWithoutAMoveFirst();
    void moveNextFromALastPosition();
    void recordCountIsExact();
    void fieldsGoByPositionAndByNameWithoutCase();
    void anUnknownFieldFailsWith3265();
    void addingToAnEmptyTableMakesBofFalseAndLeavesEof();
    void deletingTheOnlyRecordLeavesTheFlags();
    void moveNextAfterDeletingTheOnlyRecordIsAtBothEnds();
    void aDeletedRecordIsInvalidUntilAMove();
    void moveNextAfterDeleteGoesToTheRowThatFollowed();
    void moveNextAfterDeleteFollowsTheIndex();
    void moveNextAfterDeletePassesRowsWithoutAKey();
    void moveNextAfterDeletingARowWithoutAKeyGoesToTheKeys();
    void moveNextAfterDeletingTheLastSetsEof();
    void deletingInAWalkVisitsEveryRow();
    void deleteWithoutARecordFailsWith3021();
    void aSecondDeleteFailsWith3167();
    void getRowsTakesRowsFromTheCurrentOneOn();
    void lockEditsIsTrueAtTheOpening();

private:
    void addThree();
    void addNameless();

    std::unique_ptr<Store> m_store;
    Database m_database;
    Recordset m_rows;
};

void PositionTest::init()
{
    resetEngine();
    m_store = std::make_unique<Store>();
    m_store->create();
    m_database = m_store->open();
    m_rows = m_database.OpenRecordset(u"LINEAS"_s, dbOpenTable);
}

void PositionTest::cleanup()
{
    m_rows = {};
    m_database = {};
}

void PositionTest::addThree()
{
    addLine(m_rows, u"b"_s, 1, u"zeta"_s);
    addLine(m_rows, u"a"_s, 2, u"media"_s);
    addLine(m_rows, u"a"_s, 1, u"alfa"_s);
    m_rows = m_database.OpenRecordset(u"LINEAS"_s, dbOpenTable);
}

void PositionTest::addNameless()
{
    m_rows.AddNew();
    m_rows[u"CODIGO"].setValue(u"c"_s);
    m_rows[u"NUMERO"].setValue(1.0);
    m_rows.Update();
}

void PositionTest::anEmptyTableOpensAtBothEnds()
{
    QVERIFY(m_rows.BOF());
    QVERIFY(m_rows.EOF_());
    QVERIFY(!m_rows.NoMatch());
    QCOMPARE(failureOf([&] { (void)m_rows[0].Value(); }), kNoCurrentRecord);
}

void PositionTest::aTableOpensOnItsFirstRecord()
{
    addThree();

    QCOMPARE(text(m_rows, u"NOMBRE"), u"alfa"_s);
    QVERIFY(!m_rows.BOF());
    QVERIFY(!m_rows.EOF_());
}

void PositionTest::orderBeforeAnyIndexIsThePrimaryOne()
{
    addThree();

    QCOMPARE(walk(m_rows), (QStringList{u"alfa"_s, u"media"_s, u"zeta"_s}));
    m_rows.MoveLast();
    QCOMPARE(text(m_rows, u"CODIGO"), u"b"_s);
}

void PositionTest::indexGivesItsOrder()
{
    addLine(m_rows, u"a"_s, 1, u"z"_s);
    addLine(m_rows, u"b"_s, 1, u"c"_s);

    m_rows.setIndex(u"NOMBRES"_s);

    QCOMPARE(m_rows.Index(), u"NOMBRES"_s);
    QCOMPARE(walk(m_rows), (QStringList{u"c"_s, u"z"_s}));
}

void PositionTest::anotherIndexGivesAnotherOrderToTheNextWalk()
{
    addLine(m_rows, u"a"_s, 1, u"z"_s);
    addLine(m_rows, u"b"_s, 1, u"c"_s);
    m_rows.setIndex(u"PRIMARIO"_s);
    QCOMPARE(walk(m_rows), (QStringList{u"z"_s, u"c"_s}));

    m_rows.setIndex(u"NOMBRES"_s);

    QCOMPARE(walk(m_rows), (QStringList{u"c"_s, u"z"_s}));
}

void PositionTest::aSeekAfterAWalkGoesOnFromTheRowSought()
{
    addThree();
    m_rows.setIndex(u"NOMBRES"_s);
    QCOMPARE(walk(m_rows).size(), 3);

    m_rows.Seek(u"=", u"alfa"_s);
    m_rows.MoveNext();

    QCOMPARE(text(m_rows, u"NOMBRE"), u"media"_s);
}

void PositionTest::indexIsEmptyBeforeItIsSet()
{
    QCOMPARE(m_rows.Index(), QString());
}

void PositionTest::indexNamesIgnoreCase()
{
    m_rows.setIndex(u"nombres"_s);

    QCOMPARE(m_rows.Index(), u"NOMBRES"_s);
}

void PositionTest::settingAnIndexMakesTheFirstRecordCurrent()
{
    addThree();
    m_rows.MoveLast();

    m_rows.setIndex(u"NOMBRES"_s);

    QCOMPARE(text(m_rows, u"NOMBRE"), u"alfa"_s);
}

void PositionTest::settingTheSameIndexMakesTheFirstRecordCurrent()
{
    addThree();
    m_rows.setIndex(u"PRIMARIO"_s);
    m_rows.MoveLast();
    m_rows.MoveNext();
    QVERIFY(m_rows.EOF_());

    m_rows.setIndex(u"PRIMARIO"_s);

    QVERIFY(!m_rows.EOF_());
    QCOMPARE(text(m_rows, u"NOMBRE"), u"alfa"_s);
}

void PositionTest::anUnknownIndexFailsWith3015AndTheOldOneStays()
{
    addThree();
    m_rows.setIndex(u"NOMBRES"_s);
    m_rows.MoveLast();

    QCOMPARE(failureOf([&] { m_rows.setIndex(u"OTRO"_s); }), kNoSuchIndex);

    QCOMPARE(m_rows.Index(), u"NOMBRES"_s);
    QCOMPARE(text(m_rows, u"NOMBRE"), u"zeta"_s);
}

void PositionTest::settingAnIndexDropsAPendingEdit()
{
    addThree();
    m_rows.Edit();
    m_rows[u"NOMBRE"].setValue(u"otro"_s);

    m_rows.setIndex(u"PRIMARIO"_s);

    QCOMPARE(failureOf([&] { m_rows.Update(); }), kUpdateWithoutEdit);
    QCOMPARE(text(m_rows, u"NOMBRE"), u"alfa"_s);
}

void PositionTest::equalKeysComeInTheOrderOfAdding()
{
    addLine(m_rows, u"c"_s, 1, u"igual"_s);
    addLine(m_rows, u"a"_s, 1, u"IGUAL"_s);
    addLine(m_rows, u"b"_s, 1, u"Igual"_s);

    m_rows.setIndex(u"NOMBRES"_s);

    QCOMPARE(walk(m_rows), (QStringList{u"igual"_s, u"IGUAL"_s, u"Igual"_s}));
}

void PositionTest::textOrderIsTraditionalSpanish()
{
    const QStringList ordered{u"casa"_s, u"cuna"_s,  u"chal"_s, u"dos"_s,
                              u"luna"_s, u"llave"_s, u"nube"_s, u"ñu"_s};
    for (qsizetype i = ordered.size(); i > 0; --i)
        addLine(m_rows, QString::number(i), 1, ordered.at(i - 1));

    m_rows.setIndex(u"NOMBRES"_s);

    QCOMPARE(walk(m_rows), ordered);
}

void PositionTest::nullsComeFirst()
{
    addLine(m_rows, u"a"_s, 1, u"algo"_s);
    m_rows.AddNew();
    m_rows[u"CODIGO"].setValue(u"b"_s);
    m_rows[u"NUMERO"].setValue(1);
    m_rows.Update();

    m_rows.setIndex(u"NOMBRES"_s);

    QVERIFY(isNull(m_rows[u"NOMBRE"].Value()));
    m_rows.MoveNext();
    QCOMPARE(text(m_rows, u"NOMBRE"), u"algo"_s);
}

void PositionTest::moveFirstOnAnEmptyTableFailsWith3021()
{
    QCOMPARE(failureOf([&] { m_rows.MoveFirst(); }), kNoCurrentRecord);
    QCOMPARE(failureOf([&] { m_rows.MoveLast(); }), kNoCurrentRecord);
    QCOMPARE(failureOf([&] { m_rows.MoveNext(); }), kNoCurrentRecord);
    QVERIFY(m_rows.BOF());
    QVERIFY(m_rows.EOF_());
}

void PositionTest::moveLastGoesToTheLastInIndexOrder()
{
    addThree();
    m_rows.setIndex(u"NOMBRES"_s);

    m_rows.MoveLast();

    QCOMPARE(text(m_rows, u"NOMBRE"), u"zeta"_s);
    QVERIFY(!m_rows.EOF_());
}

void PositionTest::moveNextPastTheLastSetsEof()
{
    addThree();
    m_rows.MoveLast();

    m_rows.MoveNext();

    QVERIFY(m_rows.EOF_());
    QVERIFY(!m_rows.BOF());
}

void PositionTest::moveNextAfterEofFailsWith3021()
{
    addThree();
    m_rows.MoveLast();
    m_rows.MoveNext();

    QCOMPARE(failureOf([&] { m_rows.MoveNext(); }), kNoCurrentRecord);
    QVERIFY(m_rows.EOF_());
}

void PositionTest::readingAtEofFailsWith3021()
{
    addThree();
    m_rows.MoveLast();
    m_rows.MoveNext();

    QCOMPARE(failureOf([&] { (void)m_rows[u"NOMBRE"].Value(); }), kNoCurrentRecord);
    QCOMPARE(failureOf([&] { m_rows.Edit(); }), kNoCurrentRecord);
}

void PositionTest::moveFirstAfterEofWorks()
{
    addThree();
    m_rows.MoveLast();
    m_rows.MoveNext();

    m_rows.MoveFirst();

    QVERIFY(!m_rows.EOF_());
    QCOMPARE(text(m_rows, u"NOMBRE"), u"alfa"_s);
}

void PositionTest::moveNextFromTheFirstWithoutAMoveFirst()
{
    addThree();

    m_rows.MoveNext();

    QCOMPARE(text(m_rows, u"NOMBRE"), u"media"_s);
}

void PositionTest::moveNextFromALastPosition()
{
    addThree();
    (void)walk(m_rows);
    m_rows.MoveLast();
    QCOMPARE(text(m_rows, u"NOMBRE"), u"zeta"_s);

    m_rows.MoveNext();

    QVERIFY(m_rows.EOF_());
}

void PositionTest::recordCountIsExact()
{
    QCOMPARE(m_rows.RecordCount(), 0);
    addThree();
    QCOMPARE(m_rows.RecordCount(), 3);
    (void)walk(m_rows);
    QCOMPARE(m_rows.RecordCount(), 3);
    m_rows.MoveFirst();
    m_rows.Delete();
    QCOMPARE(m_rows.RecordCount(), 2);
}

void PositionTest::fieldsGoByPositionAndByNameWithoutCase()
{
    addThree();

    QCOMPARE(m_rows.Fields().Count(), 4);
    QCOMPARE(m_rows[2].Name(), u"NOMBRE"_s);
    QCOMPARE(m_rows[u"nombre"].Name(), u"NOMBRE"_s);
    QCOMPARE(m_rows.Fields().Item(u"Codigo"_s).Name(), u"CODIGO"_s);
    QCOMPARE(m_rows.Fields().Item(0).Size(), 10);
    QCOMPARE(m_rows.Fields().Item(1).Size(), 8);
    QCOMPARE(m_rows.Fields().Item(3).Size(), 0);
}

void PositionTest::anUnknownFieldFailsWith3265()
{
    QCOMPARE(failureOf([&] { (void)m_rows[u"OTRA"]; }), kItemNotInCollection);
    QCOMPARE(failureOf([&] { (void)m_rows[4]; }), kItemNotInCollection);
    QCOMPARE(failureOf([&] { (void)m_rows[-1]; }), kItemNotInCollection);
}

void PositionTest::addingToAnEmptyTableMakesBofFalseAndLeavesEof()
{
    QVERIFY(m_rows.BOF());

    addLine(m_rows, u"a"_s, 1, u"uno"_s);

    QVERIFY(!m_rows.BOF());
    QVERIFY(m_rows.EOF_());
}

void PositionTest::deletingTheOnlyRecordLeavesTheFlags()
{
    addLine(m_rows, u"a"_s, 1, u"uno"_s);
    m_rows.MoveFirst();

    m_rows.Delete();

    QVERIFY(!m_rows.BOF());
    QVERIFY(!m_rows.EOF_());
}

void PositionTest::moveNextAfterDeletingTheOnlyRecordIsAtBothEnds()
{
    addLine(m_rows, u"a"_s, 1, u"uno"_s);
    m_rows.MoveFirst();
    m_rows.Delete();

    m_rows.MoveNext();

    QVERIFY(m_rows.BOF());
    QVERIFY(m_rows.EOF_());
}

void PositionTest::aDeletedRecordIsInvalidUntilAMove()
{
    addThree();

    m_rows.Delete();

    QCOMPARE(failureOf([&] { (void)m_rows[u"NOMBRE"].Value(); }), kRecordDeleted);
    QCOMPARE(failureOf([&] { m_rows.Edit(); }), kRecordDeleted);
    m_rows.MoveFirst();
    QCOMPARE(text(m_rows, u"NOMBRE"), u"media"_s);
}

void PositionTest::moveNextAfterDeleteGoesToTheRowThatFollowed()
{
    addThree();
    m_rows.MoveNext();

    m_rows.Delete();
    m_rows.MoveNext();

    QCOMPARE(text(m_rows, u"NOMBRE"), u"zeta"_s);
}

void PositionTest::moveNextAfterDeleteFollowsTheIndex()
{
    addThree();
    m_rows.setIndex(u"NOMBRES"_s);
    m_rows.MoveFirst();

    m_rows.Delete();
    m_rows.MoveNext();

    QCOMPARE(text(m_rows, u"NOMBRE"), u"media"_s);
}

void PositionTest::moveNextAfterDeletePassesRowsWithoutAKey()
{
    addThree();
    addNameless();
    m_rows.setIndex(u"NOMBRES"_s);
    m_rows.Seek(u"=", u"alfa"_s);

    m_rows.Delete();
    m_rows.MoveNext();

    QCOMPARE(text(m_rows, u"NOMBRE"), u"media"_s);
}

void PositionTest::moveNextAfterDeletingARowWithoutAKeyGoesToTheKeys()
{
    addThree();
    addNameless();
    m_rows.setIndex(u"NOMBRES"_s);
    m_rows.MoveFirst();

    m_rows.Delete();
    m_rows.MoveNext();

    QCOMPARE(text(m_rows, u"NOMBRE"), u"alfa"_s);
}

void PositionTest::moveNextAfterDeletingTheLastSetsEof()
{
    addThree();
    m_rows.MoveLast();

    m_rows.Delete();
    m_rows.MoveNext();

    QVERIFY(m_rows.EOF_());
    QVERIFY(!m_rows.BOF());
}

void PositionTest::deletingInAWalkVisitsEveryRow()
{
    for (int i = 0; i < 40; ++i)
        addLine(m_rows, u"a"_s, i, QString::number(i));
    QStringList visited;

    m_rows.MoveFirst();
    const int passes = m_rows.RecordCount();
    for (int pass = 0; pass < passes; ++pass) {
        visited.append(text(m_rows, u"NOMBRE"));
        if (pass % 3 == 0)
            m_rows.Delete();
        m_rows.MoveNext();
    }

    QCOMPARE(visited.size(), 40);
    QCOMPARE(visited.last(), u"39"_s);
    QCOMPARE(m_rows.RecordCount(), 26);
}

void PositionTest::deleteWithoutARecordFailsWith3021()
{
    QCOMPARE(failureOf([&] { m_rows.Delete(); }), kNoCurrentRecord);
}

void PositionTest::aSecondDeleteFailsWith3167()
{
    addThree();
    m_rows.Delete();

    QCOMPARE(failureOf([&] { m_rows.Delete(); }), kRecordDeleted);
    QCOMPARE(m_rows.RecordCount(), 2);
}

void PositionTest::getRowsTakesRowsFromTheCurrentOneOn()
{
    addThree();
    m_rows.MoveNext();

    const RowArray rows = m_rows.GetRows(10);

    QCOMPARE(rows.fieldCount(), 4);
    QCOMPARE(rows.rowCount(), 2);
    QCOMPARE(asText(rows.at(2, 0)), u"media"_s);
    QCOMPARE(asText(rows.at(2, 1)), u"zeta"_s);
    QVERIFY(m_rows.EOF_());
}

void PositionTest::lockEditsIsTrueAtTheOpening()
{
    QVERIFY(m_rows.LockEdits());

    m_rows.setLockEdits(false);

    QVERIFY(!m_rows.LockEdits());
}

QTEST_GUILESS_MAIN(PositionTest)
#include "tst_position.moc"
