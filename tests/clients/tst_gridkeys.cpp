// SPDX-License-Identifier: GPL-3.0-or-later

// The grids and the tree of the client window, used by keyboard alone.

#include "clients/clientfixture.h"

#include "platform/window/flexgrid.h"
#include "platform/window/treeview.h"
#include "shell/globalsat.h"

#include <optional>

using namespace Qt::StringLiterals;
using testsupport::ClientFixture;

class GridKeysTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        f.emplace();
        f->addClient(u"C1"_s, u"UNO"_s);
        f->addShipping(u"C1"_s, u"Mayor"_s, u"1"_s);
        f->addShipping(u"C1"_s, u"Norte"_s, u"0"_s);
        f->addTelephone(u"C1"_s, u"911"_s);
        f->addConcept(u"C1"_s, u"A1"_s, 1, u"Caldera"_s);
        f->addConsultation(5, u"C1"_s, u"fuga"_s);
        f->addConsultation(6, u"C1"_s, u"ruido"_s, u"02 Cerrada"_s);
        f->open();
        f->enterCode(u"C1"_s);
        QTRY_COMPARE(f->focused(), u"Text51"_s);
        f->press(Qt::Key_Tab);
    }
    void cleanup() { f.reset(); }

    void tabLeavesEveryGrid_data();
    void tabLeavesEveryGrid();
    void tabLeavesEveryGridFromAnEditor_data() { tabLeavesEveryGrid_data(); }
    void tabLeavesEveryGridFromAnEditor();
    void ctrlTabTurnsThePageFromAnEditor();
    void lineIsTypedAndSavedByKeyboard();
    void escTakesBackWhatWasTyped();
    void listIsChosenFromByKeyboard_data();
    void listIsChosenFromByKeyboard();
    void letterChoosesInAList();
    void dateIsTypedUnderItsMask();
    void blankTicksOneLineOnly();
    void buttonInACellIsPressedByKeyboard_data();
    void buttonInACellIsPressedByKeyboard();
    void buttonIsPressedFromTheOpenEditor();
    void nodesOpenAndCloseByKeyboard();
    void consultationIsChosenByKeyboard_data();
    void consultationIsChosenByKeyboard();
    void keyOnARootLeavesThePage();

private:
    /// By keyboard to a cell: Ctrl+Tab to the page, Tab to the grid, arrows to the cell.
    void goTo(int page, const QString& grid, int row, int col);
    /// Types in the control with the focus; the first key may open an editor that gets the others.
    static void typeKeys(const QString& text);
    platform::TreeView* tree() const { return f->control<platform::TreeView>(u"TreeView1"_s); }
    void goToTree();

    std::optional<ClientFixture> f;
};

void GridKeysTest::goTo(int page, const QString& grid, int row, int col)
{
    while (f->tab() != page)
        f->press(Qt::Key_Tab, Qt::ControlModifier);
    QVERIFY(f->walkTo(grid));
    const platform::FlexGrid* cells = f->grid(grid);
    while (cells->row() != row)
        f->press(cells->row() < row ? Qt::Key_Down : Qt::Key_Up);
    while (cells->col() != col)
        f->press(cells->col() < col ? Qt::Key_Right : Qt::Key_Left);
}

void GridKeysTest::typeKeys(const QString& text)
{
    for (const QChar character : text)
        QTest::keyClicks(QApplication::focusWidget(), QString(character));
}

void GridKeysTest::goToTree()
{
    while (f->tab() != 3)
        f->press(Qt::Key_Tab, Qt::ControlModifier);
    QVERIFY(f->walkTo(u"TreeView1"_s));
}

void GridKeysTest::tabLeavesEveryGrid_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<QString>("grid");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");

    QTest::newRow("telephones") << 0 << u"vsFlexGrid4"_s << u"Text26"_s << u"Picture1"_s;
    QTest::newRow("shipping") << 1 << u"vsFlexGrid1"_s << u"Text51"_s << u"vsFlexGrid2"_s;
    QTest::newRow("banks") << 1 << u"vsFlexGrid2"_s << u"vsFlexGrid1"_s << u"Text33"_s;
    QTest::newRow("concepts") << 2 << u"vsFlexGrid3"_s << u"Text51"_s << u"Text60"_s;
    QTest::newRow("consultation") << 3 << u"vsFlexGrid6"_s << u"Combo3"_s << u"Text12"_s;
}

