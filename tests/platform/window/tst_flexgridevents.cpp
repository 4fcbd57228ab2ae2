// SPDX-License-Identifier: GPL-3.0-or-later

// The grid under the user's hands: keys, mouse, editors.

#include "platform/window/celleditors.h"
#include "platform/window/flexgrid.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using platform::FlexGrid;

namespace {

constexpr int kTickCol = 5;

/// Notes the keys that reach a widget.
class KeyCatcher : public QObject
{
public:
    explicit KeyCatcher(QWidget* widget) { widget->installEventFilter(this); }

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::KeyPress)
            keys.append(static_cast<QKeyEvent*>(event)->key());
        return false;
    }

    QList<int> keys;
};

} // namespace

class FlexGridEventsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void leftPressMovesTheCursor();
    void rightPressDoesNotMoveTheCursor();
    void mouseDownComesBeforeTheCursorMoves();
    void pressOnTheHeadingReportsButMovesNothing();
    void draggingDoesNotMoveTheCursor();
    void firstFocusKeepsTheHeadingRow();
    void arrowsMoveTheCursor();
    void tabLeavesTheGrid();
    void tabLeavesTheGridFromAnEditor();
    void backtabLeavesTheGrid();
    void tabIntoTheGridShowsTheCursor_data();
    void tabIntoTheGridShowsTheCursor();
    void tabLeavesTheGridFromADropDown();
    void ctrlTabEndsAnEditAndGoesOnToTheParent_data();
    void ctrlTabEndsAnEditAndGoesOnToTheParent();
    void menuKeysCountAsTheRightButton_data();
    void menuKeysCountAsTheRightButton();
    void menuKeyPlacesTheMenuBelowTheCurrentCell();
    void menuKeyBringsTheCurrentCellIntoView();
    void menuKeyPlacesTheMenuAtTheVisiblePartOfTheCell();
    void menuKeyOnTheHeadingPlacesTheMenuBelowIt();
    void rightPressPlacesTheMenuAtThePointer();
    void f10AloneIsNoMenuKey();
    void menuKeyInAnEditorOpensTheEditorsOwnMenu_data();
    void menuKeyInAnEditorOpensTheEditorsOwnMenu();
    void menuKeyInADropDownOpensNothing();
    void typingStartsAnEditAndReplacesTheText();
    void selectingStartsNoEdit();
    void startEditComesWhenTypingStarts();
    void cancelledEditKeepsTheCell();
    void gridThatIsNotEditableTakesNoTyping();
    void afterEditComesAfterReturn();
    void afterEditComesWhenTheFocusLeaves();
    void escapeEndsAnEditWithoutAWord();
    void inputLimitCutsWhatIsTyped();
    void inputLimitKeepsItsLastValue();
    void listColumnTakesNoFreeText();
    void listColumnKeepsAForeignValueWhenNothingIsPicked();
    void pickingAnItemWritesIt();
    void pickingAKindWritesTheLetterShown();
    void listWithLeadingBarTakesFreeText();
    void buttonColumnTakesNoTyping();
    void buttonColumnWithBarTakesTyping();
    void clickOnTheButtonReportsIt();
    void f4PressesTheButton();
    void clickOnATickTogglesItAndEndsInAfterEdit();
    void clickBesideATickTogglesNothing();
    void blankTogglesATick();
    void emptiedDateCellHoldsSeparatorsAndBlanks();
    void dateCellTakesDigitsUnderItsMask();
    void openEditorIsCommittedOnDemand();
    void downArrowInAnEditorGoesToTheNextLine();
    void doubleClickIsReportedAndOpensTheCell();
    void characterKeysAreReported_data();
    void characterKeysAreReported();
    void otherKeysAreNotReported_data();
    void otherKeysAreNotReported();
    void typingNeverSearches();
    void mouseMoveTellsTheCell();
    void editorIsNamedAfterTheHeading();

private:
    [[nodiscard]] QRect cell(int row, int col) const;
    [[nodiscard]] QPoint centre(int row, int col) const;
    /// Where the Menu key puts a menu, on the screen.
    [[nodiscard]] QPoint placeOfMenu();
    [[nodiscard]] QPoint buttonOf(int row, int col) const;
    void press(Qt::MouseButton button, int row, int col);
    [[nodiscard]] QLineEdit* editor() const;
    [[nodiscard]] platform::CellCombo* dropDown() const;

    std::unique_ptr<QWidget> window;
    FlexGrid* grid = nullptr;
    QLineEdit* next = nullptr;
};

