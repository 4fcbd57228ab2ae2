// SPDX-License-Identifier: GPL-3.0-or-later
// The report window: its load, its unload and its commands.
#include "reports/drivenwindow.h"
#include "reports/recordingengine.h"

#include "platform/core/failure.h"
#include "platform/print/output/printers.h"
#include "platform/window/combolist.h"
#include "platform/window/formhelpers.h"
#include "platform/window/listbar.h"
#include "platform/window/textbox.h"
#include "platform/window/treeview.h"
#include "shell/globalsat.h"
#include "support/failureof.h"

#include <QDateEdit>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <array>

using namespace platform;
using namespace Qt::StringLiterals;
using namespace reporttest;

class ListaTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_driven = std::make_unique<DrivenWindow>(); }
    void cleanup() { m_driven.reset(); }

    void loadOpensTheEngineFirst();
    void failingPrinterListLeavesTheRestOfTheLoad();
    void sentenceNamesTheReport();
    void hintCarriesTheVersion();
    void datesStartToday();
    void copiesOfferOneToTwenty();
    void report888StartsOnThePresentMonth();
    void focusStartsOnTheFirstParameter_data();
    void focusStartsOnTheFirstParameter();
    void firstBoxIsSelectedSoThatTypingReplacesIt();

    void unloadWipesTheRequestByEveryRoad_data();
    void unloadWipesTheRequestByEveryRoad();
    void escapeAndEnterDoNothing();

    void listBarPutsTheRangeInOrder_data();
    void listBarPutsTheRangeInOrder();
    void rangeCheckReadsLeadingNumbers_data();
    void rangeCheckReadsLeadingNumbers();
    void rangeCheckRunsOnHiddenBoxesToo();
    void buttonsLeaveTheRangeAlone();
    void listBarRefusesReports8881And726_data();
    void listBarRefusesReports8881And726();
    void buttonsRunReport726();
    void sendingHasNoEffectByEitherRoad();
    void outputModeTellsTheOutputDuringARun();

    void secondModalShowFailsWhileTheWindowIsUp();

private:
    std::unique_ptr<DrivenWindow> m_driven;
};

void ListaTest::loadOpensTheEngineFirst()
{
    NUMINFORME = 725;
    reports::LISTA window;

    window.load();

    QCOMPARE(recordedCalls(), QStringList{u"PEOpenEngine()"_s});
}

void ListaTest::failingPrinterListLeavesTheRestOfTheLoad()
{
    setPrinterSource([]() -> PrinterList { throw Failure(5); });

    m_driven->active(888);

    QCOMPARE(m_driven->control<TreeView>("TreeView1").nodesCount(), 2);
    QVERIFY(m_driven->control<QLabel>("Label1").text().contains(u"Título"_s));
    QCOMPARE(m_driven->control<ComboList>("Combo2").text(), u"11"_s);
    QVERIFY(m_driven->messages().isEmpty());
}

void ListaTest::sentenceNamesTheReport()
{
    TITULOINFORME = u" Albaranes de Mantenimiento "_s;
    reports::LISTA window;

    window.load();

    QCOMPARE(window.findChild<QLabel*>(u"Label1"_s)->text(),
             u"Quenda está preparado para la impresión del informe: Albaranes de Mantenimiento. Por favor, "
             "seleccione los parámetros que considere oportunos:"_s);
}

void ListaTest::hintCarriesTheVersion()
{
    m_driven->active(725);

    QCOMPARE(m_driven->control<QWidget>("imgwl").toolTip(), u"Quenda.- Ver.3.32 Build 3009"_s);
}

void ListaTest::datesStartToday()
{
    m_driven->active(1);

    QCOMPARE(m_driven->control<QDateEdit>("DTPicker1").date(), QDate(2026, 11, 20));
    QCOMPARE(m_driven->control<QDateEdit>("DTPicker2").text(), u"20/11/2026"_s);
}

void ListaTest::copiesOfferOneToTwenty()
{
    m_driven->active(725);
    auto& copies = m_driven->control<ComboList>("Combo1");

    QCOMPARE(copies.listCount(), 20);
    QCOMPARE(copies.text(), u"1"_s);
    QCOMPARE(copies.list(19), u"20"_s);
}

