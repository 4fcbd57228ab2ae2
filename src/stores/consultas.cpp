// SPDX-License-Identifier: GPL-3.0-or-later
#include "stores/consultas.h"

#include "platform/core/failurenumbers.h"
#include "platform/core/regime.h"
#include "platform/system/messagebox.h"
#include "platform/text/textfunctions.h"
#include "shell/globalsat.h"
#include "stores/consultasschema.h"
#include "stores/creation.h"

using namespace Qt::StringLiterals;
using platform::After;
using platform::attempt;
using platform::handled;
using platform::dao::Database;
using platform::dao::DBEngine;

namespace {

QString storePath()
{
    return RUTAEMPRESA + stores::kConsultasStore.file.toString();
}

/// The message names the sibling product, and stays so.
void showLockingMessage()
{
    platform::messageBox({.text = u"No puedo bloquear los ficheros. SHARE no ha sido instalado. "
                                  "Salga de BELMAR, instale SHARE y reinicie el programa."_s,
                          .title = {},
                          .icon = platform::MessageIcon::Information});
}

/// `Leave` stands for the way to the final close.
After onCreateError(int number)
{
    switch (number) {
    case platform::kInvalidOperation: // AllowZeroLength on a numeric column
    case platform::kObjectInvalid:
    case platform::kObjectNotSet:
        return After::NextStatement;
    case platform::kCouldNotLockFile:
        showLockingMessage();
        return After::NextStatement;
    default:
        return After::Leave;
    }
}

After onOpenError(int number)
{
    switch (number) {
    case platform::kNotADatabase:
        DBEngine().RepairDatabase(storePath(), stores::tableDefinitions(stores::kConsultasStore.tables));
        break;
    case platform::kCouldNotLockFile:
        showLockingMessage();
        break;
    default:
        platform::messageBox(
            {.text = u"ERROR "_s + platform::Str(number), .title = {}, .icon = platform::MessageIcon::None});
        break;
    }
    return After::NextStatement;
}

void makeStore(Database& database)
{
    const auto create = [&] {
        database = DBEngine().Workspaces(0).CreateDatabase(storePath(), platform::dao::kSpanishLocale,
                                                           stores::kConsultasStore.formatOption,
                                                           platform::storage::Appears::WhenClosed);
    };
    if (handled(&onCreateError, create) == After::Leave)
        return;
    for (const stores::TableSchema& table : stores::kConsultasStore.tables) {
        if (stores::createTable(database, table, &onCreateError, CONTADOR) == After::Leave)
            return;
    }
}

} // namespace

void CERRARCONSULTAS()
{
    attempt([] { RSCONSULTAS.Close(); });
    attempt([] { BDASISTENCIAS.Close(); });
}

void CREARCONSULTAS()
{
    Database database;
    makeStore(database);
    // With nothing created this fails with 91, which the handler passes over. A failure that leads back here
    // ends the procedure instead of trying for ever.
    static_cast<void>(handled(&onCreateError, [&] { database.Close(); }));
}

void ABRIRCONSULTAS()
{
    static_cast<void>(
        handled(&onOpenError, [] { BDASISTENCIAS = DBEngine().Workspaces(0).OpenDatabase(storePath()); }));
    static_cast<void>(handled(&onOpenError, [] {
        RSCONSULTAS = BDASISTENCIAS.OpenRecordset(u"CONS"_s, platform::dao::dbOpenTable);
    }));
    static_cast<void>(handled(&onOpenError, [] { RSCONSULTAS.setLockEdits(false); }));
}
