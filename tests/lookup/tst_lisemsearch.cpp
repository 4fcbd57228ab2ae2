// SPDX-License-Identifier: GPL-3.0-or-later
#include "lookup/lookupfixture.h"

#include "lookup/buscar.h"
#include "platform/window/imagelabel.h"
#include "shell/globalsat.h"

#include <QApplication>
#include <QFrame>
#include <QtTest>

using namespace Qt::StringLiterals;
using lookuptest::LookupFixture;
using lookuptest::Rows;

namespace {

const Rows& types()
{
    static const Rows kTypes{{u"0002"_s, u"Chalés"_s},
                             {u"0001"_s, u"Comunidades"_s},
                             {u"0003"_s, u"Llaverías"_s},
                             {u"0004"_s, u"Ñoñerías"_s},
                             {u"0005"_s, u"Luz"_s}};
    return kTypes;
}

const Rows& clients()
{
    static const Rows kClients{{u"0000000001"_s, u"Zoe"_s, u"Ávila"_s, u"C/ Mayor, 1"_s},
                               {u"0000000002"_s, u"Ana"_s, u"Zamora"_s, u"Pza. Nueva, 2"_s},
                               {u"0000000003"_s, u"Berta"_s, u"Madrid"_s, u"Avda. del Sol, 3"_s}};
    return kClients;
}

const Rows& articles()
{
    static const Rows kArticles{{u"0000000001"_s, u"Caldera"_s, u"0001"_s},
                                {u"0000000002"_s, u"Ascensor"_s, u"0003"_s},
                                {u"0000000003"_s, u"Botonera"_s, u"0003"_s}};
    return kArticles;
}

} // namespace

class LisemSearchTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void typingInTheFirstListOfClientsMovesNothing();
    void anEarlierIndexIsUsedByTheFirstListOfClients();
    void searchReloadsTheArticles();
    void typingMovesTheRowAndListsAll();
    void blankTextGoesToTheFirstRow();
    void enterListsTheRowsThatHoldTheText();
    void enterWithABlankTextDoesNothing();
    void theCodeColumnIsHiddenAfterASearch();
    void theArrowsMoveTheRowAfterASearch();
    void aSearchKeepsCaptionAndCount();
    void aSearchThatFindsNothingLeavesAnEmptyGrid();
    void wildcardsOfTheTextAct();
    void aSearchOfClientsLooksInTheirNames();
    void aSearchOfClientsWithTheBoxTickedLooksInTheirAddresses();
    void emptyingTheBoxAfterASearchBringsTheListBack();
    void aHundredThousandClientsAreListed();
};

void LisemSearchTest::typingInTheFirstListOfClientsMovesNothing()
{
    LookupFixture fixture;
    fixture.givenClients(clients());
    fixture.open(20);

    fixture.type(u"z"_s);

    QCOMPARE(fixture.busi().row(), 1);
}

void LisemSearchTest::anEarlierIndexIsUsedByTheFirstListOfClients()
{
    LookupFixture fixture;
    fixture.givenClients(clients());
    fixture.open(20);
    fixture.control<QCheckBox>("Check1").toggle();
    fixture.control<QCheckBox>("Check1").toggle();

    fixture.open(20);
    fixture.type(u"z"_s);

    QCOMPARE(fixture.busi().textMatrix(fixture.busi().row(), 1), u"Zoe"_s);
}

void LisemSearchTest::searchReloadsTheArticles()
{
    LookupFixture fixture;
    fixture.givenArticles(articles());
    fixture.open(11);
    fixture.search(u"botonera"_s);
    QCOMPARE(fixture.column(1), QStringList{u"Botonera"_s});

    QTest::mouseClick(&fixture.control<QPushButton>("Command2"), Qt::LeftButton);

    QCOMPARE(fixture.busi().rows(), 4);
}

void LisemSearchTest::typingMovesTheRowAndListsAll()
{
    LookupFixture fixture;
    fixture.givenTypes(types());
    fixture.open(15);

    fixture.type(u"ñoñ"_s);

    QCOMPARE(fixture.busi().row(), 5);
    QCOMPARE(fixture.busi().rows(), 6);
}

void LisemSearchTest::blankTextGoesToTheFirstRow()
{
    LookupFixture fixture;
    fixture.givenTypes(types());
    fixture.open(15);
    fixture.type(u"ñ"_s);
    QCOMPARE(fixture.busi().row(), 5);

    fixture.type(u" "_s);

    QCOMPARE(fixture.busi().row(), 1);
}

void LisemSearchTest::enterListsTheRowsThatHoldTheText()
{
    LookupFixture fixture;
    fixture.givenTypes(types());
    fixture.open(15);

    fixture.search(u"ER"_s);

    QCOMPARE(fixture.column(1), (QStringList{u"Llaverías"_s, u"Ñoñerías"_s}));
    QCOMPARE(fixture.busi().heading(1), u"Tipo de Cliente"_s);
    QCOMPARE(fixture.busi().row(), 1);
}