void FlexGridEventsTest::init()
{
    window = std::make_unique<QWidget>();
    auto* layout = new QVBoxLayout(window.get());
    grid = new FlexGrid;
    next = new QLineEdit;
    layout->addWidget(grid);
    layout->addWidget(next);
    grid->setRows(15);
    grid->setCols(6);
    grid->setEditable(true);
    grid->setColKind(kTickCol, platform::CellKind::Boolean);
    window->resize(800, 500);
    window->show();
    grid->setFocus();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
}

void FlexGridEventsTest::cleanup()
{
    window.reset();
}

QRect FlexGridEventsTest::cell(int row, int col) const
{
    return grid->visualRect(grid->model()->index(row - 1, col));
}

QPoint FlexGridEventsTest::centre(int row, int col) const
{
    return cell(row, col).center();
}

QPoint FlexGridEventsTest::placeOfMenu()
{
    const QSignalSpy presses(grid, &FlexGrid::MouseDown);
    QTest::keyClick(grid, Qt::Key_Menu);
    return presses.size() == 1 ? presses.first().at(1).toPoint() : QPoint();
}

QPoint FlexGridEventsTest::buttonOf(int row, int col) const
{
    const QRect cell = grid->visualRect(grid->model()->index(row - 1, col));
    return {cell.right() - 4, cell.center().y()};
}

void FlexGridEventsTest::press(Qt::MouseButton button, int row, int col)
{
    QTest::mouseClick(grid->viewport(), button, {}, centre(row, col));
}

QLineEdit* FlexGridEventsTest::editor() const
{
    return qobject_cast<QLineEdit*>(grid->indexWidget(grid->currentIndex()));
}

platform::CellCombo* FlexGridEventsTest::dropDown() const
{
    return qobject_cast<platform::CellCombo*>(grid->indexWidget(grid->currentIndex()));
}

void FlexGridEventsTest::leftPressMovesTheCursor()
{
    press(Qt::LeftButton, 4, 2);

    QCOMPARE(grid->row(), 4);
    QCOMPARE(grid->col(), 2);
}

void FlexGridEventsTest::rightPressDoesNotMoveTheCursor()
{
    press(Qt::LeftButton, 2, 1);

    press(Qt::RightButton, 5, 3);

    QCOMPARE(grid->row(), 2);
    QCOMPARE(grid->col(), 1);
}

void FlexGridEventsTest::mouseDownComesBeforeTheCursorMoves()
{
    int rowAtPress = -1;
    connect(grid, &FlexGrid::MouseDown, grid, [&] { rowAtPress = grid->row(); });

    press(Qt::LeftButton, 6, 0);

    QCOMPARE(rowAtPress, 1);
    QCOMPARE(grid->row(), 6);
}

void FlexGridEventsTest::pressOnTheHeadingReportsButMovesNothing()
{
    const QSignalSpy presses(grid, &FlexGrid::MouseDown);
    grid->setTextMatrix(1, 0, u"z"_s);
    grid->setTextMatrix(2, 0, u"a"_s);

    QTest::mouseClick(grid->horizontalHeader()->viewport(), Qt::LeftButton, {}, QPoint(10, 10));

    QVERIFY(!presses.isEmpty());
    QCOMPARE(grid->textMatrix(1, 0), u"z"_s);
    QCOMPARE(grid->row(), 1);
}

void FlexGridEventsTest::draggingDoesNotMoveTheCursor()
{
    QTest::mousePress(grid->viewport(), Qt::LeftButton, {}, centre(2, 0));
    QTest::mouseMove(grid->viewport(), centre(6, 3));
    QTest::mouseRelease(grid->viewport(), Qt::LeftButton, {}, centre(6, 3));

    QCOMPARE(grid->row(), 2);
    QCOMPARE(grid->col(), 0);
}

void FlexGridEventsTest::firstFocusKeepsTheHeadingRow()
{
    next->setFocus();
    grid->setRow(0);

    grid->setFocus(Qt::TabFocusReason);

    QCOMPARE(grid->row(), 0);
}

