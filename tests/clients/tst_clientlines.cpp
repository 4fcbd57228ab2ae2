// SPDX-License-Identifier: GPL-3.0-or-later
#include "clients/clientfixture.h"

#include "assistance/consultaspage.h"
#include "platform/window/combolist.h"
#include "platform/window/flexgrid.h"
#include "platform/window/tabpages.h"
#include "platform/window/textbox.h"
#include "shell/globalsat.h"

#include <optional>

using namespace Qt::StringLiterals;
using platform::Null;
using testsupport::ClientFixture;

class ClientLinesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { f.emplace(); }
    void cleanup() { f.reset(); }

    void linesOfOtherClientsStayOut();
    void linesStandInIndexOrderFromLineOne();
    void shippingCellsAreTrimmed();
    void addressWithALeadingBlankIsSkippedAndTheWalkGoesOn();
    void codeOfALineIsComparedExactly();
    void storedTickShowsInTheCell_data();
    void storedTickShowsInTheCell();
    void bankLinesComeWithEveryColumn();
    void linesBeyondTheGridAreWrittenOverTheLastOne();
    void telephonesOfAnotherCompanyStayOut();
    void telephonesAreSoughtWithTheUntrimmedCompany();
    void telephoneCellsAreTrimmed();
    void fewerLinesLeaveTheOldOnesWhenTheWindowWasNotEmptied();
    void cursorOfAGridStandsOnTheLastLineWritten();

private:
    std::optional<ClientFixture> f;
};

void ClientLinesTest::linesOfOtherClientsStayOut()
{
    f->addClient(u"0000000002"_s);
    f->addShipping(u"0000000001"_s, u"Calle de uno"_s);
    f->addShipping(u"0000000002"_s, u"Calle de dos"_s);
    f->addShipping(u"0000000003"_s, u"Calle de tres"_s);
    f->addBank(u"0000000001"_s, u"111"_s);
    f->addBank(u"0000000002"_s, u"222"_s);
    f->open();

    f->enterCode(u"2"_s);

    QCOMPARE(f->cell(u"vsFlexGrid1"_s, 1, 0), u"Calle de dos"_s);
    QCOMPARE(f->cell(u"vsFlexGrid1"_s, 2, 0), QString());
    QCOMPARE(f->cell(u"vsFlexGrid2"_s, 1, 4), u"222"_s);
    QCOMPARE(f->cell(u"vsFlexGrid2"_s, 2, 4), QString());
}

void ClientLinesTest::linesStandInIndexOrderFromLineOne()
{
    f->addClient(u"C1"_s);
    for (const QString& address : {u"Chopo"_s, u"Cruz"_s, u"Dos"_s, u"Avenida"_s})
        f->addShipping(u"C1"_s, address);
    f->open();

    f->enterCode(u"C1"_s);

    QCOMPARE(f->cell(u"vsFlexGrid1"_s, 1, 0), u"Avenida"_s);
    QCOMPARE(f->cell(u"vsFlexGrid1"_s, 2, 0), u"Cruz"_s); // ch follows c in the store's order
    QCOMPARE(f->cell(u"vsFlexGrid1"_s, 3, 0), u"Chopo"_s);
    QCOMPARE(f->cell(u"vsFlexGrid1"_s, 4, 0), u"Dos"_s);
}

void ClientLinesTest::shippingCellsAreTrimmed()
{
    f->addClient(u"C1"_s);
    f->add(BDCLIENTES, u"CLIDIRENVIOS"_s,
           {{u"CLIENVICODIGO", u"C1"_s},
            {u"CLIENVIDIRECCION", u"Mayor 3  "_s},
            {u"CLIENVICPOSTAL", u" 280 "_s},
            {u"CLIENVILOCALIDAD", u" Madrid "_s},
            {u"CLIENVIPORTES", u"Debidos"_s},
            {u"CLIENVITRANSPORTISTA", u"  Seur"_s},
            {u"CLIENVIACTIVA", u"1"_s}});
    f->open();

    f->enterCode(u"C1"_s);

    QCOMPARE(f->line(u"vsFlexGrid1"_s, 1),
             QStringList({u"Mayor 3"_s, u"280"_s, u"Madrid"_s, u"Debidos"_s, u"Seur"_s, u"1"_s}));
}

