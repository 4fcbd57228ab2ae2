// SPDX-License-Identifier: GPL-3.0-or-later
#include "clients/clientfixture.h"

#include "assistance/consultaspage.h"
#include "platform/window/combolist.h"
#include "platform/window/flexgrid.h"
#include "platform/window/multilinebox.h"
#include "platform/window/textbox.h"
#include "platform/window/treeview.h"
#include "shell/globalsat.h"

#include <optional>

using namespace Qt::StringLiterals;
using platform::dao::Recordset;
using testsupport::ClientFixture;

class ConsultationRecordTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        f.emplace();
        f->addClient(u"C1"_s, u"UNO"_s);
        f->addClient(u"C2"_s, u"DOS"_s);
        f->addConcept(u"C1"_s, u"ART1"_s, 1, u"Caldera"_s);
        f->addConcept(u"C1"_s, u"ART2"_s, 2, u"Bomba"_s);
    }
    void cleanup() { f.reset(); }

    void gridHasItsHeadingsWidthsAndLists();
    void savedConsultationHoldsEveryColumn();
    void saveStampsTheEndWhateverItHeld();
    void saveClearsThePageWithoutDefaults();
    void savingTwiceAddsASecondWithAnEmptyRow();
    void consultationOfAClientNeverSavedIsStored();
    void clientWithoutConceptsStoresMinusOne();
    void subjectTooLongLeavesTheColumnAlone();
    void clickOnANodeShowsTheConsultation();
    void nodeOfAConsultationThatIsGoneLeavesThePage();
    void closedConsultationMayBeReopened();
    void nullColumnLeavesTheControl();
    void positionBeyondTheListLeavesTheSelection_data();
    void positionBeyondTheListLeavesTheSelection();
    void clearingPutsTheTelephonesOnTheHeading();
    void clearingBringsTheConsultationsUp();
    void textsOfSeveralLinesKeepTheirLineEnds();
    void deletionTakesEveryConsultationOfTheClient();
    void deletionAfterASearchThatFailedTakesNone();
    void deletionComparesTheCodeExactly();
    void pageOfTheWebIsNotTouched();

private:
    ConsultasPage* page() const { return f->control<ConsultasPage>(u"consultas"_s); }
    QString row(int col) const { return f->cell(u"vsFlexGrid6"_s, 1, col); }
    QStringList stored(const QString& columns = u"ORDEN, CLICONSULTA, TEMA"_s) const
    {
        return ClientFixture::rows(BDASISTENCIAS,
                                   u"SELECT "_s + columns + u" FROM CONS ORDER BY ORDEN, CLICONSULTA"_s);
    }
    void openClient(const QString& code = u"C1"_s)
    {
        f->open();
        f->enterCode(code);
        f->showPage(3);
    }
    void clickNode(const QString& key)
    {
        auto* tree = f->control<platform::TreeView>(u"TreeView1"_s);
        tree->ensureNodeVisible(key);
        const QList<QTreeWidgetItem*> found =
            tree->findItems(tree->nodeText(key), Qt::MatchExactly | Qt::MatchRecursive);
        QVERIFY(!found.isEmpty());
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualItemRect(found.first()).center());
    }

    std::optional<ClientFixture> f;
};

void ConsultationRecordTest::gridHasItsHeadingsWidthsAndLists()
{
    f->open();
    const platform::FlexGrid* grid = f->grid(u"vsFlexGrid6"_s);

    QCOMPARE(grid->rows(), 2);
    QCOMPARE(f->line(u"vsFlexGrid6"_s, 0),
             QStringList({u"F. Incic."_s, u"H. Inici."_s, u"Técnico"_s, u"F. Final"_s, u"H. Final"_s,
                          u"Estado"_s, u"Publicable"_s}));
    const QList<int> widths{1200, 1100, 1700, 1200, 1100, 1000, 100};
    for (int col = 0; col < widths.size(); ++col)
        QCOMPARE(grid->colWidth(col), widths.at(col));
    QCOMPARE(grid->column(5).list.items.size(), 2);
    QCOMPARE(grid->column(6).list.items.first().cellText, u"01 Si"_s);
    QVERIFY(grid->column(2).list.isPlain());
}

