// SPDX-License-Identifier: GPL-3.0-or-later
#include "stores/bdcliente.h"

#include "platform/core/regime.h"
#include "platform/dao/rowwalk.h"
#include "shell/globalsat.h"
#include "stores/clientesschema.h"
#include "stores/creation.h"
#include "stores/upgrade.h"

#include <array>

using namespace Qt::StringLiterals;
using platform::After;
using platform::attempt;
using platform::holds;
using platform::dao::DBEngine;
using platform::dao::Recordset;
using platform::dao::TableDef;
using stores::ColumnSchema;

namespace {

/// Tables of a usual store with the prices, and the engine's own.
constexpr int kTablesWithPrices = 12;

struct HeldRecordset
{
    Recordset* recordset;
    QStringView table;
};

const std::array kHeldRecordsets{
    HeldRecordset{&RSCLIENTES, u"ClientesTabla"}, HeldRecordset{&RSENVIOS, u"CLIDIRENVIOS"},
    HeldRecordset{&RSBANCOS, u"CLIBANCOSDISP"},   HeldRecordset{&RSCYC, u"clientescycTabla"},
    HeldRecordset{&RSTARIFAS, u"TarifasCliente"},
};

QString storePath()
{
    return RUTAEMPRESA + u"Clientes.mdb"_s;
}

After goOn(int)
{
    return After::NextStatement;
}

/// The open procedure up to its upgrade call.
void openClients()
{
    attempt([] { BDCLIENTES = DBEngine().Workspaces(0).OpenDatabase(storePath()); });
    attempt([] { CREARTARIFAS(); });
    for (const HeldRecordset& held : kHeldRecordsets) {
        attempt([&] {
            *held.recordset = BDCLIENTES.OpenRecordset(held.table.toString(), platform::dao::dbOpenTable);
        });
        attempt([&] { held.recordset->setLockEdits(false); });
    }
}

constexpr std::array kExento{ColumnSchema{u"CliExento", platform::dao::dbText, 1}};
constexpr std::array kExentoIrpf{ColumnSchema{u"CliExentoIRPF", platform::dao::dbText, 1}};
constexpr std::array kTarifaPropia{ColumnSchema{u"CliTarifaPropia", platform::dao::dbText, 1}};
// Wider than in a store created new: both widths are in the field.
constexpr std::array kCuentaVentas{ColumnSchema{u"CliCuentaVentas", platform::dao::dbText, 12}};
constexpr std::array kNomComercial{ColumnSchema{u"CLIENVINOMCOMERCIAL", platform::dao::dbText, 35}};
constexpr std::array kLineas{ColumnSchema{u"clientescylineas", platform::dao::dbDouble}};

struct Step
{
    Recordset* recordset;
    bool (*isDue)(int columns);
    QStringView table;
    std::span<const ColumnSchema> added;
    void (*afterwards)(); ///< what the step does once more, before it opens the store again; null for none
};

// The tests are not all of one form, and stay so.
const std::array kSteps{
    Step{&RSCLIENTES, [](int n) { return n < 49; }, u"ClientesTabla", kExento, nullptr},
    Step{&RSCLIENTES, [](int n) { return n - 1 == 48; }, u"ClientesTabla", kExentoIrpf, nullptr},
    Step{&RSCLIENTES, [](int n) { return n - 1 == 49; }, u"ClientesTabla", kTarifaPropia, nullptr},
    Step{&RSCLIENTES, [](int n) { return n < 52; }, u"ClientesTabla", kCuentaVentas, nullptr},
    Step{&RSENVIOS, [](int n) { return n - 1 == 6; }, u"CLIDIRENVIOS", kNomComercial, nullptr},
    Step{&RSCYC, [](int n) { return n - 1 == 14; }, u"clientescyctabla", kLineas, &RENUMERARCYC},
};

void upgrade(const Step& step)
{
    const stores::UpgradedTable upgraded{*step.recordset, BDCLIENTES,     storePath(),
                                         step.table,      &ABRIRCLIENTES, &openClients};
    const bool grown = stores::addColumns(upgraded, step.added);
    if (step.afterwards == nullptr)
        return;
    attempt([&] { step.afterwards(); });
    stores::reopen(upgraded, grown);
}

/// True when both are texts and equal to the letter; Null equals nothing.
bool isSameText(const platform::Value& one, const platform::Value& other)
{
    return !isNull(one) && !isNull(other) && one == other;
}

/// Numbers the rows in the order in which the query gives them, anew for each client.
void numberLines()
{
    Recordset rows;
    platform::Value previous = QString();
    double line = 1;
    attempt([&] {
        rows = BDCLIENTES.OpenRecordset(u"SELECT clientescyctabla.* From clientescyctabla ORDER BY "
                                        "clientescyctabla.clientescyccliente"_s,
                                        platform::dao::dbOpenDynaset);
    });
    walkToEnd(rows, [&] {
        attempt([&] { rows.Edit(); });
        if (holds([&] { return isSameText(rows[1].Value(), previous); }))
            line += 1;
        else
            line = 1;
        attempt([&] { previous = rows[1].Value(); });
        attempt([&] { rows[u"clientescylineas"].setValue(line); });
        attempt([&] { rows.Update(); });
    });
}

void rebuildLineIndex()
{
    TableDef table;
    platform::dao::Index index;
    attempt([] { BDCLIENTES.Execute(u"DROP INDEX clientescyccodigoindice ON clientescyctabla"_s); });
    attempt([&] { table = BDCLIENTES.TableDefs().Item(u"clientescyctabla"_s); });
    attempt([&] { index = table.CreateIndex(u"clientescyccodigoindice"_s); });
    attempt([&] { index.setPrimary(true); });
    attempt([&] { index.setUnique(true); });
    for (const QStringView column : {u"clientescycarticulo", u"clientescyccliente", u"clientescylineas"})
        attempt([&] { index.Fields().Append(index.CreateField(column.toString())); });
    attempt([&] { table.Indexes().Append(index); });
}

} // namespace