void ClientLinesTest::addressWithALeadingBlankIsSkippedAndTheWalkGoesOn()
{
    f->addClient(u"C1"_s);
    f->addShipping(u"C1"_s, u"  Anterior"_s);
    f->addShipping(u"C1"_s, u"Mayor"_s);
    f->addShipping(u"C1"_s, u"Norte"_s);
    f->open();

    f->enterCode(u"C1"_s);

    QCOMPARE(f->cell(u"vsFlexGrid1"_s, 1, 0), u"Mayor"_s);
    QCOMPARE(f->cell(u"vsFlexGrid1"_s, 2, 0), u"Norte"_s);
    QCOMPARE(f->cell(u"vsFlexGrid1"_s, 3, 0), QString());
}

void ClientLinesTest::codeOfALineIsComparedExactly()
{
    f->addClient(u"A1"_s);
    f->addShipping(u"A1 "_s, u"Con blanco"_s);
    f->addShipping(u"a1"_s, u"Minúscula"_s);
    f->addShipping(u"A1"_s, u"Suya"_s);
    f->open();

    f->enterCode(u"A1"_s);

    QCOMPARE(f->cell(u"vsFlexGrid1"_s, 1, 0), u"Suya"_s);
    QCOMPARE(f->cell(u"vsFlexGrid1"_s, 2, 0), QString());
}

void ClientLinesTest::storedTickShowsInTheCell_data()
{
    QTest::addColumn<bool>("isNull");
    QTest::addColumn<QString>("stored");
    QTest::addColumn<bool>("ticked");

    QTest::newRow("1 ticks") << false << u"1"_s << true;
    QTest::newRow("0 doesn't") << false << u"0"_s << false;
    QTest::newRow("the empty text doesn't") << false << u""_s << false;
    QTest::newRow("another digit doesn't") << false << u"2"_s << false;
    QTest::newRow("a letter doesn't") << false << u"S"_s << false;
    QTest::newRow("Null ticks, since the test fails") << true << u""_s << true;
}

void ClientLinesTest::storedTickShowsInTheCell()
{
    QFETCH(const bool, isNull);
    QFETCH(const QString, stored);
    QFETCH(const bool, ticked);
    f->addClient(u"C1"_s);
    f->addShipping(u"C1"_s, u"Mayor"_s, isNull ? platform::Value(Null{}) : platform::Value(stored));
    f->open();

    f->enterCode(u"C1"_s);

    QCOMPARE(f->grid(u"vsFlexGrid1"_s)->isTickedAt(1, 5), ticked);
}

void ClientLinesTest::bankLinesComeWithEveryColumn()
{
    f->addClient(u"C1"_s);
    f->add(BDCLIENTES, u"CLIBANCOSDISP"_s,
           {{u"CLIBANCOSCODIGO", u"C1"_s},
            {u"CLIBANCOSBANCO", u" Banco de Castilla "_s},
            {u"CLIBANCOSENTIDAD", u"0082"_s},
            {u"CLIBANCOSSUCURSAL", u"12"_s},
            {u"CLIBANCOSDIGITO", u"07"_s},
            {u"CLIBANCOSCUENTA", u"1234567890"_s},
            {u"CLIBANCOSCONTABLE", 572000.5},
            {u"CLIBANCOSACTIVA", u"1"_s}});
    f->open();

    f->enterCode(u"C1"_s);

    QCOMPARE(f->line(u"vsFlexGrid2"_s, 1), QStringList({u"Banco de Castilla"_s, u"0082"_s, u"12"_s, u"07"_s,
                                                        u"1234567890"_s, u"572000,5"_s, u"1"_s}));
}

