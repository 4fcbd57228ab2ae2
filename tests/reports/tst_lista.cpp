// SPDX-License-Identifier: GPL-3.0-or-later
#include "lookup/lisem.h"
#include "platform/core/failure.h"
#include "platform/print/output/printers.h"
#include "platform/system/clock.h"
#include "platform/system/messagebox.h"
#include "platform/window/combolist.h"
#include "platform/window/formhelpers.h"
#include "platform/window/imagelabel.h"
#include "platform/window/listbar.h"
#include "platform/window/picturebox.h"
#include "platform/window/textbox.h"
#include "platform/window/treeview.h"
#include "reports/catalogue.h"
#include "reports/lista.h"
#include "reports/recordingengine.h"
#include "shell/globalsat.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QPushButton>
#include <QtTest>

using namespace platform;
using namespace Qt::StringLiterals;
using reports::LISTA;

namespace {

const QDate kToday(2026, 11, 20);

PrinterList twoPrinters()
{
    return {{{u"Oficina"_s, u"PostScript"_s, u"P1"_s}, {u"Taller"_s, u"PCL"_s, u"P2"_s}}, 1};
}

template <typename T>
T* control(LISTA& window, const char* name)
{
    return window.findChild<T*>(QLatin1String(name));
}

} // namespace

class ListaTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void everyRowShowsItsParts_data();
    void everyRowShowsItsParts();
    void numberOutsideTheCatalogueShowsNoRangePages();
    void loadOpensTheEngineFirst();
    void sentenceNamesTheReport();
    void hintCarriesTheVersion();
    void datesStartToday();
    void copiesOfferOneToTwenty();
    void report888StartsOnThePresentMonth();
    void focusStartsOnTheFirstParameter();
    void report6AsksForTheBank();
    void report1OffersTheReceipt();

    void unloadClosesTheEngineAndWipesTheRequest();
    void escapeAndEnterDoNothing();

    void tabOfTheDatesTurnsThePage();
    void tabOfTheDatesIsRefused_data();
    void tabOfTheDatesIsRefused();
    void tabOfTheNumbersTurnsBack();
    void keyboardTurnsThePage();

    void listBarPutsTheRangeInOrder();
    void rangeCheckReadsLeadingNumbers_data();
    void rangeCheckReadsLeadingNumbers();
    void rangeCheckRunsOnHiddenBoxesToo();
    void buttonsLeaveTheRangeAlone();
    void listBarRefusesReports8881And726_data();
    void listBarRefusesReports8881And726();
    void buttonsRunReport726();
    void sendingHasNoEffectByEitherRoad();
    void exitItemChecksTheRangeFirst();
    void outputModeIsIdleAfterARun();

    void blanksInARangeBoxVanish();
    void pickInTheFirstBoxFillsBoth();
    void pickInTheSecondBoxFillsOnlyIt();
    void leavingTheLookupWithoutAPickChangesNothing();
    void reportWithoutLookupOpensNone();

    void treeListsThePrintersUnderTheirRoot();
    void treeSelectsTheDefaultPrinter();
    void lastOfTwoPrintersWithOneNameIsSelected();
    void emptyPrinterListLeavesTheTwoRoots();
    void doubleClickOnAPrinterChoosesItWithAMessage();
    void doubleClickOnThePresentPrinterShowsTheMessageToo();
    void doubleClickOnTheRootsDoesNothing_data();
    void doubleClickOnTheRootsDoesNothing();
    void printerThatHasGoneLeavesTheChoiceButShowsTheMessage();

    void secondModalShowFailsWhileTheWindowIsUp();

private:
    void request(double report);
    std::unique_ptr<LISTA> shown(double report);
    QList<Message> m_messages;
};

void ListaTest::init()
{
    QCoreApplication::setApplicationVersion(u"3.32.3009"_s);
    resetProgramState();
    resetRecordingEngine();
    m_messages.clear();
    setClock([] { return QDateTime(kToday, QTime(9, 30)); });
    setMessageBox([this](const Message& message) { m_messages.append(message); });
    setPrinterSource(twoPrinters);
    setMuestraLISEM({});
}