void FlexGridEventsTest::arrowsMoveTheCursor()
{
    QTest::keyClick(grid, Qt::Key_Down);
    QTest::keyClick(grid, Qt::Key_Right);

    QCOMPARE(grid->row(), 2);
    QCOMPARE(grid->col(), 1);
}

void FlexGridEventsTest::tabLeavesTheGrid()
{
    QTest::keyClick(grid, Qt::Key_Tab);

    QVERIFY(next->hasFocus());
    QCOMPARE(grid->col(), 0);
}

void FlexGridEventsTest::tabLeavesTheGridFromAnEditor()
{
    QTest::keyClick(grid, Qt::Key_A);

    QTest::keyClick(editor(), Qt::Key_Tab);

    QVERIFY(next->hasFocus());
    QCOMPARE(grid->textMatrix(1, 0), u"a"_s);
}

void FlexGridEventsTest::backtabLeavesTheGrid()
{
    QTest::keyClick(grid, Qt::Key_Backtab, Qt::ShiftModifier);

    QVERIFY(next->hasFocus());
    QCOMPARE(grid->col(), 0);
}

void FlexGridEventsTest::tabIntoTheGridShowsTheCursor_data()
{
    QTest::addColumn<int>("reason");
    QTest::addColumn<bool>("shown");

    QTest::newRow("Tab") << int(Qt::TabFocusReason) << true;
    QTest::newRow("Shift+Tab") << int(Qt::BacktabFocusReason) << true;
    QTest::newRow("a click keeps the lines in view") << int(Qt::MouseFocusReason) << false;
    QTest::newRow("code keeps the lines in view") << int(Qt::OtherFocusReason) << false;
}

void FlexGridEventsTest::tabIntoTheGridShowsTheCursor()
{
    QFETCH(const int, reason);
    QFETCH(const bool, shown);
    grid->setRows(50);
    grid->setRow(45);
    next->setFocus();
    QVERIFY(!grid->viewport()->rect().contains(cell(45, 0)));

    grid->setFocus(Qt::FocusReason(reason));

    QCOMPARE(grid->viewport()->rect().contains(cell(45, 0)), shown);
}

void FlexGridEventsTest::tabLeavesTheGridFromADropDown()
{
    grid->setColList(0, u"Debidos|Pagados"_s);
    QTest::keyClick(grid, Qt::Key_P);

    QTest::keyClick(dropDown(), Qt::Key_Tab);

    QVERIFY(next->hasFocus());
    QCOMPARE(grid->textMatrix(1, 0), u"Pagados"_s);
}

void FlexGridEventsTest::ctrlTabEndsAnEditAndGoesOnToTheParent_data()
{
    QTest::addColumn<QString>("list");
    QTest::addColumn<int>("typed");
    QTest::addColumn<QString>("left");

    QTest::newRow("line of typing") << QString() << int(Qt::Key_X) << u"x"_s;
    QTest::newRow("drop-down") << u"Debidos|Pagados"_s << int(Qt::Key_P) << u"Pagados"_s;
}

void FlexGridEventsTest::ctrlTabEndsAnEditAndGoesOnToTheParent()
{
    QFETCH(const QString, list);
    QFETCH(const int, typed);
    QFETCH(const QString, left);
    KeyCatcher parent(window.get());
    grid->setColList(0, list);
    QTest::keyClick(grid, Qt::Key(typed));

    QTest::keyClick(grid->indexWidget(grid->currentIndex()), Qt::Key_Tab, Qt::ControlModifier);

    QCOMPARE(grid->text(), left);
    QVERIFY(!grid->isEditing());
    QVERIFY(parent.keys.contains(Qt::Key_Tab));
}

void FlexGridEventsTest::menuKeysCountAsTheRightButton_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");

    QTest::newRow("Menu") << int(Qt::Key_Menu) << int(Qt::NoModifier);
    QTest::newRow("Shift+F10") << int(Qt::Key_F10) << int(Qt::ShiftModifier);
}