void ConsultationRecordTest::savedConsultationHoldsEveryColumn()
{
    openClient();
    f->type(u"Text11"_s, u" no enciende "_s);
    f->control<platform::ComboList>(u"Combo3"_s)->setListIndex(1);
    f->type(u"Text12"_s, u"pregunta "_s);
    f->type(u"Text13"_s, u" respuesta"_s);
    f->clock.advance(75);

    f->click(u"Command6"_s);

    QCOMPARE(stored(u"*"_s),
             QStringList(u"1|C1| no enciende |1|20/11/2026|09:15:30|20/11/2026|09:16:45|pregunta | "
                         "respuesta|ana|01 Abierta|01 No|(null)"_s));
}

void ConsultationRecordTest::saveStampsTheEndWhateverItHeld()
{
    openClient();
    f->grid(u"vsFlexGrid6"_s)->setTextMatrix(1, 3, u"01/01/2001"_s);
    f->grid(u"vsFlexGrid6"_s)->setTextMatrix(1, 4, u"01:01:01"_s);

    f->click(u"Command6"_s);

    QCOMPARE(stored(u"FEFINAL, HOFINAL, ESTADO"_s), QStringList(u"20/11/2026|09:15:30|01 Abierta"_s));
}

void ConsultationRecordTest::saveClearsThePageWithoutDefaults()
{
    openClient();
    f->type(u"Text11"_s, u"tema"_s);
    f->type(u"Text12"_s, u"pregunta"_s);

    f->click(u"Command6"_s);

    QCOMPARE(f->line(u"vsFlexGrid6"_s, 1).join(QString()), QString());
    QCOMPARE(f->text(u"Text11"_s) + f->text(u"Text12"_s) + f->text(u"Text13"_s), QString());
    QCOMPARE(f->text(u"Text10"_s), u"0000000002"_s);
    QCOMPARE(f->control<platform::ComboList>(u"Combo3"_s)->listIndex(), 0);
}

void ConsultationRecordTest::savingTwiceAddsASecondWithAnEmptyRow()
{
    openClient();
    f->click(u"Command6"_s);

    f->click(u"Command6"_s);

    QCOMPARE(stored(u"ORDEN, FEINICIO, HOINICIO, TECNICO, FEFINAL, HOFINAL, ESTADO, conpublicable"_s),
             QStringList({u"1|20/11/2026|09:15:30|ana|20/11/2026|09:15:30|01 Abierta|01 No"_s,
                          u"2||||20/11/2026|09:15:30||"_s}));
}

void ConsultationRecordTest::consultationOfAClientNeverSavedIsStored()
{
    openClient(u"NADIE"_s);

    f->click(u"Command6"_s);

    QCOMPARE(stored(), QStringList(u"1|NADIE|"_s));
}

void ConsultationRecordTest::clientWithoutConceptsStoresMinusOne()
{
    openClient(u"C2"_s);

    f->click(u"Command6"_s);

    QCOMPARE(stored(u"PROGRAMA"_s), QStringList(u"-1"_s));
}

void ConsultationRecordTest::subjectTooLongLeavesTheColumnAlone()
{
    openClient();
    f->box(u"Text11"_s)->setText(QString(36, u't'));
    f->type(u"Text12"_s, u"pregunta"_s);

    f->click(u"Command6"_s);

    QCOMPARE(stored(u"ORDEN, TEMA, DESCRIPCION"_s), QStringList(u"1|(null)|pregunta"_s));
}

