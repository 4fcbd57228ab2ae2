// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/stmain.h"

#include "platform/core/regime.h"
#include "platform/system/clock.h"
#include "platform/system/messagebox.h"
#include "platform/system/paths.h"
#include "platform/system/process.h"
#include "platform/text/textfunctions.h"
#include "platform/window/formhelpers.h"
#include "shell/globalsat.h"
#include "shell/launch.h"
#include "shell/version.h"
#include "ui_stmain.h"

#include <QResizeEvent>
#include <QScreen>

using namespace Qt::StringLiterals;
using platform::attempt;
using platform::holds;

namespace {

constexpr int kFirstExercise = 1900;
constexpr int kLastExercise = 2100;
constexpr int kExerciseLines = 50;
/// Times that the band's width is asked for after the same other width: a window manager that insists on its
/// own must not be asked for ever.
constexpr int kMaxRefusals = 5;

void endWithMessage(const QString& text)
{
    attempt([&] { platform::messageBox({.text = text, .title = {}, .icon = platform::MessageIcon::None}); });
    attempt([] { platform::endProcess(); });
}

} // namespace

STMAIN::STMAIN(QString commandLine, STMAINLinks links, QWidget* parent)
    : QMainWindow(parent)
    , m_commandLine(std::move(commandLine))
    , m_links(std::move(links))
    , ui(std::make_unique<Ui::STMAIN>())
{
    ui->setupUi(this);
    buildToolBar();
    connectEvents();
}

STMAIN::~STMAIN() = default;

void STMAIN::load()
{
    attempt([&] { placeWindow(); });
    attempt([&] { show(); });
    if (holds([&] { return shell::isLaunchedByHand(m_commandLine); }))
        endWithMessage(
            u"Error al acceder a la aplicación. Sólo se puede acceder a la aplicación a través de Quenda"_s);
    attempt([&] { NUMEMPRESA = shell::companyNumber(m_commandLine); });
    attempt([&] { USUARIO = shell::userName(m_commandLine); });
    if (const std::optional<QString> fault = shell::launchFault(NUMEMPRESA, USUARIO))
        endWithMessage(*fault);
    fillExercises();
    attempt([&] {
        setWindowTitle(
            shell::mainWindowTitle(shell::kVersionMajor, shell::kVersionMinor, shell::kVersionRevision));
    });
    // A drop-down list without typing is what stands for the combos' style 1.
    attempt([&] { m_companies->setEditable(false); });
    attempt([&] { m_exercises->setEditable(false); });
    if (holds([] { return platform::Val(NUMEMPRESA) > 0; })) {
        openCatalogue();
        attempt([&] { DEUNAEMPRESA(); });
        attempt([&] { ABREEMPRESA(); });
        attempt([&] { platform::setMousePointer(this, platform::kDefaultPointer); });
    }
}

void STMAIN::openCatalogue()
{
    attempt([] {
        BDEMPRESAS = platform::dao::DBEngine().Workspaces(0).OpenDatabase(platform::currentDirectory() +
                                                                          u"\\Empresas de Quenda.mdb"_s);
    });
    attempt([] {
        RSEMPRESAS =
            BDEMPRESAS.OpenRecordset(u"Select * from EMP ORDER BY MENOMBRE"_s, platform::dao::dbOpenDynaset);
    });
    // The exercise shown has no effect on the run: its text is read once and dropped.
    attempt([&] { static_cast<void>(m_exercises->text()); });
}

void STMAIN::placeWindow()
{
    const shell::BandPlacement band = placement();
    move(band.topLeft);
    resize(band.width, height());
}

shell::BandPlacement STMAIN::placement() const
{
    return shell::bandPlacement(screen()->geometry(), screen()->logicalDotsPerInchX());
}

bool STMAIN::mayAskForWidth()
{
    const int given = width();
    if (given == placement().width)
        return true;
    m_refusals = given == m_refusedWidth ? m_refusals + 1 : 1;
    m_refusedWidth = given;
    return m_refusals <= kMaxRefusals;
}

void STMAIN::fillExercises()
{
    for (int year = kFirstExercise; year <= kLastExercise; ++year)
        attempt([&] { m_exercises->addItem(QString::number(year)); });
    attempt([&] { m_exercises->setDropDownLines(kExerciseLines); });
    attempt([&] { m_exercises->setListIndex(platform::now().date().year() - kFirstExercise); });
}

void STMAIN::resized()
{
    if (mayAskForWidth())
        attempt([&] { placeWindow(); });
    fillExercises();
}

void STMAIN::resizeEvent(QResizeEvent* event)
{
    QMainWindow::resizeEvent(event);
    platform::runHandler([&] { resized(); });
}

void STMAIN::closeEvent(QCloseEvent* event)
{
    QMainWindow::closeEvent(event);
    platform::runHandler([&] { unload(); });
}
