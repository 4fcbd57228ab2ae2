// SPDX-License-Identifier: GPL-3.0-or-later

// The start sequence and the resizing of the main window.

#include "shell/stmain.h"

#include "shell/globalsat.h"
#include "support/fixedclock.h"
#include "support/messagerecorder.h"
#include "support/processrecorder.h"
#include "support/tempdataroot.h"

#include "platform/window/formhelpers.h"

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QToolBar>
#include <QtTest>

using namespace Qt::StringLiterals;
using platform::ComboList;
using testsupport::ProcessRecorder;

class StmainTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void rejectedLaunchShowsItsMessageAndEndsTheProcess_data();
    void rejectedLaunchShowsItsMessageAndEndsTheProcess();
    void windowIsOnTheScreenWhenTheMessageComes();
    void rejectedLaunchOpensNothing();
    void acceptedLaunchSetsCompanyAndUser();
    void titleIsSet();
    void presentYearIsSelected();
    void exercisesRunFrom1900To2100();
    void exerciseDropDownShows50Lines();
    void combosTakeNoTyping();
    void yearBeyondTheListLeavesTheSelection();
    void exercisesGrowBy201AtEachResize();
    void selectionStaysOnTheFirstOccurrenceAfterAResize();
    void firstResizeComesDuringTheStart();
    void windowTakesItsPlaceAgainAfterAResize();
    void heightIsNotTouchedByAResize();
    void widthThatIsRefusedForEverEnds();
    void bandStandsAcrossTheScreen();
    void companyOfZerosLeavesEverythingClosed();
    void negativeCompanyLeavesEverythingClosed();
    void catalogueIsReadInNameOrder();
    void missingCatalogueIsSilentAndTheStoresComeUp();
    void damagedCatalogueIsSilentAndTheStoresComeUp();
    void pointerIsTheDefaultAfterTheStart();
    void menusAndToolsAreThere();

private:
    [[nodiscard]] std::unique_ptr<STMAIN> started(const QString& commandLine) const;
    static ComboList* exercises(const STMAIN& window) { return window.findChild<ComboList*>(u"Ejercicio"_s); }

    std::unique_ptr<testsupport::TempDataRoot> m_root;
    std::unique_ptr<testsupport::MessageRecorder> m_messages;
    std::unique_ptr<ProcessRecorder> m_process;
    std::unique_ptr<testsupport::FixedClock> m_clock;
};

void StmainTest::init()
{
    m_root = std::make_unique<testsupport::TempDataRoot>();
    m_messages = std::make_unique<testsupport::MessageRecorder>();
    m_process = std::make_unique<ProcessRecorder>();
    m_clock = std::make_unique<testsupport::FixedClock>(QDate(2026, 11, 20), QTime(9, 0));
    resetProgramState();
}

void StmainTest::cleanup()
{
    resetProgramState();
    m_clock.reset();
    m_process.reset();
    m_messages.reset();
    m_root.reset();
}

std::unique_ptr<STMAIN> StmainTest::started(const QString& commandLine) const
{
    auto window = std::make_unique<STMAIN>(commandLine, STMAINLinks{});
    window->load();
    return window;
}

void StmainTest::rejectedLaunchShowsItsMessageAndEndsTheProcess_data()
{
    QTest::addColumn<QString>("commandLine");
    QTest::addColumn<QString>("message");

    QTest::newRow("empty") << u""_s << u"Parámetro incorrecto"_s;
    QTest::newRow("letters") << u"ABCDE ana"_s << u"Parámetro incorrecto"_s;
    QTest::newRow("short") << u"012"_s << u"Parámetro incorrecto"_s;
    QTest::newRow("no user") << u"00012"_s << u"El usuario no es correcto"_s;
}

void StmainTest::rejectedLaunchShowsItsMessageAndEndsTheProcess()
{
    QFETCH(QString, commandLine);
    QFETCH(QString, message);
    STMAIN window(commandLine, STMAINLinks{});

    QVERIFY(ProcessRecorder::ends([&] { window.load(); }));

    QCOMPARE(m_messages->messages(),
             QList({platform::Message{message, QString(), platform::MessageIcon::None}}));
}

void StmainTest::windowIsOnTheScreenWhenTheMessageComes()
{
    STMAIN window(u""_s, STMAINLinks{});
    bool isVisible = false;
    m_messages->whileShown([&](const platform::Message&) { isVisible = window.isVisible(); });

    QVERIFY(ProcessRecorder::ends([&] { window.load(); }));

    QVERIFY(isVisible);
}

