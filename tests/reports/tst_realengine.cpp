// SPDX-License-Identifier: GPL-3.0-or-later
// The report window with the real print engine over real stores: what stands in the previews is what the
// stores hold.
#include "reports/reportroot.h"

#include "platform/print/pe.h"
#include "platform/system/paths.h"
#include "platform/window/listbar.h"
#include "shell/globalsat.h"
#include "support/messagerecorder.h"

#include <QAction>
#include <QFile>
#include <QFileInfo>
#include <QScrollArea>
#include <QTest>
#include <QTimer>
#include <QToolBar>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;
using namespace reporttest;
using platform::print::PreviewWindow;
using reports::LISTA;

class RealEngineTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { m_root.reset(); }
    void cleanup();

    void everyClientWithConceptsInForceGetsANote();
    void noteHoldsTheConceptsInForce();
    void zoneRangeOfOneZoneTakesOnlyItsClients();
    void rangePutInOrderLosesItsZerosAndFindsNobody();
    void companyOfTheFolderHeadsTheNotes();
    void summaryStartsOnThePresentMonth();
    void monthTakesTheConsultationsOfEveryYear();
    void monthWithoutConsultationsSaysSo();
    void clientListHoldsEveryClient();
    void clientRangeTakesOnlyItsClients();
    void clientsByTypeLeaveOutThoseWithoutOne();

    void exportedPagesReadAsThePreviewDoes();
    void previewTakesTitleAndPlace();
    void previewsStandSideBySide();
    void previewWorksWhileTheWindowIsModal();
    void closingTheWindowClosesEngineAndPreviews();
    void apostropheInTheRangeStartsNothing();
    void missingReportFileStartsNothing();
    void missingStoreStartsNothing();
    void openPreviewLeavesTheStoresFree();

private:
    /// The window of a report, on the screen.
    LISTA& shown(int report);

    std::unique_ptr<ReportRoot> m_root;
    testsupport::MessageRecorder m_messages;
    QWidget m_main;
    std::unique_ptr<LISTA> m_window;
};

namespace {

/// Whether the texts stand one after the other.
bool standInOrder(const QString& text, const QStringList& parts)
{
    qsizetype at = 0;
    for (const QString& part : parts) {
        at = text.indexOf(part, at);
        if (at < 0)
            return false;
        at += part.size();
    }
    return true;
}

QStringList linesOf(const QList<Client>& clients)
{
    QStringList lines;
    for (const Client& client : clients)
        lines.append(client.line());
    return lines;
}

} // namespace

void RealEngineTest::initTestCase()
{
    m_root = std::make_unique<ReportRoot>();
    m_main.show();
    QCOMPARE(m_root->clients().size(), 40);
    QCOMPARE(m_root->consultations().size(), 63);
}

void RealEngineTest::cleanup()
{
    if (m_window)
        m_window->unload();
    m_window.reset();
    QVERIFY(m_messages.isEmpty());
}

LISTA& RealEngineTest::shown(int report)
{
    requestReport(report);
    m_window = std::make_unique<LISTA>(&m_main);
    m_window->showModeless();
    if (!QTest::qWaitForWindowActive(m_window.get()))
        qFatal("the report window does not become active");
    return *m_window;
}

void RealEngineTest::everyClientWithConceptsInForceGetsANote()
{
    QList<Client> expected;
    for (const Client& client : m_root->clients()) {
        if (!m_root->articlesOf(client.code).isEmpty())
            expected.append(client);
    }
    std::sort(expected.begin(), expected.end(), [](const Client& a, const Client& b) {
        return a.zone + a.postCode + a.code < b.zone + b.postCode + b.code;
    });

    const QStringList pages = pagesOf(visualize(shown(725)));

    QCOMPARE(pages.size(), expected.size());
    for (qsizetype page = 0; page < pages.size(); ++page)
        QVERIFY2(pages[page].contains(u" "_s + expected[page].code + u" "_s) &&
                     pages[page].contains(u" "_s + expected[page].name + u" "_s),
                 qPrintable(pages[page]));
}

void RealEngineTest::noteHoldsTheConceptsInForce()
{
    // Three in force, and one that has ended.
    const QString client = u"0000000015"_s;
    const QStringList articles = m_root->articlesOf(client);
    QCOMPARE(articles.size(), 3);

    const QStringList pages = pagesOf(visualize(shown(725))).filter(client + u" "_s);

    QCOMPARE(pages.size(), 1);
    QVERIFY2(standInOrder(pages[0], articles), qPrintable(pages[0]));
    QVERIFY(standInOrder(pages[0], {u"Caldera del Año 1"_s, u"1 10,50 10,50"_s, u"3 10,50 31,50"_s,
                                    u"Conceptos: 3"_s, u"63,00"_s}));
    QVERIFY(!pages[0].contains(u"BAJA"_s));
}

