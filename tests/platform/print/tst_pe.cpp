// SPDX-License-Identifier: GPL-3.0-or-later
// The print operations as their driver calls them: jobs, locations, formulas, output, codes.
#include "platform/print/engine.h"
#include "platform/print/output/exports.h"
#include "platform/print/output/printers.h"
#include "platform/print/pe.h"
#include "platform/print/storefixture.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QPrinter>
#include <QProcess>
#include <QScrollArea>
#include <QTemporaryDir>
#include <QTest>
#include <QToolBar>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace platform;
using namespace platform::print;

class PeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void nothingOpensWhileTheEngineIsClosed();
    void missingReportIsCode3();
    void badReportIsCode4WithItsPlace();
    void unknownJobIsCode2();
    void jobNumbersAreNotGivenAgain();
    void locationComesAbsoluteWithBackslashes();
    void locationRecordsMayHaveBothSizes_data();
    void locationRecordsMayHaveBothSizes();
    void locationOfAMovedTableIsTaken();
    void tablesBesideAnotherMoveWithIt();
    void locationWithoutAnEndIsRefused();
    void pathWithoutAWindowsFormComesAsUtf8();
    void formulaFaultStaysInForce();
    void formulaFieldIsFoundWithAndWithoutItsMark();
    void emptySelectionTakesEveryRecord();
    void withoutACallTheDefinitionsSelectionStays();
    void subreportHasItsOwnJob();
    void optionRecordsOfAnotherSizeAreRefused();
    void copiesOutsideTheirBoundsAreRefused();
    void startWithoutOutputIsCode20();
    void secondStartIsCode21();
    void missingStoreShowsAtTheStart();
    void missingColumnShowsAtTheStart();
    void previewStandsAloneWithItsTitle();
    void previewHasOnlyTheToolsAskedFor();
    void previewKeysTurnPages();
    void previewWorksBesideAModalWindow();
    void previewExportsItsPagesAndRecords();
    void escapeStopsARunAndKeepsThePages();
    void previewHoldsNoStore();
    void unknownPrinterStopsPrintingOnly();
    void closingTheEngineFinishesPrinting();
    void copiesAreRepeatedWhereThePrinterCant();
    void pageRangePrintsOnlyThosePages();
    void closingTheEngineClosesPreviews();

private:
    QByteArray path(const QString& name) const { return m_folder->filePath(name).toUtf8(); }
    PEJob openReport(const QString& elements = {}, const QByteArray& expression = "{CLI.COD}");
    PEJob moved(PEJob job);
    static PreviewWindow* preview();
    /// Text of a printed or exported file, page after page.
    QString pdfText(const QString& name) const;
    QString printed(PEJob job);

    std::unique_ptr<QTemporaryDir> m_template;
    std::unique_ptr<QTemporaryDir> m_folder;
};

void PeTest::initTestCase()
{
    m_template = std::make_unique<QTemporaryDir>();
    std::vector<std::vector<Value>> rows;
    for (int i = 1; i <= 100; ++i)
        rows.push_back({u"%1"_s.arg(i, 3, 10, QChar(u'0')), u"Peña %1"_s.arg(i)});
    givenTable(m_template->filePath(u"CLIENTES.MDB"_s), u"CLI"_s, {u"COD"_s, u"NOMBRE"_s}, rows);
    givenTable(m_template->filePath(u"ZONAS.MDB"_s), u"ZON"_s, {u"COD"_s}, {{u"001"_s}});
}

void PeTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QDir(m_folder->path()).mkdir(u"Empresa00012"_s);
    for (const QString& folder : {u""_s, u"Empresa00012/"_s}) {
        for (const QString& name : {u"CLIENTES.MDB"_s, u"ZONAS.MDB"_s})
            QFile::copy(m_template->filePath(name), m_folder->filePath(folder + name));
    }
    setEngineClock([] { return QDateTime(QDate(2024, 3, 5), QTime(10, 0)); });
    setPrinterSource([] { return PrinterList{{{u"Láser"_s, u"drv"_s, u"p1"_s}}, 0}; });
    const QString output = m_folder->filePath(u"impreso.pdf"_s);
    setPrinterSetup([output](QPrinter& printer, const PrintRequest&) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(output);
        return true;
    });
    PEOpenEngine();
}