void GridKeysTest::tabLeavesEveryGrid()
{
    QFETCH(const int, page);
    QFETCH(const QString, grid);
    QFETCH(const QString, before);
    QFETCH(const QString, after);
    goTo(page, grid, 1, 1);

    f->press(Qt::Key_Tab);
    QCOMPARE(f->stop(), after);
    f->press(Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(f->stop(), grid);
    f->press(Qt::Key_Backtab, Qt::ShiftModifier);

    QCOMPARE(f->stop(), before);
    QCOMPARE(f->grid(grid)->row(), 1);
    QCOMPARE(f->grid(grid)->col(), 1);
}

void GridKeysTest::tabLeavesEveryGridFromAnEditor()
{
    QFETCH(const int, page);
    QFETCH(const QString, grid);
    QFETCH(const QString, before);
    QFETCH(const QString, after);
    goTo(page, grid, 1, 1);

    typeKeys(u"77"_s);
    f->press(Qt::Key_Tab);
    QCOMPARE(f->stop(), after);
    QCOMPARE(f->cell(grid, 1, 1), u"77"_s);
    f->press(Qt::Key_Backtab, Qt::ShiftModifier);
    typeKeys(u"88"_s);
    f->press(Qt::Key_Backtab, Qt::ShiftModifier);

    QCOMPARE(f->stop(), before);
    QCOMPARE(f->cell(grid, 1, 1), u"88"_s);
}

void GridKeysTest::ctrlTabTurnsThePageFromAnEditor()
{
    goTo(1, u"vsFlexGrid2"_s, 1, 0);
    typeKeys(u"Banco"_s);

    f->press(Qt::Key_Tab, Qt::ControlModifier);

    QCOMPARE(f->tab(), 2);
    QCOMPARE(f->stop(), u"vsFlexGrid3"_s);
    QCOMPARE(f->cell(u"vsFlexGrid2"_s, 1, 0), u"Banco"_s);
}

void GridKeysTest::lineIsTypedAndSavedByKeyboard()
{
    goTo(0, u"vsFlexGrid4"_s, 2, 0);

    typeKeys(u"922"_s);
    f->press(Qt::Key_Return);
    f->press(Qt::Key_Right);
    typeKeys(u"14"_s);
    // Alt+G takes the focus, so the open cell is written first.
    f->press(Qt::Key_G, Qt::AltModifier);

    QCOMPARE(f->rows(BDTELEFONOS, u"SELECT TELETELEFONO, TELEEXTENSION FROM TELEFON "
                                  "WHERE TELETELEFONO='922'"_s),
             QStringList(u"922|14"_s));
}

void GridKeysTest::escTakesBackWhatWasTyped()
{
    goTo(0, u"vsFlexGrid4"_s, 1, 0);

    typeKeys(u"5"_s);
    f->press(Qt::Key_Escape);

    QCOMPARE(f->cell(u"vsFlexGrid4"_s, 1, 0), u"911"_s);
    QCOMPARE(f->stop(), u"vsFlexGrid4"_s);
    QVERIFY(f->isOpen());
}

void GridKeysTest::listIsChosenFromByKeyboard_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<QString>("grid");
    QTest::addColumn<int>("col");
    QTest::addColumn<int>("downs");
    QTest::addColumn<QString>("chosen");

    QTest::newRow("kind of telephone") << 0 << u"vsFlexGrid4"_s << 2 << 1 << u"02 Datos"_s;
    QTest::newRow("carriage") << 1 << u"vsFlexGrid1"_s << 3 << 1 << u"Pagados"_s;
    QTest::newRow("kind of concept") << 2 << u"vsFlexGrid3"_s << 5 << 2 << u"V"_s;
    QTest::newRow("month") << 2 << u"vsFlexGrid3"_s << 7 << 11 << u"12"_s;
    QTest::newRow("state, from the first") << 3 << u"vsFlexGrid6"_s << 5 << 1 << u"02 Cerrada"_s;
    QTest::newRow("publishable, of a value not in the list") << 3 << u"vsFlexGrid6"_s << 6 << 0 << u"01 Si"_s;
}

void GridKeysTest::listIsChosenFromByKeyboard()
{
    QFETCH(const int, page);
    QFETCH(const QString, grid);
    QFETCH(const int, col);
    QFETCH(const int, downs);
    QFETCH(const QString, chosen);
    goTo(page, grid, 1, col);

    f->press(Qt::Key_Down, Qt::AltModifier);
    QTRY_VERIFY(QApplication::activePopupWidget());
    QWidget* popup = QApplication::activePopupWidget();
    for (int i = 0; i < downs; ++i)
        QTest::keyClick(popup->focusWidget() ? popup->focusWidget() : popup, Qt::Key_Down);
    QTest::keyClick(popup->focusWidget() ? popup->focusWidget() : popup, Qt::Key_Return);

    QTRY_COMPARE(f->cell(grid, 1, col), chosen);
    QTRY_VERIFY(!f->grid(grid)->isEditing());
}

void GridKeysTest::letterChoosesInAList()
{
    goTo(1, u"vsFlexGrid1"_s, 2, 3);

    typeKeys(u"p"_s);
    f->press(Qt::Key_Return);

    QTRY_COMPARE(f->cell(u"vsFlexGrid1"_s, 2, 3), u"Pagados"_s);
}