void ListaTest::cleanup()
{
    setMuestraLISEM({});
    setPrinterSource({});
    setMessageBox({});
    setClock({});
}

void ListaTest::request(double report)
{
    NUMINFORME = report;
    FICHEROINFORME = u"C:\\Q\\informe.rpt"_s;
    TITULOINFORME = u" Albaranes de Mantenimiento "_s;
    BASEINFORME = u"C:\\Q\\Empresa00012\\CLIENTES.MDB"_s;
}

std::unique_ptr<LISTA> ListaTest::shown(double report)
{
    request(report);
    auto window = std::make_unique<LISTA>();
    window->showModeless();
    if (!QTest::qWaitForWindowActive(window.get()))
        qFatal("the report window does not become active");
    return window;
}

void ListaTest::everyRowShowsItsParts_data()
{
    QTest::addColumn<int>("number");
    for (const reports::ReportRow& row : reports::catalogue())
        QTest::addRow("%d", row.number) << row.number;
}

void ListaTest::everyRowShowsItsParts()
{
    QFETCH(int, number);
    const reports::ReportRow& row = *reports::reportRow(number);
    const bool hasPages = row.pages != reports::RangePages::NoPages;

    const auto window = shown(number);

    QCOMPARE(control<QWidget>(*window, "Picture3")->isVisible(), hasPages);
    QCOMPARE(control<QWidget>(*window, "Picture4")->isVisible(), hasPages);
    QCOMPARE(control<QWidget>(*window, "Picture2")->isVisible(), row.hasBanner);
    QVERIFY(!control<QWidget>(*window, "Picture5")->isVisible());
    QVERIFY(!control<QWidget>(*window, "Picture6")->isVisible());
    QCOMPARE(control<TextBox>(*window, "Text1")->text(), row.firstStart.toString());
    QCOMPARE(control<TextBox>(*window, "Text2")->text(), row.secondStart.toString());
    QCOMPARE(control<QWidget>(*window, "Combo2")->isVisible(), number == 888);
    QCOMPARE(control<QWidget>(*window, "Check1")->isVisible(), number == 1);
}

void ListaTest::numberOutsideTheCatalogueShowsNoRangePages()
{
    const auto window = shown(4711);

    QVERIFY(!control<QWidget>(*window, "Picture3")->isVisible());
    QVERIFY(!control<QWidget>(*window, "Picture2")->isVisible());
}

void ListaTest::loadOpensTheEngineFirst()
{
    const auto window = shown(725);

    QCOMPARE(recordedCalls(), QStringList{u"PEOpenEngine()"_s});
}

void ListaTest::sentenceNamesTheReport()
{
    const auto window = shown(725);

    QCOMPARE(control<QLabel>(*window, "Label1")->text(),
             u"Quenda está preparado para la impresión del informe: Albaranes de Mantenimiento. Por favor, "
             "seleccione los parámetros que considere oportunos:"_s);
}

void ListaTest::hintCarriesTheVersion()
{
    const auto window = shown(725);

    QCOMPARE(control<QWidget>(*window, "imgwl")->toolTip(), u"Quenda.- Ver.3.32 Build 3009"_s);
}

void ListaTest::datesStartToday()
{
    const auto window = shown(1);

    QCOMPARE(control<QDateEdit>(*window, "DTPicker1")->date(), kToday);
    QCOMPARE(control<QDateEdit>(*window, "DTPicker2")->text(), u"20/11/2026"_s);
}

void ListaTest::copiesOfferOneToTwenty()
{
    const auto window = shown(725);
    const auto* copies = control<ComboList>(*window, "Combo1");

    QCOMPARE(copies->listCount(), 20);
    QCOMPARE(copies->text(), u"1"_s);
    QCOMPARE(copies->list(19), u"20"_s);
}

void ListaTest::report888StartsOnThePresentMonth()
{
    const auto window = shown(888);
    const auto* months = control<ComboList>(*window, "Combo2");

    QCOMPARE(months->listCount(), 12);
    QCOMPARE(months->text(), u"11"_s);
    QVERIFY(control<QWidget>(*window, "Label11")->isVisible());
}

