// SPDX-License-Identifier: GPL-3.0-or-later
#include "lookup/lookupfixture.h"

#include "lookup/lisem.h"
#include "shell/globalsat.h"

#include <QApplication>
#include <QTimer>
#include <QtTest>

using namespace Qt::StringLiterals;
using lookuptest::LookupFixture;
using lookuptest::Rows;

namespace {

const Rows& types()
{
    static const Rows kTypes{{u"0001"_s, u"Ana"_s}, {u" 02 "_s, u"Berta"_s}, {u"0003"_s, u"Carla"_s}};
    return kTypes;
}

const Rows& articles()
{
    static const Rows kArticles{{u"0000000001"_s, u"Ascensor"_s, u"0003"_s},
                                {u"0000000002"_s, u"Botonera"_s, u"0003"_s},
                                {u"0000000003"_s, u"Caldera"_s, u"0001"_s}};
    return kArticles;
}

QString formulaOf(const QString& codes)
{
    return u"{clientescyctabla.clientescycarticulo} in ["_s + codes +
           u"] and {clientescyctabla.clientescycfecbaja} in [\"\", \"  /  /\"]"_s;
}

/// A click on the tick box of a row.
void tick(const LookupFixture& fixture, int row)
{
    const QRect cell = fixture.busi().visualRect(fixture.busi().model()->index(row - 1, 0));
    QTest::mouseClick(fixture.busi().viewport(), Qt::LeftButton, {}, cell.center());
}

} // namespace

class LisemChoiceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aDoubleClickChooses();
    void anyCharacterKeyChooses_data();
    void anyCharacterKeyChooses();
    void theCodeIsTrimmed();
    void theIndexOfTheKindIsLeft_data();
    void theIndexOfTheKindIsLeft();
    void aZoneDoesNotReachTheCaller();
    void aClientChosenInTheFirstListReachesTheCaller();
    void aSearchedRowGivesItsHiddenCode();
    void withoutRowsADoubleClickDoesNothing();
    void aSingleRecordStaysChosenWhateverIsTyped();
    void escInTheBoxClosesWithoutChoice();
    void escInTheBoxOfWarehousesEmptiesTheResult();
    void escInTheGridClosesWithoutChoice();
    void escOnAButtonClosesWithoutChoice();
    void exitKeepsTheResult();
    void exitEmptiesTheFormula();
    void noArticleTickedGivesTheBareFormula();
    void tickedArticlesMakeTheFormula();
    void anArticleWithoutACodeIsLeftOut();
    void ticksAreGoneAfterASearch();
    void articlesToTickAreNotChosen();
    void theWindowIsModalAndGivesItsResultBack();
    void withoutTheRealWindowNothingIsShown();
};

void LisemChoiceTest::aDoubleClickChooses()
{
    LookupFixture fixture;
    fixture.givenTypes(types());
    fixture.open(15);

    fixture.doubleClickRow(3);

    QVERIFY(!fixture.window()->isVisible());
    QCOMPARE(RESULTADOBUSQUEDA, u"0003"_s);
}

void LisemChoiceTest::anyCharacterKeyChooses_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("enter") << Qt::Key_Return;
    QTest::newRow("blank") << Qt::Key_Space;
    QTest::newRow("letter") << Qt::Key_X;
}

void LisemChoiceTest::anyCharacterKeyChooses()
{
    QFETCH(Qt::Key, key);
    LookupFixture fixture;
    fixture.givenTypes(types());
    fixture.open(15);
    fixture.press(fixture.box(), Qt::Key_Down);

    fixture.press(fixture.busi(), key);

    QVERIFY(!fixture.window()->isVisible());
    QCOMPARE(RESULTADOBUSQUEDA, u"0001"_s);
}

void LisemChoiceTest::theCodeIsTrimmed()
{
    LookupFixture fixture;
    fixture.givenTypes(types());
    fixture.open(15);

    fixture.doubleClickRow(2);

    QCOMPARE(RESULTADOBUSQUEDA, u"02"_s);
}

void LisemChoiceTest::theIndexOfTheKindIsLeft_data()
{
    QTest::addColumn<double>("kind");
    QTest::addColumn<QString>("index");
    QTest::newRow("zones") << 9.0 << u"ZONASINDICE"_s;
    QTest::newRow("articles") << 11.0 << u"ARTCODIGOINDICE"_s;
    QTest::newRow("types") << 15.0 << u"TIPOINDICE"_s;
    QTest::newRow("clients") << 20.0 << u"CLICODIGOINDICE"_s;
}

