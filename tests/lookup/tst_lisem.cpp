// SPDX-License-Identifier: GPL-3.0-or-later
#include "lookup/lookupfixture.h"

#include "lookup/buscar.h"
#include "platform/window/imagelabel.h"
#include "shell/globalsat.h"

#include <QApplication>
#include <QFrame>
#include <QHeaderView>
#include <QTextDocumentFragment>
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

class LisemTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theListIsInSpanishOrderUnderItsAliases();
    void captionAndCountAreWritten();
    void oneRecordIsOneRegistro();
    void kindsOrderedByNumberShowTheirCheckBox();
    void otherKindsHideTheirCheckBox();
    void aKindWithoutAListKeepsItsPanel();
    void aKindWhoseStoreIsNotThereShowsTheLastCount();
    void clientsOpenWithoutCaptionAndCount();
    void clientsAreListedInOrderOfName();
    void theCheckBoxOrdersClientsByTown();
    void theLabelTicksTheCheckBox();
    void articlesComeThroughTheFamilies();
    void articlesHideTheLabelAndCount();
    void articlesToTickHaveATickColumn();
    void downInTheBoxOnlyMovesTheFocus_data();
    void downInTheBoxOnlyMovesTheFocus();
    void arrowsInTheGridMoveTheRow();
    void aHeadingSortsNothing();
    void theTipIsTheCellUnderThePointer();
    void aTipIsNeverMarkup();
    void theLogoTellsTheVersionAndLightsUp();
    void codesAreReadWholeAndNothingScrollsSideways_data();
    void codesAreReadWholeAndNothingScrollsSideways();
    void clientsOfAMissingStoreOpenAnEmptyWindow();
    void aStoreThatWasClosedLeavesAnEmptyListAndTheCount();
    void everyControlOfTheKeyboardHasAName();
};

void LisemTest::theListIsInSpanishOrderUnderItsAliases()
{
    LookupFixture fixture;
    fixture.givenTypes(types());

    fixture.open(15);

    QCOMPARE(fixture.headings(), (QStringList{u"Codigo"_s, u"Tipo de Cliente"_s}));
    QCOMPARE(fixture.column(1),
             (QStringList{u"Comunidades"_s, u"Chalés"_s, u"Luz"_s, u"Llaverías"_s, u"Ñoñerías"_s}));
    QCOMPARE(fixture.busi().row(), 1);
}

void LisemTest::captionAndCountAreWritten()
{
    LookupFixture fixture;
    fixture.givenTypes(types());

    fixture.open(15);

    QCOMPARE(fixture.caption(), u"  Tipos de Cliente  5 Registros"_s);
}

void LisemTest::oneRecordIsOneRegistro()
{
    LookupFixture fixture;
    fixture.givenZones({}); // the opening adds the default one

    fixture.open(9);

    QCOMPARE(fixture.caption(), u"  Búsqueda de zonas  1 Registro"_s);
}

void LisemTest::kindsOrderedByNumberShowTheirCheckBox()
{
    LookupFixture fixture;

    fixture.open(27);

    QVERIFY(fixture.control<QCheckBox>("Check1").isVisible());
    QVERIFY(fixture.control<QLabel>("Label1").isVisible());
    QCOMPARE(fixture.control<QLabel>("Label1").text(), u"Ordenar por número"_s);
}

void LisemTest::otherKindsHideTheirCheckBox()
{
    LookupFixture fixture;

    fixture.open(15);

    QVERIFY(!fixture.control<QCheckBox>("Check1").isVisible());
    QVERIFY(!fixture.control<QLabel>("Label1").isVisible());
}

void LisemTest::aKindWithoutAListKeepsItsPanel()
{
    LookupFixture fixture;

    fixture.open(22);

    QCOMPARE(fixture.caption(), u"   Convenios Colectivos"_s);
    QCOMPARE(fixture.busi().rows(), 1);
}

void LisemTest::aKindWhoseStoreIsNotThereShowsTheLastCount()
{
    LookupFixture fixture;
    fixture.givenTypes(types());
    fixture.open(15);

    fixture.open(3);

    QCOMPARE(fixture.caption(), u"  Códigos Postales  5 Registros"_s);
    QCOMPARE(fixture.busi().rows(), 1);
}

void LisemTest::clientsOpenWithoutCaptionAndCount()
{
    LookupFixture fixture;
    fixture.givenClients(clients());

    fixture.open(20);

    QCOMPARE(fixture.caption(), u"   Convenios Colectivos"_s);
    QVERIFY(fixture.control<QCheckBox>("Check1").isVisible());
    QCOMPARE(REGISTROSREJILLA, 0);
}

