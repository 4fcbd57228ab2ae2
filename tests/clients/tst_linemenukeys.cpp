// SPDX-License-Identifier: GPL-3.0-or-later

// The line menu of the client window's grids, opened and used by keyboard alone.

#include "clients/clientfixture.h"

#include "platform/window/flexgrid.h"
#include "platform/window/tabpages.h"
#include "shell/globalsat.h"

#include <QMenu>

#include <optional>

using namespace Qt::StringLiterals;
using testsupport::ClientFixture;

namespace {

/// One of the grids with a line menu.
struct MenuGrid
{
    QString name;
    int page;
    QString keys; ///< query of what its table holds
    QStringList before;
    QString gone; ///< key of its second line
};

const QList<MenuGrid> kGrids{
    {u"vsFlexGrid4"_s,
     0,
     u"SELECT TELETELEFONO FROM TELEFON ORDER BY TELETELEFONO"_s,
     {u"911"_s, u"912"_s, u"913"_s},
     u"912"_s},
    {u"vsFlexGrid1"_s,
     1,
     u"SELECT CLIENVIDIRECCION FROM CLIDIRENVIOS ORDER BY CLIENVIDIRECCION"_s,
     {u"Mayor"_s, u"Norte"_s, u"Sur"_s},
     u"Norte"_s},
    {u"vsFlexGrid2"_s,
     1,
     u"SELECT CLIBANCOSCUENTA FROM CLIBANCOSDISP ORDER BY CLIBANCOSCUENTA"_s,
     {u"111"_s, u"222"_s, u"333"_s},
     u"222"_s},
    {u"vsFlexGrid3"_s,
     2,
     u"SELECT clientescycarticulo FROM clientescyctabla ORDER BY clientescycarticulo"_s,
     {u"A1"_s, u"A2"_s, u"A3"_s},
     u"A2"_s},
};

} // namespace

class LineMenuKeysTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        f.emplace();
        f->addClient(u"C1"_s, u"UNO"_s);
        for (const QString& address : {u"Mayor"_s, u"Norte"_s, u"Sur"_s})
            f->addShipping(u"C1"_s, address, u"0"_s);
        for (const QString& account : {u"111"_s, u"222"_s, u"333"_s})
            f->addBank(u"C1"_s, account);
        for (const QString& telephone : {u"911"_s, u"912"_s, u"913"_s})
            f->addTelephone(u"C1"_s, telephone);
        for (const double line : {1, 2, 3})
            f->addConcept(u"C1"_s, u"A%1"_s.arg(line), line);
        f->open();
        f->enterCode(u"C1"_s);
        QTRY_COMPARE(f->focused(), u"Text51"_s);
        f->press(Qt::Key_Tab);
    }
    void cleanup() { f.reset(); }

    void lineUnderTheCursorIsDeletedByKeyboard_data();
    void lineUnderTheCursorIsDeletedByKeyboard();
    void keysSetTheFlagsOfTheRightPress_data();
    void keysSetTheFlagsOfTheRightPress();
    void cancelAndEscDeleteNothing_data();
    void cancelAndEscDeleteNothing();
    void oneEnterDeletesNothing();
    void focusComesBackToTheGrid();
    void menuStandsBelowTheCurrentCell_data();
    void menuStandsBelowTheCurrentCell();
    void headingUnderTheCursorDeletesNothing();
    void openEditorKeepsItsOwnMenuAndTheLine_data();
    void openEditorKeepsItsOwnMenuAndTheLine();
    void gridOfTheConsultationHasNoMenu();

private:
    /// By keyboard to a cell of a grid: Ctrl+Tab to its page, Tab to the grid, arrows to the cell.
    void goTo(const MenuGrid& grid, int row, int col);
    std::optional<ClientFixture> f;
};

void LineMenuKeysTest::goTo(const MenuGrid& grid, int row, int col)
{
    while (f->tab() != grid.page)
        f->press(Qt::Key_Tab, Qt::ControlModifier);
    QVERIFY(f->walkTo(grid.name));
    const platform::FlexGrid* cells = f->grid(grid.name);
    while (cells->row() != row)
        f->press(cells->row() < row ? Qt::Key_Down : Qt::Key_Up);
    while (cells->col() != col)
        f->press(cells->col() < col ? Qt::Key_Right : Qt::Key_Left);
}

