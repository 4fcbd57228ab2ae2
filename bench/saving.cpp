// SPDX-License-Identifier: GPL-3.0-or-later
#include "cases.h"
#include "clients/climant.h"
#include "fixture.h"
#include "platform/window/flexgrid.h"
#include "platform/window/textbox.h"
#include "rawstore.h"
#include "stores/telefonosschema.h"

#include <sqlite3.h>

#include <memory>

using namespace Qt::StringLiterals;
using platform::FlexGrid;
using platform::TextBox;
using platform::storage::sqlite::GatePass;
using platform::storage::sqlite::Task;

namespace bench {

namespace {

// 4 shipping addresses, 3 bank accounts and 5 telephones: 12 detail rows beside the client's own.
constexpr int kShippingLines = 4;
constexpr int kBankLines = 3;
constexpr int kTelephoneLines = 5;
constexpr int kOurClient = 10;
constexpr int kRawClient = 20;

int savesSoFar = 0;

TextBox* field(climant& window, const char* name)
{
    return window.findChild<TextBox*>(QLatin1String(name));
}

void typeLine(climant& window, const char* grid, int row, const QStringList& cells)
{
    auto* lines = window.findChild<FlexGrid*>(QLatin1String(grid));
    lines->setRow(row);
    for (int col = 0; col < cells.size(); ++col) {
        lines->setCol(col);
        lines->setText(cells.at(col));
    }
}

void typeClient(climant& window)
{
    const QString stamp = QString::number(++savesSoFar);
    field(window, "Text49")->setText(clientCode(kOurClient));
    field(window, "Text51")->setText(u"Nombre "_s + stamp);
    field(window, "Text4")->setText(u"Calle Mayor "_s + stamp);
    field(window, "Text9")->setText(u"43010"_s);
    for (int row = 1; row <= kShippingLines; ++row)
        typeLine(window, "vsFlexGrid1", row,
                 {u"Calle %1"_s.arg(row), u"28001"_s, u"Madrid "_s + stamp, u"Debidos"_s, u"Transportes"_s,
                  u"0"_s});
    for (int row = 1; row <= kBankLines; ++row)
        typeLine(window, "vsFlexGrid2", row,
                 {u"Banco "_s + stamp, u"0049"_s, u"0001"_s, u"12"_s, u"000000000%1"_s.arg(row), u"57200"_s,
                  u"0"_s});
    for (int row = 1; row <= kTelephoneLines; ++row)
        typeLine(window, "vsFlexGrid4", row,
                 {u"91000000%1"_s.arg(row), stamp, u"01 Voz"_s, u"Contacto "_s + stamp});
}

/// One row written as the floor does it: sought, then updated or added in a transaction of its own.
class RawRow
{
public:
    RawRow(const RawStore& store, const char* seek, const char* update)
        : m_store(&store)
        , m_seek(store.prepare(seek))
        , m_update(store.prepare(update))
        , m_begin(store.prepare("BEGIN IMMEDIATE"))
        , m_commit(store.prepare("COMMIT"))
    {}

    void write(const QStringList& keys, const QStringList& values)
    {
        sqlite3_int64 rowId = 0;
        {
            const GatePass pass = GatePass::forReading(m_store->sidecar(), Task::Read);
            for (int i = 0; i < keys.size(); ++i)
                bindText(m_seek, i + 1, keys.at(i));
            if (sqlite3_step(m_seek) == SQLITE_ROW)
                rowId = sqlite3_column_int64(m_seek, 0);
            sqlite3_reset(m_seek);
        }
        const GatePass pass = GatePass::forWriting(m_store->sidecar(), Task::Write);
        run(m_begin);
        int position = 0;
        for (const QString& value : values)
            bindText(m_update, ++position, value);
        sqlite3_bind_int64(m_update, ++position, rowId);
        run(m_update);
        run(m_commit);
    }

private:
    static void run(sqlite3_stmt* statement)
    {
        sqlite3_step(statement);
        sqlite3_reset(statement);
    }

