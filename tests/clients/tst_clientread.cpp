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
    void articleListJoinsCodeAndTrimmedDescription();
    void clientWithoutConceptsHasAnEmptyArticleList();
    void codeWithAnApostropheReadsTheRecordAndItsWalkedLines();
    void readPreparesAConsultation();

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

QTEST_MAIN(ClientReadTest)
#include "tst_clientread.moc"
