// SPDX-License-Identifier: GPL-3.0-or-later
#include "clients/clientfixture.h"

#include "platform/window/flexgrid.h"
#include "platform/window/tabpages.h"
#include "platform/window/textbox.h"
#include "shell/globalsat.h"

#include <QLineEdit>
#include <QMenu>

#include <optional>

using namespace Qt::StringLiterals;
using testsupport::ClientFixture;

class LineGridsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        f.emplace();
        f->addClient(u"C1"_s, u"UNO"_s);
        f->addShipping(u"C1"_s, u"Mayor"_s, u"1"_s);
        f->addShipping(u"C1"_s, u"Norte"_s, u"0"_s);
        f->addShipping(u"C1"_s, u"Sur"_s, u"0"_s);
        f->addBank(u"C1"_s, u"111"_s);
        f->addBank(u"C1"_s, u"222"_s);
        f->addTelephone(u"C1"_s, u"911"_s);
        f->addTelephone(u"C1"_s, u"912"_s);
        f->open();
        f->enterCode(u"C1"_s);
    }
    void cleanup() { f.reset(); }

    void gridsHaveTheirHeadingsAndSizes_data();
    void gridsHaveTheirHeadingsAndSizes();
    void listsOfferTheirItems();
    void typingIsCutAtTheLimitOfTheColumn();
    void limitOfAColumnWithoutOneIsTheLastEdits();
    void tickingALineUnticksTheOthers();
    void untickingTheTickedLineLeavesNone();
    void tickOfABankLineIsTheOnlyOne();
    void tickReachesTheStoreAtTheSave();
    void postalButtonShowsTheLookupAndChangesNothing();
    void pressInAGridClearsBothFlags_data();
    void pressInAGridClearsBothFlags();
    void rightPressSetsTheFlagOfItsGrid();
    void rightPressDoesNotMoveTheCursor();
    void cancelDeletesNothing();
    void telephoneUnderTheCursorIsDeletedAtOnce();
    void addressUnderTheCursorIsDeletedAtOnce();
    void accountUnderTheCursorIsDeletedAtOnce();
    void deletedLineLeavesAnEmptyRowInPlace();
    void editedKeyThatIsNotSavedDeletesNothing();
    void emptyLineDeletesNothing();
    void headingUnderTheCursorDeletesNothing();
    void pageDecidesWhatIsDeleted();
    void consultationsPageDeletesNothing();
    void bothFlagsDeleteInBothGrids();
    void lineOfTheTickDeletedLeavesNoTick();
    void deletedLineIsGoneAlthoughTheWindowIsLeft();
    void deleteThatTheStoreRefusesEmptiesTheRowUntilTheNextRead();
    void telephoneOfAnotherCompanyIsNotDeleted();

private:
    QStringList addresses() const
    {
        return ClientFixture::rows(BDCLIENTES,
                                   u"SELECT CLIENVIDIRECCION FROM CLIDIRENVIOS ORDER BY CLIENVIDIRECCION"_s);
    }
    QStringList accounts() const
    {
        return ClientFixture::rows(BDCLIENTES,
                                   u"SELECT CLIBANCOSCUENTA FROM CLIBANCOSDISP ORDER BY CLIBANCOSCUENTA"_s);
    }
    QStringList telephones() const
    {
        return ClientFixture::rows(BDTELEFONOS, u"SELECT TELETELEFONO FROM TELEFON ORDER BY TELETELEFONO"_s);
    }

    std::optional<ClientFixture> f;
};

void LineGridsTest::gridsHaveTheirHeadingsAndSizes_data()
{
    QTest::addColumn<QString>("grid");
    QTest::addColumn<int>("rows");
    QTest::addColumn<QStringList>("headings");
    QTest::addColumn<QList<int>>("widths");

    QTest::newRow("shipping") << u"vsFlexGrid1"_s << 15
                              << QStringList{u"Dirección"_s, u"C. Postal"_s,     u"Localidad"_s,
                                             u"Portes"_s,    u"Transportista"_s, u"Pred."_s}
                              << QList<int>{2175, 765, 2055, 780, 1500, 100};
    QTest::newRow("banks") << u"vsFlexGrid2"_s << 15
                           << QStringList{u"Banco"_s,  u"Entidad"_s,        u"Sucursal"_s, u"D.C."_s,
                                          u"Cuenta"_s, u"Cuenta Contab."_s, u"Pred."_s}
                           << QList<int>{2300, 800, 800, 600, 1300, 1400, 100};
    QTest::newRow("telephones") << u"vsFlexGrid4"_s << 50
                                << QStringList{u"Telefono"_s, u"Extensión"_s, u"Tipo"_s,
                                               u"Pers. de Contacto o Departamento"_s}
                                << QList<int>{1500, 1000, 1200};
}