void LineMenuKeysTest::lineUnderTheCursorIsDeletedByKeyboard_data()
{
    QTest::addColumn<int>("grid");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QList<Qt::Key>>("inMenu");

    const QList<Qt::Key> byArrow{Qt::Key_Down, Qt::Key_Return};
    for (int grid = 0; grid < kGrids.size(); ++grid) {
        const QByteArray name = kGrids.at(grid).name.toLatin1();
        QTest::addRow("%s, Menu and the arrow", name.constData())
            << grid << int(Qt::Key_Menu) << int(Qt::NoModifier) << byArrow;
        QTest::addRow("%s, Shift+F10 and the letter", name.constData())
            << grid << int(Qt::Key_F10) << int(Qt::ShiftModifier) << QList<Qt::Key>{Qt::Key_E};
    }
}

void LineMenuKeysTest::lineUnderTheCursorIsDeletedByKeyboard()
{
    QFETCH(const int, grid);
    QFETCH(const int, key);
    QFETCH(const int, modifiers);
    QFETCH(const QList<Qt::Key>, inMenu);
    const MenuGrid& lines = kGrids.at(grid);
    QStringList left = lines.before;
    left.removeOne(lines.gone);
    goTo(lines, 2, 1);

    QVERIFY(f->pressLineMenu(Qt::Key(key), Qt::KeyboardModifiers(modifiers), inMenu));

    for (const MenuGrid& other : kGrids) {
        const auto& store = other.page == 0 ? BDTELEFONOS : BDCLIENTES;
        QCOMPARE(ClientFixture::rows(store, other.keys), other.name == lines.name ? left : other.before);
    }
    QCOMPARE(f->line(lines.name, 2).join(QString()), QString());
    QCOMPARE(f->grid(lines.name)->row(), 2);
    QVERIFY(f->messages.isEmpty());
}

void LineMenuKeysTest::keysSetTheFlagsOfTheRightPress_data()
{
    QTest::addColumn<int>("grid");
    QTest::addColumn<int>("LINEAENVIOS");
    QTest::addColumn<int>("LINEABANCOS");

    QTest::newRow("telephones leave them") << 0 << 7 << 8;
    QTest::newRow("shipping addresses") << 1 << 1 << 0;
    QTest::newRow("bank accounts") << 2 << 0 << 1;
    QTest::newRow("concepts leave them") << 3 << 7 << 8;
}

void LineMenuKeysTest::keysSetTheFlagsOfTheRightPress()
{
    QFETCH(const int, grid);
    QFETCH(const int, LINEAENVIOS);
    QFETCH(const int, LINEABANCOS);
    goTo(kGrids.at(grid), 1, 0);
    f->window().LINEAENVIOS = 7;
    f->window().LINEABANCOS = 8;

    QVERIFY(f->pressLineMenu(Qt::Key_Menu, Qt::NoModifier, {Qt::Key_C}));

    QCOMPARE(f->window().LINEAENVIOS, LINEAENVIOS);
    QCOMPARE(f->window().LINEABANCOS, LINEABANCOS);
}

void LineMenuKeysTest::cancelAndEscDeleteNothing_data()
{
    QTest::addColumn<int>("grid");
    QTest::addColumn<int>("key");

    for (int grid = 0; grid < kGrids.size(); ++grid) {
        const QByteArray name = kGrids.at(grid).name.toLatin1();
        QTest::addRow("%s, Cancelar", name.constData()) << grid << int(Qt::Key_C);
        QTest::addRow("%s, Esc", name.constData()) << grid << int(Qt::Key_Escape);
    }
}

void LineMenuKeysTest::cancelAndEscDeleteNothing()
{
    QFETCH(const int, grid);
    QFETCH(const int, key);
    const MenuGrid& lines = kGrids.at(grid);
    goTo(lines, 2, 0);

    QVERIFY(f->pressLineMenu(Qt::Key_Menu, Qt::NoModifier, {Qt::Key(key)}));

    QCOMPARE(ClientFixture::rows(lines.page == 0 ? BDTELEFONOS : BDCLIENTES, lines.keys), lines.before);
    QCOMPARE(f->cell(lines.name, 2, lines.name == u"vsFlexGrid2" ? 4 : 0), lines.gone);
}

