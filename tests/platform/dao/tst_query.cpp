// SPDX-License-Identifier: GPL-3.0-or-later
//
// Dynasets and snapshots.

#include "platform/core/failurenumbers.h"
#include "platform/dao/daofixture.h"

using namespace daotest;
using namespace platform;
using namespace platform::dao;

using Move = void (*)(Recordset&);

class QueryTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aFailingQueryLeavesTheHandleUnset_data();
    void aFailingQueryLeavesTheHandleUnset();
    void aTableNameIsASource();
    void anEmptyResultIsAtBothEnds();
    void movesOnAnEmptyResultFailWith3021();
    void recordCountIsOneRightAfterTheOpening();
    void recordCountCountsVisitedRows();
    void recordCountIsFullAfterMoveLast();
    void aWalkEndsAtEof();
    void rowsAreThoseOfTheOpening();
    void getRowsTakesAllRows();
    void getRowsStopsAtItsCount();
    void getRowsGoesOnWhereTheCursorStands();
    void getRowsLeavesRecordCount();
    void getRowsAtEofFailsWith3021();
    void getRowsOfNoneTakesNone();
    void getRowsKeepsNulls();
    void aChangedArrayLeavesTheRecordset();
    void aCellOutsideTheArrayFailsWith9();
    void fieldsHaveAliasesAndSizes();
    void anExpressionHasNoSize();
    void everyColumnSaysThatItTakesTheEmptyText();
    void aWholeTableDynasetCanBeEdited();
    void editingLeavesArraysTakenBefore();
    void movingDropsAPendingEdit_data();
    void movingDropsAPendingEdit();
    void aDynasetWithChosenColumnsFailsWith3326();
    void aSnapshotFailsWith3326();
    void addNewAndDeleteFailWith3326();
    void anUpdateMetByAnotherFailsWith3197();
    void editOfADeletedRowFailsWith3167();
    void conversionIsThatOfTheTable();
    void tableMembersFailWith3251();
    void aQueryNeverMovesTheHeldRecordset();

private:
    [[nodiscard]] Recordset query(const QString& sql) { return m_database.OpenRecordset(sql, dbOpenDynaset); }

    std::unique_ptr<Store> m_store;
    Database m_database;
};

void QueryTest::init()
{
    resetEngine();
    m_store = std::make_unique<Store>();
    m_store->create();
    m_database = m_store->open();
    Recordset rows = m_database.OpenRecordset(u"LINEAS"_s, dbOpenTable);
    addLine(rows, u"c"_s, 3, u"tres"_s);
    addLine(rows, u"a"_s, 1, u"uno"_s);
    addLine(rows, u"b"_s, 2, u"dos"_s);
}

void QueryTest::cleanup()
{
    m_database = {};
}

void QueryTest::aFailingQueryLeavesTheHandleUnset_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<int>("failure");
    QTest::newRow("missing table in a query") << u"SELECT * FROM NADA"_s << kInputTableNotFound;
    QTest::newRow("missing table by name") << u"NADA"_s << kInputTableNotFound;
    QTest::newRow("missing column") << u"SELECT OTRA FROM LINEAS"_s << kUnknownColumn;
    QTest::newRow("missing function") << u"SELECT otra(NUMERO) FROM LINEAS"_s << kUndefinedFunction;
    QTest::newRow("missing operand") << u"SELECT * FROM LINEAS WHERE LIKE '*x*'"_s << kSyntaxError;
    QTest::newRow("stray apostrophe") << u"SELECT * FROM LINEAS WHERE NOMBRE = 'O'Neill'"_s << kSyntaxError;
    QTest::newRow("second statement") << u"SELECT * FROM LINEAS; DELETE FROM LINEAS"_s << kTextAfterEnd;
    QTest::newRow("action query") << u"DELETE FROM LINEAS"_s << kInvalidOperation;
}

void QueryTest::aFailingQueryLeavesTheHandleUnset()
{
    QFETCH(const QString, source);
    QFETCH(const int, failure);
    Recordset rows;

    QCOMPARE(failureOf([&] { rows = query(source); }), failure);

    QVERIFY(!rows.isBound());
    QCOMPARE(m_database.Recordsets().Count(), 0);
}

void QueryTest::aTableNameIsASource()
{
    Recordset rows = m_database.OpenRecordset(u"lineas"_s, dbOpenSnapshot);

    rows.MoveLast();
    QCOMPARE(rows.RecordCount(), 3);
}

void QueryTest::anEmptyResultIsAtBothEnds()
{
    Recordset rows = query(u"SELECT * FROM LINEAS WHERE CODIGO = 'z'"_s);

    QVERIFY(rows.BOF());
    QVERIFY(rows.EOF_());
    QCOMPARE(rows.RecordCount(), 0);
}

