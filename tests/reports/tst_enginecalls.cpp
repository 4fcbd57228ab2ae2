// SPDX-License-Identifier: GPL-3.0-or-later
// Every report of the catalogue, on both outputs: what the engine is asked, call by call, and what becomes of
// the run when any one of the calls fails.
#include "reports/drivenwindow.h"
#include "reports/expectedcalls.h"
#include "reports/recordingengine.h"

#include "platform/window/formhelpers.h"
#include "reports/catalogue.h"
#include "shell/globalsat.h"

#include <QCheckBox>
#include <QLabel>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace reporttest;

Q_DECLARE_METATYPE(reporttest::Output)

class EngineCallsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { m_driven.reset(); }
    void everyReportIsExpected();
    void runMakesItsCallsInOrder_data() { runs(); }
    void runMakesItsCallsInOrder();
    void failingCallChangesInSilenceWhatHangsOnItAlone_data() { runs(); }
    void failingCallChangesInSilenceWhatHangsOnItAlone();
    void engineThatDoesNotOpenIsSilent();

private:
    static void runs();
    /// Runs a report from the start, with the call at the position failing (-1: none).
    void run(int report, Output output, qsizetype failing);

    std::unique_ptr<DrivenWindow> m_driven;
};

void EngineCallsTest::runs()
{
    QTest::addColumn<int>("report");
    QTest::addColumn<Output>("output");
    for (const int report : expectedReports()) {
        QTest::addRow("%d to the window", report) << report << Output::Window;
        QTest::addRow("%d to the printer", report) << report << Output::Printer;
    }
    QTest::addRow("1 to the printer with receipts") << 1 << Output::PrinterWithReceipts;
}

void EngineCallsTest::run(int report, Output output, qsizetype failing)
{
    m_driven.reset();
    m_driven = std::make_unique<DrivenWindow>();
    FORMULABUSQUEDA = kLookupFormula;
    m_driven->requested(report);
    if (report != reports::kServiceSummary)
        BASEINFORME2 = BASEINFORME;
    engineAnswers().tableLocations = kTablesOfTheFile;
    engineAnswers().subreportsBySection = kSubreportsOfTheFile;
    engineAnswers().failingCall = failing;
    if (output == Output::PrinterWithReceipts)
        m_driven->control<QCheckBox>("Check1").setChecked(true);
    output == Output::Window ? m_driven->preview() : m_driven->print();
}

void EngineCallsTest::everyReportIsExpected()
{
    const QList<int> expected = expectedReports();

    QVERIFY(!reports::catalogue().empty());
    for (const reports::ReportRow& row : reports::catalogue())
        QVERIFY2(expected.contains(row.number), qPrintable(QString::number(row.number)));
}

void EngineCallsTest::runMakesItsCallsInOrder()
{
    QFETCH(int, report);
    QFETCH(Output, output);

    run(report, output, -1);

    QCOMPARE(recordedCalls(), namesOf(expectedCalls(report, output)));
}

void EngineCallsTest::failingCallChangesInSilenceWhatHangsOnItAlone()
{
    QFETCH(int, report);
    QFETCH(Output, output);
    const ExpectedCalls expected = expectedCalls(report, output);

    for (qsizetype failing = 0; failing < expected.size(); ++failing) {
        run(report, output, failing);

        const QStringList after = namesAfterFailure(expected, failing);
        QVERIFY2(recordedCalls() == after,
                 qPrintable(u"%1 fails at %2:\n%3\nexpected\n%4"_s.arg(expected[failing].call)
                                .arg(failing)
                                .arg(recordedCalls().join(u'\n'), after.join(u'\n'))));
        QCOMPARE(m_driven->messages().texts(), QStringList());
        QVERIFY(m_driven->window().isVisible());
        QCOMPARE(m_driven->window().MODOSALIDA, 0.0);
        QCOMPARE(platform::mousePointer(&m_driven->window()), platform::kDefaultPointer);
    }
}

void EngineCallsTest::engineThatDoesNotOpenIsSilent()
{
    m_driven = std::make_unique<DrivenWindow>();
    engineAnswers().failing = u"PEOpenEngine"_s;

    m_driven->requested(reports::kMaintenanceNotes);

    QVERIFY(m_driven->window().isVisible());
    QCOMPARE(m_driven->messages().texts(), QStringList());
    QVERIFY(m_driven->window().findChild<QLabel*>(u"Label1"_s)->text().contains(u"Título"_s));
}

QTEST_MAIN(EngineCallsTest)
#include "tst_enginecalls.moc"