void ListaTest::report888StartsOnThePresentMonth()
{
    m_driven->active(888);
    auto& months = m_driven->control<ComboList>("Combo2");

    QCOMPARE(months.listCount(), 12);
    QCOMPARE(months.text(), u"11"_s);
    QVERIFY(m_driven->control<QWidget>("Label11").isVisible());
}

void ListaTest::focusStartsOnTheFirstParameter_data()
{
    QTest::addColumn<double>("report");
    QTest::addColumn<QByteArray>("control");
    QTest::newRow("number range") << 725.0 << QByteArray("Text1");
    QTest::newRow("month") << 888.0 << QByteArray("Combo2");
    QTest::newRow("copies alone") << 8888.0 << QByteArray("Combo1");
}

void ListaTest::focusStartsOnTheFirstParameter()
{
    QFETCH(double, report);
    QFETCH(QByteArray, control);

    m_driven->active(report);

    QTRY_VERIFY(m_driven->control<QWidget>(control.constData()).hasFocus());
}

void ListaTest::firstBoxIsSelectedSoThatTypingReplacesIt()
{
    m_driven->active(725);
    auto& box = m_driven->control<TextBox>("Text1");
    QTRY_COMPARE(box.selectedText(), u"0000000001"_s);

    QTest::keyClicks(&box, u"7"_s);

    QCOMPARE(box.text(), u"7"_s);
}

void ListaTest::unloadWipesTheRequestByEveryRoad_data()
{
    QTest::addColumn<QString>("road");
    for (const QString& road : {u"button"_s, u"list bar"_s, u"frame"_s})
        QTest::newRow(qPrintable(road)) << road;
}

void ListaTest::unloadWipesTheRequestByEveryRoad()
{
    QFETCH(QString, road);
    m_driven->active(725);
    const std::array bases{&BASEINFORME,  &BASEINFORME1, &BASEINFORME2, &BASEINFORME3,
                           &BASEINFORME4, &BASEINFORME5, &BASEINFORME6, &BASEINFORME7};
    for (QString* base : bases)
        *base = u"x"_s;
    RESULTADOBUSQUEDA = u"x"_s;

    if (road == u"button")
        QTest::mouseClick(&m_driven->control<QPushButton>("Command3"), Qt::LeftButton);
    else if (road == u"list bar")
        m_driven->control<ListBar>("SSListBar1").activate(u"CUATRO"_s);
    else
        m_driven->window().close();

    QCOMPARE(recordedCalls(), QStringList{u"PECloseEngine()"_s});
    QVERIFY(!m_driven->window().isVisible());
    QCOMPARE(NUMINFORME, 0.0);
    QCOMPARE(TITULOINFORME + FICHEROINFORME + RESULTADOBUSQUEDA, QString());
    for (const QString* base : bases)
        QCOMPARE(*base, QString());
    QCOMPARE(m_driven->control<TextBox>("Text1").text() + m_driven->control<TextBox>("Text2").text(),
             QString());
}

void ListaTest::escapeAndEnterDoNothing()
{
    m_driven->active(725);

    QTest::keyClick(&m_driven->control<TextBox>("Text1"), Qt::Key_Escape);
    QTest::keyClick(&m_driven->control<TextBox>("Text1"), Qt::Key_Return);

    QVERIFY(m_driven->window().isVisible());
    QVERIFY(recordedCalls().isEmpty());
}

void ListaTest::listBarPutsTheRangeInOrder_data()
{
    QTest::addColumn<double>("report");
    QTest::addColumn<QString>("key");
    for (const double report : {725.0, 726.0, 8881.0})
        for (const QString& key : {u"UNO"_s, u"DOS"_s, u"TRES"_s, u"CUATRO"_s})
            QTest::addRow("%g %s", report, qPrintable(key)) << report << key;
}

