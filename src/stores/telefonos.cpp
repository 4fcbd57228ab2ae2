// SPDX-License-Identifier: GPL-3.0-or-later
#include "stores/telefonos.h"

#include "platform/core/regime.h"
#include "platform/system/paths.h"
#include "shell/globalsat.h"
#include "stores/creation.h"
#include "stores/telefonosschema.h"

using namespace Qt::StringLiterals;
using platform::attempt;
using platform::dao::DBEngine;

namespace {

QString storePath()
{
    return platform::currentDirectory() + stores::kTelefonosStore.file.toString();
}

} // namespace

void CERRARTELEFONOS()
{
    attempt([] { RSTELEFONOS.Close(); });
    attempt([] { BDTELEFONOS.Close(); });
}

void CREARTELEFONOS()
{
    stores::createStore(storePath(), stores::kTelefonosStore);
}

void ABRIRTELEFONOS()
{
    attempt([] { BDTELEFONOS = DBEngine().Workspaces(0).OpenDatabase(storePath()); });
    attempt([] { RSTELEFONOS = BDTELEFONOS.OpenRecordset(u"TELEFON"_s, platform::dao::dbOpenTable); });
    attempt([] { RSTELEFONOS.setLockEdits(false); });
}
