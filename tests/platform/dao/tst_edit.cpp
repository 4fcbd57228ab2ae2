// SPDX-License-Identifier: GPL-3.0-or-later
//
// Adding and changing records: the copy buffer, conversion at the assignment, Update and its failures.

#include "platform/core/failurenumbers.h"
#include "platform/dao/daofixture.h"
#include "support/failingengine.h"

using namespace daotest;
using namespace platform;
using namespace platform::dao;
using testsupport::FailingEngine;
using testsupport::Operation;

class EditTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void addNewStartsWithNulls();
    void addNewLeavesTheCurrentRecord();
    void anEditIsSeenOnlyAfterUpdate();
    void readingDuringAnEditReadsTheBuffer();
    void updateWithoutAnEditFailsWith3020();
    void assigningWithoutAnEditFailsWith3020();
    void updateEndsTheEdit();
    void updateLeavesThePosition();
    void editWithoutARecordFailsWith3021();
    void anEditReplacesAPendingAddNew();
    void anAddNewReplacesAPendingEdit();
    void positioningDropsAPendingEdit_data();
    void positioningDropsAPendingEdit();
    void closingDropsAPendingEdit();
    void aDuplicateKeyFailsWith3022();
    void aNullInThePrimaryKeyFailsWith3058();
    void aFailedUpdateLeavesTheEditPending();
    void aLockedStoreFailsWith3260AndTheEditStays();
    void aReadOnlyDatabaseFailsWith3027();
    void conversionAtTheAssignment_data();
    void conversionAtTheAssignment();
    void aRefusedValueLeavesTheBuffer();
    void aTextAsLongAsTheColumnIsTaken();
    void sizeCountsUtf16Units();
    void aMemoTakesAnyLength();
    void anEmptyTextNeedsItsFlag();
    void anEmptyTextInANumberFailsWith3421();
    void aStoredNullReadsAsNull();
    void anEmptyTextIsNoNull();

private:
    std::shared_ptr<FailingEngine> m_engine;
    std::unique_ptr<Store> m_store;
    Database m_database;
    Recordset m_rows;
};

void EditTest::init()
{
    resetEngine();
    m_engine = std::make_shared<FailingEngine>();
    DBEngine().setStorage(m_engine);
    m_store = std::make_unique<Store>();
    m_store->create();
    m_database = m_store->open();
    m_rows = m_database.OpenRecordset(u"LINEAS"_s, dbOpenTable);
    addLine(m_rows, u"a"_s, 1, u"uno"_s);
    addLine(m_rows, u"b"_s, 2, u"dos"_s);
    m_rows.setIndex(u"PRIMARIO"_s);
}

void EditTest::cleanup()
{
    m_rows = {};
    m_database = {};
    DBEngine().setStorage(nullptr);
}

void EditTest::addNewStartsWithNulls()
{
    m_rows.AddNew();

    for (int i = 0; i < 4; ++i)
        QVERIFY(isNull(m_rows[i].Value()));
}

void EditTest::addNewLeavesTheCurrentRecord()
{
    addLine(m_rows, u"c"_s, 3, u"tres"_s);

    QCOMPARE(text(m_rows, u"NOMBRE"), u"uno"_s);
}

void EditTest::anEditIsSeenOnlyAfterUpdate()
{
    Recordset other = m_database.OpenRecordset(u"LINEAS"_s, dbOpenTable);
    m_rows.Edit();
    m_rows[u"NOMBRE"].setValue(u"otro"_s);
    QCOMPARE(text(other, u"NOMBRE"), u"uno"_s);

    m_rows.Update();

    QCOMPARE(text(other, u"NOMBRE"), u"otro"_s);
}

void EditTest::readingDuringAnEditReadsTheBuffer()
{
    m_rows.Edit();
    m_rows[u"NOMBRE"].setValue(u"otro"_s);

    QCOMPARE(text(m_rows, u"NOMBRE"), u"otro"_s);
    QCOMPARE(text(m_rows, u"CODIGO"), u"a"_s);
}

