// SPDX-License-Identifier: GPL-3.0-or-later

// A grid as a screen reader meets it: cells with their column and text, and actions that do what a key does.

#include "platform/window/flexgrid.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;
using platform::FlexGrid;

class GridAccessibleTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void headingsComeFirstAmongTheChildren();
    void childKnowsItsPlace();
    void cellOutsideIsNone();
    void cellSaysColumnAndText();
    void cellWithoutAHeadingSaysItsText();
    void tickSaysItsColumnAndWhetherItIsTicked();
    void cellOfAHiddenColumnTakesNoFocus();
    void currentRowIsTheSelectedOne();
    void rowSelectedByTheTableBecomesCurrent();
    void headingHasNoSelection();
    void cellOfARowThatWentIsInvalid();
    void toggleTurnsTheTick();
    void tickOfAGridThatIsntEditableStays();
    void pressOfAButtonCellPressesItsButton();
    void showMenuOpensTheListOfACell();
    void pressOfATextCellBeginsToEditIt();
    void pressInAGridThatIsntEditableIsEnter();
    void actionOfACellThatWentDoesNothing();

private:
    QAccessibleInterface* accessible() { return QAccessible::queryAccessibleInterface(grid.get()); }
    QAccessibleTableInterface* table() { return accessible()->tableInterface(); }
    QAccessibleActionInterface* actionsOf(int row, int column)
    {
        return table()->cellAt(row, column)->actionInterface();
    }

    std::unique_ptr<FlexGrid> grid;
};

/// Columns: telephone, a tick, a button, a list. Three rows.
void GridAccessibleTest::init()
{
    grid = std::make_unique<FlexGrid>();
    grid->setCols(4);
    grid->setRows(4);
    for (const auto& [col, heading] : {std::pair(0, u"Telefono"_s), std::pair(1, u"Pred."_s),
                                       std::pair(2, u"C. Postal"_s), std::pair(3, u"Portes"_s)})
        grid->setHeading(col, heading);
    grid->setColKind(1, platform::CellKind::Boolean);
    grid->setColList(2, u"..."_s);
    grid->setColList(3, u"Debidos|Pagados"_s);
    grid->setTextMatrix(1, 0, u"968123456"_s);
    grid->setEditable(true);
    grid->resize(600, 300);
    grid->show();
    QApplication::setActiveWindow(grid.get());
    QVERIFY(QTest::qWaitForWindowActive(grid.get()));
}

void GridAccessibleTest::headingsComeFirstAmongTheChildren()
{
    QCOMPARE(accessible()->role(), QAccessible::Table);
    QCOMPARE(accessible()->childCount(), 4 * 4);
    QCOMPARE(table()->rowCount(), 3);
    QCOMPARE(table()->columnDescription(2), u"C. Postal"_s);
    QCOMPARE(accessible()->child(2)->role(), QAccessible::ColumnHeader);
    QCOMPARE(accessible()->child(2)->text(QAccessible::Name), u"C. Postal"_s);
    QCOMPARE(accessible()->child(4), table()->cellAt(0, 0));
}

void GridAccessibleTest::childKnowsItsPlace()
{
    QAccessibleInterface* cell = table()->cellAt(2, 1);

    QCOMPARE(accessible()->indexOfChild(cell), 3 * 4 + 1);
    QCOMPARE(accessible()->child(3 * 4 + 1), cell);
    QCOMPARE(cell->tableCellInterface()->rowIndex(), 2);
    QCOMPARE(cell->tableCellInterface()->columnIndex(), 1);
    QCOMPARE(cell->tableCellInterface()->columnHeaderCells(),
             QList<QAccessibleInterface*>{accessible()->child(1)});
    QCOMPARE(cell->parent(), accessible());
}

void GridAccessibleTest::cellOutsideIsNone()
{
    QVERIFY(!table()->cellAt(3, 0));
    QVERIFY(!table()->cellAt(-1, 0));
    QVERIFY(!table()->cellAt(0, 4));
    QVERIFY(!accessible()->child(16));
    QVERIFY(!accessible()->child(-1));
}

void GridAccessibleTest::cellSaysColumnAndText()
{
    const QAccessibleInterface* cell = table()->cellAt(0, 0);

    QCOMPARE(cell->text(QAccessible::Name), u"Telefono: 968123456"_s);
    QCOMPARE(cell->text(QAccessible::Value), u"968123456"_s);
    QCOMPARE(table()->cellAt(1, 0)->text(QAccessible::Name), u"Telefono"_s);
}

void GridAccessibleTest::cellWithoutAHeadingSaysItsText()
{
    grid->setHeading(0, {});

    QCOMPARE(table()->cellAt(0, 0)->text(QAccessible::Name), u"968123456"_s);
}

void GridAccessibleTest::tickSaysItsColumnAndWhetherItIsTicked()
{
    grid->setTextMatrix(2, 1, u"1"_s);

    QCOMPARE(table()->cellAt(1, 1)->text(QAccessible::Name), u"Pred."_s);
    QVERIFY(table()->cellAt(1, 1)->state().checkable);
    QVERIFY(table()->cellAt(1, 1)->state().checked);
    QVERIFY(!table()->cellAt(0, 1)->state().checked);
    QVERIFY(!table()->cellAt(0, 0)->state().checkable);
}