void ListaTest::listBarPutsTheRangeInOrder()
{
    QFETCH(double, report);
    QFETCH(QString, key);
    m_driven->active(report);
    auto& from = m_driven->control<TextBox>("Text1");
    auto& to = m_driven->control<TextBox>("Text2");
    from.setText(u"0000000009"_s);
    to.setText(u"0000000001"_s);
    QStringList seen;
    connect(&from, &TextBox::textChanged, this, [&seen](const QString& text) { seen.append(text); });
    connect(&to, &TextBox::textChanged, this, [&seen](const QString& text) { seen.append(text); });

    m_driven->control<ListBar>("SSListBar1").activate(key);

    // The last item empties the boxes afterwards.
    QCOMPARE(seen, key == u"CUATRO" ? (QStringList{u"1"_s, u"9"_s, QString(), QString()})
                                    : (QStringList{u"1"_s, u"9"_s}));
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
    m_driven->active(525);
    m_driven->control<TextBox>("Text1").setText(from);
    m_driven->control<TextBox>("Text2").setText(to);

    m_driven->window().checkRange();

    QTEST(m_driven->control<TextBox>("Text1").text(), "newFrom");
    QTEST(m_driven->control<TextBox>("Text2").text(), "newTo");
}

void ListaTest::rangeCheckRunsOnHiddenBoxesToo()
{
    m_driven->active(888);
    m_driven->control<TextBox>("Text1").setText(u"9"_s);
    m_driven->control<TextBox>("Text2").setText(u"1"_s);

    m_driven->control<ListBar>("SSListBar1").activate(u"TRES"_s);

    QCOMPARE(m_driven->control<TextBox>("Text1").text(), u"1"_s);
}

void ListaTest::buttonsLeaveTheRangeAlone()
{
    m_driven->active(525);
    m_driven->control<TextBox>("Text1").setText(u"9"_s);
    m_driven->control<TextBox>("Text2").setText(u"1"_s);

    QTest::mouseClick(&m_driven->control<QPushButton>("Command1"), Qt::LeftButton);

    QCOMPARE(m_driven->control<TextBox>("Text1").text(), u"9"_s);
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
    m_driven->active(report);

    m_driven->control<ListBar>("SSListBar1").activate(key);

    QVERIFY(recordedCalls().isEmpty());
}

void ListaTest::buttonsRunReport726()
{
    m_driven->active(726);

    QTest::mouseClick(&m_driven->control<QPushButton>("Command1"), Qt::LeftButton);
    QTest::mouseClick(&m_driven->control<QPushButton>("Command2"), Qt::LeftButton);

    QCOMPARE(recordedCalls().filter(u"PEStartPrintJob"_s),
             (QStringList{u"PEStartPrintJob(1, 0)"_s, u"PEStartPrintJob(2, 0)"_s}));
    QCOMPARE(TITULOINFORME, u"Liquidación de comisiones"_s);
}

void ListaTest::sendingHasNoEffectByEitherRoad()
{
    m_driven->active(725);

    QTest::mouseClick(&m_driven->control<QPushButton>("Command4"), Qt::LeftButton);
    m_driven->control<ListBar>("SSListBar1").activate(u"TRES"_s);

    QVERIFY(recordedCalls().isEmpty());
    QVERIFY(m_driven->window().isVisible());
}

void ListaTest::outputModeTellsTheOutputDuringARun()
{
    auto& window = m_driven->active(725);
    QList<double> modes;
    setPrinterSource([&] {
        modes.append(window.MODOSALIDA); // asked at the start of each run
        return PrinterList{};
    });

    m_driven->preview();
    m_driven->print();

    QCOMPARE(QSet<double>(modes.begin(), modes.end()), (QSet<double>{1.0, 2.0}));
    QCOMPARE(window.MODOSALIDA, 0.0);
    QCOMPARE(mousePointer(&window), kDefaultPointer);
}

void ListaTest::secondModalShowFailsWhileTheWindowIsUp()
{
    NUMINFORME = 888;
    reports::MuestraLISTA(nullptr);
    NUMINFORME = 725;

    QCOMPARE(support::failureOf([] { reports::MuestraLISTAModal(nullptr); }), 400);

    QCOMPARE(NUMINFORME, 725.0);
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (auto* lista = qobject_cast<reports::LISTA*>(window))
            lista->unload();
    }
    QCOMPARE(NUMINFORME, 0.0);
}

QTEST_MAIN(ListaTest)
#include "tst_lista.moc"
