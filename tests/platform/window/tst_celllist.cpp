// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/window/celllist.h"

#include <QTest>

using namespace Qt::StringLiterals;
using platform::CellListItem;
using platform::parseCellList;

class CellListTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void emptyTextGivesNoList();
    void plainItemsAllowNoTyping();
    void leadingBarAllowsTyping();
    void dotsAreAButtonWithoutTyping();
    void barAndDotsAreAButtonWithTyping();
    void numberedItemsKeepTheShownColumn();
    void shownColumnOfTheFirstItemHoldsForAll();
    void numberWithoutShownColumnKeepsTheFirst();
};

void CellListTest::emptyTextGivesNoList()
{
    const auto list = parseCellList({});

    QVERIFY(list.isPlain());
    QVERIFY(list.allowsTyping);
}

void CellListTest::plainItemsAllowNoTyping()
{
    const auto list = parseCellList(u"Debidos|Pagados"_s);

    QVERIFY(!list.allowsTyping);
    QCOMPARE(list.items, (QList<CellListItem>{{u"Debidos"_s, u"Debidos"_s}, {u"Pagados"_s, u"Pagados"_s}}));
}

void CellListTest::leadingBarAllowsTyping()
{
    const auto list = parseCellList(u"|01|02"_s);

    QVERIFY(list.allowsTyping);
    QCOMPARE(list.items.size(), 2);
}

void CellListTest::dotsAreAButtonWithoutTyping()
{
    const auto list = parseCellList(u"..."_s);

    QVERIFY(list.hasButton);
    QVERIFY(!list.allowsTyping);
    QVERIFY(!list.isDropDown());
}

void CellListTest::barAndDotsAreAButtonWithTyping()
{
    const auto list = parseCellList(u"|..."_s);

    QVERIFY(list.hasButton);
    QVERIFY(list.allowsTyping);
}

void CellListTest::numberedItemsKeepTheShownColumn()
{
    const auto list = parseCellList(u"#1*0;F\tFijo|#2;R\tRequiere"_s);

    QCOMPARE(list.items.first().cellText, u"F"_s);
    QCOMPARE(list.items.first().displayText, u"F   Fijo"_s);
}

void CellListTest::shownColumnOfTheFirstItemHoldsForAll()
{
    const auto list = parseCellList(u"#1*1;F\tFijo|#2;R\tRequiere"_s);

    QCOMPARE(list.items.last().cellText, u"Requiere"_s);
}

void CellListTest::numberWithoutShownColumnKeepsTheFirst()
{
    const auto list = parseCellList(u"#7;uno|#8;dos"_s);

    QCOMPARE(list.items, (QList<CellListItem>{{u"uno"_s, u"uno"_s}, {u"dos"_s, u"dos"_s}}));
}

QTEST_GUILESS_MAIN(CellListTest)
#include "tst_celllist.moc"
