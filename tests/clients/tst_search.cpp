// SPDX-License-Identifier: GPL-3.0-or-later
#include "clients/clientfixture.h"

#include "platform/window/flexgrid.h"
#include "platform/window/formhelpers.h"
#include "platform/window/textbox.h"
#include "shell/globalsat.h"

#include <optional>

using namespace Qt::StringLiterals;
using testsupport::ClientFixture;

class SearchTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        f.emplace();
        f->addClient(u"0000000001"_s, u"UNO"_s);
        f->addClient(u"0000000002"_s, u"DOS"_s);
        f->addTelephone(u"0000000002"_s, u"912222222"_s);
        f->open();
    }
    void cleanup() { f.reset(); }

    void telephoneFoundShowsItsClient();
    void telephoneFoundKeepsTheCodeForTheNextReturn();
    void telephoneOfTwoClientsBringsTheFirst();
    void telephoneOfAnotherCompanyIsNotFound();
    void telephoneNotFoundShowsTheOneMessage();
    void emptyTelephoneSearchesNothing();
    void telephoneWithAnApostropheEndsInSilence();
    void telephoneSearchTakesTenCharacters();
    void otherKeysSearchNothing();
    void nextCodeFollowsTheHighest_data();
    void nextCodeFollowsTheHighest();
    void codeOfLettersAsTheLastMayProposeOneThatExists();
    void lookupOfClientsShowsTheClientChosen();
    void lookupOfClientsWithoutChoiceKeepsTheWindow();
    void lookupOfClientsKeepsItsResult();
    void enterOnAnEmptyCodeOpensTheLookup();
    void enterOnACodeReadsItWithoutALookup();
    void lookupOfRepresentativesFillsTheCode();
    void lookupOfTypesFillsCodeAndDescription();
    void lookupWithoutChoiceClearsTheResult_data();
    void lookupWithoutChoiceClearsTheResult();
    void lookupThatDoesNotReachTheFields_data();
    void lookupThatDoesNotReachTheFields();
    void pointerIsBusyWhileALookupIsUp_data();
    void pointerIsBusyWhileALookupIsUp();

private:
    std::optional<ClientFixture> f;
};

void SearchTest::telephoneFoundShowsItsClient()
{
    f->type(u"Text14"_s, u"912222222"_s);

    f->press(Qt::Key_Return);

    QCOMPARE(f->text(u"Text49"_s), u"0000000002"_s);
    QCOMPARE(f->text(u"Text51"_s), u"DOS"_s);
    QCOMPARE(f->cell(u"vsFlexGrid4"_s, 1, 0), u"912222222"_s);
    QVERIFY(f->messages.isEmpty());
}

void SearchTest::telephoneFoundKeepsTheCodeForTheNextReturn()
{
    f->type(u"Text14"_s, u"912222222"_s);
    f->press(Qt::Key_Return);

    f->click(u"Text49"_s);

    QCOMPARE(RESULTADOBUSQUEDA, u"0000000002"_s);
    QCOMPARE(f->text(u"Text51"_s), u"DOS"_s);
}

void SearchTest::telephoneOfTwoClientsBringsTheFirst()
{
    f->addTelephone(u"0000000001"_s, u"912222222"_s);
    f->type(u"Text14"_s, u"912222222"_s);

    f->press(Qt::Key_Return);

    const QStringList found = f->rows(
        BDTELEFONOS,
        u"SELECT TELECODIGO From TELEFON WHERE TELECODIGOEMPRESA='00012' AND TELETELEFONO='912222222'"_s);
    QCOMPARE(found.size(), 2);
    QCOMPARE(f->text(u"Text49"_s), found.first());
}

void SearchTest::telephoneOfAnotherCompanyIsNotFound()
{
    f->addTelephone(u"0000000001"_s, u"933"_s, u"00001"_s);
    f->type(u"Text14"_s, u"933"_s);

    f->press(Qt::Key_Return);

    QCOMPARE(f->text(u"Text51"_s), QString());
    QCOMPARE(f->messages.messages().size(), 1);
}

