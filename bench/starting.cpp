// SPDX-License-Identifier: GPL-3.0-or-later
#include "cases.h"
#include "fixture.h"
#include "rawstore.h"
#include "stores/allstores.h"
#include "stores/bdarticul.h"
#include "stores/bdcliente.h"
#include "stores/consultas.h"
#include "stores/telefonos.h"
#include "stores/tipcli.h"
#include "stores/zone.h"

#include <sqlite3.h>

#include <memory>

using namespace Qt::StringLiterals;
using platform::storage::sqlite::GatePass;
using platform::storage::sqlite::Task;

namespace bench {

namespace {

/// Opens a store's file with nothing but SQLite and takes the first row of each of its tables by the primary
/// index, as a held recordset does when it opens.
void openRaw(const stores::StoreSchema& store)
{
    const RawStore raw(storePath(store.file));
    const GatePass pass = GatePass::forReading(raw.sidecar(), Task::Open);
    for (const stores::TableSchema& table : store.tables) {
        const QByteArray sql = "SELECT * FROM " + table.name.toUtf8() + " ORDER BY " +
                               table.indexes[0].key[0].toUtf8() + " LIMIT 1";
        sqlite3_stmt* statement = raw.prepare(sql.constData());
        if (sqlite3_step(statement) == SQLITE_ROW)
            keep(textColumn(statement, 0).size());
        sqlite3_finalize(statement);
    }
}

} // namespace

void bringUpStores()
{
    CERRARARTICULOS();
    CREARARTICULOS();
    ABRIRARTICULOS();
    CERRARCLIENTES();
    CREARCLIENTES();
    ABRIRCLIENTES();
    CERRARZONAS();
    CREARZONAS();
    ABRIRZONAS();
    CERRARTIPOS();
    CREARTIPOS();
    ABRIRTIPOS();
    CERRARCONSULTAS();
    CREARCONSULTAS();
    ABRIRCONSULTAS();
    CERRARTELEFONOS();
    CREARTELEFONOS();
    ABRIRTELEFONOS();
}

Case startCase()
{
    Case what{u"Start of the stores"_s, u"six stores, 100,000 rows a table"_s, 0, 1, {}, {}};
    what.ours = [] { bringUpStores(); };
    what.floor = [] {
        for (const stores::StoreSchema& store : stores::kAllStores)
            openRaw(store);
    };
    return what;
}

} // namespace bench