void RealEngineTest::zoneRangeOfOneZoneTakesOnlyItsClients()
{
    const QString zone = u"0000000002"_s;
    qsizetype expected = 0;
    for (const Client& client : m_root->clients())
        expected += client.zone == zone && !m_root->articlesOf(client.code).isEmpty() ? 1 : 0;
    LISTA& window = shown(725);
    typeInto(window, "Text1", zone);
    typeInto(window, "Text2", zone);

    const QStringList pages = pagesOf(visualize(window));

    QCOMPARE(pages.size(), expected);
    for (const QString& page : pages)
        QVERIFY2(page.contains(u"Zona "_s + zone), qPrintable(page));
}

void RealEngineTest::rangePutInOrderLosesItsZerosAndFindsNobody()
{
    LISTA& window = shown(725);
    typeInto(window, "Text1", u"0000000003"_s);
    typeInto(window, "Text2", u"0000000001"_s);

    control<platform::ListBar>(window, "SSListBar1").setFocus();
    QTest::keyClicks(&control<platform::ListBar>(window, "SSListBar1"), u"v"_s);

    QCOMPARE(previews().size(), 1);
    QCOMPARE(pagesOf(previews().first()),
             QStringList{u"No hay clientes con conceptos en vigor en las zonas elegidas."_s});
}

void RealEngineTest::companyOfTheFolderHeadsTheNotes()
{
    const QStringList pages = pagesOf(visualize(shown(725)));

    QVERIFY(!pages.isEmpty());
    for (const QString& page : pages)
        QVERIFY2(page.startsWith(u"TALLERES DEL NORTE"_s), qPrintable(page));
}

void RealEngineTest::summaryStartsOnThePresentMonth()
{
    const QStringList pages = pagesOf(visualize(shown(888)));

    QVERIFY(!pages.isEmpty());
    QVERIFY2(pages[0].contains(u"Marzo de 2024"_s), qPrintable(pages[0]));
}

void RealEngineTest::monthTakesTheConsultationsOfEveryYear()
{
    LISTA& window = shown(888);
    chooseEntry(window, "Combo2", 3);

    const QStringList pages = pagesOf(visualize(window));

    QCOMPARE(pages.size(), 3);
    for (const int year : {2024, 2023, 2022})
        QVERIFY(pages[2024 - year].contains(u"Abril de %1"_s.arg(year)));
    for (const Consultation& row : m_root->consultations()) {
        const bool isOfApril = row.start.mid(3, 2) == u"04"_s;
        const int page = 2024 - row.start.right(4).toInt();
        QCOMPARE(pages[page].contains(row.subject), isOfApril);
        QCOMPARE(pages.join(u' ').count(row.subject), isOfApril ? 1 : 0);
    }
}

void RealEngineTest::monthWithoutConsultationsSaysSo()
{
    LISTA& window = shown(888);
    chooseEntry(window, "Combo2", 11);

    const QStringList pages = pagesOf(visualize(window));

    QCOMPARE(pages.size(), 1);
    QVERIFY(pages[0].contains(u"No hay consultas en el mes seleccionado."_s));
}

void RealEngineTest::clientListHoldsEveryClient()
{
    const QList<Client> clients = m_root->clients();

    const QStringList pages = pagesOf(visualize(shown(525)));

    QCOMPARE(pages.size(), 2);
    QVERIFY(standInOrder(pages.join(u' '), linesOf(clients)));
    QVERIFY(pages[1].contains(u"Total de clientes: %1"_s.arg(clients.size())));
}

void RealEngineTest::clientRangeTakesOnlyItsClients()
{
    const QString from = u"0000000005"_s;
    const QString to = u"0000000012"_s;
    LISTA& window = shown(525);
    typeInto(window, "Text1", from);
    typeInto(window, "Text2", to);

    const QString text = pagesOf(visualize(window)).join(u' ');

    for (const Client& client : m_root->clients())
        QCOMPARE(text.contains(client.line()), client.code >= from && client.code <= to);
    QVERIFY(text.contains(u"Total de clientes: 8"_s));
}

void RealEngineTest::clientsByTypeLeaveOutThoseWithoutOne()
{
    const QString text = pagesOf(visualize(shown(8888))).join(u' ');

    qsizetype expected = 0;
    for (const Client& client : m_root->clients()) {
        QCOMPARE(text.contains(client.line()), !client.type.isEmpty());
        expected += client.type.isEmpty() ? 0 : 1;
    }
    QVERIFY(text.contains(u"Total de clientes: %1"_s.arg(expected)));
}

