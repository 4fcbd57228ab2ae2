// SPDX-License-Identifier: GPL-3.0-or-later

// The commands of the main window and the end of the run.

#include "platform/core/regime.h"
#include "platform/system/paths.h"
#include "platform/window/formhelpers.h"
#include "shell/globalsat.h"
#include "shell/stmain.h"
#include "shell/unhandledfailure.h"
#include "support/failureof.h"
#include "support/messagerecorder.h"
#include "support/processrecorder.h"
#include "support/tempdataroot.h"

#include <QAction>
#include <QCloseEvent>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QtTest>

using namespace Qt::StringLiterals;
using testsupport::ProcessRecorder;

class CommandsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void menuEntryOpensTheClientFile();
    void toolOpensTheClientFile();
    void pointerIsBackWhenTheClientFileHasClosed_data();
    void pointerIsBackWhenTheClientFileHasClosed();
    void failingClientFileIsSilentFromTheTool();
    void failingClientFileFromTheMenuGoesToTheCaller();
    void toolStartsTheMessagingProgram();
    void missingMessagingProgramIsSilent();
    void clickOnAnotherToolDoesNothing();
    void summaryReportIsRequestedAndShownModeless();
    void revisionReportIsRequestedAndShownModal();
    void summaryReportLeavesTheSecondDatabaseAsItIs();
    void secondRequestOverwritesTheFirst();
    void failingRevisionReportIsSilent();
    void failingSummaryReportGoesToTheCaller();
    void requestWithoutACompanyHasNoFolder();
    void salirWithNothingOpenEndsTheProcessInSilence();
    void unloadClosesEveryOtherDatabase();
    void databaseSteppedOverKeepsItsRecordset();
    void printEngineClosesAfterTheDatabasesAndBeforeTheEnd();
    void closingTheFrameUnloads();
    void failingPrintEngineStillEndsTheProcess();
    void unhandledFailureIsShownAndEndsTheProcess();
    void unhandledFailureWithoutWordsIsShownByItsNumber();

private:
    void clickTool(const QString& name) const;
    void clickEntry(const QString& menu, const QString& entry) const;

    std::unique_ptr<testsupport::TempDataRoot> m_root;
    std::unique_ptr<testsupport::MessageRecorder> m_messages;
    std::unique_ptr<ProcessRecorder> m_process;
    std::unique_ptr<STMAIN> m_window;
    QStringList m_events;
};

void CommandsTest::init()
{
    m_root = std::make_unique<testsupport::TempDataRoot>();
    m_messages = std::make_unique<testsupport::MessageRecorder>();
    m_process = std::make_unique<ProcessRecorder>();
    m_events.clear();
    resetProgramState();
    const auto record = [this](const QString& event) {
        return [this, event](QWidget* parent) {
            m_events.append(u"%1, pointer %2"_s.arg(event).arg(platform::mousePointer(parent)));
        };
    };
    m_window = std::make_unique<STMAIN>(
        u"00012 ana"_s, STMAINLinks{.showClimantModal = record(u"climant"_s),
                                    .showLista = record(u"LISTA"_s),
                                    .showListaModal = record(u"LISTA modal"_s),
                                    .closePrintEngine = [this] { m_events.append(u"PECloseEngine"_s); }});
}

void CommandsTest::cleanup()
{
    m_window.reset();
    resetProgramState();
    platform::setUnhandledFailure({});
    m_process.reset();
    m_messages.reset();
    m_root.reset();
}

void CommandsTest::clickTool(const QString& name) const
{
    const auto* bar = m_window->findChild<QToolBar*>(u"barrasup"_s);
    QTest::mouseClick(bar->widgetForAction(m_window->findChild<QAction*>(name)), Qt::LeftButton);
}

void CommandsTest::clickEntry(const QString& menu, const QString& entry) const
{
    auto* opened = m_window->findChild<QMenu*>(menu);
    QMenuBar* bar = m_window->menuBar();
    QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier,
                      bar->actionGeometry(opened->menuAction()).center());
    QTest::mouseClick(opened, Qt::LeftButton, Qt::NoModifier,
                      opened->actionGeometry(m_window->findChild<QAction*>(entry)).center());
}

void CommandsTest::menuEntryOpensTheClientFile()
{
    m_window->load();

    clickEntry(u"A1"_s, u"A002"_s);

    QCOMPARE(m_events, QStringList{u"climant, pointer 13"_s});
}

