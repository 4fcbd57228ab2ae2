// SPDX-License-Identifier: GPL-3.0-or-later
#include "cases.h"
#include "fixture.h"
#include "rawstore.h"
#include "shell/globalsat.h"

#include <sqlite3.h>

#include <memory>

using namespace Qt::StringLiterals;
using namespace platform;
using platform::storage::sqlite::GatePass;
using platform::storage::sqlite::Task;

namespace bench {

namespace {

constexpr int kSeeks = 5000;

int scattered(int number)
{
    return static_cast<int>((static_cast<qint64>(number) * 7919) % kClients);
}

} // namespace

Case seekCase()
{
    const auto raw = std::make_shared<RawStore>(storePath(u"Clientes.mdb"));
    sqlite3_stmt* statement = raw->prepare(
        "SELECT CliNombre, CliCif, CliCodPostalLocali FROM ClientesTabla WHERE CliCodigo = ? LIMIT 1");
    Case what{u"Seek and three columns"_s, u"one client of 100,000"_s, 1.25, kSeeks, {}, {}};
    what.ours = [] {
        RSCLIENTES.setIndex(u"CliCodigoIndice"_s);
        for (int i = 0; i < kSeeks; ++i) {
            RSCLIENTES.Seek(u"=", clientCode(scattered(i)));
            keep(asText(RSCLIENTES[u"CliNombre"].Value()).size() +
                 asText(RSCLIENTES[u"CliCif"].Value()).size() +
                 asText(RSCLIENTES[u"CliCodPostalLocali"].Value()).size());
        }
    };
    what.floor = [raw, statement] {
        for (int i = 0; i < kSeeks; ++i) {
            bindText(statement, 1, clientCode(scattered(i)));
            const GatePass pass = GatePass::forReading(raw->sidecar(), Task::Read);
            if (sqlite3_step(statement) == SQLITE_ROW)
                keep(textColumn(statement, 0).size() + textColumn(statement, 1).size() +
                     textColumn(statement, 2).size());
            sqlite3_reset(statement);
        }
    };
    return what;
}

Case walkCase()
{
    const auto raw = std::make_shared<RawStore>(storePath(u"Clientes.mdb"));
    sqlite3_stmt* statement = raw->prepare("SELECT CLIENVICODIGO, CLIENVIDIRECCION, CLIENVILOCALIDAD FROM "
                                           "CLIDIRENVIOS ORDER BY CLIENVICODIGO, CLIENVIDIRECCION");
    Case what{u"Walk in index order"_s, u"100,000 rows, three columns"_s, 1.5, 1, {}, {}};
    what.ours = [] {
        RSENVIOS.setIndex(u"CLIEVNIOSINDICE"_s);
        for (RSENVIOS.MoveFirst(); !RSENVIOS.EOF_(); RSENVIOS.MoveNext())
            keep(asText(RSENVIOS[u"CLIENVICODIGO"].Value()).size() +
                 asText(RSENVIOS[u"CLIENVIDIRECCION"].Value()).size() +
                 asText(RSENVIOS[u"CLIENVILOCALIDAD"].Value()).size());
    };
    what.floor = [raw, statement] {
        const GatePass pass = GatePass::forReading(raw->sidecar(), Task::Read);
        while (sqlite3_step(statement) == SQLITE_ROW)
            keep(textColumn(statement, 0).size() + textColumn(statement, 1).size() +
                 textColumn(statement, 2).size());
        sqlite3_reset(statement);
    };
    return what;
}

Case listCase()
{
    const auto raw = std::make_shared<RawStore>(storePath(u"Clientes.mdb"));
    sqlite3_stmt* statement =
        raw->prepare("SELECT CliCodigo, CliNombre, CliCodPostalLocali FROM ClientesTabla ORDER BY CliNombre");
    Case what{u"Ordered list into memory"_s, u"100,000 clients, three columns"_s, 1.3, 1, {}, {}};
    what.ours = [] {
        dao::Recordset list = BDCLIENTES.OpenRecordset(u"SELECT CLICODIGO as Codigo, CLINOMBRE as Cliente, "
                                                       u"CliCodPostalLocali as Localidad FROM CLIENTESTABLA "
                                                       "ORDER BY CLINOMBRE"_s,
                                                       dao::dbOpenSnapshot);
        list.MoveLast();
        list.MoveFirst();
        keep(list.GetRows(list.RecordCount()).rowCount());
        list.Close();
    };
    what.floor = [raw, statement] {
        const GatePass pass = GatePass::forReading(raw->sidecar(), Task::Read);
        std::vector<std::vector<Value>> columns(3);
        while (sqlite3_step(statement) == SQLITE_ROW) {
            for (int column = 0; column < 3; ++column)
                columns[static_cast<std::size_t>(column)].emplace_back(textColumn(statement, column));
        }
        sqlite3_reset(statement);
        keep(static_cast<qsizetype>(columns[0].size()));
    };
    return what;
}

} // namespace bench
