// SPDX-License-Identifier: GPL-3.0-or-later
//
// `Seek` and `NoMatch`.

#include "platform/core/failurenumbers.h"
#include "platform/dao/daofixture.h"

using namespace daotest;
using namespace platform;
using namespace platform::dao;

class SeekTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void withoutAnIndexItFailsWith3019();
    void aFoundRowBecomesCurrent();
    void theFirstInIndexOrderIsFound();
    void aRowNotFoundLeavesNoCurrentRecord();
    void notFoundLeavesTheEnds();
    void aSeekRightAfterTheOpeningLeavesTheEnds();
    void foundAfterEofIsNoLongerAtTheEnd();
    void moveFirstWorksAfterNotFound();
    void missingTrailingKeysAreFree();
    void moreKeysThanColumnsFailWith3001();
    void anotherComparisonFailsWith3001();
    void keysAreConvertedToTheColumn();
    void aNumberKeyFindsItsText();
    void anInconvertibleKeyFailsWith3421();
    void aFailingSeekLeavesPositionAndNoMatch();
    void aFailingSeekDropsAPendingEdit();
    void caseAndTrailingBlanksDoNotCount();
    void accentsCount();
    void aNullKeyFindsANull();
    void anEmptyTextFindsOnlyAnEmptyText();
    void noMatchIsWrittenBySeekOnly();
    void moveNextAfterASeekGoesOnInTheIndex();
    void aSeekToTheRowOfAWalkLetsItGoOn();

private:
    std::unique_ptr<Store> m_store;
    Database m_database;
    Recordset m_rows;
};

void SeekTest::init()
{
    resetEngine();
    m_store = std::make_unique<Store>();
    m_store->create();
    m_database = m_store->open();
    Recordset rows = m_database.OpenRecordset(u"LINEAS"_s, dbOpenTable);
    addLine(rows, u"b"_s, 2, u"dos"_s);
    addLine(rows, u"b"_s, 1, u"uno"_s);
    addLine(rows, u"c"_s, 12, u"doce"_s);
    addLine(rows, u"a"_s, 7, u"Ávila"_s);
    m_rows = m_database.OpenRecordset(u"LINEAS"_s, dbOpenTable);
    m_rows.setIndex(u"PRIMARIO"_s);
}

void SeekTest::cleanup()
{
    m_rows = {};
    m_database = {};
}

void SeekTest::withoutAnIndexItFailsWith3019()
{
    Recordset rows = m_database.OpenRecordset(u"LINEAS"_s, dbOpenTable);

    QCOMPARE(failureOf([&] { rows.Seek(u"=", u"b"_s); }), kNoCurrentIndex);
}

void SeekTest::aFoundRowBecomesCurrent()
{
    m_rows.Seek(u"=", u"c"_s, 12.0);

    QVERIFY(!m_rows.NoMatch());
    QCOMPARE(text(m_rows, u"NOMBRE"), u"doce"_s);
}

void SeekTest::theFirstInIndexOrderIsFound()
{
    m_rows.Seek(u"=", u"b"_s);

    QCOMPARE(text(m_rows, u"NOMBRE"), u"uno"_s);
}

void SeekTest::aRowNotFoundLeavesNoCurrentRecord()
{
    m_rows.Seek(u"=", u"z"_s);

    QVERIFY(m_rows.NoMatch());
    QCOMPARE(failureOf([&] { (void)m_rows[u"NOMBRE"].Value(); }), kNoCurrentRecord);
    QCOMPARE(failureOf([&] { m_rows.Edit(); }), kNoCurrentRecord);
    QCOMPARE(failureOf([&] { m_rows.Delete(); }), kNoCurrentRecord);
    QCOMPARE(failureOf([&] { m_rows.MoveNext(); }), kNoCurrentRecord);
}

void SeekTest::notFoundLeavesTheEnds()
{
    m_rows.MoveFirst();
    m_rows.Seek(u"=", u"z"_s);
    QVERIFY(!m_rows.BOF());
    QVERIFY(!m_rows.EOF_());

    m_rows.MoveLast();
    m_rows.MoveNext();
    m_rows.Seek(u"=", u"z"_s);
    QVERIFY(m_rows.EOF_());
}

void SeekTest::aSeekRightAfterTheOpeningLeavesTheEnds()
{
    Recordset empty = m_database.OpenRecordset(u"LINEAS"_s, dbOpenTable);
    empty.setIndex(u"PRIMARIO"_s);
    empty.Seek(u"=", u"z"_s);
    QVERIFY(!empty.BOF());
    QVERIFY(!empty.EOF_());

    m_database.TableDefs().Append(lineTable(m_database, u"VACIA"_s));
    empty = m_database.OpenRecordset(u"VACIA"_s, dbOpenTable);
    empty.setIndex(u"PRIMARIO"_s);
    empty.Seek(u"=", u"z"_s);
    QVERIFY(empty.BOF());
    QVERIFY(empty.EOF_());
}

void SeekTest::foundAfterEofIsNoLongerAtTheEnd()
{
    m_rows.MoveLast();
    m_rows.MoveNext();

    m_rows.Seek(u"=", u"b"_s);

    QVERIFY(!m_rows.EOF_());
}