void CommandsTest::toolOpensTheClientFile()
{
    m_window->load();

    clickTool(u"BCLIENTES"_s);

    QCOMPARE(m_events, QStringList{u"climant, pointer 13"_s});
}

void CommandsTest::pointerIsBackWhenTheClientFileHasClosed_data()
{
    QTest::addColumn<bool>("byTool");

    QTest::newRow("tool") << true;
    QTest::newRow("menu") << false;
}

void CommandsTest::pointerIsBackWhenTheClientFileHasClosed()
{
    QFETCH(bool, byTool);

    if (byTool)
        m_window->barrasup_Click(u"BCLIENTES"_s);
    else
        m_window->A002_Click();

    QCOMPARE(platform::mousePointer(m_window.get()), platform::kDefaultPointer);
}

void CommandsTest::failingClientFileIsSilentFromTheTool()
{
    STMAIN window(QString(), STMAINLinks{.showClimantModal = [](QWidget*) { throw platform::Failure(400); },
                                         .showLista = {},
                                         .showListaModal = {},
                                         .closePrintEngine = {}});

    window.barrasup_Click(u"BCLIENTES"_s);

    QCOMPARE(platform::mousePointer(&window), platform::kDefaultPointer);
    QVERIFY(m_messages->isEmpty());
}

void CommandsTest::failingClientFileFromTheMenuGoesToTheCaller()
{
    STMAIN window(QString(), STMAINLinks{.showClimantModal = [](QWidget*) { throw platform::Failure(400); },
                                         .showLista = {},
                                         .showListaModal = {},
                                         .closePrintEngine = {}});

    QCOMPARE(support::failureOf([&] { window.A002_Click(); }), 400);
}

void CommandsTest::toolStartsTheMessagingProgram()
{
    m_window->load();

    clickTool(u"POPUP"_s);

    QCOMPARE(m_process->started(), QStringList{u"WINPOPUP.EXE"_s});
}

void CommandsTest::missingMessagingProgramIsSilent()
{
    m_process->setMissing({u"WINPOPUP.EXE"_s});

    m_window->barrasup_Click(u"POPUP"_s);

    QVERIFY(m_messages->isEmpty());
    QVERIFY(m_process->started().isEmpty());
}

void CommandsTest::clickOnAnotherToolDoesNothing()
{
    m_window->barrasup_Click(u"bTIPO"_s);

    QVERIFY(m_events.isEmpty());
    QVERIFY(m_process->started().isEmpty());
    QVERIFY(m_messages->isEmpty());
}

void CommandsTest::summaryReportIsRequestedAndShownModeless()
{
    m_window->load();

    clickEntry(u"Listadomenu"_s, u"resu"_s);

    QCOMPARE(NUMINFORME, 888.0);
    QCOMPARE(FICHEROINFORME, platform::currentDirectory() + u"\\consultatec.rpt"_s);
    QCOMPARE(BASEINFORME, m_root->companyPath() + u"ASISTENCIAS.MDB"_s);
    QCOMPARE(TITULOINFORME, u"Resumen gestión del S.A.T."_s);
    QCOMPARE(m_events, QStringList{u"LISTA, pointer 13"_s});
    QCOMPARE(platform::mousePointer(m_window.get()), platform::kDefaultPointer);
}

void CommandsTest::revisionReportIsRequestedAndShownModal()
{
    m_window->load();

    clickEntry(u"Listadomenu"_s, u"revi"_s);

    QCOMPARE(NUMINFORME, 725.0);
    QCOMPARE(FICHEROINFORME, platform::currentDirectory() + u"\\conservacion.rpt"_s);
    QCOMPARE(BASEINFORME, m_root->companyPath() + u"CLIENTES.MDB"_s);
    QCOMPARE(BASEINFORME2, m_root->companyPath() + u"CLIENTES.MDB"_s);
    QCOMPARE(TITULOINFORME, u"Albaranes de Mantenimiento"_s);
    QCOMPARE(m_events, QStringList{u"LISTA modal, pointer 13"_s});
    QCOMPARE(platform::mousePointer(m_window.get()), platform::kDefaultPointer);
}

void CommandsTest::summaryReportLeavesTheSecondDatabaseAsItIs()
{
    BASEINFORME2 = u"left over"_s;

    m_window->resu_Click();

    QCOMPARE(BASEINFORME2, u"left over"_s);
}

void CommandsTest::secondRequestOverwritesTheFirst()
{
    m_window->resu_Click();
    m_window->revi_Click();

    QCOMPARE(NUMINFORME, 725.0);
    QCOMPARE(TITULOINFORME, u"Albaranes de Mantenimiento"_s);
}