void FlexGridEventsTest::menuKeysCountAsTheRightButton()
{
    QFETCH(const int, key);
    QFETCH(const int, modifiers);
    QTest::keyClick(grid, Qt::Key_Down);
    const QSignalSpy presses(grid, &FlexGrid::MouseDown);

    QTest::keyClick(grid, Qt::Key(key), Qt::KeyboardModifiers(modifiers));

    QCOMPARE(presses.size(), 1);
    QCOMPARE(presses.first().first().value<Qt::MouseButton>(), Qt::RightButton);
    QCOMPARE(grid->row(), 2);
    QVERIFY(!grid->isEditing());
}

void FlexGridEventsTest::menuKeyPlacesTheMenuBelowTheCurrentCell()
{
    grid->setRow(3);
    grid->setCol(2);

    QCOMPARE(placeOfMenu(), grid->viewport()->mapToGlobal(cell(3, 2).bottomLeft() + QPoint(0, 1)));
}

void FlexGridEventsTest::menuKeyBringsTheCurrentCellIntoView()
{
    grid->setRows(50);
    grid->setRow(45);
    QVERIFY(!grid->viewport()->rect().contains(cell(45, 0)));

    const QPoint place = placeOfMenu();

    QVERIFY(grid->viewport()->rect().contains(cell(45, 0)));
    QCOMPARE(place, grid->viewport()->mapToGlobal(cell(45, 0).bottomLeft() + QPoint(0, 1)));
}

void FlexGridEventsTest::menuKeyPlacesTheMenuAtTheVisiblePartOfTheCell()
{
    grid->setColWidth(0, 40000); // wider than the grid
    QTRY_VERIFY(grid->horizontalScrollBar()->maximum() >= 300);
    grid->horizontalScrollBar()->setValue(300);
    QVERIFY(cell(1, 0).left() < 0);

    const QPoint place = grid->viewport()->mapFromGlobal(placeOfMenu());

    QVERIFY(grid->viewport()->rect().contains(place));
}

void FlexGridEventsTest::menuKeyOnTheHeadingPlacesTheMenuBelowIt()
{
    grid->setRow(0);
    grid->setCol(2);

    QCOMPARE(placeOfMenu(), grid->viewport()->mapToGlobal(QPoint(cell(1, 2).left(), 0)));
}

void FlexGridEventsTest::rightPressPlacesTheMenuAtThePointer()
{
    const QSignalSpy presses(grid, &FlexGrid::MouseDown);

    press(Qt::RightButton, 5, 3);

    QCOMPARE(presses.first().at(1).toPoint(), grid->viewport()->mapToGlobal(centre(5, 3)));
}

void FlexGridEventsTest::f10AloneIsNoMenuKey()
{
    const QSignalSpy presses(grid, &FlexGrid::MouseDown);

    QTest::keyClick(grid, Qt::Key_F10);

    QVERIFY(presses.isEmpty());
}

void FlexGridEventsTest::menuKeyInAnEditorOpensTheEditorsOwnMenu_data()
{
    menuKeysCountAsTheRightButton_data();
}

void FlexGridEventsTest::menuKeyInAnEditorOpensTheEditorsOwnMenu()
{
    QFETCH(const int, key);
    QFETCH(const int, modifiers);
    const QSignalSpy presses(grid, &FlexGrid::MouseDown);
    QTest::keyClick(grid, Qt::Key_X);

    QTest::keyClick(editor(), Qt::Key(key), Qt::KeyboardModifiers(modifiers));

    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QVERIFY(menu);
    QCOMPARE(menu->parentWidget(), editor());
    menu->close();
    QVERIFY(presses.isEmpty());
}

void FlexGridEventsTest::menuKeyInADropDownOpensNothing()
{
    const QSignalSpy presses(grid, &FlexGrid::MouseDown);
    grid->setColList(0, u"Debidos|Pagados"_s);
    QTest::keyClick(grid, Qt::Key_P);

    QTest::keyClick(dropDown(), Qt::Key_Menu);

    QVERIFY(!QApplication::activePopupWidget());
    QVERIFY(presses.isEmpty());
    QVERIFY(grid->isEditing());
}

void FlexGridEventsTest::typingStartsAnEditAndReplacesTheText()
{
    grid->setText(u"viejo"_s);

    QTest::keyClick(grid, Qt::Key_N);
    QTest::keyClick(editor(), Qt::Key_Return);
    QTRY_VERIFY(!grid->isEditing());

    QCOMPARE(grid->text(), u"n"_s);
}

