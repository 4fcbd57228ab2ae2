// SPDX-License-Identifier: GPL-3.0-or-later
#include "clients/clientfixture.h"

#include "platform/window/flexgrid.h"
#include "platform/window/formhelpers.h"
#include "platform/window/textbox.h"
#include "shell/globalsat.h"

#include <optional>

using namespace Qt::StringLiterals;
using testsupport::ClientFixture;

class ConceptsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        f.emplace();
        f->addClient(u"C1"_s, u"UNO"_s);
    }
    void cleanup() { f.reset(); }

    void gridHasItsHeadingsWidthsAndFormats();
    void listsOfferTheirItems();
    void columnsWithoutAListArePlain();
    void everyColumnComesIntoItsCell();
    void cellsComeAsStored();
    void nullColumnLeavesItsCell();
    void lineWithoutADueDateShowsItEmpty();
    void twoLinesOfOneArticleAreBothShown();
    void linesBeyondTheGridAreWrittenOverTheLastOne();
    void savingChangesNoConcept();
    void savingAddsNoConcept();
    void lineWhoseArticleIsTheClientReachesTheStore();
    void writtenCellsAreCutAndRead();
    void articleChosenFillsCodeAndDescription();
    void articleNotInTheStoreLeavesTheLine();
    void lookupLeftWithoutChoiceLeavesTheLine();
    void lookupEndsWithTheResultEmptyAndTheGridPainting();
    void buttonOfAnotherColumnShowsNoLookup();
    void deletionTakesTheFirstLineOfTheArticle();
    void deletionLeavesAnEmptyRow();
    void articleThatIsNotStoredIsNotDeleted();
    void deletionOnAnEmptyLineDoesNothing();

private:
    void givenFullConcept()
    {
        f->add(BDCLIENTES, u"clientescyctabla"_s,
               {{u"clientescycarticulo", u"ART1"_s},
                {u"clientescyccliente", u"C1"_s},
                {u"clientescycdescrip", u" Contrato "_s},
                {u"clientescycfecinic", u"01/02/2026"_s},
                {u"clientescycfecvcto", u"31/12/2026"_s},
                {u"clientescycfecbaja", u""_s},
                {u"clientescycT", u"F"_s},
                {u"clientescycPE", u"03"_s},
                {u"clientescycEM", u"12"_s},
                {u"clientescycunidades", 2.0},
                {u"clientescycprecio", 1234.5},
                {u"clientescycIM", u"16"_s},
                {u"clientescycRE", u"4"_s},
                {u"clientescyccausa", u"ninguna"_s},
                {u"clientescynumserie", u"SN-1"_s},
                {u"clientescylineas", 1.0}});
    }
    QStringList lines() const
    {
        return ClientFixture::rows(BDCLIENTES,
                                   u"SELECT clientescycarticulo, clientescylineas, clientescycdescrip FROM "
                                   "clientescyctabla ORDER BY clientescycarticulo, clientescylineas"_s);
    }

    std::optional<ClientFixture> f;
};

void ConceptsTest::gridHasItsHeadingsWidthsAndFormats()
{
    f->open();
    const platform::FlexGrid* grid = f->grid(u"vsFlexGrid3"_s);

    QCOMPARE(grid->rows(), 50);
    QCOMPARE(f->line(u"vsFlexGrid3"_s, 0),
             QStringList({u"Artículo"_s, u"Descripción"_s, u"Fecha Inic"_s, u"Fecha Vcto"_s, u"Fecha baja"_s,
                          u"T"_s, u"PE"_s, u"EM"_s, u"Unidades"_s, u"Precio"_s, u"Imp."_s, u"Irpf"_s,
                          u"Causa de la baja"_s, u"Nº de Serie"_s}));
    const QList<int> widths{1000, 2700, 1000, 1000, 1000, 250, 350, 350, 1000, 1000, 500, 500, 2000};
    for (int col = 0; col < widths.size(); ++col)
        QCOMPARE(grid->colWidth(col), widths.at(col));
    for (int col : {2, 3, 4}) {
        QCOMPARE(grid->column(col).kind, platform::CellKind::Date);
        QCOMPARE(grid->column(col).format, u"dd/mm/yyyy"_s);
        QCOMPARE(grid->column(col).mask, u"99/99/9999"_s);
    }
    for (int col : {8, 9}) {
        QCOMPARE(grid->column(col).format, u"##,##.00"_s);
        QVERIFY(grid->column(col).alignment & Qt::AlignRight);
    }
}

