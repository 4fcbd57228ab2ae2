// SPDX-License-Identifier: GPL-3.0-or-later
// The preview: a window of its own with the tools asked for, its keys, its export.
#include "platform/print/engine.h"
#include "platform/print/pefixture.h"
#include "platform/print/storefixture.h"

#include <QAction>
#include <QDialog>
#include <QFileInfo>
#include <QScrollArea>
#include <QTest>
#include <QToolBar>

using namespace Qt::StringLiterals;
using namespace platform;
using namespace platform::print;

class PreviewTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_report.openEngine(); }
    void cleanup() { PeFixture::closeEngine(); }
    void previewStandsAloneWithItsTitle();
    void previewHasOnlyTheToolsAskedFor();
    void previewKeysTurnPages();
    void previewWorksBesideAModalWindow();
    void previewExportsItsPagesAndRecords();
    void previewHoldsNoStore();
    void closingTheEngineClosesPreviews();

private:
    PeFixture m_report;
};

void PreviewTest::previewStandsAloneWithItsTitle()
{
    const PEJob job = m_report.openReport();
    PEOutputToWindow(job, "Resumen de gesti\xf3n", 50, 50, 600, 600, 0, nullptr);
    QCOMPARE(PEStartPrintJob(job, 0), std::int16_t(1));
    QVERIFY(PeFixture::preview() != nullptr);
    QCOMPARE(PeFixture::preview()->windowTitle(), u"Resumen de gestión"_s);
    QCOMPARE(PeFixture::preview()->size(), QSize(600, 600));
    QVERIFY(PeFixture::preview()->parentWidget() == nullptr);
}

void PreviewTest::previewHasOnlyTheToolsAskedFor()
{
    const PEJob job = m_report.openReport();
    PEWindowOptions options;
    options.hasPrintButton = 1;
    options.hasRefreshButton = 1;
    QCOMPARE(PESetWindowOptions(job, &options), std::int16_t(1));
    PEOutputToWindow(job, "T", 50, 50, 600, 600, 0, nullptr);
    PEStartPrintJob(job, 0);
    QStringList tools;
    for (const QAction* action : PeFixture::preview()->findChildren<QAction*>()) {
        if (!action->objectName().isEmpty() && !action->objectName().startsWith(u"_q"))
            tools += action->objectName();
    }
    QCOMPARE(tools, QStringList{u"imprimir"_s});
}

void PreviewTest::previewKeysTurnPages()
{
    const PEJob job = m_report.openReport();
    PEOutputToWindow(job, "T", 50, 50, 600, 600, 0, nullptr);
    PEStartPrintJob(job, 1);
    QWidget* page = PeFixture::preview()->findChild<QScrollArea*>()->widget();
    QTRY_VERIFY(page->accessibleDescription().startsWith(u"001"_s));
    QTest::keyClick(page, Qt::Key_PageDown);
    QVERIFY(page->accessibleDescription().startsWith(u"019"_s));
    QTest::keyClick(page, Qt::Key_End);
    QVERIFY(page->accessibleDescription().endsWith(u"100"_s));
    QTest::keyClick(page, Qt::Key_Home);
    QVERIFY(page->accessibleDescription().startsWith(u"001"_s));
}

void PreviewTest::previewWorksBesideAModalWindow()
{
    QWidget parent;
    parent.show();
    QDialog modal(&parent);
    modal.setWindowModality(Qt::WindowModal);
    modal.open();
    const PEJob job = m_report.openReport();
    PEWindowOptions options;
    options.hasNavigationControls = 1;
    PESetWindowOptions(job, &options);
    PEOutputToWindow(job, "T", 50, 50, 600, 600, 0, nullptr);
    PEStartPrintJob(job, 1);
    PreviewWindow* window = PeFixture::preview();
    QVERIFY(QTest::qWaitForWindowExposed(window));
    QWidget* page = window->findChild<QScrollArea*>()->widget();
    QAction* next = window->findChild<QAction*>(u"siguiente"_s);
    QTRY_VERIFY(next->isEnabled());

    QTest::mouseClick(window->findChild<QToolBar*>()->widgetForAction(next), Qt::LeftButton);

    QVERIFY(page->accessibleDescription().startsWith(u"019"_s));
}

void PreviewTest::previewExportsItsPagesAndRecords()
{
    const PEJob job = m_report.openReport(u"<seleccion>{CLI.COD} &lt;= \"002\"</seleccion>"_s);
    PEOutputToWindow(job, "T", 50, 50, 600, 600, 0, nullptr);
    PEStartPrintJob(job, 0);
    QVERIFY(PeFixture::preview()->exportTo(m_report.file(u"vista.pdf"_s)));
    QTRY_COMPARE(m_report.pdfText(u"vista.pdf"_s), u"001 002"_s);
    QVERIFY(PeFixture::preview()->exportTo(m_report.file(u"vista.csv"_s)));
    QTRY_VERIFY(QFileInfo::exists(m_report.file(u"vista.csv"_s)));
    QVERIFY(!PeFixture::preview()->exportTo(m_report.file(u"nada/vista.pdf"_s)));
}

void PreviewTest::previewHoldsNoStore()
{
    const PEJob job = m_report.openReport();
    PEOutputToWindow(job, "T", 50, 50, 600, 600, 0, nullptr);
    PEStartPrintJob(job, 0);
    QTRY_COMPARE(jobState(job), JobState::Finished);
    givenTable(m_report.file(u"CLIENTES.MDB"_s), u"NUEVA"_s, {u"A"_s}, {{u"1"_s}});
    QVERIFY(PeFixture::preview() != nullptr);
}

void PreviewTest::closingTheEngineClosesPreviews()
{
    const PEJob job = m_report.openReport();
    PEOutputToWindow(job, "T", 50, 50, 600, 600, 0, nullptr);
    PEStartPrintJob(job, 0);
    PECloseEngine();
    QVERIFY(PeFixture::preview() == nullptr);
    QCOMPARE(PEGetNTables(job), std::int16_t(-1));
}

QTEST_MAIN(PreviewTest)
#include "tst_preview.moc"
