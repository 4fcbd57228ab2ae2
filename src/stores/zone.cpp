// SPDX-License-Identifier: GPL-3.0-or-later
#include "stores/zone.h"

#include "platform/core/regime.h"
#include "shell/globalsat.h"
#include "stores/creation.h"
#include "stores/zonasschema.h"

using namespace Qt::StringLiterals;
using platform::attempt;
using platform::holds;
using platform::dao::DBEngine;

namespace {

QString storePath()
{
    return RUTAEMPRESA + stores::kZonasStore.file.toString();
}

} // namespace

void CERRARZONAS()
{
    attempt([] { RSZONAS.Close(); });
    attempt([] { BDZONAS.Close(); });
}

void CREARZONAS()
{
    stores::createStore(storePath(), stores::kZonasStore);
}

void ABRIRZONAS()
{
    attempt([] { BDZONAS = DBEngine().Workspaces(0).OpenDatabase(storePath()); });
    attempt([] { RSZONAS = BDZONAS.OpenRecordset(u"ZONATAB"_s, platform::dao::dbOpenTable); });
    attempt([] { RSZONAS.setLockEdits(false); });
    attempt([] { RSZONAS.setIndex(u"ZONASINDICE"_s); });
    attempt([] { RSZONAS.Seek(u"=", u"0000000001"_s); });
    if (holds([] { return RSZONAS.NoMatch(); }))
        attempt([] { RSZONAS.AddNew(); });
    // With the row there no edit is pending: the three statements fail, and the row stays as it is.
    attempt([] { RSZONAS[u"ZONCODIGO"].setValue(u"0000000001"_s); });
    attempt([] { RSZONAS[u"ZONDESCRIPCION"].setValue(u"ZONA GENERAL"_s); });
    attempt([] { RSZONAS.Update(); });
}