void SearchTest::telephoneNotFoundShowsTheOneMessage()
{
    f->type(u"Text14"_s, u"999"_s);

    f->press(Qt::Key_Return);

    QCOMPARE(f->messages.messages(),
             (QList<platform::Message>{{u"El clientes a buscar no existe en la base de datos"_s,
                                        u"Orvane.- Servicio de asistencia técnica"_s,
                                        platform::MessageIcon::Information}}));
    QCOMPARE(f->text(u"Text49"_s), QString());
}

void SearchTest::emptyTelephoneSearchesNothing()
{
    f->type(u"Text14"_s, u"   "_s);

    f->press(Qt::Key_Return);

    QVERIFY(f->messages.isEmpty());
}

void SearchTest::telephoneWithAnApostropheEndsInSilence()
{
    f->type(u"Text14"_s, u"91'2"_s);

    f->press(Qt::Key_Return);

    QVERIFY(f->messages.isEmpty());
    QCOMPARE(f->text(u"Text49"_s), QString());
}

void SearchTest::telephoneSearchTakesTenCharacters()
{
    f->addTelephone(u"0000000001"_s, u"123456789012"_s);

    f->type(u"Text14"_s, u"123456789012"_s);

    QCOMPARE(f->text(u"Text14"_s), u"1234567890"_s);
}

void SearchTest::otherKeysSearchNothing()
{
    f->type(u"Text14"_s, u"912222222"_s);

    f->press(Qt::Key_Tab);

    QCOMPARE(f->text(u"Text51"_s), QString());
}

void SearchTest::nextCodeFollowsTheHighest_data()
{
    QTest::addColumn<QString>("added");
    QTest::addColumn<QString>("proposed");

    QTest::newRow("digits") << u"0000000123"_s << u"0000000124"_s;
    QTest::newRow("letters give the count plus one") << u"C100"_s << u"0000000004"_s;
    QTest::newRow("a blank inside isn't a digit") << u"99 9"_s << u"0000000004"_s;
    QTest::newRow("the last in text order, not in value") << u"0000000010"_s << u"0000000011"_s;
}

void SearchTest::nextCodeFollowsTheHighest()
{
    QFETCH(const QString, added);
    f->addClient(added);

    f->clickItem(u"NUEVA"_s);

    QTEST(f->text(u"Text49"_s), "proposed");
}

void SearchTest::codeOfLettersAsTheLastMayProposeOneThatExists()
{
    f->addClient(u"0000000004"_s, u"CUATRO"_s);
    f->addClient(u"C100"_s); // the fourth client

    f->clickItem(u"NUEVA"_s);
    QCOMPARE(f->text(u"Text49"_s), u"0000000005"_s);
    RSCLIENTES.Seek(u"=", u"0000000001"_s);
    RSCLIENTES.Delete();
    f->clickItem(u"NUEVA"_s);

    QCOMPARE(f->text(u"Text49"_s), u"0000000004"_s);
    QCOMPARE(f->text(u"Text51"_s), u"CUATRO"_s); // leaving the code reads the client that has it
}

void SearchTest::lookupOfClientsShowsTheClientChosen()
{
    f->answerLookup(u"0000000001"_s);

    f->click(u"Picture3"_s);

    QCOMPARE(f->lookups(), QList<int>{20});
    QCOMPARE(f->text(u"Text49"_s), u"0000000001"_s);
    QCOMPARE(f->text(u"Text51"_s), u"UNO"_s);
    QCOMPARE(f->focused(), u"Text51"_s);
    QVERIFY(f->grid(u"vsFlexGrid4"_s)->redraw());
}

void SearchTest::lookupOfClientsWithoutChoiceKeepsTheWindow()
{
    f->enterCode(u"2"_s);

    f->click(u"Picture3"_s);

    QCOMPARE(f->text(u"Text51"_s), u"DOS"_s);
}

void SearchTest::lookupOfClientsKeepsItsResult()
{
    f->answerLookup(u"0000000001"_s);

    f->click(u"Picture3"_s);

    QCOMPARE(RESULTADOBUSQUEDA, u"0000000001"_s);
}

void SearchTest::enterOnAnEmptyCodeOpensTheLookup()
{
    f->answerLookup(u"0000000002"_s);

    f->press(Qt::Key_Return);

    QCOMPARE(f->lookups(), QList<int>{20});
    QCOMPARE(f->text(u"Text51"_s), u"DOS"_s);
    QCOMPARE(f->focused(), u"Text51"_s);
}

