// SPDX-License-Identifier: GPL-3.0-or-later
#include "clients/clientfixture.h"

#include "assistance/consultaspage.h"
#include "platform/window/flexgrid.h"
#include "platform/window/imagelabel.h"
#include "platform/window/tabpages.h"
#include "platform/window/textbox.h"
#include "shell/globalsat.h"

#include <QAbstractButton>

#include <optional>

using namespace Qt::StringLiterals;
using testsupport::ClientFixture;

class ClientStatesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        f.emplace();
        f->addClient(u"0000000001"_s, u"UNO"_s);
        f->addShipping(u"0000000001"_s, u"Mayor"_s);
        f->addTelephone(u"0000000001"_s, u"911"_s);
    }
    void cleanup() { f.reset(); }

    void codeFoundShowsTheClient();
    void codeNotFoundStartsANewClient();
    void goingBackToTheCodeEmptiesTheWindow();
    void goingBackToTheCodeAfterALookupKeepsTheClient();
    void stepThatClearsTheLookupsResultMakesTheNextReturnEmpty();
    void emptyingKeepsTheTelephoneSoughtAndTheGeographicOrder();
    void emptyingEmptiesEveryGridAndKeepsItsRows();
    void emptyingScrollsTheGridsBack();
    void emptyingEndsOnTheFirstPageWithTheFocusOnTheCode();
    void fieldBeingTypedIsLeftBeforeASideBarCommandRuns();
    void openCellIsTakenBeforeASave();
    void switchingToAnotherWindowAndBackRunsNoRule();
    void changingThePageByCodeRunsNoRule();

private:
    std::optional<ClientFixture> f;
};

void ClientStatesTest::codeFoundShowsTheClient()
{
    f->open();
    f->type(u"Text49"_s, u"1"_s);

    f->click(u"Text8"_s);

    QCOMPARE(f->text(u"Text49"_s), u"0000000001"_s);
    QCOMPARE(f->text(u"Text51"_s), u"UNO"_s);
    QCOMPARE(f->cell(u"vsFlexGrid4"_s, 1, 0), u"911"_s);
}

void ClientStatesTest::codeNotFoundStartsANewClient()
{
    f->open();
    f->type(u"Text49"_s, u"55"_s);

    f->click(u"Text51"_s);

    QCOMPARE(f->text(u"Text49"_s), u"0000000055"_s);
    QCOMPARE(f->text(u"Text51"_s), QString());
    QCOMPARE(f->focused(), u"Text51"_s);
}

void ClientStatesTest::goingBackToTheCodeEmptiesTheWindow()
{
    f->open();
    f->enterCode(u"1"_s);
    f->click(u"Text8"_s);
    QCOMPARE(f->text(u"Text51"_s), u"UNO"_s);

    f->click(u"Text49"_s);

    QCOMPARE(f->text(u"Text51"_s), QString());
    QCOMPARE(f->text(u"Text49"_s), QString());
    QVERIFY(f->messages.isEmpty());
}

void ClientStatesTest::goingBackToTheCodeAfterALookupKeepsTheClient()
{
    f->open();
    f->answerLookup(u"0000000001"_s);
    f->click(u"Picture3"_s);
    f->click(u"Text8"_s);

    f->click(u"Text49"_s);

    QCOMPARE(f->text(u"Text51"_s), u"UNO"_s);
    QCOMPARE(f->text(u"Text49"_s), u"0000000001"_s);
}

void ClientStatesTest::stepThatClearsTheLookupsResultMakesTheNextReturnEmpty()
{
    f->open();
    f->answerLookup(u"0000000001"_s);
    f->click(u"Picture3"_s);
    f->click(u"Text20"_s);
    f->click(u"Text8"_s);

    f->click(u"Text49"_s);

    QCOMPARE(f->text(u"Text51"_s), QString());
}

void ClientStatesTest::emptyingKeepsTheTelephoneSoughtAndTheGeographicOrder()
{
    f->open();
    for (const QString& name : {u"Text14"_s, u"Text33"_s, u"Text34"_s})
        f->box(name)->setText(u"9"_s);

    f->window().limpiaclientes();

    for (const QString& name : {u"Text14"_s, u"Text33"_s, u"Text34"_s})
        QCOMPARE(f->text(name), u"9"_s);
}