void LisemTest::clientsAreListedInOrderOfName()
{
    LookupFixture fixture;
    fixture.givenClients(clients());

    fixture.open(20);

    QCOMPARE(fixture.headings(), (QStringList{u"Codigo"_s, u"Cliente"_s, u"Localidad"_s}));
    QCOMPARE(fixture.column(1), (QStringList{u"Ana"_s, u"Berta"_s, u"Zoe"_s}));
    QCOMPARE(fixture.busi().row(), 1);
}

void LisemTest::theCheckBoxOrdersClientsByTown()
{
    LookupFixture fixture;
    fixture.givenClients(clients());
    fixture.open(20);

    QTest::mouseClick(&fixture.control<QCheckBox>("Check1"), Qt::LeftButton, {},
                      QPoint(8, fixture.control<QCheckBox>("Check1").height() / 2));

    QCOMPARE(fixture.column(2), (QStringList{u"Ávila"_s, u"Madrid"_s, u"Zamora"_s}));
    QCOMPARE(fixture.caption(), u"  Búsqueda de Clientes  3 Registros"_s);
}

void LisemTest::theLabelTicksTheCheckBox()
{
    LookupFixture fixture;
    fixture.givenClients(clients());
    fixture.open(20);

    QTest::mouseClick(&fixture.control<QLabel>("Label1"), Qt::LeftButton);
    QVERIFY(fixture.control<QCheckBox>("Check1").isChecked());
    QCOMPARE(fixture.column(2).front(), u"Ávila"_s);
    QTest::mouseClick(&fixture.control<QLabel>("Label1"), Qt::LeftButton);

    QVERIFY(!fixture.control<QCheckBox>("Check1").isChecked());
    QCOMPARE(fixture.column(1).front(), u"Ana"_s);
}

void LisemTest::articlesComeThroughTheFamilies()
{
    LookupFixture fixture;
    fixture.givenArticles(articles());

    fixture.open(11);

    QVERIFY(fixture.control<QFrame>("famiart").isVisible());
    const auto& families = fixture.control<platform::ComboList>("Combo1");
    QCOMPARE(families.listCount(), 1);
    QCOMPARE(families.text(), u"(Incluir todas las familias)"_s);
    QCOMPARE(fixture.column(1), (QStringList{u"Ascensor"_s, u"Botonera"_s, u"Caldera"_s}));
    QCOMPARE(QApplication::focusWidget(), &fixture.box());
}

void LisemTest::articlesHideTheLabelAndCount()
{
    LookupFixture fixture;
    fixture.givenArticles(articles());

    fixture.open(11);

    QVERIFY(!fixture.control<QLabel>("Label1").isVisible());
    QCOMPARE(fixture.caption(), u"Búsqueda de Artículos  3 Registros"_s);
}

void LisemTest::articlesToTickHaveATickColumn()
{
    LookupFixture fixture;
    fixture.givenArticles(articles());

    fixture.open(111);

    QCOMPARE(fixture.headings(), (QStringList{u"S"_s, u"Codigo"_s, u"Articulo"_s}));
    QCOMPARE(fixture.busi().column(0).kind, platform::CellKind::Boolean);
    QVERIFY(fixture.busi().isEditable());
    QCOMPARE(fixture.column(0), (QStringList{u""_s, u""_s, u""_s}));
}

void LisemTest::downInTheBoxOnlyMovesTheFocus_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("down") << Qt::Key_Down;
    QTest::newRow("up") << Qt::Key_Up;
}

void LisemTest::downInTheBoxOnlyMovesTheFocus()
{
    QFETCH(Qt::Key, key);
    LookupFixture fixture;
    fixture.givenTypes(types());
    fixture.open(15);

    fixture.press(fixture.box(), key);

    QCOMPARE(QApplication::focusWidget(), &fixture.busi());
    QCOMPARE(fixture.busi().row(), 1);
}

void LisemTest::arrowsInTheGridMoveTheRow()
{
    LookupFixture fixture;
    fixture.givenTypes(types());
    fixture.open(15);
    fixture.press(fixture.box(), Qt::Key_Down);

    fixture.press(fixture.busi(), Qt::Key_Down);

    QCOMPARE(fixture.busi().row(), 2);
    QVERIFY(fixture.window()->isVisible());
}

void LisemTest::aHeadingSortsNothing()
{
    LookupFixture fixture;
    fixture.givenTypes(types());
    fixture.open(15);
    const QStringList before = fixture.column(0);

    QTest::mouseClick(fixture.busi().horizontalHeader()->viewport(), Qt::LeftButton, {}, QPoint(10, 5));

    QCOMPARE(fixture.column(0), before);
}