void SearchTest::enterOnACodeReadsItWithoutALookup()
{
    f->enterCode(u"2"_s);

    QCOMPARE(f->lookups(), QList<int>());
    QCOMPARE(f->text(u"Text51"_s), u"DOS"_s);
    QCOMPARE(f->focused(), u"Text51"_s);
}

void SearchTest::lookupOfRepresentativesFillsTheCode()
{
    f->box(u"Text3"_s)->setText(u"PÉREZ"_s);
    f->answerLookup(u"0007"_s);

    f->click(u"Picture2"_s);

    QCOMPARE(f->lookups(), QList<int>{17});
    QCOMPARE(f->text(u"Text20"_s), u"0007"_s);
    QCOMPARE(f->text(u"Text3"_s), QString()); // no store of representatives is open
    QCOMPARE(f->focused(), u"Text3"_s);
    QCOMPARE(RESULTADOBUSQUEDA, QString());
}

void SearchTest::lookupOfTypesFillsCodeAndDescription()
{
    f->add(BDTIPOS, u"TIPOCLI"_s, {{u"TIPOCODIGO", u"0003"_s}, {u"TIPODESCRIPCION", u"MAYORISTA"_s}});
    f->answerLookup(u"0003"_s);

    f->click(u"Picture5"_s);

    QCOMPARE(f->lookups(), QList<int>{15});
    QCOMPARE(f->text(u"Text27"_s), u"0003"_s);
    QCOMPARE(f->text(u"Text26"_s), u"MAYORISTA"_s);
    QCOMPARE(f->focused(), u"Text26"_s);
    QCOMPARE(RESULTADOBUSQUEDA, QString());
}

void SearchTest::lookupWithoutChoiceClearsTheResult_data()
{
    QTest::addColumn<QString>("picture");
    QTest::addColumn<QString>("field");

    QTest::newRow("representatives") << u"Picture2"_s << u"Text20"_s;
    QTest::newRow("types") << u"Picture5"_s << u"Text27"_s;
}

void SearchTest::lookupWithoutChoiceClearsTheResult()
{
    QFETCH(const QString, picture);
    QFETCH(const QString, field);
    f->box(field)->setText(u"0001"_s);
    f->answerLookup(u""_s);

    f->click(picture);

    QCOMPARE(RESULTADOBUSQUEDA, QString());
    QCOMPARE(f->text(field), u"0001"_s);
}

void SearchTest::lookupThatDoesNotReachTheFields_data()
{
    QTest::addColumn<QString>("picture");
    QTest::addColumn<int>("kind");

    QTest::newRow("postal codes") << u"Picture1"_s << 3;
    QTest::newRow("zones") << u"Picture4"_s << 9;
}

void SearchTest::lookupThatDoesNotReachTheFields()
{
    QFETCH(const QString, picture);
    QFETCH(const int, kind);
    f->box(u"Text5"_s)->setText(u"28001"_s);
    f->box(u"Text21"_s)->setText(u"0000000001"_s);
    f->answerLookup(u"0000000009"_s);

    f->click(picture);

    QCOMPARE(f->lookups(), QList<int>{kind});
    QCOMPARE(f->text(u"Text5"_s), u"28001"_s);
    QCOMPARE(f->text(u"Text21"_s), u"0000000001"_s);
    QCOMPARE(RESULTADOBUSQUEDA, u"0000000009"_s); // as the lookup left it
}

void SearchTest::pointerIsBusyWhileALookupIsUp_data()
{
    QTest::addColumn<QString>("picture");

    for (const char* picture : {"Picture1", "Picture2", "Picture3", "Picture4", "Picture5"})
        QTest::newRow(picture) << QString::fromLatin1(picture);
}

void SearchTest::pointerIsBusyWhileALookupIsUp()
{
    QFETCH(const QString, picture);

    f->click(picture);

    QCOMPARE(f->pointers(), QList<int>{platform::kBusyPointer});
    QCOMPARE(platform::mousePointer(&f->window()), platform::kDefaultPointer);
}

QTEST_MAIN(SearchTest)
#include "tst_search.moc"