void SeekTest::moveFirstWorksAfterNotFound()
{
    m_rows.Seek(u"=", u"z"_s);

    m_rows.MoveFirst();

    QCOMPARE(text(m_rows, u"NOMBRE"), u"Ávila"_s);
}

void SeekTest::missingTrailingKeysAreFree()
{
    m_rows.Seek(u"=", u"c"_s);

    QVERIFY(!m_rows.NoMatch());
    QCOMPARE(text(m_rows, u"NOMBRE"), u"doce"_s);
}

void SeekTest::moreKeysThanColumnsFailWith3001()
{
    QCOMPARE(failureOf([&] { m_rows.Seek(u"=", u"b"_s, 1.0, 1.0); }), kInvalidArgument);
}

void SeekTest::anotherComparisonFailsWith3001()
{
    QCOMPARE(failureOf([&] { m_rows.Seek(u">=", u"b"_s); }), kInvalidArgument);
}

void SeekTest::keysAreConvertedToTheColumn()
{
    m_rows.Seek(u"=", u"c"_s, u"0000000012"_s);

    QVERIFY(!m_rows.NoMatch());
    QCOMPARE(text(m_rows, u"NOMBRE"), u"doce"_s);
}

void SeekTest::aNumberKeyFindsItsText()
{
    addLine(m_rows, u"12"_s, 1, u"texto"_s);

    m_rows.Seek(u"=", 12.0);

    QCOMPARE(text(m_rows, u"NOMBRE"), u"texto"_s);
}

void SeekTest::anInconvertibleKeyFailsWith3421()
{
    QCOMPARE(failureOf([&] { m_rows.Seek(u"=", u"b"_s, u"x"_s); }), kConversionError);
    QCOMPARE(failureOf([&] { m_rows.Seek(u"=", u"b"_s, QString()); }), kConversionError);
}

void SeekTest::aFailingSeekLeavesPositionAndNoMatch()
{
    m_rows.Seek(u"=", u"b"_s, 2.0);

    QCOMPARE(failureOf([&] { m_rows.Seek(u"=", u"z"_s, u"x"_s); }), kConversionError);

    QVERIFY(!m_rows.NoMatch());
    QCOMPARE(text(m_rows, u"NOMBRE"), u"dos"_s);
}

void SeekTest::aFailingSeekDropsAPendingEdit()
{
    m_rows.Edit();

    QCOMPARE(failureOf([&] { m_rows.Seek(u"=", u"z"_s, u"x"_s); }), kConversionError);

    QCOMPARE(failureOf([&] { m_rows.Update(); }), kUpdateWithoutEdit);
}

void SeekTest::caseAndTrailingBlanksDoNotCount()
{
    m_rows.Seek(u"=", u"C  "_s);

    QVERIFY(!m_rows.NoMatch());
    QCOMPARE(text(m_rows, u"CODIGO"), u"c"_s);
}

void SeekTest::accentsCount()
{
    m_rows.setIndex(u"NOMBRES"_s);

    m_rows.Seek(u"=", u"avila"_s);
    QVERIFY(m_rows.NoMatch());
    m_rows.Seek(u"=", u"ávila"_s);
    QVERIFY(!m_rows.NoMatch());
}

void SeekTest::aNullKeyFindsANull()
{
    m_rows.AddNew();
    m_rows[u"CODIGO"].setValue(u"n"_s);
    m_rows[u"NUMERO"].setValue(1);
    m_rows.Update();
    m_rows.setIndex(u"NOMBRES"_s);

    m_rows.Seek(u"=", Null{});

    QVERIFY(!m_rows.NoMatch());
    QCOMPARE(text(m_rows, u"CODIGO"), u"n"_s);
}

void SeekTest::anEmptyTextFindsOnlyAnEmptyText()
{
    m_rows.setIndex(u"NOMBRES"_s);

    m_rows.Seek(u"=", QString());

    QVERIFY(m_rows.NoMatch());
}

void SeekTest::noMatchIsWrittenBySeekOnly()
{
    m_rows.Seek(u"=", u"z"_s);

    m_rows.MoveFirst();
    m_rows.MoveNext();
    m_rows.Edit();
    m_rows.AddNew();
    m_rows.setIndex(u"NOMBRES"_s);

    QVERIFY(m_rows.NoMatch());
}

void SeekTest::moveNextAfterASeekGoesOnInTheIndex()
{
    m_rows.Seek(u"=", u"b"_s, 1.0);

    m_rows.MoveNext();
    QCOMPARE(text(m_rows, u"NOMBRE"), u"dos"_s);
    m_rows.MoveNext();
    QCOMPARE(text(m_rows, u"NOMBRE"), u"doce"_s);
}

void SeekTest::aSeekToTheRowOfAWalkLetsItGoOn()
{
    QStringList names;

    m_rows.MoveFirst();
    const int passes = m_rows.RecordCount();
    for (int pass = 0; pass < passes; ++pass) {
        m_rows.Seek(u"=", m_rows[u"CODIGO"].Value(), m_rows[u"NUMERO"].Value());
        m_rows.Edit();
        names.append(text(m_rows, u"NOMBRE"));
        m_rows.MoveNext();
    }

    QCOMPARE(names, (QStringList{u"Ávila"_s, u"uno"_s, u"dos"_s, u"doce"_s}));
    QVERIFY(m_rows.EOF_());
}

QTEST_GUILESS_MAIN(SeekTest)
#include "tst_seek.moc"