    const RawStore* m_store;
    sqlite3_stmt* m_seek;
    sqlite3_stmt* m_update;
    sqlite3_stmt* m_begin;
    sqlite3_stmt* m_commit;
};

struct RawClient
{
    RawStore clients{storePath(u"Clientes.mdb")};
    RawStore telephones{storePath(stores::kTelefonosStore.file)};
    RawRow head{clients, "SELECT rowid FROM ClientesTabla WHERE CliCodigo = ?",
                "UPDATE ClientesTabla SET CliNombre = ?, CliDireccion = ? WHERE rowid = ?"};
    RawRow shipping{clients,
                    "SELECT rowid FROM CLIDIRENVIOS WHERE CLIENVICODIGO = ? AND CLIENVIDIRECCION = ?",
                    "UPDATE CLIDIRENVIOS SET CLIENVILOCALIDAD = ? WHERE rowid = ?"};
    RawRow bank{clients, "SELECT rowid FROM CLIBANCOSDISP WHERE CLIBANCOSCODIGO = ? AND CLIBANCOSCUENTA = ?",
                "UPDATE CLIBANCOSDISP SET CLIBANCOSBANCO = ? WHERE rowid = ?"};
    RawRow telephone{
        telephones,
        "SELECT rowid FROM TELEFON WHERE TELECODIGOEMPRESA = ? AND TELECODIGO = ? AND TELETELEFONO = ?",
        "UPDATE TELEFON SET TELEEXTENSION = ?, TELECONTACTO = ? WHERE rowid = ?"};

    void save()
    {
        const QString stamp = QString::number(++savesSoFar);
        const QString code = clientCode(kRawClient);
        head.write({code}, {u"Nombre "_s + stamp, u"Calle Mayor "_s + stamp});
        for (int row = 1; row <= kShippingLines; ++row)
            shipping.write({code, u"Calle %1"_s.arg(row)}, {u"Madrid "_s + stamp});
        for (int row = 1; row <= kBankLines; ++row)
            bank.write({code, u"000000000%1"_s.arg(row)}, {u"Banco "_s + stamp});
        for (int row = 1; row <= kTelephoneLines; ++row)
            telephone.write({u"00001"_s, code, u"91000000%1"_s.arg(row)}, {stamp, u"Contacto "_s + stamp});
    }

    /// Puts the rows that the floor updates where they are not yet.
    void addRows()
    {
        const QByteArray code = clientCode(kRawClient).toUtf8();
        for (int row = 1; row <= kShippingLines; ++row)
            clients.execute("INSERT OR IGNORE INTO CLIDIRENVIOS (CLIENVICODIGO, CLIENVIDIRECCION) VALUES ('" +
                            code + "', 'Calle " + QByteArray::number(row) + "')");
        for (int row = 1; row <= kBankLines; ++row)
            clients.execute(
                "INSERT OR IGNORE INTO CLIBANCOSDISP (CLIBANCOSCODIGO, CLIBANCOSCUENTA) VALUES ('" + code +
                "', '000000000" + QByteArray::number(row) + "')");
        for (int row = 1; row <= kTelephoneLines; ++row)
            telephones.execute(
                "INSERT OR IGNORE INTO TELEFON (TELECODIGOEMPRESA, TELECODIGO, TELETELEFONO) VALUES "
                "('00001', '" +
                code + "', '91000000" + QByteArray::number(row) + "')");
    }
};

} // namespace

Case saveCase()
{
    const auto window = std::make_shared<climant>();
    window->load();
    const auto raw = std::make_shared<RawClient>();
    raw->addRows();
    Case what{u"Save of a client"_s, u"the client and 12 detail rows"_s, 1.2, 1, {}, {}};
    what.ours = [window] {
        typeClient(*window);
        window->EscribeCliente();
    };
    what.floor = [raw] { raw->save(); };
    return what;
}

} // namespace bench
