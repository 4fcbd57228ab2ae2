// SPDX-License-Identifier: GPL-3.0-or-later
// The preview's tools with mouse and keyboard: zoom, page box, printer, what isn't there without its flag.
#include "platform/print/engine.h"
#include "platform/print/output/printers.h"
#include "platform/print/pefixture.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QInputDialog>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpinBox>
#include <QStatusBar>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QWheelEvent>

using namespace Qt::StringLiterals;
using namespace platform;
using namespace platform::print;

class PreviewToolsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { PeFixture::closeEngine(); }
    void zoomListSetsTheSize();
    void pageFitsTheWindow();
    void wheelWithControlZooms();
    void zoomStaysWithinItsBounds();
    void pageBoxGoesToItsPage();
    void endsOfTheReportDisableTheirArrows();
    void controlPPrints();
    void controlPWithoutItsButtonDoesNothing();
    void printerThatIsChosenIsForThisJobOnly();
    void withoutProgressOnlyThePageIsTold();
    void everyToolHasANameForAScreenReader();
    void tabGoesFromThePageThroughTheToolsAndBack();
    void tabLeavesThePageWhereItIs();

private:
    /// A finished preview of 6 pages, with all tools.
    PEJob givenPreview(const PEWindowOptions& options);
    static PEWindowOptions allTools();

    PeFixture m_report;
};