void LineGridsTest::gridsHaveTheirHeadingsAndSizes()
{
    QFETCH(const QString, grid);
    QFETCH(const int, rows);
    QFETCH(const QStringList, headings);
    QFETCH(const QList<int>, widths);

    QCOMPARE(f->grid(grid)->rows(), rows);
    QCOMPARE(f->line(grid, 0), headings);
    for (int col = 0; col < widths.size(); ++col)
        QCOMPARE(f->grid(grid)->colWidth(col), widths.at(col));
}

void LineGridsTest::listsOfferTheirItems()
{
    const auto items = [&](const QString& grid, int col) {
        QStringList texts;
        for (const platform::CellListItem& item : f->grid(grid)->column(col).list.items)
            texts += item.cellText;
        return texts;
    };

    QCOMPARE(items(u"vsFlexGrid1"_s, 3), QStringList({u"Debidos"_s, u"Pagados"_s}));
    QCOMPARE(items(u"vsFlexGrid4"_s, 2),
             QStringList({u"01 Voz"_s, u"02 Datos"_s, u"03 Fax"_s, u"04 Móvil"_s}));
    QVERIFY(f->grid(u"vsFlexGrid1"_s)->column(1).list.hasButton);
}

void LineGridsTest::typingIsCutAtTheLimitOfTheColumn()
{
    f->typeCell(u"vsFlexGrid4"_s, 3, 1, u"1234567"_s); // Extensión
    f->typeCell(u"vsFlexGrid4"_s, 3, 0, u"12345678901234567"_s);
    f->typeCell(u"vsFlexGrid2"_s, 3, 3, u"123"_s); // D.C.

    QCOMPARE(f->cell(u"vsFlexGrid4"_s, 3, 1), u"12345"_s);
    QCOMPARE(f->cell(u"vsFlexGrid4"_s, 3, 0), u"123456789012345"_s);
    QCOMPARE(f->cell(u"vsFlexGrid2"_s, 3, 3), u"12"_s);
}

void LineGridsTest::limitOfAColumnWithoutOneIsTheLastEdits()
{
    f->typeCell(u"vsFlexGrid2"_s, 3, 1, u"0082"_s); // Entidad: 4

    f->typeCell(u"vsFlexGrid2"_s, 3, 5, u"572000"_s); // Cuenta Contab.: none set

    QCOMPARE(f->cell(u"vsFlexGrid2"_s, 3, 5), u"5720"_s);
}

void LineGridsTest::tickingALineUnticksTheOthers()
{
    f->tickCell(u"vsFlexGrid1"_s, 3, 5);

    const platform::FlexGrid* grid = f->grid(u"vsFlexGrid1"_s);
    QVERIFY(!grid->isTickedAt(1, 5));
    QVERIFY(!grid->isTickedAt(2, 5));
    QVERIFY(grid->isTickedAt(3, 5));
    QCOMPARE(grid->row(), 3);
}

void LineGridsTest::untickingTheTickedLineLeavesNone()
{
    f->tickCell(u"vsFlexGrid1"_s, 1, 5);

    for (int row = 1; row < 15; ++row)
        QVERIFY(!f->grid(u"vsFlexGrid1"_s)->isTickedAt(row, 5));
}

void LineGridsTest::tickOfABankLineIsTheOnlyOne()
{
    f->tickCell(u"vsFlexGrid2"_s, 1, 6);
    f->tickCell(u"vsFlexGrid2"_s, 2, 6);

    QVERIFY(!f->grid(u"vsFlexGrid2"_s)->isTickedAt(1, 6));
    QVERIFY(f->grid(u"vsFlexGrid2"_s)->isTickedAt(2, 6));
}

void LineGridsTest::tickReachesTheStoreAtTheSave()
{
    const QString ticked = u"SELECT CLIENVIDIRECCION FROM CLIDIRENVIOS WHERE CLIENVIACTIVA='1'"_s;
    f->tickCell(u"vsFlexGrid1"_s, 2, 5);
    QCOMPARE(f->rows(BDCLIENTES, ticked), QStringList(u"Mayor"_s));

    f->clickItem(u"GRABAR"_s);

    QCOMPARE(f->rows(BDCLIENTES, ticked), QStringList(u"Norte"_s));
}

