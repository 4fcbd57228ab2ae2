// SPDX-License-Identifier: GPL-3.0-or-later
// The print operations as their driver calls them: jobs, locations, formulas, output, codes.
#include "platform/print/engine.h"
#include "platform/print/pefixture.h"

#include <QFile>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace platform;
using namespace platform::print;

class PeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_report.openEngine(); }
    void cleanup() { PeFixture::closeEngine(); }
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
    void unknownPrinterStopsPrintingOnly();
    void closingTheEngineFinishesPrinting();
    void copiesAreRepeatedWhereThePrinterCant();
    void pageRangePrintsOnlyThosePages();

private:
    PEJob moved(PEJob job);
    QString printed(PEJob job);

    PeFixture m_report;
};

QString PeTest::printed(PEJob job)
{
    PEOutputToPrinter(job, 1);
    if (PEStartPrintJob(job, 1) == 0)
        return jobLastError(job);
    return m_report.pdfText(u"impreso.pdf"_s);
}

void PeTest::nothingOpensWhileTheEngineIsClosed()
{
    PECloseEngine();
    QCOMPARE(m_report.openReport(), PEJob(0));
    QCOMPARE(PEGetErrorCode(0), std::int16_t(kEngineClosed));
}

void PeTest::missingReportIsCode3()
{
    QCOMPARE(PEOpenPrintJob(m_report.path(u"nada.rpt"_s).constData()), PEJob(0));
    QCOMPARE(PEGetErrorCode(0), std::int16_t(kReportMissing));
}

void PeTest::badReportIsCode4WithItsPlace()
{
    QCOMPARE(m_report.openReport(u"<nada/>"_s), PEJob(0));
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
    QCOMPARE(m_report.openReport(), PEJob(1));
    QCOMPARE(m_report.openReport(), PEJob(2));
}

void PeTest::locationComesAbsoluteWithBackslashes()
{
    const PEJob job = m_report.openReport();
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
    const PEJob job = m_report.openReport();
    PETableLocation location;
    location.StructSize = static_cast<std::uint16_t>(size);
    QCOMPARE(int(PEGetNthTableLocation(job, 0, &location)), answer);
    QCOMPARE(int(PEGetErrorCode(job)), answer == 1 ? 0 : int(kRecordSize));
    QCOMPARE(location.Location[0] == '\0', answer == 0);
}

PEJob PeTest::moved(PEJob job)
{
    PETableLocation location;
    const QByteArray target = m_report.file(u"Empresa00012/clientes.mdb"_s).replace(u'/', u'\\').toLatin1();
    std::copy(target.begin(), target.end(), location.Location);
    PESetNthTableLocation(job, 0, &location);
    return job;
}

void PeTest::locationOfAMovedTableIsTaken()
{
    const PEJob job = moved(m_report.openReport({}, "CarpetaTabla(0)"));
    QVERIFY(printed(job).startsWith(u"Empresa00012"_s));
}

void PeTest::tablesBesideAnotherMoveWithIt()
{
    const PEJob job =
        moved(m_report.openReport(u"<tabla n=\"1\" alias=\"ZON\" fichero=\"@0/ZONAS.MDB\" union=\"opcional\">"
                                  "<enlace campo=\"{ZON.COD}\" con=\"{CLI.COD}\"/></tabla>"_s));
    PETableLocation location;
    QCOMPARE(PEGetNthTableLocation(job, 1, &location), std::int16_t(1));
    QVERIFY(QString::fromLatin1(location.Location).endsWith(u"Empresa00012\\ZONAS.MDB"_s));
    QCOMPARE(PEGetNthTableLocation(job, 2, &location), std::int16_t(0));
    QCOMPARE(PEGetErrorCode(job), std::int16_t(kTableNumber));
}

void PeTest::locationWithoutAnEndIsRefused()
{
    const PEJob job = m_report.openReport();
    PETableLocation location;
    std::fill(std::begin(location.Location), std::end(location.Location), 'a');
    QCOMPARE(PESetNthTableLocation(job, 0, &location), std::int16_t(0));
    QCOMPARE(PEGetErrorCode(job), std::int16_t(kRecordSize));
}

void PeTest::pathWithoutAWindowsFormComesAsUtf8()
{
    const QString name = m_report.file(u"łódź ñ.rpt"_s);
    m_report.openReport();
    QVERIFY(QFile::copy(m_report.file(u"prueba.rpt"_s), name));
    QVERIFY(PEOpenPrintJob(name.toUtf8().constData()) > 0);
}

void PeTest::formulaFaultStaysInForce()
{
    const PEJob job = m_report.openReport();
    QCOMPARE(PESetSelectionFormula(job, "{CLI.COD} in  to "), std::int16_t(0));
    QCOMPARE(PEGetErrorCode(job), std::int16_t(kFormulaSyntax));
    PEOutputToWindow(job, "T", 0, 0, 400, 400, 0, nullptr);
    QCOMPARE(PEStartPrintJob(job, 0), std::int16_t(0));
    QCOMPARE(PEGetErrorCode(job), std::int16_t(kFormulaSyntax));
    QVERIFY(jobLastError(job).startsWith(u"selección, 1:15: "_s));
    QVERIFY(PeFixture::preview() == nullptr);
}

void PeTest::formulaFieldIsFoundWithAndWithoutItsMark()
{
    const PEJob job = m_report.openReport({}, "{@FESYS}");
    QCOMPARE(PESetFormula(job, "fesys", "StringVar YO; YO:=\"uno\""), std::int16_t(1));
    QCOMPARE(PESetFormula(job, "@FESYS",
                          "StringVar YO; YO:=\"Espa\xf1"
                          "a\""),
             std::int16_t(1));
    QCOMPARE(PESetFormula(job, "OTRA", "1"), std::int16_t(0));
    QCOMPARE(PEGetErrorCode(job), std::int16_t(kFormulaMissing));
    QVERIFY(printed(job).startsWith(u"España"_s));
}

