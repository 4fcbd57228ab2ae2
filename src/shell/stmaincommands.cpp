// SPDX-License-Identifier: GPL-3.0-or-later

// The commands of the main window, and the end of the run.

#include "platform/core/failurenumbers.h"
#include "platform/core/regime.h"
#include "platform/system/paths.h"
#include "platform/system/process.h"
#include "platform/window/formhelpers.h"
#include "shell/globalsat.h"
#include "shell/stmain.h"

using namespace Qt::StringLiterals;
using platform::attempt;
using platform::dao::DBEngine;

namespace {

constexpr double kSummaryReport = 888;
constexpr double kRevisionReport = 725;

/// Calls what is bound; fails with 91 where nothing is.
template <typename Function, typename... Arguments>
void call(const Function& function, Arguments... arguments)
{
    if (!function)
        throw platform::Failure(platform::kObjectNotSet);
    function(arguments...);
}

/// Closes the recordsets of the database at that place, each by its index in the collection that shrinks.
void closeRecordsets(int database)
{
    int recordsets = 0;
    attempt([&] { recordsets = DBEngine().Workspaces(0).Databases().Item(database).Recordsets().Count(); });
    for (int index = 0; index < recordsets; ++index)
        attempt(
            [&] { DBEngine().Workspaces(0).Databases().Item(database).Recordsets().Item(index).Close(); });
}

} // namespace

void STMAIN::A002_Click()
{
    platform::setMousePointer(this, platform::kBusyPointer);
    call(m_links.showClimantModal, this);
    platform::setMousePointer(this, platform::kDefaultPointer);
}

void STMAIN::A001_Click()
{
    unload();
    platform::endProcess();
}

void STMAIN::resu_Click()
{
    platform::setMousePointer(this, platform::kBusyPointer);
    NUMINFORME = kSummaryReport;
    FICHEROINFORME = platform::currentDirectory() + u"\\consultatec.rpt"_s;
    BASEINFORME = RUTAEMPRESA + u"ASISTENCIAS.MDB"_s;
    TITULOINFORME = u"Resumen gestión del S.A.T."_s;
    call(m_links.showLista, this);
    platform::setMousePointer(this, platform::kDefaultPointer);
}

void STMAIN::revi_Click()
{
    attempt([&] { platform::setMousePointer(this, platform::kBusyPointer); });
    attempt([] { NUMINFORME = kRevisionReport; });
    attempt([] { FICHEROINFORME = platform::currentDirectory() + u"\\conservacion.rpt"_s; });
    attempt([] { BASEINFORME = RUTAEMPRESA + u"CLIENTES.MDB"_s; });
    attempt([] { BASEINFORME2 = RUTAEMPRESA + u"CLIENTES.MDB"_s; });
    attempt([] { TITULOINFORME = u"Albaranes de Mantenimiento"_s; });
    attempt([&] { call(m_links.showListaModal, this); });
    attempt([&] { platform::setMousePointer(this, platform::kDefaultPointer); });
}

void STMAIN::barrasup_Click(const QString& tool)
{
    if (tool == u"BCLIENTES") {
        attempt([&] { platform::setMousePointer(this, platform::kBusyPointer); });
        attempt([&] { call(m_links.showClimantModal, this); });
        attempt([&] { platform::setMousePointer(this, platform::kDefaultPointer); });
    } else if (tool == u"POPUP") {
        attempt([] { platform::startProgram(u"WINPOPUP.EXE"_s); });
    }
}

void STMAIN::unload()
{
    // Both bounds are taken once while the collections shrink: every other member is stepped over, and the
    // end of the process closes the rest.
    int databases = 0;
    attempt([&] { databases = DBEngine().Workspaces(0).Databases().Count(); });
    for (int index = 0; index < databases; ++index) {
        closeRecordsets(index);
        attempt([&] { DBEngine().Workspaces(0).Databases().Item(index).Close(); });
    }
    attempt([&] { call(m_links.closePrintEngine); });
    attempt([] { platform::endProcess(); });
}