void LineGridsTest::postalButtonShowsTheLookupAndChangesNothing()
{
    f->answerLookup(u"28001"_s);
    f->showPage(1);

    Q_EMIT f->grid(u"vsFlexGrid1"_s)->CellButtonClick(1, 1);

    QCOMPARE(f->lookups(), QList<int>{3});
    QCOMPARE(f->pointers(), QList<int>{13});
    QCOMPARE(f->cell(u"vsFlexGrid1"_s, 1, 1), QString());
    QCOMPARE(f->tab(), 1);
}

void LineGridsTest::pressInAGridClearsBothFlags_data()
{
    QTest::addColumn<QString>("grid");

    QTest::newRow("shipping") << u"vsFlexGrid1"_s;
    QTest::newRow("banks") << u"vsFlexGrid2"_s;
}

void LineGridsTest::pressInAGridClearsBothFlags()
{
    QFETCH(const QString, grid);
    f->window().LINEAENVIOS = 1;
    f->window().LINEABANCOS = 1;

    f->clickCell(grid, 1, 0);

    QCOMPARE(f->window().LINEAENVIOS, 0);
    QCOMPARE(f->window().LINEABANCOS, 0);
}

void LineGridsTest::rightPressSetsTheFlagOfItsGrid()
{
    f->chooseInLineMenu(u"vsFlexGrid1"_s, 1, 0, u"cancelar"_s);
    QCOMPARE(f->window().LINEAENVIOS, 1);
    QCOMPARE(f->window().LINEABANCOS, 0);

    f->chooseInLineMenu(u"vsFlexGrid2"_s, 1, 0, u"cancelar"_s);

    QCOMPARE(f->window().LINEAENVIOS, 0);
    QCOMPARE(f->window().LINEABANCOS, 1);
}

void LineGridsTest::rightPressDoesNotMoveTheCursor()
{
    f->clickCell(u"vsFlexGrid4"_s, 1, 0);

    f->chooseInLineMenu(u"vsFlexGrid4"_s, 2, 0, u"eliminar"_s);

    QCOMPARE(f->grid(u"vsFlexGrid4"_s)->row(), 1);
    QCOMPARE(telephones(), QStringList(u"912"_s));
}

void LineGridsTest::cancelDeletesNothing()
{
    f->clickCell(u"vsFlexGrid4"_s, 1, 0);

    f->chooseInLineMenu(u"vsFlexGrid4"_s, 1, 0, u"cancelar"_s);

    QCOMPARE(telephones(), QStringList({u"911"_s, u"912"_s}));
}

void LineGridsTest::telephoneUnderTheCursorIsDeletedAtOnce()
{
    f->clickCell(u"vsFlexGrid4"_s, 2, 3);

    f->chooseInLineMenu(u"vsFlexGrid4"_s, 2, 3, u"eliminar"_s);

    QCOMPARE(telephones(), QStringList(u"911"_s));
    QVERIFY(f->messages.isEmpty());
}

void LineGridsTest::addressUnderTheCursorIsDeletedAtOnce()
{
    f->clickCell(u"vsFlexGrid1"_s, 2, 2);

    f->chooseInLineMenu(u"vsFlexGrid1"_s, 2, 2, u"eliminar"_s);

    QCOMPARE(addresses(), QStringList({u"Mayor"_s, u"Sur"_s}));
    QCOMPARE(accounts(), QStringList({u"111"_s, u"222"_s}));
}

void LineGridsTest::accountUnderTheCursorIsDeletedAtOnce()
{
    f->clickCell(u"vsFlexGrid2"_s, 1, 0);

    f->chooseInLineMenu(u"vsFlexGrid2"_s, 1, 0, u"eliminar"_s);

    QCOMPARE(accounts(), QStringList(u"222"_s));
    QCOMPARE(addresses().size(), 3);
}

void LineGridsTest::deletedLineLeavesAnEmptyRowInPlace()
{
    f->clickCell(u"vsFlexGrid1"_s, 1, 0);

    f->chooseInLineMenu(u"vsFlexGrid1"_s, 1, 0, u"eliminar"_s);

    QCOMPARE(f->line(u"vsFlexGrid1"_s, 1).join(QString()), QString());
    QCOMPARE(f->cell(u"vsFlexGrid1"_s, 2, 0), u"Norte"_s);
    QCOMPARE(f->grid(u"vsFlexGrid1"_s)->rows(), 15);
}

void LineGridsTest::editedKeyThatIsNotSavedDeletesNothing()
{
    f->typeCell(u"vsFlexGrid1"_s, 1, 0, u"Otra"_s);

    f->chooseInLineMenu(u"vsFlexGrid1"_s, 1, 0, u"eliminar"_s);

    QCOMPARE(addresses(), QStringList({u"Mayor"_s, u"Norte"_s, u"Sur"_s}));
    QCOMPARE(f->cell(u"vsFlexGrid1"_s, 1, 0), u"Otra"_s);
}