void EditTest::updateWithoutAnEditFailsWith3020()
{
    QCOMPARE(failureOf([&] { m_rows.Update(); }), kUpdateWithoutEdit);
}

void EditTest::assigningWithoutAnEditFailsWith3020()
{
    QCOMPARE(failureOf([&] { m_rows[u"NOMBRE"].setValue(u"otro"_s); }), kUpdateWithoutEdit);
    QCOMPARE(text(m_rows, u"NOMBRE"), u"uno"_s);
}

void EditTest::updateEndsTheEdit()
{
    m_rows.Edit();
    m_rows.Update();

    QCOMPARE(failureOf([&] { m_rows.Update(); }), kUpdateWithoutEdit);
}

void EditTest::updateLeavesThePosition()
{
    m_rows.Edit();
    m_rows[u"NOMBRE"].setValue(u"otro"_s);
    m_rows.Update();

    QCOMPARE(text(m_rows, u"NOMBRE"), u"otro"_s);
    m_rows.MoveNext();
    QCOMPARE(text(m_rows, u"NOMBRE"), u"dos"_s);
}

void EditTest::editWithoutARecordFailsWith3021()
{
    m_rows.Seek(u"=", u"z"_s);

    QCOMPARE(failureOf([&] { m_rows.Edit(); }), kNoCurrentRecord);
}

void EditTest::anEditReplacesAPendingAddNew()
{
    m_rows.AddNew();
    m_rows[u"CODIGO"].setValue(u"z"_s);

    m_rows.Edit();
    m_rows.Update();

    QCOMPARE(m_rows.RecordCount(), 2);
    QCOMPARE(text(m_rows, u"CODIGO"), u"a"_s);
}

void EditTest::anAddNewReplacesAPendingEdit()
{
    m_rows.Edit();
    m_rows[u"NOMBRE"].setValue(u"otro"_s);

    addLine(m_rows, u"c"_s, 3, u"tres"_s);

    QCOMPARE(m_rows.RecordCount(), 3);
    QCOMPARE(text(m_rows, u"NOMBRE"), u"uno"_s);
}

void EditTest::positioningDropsAPendingEdit_data()
{
    QTest::addColumn<QString>("move");
    QTest::newRow("MoveFirst") << u"first"_s;
    QTest::newRow("MoveNext") << u"next"_s;
    QTest::newRow("MoveLast") << u"last"_s;
    QTest::newRow("Seek") << u"seek"_s;
}

void EditTest::positioningDropsAPendingEdit()
{
    QFETCH(const QString, move);
    m_rows.Edit();
    m_rows[u"NOMBRE"].setValue(u"otro"_s);

    if (move == u"first"_s)
        m_rows.MoveFirst();
    else if (move == u"next"_s)
        m_rows.MoveNext();
    else if (move == u"last"_s)
        m_rows.MoveLast();
    else
        m_rows.Seek(u"=", u"a"_s);

    QCOMPARE(failureOf([&] { m_rows.Update(); }), kUpdateWithoutEdit);
    m_rows.MoveFirst();
    QCOMPARE(text(m_rows, u"NOMBRE"), u"uno"_s);
}

void EditTest::closingDropsAPendingEdit()
{
    m_rows.Edit();
    m_rows[u"NOMBRE"].setValue(u"otro"_s);

    m_rows.Close();

    m_rows = m_database.OpenRecordset(u"LINEAS"_s, dbOpenTable);
    QCOMPARE(text(m_rows, u"NOMBRE"), u"uno"_s);
}

void EditTest::aDuplicateKeyFailsWith3022()
{
    QCOMPARE(failureOf([&] { addLine(m_rows, u"A "_s, 1, u"x"_s); }), kDuplicateKey);

    m_rows.Seek(u"=", u"b"_s);
    m_rows.Edit();
    m_rows[u"CODIGO"].setValue(u"a"_s);
    m_rows[u"NUMERO"].setValue(1);
    QCOMPARE(failureOf([&] { m_rows.Update(); }), kDuplicateKey);
    QCOMPARE(m_rows.RecordCount(), 2);
}