void ConceptsTest::listsOfferTheirItems()
{
    f->open();
    QStringList kinds;
    for (const platform::CellListItem& item : f->grid(u"vsFlexGrid3"_s)->column(5).list.items)
        kinds += item.cellText;

    QCOMPARE(kinds, QStringList({u"F"_s, u"R"_s, u"V"_s, u"T"_s}));
    QCOMPARE(f->grid(u"vsFlexGrid3"_s)->column(6).list.items.size(), 12);
    QCOMPARE(f->grid(u"vsFlexGrid3"_s)->column(7).list.items.last().cellText, u"12"_s);
    QVERIFY(f->grid(u"vsFlexGrid3"_s)->column(0).list.hasButton);
}

void ConceptsTest::columnsWithoutAListArePlain()
{
    f->open();

    QVERIFY(f->grid(u"vsFlexGrid3"_s)->column(10).list.isPlain());
    QVERIFY(f->grid(u"vsFlexGrid3"_s)->column(11).list.isPlain());
}

void ConceptsTest::everyColumnComesIntoItsCell()
{
    givenFullConcept();
    f->open();

    f->enterCode(u"C1"_s);

    QCOMPARE(f->line(u"vsFlexGrid3"_s, 1),
             QStringList({u"ART1"_s, u" Contrato "_s, u"01/02/2026"_s, u"31/12/2026"_s, u""_s, u"F"_s,
                          u"03"_s, u"12"_s, u"2"_s, u"1234,5"_s, u"16"_s, u"4"_s, u"ninguna"_s, u"SN-1"_s}));
}

void ConceptsTest::cellsComeAsStored()
{
    f->addConcept(u"C1"_s, u" A "_s, 1, u"  con blancos  "_s);
    f->open();

    f->enterCode(u"C1"_s);

    QCOMPARE(f->cell(u"vsFlexGrid3"_s, 1, 0), u" A "_s);
    QCOMPARE(f->cell(u"vsFlexGrid3"_s, 1, 1), u"  con blancos  "_s);
}

void ConceptsTest::nullColumnLeavesItsCell()
{
    f->addConcept(u"C1"_s, u"ART1"_s, 1);
    f->open();
    f->grid(u"vsFlexGrid3"_s)->setTextMatrix(1, 13, u"left over"_s);
    f->box(u"Text49"_s)->setText(u"C1"_s);

    f->window().LeerClientes();

    QCOMPARE(f->cell(u"vsFlexGrid3"_s, 1, 13), u"left over"_s);
}

void ConceptsTest::lineWithoutADueDateShowsItEmpty()
{
    f->add(BDCLIENTES, u"clientescyctabla"_s,
           {{u"clientescycarticulo", u"ART1"_s},
            {u"clientescyccliente", u"C1"_s},
            {u"clientescycfecvcto", u"01/01/100"_s},
            {u"clientescylineas", 1.0}});
    f->open();

    f->enterCode(u"C1"_s);

    QCOMPARE(f->cell(u"vsFlexGrid3"_s, 1, 3), QString());
}

void ConceptsTest::twoLinesOfOneArticleAreBothShown()
{
    f->addConcept(u"C1"_s, u"ART1"_s, 1, u"primera"_s);
    f->addConcept(u"C1"_s, u"ART1"_s, 2, u"segunda"_s);
    f->open();

    f->enterCode(u"C1"_s);

    QCOMPARE(f->cell(u"vsFlexGrid3"_s, 1, 1), u"primera"_s);
    QCOMPARE(f->cell(u"vsFlexGrid3"_s, 2, 1), u"segunda"_s);
}