void ListaTest::focusStartsOnTheFirstParameter()
{
    QVERIFY(control<QWidget>(*shown(725), "Text1")->hasFocus());
    QVERIFY(control<QWidget>(*shown(888), "Combo2")->hasFocus());
    QVERIFY(control<QWidget>(*shown(8888), "Combo1")->hasFocus());
}

void ListaTest::report6AsksForTheBank()
{
    QCOMPARE(control<QLabel>(*shown(6), "Label2")->text(), u"Desde Banco"_s);
    QCOMPARE(control<QLabel>(*shown(7), "Label2")->text(), u"Selección desde"_s);
}

void ListaTest::report1OffersTheReceipt()
{
    const auto window = shown(1);

    QVERIFY(control<QWidget>(*window, "Label12")->isVisible());
    QVERIFY(!control<QCheckBox>(*window, "Check1")->isChecked());
}

void ListaTest::unloadClosesTheEngineAndWipesTheRequest()
{
    const auto window = shown(725);
    const std::array bases{&BASEINFORME,  &BASEINFORME1, &BASEINFORME2, &BASEINFORME3,
                           &BASEINFORME4, &BASEINFORME5, &BASEINFORME6, &BASEINFORME7};
    for (QString* base : bases)
        *base = u"x"_s;
    RESULTADOBUSQUEDA = u"x"_s;

    QTest::mouseClick(control<QPushButton>(*window, "Command3"), Qt::LeftButton);

    QCOMPARE(recordedCalls().last(), u"PECloseEngine()"_s);
    QVERIFY(!window->isVisible());
    QCOMPARE(NUMINFORME, 0.0);
    QCOMPARE(TITULOINFORME + FICHEROINFORME + RESULTADOBUSQUEDA, QString());
    for (const QString* base : bases)
        QCOMPARE(*base, QString());
    QCOMPARE(control<TextBox>(*window, "Text1")->text(), QString());
}

void ListaTest::escapeAndEnterDoNothing()
{
    const auto window = shown(725);
    recordedCalls().clear();

    QTest::keyClick(control<TextBox>(*window, "Text1"), Qt::Key_Escape);
    QTest::keyClick(control<TextBox>(*window, "Text1"), Qt::Key_Return);

    QVERIFY(window->isVisible());
    QVERIFY(recordedCalls().isEmpty());
}

void ListaTest::tabOfTheDatesTurnsThePage()
{
    const auto window = shown(525);

    QTest::mouseClick(control<ImageLabel>(*window, "Label5"), Qt::LeftButton);

    QVERIFY(control<QWidget>(*window, "Picture6")->isVisible());
    QVERIFY(control<QWidget>(*window, "Picture5")->isVisible());
    QVERIFY(!control<QWidget>(*window, "Picture3")->isVisible());
    QVERIFY(!control<QWidget>(*window, "Picture4")->isVisible());
    QVERIFY(control<QDateEdit>(*window, "DTPicker1")->hasFocus());
}

void ListaTest::tabOfTheDatesIsRefused_data()
{
    QTest::addColumn<double>("report");
    QTest::newRow("444") << 444.0;
    QTest::newRow("725") << 725.0;
    QTest::newRow("8881") << 8881.0;
}

void ListaTest::tabOfTheDatesIsRefused()
{
    QFETCH(double, report);
    const auto window = shown(report);

    QTest::mouseClick(control<ImageLabel>(*window, "Label5"), Qt::LeftButton);

    QVERIFY(control<QWidget>(*window, "Picture3")->isVisible());
    QVERIFY(!control<QWidget>(*window, "Picture6")->isVisible());
}

void ListaTest::tabOfTheNumbersTurnsBack()
{
    const auto window = shown(525);
    QTest::mouseClick(control<ImageLabel>(*window, "Label5"), Qt::LeftButton);

    QTest::mouseClick(control<ImageLabel>(*window, "Label7"), Qt::LeftButton);

    QVERIFY(control<QWidget>(*window, "Picture3")->isVisible());
    QVERIFY(!control<QWidget>(*window, "Picture6")->isVisible());
    QVERIFY(control<TextBox>(*window, "Text1")->hasFocus());
}