void PeTest::emptySelectionTakesEveryRecord()
{
    const PEJob job = m_report.openReport(u"<seleccion>{CLI.COD} = \"002\"</seleccion>"_s);
    QCOMPARE(PESetSelectionFormula(job, "\0)))"), std::int16_t(1));
    QVERIFY(printed(job).contains(u"100"_s));
}

void PeTest::withoutACallTheDefinitionsSelectionStays()
{
    QCOMPARE(printed(m_report.openReport(u"<seleccion>{CLI.COD} = \"002\"</seleccion>"_s)), u"002"_s);
}

void PeTest::subreportHasItsOwnJob()
{
    const QString inner =
        u"<seccion tipo=\"pie-informe\" alto=\"9\"><subinforme nombre=\"Uno\" x=\"0\" y=\"0\" ancho=\"9\"/>"
        "<subinforme nombre=\"Dos\" x=\"0\" y=\"0\" ancho=\"9\"/></seccion>"
        "<definicion nombre=\"Uno\"><tabla n=\"0\" alias=\"Z\" fichero=\"ZONAS.MDB\"/></definicion>"
        "<definicion nombre=\"Dos\"><tabla n=\"0\" alias=\"Z\" fichero=\"ZONAS.MDB\"/></definicion>"_s;
    const PEJob job = m_report.openReport(inner);
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
    const PEJob job = m_report.openReport();
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
    const PEJob job = m_report.openReport();
    PEPrintOptions print;
    print.nReportCopies = 10'000;
    QCOMPARE(PESetPrintOptions(job, &print), std::int16_t(0));
    QCOMPARE(PEGetErrorCode(job), std::int16_t(kBadValue));
    QCOMPARE(PEOutputToPrinter(job, 0), std::int16_t(0));
}

void PeTest::startWithoutOutputIsCode20()
{
    const PEJob job = m_report.openReport();
    QCOMPARE(PEStartPrintJob(job, 0), std::int16_t(0));
    QCOMPARE(PEGetErrorCode(job), std::int16_t(kNoOutput));
}

void PeTest::secondStartIsCode21()
{
    const PEJob job = m_report.openReport();
    PEOutputToPrinter(job, 1);
    QCOMPARE(PEStartPrintJob(job, 1), std::int16_t(1));
    QCOMPARE(PEStartPrintJob(job, 1), std::int16_t(0));
    QCOMPARE(PEGetErrorCode(job), std::int16_t(kAlreadyStarted));
}

void PeTest::missingStoreShowsAtTheStart()
{
    const PEJob job = m_report.openReport();
    PETableLocation location;
    std::copy_n("C:\\nada.mdb", 12, location.Location);
    QCOMPARE(PESetNthTableLocation(job, 0, &location), std::int16_t(1));
    PEOutputToPrinter(job, 1);
    QCOMPARE(PEStartPrintJob(job, 0), std::int16_t(0));
    QCOMPARE(PEGetErrorCode(job), std::int16_t(kStoreMissing));
}

void PeTest::missingColumnShowsAtTheStart()
{
    const PEJob job = m_report.openReport({}, "{CLI.NADA}");
    PEOutputToWindow(job, "T", 0, 0, 400, 400, 0, nullptr);
    QCOMPARE(PEStartPrintJob(job, 0), std::int16_t(0));
    QCOMPARE(PEGetErrorCode(job), std::int16_t(kColumnMissing));
    QVERIFY(PeFixture::preview() == nullptr);
}

void PeTest::unknownPrinterStopsPrintingOnly()
{
    const PEJob job = m_report.openReport();
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
    const PEJob job = m_report.openReport();
    QCOMPARE(PESelectPrinter(job, "d", "L\xe1ser", "p", nullptr), std::int16_t(1));
    PEOutputToPrinter(job, 1);
    QCOMPARE(PEStartPrintJob(job, 0), std::int16_t(1));
    PECloseEngine();
    QVERIFY(m_report.pdfText(u"impreso.pdf"_s).endsWith(u"100"_s));
}

void PeTest::copiesAreRepeatedWhereThePrinterCant()
{
    const PEJob job = m_report.openReport(u"<seleccion>{CLI.COD} &lt;= \"002\"</seleccion>"_s);
    PEOutputToPrinter(job, 1);
    PEPrintOptions options;
    options.nReportCopies = 3;
    options.collation = 2;
    QCOMPARE(PESetPrintOptions(job, &options), std::int16_t(1));
    QCOMPARE(PEStartPrintJob(job, 1), std::int16_t(1));
    QCOMPARE(m_report.pdfText(u"impreso.pdf"_s), u"001 002 001 002 001 002"_s);
}

void PeTest::pageRangePrintsOnlyThosePages()
{
    const PEJob job = m_report.openReport();
    PEOutputToPrinter(job, 1);
    PEPrintOptions options;
    options.nReportCopies = 1;
    options.startPageN = 2;
    options.stopPageN = 2;
    QCOMPARE(PESetPrintOptions(job, &options), std::int16_t(1));
    QCOMPARE(PEStartPrintJob(job, 1), std::int16_t(1));
    QVERIFY(m_report.pdfText(u"impreso.pdf"_s).startsWith(u"019"_s));
}

QTEST_MAIN(PeTest)
#include "tst_pe.moc"
