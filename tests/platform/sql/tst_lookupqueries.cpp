// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/core/failurenumbers.h"
#include "platform/dao/sql/parser.h"
#include "platform/sql/lookupqueries.h"
#include "platform/sql/treetext.h"
#include "support/failureof.h"

#include <QTest>

using namespace platform;

class LookupQueriesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void queryIsAccepted_data();
    void queryIsAccepted();
    void malformedQueryIsASyntaxError_data();
    void malformedQueryIsASyntaxError();
    void textSearchedWithAnApostropheIsASyntaxError_data();
    void textSearchedWithAnApostropheIsASyntaxError();
};

void LookupQueriesTest::queryIsAccepted_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("items");
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("where");
    QTest::addColumn<QString>("order");
    for (const auto& query : lookupqueries::kAccepted)
        QTest::newRow(query.name) << query.text.toString() << query.items.toString() << query.table.toString()
                                  << query.where.toString() << query.order.toString();
}

void LookupQueriesTest::queryIsAccepted()
{
    QFETCH(QString, text);
    QFETCH(QString, items);
    QFETCH(QString, table);
    QFETCH(QString, where);
    QFETCH(QString, order);

    const sql::Select select = sql::parseSelect(text);

    QCOMPARE(treetext::ofItems(select), items);
    QCOMPARE(select.table, table);
    QCOMPARE(treetext::ofWhere(select), where);
    QCOMPARE(treetext::ofOrder(select), order);
}

void LookupQueriesTest::malformedQueryIsASyntaxError_data()
{
    QTest::addColumn<QString>("text");
    for (const auto& query : lookupqueries::kRefused)
        QTest::newRow(query.name) << query.text.toString();
}

void LookupQueriesTest::malformedQueryIsASyntaxError()
{
    QFETCH(QString, text);

    QCOMPARE(support::failureOf([&] { return sql::parseSelect(text); }), kSyntaxError);
}

void LookupQueriesTest::textSearchedWithAnApostropheIsASyntaxError_data()
{
    QTest::addColumn<QString>("text");
    for (const auto& query : lookupqueries::kAccepted) {
        if (query.where.contains(u"*sal*"))
            QTest::newRow(query.name)
                << query.text.toString().replace(QStringLiteral("*sal*"), QStringLiteral("*l'Hospitalet*"));
    }
}

void LookupQueriesTest::textSearchedWithAnApostropheIsASyntaxError()
{
    QFETCH(QString, text);

    QCOMPARE(support::failureOf([&] { return sql::parseSelect(text); }), kSyntaxError);
}

QTEST_GUILESS_MAIN(LookupQueriesTest)
#include "tst_lookupqueries.moc"