void ClientLinesTest::linesBeyondTheGridAreWrittenOverTheLastOne()
{
    f->addClient(u"C1"_s);
    for (int number = 1; number <= 17; ++number)
        f->addShipping(u"C1"_s, u"Calle %1"_s.arg(number, 2, 10, QLatin1Char('0')));
    for (int number = 1; number <= 51; ++number)
        f->addTelephone(u"C1"_s, u"91%1"_s.arg(number, 4, 10, QLatin1Char('0')));
    f->open();

    f->enterCode(u"C1"_s);

    QCOMPARE(f->cell(u"vsFlexGrid1"_s, 13, 0), u"Calle 13"_s);
    QCOMPARE(f->cell(u"vsFlexGrid1"_s, 14, 0), u"Calle 17"_s);
    QCOMPARE(f->cell(u"vsFlexGrid4"_s, 48, 0), u"910048"_s);
    QCOMPARE(f->cell(u"vsFlexGrid4"_s, 49, 0), u"910051"_s);
}

void ClientLinesTest::telephonesOfAnotherCompanyStayOut()
{
    f->addClient(u"C1"_s);
    f->addTelephone(u"C1"_s, u"911111111"_s, u"00001"_s);
    f->addTelephone(u"C1"_s, u"922222222"_s);
    f->addTelephone(u"C2"_s, u"933333333"_s);
    f->open();

    f->enterCode(u"C1"_s);

    QCOMPARE(f->cell(u"vsFlexGrid4"_s, 1, 0), u"922222222"_s);
    QCOMPARE(f->cell(u"vsFlexGrid4"_s, 2, 0), QString());
}

void ClientLinesTest::telephonesAreSoughtWithTheUntrimmedCompany()
{
    NUMEMPRESA = u"12   "_s;
    f->addClient(u"C1"_s);
    f->addTelephone(u"C1"_s, u"922222222"_s, u"12"_s);
    f->open();

    f->enterCode(u"C1"_s);

    // Blanks at the end don't count in the store's comparison.
    QCOMPARE(f->cell(u"vsFlexGrid4"_s, 1, 0), u"922222222"_s);
}

void ClientLinesTest::telephoneCellsAreTrimmed()
{
    f->addClient(u"C1"_s);
    f->add(BDTELEFONOS, u"TELEFON"_s,
           {{u"TELECODIGOEMPRESA", u"00012"_s},
            {u"TELECODIGO", u"C1"_s},
            {u"TELETELEFONO", u" 911 "_s},
            {u"TELEEXTENSION", u" 12"_s},
            {u"TELEFAX", u"01 Voz "_s},
            {u"TELECONTACTO", u" Marta "_s}});
    f->open();

    f->enterCode(u"C1"_s);

    QCOMPARE(f->line(u"vsFlexGrid4"_s, 1), QStringList({u"911"_s, u"12"_s, u"01 Voz"_s, u"Marta"_s}));
}

void ClientLinesTest::fewerLinesLeaveTheOldOnesWhenTheWindowWasNotEmptied()
{
    f->addClient(u"C1"_s);
    f->addShipping(u"C1"_s, u"Uno"_s);
    f->addShipping(u"C1"_s, u"Zeta"_s);
    f->addClient(u"C2"_s);
    f->addShipping(u"C2"_s, u"Sola"_s);
    f->open();
    f->enterCode(u"C1"_s);

    f->box(u"Text49"_s)->setText(u"C2"_s);
    f->window().LeerClientes();

    QCOMPARE(f->cell(u"vsFlexGrid1"_s, 1, 0), u"Sola"_s);
    QCOMPARE(f->cell(u"vsFlexGrid1"_s, 2, 0), u"Zeta"_s);
}

void ClientLinesTest::cursorOfAGridStandsOnTheLastLineWritten()
{
    f->addClient(u"C1"_s);
    for (const QString& telephone : {u"911"_s, u"912"_s, u"913"_s})
        f->addTelephone(u"C1"_s, telephone);
    f->addConcept(u"C1"_s, u"ART1"_s, 1);
    f->addConcept(u"C1"_s, u"ART2"_s, 2);
    f->open();

    f->enterCode(u"C1"_s);

    QCOMPARE(f->grid(u"vsFlexGrid4"_s)->row(), 3);
    QCOMPARE(f->grid(u"vsFlexGrid3"_s)->row(), 2);
}

QTEST_MAIN(ClientLinesTest)
#include "tst_clientlines.moc"