void LisemTest::theTipIsTheCellUnderThePointer()
{
    LookupFixture fixture;
    fixture.givenTypes(types());
    fixture.open(15);
    const QModelIndex cell = fixture.busi().model()->index(2, 1);

    QTest::mouseMove(fixture.busi().viewport(), fixture.busi().visualRect(cell).center());

    QCOMPARE(fixture.busi().toolTip(), u"Luz"_s);
}

void LisemTest::aTipIsNeverMarkup()
{
    LookupFixture fixture;
    fixture.givenTypes({{u"0001"_s, u"<b>Gordo</b> & <i>fino</i>"_s}});
    fixture.open(15);
    const QModelIndex cell = fixture.busi().model()->index(0, 1);

    QTest::mouseMove(fixture.busi().viewport(), fixture.busi().visualRect(cell).center());

    QCOMPARE(QTextDocumentFragment::fromHtml(fixture.busi().toolTip()).toPlainText(),
             u"<b>Gordo</b> & <i>fino</i>"_s);
}

void LisemTest::theLogoTellsTheVersionAndLightsUp()
{
    QCoreApplication::setApplicationVersion(u"3.32.3009"_s);
    QPixmap picture(32, 32);
    picture.fill(Qt::darkBlue);
    QApplication::setWindowIcon(picture);
    LookupFixture fixture;
    fixture.open(15);
    auto& logo = fixture.control<platform::ImageLabel>("imgwl");
    const QImage plain = logo.pixmap(Qt::ReturnByValue).toImage();

    QCOMPARE(logo.toolTip(), u"Quenda.- Ver.3.32 Build 3009"_s);
    QTest::mouseMove(&logo, logo.rect().center());
    QTest::mouseMove(&logo, logo.rect().center() + QPoint(1, 1));
    const QImage lit = logo.pixmap(Qt::ReturnByValue).toImage();
    QTest::mouseMove(fixture.window(), QPoint(2, 2));
    QTest::mouseMove(fixture.window(), QPoint(3, 3));

    QVERIFY(lit != plain);
    QCOMPARE(logo.pixmap(Qt::ReturnByValue).toImage(), plain);
}

void LisemTest::codesAreReadWholeAndNothingScrollsSideways_data()
{
    QTest::addColumn<int>("width");
    QTest::newRow("as designed") << 760;
    QTest::newRow("narrow") << 480;
    QTest::newRow("wide") << 1400;
}

void LisemTest::codesAreReadWholeAndNothingScrollsSideways()
{
    QFETCH(int, width);
    LookupFixture fixture;
    fixture.givenClients(clients());
    fixture.open(20);
    const platform::FlexGrid& grid = fixture.busi();

    fixture.window()->resize(width, 520);
    QCoreApplication::processEvents();

    QVERIFY(grid.columnWidth(0) > grid.fontMetrics().horizontalAdvance(u"0000000003"_s));
    QVERIFY(grid.horizontalHeader()->length() <= grid.viewport()->width());
    QVERIFY(grid.horizontalHeader()->length() > grid.viewport()->width() - grid.cols());
}

void LisemTest::clientsOfAMissingStoreOpenAnEmptyWindow()
{
    LookupFixture fixture;

    fixture.open(20);
    fixture.search(u"a"_s);

    QVERIFY(fixture.window()->isVisible());
    QCOMPARE(fixture.busi().rows(), 1);
    QVERIFY(fixture.busi().redraw());
}

void LisemTest::aStoreThatWasClosedLeavesAnEmptyListAndTheCount()
{
    LookupFixture fixture;
    fixture.givenTypes(types());
    fixture.open(15);
    BDTIPOS.Close();

    fixture.open(15);

    QCOMPARE(fixture.busi().rows(), 1);
    QCOMPARE(fixture.caption(), u"  Tipos de Cliente  5 Registros"_s);
}

void LisemTest::everyControlOfTheKeyboardHasAName()
{
    LookupFixture fixture;
    fixture.givenArticles(articles());
    fixture.open(11);

    for (const QWidget* control :
         {static_cast<QWidget*>(&fixture.box()), static_cast<QWidget*>(&fixture.busi()),
          static_cast<QWidget*>(&fixture.control<QCheckBox>("Check1")),
          static_cast<QWidget*>(&fixture.control<platform::ComboList>("Combo1"))})
        QVERIFY2(!control->accessibleName().isEmpty(), qUtf8Printable(control->objectName()));
    QCOMPARE(fixture.control<QPushButton>("Command1").text(), u"&Salir"_s);
    QCOMPARE(fixture.control<QPushButton>("Command2").text(), u"&Buscar"_s);
}

QTEST_MAIN(LisemTest)
#include "tst_lisem.moc"
