// SPDX-License-Identifier: GPL-3.0-or-later
// Reports sent from the report window to real queues of a printing system: which queue takes them, what is
// asked of it, and what it is given to print.
#include "reports/cupsserver.h"
#include "reports/reportroot.h"

#include "platform/print/output/printers.h"
#include "platform/window/treeview.h"
#include "support/messagerecorder.h"

#include <QAction>
#include <QFile>
#include <QTest>
#include <QToolBar>

#include <memory>

using namespace Qt::StringLiterals;
using namespace reporttest;
using platform::TreeView;
using platform::print::PreviewWindow;
using reports::LISTA;

class RealPrintingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    void treeShowsTheQueuesWithTheDefaultSelected();
    void printGoesToTheDefaultQueue();
    void chosenQueueTakesThePrint();
    void threeCopiesAreAskedForCollated();
    void oneCopyAsksForNothing();
    void queueIsGivenTheWholeReport();
    void closingTheWindowAtOnceLosesNoPage();
    void previewPrintsToTheQueue();
    void apostropheInTheRangePrintsNothing();

private:
    /// The window of a report, on the screen.
    LISTA& shown(int report);
    void chooseQueue(const QString& name);
    /// The one job that has come since the test began.
    SpooledJob arrived();

    std::unique_ptr<CupsServer> m_cups;
    std::unique_ptr<ReportRoot> m_root;
    testsupport::MessageRecorder m_messages;
    QWidget m_main;
    std::unique_ptr<LISTA> m_window;
    qsizetype m_formerJobs = 0;
};

namespace {

bool isPdf(const SpooledJob& job)
{
    QFile file(job.document);
    return file.open(QIODevice::ReadOnly) && file.read(5) == "%PDF-";
}

} // namespace

void RealPrintingTest::initTestCase()
{
    m_cups = std::make_unique<CupsServer>();
    QVERIFY2(m_cups->isRunning(), m_cups->log().constData());
    for (const QString& queue : {u"Oficina"_s, u"Taller"_s})
        QVERIFY2(m_cups->addQueue(queue), m_cups->log().constData());
    QVERIFY(m_cups->makeDefault(u"Oficina"_s));
    m_root = std::make_unique<ReportRoot>();
    m_main.show();
}

void RealPrintingTest::cleanupTestCase()
{
    m_root.reset();
    m_cups.reset();
}

void RealPrintingTest::init()
{
    platform::setPrinterSource({}); // forgets the choice of the test before
    m_messages.clear();
    m_formerJobs = m_cups->jobs().size();
}

void RealPrintingTest::cleanup()
{
    if (m_window)
        m_window->unload();
    m_window.reset();
}

LISTA& RealPrintingTest::shown(int report)
{
    requestReport(report);
    m_window = std::make_unique<LISTA>(&m_main);
    m_window->showModeless();
    if (!QTest::qWaitForWindowActive(m_window.get()))
        qFatal("the report window does not become active");
    return *m_window;
}

void RealPrintingTest::chooseQueue(const QString& name)
{
    auto& tree = control<TreeView>(*m_window, "TreeView1");
    const QList<QTreeWidgetItem*> items = tree.findItems(name, Qt::MatchExactly | Qt::MatchRecursive);
    QCOMPARE(items.size(), 1);
    const QPoint place = tree.visualItemRect(items.first()).center();
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(tree.viewport(), Qt::LeftButton, {}, place);
}

SpooledJob RealPrintingTest::arrived()
{
    if (!QTest::qWaitFor([this] { return m_cups->jobs().size() > m_formerJobs; }, 20000))
        return {};
    const QList<SpooledJob> jobs = m_cups->jobs();
    return jobs.size() == m_formerJobs + 1 ? jobs.last() : SpooledJob();
}

void RealPrintingTest::treeShowsTheQueuesWithTheDefaultSelected()
{
    const auto& tree = control<TreeView>(shown(525), "TreeView1");

    QCOMPARE(tree.nodesCount(), 4); // two roots, two queues
    QCOMPARE(tree.selectedText(), u"Oficina"_s);
}

void RealPrintingTest::printGoesToTheDefaultQueue()
{
    press(shown(525), "Command2");

    const SpooledJob job = arrived();
    QVERIFY(job.isFor("Oficina"));
    QVERIFY(isPdf(job));
    QVERIFY2(job.attributes.contains("Lista de clientes"), job.attributes.constData()); // names the job
}

void RealPrintingTest::chosenQueueTakesThePrint()
{
    LISTA& window = shown(525);
    chooseQueue(u"Taller"_s);
    QVERIFY(m_messages.texts().value(0).endsWith(u"Impresora: Taller\r"_s));

    press(window, "Command2");

    QVERIFY(arrived().isFor("Taller"));
}

void RealPrintingTest::threeCopiesAreAskedForCollated()
{
    LISTA& window = shown(525);
    chooseEntry(window, "Combo1", 2);

    press(window, "Command2");

    const SpooledJob job = arrived();
    QVERIFY(job.hasNumber("copies", 3));
    QVERIFY(job.hasFlag("Collate"));
    QCOMPARE(pdfText(job.document).count(u'|'), 2); // the queue makes the copies
}

void RealPrintingTest::oneCopyAsksForNothing()
{
    press(shown(525), "Command2");

    const SpooledJob job = arrived();
    QVERIFY(isPdf(job));
    QVERIFY(!job.hasNumber("copies", 3));
    QVERIFY(!job.hasAttribute("Collate"));
}

void RealPrintingTest::queueIsGivenTheWholeReport()
{
    press(shown(525), "Command2");

    const QString text = pdfText(arrived().document);
    for (const Client& client : m_root->clients())
        QVERIFY2(text.contains(client.line()), qPrintable(client.line()));
    QVERIFY(text.contains(u"Total de clientes: 40"_s));
}

void RealPrintingTest::closingTheWindowAtOnceLosesNoPage()
{
    qsizetype notes = 0;
    for (const Client& client : m_root->clients())
        notes += m_root->articlesOf(client.code).isEmpty() ? 0 : 1;
    LISTA& window = shown(725);

    press(window, "Command2");
    press(window, "Command3");

    QCOMPARE(pdfText(arrived().document).count(u'|'), notes);
}

void RealPrintingTest::previewPrintsToTheQueue()
{
    PreviewWindow* preview = visualize(shown(888));
    QVERIFY(preview != nullptr);
    QAction* print = preview->findChild<QAction*>(u"imprimir"_s);

    QTest::mouseClick(preview->findChild<QToolBar*>()->widgetForAction(print), Qt::LeftButton);

    const SpooledJob job = arrived();
    QVERIFY(job.isFor("Oficina"));
    QVERIFY(pdfText(job.document).contains(u"Marzo de 2022"_s));
}

void RealPrintingTest::apostropheInTheRangePrintsNothing()
{
    LISTA& window = shown(525);
    typeInto(window, "Text1", u"O'Donnell"_s);

    press(window, "Command2");
    press(window, "Command3"); // prints what was started before it returns

    QCOMPARE(m_cups->jobs().size(), m_formerJobs);
}

QTEST_MAIN(RealPrintingTest)
#include "tst_realprinting.moc"