void EditTest::aNullInThePrimaryKeyFailsWith3058()
{
    m_rows.AddNew();
    m_rows[u"CODIGO"].setValue(u"c"_s);
    QCOMPARE(failureOf([&] { m_rows.Update(); }), kNullInPrimaryKey);

    m_rows.Edit();
    m_rows[u"NUMERO"].setValue(Null{});
    QCOMPARE(failureOf([&] { m_rows.Update(); }), kNullInPrimaryKey);
}

void EditTest::aFailedUpdateLeavesTheEditPending()
{
    m_rows.AddNew();
    m_rows[u"CODIGO"].setValue(u"c"_s);
    QCOMPARE(failureOf([&] { m_rows.Update(); }), kNullInPrimaryKey);

    m_rows[u"NUMERO"].setValue(3);
    m_rows.Update();

    QCOMPARE(m_rows.RecordCount(), 3);
}

void EditTest::aLockedStoreFailsWith3260AndTheEditStays()
{
    m_rows.Edit();
    m_rows[u"NOMBRE"].setValue(u"otro"_s);
    m_engine->failOperation(Operation::Update, kLockedByAnother);
    QCOMPARE(failureOf([&] { m_rows.Update(); }), kLockedByAnother);
    m_engine->restart();

    m_rows.Update();

    QCOMPARE(text(m_rows, u"NOMBRE"), u"otro"_s);
}

void EditTest::aReadOnlyDatabaseFailsWith3027()
{
    Database readOnly = workspace().OpenDatabase(m_store->path(), false, true);
    Recordset rows = readOnly.OpenRecordset(u"LINEAS"_s, dbOpenTable);

    rows.Edit();
    QCOMPARE(failureOf([&] { rows.Update(); }), kReadOnly);
    QCOMPARE(failureOf([&] { rows.Delete(); }), kReadOnly);
    QCOMPARE(failureOf([&] { readOnly.Execute(u"DROP INDEX NOMBRES ON LINEAS"_s); }), kReadOnly);
    QCOMPARE(rows.RecordCount(), 2);
}

void EditTest::conversionAtTheAssignment_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<bool>("isNumber");
    QTest::addColumn<QString>("textIn");
    QTest::addColumn<double>("numberIn");
    QTest::addColumn<int>("failure");
    QTest::addColumn<QString>("stored");
    QTest::newRow("number into text") << 2 << true << QString() << 1.0 << 0 << u"1"_s;
    QTest::newRow("negative number into text") << 2 << true << QString() << -1.0 << 0 << u"-1"_s;
    QTest::newRow("fraction into text") << 2 << true << QString() << 0.5 << 0 << u"0,5"_s;
    QTest::newRow("number into memo") << 3 << true << QString() << 430123.0 << 0 << u"430123"_s;
    QTest::newRow("text into number") << 1 << false << u"0000000012"_s << 0.0 << 0 << u"12"_s;
    QTest::newRow("decimal comma") << 1 << false << u" 1,5 "_s << 0.0 << 0 << u"1,5"_s;
    QTest::newRow("point as thousands mark") << 1 << false << u"1.234"_s << 0.0 << 0 << u"1234"_s;
    QTest::newRow("letters into number") << 1 << false << u"12a"_s << 0.0 << kConversionError << u"1"_s;
    QTest::newRow("text too long") << 2 << false << u"123456789012345678901"_s << 0.0 << kFieldTooSmall
                                   << u"uno"_s;
    QTest::newRow("number too long for its column")
        << 0 << true << QString() << 12345678901.0 << kFieldTooSmall << u"a"_s;
}

void EditTest::conversionAtTheAssignment()
{
    QFETCH(const int, column);
    QFETCH(const bool, isNumber);
    QFETCH(const QString, textIn);
    QFETCH(const double, numberIn);
    QFETCH(const int, failure);
    QFETCH(const QString, stored);
    m_rows.Edit();

    const int number = failureOf([&] {
        if (isNumber)
            m_rows[column].setValue(numberIn);
        else
            m_rows[column].setValue(textIn);
    });

    QCOMPARE(number, failure);
    m_rows.Update();
    QCOMPARE(asText(m_rows[column].Value()), stored);
}

