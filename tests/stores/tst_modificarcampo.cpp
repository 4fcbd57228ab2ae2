// SPDX-License-Identifier: GPL-3.0-or-later

// Adding and removing one column of a stored table.

#include "shell/globalsat.h"
#include "stores/bdcliente.h"
#include "stores/storefixture.h"
#include "stores/zonasschema.h"
#include "support/failingcalls.h"
#include "support/tempdataroot.h"

#include <QtTest>

using namespace Qt::StringLiterals;
using platform::dao::TableDef;

class ModificarCampoTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void appendAddsTheColumnAtTheEnd();
    void appendedTextTakesTheEmptyText();
    void appendOfANameThatIsTakenChangesNothing();
    void deleteRemovesTheColumn();
    void deleteOfAnUnknownColumnChangesNothing();
    void deleteOfAKeyColumnChangesNothing();
    void anyOtherOrderLeavesTheTableAlone_data();
    void anyOtherOrderLeavesTheTableAlone();
    void anyOrderLetsEveryColumnTakeTheEmptyText();
    void unboundTableIsSilent();
    void failureOfOneColumnLeavesTheOthersDone();

private:
    QString path() const { return m_root->path() + u"/ZONAS.MDB"_s; }
    QStringList columns() const { return storetest::columnNames(path(), u"ZONATAB"_s); }

    std::unique_ptr<testsupport::TempDataRoot> m_root;
    platform::dao::Database m_store;
    TableDef m_table;
};

void ModificarCampoTest::init()
{
    m_root = std::make_unique<testsupport::TempDataRoot>();
    storetest::makeStore(path(), {stores::kZonatab});
    m_store = platform::dao::DBEngine().Workspaces(0).OpenDatabase(path());
    m_table = m_store.TableDefs().Item(u"ZONATAB"_s);
}

void ModificarCampoTest::cleanup()
{
    m_table = {};
    m_store.Close();
    resetProgramState();
    m_root.reset();
}

void ModificarCampoTest::appendAddsTheColumnAtTheEnd()
{
    MODIFICARCAMPO(m_table, u"APPEND"_s, u"NUEVA"_s, platform::dao::dbText, 12);

    QCOMPARE(columns(), QStringList({u"ZONCODIGO"_s, u"ZONDESCRIPCION"_s, u"ZONampli"_s, u"NUEVA"_s}));
    QCOMPARE(storetest::definition(path(), u"ZONATAB"_s).columns.constLast().size, 12);
}

void ModificarCampoTest::appendedTextTakesTheEmptyText()
{
    MODIFICARCAMPO(m_table, u"APPEND"_s, u"NUEVA"_s, platform::dao::dbText, 12);

    QVERIFY(storetest::definition(path(), u"ZONATAB"_s).columns.constLast().allowZeroLength);
}

void ModificarCampoTest::appendOfANameThatIsTakenChangesNothing()
{
    MODIFICARCAMPO(m_table, u"APPEND"_s, u"zondescripcion"_s, platform::dao::dbText, 99);

    QCOMPARE(columns().size(), 3);
    QCOMPARE(storetest::definition(path(), u"ZONATAB"_s).columns.at(1).size, 35);
}

void ModificarCampoTest::deleteRemovesTheColumn()
{
    MODIFICARCAMPO(m_table, u"DELETE"_s, u"ZONampli"_s);

    QCOMPARE(columns(), QStringList({u"ZONCODIGO"_s, u"ZONDESCRIPCION"_s}));
}

void ModificarCampoTest::deleteOfAnUnknownColumnChangesNothing()
{
    MODIFICARCAMPO(m_table, u"DELETE"_s, u"NUEVA"_s);

    QCOMPARE(columns().size(), 3);
}

void ModificarCampoTest::deleteOfAKeyColumnChangesNothing()
{
    MODIFICARCAMPO(m_table, u"DELETE"_s, u"ZONCODIGO"_s);

    QCOMPARE(columns().size(), 3);
}

void ModificarCampoTest::anyOtherOrderLeavesTheTableAlone_data()
{
    QTest::addColumn<QString>("order");

    QTest::newRow("empty") << u""_s;
    QTest::newRow("lower case") << u"append"_s;
    QTest::newRow("another word") << u"CHANGE"_s;
}

void ModificarCampoTest::anyOtherOrderLeavesTheTableAlone()
{
    QFETCH(QString, order);

    MODIFICARCAMPO(m_table, order, u"NUEVA"_s, platform::dao::dbText, 12);

    QCOMPARE(columns().size(), 3);
}

void ModificarCampoTest::anyOrderLetsEveryColumnTakeTheEmptyText()
{
    m_table.Fields().Item(1).setAllowZeroLength(false);
    QVERIFY(!storetest::definition(path(), u"ZONATAB"_s).columns.at(1).allowZeroLength);

    MODIFICARCAMPO(m_table, QString(), QString());

    QVERIFY(storetest::definition(path(), u"ZONATAB"_s).columns.at(1).allowZeroLength);
}

void ModificarCampoTest::unboundTableIsSilent()
{
    MODIFICARCAMPO(TableDef(), u"APPEND"_s, u"NUEVA"_s, platform::dao::dbText, 12);

    QCOMPARE(columns().size(), 3);
}

void ModificarCampoTest::failureOfOneColumnLeavesTheOthersDone()
{
    for (int column = 0; column < 3; ++column)
        m_table.Fields().Item(column).setAllowZeroLength(false);
    testsupport::FailingCalls calls;
    calls.failColumn(u"ZONDESCRIPCION"_s);

    MODIFICARCAMPO(m_table, u"APPEND"_s, u"NUEVA"_s, platform::dao::dbText, 12);

    const platform::storage::TableDefinition table = storetest::definition(path(), u"ZONATAB"_s);
    QVERIFY(table.columns.at(0).allowZeroLength);
    QVERIFY(!table.columns.at(1).allowZeroLength);
    QVERIFY(table.columns.at(2).allowZeroLength);
    QVERIFY(table.columns.at(3).allowZeroLength);
}

QTEST_GUILESS_MAIN(ModificarCampoTest)
#include "tst_modificarcampo.moc"