void ListaTest::keyboardTurnsThePage()
{
    const auto window = shown(525);

    QTest::keyClick(window.get(), Qt::Key_Tab, Qt::ControlModifier);
    QVERIFY(control<QWidget>(*window, "Picture6")->isVisible());

    QTest::keyClick(window.get(), Qt::Key_Tab, Qt::ControlModifier);
    QVERIFY(control<QWidget>(*window, "Picture3")->isVisible());
}

void ListaTest::listBarPutsTheRangeInOrder()
{
    const auto window = shown(725);
    control<TextBox>(*window, "Text1")->setText(u"0000000009"_s);
    control<TextBox>(*window, "Text2")->setText(u"1"_s);

    control<ListBar>(*window, "SSListBar1")->activate(u"TRES"_s);

    QCOMPARE(control<TextBox>(*window, "Text1")->text(), u"1"_s);
    QCOMPARE(control<TextBox>(*window, "Text2")->text(), u"9"_s);
}

void ListaTest::rangeCheckReadsLeadingNumbers_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<QString>("newFrom");
    QTest::addColumn<QString>("newTo");
    QTest::newRow("letters count as 0") << u"abc"_s << u"5"_s << u"abc"_s << u"5"_s;
    QTest::newRow("letters last swap") << u"5"_s << u"abc"_s << u"0"_s << u"5"_s;
    QTest::newRow("equal stays") << u"0007"_s << u"7"_s << u"0007"_s << u"7"_s;
    QTest::newRow("in order stays") << u"0001"_s << u"0009"_s << u"0001"_s << u"0009"_s;
}

void ListaTest::rangeCheckReadsLeadingNumbers()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    const auto window = shown(525);
    control<TextBox>(*window, "Text1")->setText(from);
    control<TextBox>(*window, "Text2")->setText(to);

    window->checkRange();

    QTEST(control<TextBox>(*window, "Text1")->text(), "newFrom");
    QTEST(control<TextBox>(*window, "Text2")->text(), "newTo");
}

void ListaTest::rangeCheckRunsOnHiddenBoxesToo()
{
    const auto window = shown(888);
    control<TextBox>(*window, "Text1")->setText(u"9"_s);
    control<TextBox>(*window, "Text2")->setText(u"1"_s);

    control<ListBar>(*window, "SSListBar1")->activate(u"TRES"_s);

    QCOMPARE(control<TextBox>(*window, "Text1")->text(), u"1"_s);
}

void ListaTest::buttonsLeaveTheRangeAlone()
{
    const auto window = shown(525);
    control<TextBox>(*window, "Text1")->setText(u"9"_s);
    control<TextBox>(*window, "Text2")->setText(u"1"_s);

    QTest::mouseClick(control<QPushButton>(*window, "Command1"), Qt::LeftButton);

    QCOMPARE(control<TextBox>(*window, "Text1")->text(), u"9"_s);
}

void ListaTest::listBarRefusesReports8881And726_data()
{
    QTest::addColumn<double>("report");
    QTest::addColumn<QString>("key");
    for (const double report : {8881.0, 726.0}) {
        QTest::addRow("%g UNO", report) << report << u"UNO"_s;
        QTest::addRow("%g DOS", report) << report << u"DOS"_s;
    }
}

void ListaTest::listBarRefusesReports8881And726()
{
    QFETCH(double, report);
    QFETCH(QString, key);
    const auto window = shown(report);
    recordedCalls().clear();

    control<ListBar>(*window, "SSListBar1")->activate(key);

    QVERIFY(recordedCalls().isEmpty());
}

void ListaTest::buttonsRunReport726()
{
    const auto window = shown(726);

    QTest::mouseClick(control<QPushButton>(*window, "Command1"), Qt::LeftButton);
    QTest::mouseClick(control<QPushButton>(*window, "Command2"), Qt::LeftButton);

    QCOMPARE(recordedCalls().count(u"PEStartPrintJob(1, 0)"_s), 2);
    QCOMPARE(TITULOINFORME, u"Liquidación de comisiones"_s);
}