void QueryTest::movesOnAnEmptyResultFailWith3021()
{
    Recordset rows = query(u"SELECT * FROM LINEAS WHERE CODIGO = 'z'"_s);

    QCOMPARE(failureOf([&] { rows.MoveFirst(); }), kNoCurrentRecord);
    QCOMPARE(failureOf([&] { rows.MoveLast(); }), kNoCurrentRecord);
    QCOMPARE(failureOf([&] { rows.MoveNext(); }), kNoCurrentRecord);
    QCOMPARE(failureOf([&] { (void)rows[0].Value(); }), kNoCurrentRecord);
    QVERIFY(rows.EOF_());
}

void QueryTest::recordCountIsOneRightAfterTheOpening()
{
    QCOMPARE(query(u"SELECT * FROM LINEAS"_s).RecordCount(), 1);
}

void QueryTest::recordCountCountsVisitedRows()
{
    Recordset rows = query(u"SELECT * FROM LINEAS"_s);

    rows.MoveNext();
    QCOMPARE(rows.RecordCount(), 2);
    rows.MoveFirst();
    QCOMPARE(rows.RecordCount(), 2);
    rows.MoveNext();
    rows.MoveNext();
    rows.MoveNext();
    QCOMPARE(rows.RecordCount(), 3);
}

void QueryTest::recordCountIsFullAfterMoveLast()
{
    Recordset rows = query(u"SELECT * FROM LINEAS"_s);

    rows.MoveLast();
    rows.MoveFirst();

    QCOMPARE(rows.RecordCount(), 3);
}

void QueryTest::aWalkEndsAtEof()
{
    Recordset rows = query(u"SELECT * FROM LINEAS ORDER BY CODIGO"_s);

    QCOMPARE(walk(rows), (QStringList{u"uno"_s, u"dos"_s, u"tres"_s}));
    QVERIFY(!rows.BOF());
    QCOMPARE(failureOf([&] { rows.MoveNext(); }), kNoCurrentRecord);
    QCOMPARE(failureOf([&] { (void)rows[0].Value(); }), kNoCurrentRecord);
}

void QueryTest::rowsAreThoseOfTheOpening()
{
    Recordset rows = query(u"SELECT * FROM LINEAS ORDER BY CODIGO"_s);
    const auto other = m_store->otherStation();

    addLine(*other, u"d"_s, 4, u"cuatro"_s);
    deleteLine(*other, u"a"_s, 1);
    renameLine(*other, u"b"_s, 2, u"nuevo"_s);

    QCOMPARE(walk(rows), (QStringList{u"uno"_s, u"dos"_s, u"tres"_s}));
}

void QueryTest::getRowsTakesAllRows()
{
    Recordset rows = query(u"SELECT CODIGO, NUMERO FROM LINEAS ORDER BY CODIGO"_s);

    const RowArray array = rows.GetRows(1000);

    QCOMPARE(array.fieldCount(), 2);
    QCOMPARE(array.rowCount(), 3);
    QCOMPARE(array.at(0, 2), platform::Value(u"c"_s));
    QCOMPARE(array.at(1, 0), platform::Value(1.0));
    QVERIFY(rows.EOF_());
}

void QueryTest::getRowsStopsAtItsCount()
{
    Recordset rows = query(u"SELECT CODIGO FROM LINEAS ORDER BY CODIGO"_s);

    QCOMPARE(rows.GetRows(2).rowCount(), 2);

    QCOMPARE(text(rows, u"CODIGO"), u"c"_s);
}

void QueryTest::getRowsGoesOnWhereTheCursorStands()
{
    Recordset rows = query(u"SELECT CODIGO FROM LINEAS ORDER BY CODIGO"_s);
    rows.MoveNext();

    const RowArray array = rows.GetRows(5);

    QCOMPARE(array.rowCount(), 2);
    QCOMPARE(array.at(0, 0), platform::Value(u"b"_s));
}

void QueryTest::getRowsLeavesRecordCount()
{
    Recordset rows = query(u"SELECT CODIGO FROM LINEAS"_s);

    (void)rows.GetRows(5);

    QCOMPARE(rows.RecordCount(), 1);
}

void QueryTest::getRowsAtEofFailsWith3021()
{
    Recordset rows = query(u"SELECT CODIGO FROM LINEAS WHERE CODIGO = 'z'"_s);

    QCOMPARE(failureOf([&] { (void)rows.GetRows(5); }), kNoCurrentRecord);
}

void QueryTest::getRowsOfNoneTakesNone()
{
    Recordset rows = query(u"SELECT * FROM LINEAS ORDER BY CODIGO"_s);

    QCOMPARE(rows.GetRows(0).rowCount(), 0);
    QCOMPARE(rows.GetRows(-1).rowCount(), 0);

    QCOMPARE(text(rows, u"NOMBRE"), u"uno"_s);
}