void GridAccessibleTest::cellOfAHiddenColumnTakesNoFocus()
{
    QVERIFY(table()->cellAt(0, 0)->state().focusable);

    grid->setColWidth(0, 0);

    QVERIFY(!table()->cellAt(0, 0)->state().focusable);
    QVERIFY(table()->cellAt(0, 0)->state().invisible);
}

void GridAccessibleTest::currentRowIsTheSelectedOne()
{
    grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    grid->setRow(2);

    QCOMPARE(table()->selectedRows(), QList<int>{1});
    QVERIFY(table()->isRowSelected(1));
    QCOMPARE(table()->selectedCellCount(), 4);
    QVERIFY(table()->cellAt(1, 3)->state().selected);
    QVERIFY(!table()->cellAt(0, 3)->state().selected);
}

void GridAccessibleTest::rowSelectedByTheTableBecomesCurrent()
{
    QVERIFY(table()->selectRow(2));

    QCOMPARE(grid->row(), 3);
    QVERIFY(!table()->selectRow(3));
    QCOMPARE(grid->row(), 3);
}

void GridAccessibleTest::headingHasNoSelection()
{
    grid->setRow(0);

    QVERIFY(table()->selectedRows().isEmpty());
    QCOMPARE(table()->selectedCellCount(), 0);
}

void GridAccessibleTest::cellOfARowThatWentIsInvalid()
{
    const QAccessible::Id id = QAccessible::uniqueId(table()->cellAt(2, 0));

    grid->setRows(2);

    const QAccessibleInterface* left = QAccessible::accessibleInterface(id);
    QVERIFY(!left || !left->isValid());
    QVERIFY(table()->cellAt(0, 0)->isValid());
}

void GridAccessibleTest::toggleTurnsTheTick()
{
    QSignalSpy edited(grid.get(), &FlexGrid::AfterEdit);
    QCOMPARE(actionsOf(1, 1)->actionNames(), QStringList({QAccessibleActionInterface::toggleAction(),
                                                          QAccessibleActionInterface::setFocusAction()}));

    actionsOf(1, 1)->doAction(QAccessibleActionInterface::toggleAction());

    QTRY_VERIFY(grid->isTickedAt(2, 1));
    QCOMPARE(edited.takeFirst(), QVariantList({2, 1}));
    QCOMPARE(grid->row(), 2);
    QVERIFY(grid->hasFocus());
}

void GridAccessibleTest::tickOfAGridThatIsntEditableStays()
{
    grid->setEditable(false);

    QVERIFY(!actionsOf(1, 1)->actionNames().contains(QAccessibleActionInterface::toggleAction()));
    actionsOf(1, 1)->doAction(QAccessibleActionInterface::toggleAction());
    QCoreApplication::processEvents();

    QVERIFY(!grid->isTickedAt(2, 1));
}

void GridAccessibleTest::pressOfAButtonCellPressesItsButton()
{
    QSignalSpy pressed(grid.get(), &FlexGrid::CellButtonClick);

    actionsOf(0, 2)->doAction(QAccessibleActionInterface::pressAction());

    QVERIFY(pressed.isEmpty()); // a window that it opens would keep the reader waiting
    QTRY_COMPARE(pressed.size(), 1);
    QCOMPARE(pressed.first(), QVariantList({1, 2}));
}

void GridAccessibleTest::showMenuOpensTheListOfACell()
{
    actionsOf(1, 3)->doAction(QAccessibleActionInterface::showMenuAction());

    QTRY_VERIFY(grid->isEditing());
    const auto* combo = grid->findChild<QComboBox*>();
    QVERIFY(combo);
    QTRY_VERIFY(combo->view()->isVisible());
    QCOMPARE(combo->view()->accessibleName(), u"Portes"_s);
}

void GridAccessibleTest::pressOfATextCellBeginsToEditIt()
{
    actionsOf(0, 0)->doAction(QAccessibleActionInterface::pressAction());

    QTRY_VERIFY(grid->isEditing());
    QCOMPARE(grid->findChild<QLineEdit*>()->text(), u"968123456"_s);
}

void GridAccessibleTest::pressInAGridThatIsntEditableIsEnter()
{
    grid->setEditable(false);
    QSignalSpy keys(grid.get(), &FlexGrid::KeyPress);

    actionsOf(2, 0)->doAction(QAccessibleActionInterface::pressAction());

    QTRY_COMPARE(keys.size(), 1);
    QCOMPARE(keys.first().first().toInt(), 13);
    QCOMPARE(grid->row(), 3);
}

void GridAccessibleTest::actionOfACellThatWentDoesNothing()
{
    QSignalSpy pressed(grid.get(), &FlexGrid::CellButtonClick);
    actionsOf(2, 2)->doAction(QAccessibleActionInterface::pressAction());

    grid->setRows(2);
    QCoreApplication::processEvents();

    QVERIFY(pressed.isEmpty());
}

QTEST_MAIN(GridAccessibleTest)
#include "tst_gridaccessible.moc"