void ConsultationRecordTest::clickOnANodeShowsTheConsultation()
{
    f->add(BDASISTENCIAS, u"CONS"_s,
           {{u"ORDEN", 7.0},
            {u"CLICONSULTA", u"C1"_s},
            {u"TEMA", u"no enciende"_s},
            {u"PROGRAMA", u"1"_s},
            {u"FEINICIO", u"01/02/2026"_s},
            {u"HOINICIO", u"10:00:00"_s},
            {u"FEFINAL", u"02/02/2026"_s},
            {u"HOFINAL", u"11:00:00"_s},
            {u"DESCRIPCION", u"pregunta"_s},
            {u"SOLUCION", u"respuesta"_s},
            {u"TECNICO", u"luis"_s},
            {u"ESTADO", u"02 Cerrada"_s},
            {u"conpublicable", u"02 No"_s}});
    openClient();

    clickNode(u"B1"_s);

    QCOMPARE(f->text(u"Text10"_s), u"0000000007"_s);
    QCOMPARE(f->text(u"Text11"_s), u"no enciende"_s);
    QCOMPARE(f->control<platform::ComboList>(u"Combo3"_s)->listIndex(), 1);
    QCOMPARE(f->line(u"vsFlexGrid6"_s, 1),
             QStringList({u"01/02/2026"_s, u"10:00:00"_s, u"luis"_s, u"02/02/2026"_s, u"11:00:00"_s,
                          u"02 Cerrada"_s, u"02 No"_s}));
    QCOMPARE(f->text(u"Text12"_s), u"pregunta"_s);
    QCOMPARE(f->text(u"Text13"_s), u"respuesta"_s);
    QCOMPARE(page()->CONSULTALEIDA, 1);
}

void ConsultationRecordTest::nodeOfAConsultationThatIsGoneLeavesThePage()
{
    f->addConsultation(7, u"C1"_s, u"no enciende"_s);
    openClient();
    Recordset others = BDASISTENCIAS.OpenRecordset(u"CONS"_s, platform::dao::dbOpenTable);
    others.Delete();
    f->type(u"Text11"_s, u"left over"_s);
    const QString proposed = f->text(u"Text10"_s);

    clickNode(u"A1"_s);

    QVERIFY(proposed != u"0000000007"_s);
    QCOMPARE(f->text(u"Text10"_s), proposed);
    QCOMPARE(f->text(u"Text11"_s), u"left over"_s);
    QCOMPARE(page()->CONSULTALEIDA, 0);
}

void ConsultationRecordTest::closedConsultationMayBeReopened()
{
    f->addConsultation(7, u"C1"_s, u"tema"_s, u"02 Cerrada"_s);
    openClient();
    clickNode(u"B1"_s);
    f->grid(u"vsFlexGrid6"_s)->setTextMatrix(1, 5, u"01 Abierta"_s);

    f->click(u"Command6"_s);

    QCOMPARE(stored(u"ORDEN, ESTADO"_s), QStringList(u"7|01 Abierta"_s));
}

void ConsultationRecordTest::nullColumnLeavesTheControl()
{
    f->addConsultation(7, u"C1"_s, u"tema"_s);
    openClient();
    f->type(u"Text13"_s, u"left over"_s);

    clickNode(u"A1"_s);

    QCOMPARE(f->text(u"Text11"_s), u"tema"_s);
    QCOMPARE(f->text(u"Text13"_s), u"left over"_s);
    QCOMPARE(row(6), u"01 No"_s); // conpublicable is Null
}

void ConsultationRecordTest::positionBeyondTheListLeavesTheSelection_data()
{
    QTest::addColumn<QString>("position");

    QTest::newRow("none") << u"-1"_s;
    QTest::newRow("beyond the list") << u"2"_s;
    QTest::newRow("no number") << u"uno"_s;
    QTest::newRow("empty") << u""_s;
    QTest::newRow("beyond sixteen bits") << u"70000"_s;
}