void PeTest::cleanup()
{
    PECloseEngine();
    setPrinterSetup({});
    setPrinterSource({});
    setEngineClock({});
}

PEJob PeTest::openReport(const QString& elements, const QByteArray& expression)
{
    QFile file(m_folder->filePath(u"prueba.rpt"_s));
    if (!file.open(QIODevice::WriteOnly))
        return 0;
    file.write("<informe version=\"1\" nombre=\"Prueba\"><pagina papel=\"A5\"/>"
               "<tabla n=\"0\" alias=\"CLI\" fichero=\"CLIENTES.MDB\"/>" + elements.toUtf8()
               + "<formula nombre=\"FESYS\">\"\"</formula>"
                 "<seccion tipo=\"detalle\" alto=\"10\"><campo x=\"0\" y=\"0\" ancho=\"90\" alto=\"5\" expr=\""
               + expression + "\"/></seccion></informe>");
    file.close();
    return PEOpenPrintJob(path(u"prueba.rpt"_s).constData());
}

PreviewWindow* PeTest::preview()
{
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (auto* window = qobject_cast<PreviewWindow*>(widget))
            return window;
    }
    return nullptr;
}

QString PeTest::pdfText(const QString& name) const
{
    QProcess text;
    text.start(u"pdftotext"_s, {u"-layout"_s, m_folder->filePath(name), u"-"_s});
    text.waitForFinished();
    return QString::fromUtf8(text.readAllStandardOutput()).simplified();
}

QString PeTest::printed(PEJob job)
{
    PEOutputToPrinter(job, 1);
    if (PEStartPrintJob(job, 1) == 0)
        return jobLastError(job);
    return pdfText(u"impreso.pdf"_s);
}

void PeTest::nothingOpensWhileTheEngineIsClosed()
{
    PECloseEngine();
    QCOMPARE(openReport(), PEJob(0));
    QCOMPARE(PEGetErrorCode(0), std::int16_t(kEngineClosed));
}

void PeTest::missingReportIsCode3()
{
    QCOMPARE(PEOpenPrintJob(path(u"nada.rpt"_s).constData()), PEJob(0));
    QCOMPARE(PEGetErrorCode(0), std::int16_t(kReportMissing));
}

void PeTest::badReportIsCode4WithItsPlace()
{
    QCOMPARE(openReport(u"<nada/>"_s), PEJob(0));
    QCOMPARE(PEGetErrorCode(0), std::int16_t(kReportRefused));
    QVERIFY(jobLastError(0).startsWith(u"prueba.rpt:1:"_s));
}

void PeTest::unknownJobIsCode2()
{
    QCOMPARE(PEGetNTables(77), std::int16_t(-1));
    QCOMPARE(PEGetErrorCode(77), std::int16_t(kNoSuchJob));
    QCOMPARE(PEStartPrintJob(77, 0), std::int16_t(0));
}

void PeTest::jobNumbersAreNotGivenAgain()
{
    QCOMPARE(openReport(), PEJob(1));
    QCOMPARE(openReport(), PEJob(2));
}

void PeTest::locationComesAbsoluteWithBackslashes()
{
    const PEJob job = openReport();
    PETableLocation location;
    QCOMPARE(PEGetNthTableLocation(job, 0, &location), std::int16_t(1));
    const QString text = QString::fromLatin1(location.Location);
    QVERIFY(text.endsWith(u"\\CLIENTES.MDB"_s));
    QVERIFY(!text.contains(u'/'));
}

void PeTest::locationRecordsMayHaveBothSizes_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("answer");
    QTest::newRow("258") << 258 << 1;
    QTest::newRow("1026") << 1026 << 1;
    QTest::newRow("257") << 257 << 0;
    QTest::newRow("0") << 0 << 0;
}

