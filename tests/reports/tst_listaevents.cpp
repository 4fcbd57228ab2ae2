// SPDX-License-Identifier: GPL-3.0-or-later
// What happens at a click or a key in the report window: printers, pages, pickers, range boxes.
#include "reports/drivenwindow.h"

#include "lookup/lisem.h"
#include "platform/core/failure.h"
#include "platform/print/output/printers.h"
#include "platform/window/formhelpers.h"
#include "platform/window/imagelabel.h"
#include "platform/window/picturebox.h"
#include "platform/window/textbox.h"
#include "platform/window/treeview.h"
#include "shell/globalsat.h"

#include <QDateEdit>
#include <QLabel>
#include <QTest>

using namespace platform;
using namespace Qt::StringLiterals;
using namespace reporttest;

class ListaEventsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void treeListsThePrintersUnderTheirRoot();
    void treeSelectsTheDefaultPrinter();
    void lastOfTwoPrintersWithOneNameIsSelected();
    void emptyPrinterListLeavesTheTwoRoots();
    void doubleClickOnAPrinterChoosesItWithAMessage();
    void enterOnAPrinterChoosesItToo_data();
    void enterOnAPrinterChoosesItToo();
    void doubleClickOnThePresentPrinterShowsTheMessageToo();
    void doubleClickOnTheRootsDoesNothing_data();
    void doubleClickOnTheRootsDoesNothing();
    void printerThatHasGoneLeavesTheChoiceButShowsTheMessage();
    void choiceLastsAfterTheWindow();
    void presentPrinterIsNamedAboveTheTree();
    void missingPrinterIsToldAboveTheTree();

    void tabOfTheDatesTurnsThePage();
    void tabOfTheNumbersTurnsBack();
    void keyboardTurnsThePage();
    void keyboardIsRefusedAsTheTabIs();

    void pickInTheFirstBoxFillsBoth();
    void pickInTheSecondBoxFillsOnlyIt();
    void leavingTheLookupWithoutAPickChangesNothing();
    void pointerIsBusyWhileTheLookupIsUp_data();
    void pointerIsBusyWhileTheLookupIsUp();
    void failingLookupIsSilent();
    void pickerIsPressedByEnterAndBlank();

    void blanksInARangeBoxVanish_data();
    void blanksInARangeBoxVanish();
    void boxesTakeAnyText();

private:
    /// On the node of the printers tree that bears the text.
    void doubleClick(const QString& text);

    std::unique_ptr<DrivenWindow> m_driven;
};

void ListaEventsTest::init()
{
    m_driven = std::make_unique<DrivenWindow>();
}

void ListaEventsTest::cleanup()
{
    m_driven.reset();
    setMuestraLISEM({});
}

void ListaEventsTest::doubleClick(const QString& text)
{
    auto& tree = m_driven->control<TreeView>("TreeView1");
    const QList<QTreeWidgetItem*> nodes = tree.findItems(text, Qt::MatchExactly | Qt::MatchRecursive);
    QCOMPARE(nodes.size(), 1);
    const QPoint place = tree.visualItemRect(nodes.first()).center();
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(tree.viewport(), Qt::LeftButton, {}, place);
}

void ListaEventsTest::treeListsThePrintersUnderTheirRoot()
{
    m_driven->active(725);
    auto& tree = m_driven->control<TreeView>("TreeView1");

    QCOMPARE(tree.nodesCount(), 4);
    QCOMPARE(tree.nodeText(u"I"_s), u"Impresoras"_s);
    QCOMPARE(tree.nodeText(u"E"_s), u"E-Mail"_s);
    QCOMPARE(tree.nodeText(u"I0"_s), u"Oficina"_s);
    QCOMPARE(tree.nodeImage(u"I1"_s), 2);
    QCOMPARE(tree.nodeImage(u"E"_s), 1);
    QVERIFY(tree.topLevelItem(0)->isExpanded());
}