void ClientStatesTest::emptyingEmptiesEveryGridAndKeepsItsRows()
{
    f->open();
    const QStringList grids{u"vsFlexGrid1"_s, u"vsFlexGrid2"_s, u"vsFlexGrid3"_s, u"vsFlexGrid4"_s};
    const QList<int> rows{15, 15, 50, 50};
    for (const QString& name : grids)
        f->grid(name)->setRangeText(u"1"_s);

    f->window().limpiaclientes();

    for (int i = 0; i < grids.size(); ++i) {
        const platform::FlexGrid* grid = f->grid(grids.at(i));
        QCOMPARE(grid->rows(), rows.at(i));
        QVERIFY(!grid->heading(0).isEmpty());
        for (int row = 1; row < grid->rows(); ++row)
            QCOMPARE(f->line(grids.at(i), row).join(QString()), QString());
    }
}

void ClientStatesTest::emptyingScrollsTheGridsBack()
{
    f->open();
    f->grid(u"vsFlexGrid4"_s)->setTopRow(20);

    f->window().limpiaclientes();

    QCOMPARE(f->grid(u"vsFlexGrid4"_s)->topRow(), 1);
}

void ClientStatesTest::emptyingEndsOnTheFirstPageWithTheFocusOnTheCode()
{
    f->open();
    f->click(u"Text60"_s);
    QCOMPARE(f->tab(), 2);

    f->window().limpiaclientes();

    QCOMPARE(f->tab(), 0);
    QCOMPARE(f->focused(), u"Text49"_s);
    QCOMPARE(f->grid(u"vsFlexGrid4"_s)->row(), 0);
}

void ClientStatesTest::fieldBeingTypedIsLeftBeforeASideBarCommandRuns()
{
    f->open();
    f->type(u"Text49"_s, u"8"_s);
    f->type(u"Text51"_s, u"OCHO"_s);
    f->type(u"Text20"_s, u"5"_s);

    f->clickItem(u"GRABAR"_s);

    QCOMPARE(
        f->rows(BDCLIENTES, u"SELECT RepresentanteCodigo FROM ClientesTabla WHERE CliCodigo='0000000008'"_s),
        QStringList(u"0005"_s));
}

void ClientStatesTest::openCellIsTakenBeforeASave()
{
    f->open();
    f->enterCode(u"1"_s);
    f->clickCell(u"vsFlexGrid1"_s, 2, 0);
    QTest::keyClicks(f->grid(u"vsFlexGrid1"_s), u"N"_s);
    QVERIFY(f->grid(u"vsFlexGrid1"_s)->isEditing());

    f->clickItem(u"GRABAR"_s);

    QCOMPARE(f->rows(BDCLIENTES, u"SELECT CLIENVIDIRECCION FROM CLIDIRENVIOS ORDER BY CLIENVIDIRECCION"_s),
             QStringList({u"Mayor"_s, u"N"_s}));
}

void ClientStatesTest::switchingToAnotherWindowAndBackRunsNoRule()
{
    f->open();
    f->type(u"Text49"_s, u"C1"_s);
    f->box(u"Text51"_s)->setText(u"TYPED"_s);

    QWidget other;
    other.show();
    other.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    f->activate();

    QCOMPARE(f->focused(), u"Text49"_s);
    QCOMPARE(f->text(u"Text51"_s), u"TYPED"_s);
}

void ClientStatesTest::changingThePageByCodeRunsNoRule()
{
    f->open();
    f->box(u"Text49"_s)->setText(u"C1"_s);
    f->box(u"Text25"_s)->setText(u"ZONA"_s);
    f->click(u"Text21"_s);

    f->control<platform::TabPages>(u"SSTab1"_s)->setTab(2);

    QCOMPARE(f->text(u"Text25"_s), u"ZONA"_s);
}

QTEST_MAIN(ClientStatesTest)
#include "tst_clientstates.moc"