void PeTest::locationRecordsMayHaveBothSizes()
{
    QFETCH(const int, size);
    QFETCH(const int, answer);
    const PEJob job = openReport();
    PETableLocation location;
    location.StructSize = static_cast<std::uint16_t>(size);
    QCOMPARE(int(PEGetNthTableLocation(job, 0, &location)), answer);
    QCOMPARE(int(PEGetErrorCode(job)), answer == 1 ? 0 : int(kRecordSize));
    QCOMPARE(location.Location[0] == '\0', answer == 0);
}

PEJob PeTest::moved(PEJob job)
{
    PETableLocation location;
    const QByteArray target = m_folder->filePath(u"Empresa00012/clientes.mdb"_s).replace(u'/', u'\\').toLatin1();
    std::copy(target.begin(), target.end(), location.Location);
    PESetNthTableLocation(job, 0, &location);
    return job;
}

void PeTest::locationOfAMovedTableIsTaken()
{
    const PEJob job = moved(openReport({}, "CarpetaTabla(0)"));
    QVERIFY(printed(job).startsWith(u"Empresa00012"_s));
}

void PeTest::tablesBesideAnotherMoveWithIt()
{
    const PEJob job = moved(openReport(u"<tabla n=\"1\" alias=\"ZON\" fichero=\"@0/ZONAS.MDB\" union=\"opcional\">"
                                       "<enlace campo=\"{ZON.COD}\" con=\"{CLI.COD}\"/></tabla>"_s));
    PETableLocation location;
    QCOMPARE(PEGetNthTableLocation(job, 1, &location), std::int16_t(1));
    QVERIFY(QString::fromLatin1(location.Location).endsWith(u"Empresa00012\\ZONAS.MDB"_s));
    QCOMPARE(PEGetNthTableLocation(job, 2, &location), std::int16_t(0));
    QCOMPARE(PEGetErrorCode(job), std::int16_t(kTableNumber));
}

void PeTest::locationWithoutAnEndIsRefused()
{
    const PEJob job = openReport();
    PETableLocation location;
    std::fill(std::begin(location.Location), std::end(location.Location), 'a');
    QCOMPARE(PESetNthTableLocation(job, 0, &location), std::int16_t(0));
    QCOMPARE(PEGetErrorCode(job), std::int16_t(kRecordSize));
}

void PeTest::pathWithoutAWindowsFormComesAsUtf8()
{
    const QString name = m_folder->filePath(u"łódź ñ.rpt"_s);
    openReport();
    QVERIFY(QFile::copy(m_folder->filePath(u"prueba.rpt"_s), name));
    QVERIFY(PEOpenPrintJob(name.toUtf8().constData()) > 0);
}

void PeTest::formulaFaultStaysInForce()
{
    const PEJob job = openReport();
    QCOMPARE(PESetSelectionFormula(job, "{CLI.COD} in  to "), std::int16_t(0));
    QCOMPARE(PEGetErrorCode(job), std::int16_t(kFormulaSyntax));
    PEOutputToWindow(job, "T", 0, 0, 400, 400, 0, nullptr);
    QCOMPARE(PEStartPrintJob(job, 0), std::int16_t(0));
    QCOMPARE(PEGetErrorCode(job), std::int16_t(kFormulaSyntax));
    QVERIFY(jobLastError(job).startsWith(u"selección, 1:15: "_s));
    QVERIFY(preview() == nullptr);
}

void PeTest::formulaFieldIsFoundWithAndWithoutItsMark()
{
    const PEJob job = openReport({}, "{@FESYS}");
    QCOMPARE(PESetFormula(job, "fesys", "StringVar YO; YO:=\"uno\""), std::int16_t(1));
    QCOMPARE(PESetFormula(job, "@FESYS", "StringVar YO; YO:=\"Espa\xf1" "a\""), std::int16_t(1));
    QCOMPARE(PESetFormula(job, "OTRA", "1"), std::int16_t(0));
    QCOMPARE(PEGetErrorCode(job), std::int16_t(kFormulaMissing));
    QVERIFY(printed(job).startsWith(u"España"_s));
}

void PeTest::emptySelectionTakesEveryRecord()
{
    const PEJob job = openReport(u"<seleccion>{CLI.COD} = \"002\"</seleccion>"_s);
    QCOMPARE(PESetSelectionFormula(job, "\0)))"), std::int16_t(1));
    QVERIFY(printed(job).contains(u"100"_s));
}

