// SPDX-License-Identifier: GPL-3.0-or-later
//
// The walk in skip mode: which failures cut it short.

#include "platform/dao/daofixture.h"
#include "platform/dao/rowwalk.h"
#include "support/failingcalls.h"

using namespace daotest;
using namespace platform;
using namespace platform::dao;

class RowWalkTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void everyRowIsVisitedInOrder();
    void walkBeginsAtTheCurrentRow();
    void emptyRecordsetIsNotVisited();
    void unboundRecordsetIsVisitedOnce();
    void testOfTheEndThatFailsOnceLosesNoRow();
    void rowThatCannotBeLeftEndsTheWalk();

private:
    QStringList visited();

    std::unique_ptr<Store> m_store;
    Database m_database;
    Recordset m_rows;
};

void RowWalkTest::init()
{
    resetEngine();
    m_store = std::make_unique<Store>();
    m_store->create();
    m_database = m_store->open();
    m_rows = m_database.OpenRecordset(u"LINEAS"_s, dbOpenTable);
    for (const QString& code : {u"A"_s, u"B"_s, u"C"_s})
        addLine(m_rows, code, 1, code);
    m_rows.MoveFirst();
}

void RowWalkTest::cleanup()
{
    m_rows = {};
    m_database = {};
    resetEngine();
}

QStringList RowWalkTest::visited()
{
    QStringList codes;
    walkToEnd(m_rows, [&] { codes += text(m_rows, u"CODIGO"); });
    return codes;
}

void RowWalkTest::everyRowIsVisitedInOrder()
{
    QCOMPARE(visited(), QStringList({u"A"_s, u"B"_s, u"C"_s}));
}

void RowWalkTest::walkBeginsAtTheCurrentRow()
{
    m_rows.MoveNext();

    QCOMPARE(visited(), QStringList({u"B"_s, u"C"_s}));
}

void RowWalkTest::emptyRecordsetIsNotVisited()
{
    m_rows = m_database.OpenRecordset(u"SELECT * FROM LINEAS WHERE CODIGO='Z'"_s, dbOpenDynaset);

    QCOMPARE(visited(), QStringList());
}

void RowWalkTest::unboundRecordsetIsVisitedOnce()
{
    Recordset unbound;
    int passes = 0;

    walkToEnd(unbound, [&] { ++passes; });

    QCOMPARE(passes, 1);
}

void RowWalkTest::testOfTheEndThatFailsOnceLosesNoRow()
{
    testsupport::FailingCalls calls;
    calls.failNth(1);

    QCOMPARE(visited(), QStringList({u"A"_s, u"B"_s, u"C"_s}));
}

void RowWalkTest::rowThatCannotBeLeftEndsTheWalk()
{
    testsupport::FailingCalls calls;
    int passes = 0;

    walkToEnd(m_rows, [&] {
        ++passes;
        calls.failNth(1);
    });

    QCOMPARE(passes, 1);
}

QTEST_GUILESS_MAIN(RowWalkTest)
#include "tst_rowwalk.moc"