void LineGridsTest::emptyLineDeletesNothing()
{
    f->clickCell(u"vsFlexGrid4"_s, 9, 0);

    f->chooseInLineMenu(u"vsFlexGrid4"_s, 9, 0, u"eliminar"_s);

    QCOMPARE(telephones().size(), 2);
}

void LineGridsTest::headingUnderTheCursorDeletesNothing()
{
    f->grid(u"vsFlexGrid4"_s)->setRow(0);

    f->chooseInLineMenu(u"vsFlexGrid4"_s, 1, 0, u"eliminar"_s);

    QCOMPARE(telephones().size(), 2);
    QCOMPARE(f->cell(u"vsFlexGrid4"_s, 0, 0), u"Telefono"_s);
}

void LineGridsTest::pageDecidesWhatIsDeleted()
{
    f->clickCell(u"vsFlexGrid1"_s, 1, 0);
    f->clickCell(u"vsFlexGrid4"_s, 1, 0);
    f->window().LINEAENVIOS = 1;

    f->chooseInLineMenu(u"vsFlexGrid4"_s, 1, 0, u"eliminar"_s);

    QCOMPARE(telephones(), QStringList(u"912"_s));
    QCOMPARE(addresses().size(), 3);
}

void LineGridsTest::consultationsPageDeletesNothing()
{
    f->window().LINEAENVIOS = 1;
    f->window().LINEABANCOS = 1;
    f->control<platform::TabPages>(u"SSTab1"_s)->setTab(3);

    f->control<QMenu>(u"menucli"_s)->findChild<QAction*>(u"eliminar"_s)->trigger();

    QCOMPARE(addresses().size() + accounts().size() + telephones().size(), 7);
}

void LineGridsTest::bothFlagsDeleteInBothGrids()
{
    f->clickCell(u"vsFlexGrid1"_s, 1, 0);
    f->clickCell(u"vsFlexGrid2"_s, 1, 0);
    f->window().LINEAENVIOS = 1;
    f->window().LINEABANCOS = 1;

    f->control<QMenu>(u"menucli"_s)->findChild<QAction*>(u"eliminar"_s)->trigger();

    QCOMPARE(addresses(), QStringList({u"Norte"_s, u"Sur"_s}));
    QCOMPARE(accounts(), QStringList(u"222"_s));
}

void LineGridsTest::lineOfTheTickDeletedLeavesNoTick()
{
    f->clickCell(u"vsFlexGrid1"_s, 1, 0);

    f->chooseInLineMenu(u"vsFlexGrid1"_s, 1, 0, u"eliminar"_s);

    for (int row = 1; row < 15; ++row)
        QVERIFY(!f->grid(u"vsFlexGrid1"_s)->isTickedAt(row, 5));
}

void LineGridsTest::deletedLineIsGoneAlthoughTheWindowIsLeft()
{
    f->clickCell(u"vsFlexGrid4"_s, 1, 0);
    f->chooseInLineMenu(u"vsFlexGrid4"_s, 1, 0, u"eliminar"_s);

    f->clickItem(u"SALIR"_s);

    QCOMPARE(telephones(), QStringList(u"912"_s));
}

void LineGridsTest::deleteThatTheStoreRefusesEmptiesTheRowUntilTheNextRead()
{
    f->clickCell(u"vsFlexGrid4"_s, 1, 0);
    // Another station deletes the record between the search and the deletion of this one.
    RSTELEFONOS.Close();

    f->chooseInLineMenu(u"vsFlexGrid4"_s, 1, 0, u"eliminar"_s);
    QCOMPARE(telephones().size(), 2);
    f->window().LeerClientes();

    QCOMPARE(f->cell(u"vsFlexGrid4"_s, 1, 0), u"911"_s);
}

void LineGridsTest::telephoneOfAnotherCompanyIsNotDeleted()
{
    f->addTelephone(u"C1"_s, u"777"_s, u"00001"_s);
    f->typeCell(u"vsFlexGrid4"_s, 5, 0, u"777"_s);

    f->chooseInLineMenu(u"vsFlexGrid4"_s, 5, 0, u"eliminar"_s);

    QCOMPARE(telephones().size(), 3);
    QCOMPARE(f->cell(u"vsFlexGrid4"_s, 5, 0), u"777"_s);
}

QTEST_MAIN(LineGridsTest)
#include "tst_linegrids.moc"