void ConceptsTest::linesBeyondTheGridAreWrittenOverTheLastOne()
{
    for (int number = 1; number <= 52; ++number)
        f->addConcept(u"C1"_s, u"A%1"_s.arg(number, 3, 10, QLatin1Char('0')), number);
    f->open();

    f->enterCode(u"C1"_s);

    QCOMPARE(f->cell(u"vsFlexGrid3"_s, 48, 0), u"A048"_s);
    QCOMPARE(f->cell(u"vsFlexGrid3"_s, 49, 0), u"A052"_s);
    QCOMPARE(f->grid(u"vsFlexGrid3"_s)->row(), 49);
}

void ConceptsTest::savingChangesNoConcept()
{
    f->addConcept(u"C1"_s, u"ART1"_s, 1, u"antes"_s);
    f->open();
    f->enterCode(u"C1"_s);
    f->typeCell(u"vsFlexGrid3"_s, 1, 1, u"después"_s);

    f->clickItem(u"GRABAR"_s);

    QCOMPARE(lines(), QStringList(u"ART1|1|antes"_s));
}

void ConceptsTest::savingAddsNoConcept()
{
    f->open();
    f->enterCode(u"C1"_s);
    f->typeCell(u"vsFlexGrid3"_s, 1, 0, u"ART9"_s);

    f->clickItem(u"GRABAR"_s);

    QCOMPARE(lines(), QStringList());
}

void ConceptsTest::lineWhoseArticleIsTheClientReachesTheStore()
{
    f->addConcept(u"C1"_s, u"C1"_s, 1, u"antes"_s);
    f->open();
    f->enterCode(u"C1"_s);
    f->typeCell(u"vsFlexGrid3"_s, 1, 1, u"nueva"_s);

    f->clickItem(u"GRABAR"_s);

    QCOMPARE(lines(), QStringList(u"C1|1|nueva"_s));
}

void ConceptsTest::writtenCellsAreCutAndRead()
{
    f->addConcept(u"C1"_s, u"C1"_s, 1);
    f->open();
    f->enterCode(u"C1"_s);
    const QStringList cells{u" C1 "_s,  u" d "_s,   u" x"_s,   u" 31/12/26 "_s, u" y"_s,
                            u" Fijo"_s, u" 0345"_s, u" 129"_s, u"12,50"_s,      u"1.234,50"_s,
                            u"16%"_s,   u"sin"_s,   u" c "_s,  u" s "_s};
    for (int col = 0; col < cells.size(); ++col)
        f->grid(u"vsFlexGrid3"_s)->setTextMatrix(1, col, cells.at(col));

    f->window().EscribeCliente();

    QCOMPARE(f->rows(BDCLIENTES, u"SELECT * FROM clientescyctabla"_s),
             QStringList(u"C1|C1| d | x|31/12/26| y|F|03|12|12|1,234|16|0| c | s |1"_s));
}

void ConceptsTest::articleChosenFillsCodeAndDescription()
{
    f->add(BDARTICULOS, u"ArticulosTabla"_s, {{u"ArtCodigo", u"ART7"_s}, {u"Descripcion", u"Caldera"_s}});
    f->open();
    f->enterCode(u"C1"_s);
    f->clickCell(u"vsFlexGrid3"_s, 2, 0);
    f->answerLookup(u"art7"_s);

    Q_EMIT f->grid(u"vsFlexGrid3"_s)->CellButtonClick(2, 0);

    QCOMPARE(f->lookups(), QList<int>{11});
    QCOMPARE(f->pointers(), QList<int>{13});
    QCOMPARE(f->cell(u"vsFlexGrid3"_s, 2, 0), u"ART7"_s);
    QCOMPARE(f->cell(u"vsFlexGrid3"_s, 2, 1), u"Caldera"_s);
    QCOMPARE(f->grid(u"vsFlexGrid3"_s)->col(), 1);
}

void ConceptsTest::articleNotInTheStoreLeavesTheLine()
{
    f->open();
    f->enterCode(u"C1"_s);
    f->clickCell(u"vsFlexGrid3"_s, 1, 0);
    f->answerLookup(u"NADA"_s);

    Q_EMIT f->grid(u"vsFlexGrid3"_s)->CellButtonClick(1, 0);

    QCOMPARE(f->cell(u"vsFlexGrid3"_s, 1, 0), QString());
}