void ListaEventsTest::treeSelectsTheDefaultPrinter()
{
    m_driven->active(725);

    QCOMPARE(m_driven->control<TreeView>("TreeView1").selectedText(), u"Taller"_s);
}

void ListaEventsTest::lastOfTwoPrintersWithOneNameIsSelected()
{
    setPrinterSource([] {
        return PrinterList{{{u"Igual"_s, {}, {}}, {u"Otra"_s, {}, {}}, {u"Igual"_s, {}, {}}}, 0};
    });
    m_driven->active(725);

    QCOMPARE(m_driven->control<TreeView>("TreeView1").selectedKey(), u"I2"_s);
}

void ListaEventsTest::emptyPrinterListLeavesTheTwoRoots()
{
    setPrinterSource([] { return PrinterList{}; });
    m_driven->active(725);

    QCOMPARE(m_driven->control<TreeView>("TreeView1").nodesCount(), 2);
}

void ListaEventsTest::doubleClickOnAPrinterChoosesItWithAMessage()
{
    m_driven->active(725);

    doubleClick(u"Oficina"_s);

    QCOMPARE(currentPrinter().DeviceName, u"Oficina"_s);
    const Message expected{u"HA CAMBIADO LA SELECCION DE SU IMPRESORA\rQuenda ha instalado su impresora "
                           "predeterminada en:\rImpresora: Oficina\r"_s,
                           {},
                           MessageIcon::Information};
    QCOMPARE(m_driven->messages().messages(), QList<Message>{expected});
}

void ListaEventsTest::enterOnAPrinterChoosesItToo_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Return") << int(Qt::Key_Return);
    QTest::newRow("Enter of the number block") << int(Qt::Key_Enter);
}

void ListaEventsTest::enterOnAPrinterChoosesItToo()
{
    QFETCH(int, key);
    m_driven->active(725);
    auto& tree = m_driven->control<TreeView>("TreeView1");
    tree.setFocus();
    QTest::keyClick(&tree, Qt::Key_Up);

    QTest::keyClick(&tree, Qt::Key(key));

    QCOMPARE(currentPrinter().DeviceName, u"Oficina"_s);
    QCOMPARE(m_driven->messages().messages().size(), 1);
}

void ListaEventsTest::doubleClickOnThePresentPrinterShowsTheMessageToo()
{
    m_driven->active(725);

    doubleClick(u"Taller"_s);

    QCOMPARE(m_driven->messages().messages().size(), 1);
    QCOMPARE(currentPrinter().DeviceName, u"Taller"_s);
}

void ListaEventsTest::doubleClickOnTheRootsDoesNothing_data()
{
    QTest::addColumn<QString>("root");
    QTest::newRow("Impresoras") << u"Impresoras"_s;
    QTest::newRow("E-Mail") << u"E-Mail"_s;
}

void ListaEventsTest::doubleClickOnTheRootsDoesNothing()
{
    QFETCH(QString, root);
    m_driven->active(725);

    doubleClick(root);

    QVERIFY(m_driven->messages().isEmpty());
    QCOMPARE(currentPrinter().DeviceName, u"Taller"_s);
}

void ListaEventsTest::printerThatHasGoneLeavesTheChoiceButShowsTheMessage()
{
    const QList<Printer> printers = Printers();
    QList<Printer> present = printers;
    setPrinterSource([&present] { return PrinterList{present, 0}; });
    m_driven->active(725);
    present.removeLast();

    doubleClick(u"Taller"_s);

    QCOMPARE(currentPrinter().DeviceName, u"Oficina"_s);
    QCOMPARE(m_driven->messages().messages().size(), 1);
    QVERIFY(m_driven->messages().messages().first().text.endsWith(u"Impresora: Oficina\r"_s));
}