void LisemSearchTest::enterWithABlankTextDoesNothing()
{
    LookupFixture fixture;
    fixture.givenTypes(types());
    fixture.open(15);

    fixture.search(u"  "_s);

    QCOMPARE(fixture.busi().rows(), 6);
    QVERIFY(fixture.window()->isVisible());
}

void LisemSearchTest::theCodeColumnIsHiddenAfterASearch()
{
    LookupFixture fixture;
    fixture.givenTypes(types());
    fixture.open(15);

    fixture.search(u"luz"_s);

    QCOMPARE(fixture.busi().colWidth(0), 0);
    QVERIFY(fixture.busi().isColumnHidden(0));
    QCOMPARE(fixture.busi().textMatrix(1, 0), u"0005"_s);
}

void LisemSearchTest::theArrowsMoveTheRowAfterASearch()
{
    LookupFixture fixture;
    fixture.givenTypes(types());
    fixture.open(15);
    fixture.search(u"l"_s);
    fixture.press(fixture.box(), Qt::Key_Down);

    fixture.press(fixture.busi(), Qt::Key_Down);

    QCOMPARE(fixture.busi().row(), 2);
    fixture.press(fixture.busi(), Qt::Key_Return);
    QCOMPARE(RESULTADOBUSQUEDA, u"0005"_s);
}

void LisemSearchTest::aSearchKeepsCaptionAndCount()
{
    LookupFixture fixture;
    fixture.givenTypes(types());
    fixture.open(15);

    fixture.search(u"luz"_s);

    QCOMPARE(fixture.caption(), u"  Tipos de Cliente  5 Registros"_s);
    QVERIFY(INDICELETRAS.at(0xD1) != 0); // Ñ of the full list
}

void LisemSearchTest::aSearchThatFindsNothingLeavesAnEmptyGrid()
{
    LookupFixture fixture;
    fixture.givenTypes(types());
    fixture.open(15);

    fixture.search(u"no hay"_s);

    QCOMPARE(fixture.busi().rows(), 1);
    QCOMPARE(fixture.busi().row(), 0);
    QVERIFY(!fixture.busi().isBound());
}

void LisemSearchTest::wildcardsOfTheTextAct()
{
    LookupFixture fixture;
    fixture.givenTypes(types());
    fixture.open(15);

    fixture.search(u"[lñ]*r?as"_s);

    QCOMPARE(fixture.column(1), (QStringList{u"Llaverías"_s, u"Ñoñerías"_s}));
}

void LisemSearchTest::aSearchOfClientsLooksInTheirNames()
{
    LookupFixture fixture;
    fixture.givenClients(clients());
    fixture.open(20);

    fixture.search(u"e"_s);

    QCOMPARE(fixture.column(1), (QStringList{u"Berta"_s, u"Zoe"_s}));
    QCOMPARE(fixture.headings().mid(1), (QStringList{u"Cliente"_s, u"Localidad"_s}));
}

void LisemSearchTest::aSearchOfClientsWithTheBoxTickedLooksInTheirAddresses()
{
    LookupFixture fixture;
    fixture.givenClients(clients());
    fixture.open(20);
    fixture.control<QCheckBox>("Check1").toggle();

    fixture.search(u"nueva"_s);

    QCOMPARE(fixture.column(1), QStringList{u"Pza. Nueva, 2"_s});
    QCOMPARE(fixture.busi().heading(1), u"Domicilio"_s);
}

void LisemSearchTest::emptyingTheBoxAfterASearchBringsTheListBack()
{
    LookupFixture fixture;
    fixture.givenTypes(types());
    fixture.open(15);
    fixture.search(u"luz"_s);
    QCOMPARE(fixture.busi().rows(), 2);

    QTest::mouseDClick(&fixture.box(), Qt::LeftButton);

    QVERIFY(fixture.box().text().isEmpty());
    QCOMPARE(fixture.busi().rows(), 6);
    QCOMPARE(fixture.busi().colWidth(0), 1000);
    QVERIFY(!fixture.busi().isColumnHidden(0));
}

void LisemSearchTest::aHundredThousandClientsAreListed()
{
    LookupFixture fixture;
    Rows many;
    for (int i = 0; i < 100000; ++i) {
        const QString number = QString::number(i).rightJustified(10, u'0');
        many.append({number, QString(QChar(u'A' + i % 26)) + number, u"Jaca"_s});
    }
    fixture.givenClients(many);
    fixture.open(20);
    fixture.control<QCheckBox>("Check1").toggle();
    fixture.control<QCheckBox>("Check1").toggle();

    fixture.type(u"q00000999"_s);

    QCOMPARE(fixture.caption(), u"  Búsqueda de Clientes  100000 Registros"_s);
    QVERIFY2(fixture.busi().textMatrix(fixture.busi().row(), 1).startsWith(u"Q00000999"),
             qUtf8Printable(fixture.busi().textMatrix(fixture.busi().row(), 1)));
}

QTEST_MAIN(LisemSearchTest)
#include "tst_lisemsearch.moc"