void QueryTest::getRowsKeepsNulls()
{
    Recordset rows = query(u"SELECT NOTAS FROM LINEAS"_s);

    QVERIFY(isNull(rows.GetRows(5).at(0, 1)));
}

void QueryTest::aChangedArrayLeavesTheRecordset()
{
    Recordset rows = query(u"SELECT CODIGO FROM LINEAS ORDER BY CODIGO"_s);
    RowArray array = rows.GetRows(5);
    const RowArray copy = array;

    array.set(0, 0, u"x"_s);

    QCOMPARE(array.at(0, 0), platform::Value(u"x"_s));
    QCOMPARE(copy.at(0, 0), platform::Value(u"a"_s));
    rows.MoveFirst();
    QCOMPARE(text(rows, u"CODIGO"), u"a"_s);
}

void QueryTest::aCellOutsideTheArrayFailsWith9()
{
    Recordset rows = query(u"SELECT CODIGO FROM LINEAS ORDER BY CODIGO"_s);
    rows.MoveNext();
    const RowArray array = rows.GetRows(5);

    QCOMPARE(failureOf([&] { (void)array.at(0, 2); }), kSubscriptOutOfRange);
    QCOMPARE(failureOf([&] { (void)array.at(1, 0); }), kSubscriptOutOfRange);
    QCOMPARE(failureOf([&] { (void)array.at(0, -1); }), kSubscriptOutOfRange);
    QCOMPARE(failureOf([&] { (void)array.at(-1, 0); }), kSubscriptOutOfRange);
    RowArray changed = array;
    QCOMPARE(failureOf([&] { changed.set(0, 2, Null{}); }), kSubscriptOutOfRange);
    QCOMPARE(failureOf([&] { changed.set(1, 0, Null{}); }), kSubscriptOutOfRange);
    QCOMPARE(failureOf([&] { changed.set(0, -1, Null{}); }), kSubscriptOutOfRange);
    QCOMPARE(failureOf([&] { changed.set(-1, 0, Null{}); }), kSubscriptOutOfRange);
    QCOMPARE(RowArray().fieldCount(), 0);
}

void QueryTest::fieldsHaveAliasesAndSizes()
{
    const Recordset rows =
        query(u"SELECT CODIGO as Codigo, NUMERO, nombre as 'Forma de pago', NOTAS FROM LINEAS"_s);

    QCOMPARE(rows.Fields().Count(), 4);
    QCOMPARE(rows[0].Name(), u"Codigo"_s);
    QCOMPARE(rows[0].Size(), 10);
    QCOMPARE(rows[1].Name(), u"NUMERO"_s);
    QCOMPARE(rows[1].Size(), 8);
    QCOMPARE(rows[2].Name(), u"Forma de pago"_s);
    QCOMPARE(rows[2].Size(), 20);
    QCOMPARE(rows[3].Size(), 0);
}

void QueryTest::anExpressionHasNoSize()
{
    const Recordset rows = query(u"SELECT '' as S, CODIGO FROM LINEAS"_s);

    QCOMPARE(rows[0].Name(), u"S"_s);
    QCOMPARE(rows[0].Size(), 0);
    QCOMPARE(asText(rows[0].Value()), QString());
}

void QueryTest::everyColumnSaysThatItTakesTheEmptyText()
{
    const Recordset rows = query(u"SELECT * FROM LINEAS"_s);

    QVERIFY(rows[u"NOMBRE"].AllowZeroLength());
    QVERIFY(!m_database.OpenRecordset(u"LINEAS"_s, dbOpenTable)[u"NOMBRE"].AllowZeroLength());
}

void QueryTest::aWholeTableDynasetCanBeEdited()
{
    Recordset rows = query(u"SELECT LINEAS.* From LINEAS ORDER BY LINEAS.CODIGO"_s);

    int line = 0;
    while (!rows.EOF_()) {
        rows.Edit();
        rows[u"NUMERO"].setValue(10.0 + ++line);
        rows.Update();
        rows.MoveNext();
    }

    Recordset stored = m_database.OpenRecordset(u"LINEAS"_s, dbOpenTable);
    QCOMPARE(asNumber(stored[u"NUMERO"].Value()), 11.0);
    stored.MoveLast();
    QCOMPARE(asNumber(stored[u"NUMERO"].Value()), 13.0);
}

void QueryTest::editingLeavesArraysTakenBefore()
{
    Recordset rows = query(u"SELECT * FROM LINEAS ORDER BY CODIGO"_s);
    const RowArray array = rows.GetRows(5);

    rows.MoveFirst();
    rows.Edit();
    rows[u"NOMBRE"].setValue(u"nuevo"_s);
    rows.Update();

    QCOMPARE(text(rows, u"NOMBRE"), u"nuevo"_s);
    QCOMPARE(array.at(2, 0), platform::Value(u"uno"_s));
}