void ListaEventsTest::choiceLastsAfterTheWindow()
{
    m_driven->active(725);
    doubleClick(u"Oficina"_s);
    m_driven->window().unload();

    m_driven->active(888);

    QCOMPARE(m_driven->control<TreeView>("TreeView1").selectedText(), u"Oficina"_s);
}

void ListaEventsTest::presentPrinterIsNamedAboveTheTree()
{
    m_driven->active(725);
    const auto& label = m_driven->control<QLabel>("printerNow");
    const QString before = label.text();

    doubleClick(u"Oficina"_s);

    QCOMPARE(before, u"Impresora predeterminada: Taller"_s);
    QCOMPARE(label.text(), u"Impresora predeterminada: Oficina"_s);
}

void ListaEventsTest::missingPrinterIsToldAboveTheTree()
{
    setPrinterSource([] { return PrinterList{}; });

    m_driven->active(725);

    QCOMPARE(m_driven->control<QLabel>("printerNow").text(), u"No hay ninguna impresora predeterminada"_s);
}

void ListaEventsTest::tabOfTheDatesTurnsThePage()
{
    m_driven->active(525);

    QTest::mouseClick(&m_driven->control<ImageLabel>("Label5"), Qt::LeftButton);

    QVERIFY(m_driven->control<QWidget>("Picture6").isVisible());
    QVERIFY(m_driven->control<QWidget>("Picture5").isVisible());
    QVERIFY(!m_driven->control<QWidget>("Picture3").isVisible());
    QVERIFY(!m_driven->control<QWidget>("Picture4").isVisible());
    QVERIFY(m_driven->control<QDateEdit>("DTPicker1").hasFocus());
}

void ListaEventsTest::tabOfTheNumbersTurnsBack()
{
    m_driven->active(525);
    QTest::mouseClick(&m_driven->control<ImageLabel>("Label5"), Qt::LeftButton);

    QTest::mouseClick(&m_driven->control<ImageLabel>("Label7"), Qt::LeftButton);

    QVERIFY(m_driven->control<QWidget>("Picture3").isVisible());
    QVERIFY(!m_driven->control<QWidget>("Picture6").isVisible());
    QVERIFY(m_driven->control<TextBox>("Text1").hasFocus());
}

void ListaEventsTest::keyboardTurnsThePage()
{
    m_driven->active(525);

    QTest::keyClick(&m_driven->window(), Qt::Key_Tab, Qt::ControlModifier);
    QVERIFY(m_driven->control<QWidget>("Picture6").isVisible());

    QTest::keyClick(&m_driven->window(), Qt::Key_Tab, Qt::ControlModifier);
    QVERIFY(m_driven->control<QWidget>("Picture3").isVisible());
}

void ListaEventsTest::keyboardIsRefusedAsTheTabIs()
{
    auto& window = m_driven->active(725);

    QTest::keyClick(&window, Qt::Key_Tab, Qt::ControlModifier);

    QVERIFY(m_driven->control<QWidget>("Picture3").isVisible());
    QVERIFY(!m_driven->control<QWidget>("Picture6").isVisible());
}

void ListaEventsTest::pickInTheFirstBoxFillsBoth()
{
    m_driven->active(726);
    double asked = 0;
    setMuestraLISEM([&asked](QWidget*) {
        asked = TIPOBUSQUEDA;
        RESULTADOBUSQUEDA = u"0007"_s;
    });

    QTest::mouseClick(&m_driven->control<PictureBox>("Image1"), Qt::LeftButton);

    QCOMPARE(asked, 17.0);
    QCOMPARE(m_driven->control<TextBox>("Text1").text(), u"0007"_s);
    QCOMPARE(m_driven->control<TextBox>("Text2").text(), u"0007"_s);
    QVERIFY(m_driven->control<TextBox>("Text2").hasFocus());
    QCOMPARE(RESULTADOBUSQUEDA, QString());
    QCOMPARE(TIPOBUSQUEDA, 0.0);
}