void RealEngineTest::exportedPagesReadAsThePreviewDoes()
{
    PreviewWindow* preview = visualize(shown(525));
    QVERIFY(preview != nullptr);
    const QString file = m_root->path(u"clientes.pdf"_s);

    QVERIFY(preview->exportTo(file));

    QTRY_VERIFY(QFileInfo::exists(file));
    const QString text = pdfText(file);
    QCOMPARE(text.count(u'|'), pagesOf(preview).size());
    QVERIFY2(standInOrder(text, linesOf(m_root->clients())), qPrintable(text));
}

void RealEngineTest::previewTakesTitleAndPlace()
{
    const PreviewWindow* preview = visualize(shown(888));

    QVERIFY(preview != nullptr);
    QCOMPARE(preview->windowTitle(), u"Resumen gestión del S.A.T."_s);
    QCOMPARE(preview->geometry(), QRect(50, 50, 600, 600));
    QVERIFY(preview->parentWidget() == nullptr);
}

void RealEngineTest::previewsStandSideBySide()
{
    LISTA& window = shown(725);
    QList<PreviewWindow*> opened;
    for (const QString& zone : {u"0000000001"_s, u"0000000002"_s, u"0000000003"_s}) {
        typeInto(window, "Text1", zone);
        typeInto(window, "Text2", zone);
        opened.append(visualize(window));
    }

    QCOMPARE(previews().size(), 3);
    for (int i = 0; i < 3; ++i) {
        const QStringList pages = pagesOf(opened[i]);
        QVERIFY(!pages.isEmpty());
        for (const QString& page : pages)
            QVERIFY(page.contains(u"Zona 000000000%1"_s.arg(i + 1)));
    }
}

void RealEngineTest::previewWorksWhileTheWindowIsModal()
{
    requestReport(525);
    m_window = std::make_unique<LISTA>(&m_main);
    QString before;
    QString after;
    QTimer::singleShot(0, this, [&] {
        PreviewWindow* preview = visualize(*m_window);
        before = pagesOf(preview).value(1);
        QWidget* page = preview->findChild<QScrollArea*>()->widget();
        QTest::keyClick(page, Qt::Key_Home);
        QAction* next = preview->findChild<QAction*>(u"siguiente"_s);
        const QWidget* button = preview->findChild<QToolBar*>()->widgetForAction(next);
        // Through the window, where a modal one beside it would swallow the click.
        QTest::mouseClick(preview->windowHandle(), Qt::LeftButton, {},
                          button->mapTo(preview, button->rect().center()));
        after = page->accessibleDescription().simplified();
        press(*m_window, "Command3");
    });

    m_window->showModal();

    QVERIFY(!before.isEmpty());
    QCOMPARE(after, before);
}

void RealEngineTest::closingTheWindowClosesEngineAndPreviews()
{
    LISTA& window = shown(888);
    QVERIFY(visualize(window) != nullptr);
    QVERIFY(visualize(window) != nullptr);

    press(window, "Command3");

    QVERIFY(previews().isEmpty());
    QCOMPARE(PEOpenPrintJob(qPrintable(m_root->path(u"clientes.rpt"_s))), PEJob(0));
    QCOMPARE(PEGetErrorCode(0), std::int16_t(1));
}

void RealEngineTest::apostropheInTheRangeStartsNothing()
{
    LISTA& window = shown(525);
    typeInto(window, "Text1", u"0000000001' to '9' or '1"_s);
    QVERIFY(visualize(window) == nullptr);
    typeInto(window, "Text1", u"O'Donnell"_s);

    QVERIFY(visualize(window) == nullptr);

    QVERIFY(previews().isEmpty());
}

void RealEngineTest::missingReportFileStartsNothing()
{
    LISTA& window = shown(725);
    FICHEROINFORME = platform::programPath(m_root->path(u"nada.rpt"_s));

    QVERIFY(visualize(window) == nullptr);
}

void RealEngineTest::missingStoreStartsNothing()
{
    LISTA& window = shown(725);
    BASEINFORME = RUTAEMPRESA + u"NADA.MDB"_s;

    QVERIFY(visualize(window) == nullptr);
    QVERIFY(!QFile::exists(m_root->path(u"Empresa00012/NADA.MDB"_s)));
}

void RealEngineTest::openPreviewLeavesTheStoresFree()
{
    LISTA& window = shown(525);
    const PreviewWindow* preview = visualize(window);
    const QString former = m_root->clients().first().line();
    RSCLIENTES.setIndex(u"CliCodigoIndice"_s);
    RSCLIENTES.Seek(u"=", u"0000000001"_s);
    RSCLIENTES.Edit();
    RSCLIENTES[u"CliNombre"].setValue(u"Cambiado"_s);

    RSCLIENTES.Update();

    QVERIFY(pagesOf(preview).value(0).contains(former));
    QVERIFY(pagesOf(visualize(window)).value(0).contains(u"0000000001 Cambiado"_s));
}

QTEST_MAIN(RealEngineTest)
#include "tst_realengine.moc"