void ListaTest::sendingHasNoEffectByEitherRoad()
{
    const auto window = shown(725);
    recordedCalls().clear();

    QTest::mouseClick(control<QPushButton>(*window, "Command4"), Qt::LeftButton);
    control<ListBar>(*window, "SSListBar1")->activate(u"TRES"_s);

    QVERIFY(recordedCalls().isEmpty());
    QVERIFY(window->isVisible());
}

void ListaTest::exitItemChecksTheRangeFirst()
{
    const auto window = shown(725);
    control<TextBox>(*window, "Text1")->setText(u"9"_s);
    control<TextBox>(*window, "Text2")->setText(u"1"_s);
    QStringList seen;
    connect(control<TextBox>(*window, "Text1"), &TextBox::textChanged, this,
            [&seen](const QString& text) { seen.append(text); });

    control<ListBar>(*window, "SSListBar1")->activate(u"CUATRO"_s);

    QCOMPARE(seen, (QStringList{u"1"_s, QString()}));
    QVERIFY(!window->isVisible());
}

void ListaTest::outputModeIsIdleAfterARun()
{
    const auto window = shown(725);

    QTest::mouseClick(control<QPushButton>(*window, "Command1"), Qt::LeftButton);

    QCOMPARE(window->MODOSALIDA, 0.0);
    QCOMPARE(mousePointer(window.get()), kDefaultPointer);
}

void ListaTest::blanksInARangeBoxVanish()
{
    const auto window = shown(525);
    auto* box = control<TextBox>(*window, "Text2");
    box->setFocus();
    box->selectAll();

    QTest::keyClicks(box, u"   "_s);

    QCOMPARE(box->text(), QString());
}

void ListaTest::pickInTheFirstBoxFillsBoth()
{
    const auto window = shown(726);
    double asked = 0;
    setMuestraLISEM([&asked](QWidget*) {
        asked = TIPOBUSQUEDA;
        RESULTADOBUSQUEDA = u"0007"_s;
    });

    QTest::mouseClick(control<PictureBox>(*window, "Image1"), Qt::LeftButton);

    QCOMPARE(asked, 17.0);
    QCOMPARE(control<TextBox>(*window, "Text1")->text(), u"0007"_s);
    QCOMPARE(control<TextBox>(*window, "Text2")->text(), u"0007"_s);
    QVERIFY(control<TextBox>(*window, "Text2")->hasFocus());
    QCOMPARE(RESULTADOBUSQUEDA, QString());
    QCOMPARE(TIPOBUSQUEDA, 0.0);
}

void ListaTest::pickInTheSecondBoxFillsOnlyIt()
{
    const auto window = shown(726);
    control<TextBox>(*window, "Text1")->setFocus();
    setMuestraLISEM([](QWidget*) { RESULTADOBUSQUEDA = u"0009"_s; });

    QTest::mouseClick(control<PictureBox>(*window, "Image2"), Qt::LeftButton);

    QCOMPARE(control<TextBox>(*window, "Text1")->text(), u"0001"_s);
    QCOMPARE(control<TextBox>(*window, "Text2")->text(), u"0009"_s);
    QVERIFY(control<TextBox>(*window, "Text1")->hasFocus());
}

void ListaTest::leavingTheLookupWithoutAPickChangesNothing()
{
    const auto window = shown(725);
    setMuestraLISEM([](QWidget*) {});

    QTest::mouseClick(control<PictureBox>(*window, "Image1"), Qt::LeftButton);

    QCOMPARE(control<TextBox>(*window, "Text1")->text(), u"0000000001"_s);
    QCOMPARE(TIPOBUSQUEDA, 9.0);
}

void ListaTest::reportWithoutLookupOpensNone()
{
    const auto window = shown(888);
    bool opened = false;
    setMuestraLISEM([&opened](QWidget*) { opened = true; });

    window->pickFirst();
    window->pickSecond();

    QVERIFY(!opened);
}

