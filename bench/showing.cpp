// SPDX-License-Identifier: GPL-3.0-or-later
#include "cases.h"
#include "clients/climant.h"
#include "fixture.h"
#include "platform/window/textbox.h"
#include "rawstore.h"
#include "shell/globalsat.h"
#include "stores/consultasschema.h"
#include "stores/telefonosschema.h"

#include <sqlite3.h>

#include <memory>

using namespace Qt::StringLiterals;
using platform::storage::sqlite::GatePass;
using platform::storage::sqlite::Task;

namespace bench {

namespace {

/// What showing a client asks of the files: the client by its code, both whole detail tables in the order of
/// their indexes, and three queries.
class RawShow
{
public:
    void show()
    {
        one(m_clients, m_head, {fullClientCode()});
        walk(m_shipping);
        walk(m_banks);
        one(m_assistance, m_consultations, {fullClientCode()});
        one(m_clients, m_concepts, {fullClientCode()});
        one(m_telephones, m_numbers, {NUMEMPRESA, fullClientCode()});
    }

private:
    static void readRow(sqlite3_stmt* statement)
    {
        for (int column = 0; column < sqlite3_column_count(statement); ++column)
            keep(textColumn(statement, column).size());
    }

    static void one(const RawStore& store, sqlite3_stmt* statement, const QStringList& keys)
    {
        const GatePass pass = GatePass::forReading(store.sidecar(), Task::Read);
        for (int i = 0; i < keys.size(); ++i)
            bindText(statement, i + 1, keys.at(i));
        while (sqlite3_step(statement) == SQLITE_ROW)
            readRow(statement);
        sqlite3_reset(statement);
    }

    void walk(sqlite3_stmt* statement)
    {
        const GatePass pass = GatePass::forReading(m_clients.sidecar(), Task::Read);
        const QString code = fullClientCode();
        while (sqlite3_step(statement) == SQLITE_ROW) {
            if (textColumn(statement, 0) == code)
                readRow(statement);
        }
        sqlite3_reset(statement);
    }

    RawStore m_clients{storePath(u"Clientes.mdb")};
    RawStore m_assistance{storePath(stores::kConsultasStore.file)};
    RawStore m_telephones{storePath(stores::kTelefonosStore.file)};
    sqlite3_stmt* m_head = m_clients.prepare("SELECT * FROM ClientesTabla WHERE CliCodigo = ?");
    sqlite3_stmt* m_shipping =
        m_clients.prepare("SELECT * FROM CLIDIRENVIOS ORDER BY CLIENVICODIGO, CLIENVIDIRECCION");
    sqlite3_stmt* m_banks =
        m_clients.prepare("SELECT * FROM CLIBANCOSDISP ORDER BY CLIBANCOSCODIGO, CLIBANCOSCUENTA");
    sqlite3_stmt* m_concepts =
        m_clients.prepare("SELECT * FROM clientescyctabla WHERE clientescyccliente = ?");
    sqlite3_stmt* m_consultations = m_assistance.prepare("SELECT * FROM CONS WHERE CLICONSULTA = ?");
    sqlite3_stmt* m_numbers =
        m_telephones.prepare("SELECT * FROM TELEFON WHERE TELECODIGOEMPRESA = ? AND TELECODIGO = ?");
};

} // namespace

Case showCase()
{
    const auto window = std::make_shared<climant>();
    window->load();
    const auto raw = std::make_shared<RawShow>();
    Case what{
        u"Showing a client"_s, u"14 lines a grid, 200 consultations, 100,000 rows a table"_s, 1.5, 1, {}, {}};
    what.ours = [window] {
        window->findChild<platform::TextBox*>(u"Text49"_s)->setText(fullClientCode());
        window->LeerClientes();
    };
    what.floor = [raw] { raw->show(); };
    return what;
}

} // namespace bench