void StmainTest::rejectedLaunchOpensNothing()
{
    STMAIN window(u"00012"_s, STMAINLinks{});

    QVERIFY(ProcessRecorder::ends([&] { window.load(); }));

    QVERIFY(!BDEMPRESAS.isBound());
    QVERIFY(RUTAEMPRESA.isEmpty());
}

void StmainTest::acceptedLaunchSetsCompanyAndUser()
{
    const auto window = started(u"00012 ana paz"_s);

    QCOMPARE(NUMEMPRESA, u"00012"_s);
    QCOMPARE(USUARIO, u"ana paz"_s);
    QVERIFY(m_messages->isEmpty());
    QCOMPARE(m_process->endings(), 0);
}

void StmainTest::titleIsSet()
{
    const auto window = started(u"00012 ana"_s);

    QCOMPARE(window->windowTitle(), u"Orvane - Gestión S.A.T. para Quenda Build 3.32.3009"_s);
}

void StmainTest::presentYearIsSelected()
{
    const auto window = started(u"00012 ana"_s);

    QCOMPARE(exercises(*window)->text(), u"2026"_s);
    QCOMPARE(exercises(*window)->listIndex(), 126);
}

void StmainTest::exercisesRunFrom1900To2100()
{
    const auto window = started(u"00012 ana"_s);

    QCOMPARE(exercises(*window)->list(0), u"1900"_s);
    QCOMPARE(exercises(*window)->list(200), u"2100"_s);
    QCOMPARE(exercises(*window)->listCount() % 201, 0);
}

void StmainTest::exerciseDropDownShows50Lines()
{
    const auto window = started(u"00012 ana"_s);

    QCOMPARE(exercises(*window)->maxVisibleItems(), 50);
}

void StmainTest::combosTakeNoTyping()
{
    const auto window = started(u"00012 ana"_s);

    QVERIFY(!window->findChild<ComboList*>(u"Idioma"_s)->isEditable());
    QVERIFY(!exercises(*window)->isEditable());
}

void StmainTest::yearBeyondTheListLeavesTheSelection()
{
    m_clock->set(QDateTime(QDate(1850, 1, 1), QTime(9, 0)));

    const auto window = started(u"00000 ana"_s);

    QCOMPARE(exercises(*window)->listIndex(), -1);
}

void StmainTest::exercisesGrowBy201AtEachResize()
{
    const auto window = started(u"00000 ana"_s);
    const int before = exercises(*window)->listCount();

    window->resize(window->width(), window->height() + 20);

    QCOMPARE(exercises(*window)->listCount(), before + 201);
}

void StmainTest::selectionStaysOnTheFirstOccurrenceAfterAResize()
{
    const auto window = started(u"00000 ana"_s);

    window->resize(window->width(), window->height() + 20);

    QCOMPARE(exercises(*window)->listIndex(), 126);
}

void StmainTest::firstResizeComesDuringTheStart()
{
    STMAIN window(u""_s, STMAINLinks{});
    int entries = 0;
    m_messages->whileShown([&](const platform::Message&) { entries = exercises(window)->listCount(); });

    QVERIFY(ProcessRecorder::ends([&] { window.load(); }));

    QVERIFY(entries >= 201);
}

void StmainTest::windowTakesItsPlaceAgainAfterAResize()
{
    const auto window = started(u"00000 ana"_s);
    const QRect placed(window->pos(), QSize(window->width(), 0));

    window->move(100, 100);
    window->resize(window->width() + 100, window->height());

    QCOMPARE(QRect(window->pos(), QSize(window->width(), 0)), placed);
}

void StmainTest::heightIsNotTouchedByAResize()
{
    const auto window = started(u"00000 ana"_s);

    window->resize(window->width() + 100, 300);

    QCOMPARE(window->height(), 300);
}

void StmainTest::widthThatIsRefusedForEverEnds()
{
    const auto window = started(u"00000 ana"_s);
    const int refusals = 20;
    const int width = window->width() + 100;

    int granted = 0;
    for (int refusal = 0; refusal < refusals; ++refusal) {
        window->resize(width, window->height());
        granted += window->width() == width ? 0 : 1;
    }

    QVERIFY(granted > 0);
    QVERIFY(granted < refusals);
}

void StmainTest::bandStandsAcrossTheScreen()
{
    const auto window = started(u"00000 ana"_s);
    const QRect screen = window->screen()->geometry();

    QCOMPARE(window->pos(), screen.topLeft() - QPoint(2, 2));
    QCOMPARE(window->width(), screen.width() + 5);
}