void FlexGridEventsTest::selectingStartsNoEdit()
{
    const QSignalSpy started(grid, &FlexGrid::StartEdit);

    press(Qt::LeftButton, 3, 1);
    press(Qt::LeftButton, 3, 1);

    QVERIFY(started.isEmpty());
    QVERIFY(!grid->isEditing());
}

void FlexGridEventsTest::startEditComesWhenTypingStarts()
{
    QList<QPair<int, int>> starts;
    connect(grid, &FlexGrid::StartEdit, grid, [&](int row, int col, bool*) { starts.append({row, col}); });
    press(Qt::LeftButton, 3, 1);

    QTest::keyClick(grid, Qt::Key_1);
    QTest::keyClick(editor(), Qt::Key_2);

    QCOMPARE(starts, (QList<QPair<int, int>>{{3, 1}}));
}

void FlexGridEventsTest::cancelledEditKeepsTheCell()
{
    grid->setText(u"queda"_s);
    connect(grid, &FlexGrid::StartEdit, grid, [](int, int, bool* cancel) { *cancel = true; });

    QTest::keyClick(grid, Qt::Key_A);

    QVERIFY(!grid->isEditing());
    QCOMPARE(grid->text(), u"queda"_s);
}

void FlexGridEventsTest::gridThatIsNotEditableTakesNoTyping()
{
    grid->setEditable(false);

    QTest::keyClick(grid, Qt::Key_A);

    QVERIFY(!grid->isEditing());
}

void FlexGridEventsTest::afterEditComesAfterReturn()
{
    QString textAtEvent;
    connect(grid, &FlexGrid::AfterEdit, grid,
            [&](int row, int col) { textAtEvent = grid->textMatrix(row, col); });

    QTest::keyClick(grid, Qt::Key_X);
    QTest::keyClick(editor(), Qt::Key_Return);

    QTRY_COMPARE(textAtEvent, u"x"_s);
}

void FlexGridEventsTest::afterEditComesWhenTheFocusLeaves()
{
    const QSignalSpy ended(grid, &FlexGrid::AfterEdit);
    QTest::keyClick(grid, Qt::Key_X);

    next->setFocus();

    QCOMPARE(ended.size(), 1);
    QCOMPARE(grid->text(), u"x"_s);
}

void FlexGridEventsTest::escapeEndsAnEditWithoutAWord()
{
    const QSignalSpy ended(grid, &FlexGrid::AfterEdit);
    grid->setText(u"antes"_s);
    QTest::keyClick(grid, Qt::Key_X);

    QTest::keyClick(editor(), Qt::Key_Escape);

    QTRY_VERIFY(!grid->isEditing());
    QVERIFY(ended.isEmpty());
    QCOMPARE(grid->text(), u"antes"_s);
}

void FlexGridEventsTest::inputLimitCutsWhatIsTyped()
{
    connect(grid, &FlexGrid::StartEdit, grid, [this] { grid->setEditMaxLength(2); });
    QTest::keyClick(grid, Qt::Key_1);

    QTest::keyClicks(editor(), u"234"_s);
    grid->commitOpenEditor();

    QCOMPARE(grid->text(), u"12"_s);
}

void FlexGridEventsTest::inputLimitKeepsItsLastValue()
{
    grid->setEditMaxLength(4);
    press(Qt::LeftButton, 2, 3);

    QTest::keyClick(grid, Qt::Key_1);
    QTest::keyClicks(editor(), u"23456"_s);
    grid->commitOpenEditor();

    QCOMPARE(grid->text(), u"1234"_s);
    QCOMPARE(grid->editMaxLength(), 4);
}

void FlexGridEventsTest::listColumnTakesNoFreeText()
{
    grid->setColList(0, u"Debidos|Pagados"_s);

    QTest::keyClick(grid, Qt::Key_P);
    QVERIFY(dropDown());
    QVERIFY(!dropDown()->isEditable());
    grid->commitOpenEditor();

    QCOMPARE(grid->text(), u"Pagados"_s);
}

void FlexGridEventsTest::listColumnKeepsAForeignValueWhenNothingIsPicked()
{
    grid->setColList(0, u"01 Si|02 No"_s);
    grid->setText(u"01 No"_s);

    QTest::keyClick(grid, Qt::Key_F2);
    QVERIFY(dropDown());
    grid->commitOpenEditor();

    QCOMPARE(grid->text(), u"01 No"_s);
}

