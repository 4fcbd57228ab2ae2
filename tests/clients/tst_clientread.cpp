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

class ClientReadTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { f.emplace(); }
    void cleanup() { f.reset(); }

    void everyColumnComesIntoItsField();
    void nullColumnKeepsThePreviousText();
    void codeNotInTheStoreLeavesTheFieldsAsTheyStand();
    void codeNotInTheStoreRebuildsTheArticleListFromTheGrid();
    void readingACodeMakesThePagesAKeyboardStop();
    void readingAnEmptyCodeLeavesThePagesOutOfTheKeyboardStops();
    void storedCodeComesBackIntoTheField();
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
    void articleListJoinsCodeAndTrimmedDescription();
    void clientWithoutConceptsHasAnEmptyArticleList();
    void codeWithAnApostropheReadsTheRecordAndItsWalkedLines();
    void fewerLinesLeaveTheOldOnesWhenTheWindowWasNotEmptied();
    void readPreparesAConsultation();
    void cursorOfAGridStandsOnTheLastLineWritten();

private:
    std::optional<ClientFixture> f;
};

void ClientReadTest::everyColumnComesIntoItsField()
{
    struct Pair
    {
        const char16_t* column;
        const char* field;
    };
    constexpr Pair pairs[] = {
        {u"CliNombre", "Text51"},         {u"CliCif", "Text8"},
        {u"CliDireccion", "Text4"},       {u"CliCodPostal", "Text5"},
        {u"CliCodPostalLocali", "Text6"}, {u"CliCodPostalProvin", "Text1"},
        {u"CliCodPostalPais", "Text2"},   {u"CliEMail", "Text7"},
        {u"CliNomComercial", "Text40"},   {u"RepresentanteCodigo", "Text20"},
        {u"RepresentanteDesc", "Text3"},  {u"ZonaCodigo", "Text21"},
        {u"ZonaDesc", "Text25"},          {u"TipoClienteCodigo", "Text27"},
        {u"TipoClienteDesc", "Text26"},   {u"Notas", "Text60"},
    };
    f->add(BDCLIENTES, u"ClientesTabla"_s, {{u"CliCodigo", u"0000000007"_s}, {u"CliPGC", 430123.0}});
    RSCLIENTES.setIndex(u"CliCodigoIndice"_s);
    RSCLIENTES.Seek(u"=", u"0000000007"_s);
    RSCLIENTES.Edit();
    int number = 0;
    for (const Pair& pair : pairs)
        RSCLIENTES[pair.column].setValue(u"v%1"_s.arg(++number));
    RSCLIENTES.Update();
    f->open();

    f->enterCode(u"7"_s);

    number = 0;
    for (const Pair& pair : pairs)
        QCOMPARE(f->text(QLatin1String(pair.field)), u"v%1"_s.arg(++number));
    QCOMPARE(f->text(u"Text49"_s), u"0000000007"_s);
    QCOMPARE(f->text(u"Text9"_s), u"430123"_s);
}

void ClientReadTest::nullColumnKeepsThePreviousText()
{
    f->addClient(u"0000000001"_s, u"UNO"_s);
    f->open();
    f->enterCode(u"1"_s);
    f->box(u"Text7"_s)->setText(u"left over"_s); // E-mail

    f->window().LeerClientes();

    QCOMPARE(f->text(u"Text7"_s), u"left over"_s);
    QCOMPARE(f->text(u"Text51"_s), u"UNO"_s);
}

void ClientReadTest::codeNotInTheStoreLeavesTheFieldsAsTheyStand()
{
    f->open();
    f->box(u"Text49"_s)->setText(u"0000000099"_s);
    f->box(u"Text51"_s)->setText(u"TYPED"_s);
    f->box(u"Text8"_s)->setText(u"B1"_s);

    f->window().LeerClientes();

    QCOMPARE(f->text(u"Text49"_s), u"0000000099"_s);
    QCOMPARE(f->text(u"Text51"_s), u"TYPED"_s);
    QCOMPARE(f->text(u"Text8"_s), u"B1"_s);
}

void ClientReadTest::codeNotInTheStoreRebuildsTheArticleListFromTheGrid()
{
    f->open();
    f->grid(u"vsFlexGrid3"_s)->setTextMatrix(2, 0, u"ART1"_s);
    f->grid(u"vsFlexGrid3"_s)->setTextMatrix(2, 1, u" Contrato  "_s);
    f->box(u"Text49"_s)->setText(u"0000000099"_s);

    f->window().LeerClientes();

    auto* articles = f->control<platform::ComboList>(u"Combo3"_s);
    QCOMPARE(articles->listCount(), 1);
    QCOMPARE(articles->list(0), u"ART1 Contrato"_s);
    QCOMPARE(articles->listIndex(), 0);
}

void ClientReadTest::readingACodeMakesThePagesAKeyboardStop()
{
    f->open();
    QVERIFY(!f->control<platform::TabPages>(u"SSTab1"_s)->isTabStop());

    f->enterCode(u"C1"_s);

    QVERIFY(f->control<platform::TabPages>(u"SSTab1"_s)->isTabStop());
}