namespace {

QWidget* page()
{
    return PeFixture::preview()->findChild<QScrollArea*>()->widget();
}

void choose(const QString& entry)
{
    auto* zoom = PeFixture::preview()->findChild<QComboBox*>(u"zoom"_s);
    const int index = zoom->findText(entry);
    QVERIFY2(index >= 0, qPrintable(entry));
    zoom->setCurrentIndex(index);
    Q_EMIT zoom->activated(index);
}

void turnWheel(int delta)
{
    const QPointF place(50, 50);
    QWheelEvent event(place, page()->mapToGlobal(place), {}, QPoint(0, delta), Qt::NoButton,
                      Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(page(), &event);
}

} // namespace

PEWindowOptions PreviewToolsTest::allTools()
{
    PEWindowOptions options;
    options.hasNavigationControls = 1;
    options.hasCancelButton = 1;
    options.hasPrintButton = 1;
    options.hasExportButton = 1;
    options.hasZoomControl = 1;
    options.hasProgressControls = 1;
    options.hasPrintSetupButton = 1;
    return options;
}

void PreviewToolsTest::init()
{
    m_report.openEngine();
}

PEJob PreviewToolsTest::givenPreview(const PEWindowOptions& options)
{
    const PEJob job = m_report.openReport();
    PESetWindowOptions(job, &options);
    PEOutputToWindow(job, "T", 50, 50, 600, 600, 0, nullptr);
    PEStartPrintJob(job, 1);
    return job;
}

void PreviewToolsTest::zoomListSetsTheSize()
{
    givenPreview(allTools());
    const int width = page()->width();

    choose(u"200 %"_s);

    QVERIFY(page()->width() > width * 3 / 2);
    choose(u"100 %"_s);
    QCOMPARE(page()->width(), width);
}

void PreviewToolsTest::pageFitsTheWindow()
{
    givenPreview(allTools());
    const QSize room = PeFixture::preview()->findChild<QScrollArea*>()->viewport()->size();

    choose(u"Página entera"_s);
    QVERIFY(page()->height() <= room.height());
    QVERIFY(page()->height() > room.height() - 10);

    choose(u"Ancho de página"_s);
    QVERIFY(page()->width() <= room.width());
    QVERIFY(page()->width() > room.width() - 10);
}

void PreviewToolsTest::wheelWithControlZooms()
{
    givenPreview(allTools());
    const int width = page()->width();

    turnWheel(120);
    QVERIFY(page()->width() > width);
    QCOMPARE(PeFixture::preview()->findChild<QComboBox*>(u"zoom"_s)->currentText(), u"125 %"_s);

    turnWheel(-120);
    QCOMPARE(page()->width(), width);
}

void PreviewToolsTest::zoomStaysWithinItsBounds()
{
    givenPreview(allTools());
    for (int i = 0; i < 20; ++i)
        turnWheel(120);
    QCOMPARE(PeFixture::preview()->findChild<QComboBox*>(u"zoom"_s)->currentText(), u"400 %"_s);
    for (int i = 0; i < 40; ++i)
        turnWheel(-120);
    QCOMPARE(PeFixture::preview()->findChild<QComboBox*>(u"zoom"_s)->currentText(), u"25 %"_s);
}

void PreviewToolsTest::pageBoxGoesToItsPage()
{
    givenPreview(allTools());
    auto* box = PeFixture::preview()->findChild<QSpinBox*>(u"pagina"_s);
    QTRY_COMPARE(box->maximum(), 6);
    box->setFocus();
    box->selectAll();

    QTest::keyClicks(box, u"4"_s);
    QTest::keyClick(box, Qt::Key_Return);

    QVERIFY(page()->accessibleDescription().startsWith(u"055"_s));
}

void PreviewToolsTest::endsOfTheReportDisableTheirArrows()
{
    givenPreview(allTools());
    const auto enabled = [](const QString& name) {
        return PeFixture::preview()->findChild<QAction*>(name)->isEnabled();
    };
    QTRY_VERIFY(enabled(u"ultima"_s));
    QVERIFY(!enabled(u"primera"_s) && !enabled(u"anterior"_s));

    PeFixture::preview()->findChild<QAction*>(u"ultima"_s)->trigger();

    QVERIFY(enabled(u"primera"_s) && enabled(u"anterior"_s));
    QVERIFY(!enabled(u"siguiente"_s) && !enabled(u"ultima"_s));
}

void PreviewToolsTest::controlPPrints()
{
    givenPreview(allTools());

    QTest::keyClick(page(), Qt::Key_P, Qt::ControlModifier);

    QTRY_VERIFY(m_report.pdfText(u"impreso.pdf"_s).endsWith(u"100"_s));
    QTRY_COMPARE(PeFixture::preview()->statusBar()->findChildren<QLabel*>().last()->text(), u"Impreso"_s);
}

void PreviewToolsTest::controlPWithoutItsButtonDoesNothing()
{
    PEWindowOptions options = allTools();
    options.hasPrintButton = 0;
    givenPreview(options);

    QTest::keyClick(page(), Qt::Key_P, Qt::ControlModifier);
    PECloseEngine(); // would finish a print

    QVERIFY(m_report.pdfText(u"impreso.pdf"_s).isEmpty());
}

void PreviewToolsTest::printerThatIsChosenIsForThisJobOnly()
{
    QStringList devices;
    setPrinterSource([] { return PrinterList{{{u"Uno"_s, {}, {}}, {u"Dos"_s, {}, {}}}, 0}; });
    setPrinterSetup([&devices](QPrinter&, const PrintRequest& request) {
        devices += request.device;
        return false;
    });
    givenPreview(allTools());
    QTimer::singleShot(0, this, [] {
        auto* dialog = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
        dialog->setTextValue(u"Dos"_s);
        dialog->accept();
    });

    PeFixture::preview()->findChild<QAction*>(u"configurar"_s)->trigger();
    PeFixture::preview()->findChild<QAction*>(u"imprimir"_s)->trigger();

    QCOMPARE(devices, QStringList{u"Dos"_s});
    QCOMPARE(PeFixture::preview()->statusBar()->findChildren<QLabel*>().last()->text(),
             u"la impresora «Dos» no existe"_s);
    QCOMPARE(currentPrinter().DeviceName, u"Uno"_s);
}

void PreviewToolsTest::withoutProgressOnlyThePageIsTold()
{
    PEWindowOptions options = allTools();
    options.hasProgressControls = 0;
    const PEJob job = m_report.openReport();
    PESetWindowOptions(job, &options);
    PEOutputToWindow(job, "T", 50, 50, 600, 600, 0, nullptr);
    PEStartPrintJob(job, 0);
    const QLabel* state = PeFixture::preview()->statusBar()->findChildren<QLabel*>().first();

    QVERIFY(!state->text().startsWith(u"Leyendo"_s) && !state->text().startsWith(u"Componiendo"_s));
    QTRY_COMPARE(state->text(), u"Página 1 de 6"_s);
}

void PreviewToolsTest::everyToolHasANameForAScreenReader()
{
    givenPreview(allTools());
    auto* bar = PeFixture::preview()->findChild<QToolBar*>();
    for (QAction* action : bar->actions()) {
        if (!action->isSeparator())
            QVERIFY2(!bar->widgetForAction(action)->accessibleName().isEmpty(), qPrintable(action->text()));
    }
}

void PreviewToolsTest::tabGoesFromThePageThroughTheToolsAndBack()
{
    givenPreview(allTools());
    QVERIFY(QTest::qWaitForWindowActive(PeFixture::preview()));
    QVERIFY(page()->hasFocus());
    auto* bar = PeFixture::preview()->findChild<QToolBar*>();
    QList<QWidget*> expected;
    for (QAction* action : bar->actions()) {
        QWidget* tool = bar->widgetForAction(action);
        if (!action->isSeparator() && tool->isEnabled())
            expected.append(tool);
    }
    expected.append(page());

    QList<QWidget*> visited;
    while (visited.size() < expected.size()) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        visited.append(QApplication::focusWidget());
    }

    QCOMPARE(visited, expected);
}

void PreviewToolsTest::tabLeavesThePageWhereItIs()
{
    givenPreview(allTools());
    QVERIFY(QTest::qWaitForWindowActive(PeFixture::preview()));
    choose(u"200 %"_s);
    QScrollBar* bar = PeFixture::preview()->findChild<QScrollArea*>()->verticalScrollBar();
    bar->setValue(bar->maximum() / 2);
    const int place = bar->value();
    QVERIFY(place > 0);

    QTest::keyClick(page(), Qt::Key_Tab);

    QVERIFY(!page()->hasFocus());
    QCOMPARE(bar->value(), place);
}

QTEST_MAIN(PreviewToolsTest)
#include "tst_previewtools.moc"