void PeTest::withoutACallTheDefinitionsSelectionStays()
{
    QCOMPARE(printed(openReport(u"<seleccion>{CLI.COD} = \"002\"</seleccion>"_s)), u"002"_s);
}

void PeTest::subreportHasItsOwnJob()
{
    const QString inner = u"<seccion tipo=\"pie-informe\" alto=\"9\"><subinforme nombre=\"Uno\" x=\"0\" y=\"0\" ancho=\"9\"/>"
                          "<subinforme nombre=\"Dos\" x=\"0\" y=\"0\" ancho=\"9\"/></seccion>"
                          "<definicion nombre=\"Uno\"><tabla n=\"0\" alias=\"Z\" fichero=\"ZONAS.MDB\"/></definicion>"
                          "<definicion nombre=\"Dos\"><tabla n=\"0\" alias=\"Z\" fichero=\"ZONAS.MDB\"/></definicion>"_s;
    const PEJob job = openReport(inner);
    QCOMPARE(PEGetNSections(job), std::int16_t(2));
    const std::int16_t code = PEGetSectionCode(job, 1);
    QCOMPARE(PEGetNSubreportsInSection(job, code), std::int16_t(2));
    const std::int32_t handle = PEGetNthSubreportInSection(job, code, 1);
    PESubreportInfo info;
    QCOMPARE(PEGetSubreportInfo(job, handle, &info), std::int16_t(1));
    QCOMPARE(QByteArray(info.name), QByteArray("Dos"));
    const PEJob subjob = PEOpenSubreport(job, info.name);
    QVERIFY(subjob > 0 && subjob != job);
    QCOMPARE(PEOpenSubreport(job, "dos"), subjob);
    QCOMPARE(PEGetNTables(subjob), std::int16_t(1));
    QCOMPARE(PEOpenSubreport(job, "Tres"), PEJob(0));
    QCOMPARE(PEGetErrorCode(job), std::int16_t(kSectionOrSubreport));
}

void PeTest::optionRecordsOfAnotherSizeAreRefused()
{
    const PEJob job = openReport();
    PEWindowOptions window;
    window.StructSize = 24;
    QCOMPARE(PESetWindowOptions(job, &window), std::int16_t(0));
    QCOMPARE(PEGetErrorCode(job), std::int16_t(kRecordSize));
    PEPrintOptions print;
    print.StructSize = 12;
    QCOMPARE(PESetPrintOptions(job, &print), std::int16_t(0));
    QCOMPARE(PEGetErrorCode(job), std::int16_t(kRecordSize));
}

void PeTest::copiesOutsideTheirBoundsAreRefused()
{
    const PEJob job = openReport();
    PEPrintOptions print;
    print.nReportCopies = 10'000;
    QCOMPARE(PESetPrintOptions(job, &print), std::int16_t(0));
    QCOMPARE(PEGetErrorCode(job), std::int16_t(kBadValue));
    QCOMPARE(PEOutputToPrinter(job, 0), std::int16_t(0));
}

void PeTest::startWithoutOutputIsCode20()
{
    const PEJob job = openReport();
    QCOMPARE(PEStartPrintJob(job, 0), std::int16_t(0));
    QCOMPARE(PEGetErrorCode(job), std::int16_t(kNoOutput));
}

void PeTest::secondStartIsCode21()
{
    const PEJob job = openReport();
    PEOutputToPrinter(job, 1);
    QCOMPARE(PEStartPrintJob(job, 1), std::int16_t(1));
    QCOMPARE(PEStartPrintJob(job, 1), std::int16_t(0));
    QCOMPARE(PEGetErrorCode(job), std::int16_t(kAlreadyStarted));
}

void PeTest::missingStoreShowsAtTheStart()
{
    const PEJob job = openReport();
    PETableLocation location;
    std::copy_n("C:\\nada.mdb", 12, location.Location);
    QCOMPARE(PESetNthTableLocation(job, 0, &location), std::int16_t(1));
    PEOutputToPrinter(job, 1);
    QCOMPARE(PEStartPrintJob(job, 0), std::int16_t(0));
    QCOMPARE(PEGetErrorCode(job), std::int16_t(kStoreMissing));
}