void CommandsTest::failingRevisionReportIsSilent()
{
    STMAIN window(QString(), STMAINLinks{});

    window.revi_Click();

    QCOMPARE(NUMINFORME, 725.0);
    QCOMPARE(platform::mousePointer(&window), platform::kDefaultPointer);
    QVERIFY(m_messages->isEmpty());
}

void CommandsTest::failingSummaryReportGoesToTheCaller()
{
    STMAIN window(QString(), STMAINLinks{});

    QCOMPARE(support::failureOf([&] { window.resu_Click(); }), 91);
}

void CommandsTest::requestWithoutACompanyHasNoFolder()
{
    m_window->revi_Click();

    QCOMPARE(BASEINFORME, u"CLIENTES.MDB"_s);
}

void CommandsTest::salirWithNothingOpenEndsTheProcessInSilence()
{
    QVERIFY(ProcessRecorder::ends([&] { m_window->A001_Click(); }));

    QVERIFY(m_messages->isEmpty());
    QCOMPARE(m_process->endings(), 1);
}

void CommandsTest::unloadClosesEveryOtherDatabase()
{
    m_window->load();
    const platform::dao::Databases databases = platform::dao::DBEngine().Workspaces(0).Databases();
    QCOMPARE(databases.Count(), 7);

    QVERIFY(ProcessRecorder::ends([&] { m_window->unload(); }));

    // Of the seven, those at 0, 2, 4 and 6 are closed: catalogue, clients, types and telephones.
    QStringList left;
    for (int index = 0; index < databases.Count(); ++index)
        left.append(databases.Item(index).Name().section(u'\\', -1));
    QCOMPARE(left, QStringList({u"Articulos.MDB"_s, u"ZONAS.MDB"_s, u"ASISTENCIAS.MDB"_s}));
}

void CommandsTest::databaseSteppedOverKeepsItsRecordset()
{
    m_window->load();
    BDZONAS.Close();

    QVERIFY(ProcessRecorder::ends([&] { m_window->unload(); }));

    QCOMPARE(BDARTICULOS.Recordsets().Count(), 1);
    QCOMPARE(support::failureOf([] { RSCLIENTES.MoveFirst(); }), 3420);
}

void CommandsTest::printEngineClosesAfterTheDatabasesAndBeforeTheEnd()
{
    int databasesThen = -1;
    int endingsThen = -1;
    STMAIN window(
        u"00012 ana"_s,
        STMAINLinks{.showClimantModal = {}, .showLista = {}, .showListaModal = {}, .closePrintEngine = [&] {
                        databasesThen = platform::dao::DBEngine().Workspaces(0).Databases().Count();
                        endingsThen = m_process->endings();
                    }});
    window.load();

    QVERIFY(ProcessRecorder::ends([&] { window.unload(); }));

    QCOMPARE(databasesThen, 3);
    QCOMPARE(endingsThen, 0);
}

void CommandsTest::closingTheFrameUnloads()
{
    m_window->load();
    QCloseEvent event;

    QVERIFY(ProcessRecorder::ends([&] { static_cast<QObject&>(*m_window).event(&event); }));

    QCOMPARE(m_events, QStringList{u"PECloseEngine"_s});
}

void CommandsTest::failingPrintEngineStillEndsTheProcess()
{
    STMAIN window(QString(), STMAINLinks{});

    QVERIFY(ProcessRecorder::ends([&] { window.unload(); }));
}

void CommandsTest::unhandledFailureIsShownAndEndsTheProcess()
{
    shell::installUnhandledFailureBox();

    QVERIFY(ProcessRecorder::ends(
        [] { platform::runHandler([] { throw platform::Failure(91, u"not bound"_s); }); }));

    QCOMPARE(m_messages->texts(), QStringList{u"Se ha producido el error '91' en tiempo de ejecución.\n\n"
                                              "Falta algo que tenía que estar abierto o elegido."_s});
}

void CommandsTest::unhandledFailureWithoutWordsIsShownByItsNumber()
{
    shell::installUnhandledFailureBox();

    QVERIFY(ProcessRecorder::ends(
        [] { platform::runHandler([] { throw platform::Failure(70, u"permission denied"_s); }); }));

    QCOMPARE(m_messages->texts(), QStringList{u"Se ha producido el error '70' en tiempo de ejecución."_s});
}

QTEST_MAIN(CommandsTest)
#include "tst_commands.moc"