void ConsultationRecordTest::positionBeyondTheListLeavesTheSelection()
{
    QFETCH(const QString, position);
    f->add(BDASISTENCIAS, u"CONS"_s,
           {{u"ORDEN", 7.0},
            {u"CLICONSULTA", u"C1"_s},
            {u"TEMA", u"tema"_s},
            {u"PROGRAMA", position},
            {u"ESTADO", u"01 Abierta"_s}});
    openClient();
    f->control<platform::ComboList>(u"Combo3"_s)->setListIndex(1);

    clickNode(u"A1"_s);

    QCOMPARE(f->text(u"Text11"_s), u"tema"_s);
    QCOMPARE(f->control<platform::ComboList>(u"Combo3"_s)->listIndex(), 1);
}

void ConsultationRecordTest::clearingPutsTheTelephonesOnTheHeading()
{
    openClient();
    f->grid(u"vsFlexGrid4"_s)->setRow(4);
    f->grid(u"vsFlexGrid4"_s)->setCol(2);

    f->click(u"Command7"_s);

    QCOMPARE(f->grid(u"vsFlexGrid4"_s)->row(), 0);
    QCOMPARE(f->grid(u"vsFlexGrid4"_s)->col(), 0);
}

void ConsultationRecordTest::clearingBringsTheConsultationsUp()
{
    openClient();
    f->showPage(1);

    page()->limpiaconsultas();

    QCOMPARE(f->tab(), 3);
}

void ConsultationRecordTest::textsOfSeveralLinesKeepTheirLineEnds()
{
    openClient();
    f->control<platform::MultiLineBox>(u"Text12"_s)->setText(u"una\r\ndos"_s);

    f->click(u"Command6"_s);
    clickNode(u"A1"_s);

    QCOMPARE(stored(u"DESCRIPCION"_s), QStringList(u"una\r\ndos"_s));
    QCOMPARE(f->text(u"Text12"_s), u"una\r\ndos"_s);
}

void ConsultationRecordTest::deletionTakesEveryConsultationOfTheClient()
{
    for (int number = 1; number <= 5; ++number)
        f->addConsultation(number, number % 2 ? u"C1"_s : u"C2"_s, u"tema"_s);
    openClient();
    clickNode(u"A1"_s); // a search that finds

    page()->BORRACONSULTAS();

    QCOMPARE(stored(u"ORDEN, CLICONSULTA"_s), QStringList({u"2|C2"_s, u"4|C2"_s}));
}

void ConsultationRecordTest::deletionAfterASearchThatFailedTakesNone()
{
    f->addConsultation(1, u"C1"_s, u"tema"_s);
    openClient();
    RSCONSULTAS.setIndex(u"CONnum"_s);
    RSCONSULTAS.Seek(u"=", 99.0, u"C1"_s);

    page()->BORRACONSULTAS();

    QCOMPARE(stored().size(), 1);
}

void ConsultationRecordTest::deletionComparesTheCodeExactly()
{
    f->addConsultation(1, u"C1"_s, u"suya"_s);
    f->addConsultation(2, u"c1"_s, u"minúscula"_s);
    openClient();
    clickNode(u"A1"_s);

    page()->BORRACONSULTAS();

    QCOMPARE(stored(u"CLICONSULTA"_s), QStringList(u"c1"_s));
}

void ConsultationRecordTest::pageOfTheWebIsNotTouched()
{
    f->add(BDASISTENCIAS, u"CONS"_s,
           {{u"ORDEN", 7.0},
            {u"CLICONSULTA", u"C1"_s},
            {u"TEMA", u"tema"_s},
            {u"ESTADO", u"01 Abierta"_s},
            {u"conpaginaweb", u"http://example.com"_s}});
    openClient();
    clickNode(u"A1"_s);

    f->click(u"Command6"_s);

    QCOMPARE(stored(u"conpaginaweb"_s), QStringList(u"http://example.com"_s));
}

QTEST_MAIN(ConsultationRecordTest)
#include "tst_consultationrecord.moc"