void QueryTest::movingDropsAPendingEdit_data()
{
    QTest::addColumn<Move>("move");

    QTest::newRow("MoveFirst") << +[](Recordset& rows) { rows.MoveFirst(); };
    QTest::newRow("MoveNext") << +[](Recordset& rows) { rows.MoveNext(); };
    QTest::newRow("MoveLast") << +[](Recordset& rows) { rows.MoveLast(); };
    QTest::newRow("GetRows") << +[](Recordset& rows) { static_cast<void>(rows.GetRows(1)); };
}

void QueryTest::movingDropsAPendingEdit()
{
    QFETCH(const Move, move);
    Recordset rows = query(u"SELECT * FROM LINEAS ORDER BY CODIGO"_s);
    rows.Edit();
    rows[u"NOMBRE"].setValue(u"nuevo"_s);

    move(rows);

    QCOMPARE(failureOf([&] { rows.Update(); }), kUpdateWithoutEdit);
    rows.MoveFirst();
    QCOMPARE(text(rows, u"NOMBRE"), u"uno"_s);
}

void QueryTest::aDynasetWithChosenColumnsFailsWith3326()
{
    Recordset rows = query(u"SELECT CODIGO FROM LINEAS"_s);

    QCOMPARE(failureOf([&] { rows.Edit(); }), kNotUpdatable);
}

void QueryTest::aSnapshotFailsWith3326()
{
    Recordset rows = m_database.OpenRecordset(u"SELECT * FROM LINEAS"_s, dbOpenSnapshot);

    QCOMPARE(failureOf([&] { rows.Edit(); }), kNotUpdatable);
}

void QueryTest::addNewAndDeleteFailWith3326()
{
    Recordset rows = query(u"SELECT * FROM LINEAS"_s);

    QCOMPARE(failureOf([&] { rows.AddNew(); }), kNotUpdatable);
    QCOMPARE(failureOf([&] { rows.Delete(); }), kNotUpdatable);
}

void QueryTest::anUpdateMetByAnotherFailsWith3197()
{
    Recordset rows = query(u"SELECT * FROM LINEAS ORDER BY CODIGO"_s);
    rows.Edit();
    rows[u"NOTAS"].setValue(u"mía"_s);
    renameLine(*m_store->otherStation(), u"a"_s, 1, u"suya"_s);

    QCOMPARE(failureOf([&] { rows.Update(); }), kDataChanged);

    rows.Update();
    QCOMPARE(text(rows, u"NOTAS"), u"mía"_s);
}

void QueryTest::editOfADeletedRowFailsWith3167()
{
    Recordset rows = query(u"SELECT * FROM LINEAS ORDER BY CODIGO"_s);
    deleteLine(*m_store->otherStation(), u"a"_s, 1);

    QCOMPARE(failureOf([&] { rows.Edit(); }), kRecordDeleted);
}

void QueryTest::conversionIsThatOfTheTable()
{
    Recordset rows = query(u"SELECT * FROM LINEAS ORDER BY CODIGO"_s);
    rows.Edit();

    QCOMPARE(failureOf([&] { rows[u"NOMBRE"].setValue(QString(21, u'x')); }), kFieldTooSmall);
    QCOMPARE(failureOf([&] { rows[u"NOMBRE"].setValue(QString()); }), kZeroLengthNotAllowed);
    QCOMPARE(failureOf([&] { rows[u"NUMERO"].setValue(u"x"_s); }), kConversionError);
}

void QueryTest::tableMembersFailWith3251()
{
    Recordset rows = query(u"SELECT * FROM LINEAS"_s);

    QCOMPARE(failureOf([&] { rows.setIndex(u"PRIMARIO"_s); }), kOperationNotSupported);
    QCOMPARE(failureOf([&] { (void)rows.Index(); }), kOperationNotSupported);
    QCOMPARE(failureOf([&] { rows.Seek(u"=", u"a"_s); }), kOperationNotSupported);
}

void QueryTest::aQueryNeverMovesTheHeldRecordset()
{
    Recordset held = m_database.OpenRecordset(u"LINEAS"_s, dbOpenTable);
    held.setIndex(u"PRIMARIO"_s);
    held.Seek(u"=", u"b"_s);

    Recordset rows = query(u"SELECT * FROM LINEAS"_s);
    rows.MoveLast();

    QCOMPARE(text(held, u"CODIGO"), u"b"_s);
}

QTEST_GUILESS_MAIN(QueryTest)
#include "tst_query.moc"