void PeTest::missingColumnShowsAtTheStart()
{
    const PEJob job = openReport({}, "{CLI.NADA}");
    PEOutputToWindow(job, "T", 0, 0, 400, 400, 0, nullptr);
    QCOMPARE(PEStartPrintJob(job, 0), std::int16_t(0));
    QCOMPARE(PEGetErrorCode(job), std::int16_t(kColumnMissing));
    QVERIFY(preview() == nullptr);
}

void PeTest::previewStandsAloneWithItsTitle()
{
    const PEJob job = openReport();
    PEOutputToWindow(job, "Resumen de gesti\xf3n", 50, 50, 600, 600, 0, nullptr);
    QCOMPARE(PEStartPrintJob(job, 0), std::int16_t(1));
    QVERIFY(preview() != nullptr);
    QCOMPARE(preview()->windowTitle(), u"Resumen de gestión"_s);
    QCOMPARE(preview()->size(), QSize(600, 600));
    QVERIFY(preview()->parentWidget() == nullptr);
}

void PeTest::previewHasOnlyTheToolsAskedFor()
{
    const PEJob job = openReport();
    PEWindowOptions options;
    options.hasPrintButton = 1;
    options.hasRefreshButton = 1;
    QCOMPARE(PESetWindowOptions(job, &options), std::int16_t(1));
    PEOutputToWindow(job, "T", 50, 50, 600, 600, 0, nullptr);
    PEStartPrintJob(job, 0);
    QStringList tools;
    for (const QAction* action : preview()->findChildren<QAction*>()) {
        if (!action->objectName().isEmpty() && !action->objectName().startsWith(u"_q"))
            tools += action->objectName();
    }
    QCOMPARE(tools, QStringList{u"imprimir"_s});
}

void PeTest::previewKeysTurnPages()
{
    const PEJob job = openReport();
    PEOutputToWindow(job, "T", 50, 50, 600, 600, 0, nullptr);
    PEStartPrintJob(job, 1);
    QWidget* page = preview()->findChild<QScrollArea*>()->widget();
    QTRY_VERIFY(page->accessibleDescription().startsWith(u"001"_s));
    QTest::keyClick(page, Qt::Key_PageDown);
    QVERIFY(page->accessibleDescription().startsWith(u"019"_s));
    QTest::keyClick(page, Qt::Key_End);
    QVERIFY(page->accessibleDescription().endsWith(u"100"_s));
    QTest::keyClick(page, Qt::Key_Home);
    QVERIFY(page->accessibleDescription().startsWith(u"001"_s));
}

void PeTest::previewWorksBesideAModalWindow()
{
    QWidget parent;
    parent.show();
    QDialog modal(&parent);
    modal.setWindowModality(Qt::WindowModal);
    modal.open();
    const PEJob job = openReport();
    PEWindowOptions options;
    options.hasNavigationControls = 1;
    PESetWindowOptions(job, &options);
    PEOutputToWindow(job, "T", 50, 50, 600, 600, 0, nullptr);
    PEStartPrintJob(job, 1);
    PreviewWindow* window = preview();
    QVERIFY(QTest::qWaitForWindowExposed(window));
    QWidget* page = window->findChild<QScrollArea*>()->widget();
    QAction* next = window->findChild<QAction*>(u"siguiente"_s);
    QTRY_VERIFY(next->isEnabled());

    QTest::mouseClick(window->findChild<QToolBar*>()->widgetForAction(next), Qt::LeftButton);

    QVERIFY(page->accessibleDescription().startsWith(u"019"_s));
}

void PeTest::previewExportsItsPagesAndRecords()
{
    const PEJob job = openReport(u"<seleccion>{CLI.COD} &lt;= \"002\"</seleccion>"_s);
    PEOutputToWindow(job, "T", 50, 50, 600, 600, 0, nullptr);
    PEStartPrintJob(job, 0);
    QVERIFY(preview()->exportTo(m_folder->filePath(u"vista.pdf"_s)));
    QCOMPARE(pdfText(u"vista.pdf"_s), u"001 002"_s);
    QVERIFY(preview()->exportTo(m_folder->filePath(u"vista.csv"_s)));
    QVERIFY(!preview()->exportTo(m_folder->filePath(u"nada/vista.pdf"_s)));
}