void LisemChoiceTest::theIndexOfTheKindIsLeft()
{
    QFETCH(double, kind);
    QFETCH(QString, index);
    LookupFixture fixture;
    fixture.givenZones({{u"0000000002"_s, u"COSTA"_s}});
    fixture.givenArticles(articles());
    fixture.givenTypes(types());
    fixture.givenClients({{u"0000000001"_s, u"Ana"_s, u"Jaca"_s}});
    RSZONAS.setIndex(u"zonasindial"_s);
    RSARTICULOS.setIndex(u"ArtDescripcionIndice"_s);
    RSTIPOCLI.setIndex(u"TIPOINDICEalf"_s);
    RSCLIENTES.setIndex(u"CliNombreIndice"_s);
    fixture.open(kind);

    fixture.doubleClickRow(1);

    const platform::dao::Recordset& left = kind == 9    ? RSZONAS
                                           : kind == 11 ? RSARTICULOS
                                           : kind == 15 ? RSTIPOCLI
                                                        : RSCLIENTES;
    QCOMPARE(left.Index().toUpper(), index);
}

void LisemChoiceTest::aZoneDoesNotReachTheCaller()
{
    LookupFixture fixture;
    fixture.givenZones({});
    fixture.open(9);

    fixture.doubleClickRow(1);

    QVERIFY(!fixture.window()->isVisible());
    QVERIFY(RESULTADOBUSQUEDA.isEmpty());
}

void LisemChoiceTest::aClientChosenInTheFirstListReachesTheCaller()
{
    LookupFixture fixture;
    fixture.givenClients({{u"0000000001"_s, u"Zoe"_s, u"Jaca"_s}, {u"C100"_s, u"Ana"_s, u"Jaca"_s}});
    fixture.open(20);

    fixture.doubleClickRow(1);

    QCOMPARE(RESULTADOBUSQUEDA, u"C100"_s);
}

void LisemChoiceTest::aSearchedRowGivesItsHiddenCode()
{
    LookupFixture fixture;
    fixture.givenTypes(types());
    fixture.open(15);
    fixture.search(u"carla"_s);

    fixture.doubleClickRow(1);

    QCOMPARE(RESULTADOBUSQUEDA, u"0003"_s);
}

void LisemChoiceTest::withoutRowsADoubleClickDoesNothing()
{
    LookupFixture fixture;
    fixture.givenTypes({});
    fixture.open(15);

    QTest::mouseDClick(fixture.busi().viewport(), Qt::LeftButton, {}, QPoint(20, 20));
    fixture.press(fixture.busi(), Qt::Key_Return);

    QCOMPARE(fixture.busi().row(), 0);
    QVERIFY(fixture.window()->isVisible());
}

void LisemChoiceTest::aSingleRecordStaysChosenWhateverIsTyped()
{
    LookupFixture fixture;
    fixture.givenTypes({{u"0001"_s, u"Ana"_s}});
    fixture.open(15);

    fixture.type(u"zzz"_s);
    fixture.press(fixture.busi(), Qt::Key_Return);

    QCOMPARE(RESULTADOBUSQUEDA, u"0001"_s);
}

void LisemChoiceTest::escInTheBoxClosesWithoutChoice()
{
    LookupFixture fixture;
    fixture.givenTypes(types());
    fixture.open(15);

    fixture.press(fixture.box(), Qt::Key_Escape);

    QVERIFY(!fixture.window()->isVisible());
    QVERIFY(RESULTADOBUSQUEDA.isEmpty());
}

void LisemChoiceTest::escInTheBoxOfWarehousesEmptiesTheResult()
{
    LookupFixture fixture;
    RESULTADOBUSQUEDA = u"anterior"_s;
    fixture.open(2);

    fixture.press(fixture.box(), Qt::Key_Escape);

    QVERIFY(!fixture.window()->isVisible());
    QVERIFY(RESULTADOBUSQUEDA.isEmpty());
}

void LisemChoiceTest::escInTheGridClosesWithoutChoice()
{
    LookupFixture fixture;
    fixture.givenTypes(types());
    fixture.open(15);
    fixture.press(fixture.box(), Qt::Key_Down);

    fixture.press(fixture.busi(), Qt::Key_Escape);

    QVERIFY(!fixture.window()->isVisible());
    QVERIFY(RESULTADOBUSQUEDA.isEmpty());
}

void LisemChoiceTest::escOnAButtonClosesWithoutChoice()
{
    LookupFixture fixture;
    fixture.open(2);
    RESULTADOBUSQUEDA = u"anterior"_s;
    fixture.control<QPushButton>("Command1").setFocus();

    fixture.press(fixture.control<QPushButton>("Command1"), Qt::Key_Escape);

    QVERIFY(!fixture.window()->isVisible());
    QCOMPARE(RESULTADOBUSQUEDA, u"anterior"_s);
}