void CERRARCLIENTES()
{
    for (const HeldRecordset& held : kHeldRecordsets)
        attempt([&] { held.recordset->Close(); });
    attempt([] { BDCLIENTES.Close(); });
}

void CREARCLIENTES()
{
    stores::createStore(storePath(), stores::kClientesStore);
}

void ABRIRCLIENTES()
{
    openClients();
    attempt([] { ACTUALIZARCLIENTES(); });
}

void CREARTARIFAS()
{
    if (holds([] { return BDCLIENTES.TableDefs().Count() < kTablesWithPrices; })) {
        std::int16_t counter = 0;
        static_cast<void>(stores::createTable(BDCLIENTES, stores::kTarifasCliente, &goOn, counter));
    }
}

void ACTUALIZARCLIENTES()
{
    for (const Step& step : kSteps) {
        if (holds([&] { return step.isDue(step.recordset->Fields().Count()); }))
            upgrade(step);
        // No step can do anything for a store that won't open, and each would wait for its locks again.
        if (!stores::isOpen(BDCLIENTES))
            return;
    }
}

void RENUMERARCYC()
{
    numberLines();
    platform::clearError();
    attempt([] { RSCYC.Close(); });
    attempt([] { BDCLIENTES.Close(); });
    attempt([] {
        BDCLIENTES = DBEngine().Workspaces(0).OpenDatabase(RUTAEMPRESA + u"clientes.mdb"_s, true, false);
    });
    rebuildLineIndex();
    attempt([] { RSCYC.Close(); });
    attempt([] { BDCLIENTES.Close(); });
}

void MODIFICARCAMPO(const TableDef& tabla, const QString& orden, const QString& nombre,
                    platform::dao::FieldType tipo, int tamano)
{
    if (holds([&] { return orden == u"APPEND"; }))
        attempt([&] { tabla.Fields().Append(tabla.CreateField(nombre, tipo, tamano)); });
    else if (holds([&] { return orden == u"DELETE"; }))
        attempt([&] { tabla.Fields().Delete(nombre); });
    std::int16_t counter = 0;
    static_cast<void>(stores::allowZeroLengths(tabla, &goOn, counter));
}