void ListaEventsTest::pickInTheSecondBoxFillsOnlyIt()
{
    m_driven->active(726);
    m_driven->control<TextBox>("Text1").setFocus();
    setMuestraLISEM([](QWidget*) { RESULTADOBUSQUEDA = u"0009"_s; });

    QTest::mouseClick(&m_driven->control<PictureBox>("Image2"), Qt::LeftButton);

    QCOMPARE(m_driven->control<TextBox>("Text1").text(), u"0001"_s);
    QCOMPARE(m_driven->control<TextBox>("Text2").text(), u"0009"_s);
    QVERIFY(m_driven->control<TextBox>("Text1").hasFocus());
}

void ListaEventsTest::leavingTheLookupWithoutAPickChangesNothing()
{
    m_driven->active(725);
    setMuestraLISEM([](QWidget*) {});

    QTest::mouseClick(&m_driven->control<PictureBox>("Image1"), Qt::LeftButton);

    QCOMPARE(m_driven->control<TextBox>("Text1").text(), u"0000000001"_s);
    QCOMPARE(m_driven->control<TextBox>("Text2").text(), u"9999999999"_s);
    QCOMPARE(TIPOBUSQUEDA, 9.0);
}

void ListaEventsTest::pointerIsBusyWhileTheLookupIsUp_data()
{
    QTest::addColumn<QByteArray>("picker");
    QTest::newRow("first") << QByteArray("Image1");
    QTest::newRow("second") << QByteArray("Image2");
}

void ListaEventsTest::pointerIsBusyWhileTheLookupIsUp()
{
    QFETCH(QByteArray, picker);
    auto& window = m_driven->active(725);
    int during = -1;
    setMuestraLISEM([&](QWidget* parent) { during = mousePointer(parent); });

    QTest::mouseClick(&m_driven->control<PictureBox>(picker.constData()), Qt::LeftButton);

    QCOMPARE(during, kBusyPointer);
    QCOMPARE(mousePointer(&window), kDefaultPointer);
}

void ListaEventsTest::failingLookupIsSilent()
{
    auto& window = m_driven->active(725);
    setMuestraLISEM([](QWidget*) { throw Failure(400); });

    QTest::mouseClick(&m_driven->control<PictureBox>("Image1"), Qt::LeftButton);

    QCOMPARE(m_driven->control<TextBox>("Text1").text(), u"0000000001"_s);
    QCOMPARE(mousePointer(&window), kDefaultPointer);
    QVERIFY(m_driven->messages().isEmpty());
}

void ListaEventsTest::pickerIsPressedByEnterAndBlank()
{
    m_driven->active(725);
    int opened = 0;
    setMuestraLISEM([&opened](QWidget*) { ++opened; });
    auto& picker = m_driven->control<PictureBox>("Image2");
    picker.setFocus();

    QTest::keyClick(&picker, Qt::Key_Return);
    QTest::keyClick(&picker, Qt::Key_Space);

    QCOMPARE(opened, 2);
}

void ListaEventsTest::blanksInARangeBoxVanish_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("first") << QByteArray("Text1");
    QTest::newRow("second") << QByteArray("Text2");
}

void ListaEventsTest::blanksInARangeBoxVanish()
{
    QFETCH(QByteArray, name);
    m_driven->active(525);
    auto& box = m_driven->control<TextBox>(name.constData());
    box.setFocus();
    box.selectAll();

    QTest::keyClicks(&box, u"   "_s);

    QCOMPARE(box.text(), QString());
}

void ListaEventsTest::boxesTakeAnyText()
{
    m_driven->active(525);
    auto& box = m_driven->control<TextBox>("Text1");
    box.setFocus();
    box.selectAll();

    QTest::keyClicks(&box, u"O'Neill, 100%"_s);

    QCOMPARE(box.text(), u"O'Neill, 100%"_s);
}

QTEST_MAIN(ListaEventsTest)
#include "tst_listaevents.moc"