void FlexGridEventsTest::pickingAnItemWritesIt()
{
    const QSignalSpy ended(grid, &FlexGrid::AfterEdit);
    grid->setColList(0, u"01 Voz|02 Datos|03 Fax"_s);
    QTest::keyClick(grid, Qt::Key_F4);
    QTRY_VERIFY(dropDown() && dropDown()->view()->isVisible());

    QTest::keyClick(dropDown()->view(), Qt::Key_Down);
    QTest::keyClick(dropDown()->view(), Qt::Key_Return);

    QCOMPARE(grid->textMatrix(1, 0), u"02 Datos"_s);
    QCOMPARE(ended.size(), 1);
    QVERIFY(!grid->isEditing());
}

void FlexGridEventsTest::pickingAKindWritesTheLetterShown()
{
    grid->setColList(0, u"#1*0;F\tFijo:Todos los períodos mismo importe|#2;R\tRequiere actualizar"_s);
    QTest::keyClick(grid, Qt::Key_F2);
    QCOMPARE(dropDown()->count(), 2);

    QTest::keyClick(dropDown(), Qt::Key_R);
    grid->commitOpenEditor();

    QCOMPARE(grid->text(), u"R"_s);
}

void FlexGridEventsTest::listWithLeadingBarTakesFreeText()
{
    grid->setColList(0, u"|01|02"_s);
    QTest::keyClick(grid, Qt::Key_F2);

    QTest::keyClicks(dropDown()->lineEdit(), u"otro"_s);
    grid->commitOpenEditor();

    QCOMPARE(grid->text(), u"otro"_s);
}

void FlexGridEventsTest::buttonColumnTakesNoTyping()
{
    grid->setColList(0, u"..."_s);

    QTest::keyClick(grid, Qt::Key_A);

    QVERIFY(!grid->isEditing());
}

void FlexGridEventsTest::buttonColumnWithBarTakesTyping()
{
    grid->setColList(0, u"|..."_s);

    QTest::keyClick(grid, Qt::Key_A);

    QVERIFY(grid->isEditing());
}

void FlexGridEventsTest::clickOnTheButtonReportsIt()
{
    const QSignalSpy clicks(grid, &FlexGrid::CellButtonClick);
    grid->setColList(1, u"|..."_s);
    press(Qt::LeftButton, 3, 1);

    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, buttonOf(3, 1));

    QCOMPARE(clicks.size(), 1);
    QCOMPARE(clicks.first(), (QVariantList{3, 1}));
}

void FlexGridEventsTest::f4PressesTheButton()
{
    const QSignalSpy clicks(grid, &FlexGrid::CellButtonClick);
    grid->setColList(0, u"..."_s);

    QTest::keyClick(grid, Qt::Key_F4);

    QCOMPARE(clicks.size(), 1);
}

void FlexGridEventsTest::clickOnATickTogglesItAndEndsInAfterEdit()
{
    const QSignalSpy started(grid, &FlexGrid::StartEdit);
    const QSignalSpy ended(grid, &FlexGrid::AfterEdit);

    press(Qt::LeftButton, 2, kTickCol);
    QVERIFY(grid->isTickedAt(2, kTickCol));
    press(Qt::LeftButton, 2, kTickCol);
    QVERIFY(!grid->isTickedAt(2, kTickCol));

    QCOMPARE(ended.size(), 2);
    QVERIFY(started.isEmpty());
}

void FlexGridEventsTest::clickBesideATickTogglesNothing()
{
    const QRect cell = grid->visualRect(grid->model()->index(1, kTickCol));

    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, QPoint(cell.left() + 2, cell.center().y()));

    QVERIFY(!grid->isTickedAt(2, kTickCol));
    QCOMPARE(grid->row(), 2);
}

void FlexGridEventsTest::blankTogglesATick()
{
    grid->setCol(kTickCol);

    QTest::keyClick(grid, Qt::Key_Space);

    QVERIFY(grid->isTicked());
}