void GridKeysTest::dateIsTypedUnderItsMask()
{
    goTo(2, u"vsFlexGrid3"_s, 1, 2);

    typeKeys(u"01022024"_s);
    f->press(Qt::Key_Return);

    QTRY_COMPARE(f->cell(u"vsFlexGrid3"_s, 1, 2), u"01/02/2024"_s);
}

void GridKeysTest::blankTicksOneLineOnly()
{
    goTo(1, u"vsFlexGrid1"_s, 2, 5);

    f->press(Qt::Key_Space);

    QVERIFY(!f->grid(u"vsFlexGrid1"_s)->isTickedAt(1, 5));
    QVERIFY(f->grid(u"vsFlexGrid1"_s)->isTickedAt(2, 5));
    f->press(Qt::Key_Space);
    QVERIFY(!f->grid(u"vsFlexGrid1"_s)->isTickedAt(2, 5));
}

void GridKeysTest::buttonInACellIsPressedByKeyboard_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<QString>("grid");
    QTest::addColumn<int>("col");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<int>("kind");

    QTest::newRow("postal code, F4") << 1 << u"vsFlexGrid1"_s << 1 << int(Qt::Key_F4) << int(Qt::NoModifier)
                                     << 3;
    QTest::newRow("article, F4") << 2 << u"vsFlexGrid3"_s << 0 << int(Qt::Key_F4) << int(Qt::NoModifier)
                                 << 11;
    QTest::newRow("article, Alt+Down")
        << 2 << u"vsFlexGrid3"_s << 0 << int(Qt::Key_Down) << int(Qt::AltModifier) << 11;
}

void GridKeysTest::buttonInACellIsPressedByKeyboard()
{
    QFETCH(const int, page);
    QFETCH(const QString, grid);
    QFETCH(const int, col);
    QFETCH(const int, key);
    QFETCH(const int, modifiers);
    QFETCH(const int, kind);
    goTo(page, grid, 1, col);

    f->press(Qt::Key(key), Qt::KeyboardModifiers(modifiers));

    QCOMPARE(f->lookups(), QList<int>{kind});
    QCOMPARE(f->tab(), page);
    QCOMPARE(f->stop(), grid);
}

void GridKeysTest::buttonIsPressedFromTheOpenEditor()
{
    f->add(BDARTICULOS, u"ArticulosTabla"_s, {{u"ArtCodigo", u"ART7"_s}, {u"Descripcion", u"Quemador"_s}});
    f->answerLookup(u"ART7"_s);
    goTo(2, u"vsFlexGrid3"_s, 2, 0);
    typeKeys(u"AR"_s);

    f->press(Qt::Key_F4);

    QCOMPARE(f->lookups(), QList<int>{11});
    QCOMPARE(f->cell(u"vsFlexGrid3"_s, 2, 0), u"ART7"_s);
    QCOMPARE(f->cell(u"vsFlexGrid3"_s, 2, 1), u"Quemador"_s);
}

void GridKeysTest::nodesOpenAndCloseByKeyboard()
{
    goToTree();

    f->press(Qt::Key_Down);
    QCOMPARE(tree()->selectedKey(), u"A"_s);
    f->press(Qt::Key_Right);
    QVERIFY(tree()->topLevelItem(0)->isExpanded());
    f->press(Qt::Key_Left);
    QVERIFY(!tree()->topLevelItem(0)->isExpanded());
    f->press(Qt::Key_Down);

    QCOMPARE(tree()->selectedKey(), u"B"_s);
}

void GridKeysTest::consultationIsChosenByKeyboard_data()
{
    QTest::addColumn<int>("key");

    QTest::newRow("Enter") << int(Qt::Key_Return);
    QTest::newRow("blank") << int(Qt::Key_Space);
}

void GridKeysTest::consultationIsChosenByKeyboard()
{
    QFETCH(const int, key);
    goToTree();

    for (const Qt::Key step : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Right, Qt::Key_Down})
        f->press(step);
    QCOMPARE(f->text(u"Text11"_s), QString());
    f->press(Qt::Key(key));

    QCOMPARE(f->text(u"Text10"_s), u"0000000006"_s);
    QCOMPARE(f->text(u"Text11"_s), u"ruido"_s);
    QCOMPARE(f->cell(u"vsFlexGrid6"_s, 1, 5), u"02 Cerrada"_s);
    QCOMPARE(f->stop(), u"TreeView1"_s);
}

void GridKeysTest::keyOnARootLeavesThePage()
{
    goToTree();
    f->press(Qt::Key_Down);

    f->press(Qt::Key_Return);

    QCOMPARE(f->text(u"Text10"_s), u"0000000007"_s);
    QCOMPARE(f->text(u"Text11"_s), QString());
}

QTEST_MAIN(GridKeysTest)
#include "tst_gridkeys.moc"