void StmainTest::companyOfZerosLeavesEverythingClosed()
{
    const auto window = started(u"00000 ana"_s);

    QVERIFY(!BDEMPRESAS.isBound());
    QVERIFY(!RSCLIENTES.isBound());
    QVERIFY(RUTAEMPRESA.isEmpty());
    QCOMPARE(window->findChild<ComboList*>(u"Idioma"_s)->listCount(), 0);
    QVERIFY(window->isVisible());
}

void StmainTest::negativeCompanyLeavesEverythingClosed()
{
    const auto window = started(u"-0012 ana"_s);

    QVERIFY(!BDEMPRESAS.isBound());
    QVERIFY(RUTAEMPRESA.isEmpty());
}

void StmainTest::catalogueIsReadInNameOrder()
{
    m_root->addCompany({u"00001"_s, u"ZURBANO"_s});
    m_root->addCompany({u"00002"_s, u"ALMACENES"_s});

    const auto window = started(u"00012 ana"_s);

    const auto* companies = window->findChild<ComboList*>(u"Idioma"_s);
    QCOMPARE(companies->list(0), u"00002    ALMACENES"_s);
    QCOMPARE(companies->list(1), u"00012    TALLERES DEL NORTE"_s);
    QCOMPARE(companies->list(2), u"00001    ZURBANO"_s);
}

void StmainTest::missingCatalogueIsSilentAndTheStoresComeUp()
{
    QVERIFY(QFile::remove(m_root->path(u"Empresas de Quenda.mdb"_s)));

    const auto window = started(u"00012 ana"_s);

    QVERIFY(!BDEMPRESAS.isBound());
    QVERIFY(!RSEMPRESAS.isBound());
    QVERIFY(RSCLIENTES.isBound());
    QVERIFY(m_messages->isEmpty());
}

void StmainTest::damagedCatalogueIsSilentAndTheStoresComeUp()
{
    QFile catalogue(m_root->path(u"Empresas de Quenda.mdb"_s));
    QVERIFY(catalogue.open(QIODevice::WriteOnly | QIODevice::Truncate));
    catalogue.write("not a database");
    catalogue.close();

    const auto window = started(u"00012 ana"_s);

    QVERIFY(!BDEMPRESAS.isBound());
    QVERIFY(RSCLIENTES.isBound());
    QVERIFY(m_messages->isEmpty());
}

void StmainTest::pointerIsTheDefaultAfterTheStart()
{
    const auto window = started(u"00012 ana"_s);

    QCOMPARE(platform::mousePointer(window.get()), platform::kDefaultPointer);
}

void StmainTest::menusAndToolsAreThere()
{
    const STMAIN window(u"00012 ana"_s, STMAINLinks{});
    const auto textOf = [&](const QString& name) { return window.findChild<QAction*>(name)->text(); };

    QCOMPARE(window.findChild<QMenu*>(u"A1"_s)->title(), u"&Archivo"_s);
    QCOMPARE(window.findChild<QMenu*>(u"Listadomenu"_s)->title(), u"&Listados"_s);
    QCOMPARE(textOf(u"A002"_s), u"&Fichas de Clientes"_s);
    QCOMPARE(textOf(u"A001"_s), u"&Salir"_s);
    QVERIFY(window.findChild<QAction*>(u"rl1"_s)->isSeparator());
    QCOMPARE(textOf(u"resu"_s), u"Resumen Gestión Sat"_s);
    QCOMPARE(textOf(u"revi"_s), u"Albaranes de Revisión"_s);
    QCOMPARE(textOf(u"BCLIENTES"_s), u"&Fichas de clientes"_s);
    QCOMPARE(textOf(u"POPUP"_s), u"&Mensajería Interna"_s);
    const auto hintOf = [&](const QString& name) { return window.findChild<QAction*>(name)->toolTip(); };
    QCOMPARE(hintOf(u"BCLIENTES"_s), u"Clientes"_s);
    QCOMPARE(hintOf(u"POPUP"_s), u"Winpopup"_s);
    QCOMPARE(window.findChild<ComboList*>(u"Idioma"_s)->toolTip(), u"Selección de empresa"_s);
    QCOMPARE(window.findChild<ComboList*>(u"Ejercicio"_s)->toolTip(), u"Ejercicio en curso"_s);
}

QTEST_MAIN(StmainTest)
#include "tst_stmain.moc"