void LisemChoiceTest::exitKeepsTheResult()
{
    LookupFixture fixture;
    fixture.givenTypes(types());
    RESULTADOBUSQUEDA = u"anterior"_s;
    fixture.open(15);

    QTest::mouseClick(&fixture.control<QPushButton>("Command1"), Qt::LeftButton);

    QVERIFY(!fixture.window()->isVisible());
    QCOMPARE(RESULTADOBUSQUEDA, u"anterior"_s);
}

void LisemChoiceTest::exitEmptiesTheFormula()
{
    LookupFixture fixture;
    FORMULABUSQUEDA = u"vieja"_s;
    fixture.open(15);

    QTest::mouseClick(&fixture.control<QPushButton>("Command1"), Qt::LeftButton);

    QVERIFY(FORMULABUSQUEDA.isEmpty());
}

void LisemChoiceTest::noArticleTickedGivesTheBareFormula()
{
    LookupFixture fixture;
    fixture.givenArticles(articles());
    fixture.open(111);

    QTest::mouseClick(&fixture.control<QPushButton>("Command1"), Qt::LeftButton);

    QCOMPARE(FORMULABUSQUEDA, formulaOf({}));
}

void LisemChoiceTest::tickedArticlesMakeTheFormula()
{
    LookupFixture fixture;
    fixture.givenArticles(articles());
    fixture.open(111);
    tick(fixture, 1);
    tick(fixture, 2);
    tick(fixture, 3);
    tick(fixture, 2);

    QTest::mouseClick(&fixture.control<QPushButton>("Command1"), Qt::LeftButton);

    QCOMPARE(FORMULABUSQUEDA, formulaOf(u"\"0000000001\", \"0000000003\""_s));
}

void LisemChoiceTest::anArticleWithoutACodeIsLeftOut()
{
    LookupFixture fixture;
    fixture.givenArticles({{u""_s, u"Ascensor"_s, u""_s}, {u"A1"_s, u"Botonera"_s, u""_s}});
    fixture.open(111);
    tick(fixture, 1);
    tick(fixture, 2);

    QTest::mouseClick(&fixture.control<QPushButton>("Command1"), Qt::LeftButton);

    QCOMPARE(FORMULABUSQUEDA, formulaOf(u"\"A1\""_s));
}

void LisemChoiceTest::ticksAreGoneAfterASearch()
{
    LookupFixture fixture;
    fixture.givenArticles(articles());
    fixture.open(111);
    tick(fixture, 1);
    fixture.search(u"a"_s);

    QTest::mouseClick(&fixture.control<QPushButton>("Command1"), Qt::LeftButton);

    QCOMPARE(FORMULABUSQUEDA, formulaOf({}));
}

void LisemChoiceTest::articlesToTickAreNotChosen()
{
    LookupFixture fixture;
    fixture.givenArticles(articles());
    fixture.open(111);
    fixture.press(fixture.box(), Qt::Key_Down);

    fixture.press(fixture.busi(), Qt::Key_Return);

    QVERIFY(fixture.window()->isVisible());
    QVERIFY(RESULTADOBUSQUEDA.isEmpty());
}

void LisemChoiceTest::theWindowIsModalAndGivesItsResultBack()
{
    LookupFixture fixture;
    fixture.givenTypes(types());
    QWidget caller;
    caller.show();
    setMuestraLISEM([](QWidget* parent) {
        LISEM window(parent);
        window.showModal();
    });
    bool wasModal = false;
    QTimer::singleShot(0, [&] {
        auto* window = qobject_cast<LISEM*>(QApplication::activeModalWidget());
        wasModal = window != nullptr && window->isModal() && window->parentWidget() == &caller;
        if (window == nullptr)
            return;
        auto* grid = window->findChild<platform::FlexGrid*>(u"busi"_s);
        grid->setFocus();
        QTest::keyClick(grid, Qt::Key_Down);
        QTest::keyClick(grid, Qt::Key_Return);
    });
    TIPOBUSQUEDA = 15;

    MuestraLISEM(&caller);

    QVERIFY(wasModal);
    QCOMPARE(RESULTADOBUSQUEDA, u"02"_s);
    setMuestraLISEM({});
}

void LisemChoiceTest::withoutTheRealWindowNothingIsShown()
{
    LookupFixture fixture;
    setMuestraLISEM({});
    TIPOBUSQUEDA = 15;

    MuestraLISEM(nullptr);

    QVERIFY(QApplication::activeModalWidget() == nullptr);
}

QTEST_MAIN(LisemChoiceTest)
#include "tst_lisemchoice.moc"