void LineMenuKeysTest::oneEnterDeletesNothing()
{
    const MenuGrid& telephones = kGrids.first();
    goTo(telephones, 2, 0);

    QVERIFY(f->pressLineMenu(Qt::Key_Menu, Qt::NoModifier, {Qt::Key_Return}));

    QCOMPARE(ClientFixture::rows(BDTELEFONOS, telephones.keys), telephones.before);
}

void LineMenuKeysTest::focusComesBackToTheGrid()
{
    goTo(kGrids.at(1), 2, 0);

    QVERIFY(f->pressLineMenu(Qt::Key_F10, Qt::ShiftModifier, {Qt::Key_E}));

    QCOMPARE(f->stop(), u"vsFlexGrid1"_s);
    f->press(Qt::Key_Down);
    QCOMPARE(f->grid(u"vsFlexGrid1"_s)->row(), 3);
}

void LineMenuKeysTest::menuStandsBelowTheCurrentCell_data()
{
    QTest::addColumn<int>("grid");

    for (int grid = 0; grid < kGrids.size(); ++grid)
        QTest::addRow("%s", qPrintable(kGrids.at(grid).name)) << grid;
}

void LineMenuKeysTest::menuStandsBelowTheCurrentCell()
{
    QFETCH(const int, grid);
    goTo(kGrids.at(grid), 2, 1);
    const platform::FlexGrid* cells = f->grid(kGrids.at(grid).name);
    const QRect cell = cells->visualRect(cells->model()->index(1, 1));
    auto* menu = f->control<QMenu>(u"menucli"_s);
    QPoint place;
    connect(menu, &QMenu::aboutToShow, this,
            [&] { QTimer::singleShot(0, this, [&] { place = menu->pos(); }); });

    QVERIFY(f->pressLineMenu(Qt::Key_Menu, Qt::NoModifier, {}));

    QTRY_COMPARE(place, cells->viewport()->mapToGlobal(cell.bottomLeft() + QPoint(0, 1)));
}

void LineMenuKeysTest::headingUnderTheCursorDeletesNothing()
{
    const MenuGrid& telephones = kGrids.first();
    goTo(telephones, 1, 0);
    f->grid(telephones.name)->setRow(0);

    QVERIFY(f->pressLineMenu(Qt::Key_Menu, Qt::NoModifier, {Qt::Key_E}));

    QCOMPARE(ClientFixture::rows(BDTELEFONOS, telephones.keys), telephones.before);
}

void LineMenuKeysTest::openEditorKeepsItsOwnMenuAndTheLine_data()
{
    menuStandsBelowTheCurrentCell_data();
}

void LineMenuKeysTest::openEditorKeepsItsOwnMenuAndTheLine()
{
    QFETCH(const int, grid);
    const MenuGrid& lines = kGrids.at(grid);
    goTo(lines, 2, 1);
    f->window().LINEAENVIOS = 7;
    f->press(Qt::Key_F2);
    const QWidget* editor = QApplication::focusWidget();
    QVERIFY(editor->inherits("QLineEdit"));
    bool lineMenuCame = false;
    connect(f->control<QMenu>(u"menucli"_s), &QMenu::aboutToShow, this, [&] { lineMenuCame = true; });

    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F10, Qt::ShiftModifier);

    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QVERIFY(menu);
    QCOMPARE(menu->parentWidget(), editor);
    menu->close();
    QVERIFY(!lineMenuCame);
    QCOMPARE(f->window().LINEAENVIOS, 7);
    QCOMPARE(ClientFixture::rows(lines.page == 0 ? BDTELEFONOS : BDCLIENTES, lines.keys), lines.before);
}

void LineMenuKeysTest::gridOfTheConsultationHasNoMenu()
{
    while (f->tab() != 3)
        f->press(Qt::Key_Tab, Qt::ControlModifier);
    QVERIFY(f->walkTo(u"vsFlexGrid6"_s));

    QVERIFY(!f->pressLineMenu(Qt::Key_Menu, Qt::NoModifier, {}));
}

QTEST_MAIN(LineMenuKeysTest)
#include "tst_linemenukeys.moc"