void PeTest::escapeStopsARunAndKeepsThePages()
{
    const PEJob job = openReport();
    PEOutputToWindow(job, "T", 50, 50, 600, 600, 0, nullptr);
    PEStartPrintJob(job, 0);
    QTest::keyClick(preview()->findChild<QScrollArea*>()->widget(), Qt::Key_Escape);
    QVERIFY(preview()->wasCancelled());
    QCOMPARE(jobState(job), JobState::Cancelled);
    QVERIFY(preview()->findChild<QScrollArea*>()->widget()->accessibleDescription().startsWith(u"001"_s));
}

void PeTest::previewHoldsNoStore()
{
    const PEJob job = openReport();
    PEOutputToWindow(job, "T", 50, 50, 600, 600, 0, nullptr);
    PEStartPrintJob(job, 0);
    givenTable(m_folder->filePath(u"CLIENTES.MDB"_s), u"NUEVA"_s, {u"A"_s}, {{u"1"_s}});
    QVERIFY(preview() != nullptr);
}

void PeTest::unknownPrinterStopsPrintingOnly()
{
    const PEJob job = openReport();
    QCOMPARE(PESelectPrinter(job, "d", "Otra", "p", nullptr), std::int16_t(0));
    QCOMPARE(PEGetErrorCode(job), std::int16_t(kPrinter));
    PEOutputToPrinter(job, 1);
    QCOMPARE(PEStartPrintJob(job, 0), std::int16_t(0));
    QCOMPARE(PEGetErrorCode(job), std::int16_t(kPrinter));
    PEOutputToWindow(job, "T", 50, 50, 600, 600, 0, nullptr);
    QCOMPARE(PEStartPrintJob(job, 0), std::int16_t(1));
}

void PeTest::closingTheEngineFinishesPrinting()
{
    const PEJob job = openReport();
    QCOMPARE(PESelectPrinter(job, "d", "L\xe1ser", "p", nullptr), std::int16_t(1));
    PEOutputToPrinter(job, 1);
    QCOMPARE(PEStartPrintJob(job, 0), std::int16_t(1));
    PECloseEngine();
    QVERIFY(pdfText(u"impreso.pdf"_s).endsWith(u"100"_s));
}

void PeTest::copiesAreRepeatedWhereThePrinterCant()
{
    const PEJob job = openReport(u"<seleccion>{CLI.COD} &lt;= \"002\"</seleccion>"_s);
    PEOutputToPrinter(job, 1);
    PEPrintOptions options;
    options.nReportCopies = 3;
    options.collation = 2;
    QCOMPARE(PESetPrintOptions(job, &options), std::int16_t(1));
    QCOMPARE(PEStartPrintJob(job, 1), std::int16_t(1));
    QCOMPARE(pdfText(u"impreso.pdf"_s), u"001 002 001 002 001 002"_s);
}

void PeTest::pageRangePrintsOnlyThosePages()
{
    const PEJob job = openReport();
    PEOutputToPrinter(job, 1);
    PEPrintOptions options;
    options.nReportCopies = 1;
    options.startPageN = 2;
    options.stopPageN = 2;
    QCOMPARE(PESetPrintOptions(job, &options), std::int16_t(1));
    QCOMPARE(PEStartPrintJob(job, 1), std::int16_t(1));
    QVERIFY(pdfText(u"impreso.pdf"_s).startsWith(u"019"_s));
}

void PeTest::closingTheEngineClosesPreviews()
{
    const PEJob job = openReport();
    PEOutputToWindow(job, "T", 50, 50, 600, 600, 0, nullptr);
    PEStartPrintJob(job, 0);
    PECloseEngine();
    QVERIFY(preview() == nullptr);
    QCOMPARE(PEGetNTables(job), std::int16_t(-1));
}

QTEST_MAIN(PeTest)
#include "tst_pe.moc"