void ListaTest::treeListsThePrintersUnderTheirRoot()
{
    const auto window = shown(725);
    const auto* tree = control<TreeView>(*window, "TreeView1");

    QCOMPARE(tree->nodesCount(), 4);
    QCOMPARE(tree->nodeText(u"I"_s), u"Impresoras"_s);
    QCOMPARE(tree->nodeText(u"E"_s), u"E-Mail"_s);
    QCOMPARE(tree->nodeText(u"I0"_s), u"Oficina"_s);
    QCOMPARE(tree->nodeImage(u"I1"_s), 2);
    QCOMPARE(tree->nodeImage(u"E"_s), 1);
    QVERIFY(tree->topLevelItem(0)->isExpanded());
}

void ListaTest::treeSelectsTheDefaultPrinter()
{
    const auto window = shown(725);

    QCOMPARE(control<TreeView>(*window, "TreeView1")->selectedText(), u"Taller"_s);
}

void ListaTest::lastOfTwoPrintersWithOneNameIsSelected()
{
    setPrinterSource([] {
        return PrinterList{{{u"Igual"_s, {}, {}}, {u"Otra"_s, {}, {}}, {u"Igual"_s, {}, {}}}, 0};
    });
    const auto window = shown(725);

    QCOMPARE(control<TreeView>(*window, "TreeView1")->selectedKey(), u"I2"_s);
}

void ListaTest::emptyPrinterListLeavesTheTwoRoots()
{
    setPrinterSource([] { return PrinterList{}; });
    const auto window = shown(725);

    QCOMPARE(control<TreeView>(*window, "TreeView1")->nodesCount(), 2);
}

void ListaTest::doubleClickOnAPrinterChoosesItWithAMessage()
{
    const auto window = shown(725);
    auto* tree = control<TreeView>(*window, "TreeView1");
    const QPoint printer = tree->visualItemRect(tree->topLevelItem(0)->child(0)).center();
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, printer);

    QTest::mouseDClick(tree->viewport(), Qt::LeftButton, {}, printer);

    QCOMPARE(currentPrinter().DeviceName, u"Oficina"_s);
    const Message expected{u"HA CAMBIADO LA SELECCION DE SU IMPRESORA\rQuenda ha instalado su impresora "
                           "predeterminada en:\rImpresora: Oficina\r"_s,
                           {},
                           MessageIcon::Information};
    QCOMPARE(m_messages, QList<Message>{expected});
}

void ListaTest::doubleClickOnThePresentPrinterShowsTheMessageToo()
{
    const auto window = shown(725);

    window->chooseSelectedPrinter();

    QCOMPARE(m_messages.size(), 1);
    QCOMPARE(currentPrinter().DeviceName, u"Taller"_s);
}

void ListaTest::doubleClickOnTheRootsDoesNothing_data()
{
    QTest::addColumn<QString>("key");
    QTest::newRow("Impresoras") << u"I"_s;
    QTest::newRow("E-Mail") << u"E"_s;
}

void ListaTest::doubleClickOnTheRootsDoesNothing()
{
    QFETCH(QString, key);
    const auto window = shown(725);
    control<TreeView>(*window, "TreeView1")->selectNode(key);

    window->chooseSelectedPrinter();

    QVERIFY(m_messages.isEmpty());
    QCOMPARE(currentPrinter().DeviceName, u"Taller"_s);
}

void ListaTest::printerThatHasGoneLeavesTheChoiceButShowsTheMessage()
{
    const auto window = shown(725);
    control<TreeView>(*window, "TreeView1")->selectNode(u"I0"_s);
    setPrinterSource([] { return PrinterList{}; });

    window->chooseSelectedPrinter();

    QCOMPARE(m_messages.size(), 1);
    QVERIFY(m_messages.first().text.endsWith(u"Impresora: \r"_s));
}

void ListaTest::secondModalShowFailsWhileTheWindowIsUp()
{
    request(888);
    reports::MuestraLISTA(nullptr);
    request(725);

    int number = 0;
    try {
        reports::MuestraLISTAModal(nullptr);
    } catch (const Failure& failure) {
        number = failure.number();
    }

    QCOMPARE(number, 400);
    QCOMPARE(NUMINFORME, 725.0);
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (auto* lista = qobject_cast<LISTA*>(window))
            lista->unload();
    }
    QCOMPARE(NUMINFORME, 0.0);
}

QTEST_MAIN(ListaTest)
#include "tst_lista.moc"