void FlexGridEventsTest::emptiedDateCellHoldsSeparatorsAndBlanks()
{
    grid->setColMask(0, u"99/99/9999"_s);
    grid->setText(u"01/02/2024"_s);

    QTest::keyClick(grid, Qt::Key_Delete);
    grid->commitOpenEditor();

    QCOMPARE(grid->text(), u"  /  /    "_s);
}

void FlexGridEventsTest::dateCellTakesDigitsUnderItsMask()
{
    grid->setColMask(0, u"99/99/9999"_s);

    QTest::keyClick(grid, Qt::Key_0);
    QTest::keyClicks(editor(), u"1022024"_s);
    grid->commitOpenEditor();

    QCOMPARE(grid->text(), u"01/02/2024"_s);
}

void FlexGridEventsTest::openEditorIsCommittedOnDemand()
{
    const QSignalSpy ended(grid, &FlexGrid::AfterEdit);
    QTest::keyClick(grid, Qt::Key_7);

    grid->commitOpenEditor();
    grid->commitOpenEditor();

    QCOMPARE(grid->text(), u"7"_s);
    QCOMPARE(ended.size(), 1);
}

void FlexGridEventsTest::downArrowInAnEditorGoesToTheNextLine()
{
    QTest::keyClick(grid, Qt::Key_7);

    QTest::keyClick(editor(), Qt::Key_Down);

    QCOMPARE(grid->textMatrix(1, 0), u"7"_s);
    QCOMPARE(grid->row(), 2);
}

void FlexGridEventsTest::doubleClickIsReportedAndOpensTheCell()
{
    const QSignalSpy doubles(grid, &FlexGrid::DblClick);
    press(Qt::LeftButton, 3, 1);

    QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, centre(3, 1));

    QCOMPARE(doubles.size(), 1);
    QVERIFY(grid->isEditing());
}

void FlexGridEventsTest::characterKeysAreReported_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("code");

    QTest::newRow("Enter") << int(Qt::Key_Return) << 13;
    QTest::newRow("blank") << int(Qt::Key_Space) << 32;
    QTest::newRow("a letter") << int(Qt::Key_K) << int('k');
    QTest::newRow("a digit") << int(Qt::Key_5) << int('5');
}

void FlexGridEventsTest::characterKeysAreReported()
{
    QFETCH(int, key);
    QFETCH(int, code);
    grid->setEditable(false);
    const QSignalSpy keys(grid, &FlexGrid::KeyPress);

    QTest::keyClick(grid, Qt::Key(key));

    QCOMPARE(keys.size(), 1);
    QCOMPARE(keys.first().first().toInt(), code);
}

void FlexGridEventsTest::otherKeysAreNotReported_data()
{
    QTest::addColumn<int>("key");

    QTest::newRow("arrow") << int(Qt::Key_Down);
    QTest::newRow("Esc") << int(Qt::Key_Escape);
    QTest::newRow("function key") << int(Qt::Key_F5);
    QTest::newRow("Tab") << int(Qt::Key_Tab);
}

void FlexGridEventsTest::otherKeysAreNotReported()
{
    QFETCH(int, key);
    grid->setEditable(false);
    const QSignalSpy keys(grid, &FlexGrid::KeyPress);

    QTest::keyClick(grid, Qt::Key(key));

    QVERIFY(keys.isEmpty());
}

void FlexGridEventsTest::typingNeverSearches()
{
    grid->setEditable(false);
    grid->setTextMatrix(9, 0, u"zaragoza"_s);

    QTest::keyClick(grid, Qt::Key_Z);

    QCOMPARE(grid->row(), 1);
}

void FlexGridEventsTest::mouseMoveTellsTheCell()
{
    const QPoint place = centre(4, 2);
    QMouseEvent move(QEvent::MouseMove, place, grid->viewport()->mapToGlobal(place), Qt::NoButton,
                     Qt::NoButton, {});

    QApplication::sendEvent(grid->viewport(), &move);

    QCOMPARE(grid->mouseRow(), 4);
    QCOMPARE(grid->mouseCol(), 2);
}

void FlexGridEventsTest::editorIsNamedAfterTheHeading()
{
    grid->setHeading(0, u"Telefono"_s);

    QTest::keyClick(grid, Qt::Key_9);

    QCOMPARE(editor()->accessibleName(), u"Telefono"_s);
}

QTEST_MAIN(FlexGridEventsTest)
#include "tst_flexgridevents.moc"