void ClientReadTest::readingAnEmptyCodeLeavesThePagesOutOfTheKeyboardStops()
{
    f->open();

    f->window().LeerClientes();

    QVERIFY(!f->control<platform::TabPages>(u"SSTab1"_s)->isTabStop());
}

void ClientReadTest::storedCodeComesBackIntoTheField()
{
    f->addClient(u"Abc"_s, u"LETRAS"_s);
    f->open();

    f->enterCode(u"ABC"_s);

    QCOMPARE(f->text(u"Text49"_s), u"Abc"_s);
    QCOMPARE(f->text(u"Text51"_s), u"LETRAS"_s);
}

void ClientReadTest::linesOfOtherClientsStayOut()
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

void ClientReadTest::linesStandInIndexOrderFromLineOne()
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

void ClientReadTest::shippingCellsAreTrimmed()
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

void ClientReadTest::addressWithALeadingBlankIsSkippedAndTheWalkGoesOn()
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

void ClientReadTest::codeOfALineIsComparedExactly()
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

void ClientReadTest::storedTickShowsInTheCell_data()
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

void ClientReadTest::storedTickShowsInTheCell()
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

void ClientReadTest::bankLinesComeWithEveryColumn()
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

    QCOMPARE(f->line(u"vsFlexGrid2"_s, 1),
             QStringList({u"Banco de Castilla"_s, u"0082"_s, u"12"_s, u"07"_s, u"1234567890"_s, u"572000,5"_s,
                          u"1"_s}));
}

void ClientReadTest::linesBeyondTheGridAreWrittenOverTheLastOne()
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

void ClientReadTest::telephonesOfAnotherCompanyStayOut()
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

void ClientReadTest::telephonesAreSoughtWithTheUntrimmedCompany()
{
    NUMEMPRESA = u"12   "_s;
    f->addClient(u"C1"_s);
    f->addTelephone(u"C1"_s, u"922222222"_s, u"12"_s);
    f->open();

    f->enterCode(u"C1"_s);

    // Blanks at the end don't count in the store's comparison.
    QCOMPARE(f->cell(u"vsFlexGrid4"_s, 1, 0), u"922222222"_s);
}

void ClientReadTest::telephoneCellsAreTrimmed()
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

void ClientReadTest::articleListJoinsCodeAndTrimmedDescription()
{
    f->addClient(u"C1"_s);
    f->addConcept(u"C1"_s, u"ART1"_s, 1, u"Mantenimiento  "_s);
    f->addConcept(u"C1"_s, u"ART2"_s, 2, u"Alquiler"_s);
    f->open();

    f->enterCode(u"C1"_s);

    auto* articles = f->control<platform::ComboList>(u"Combo3"_s);
    QCOMPARE(articles->listCount(), 2);
    QCOMPARE(articles->list(0), u"ART1 Mantenimiento"_s);
    QCOMPARE(articles->list(1), u"ART2 Alquiler"_s);
    QCOMPARE(articles->listIndex(), 0);
}

void ClientReadTest::clientWithoutConceptsHasAnEmptyArticleList()
{
    f->addClient(u"C1"_s);
    f->open();

    f->enterCode(u"C1"_s);

    QCOMPARE(f->control<platform::ComboList>(u"Combo3"_s)->listCount(), 0);
    QCOMPARE(f->control<platform::ComboList>(u"Combo3"_s)->listIndex(), -1);
}

void ClientReadTest::codeWithAnApostropheReadsTheRecordAndItsWalkedLines()
{
    f->addClient(u"O'HARA"_s, u"IRLANDESA"_s);
    f->addShipping(u"O'HARA"_s, u"Mayor"_s);
    f->addTelephone(u"O'HARA"_s, u"911"_s);
    f->addConcept(u"O'HARA"_s, u"ART1"_s, 1);
    f->open();

    f->enterCode(u"O'HARA"_s);

    QCOMPARE(f->text(u"Text51"_s), u"IRLANDESA"_s);
    QCOMPARE(f->cell(u"vsFlexGrid1"_s, 1, 0), u"Mayor"_s);
    QCOMPARE(f->cell(u"vsFlexGrid4"_s, 1, 0), QString());
    QCOMPARE(f->cell(u"vsFlexGrid3"_s, 1, 0), QString());
    QVERIFY(f->messages.isEmpty());
}

void ClientReadTest::fewerLinesLeaveTheOldOnesWhenTheWindowWasNotEmptied()
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

void ClientReadTest::readPreparesAConsultation()
{
    f->addClient(u"C1"_s);
    f->open();
    f->control<ConsultasPage>(u"consultas"_s)->CONSULTALEIDA = 1;

    f->enterCode(u"C1"_s);

    QCOMPARE(f->text(u"Text10"_s), u"0000000001"_s);
    QCOMPARE(f->cell(u"vsFlexGrid6"_s, 1, 5), u"01 Abierta"_s);
    QCOMPARE(f->control<ConsultasPage>(u"consultas"_s)->CONSULTALEIDA, 0);
}

void ClientReadTest::cursorOfAGridStandsOnTheLastLineWritten()
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

QTEST_MAIN(ClientReadTest)
#include "tst_clientread.moc"
