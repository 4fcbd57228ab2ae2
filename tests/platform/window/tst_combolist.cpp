// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/core/failurenumbers.h"
#include "platform/window/combolist.h"
#include "support/failureof.h"

#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;
using platform::ComboList;
using support::failureOf;

class ComboListTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void addingSelectsNothing();
    void addingLeavesTheSelection();
    void selectingAnotherEntryRaisesClick();
    void selectingTheSameEntryRaisesNothing();
    void indexOutsideFailsAndTheSelectionStays_data();
    void indexOutsideFailsAndTheSelectionStays();
    void clearingLeavesNothingSelected();
    void removingOutsideFails();
    void removingTheSelectedEntryLeavesNone();
    void removingAnotherEntryKeepsTheSelectedText();
    void removingRaisesNoClick();
    void keyOfTheUserRaisesClick();
    void textIsTheSelectedEntry();
    void disabledListStillTakesASelection();

private:
    std::unique_ptr<ComboList> combo;
};

void ComboListTest::init()
{
    combo = std::make_unique<ComboList>();
    for (const QString& text : {u"uno"_s, u"dos"_s, u"tres"_s})
        combo->addItem(text);
}

void ComboListTest::addingSelectsNothing()
{
    QCOMPARE(combo->listCount(), 3);
    QCOMPARE(combo->listIndex(), -1);
    QCOMPARE(combo->text(), QString());
}

void ComboListTest::addingLeavesTheSelection()
{
    combo->setListIndex(1);
    const QSignalSpy clicks(combo.get(), &ComboList::click);

    combo->addItem(u"cuatro"_s);

    QCOMPARE(combo->listIndex(), 1);
    QVERIFY(clicks.isEmpty());
}

void ComboListTest::selectingAnotherEntryRaisesClick()
{
    const QSignalSpy clicks(combo.get(), &ComboList::click);

    combo->setListIndex(2);

    QCOMPARE(clicks.size(), 1);
}

void ComboListTest::selectingTheSameEntryRaisesNothing()
{
    combo->setListIndex(2);
    const QSignalSpy clicks(combo.get(), &ComboList::click);

    combo->setListIndex(2);

    QVERIFY(clicks.isEmpty());
}

void ComboListTest::indexOutsideFailsAndTheSelectionStays_data()
{
    QTest::addColumn<int>("index");

    QTest::newRow("-1") << -1;
    QTest::newRow("the count itself") << 3;
    QTest::newRow("far past the end") << 99;
}

void ComboListTest::indexOutsideFailsAndTheSelectionStays()
{
    QFETCH(int, index);
    combo->setListIndex(1);
    const QSignalSpy clicks(combo.get(), &ComboList::click);

    QCOMPARE(failureOf([&] { combo->setListIndex(index); }), platform::kInvalidPropertyValue);
    QCOMPARE(combo->listIndex(), 1);
    QVERIFY(clicks.isEmpty());
}

void ComboListTest::clearingLeavesNothingSelected()
{
    combo->setListIndex(1);
    const QSignalSpy clicks(combo.get(), &ComboList::click);

    combo->clear();

    QCOMPARE(combo->listIndex(), -1);
    QCOMPARE(combo->listCount(), 0);
    QVERIFY(clicks.isEmpty());
}

void ComboListTest::removingOutsideFails()
{
    QCOMPARE(failureOf([&] { combo->removeItem(3); }), platform::kInvalidProcedureCall);
    QCOMPARE(failureOf([&] { combo->removeItem(-1); }), platform::kInvalidProcedureCall);
    QCOMPARE(combo->listCount(), 3);
}

void ComboListTest::removingTheSelectedEntryLeavesNone()
{
    combo->setListIndex(1);

    combo->removeItem(1);

    QCOMPARE(combo->listIndex(), -1);
}

void ComboListTest::removingAnotherEntryKeepsTheSelectedText()
{
    combo->setListIndex(2);

    combo->removeItem(0);

    QCOMPARE(combo->text(), u"tres"_s);
    QCOMPARE(combo->listIndex(), 1);
}

void ComboListTest::removingRaisesNoClick()
{
    combo->setListIndex(2);
    const QSignalSpy clicks(combo.get(), &ComboList::click);

    combo->removeItem(2);
    combo->removeItem(0);

    QVERIFY(clicks.isEmpty());
}

void ComboListTest::keyOfTheUserRaisesClick()
{
    combo->setListIndex(0);
    const QSignalSpy clicks(combo.get(), &ComboList::click);

    QTest::keyClick(combo.get(), Qt::Key_Down);

    QCOMPARE(clicks.size(), 1);
    QCOMPARE(combo->listIndex(), 1);
}

void ComboListTest::textIsTheSelectedEntry()
{
    combo->setListIndex(0);

    QCOMPARE(combo->text(), u"uno"_s);
    QCOMPARE(combo->list(2), u"tres"_s);
    QCOMPARE(failureOf([&] { return combo->list(3); }), platform::kInvalidPropertyIndex);
}

void ComboListTest::disabledListStillTakesASelection()
{
    combo->setEnabled(false);

    combo->setListIndex(2);

    QCOMPARE(combo->listIndex(), 2);
}

QTEST_MAIN(ComboListTest)
#include "tst_combolist.moc"