void EditTest::aRefusedValueLeavesTheBuffer()
{
    m_rows.Edit();
    m_rows[u"NOMBRE"].setValue(u"antes"_s);

    QCOMPARE(failureOf([&] { m_rows[u"NOMBRE"].setValue(QString(21, u'x')); }), kFieldTooSmall);
    m_rows[u"NOTAS"].setValue(u"nota"_s);
    m_rows.Update();

    QCOMPARE(text(m_rows, u"NOMBRE"), u"antes"_s);
    QCOMPARE(text(m_rows, u"NOTAS"), u"nota"_s);
}

void EditTest::aTextAsLongAsTheColumnIsTaken()
{
    m_rows.Edit();
    m_rows[u"NOMBRE"].setValue(QString(20, u'x'));
    m_rows.Update();

    QCOMPARE(text(m_rows, u"NOMBRE"), QString(20, u'x'));
}

void EditTest::sizeCountsUtf16Units()
{
    const QString surrogates = QString(u"\U0001F600"_s).repeated(10);
    m_rows.Edit();
    m_rows[u"NOMBRE"].setValue(surrogates);

    QCOMPARE(failureOf([&] { m_rows[u"NOMBRE"].setValue(surrogates + u'x'); }), kFieldTooSmall);

    m_rows.Update();
    QCOMPARE(text(m_rows, u"NOMBRE"), surrogates);
}

void EditTest::aMemoTakesAnyLength()
{
    const QString longText = u"línea\r\n"_s.repeated(20000);
    m_rows.Edit();
    m_rows[u"NOTAS"].setValue(longText);
    m_rows.Update();

    m_rows.MoveFirst();
    QCOMPARE(text(m_rows, u"NOTAS"), longText);
}

void EditTest::anEmptyTextNeedsItsFlag()
{
    m_rows.Edit();
    QCOMPARE(failureOf([&] { m_rows[u"NOMBRE"].setValue(QString()); }), kZeroLengthNotAllowed);
    m_rows.Close();
    Field name = m_database.TableDefs().Item(u"LINEAS"_s).Fields().Item(u"NOMBRE"_s);

    name.setAllowZeroLength(true);

    m_rows = m_database.OpenRecordset(u"LINEAS"_s, dbOpenTable);
    m_rows.Edit();
    m_rows[u"NOMBRE"].setValue(QString());
    m_rows.Update();
    QCOMPARE(text(m_rows, u"NOMBRE"), QString());
}

void EditTest::anEmptyTextInANumberFailsWith3421()
{
    m_rows.Edit();

    QCOMPARE(failureOf([&] { m_rows[u"NUMERO"].setValue(QString()); }), kConversionError);

    QCOMPARE(asNumber(m_rows[u"NUMERO"].Value()), 1.0);
}

void EditTest::aStoredNullReadsAsNull()
{
    m_rows.Edit();
    m_rows[u"NOMBRE"].setValue(Null{});
    m_rows.Update();
    m_rows.MoveFirst();

    QVERIFY(isNull(m_rows[u"NOMBRE"].Value()));
    QCOMPARE(failureOf([&] { (void)text(m_rows, u"NOMBRE"); }), kInvalidUseOfNull);
}

void EditTest::anEmptyTextIsNoNull()
{
    m_database.TableDefs().Item(u"LINEAS"_s).Fields().Item(u"NOTAS"_s).setAllowZeroLength(true);
    m_rows = m_database.OpenRecordset(u"LINEAS"_s, dbOpenTable);
    m_rows.Edit();
    m_rows[u"NOTAS"].setValue(QString());
    m_rows.Update();
    m_rows.MoveFirst();

    QVERIFY(!isNull(m_rows[u"NOTAS"].Value()));
}

QTEST_GUILESS_MAIN(EditTest)
#include "tst_edit.moc"
