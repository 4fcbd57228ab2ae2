// SPDX-License-Identifier: GPL-3.0-or-later
#include "stores/tipcli.h"

#include "platform/core/regime.h"
#include "shell/globalsat.h"
#include "stores/creation.h"
#include "stores/tiposschema.h"

#include <array>

using platform::attempt;
using platform::dao::DBEngine;

namespace {

struct HeldRecordset
{
    platform::dao::Recordset* recordset;
    QStringView table;
};

const std::array kHeldRecordsets{
    HeldRecordset{&RSTIPOCLI, u"TIPOCLI"},
    HeldRecordset{&RSTIPOFAMI, u"TIPOFAMICLI"},
    HeldRecordset{&RSTIPOARTI, u"TIPOARTICLI"},
};

QString storePath()
{
    return RUTAEMPRESA + stores::kTiposStore.file.toString();
}

} // namespace

void CERRARTIPOS()
{
    for (const HeldRecordset& held : kHeldRecordsets)
        attempt([&] { held.recordset->Close(); });
    attempt([] { BDTIPOS.Close(); });
}

void CREARTIPOS()
{
    stores::createStore(storePath(), stores::kTiposStore);
}

void ABRIRTIPOS()
{
    attempt([] { BDTIPOS = DBEngine().Workspaces(0).OpenDatabase(storePath()); });
    for (const HeldRecordset& held : kHeldRecordsets) {
        attempt([&] {
            *held.recordset = BDTIPOS.OpenRecordset(held.table.toString(), platform::dao::dbOpenTable);
        });
        attempt([&] { held.recordset->setLockEdits(false); });
    }
}