void ConceptsTest::lookupLeftWithoutChoiceLeavesTheLine()
{
    f->addConcept(u"C1"_s, u"ART1"_s, 1, u"descripción"_s);
    f->open();
    f->enterCode(u"C1"_s);
    f->clickCell(u"vsFlexGrid3"_s, 1, 0);

    Q_EMIT f->grid(u"vsFlexGrid3"_s)->CellButtonClick(1, 0);

    QCOMPARE(f->cell(u"vsFlexGrid3"_s, 1, 0), u"ART1"_s);
    QCOMPARE(f->cell(u"vsFlexGrid3"_s, 1, 1), u"descripción"_s);
}

void ConceptsTest::lookupEndsWithTheResultEmptyAndTheGridPainting()
{
    f->open();
    f->answerLookup(u"NADA"_s);

    Q_EMIT f->grid(u"vsFlexGrid3"_s)->CellButtonClick(1, 0);

    QCOMPARE(RESULTADOBUSQUEDA, QString());
    QVERIFY(f->grid(u"vsFlexGrid3"_s)->redraw());
    QCOMPARE(platform::mousePointer(&f->window()), platform::kDefaultPointer);
}

void ConceptsTest::buttonOfAnotherColumnShowsNoLookup()
{
    f->open();
    RESULTADOBUSQUEDA = u"kept"_s;

    Q_EMIT f->grid(u"vsFlexGrid3"_s)->CellButtonClick(1, 1);

    QCOMPARE(f->lookups(), QList<int>());
    QCOMPARE(RESULTADOBUSQUEDA, u"kept"_s);
    QVERIFY(f->grid(u"vsFlexGrid3"_s)->redraw());
}

void ConceptsTest::deletionTakesTheFirstLineOfTheArticle()
{
    f->addConcept(u"C1"_s, u"ART1"_s, 1, u"primera"_s);
    f->addConcept(u"C1"_s, u"ART1"_s, 2, u"segunda"_s);
    f->addConcept(u"C2"_s, u"ART1"_s, 1, u"de otro"_s);
    f->open();
    f->enterCode(u"C1"_s);
    f->clickCell(u"vsFlexGrid3"_s, 2, 3);

    f->chooseInLineMenu(u"vsFlexGrid3"_s, 2, 3, u"eliminar"_s);

    QCOMPARE(lines(), QStringList({u"ART1|1|de otro"_s, u"ART1|2|segunda"_s}));
    QCOMPARE(f->cell(u"vsFlexGrid3"_s, 1, 1), u"primera"_s);
    QCOMPARE(f->cell(u"vsFlexGrid3"_s, 2, 1), QString());
}

void ConceptsTest::deletionLeavesAnEmptyRow()
{
    givenFullConcept();
    f->open();
    f->enterCode(u"C1"_s);
    f->clickCell(u"vsFlexGrid3"_s, 1, 0);

    f->chooseInLineMenu(u"vsFlexGrid3"_s, 1, 0, u"eliminar"_s);

    QCOMPARE(f->line(u"vsFlexGrid3"_s, 1).join(QString()), QString());
    QCOMPARE(f->grid(u"vsFlexGrid3"_s)->rows(), 50);
}

void ConceptsTest::articleThatIsNotStoredIsNotDeleted()
{
    f->addConcept(u"C1"_s, u"ART1"_s, 1);
    f->open();
    f->enterCode(u"C1"_s);
    f->typeCell(u"vsFlexGrid3"_s, 1, 0, u"OTRO"_s);

    f->chooseInLineMenu(u"vsFlexGrid3"_s, 1, 0, u"eliminar"_s);

    QCOMPARE(lines().size(), 1);
    QCOMPARE(f->cell(u"vsFlexGrid3"_s, 1, 0), u"OTRO"_s);
}

void ConceptsTest::deletionOnAnEmptyLineDoesNothing()
{
    f->addConcept(u"C1"_s, u"ART1"_s, 1);
    f->open();
    f->enterCode(u"C1"_s);
    f->clickCell(u"vsFlexGrid3"_s, 4, 0);

    f->chooseInLineMenu(u"vsFlexGrid3"_s, 4, 0, u"eliminar"_s);

    QCOMPARE(lines().size(), 1);
}

QTEST_MAIN(ConceptsTest)
#include "tst_concepts.moc"
