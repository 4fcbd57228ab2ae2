// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The clients store, "Clientes.mdb" in the company folder: created, opened, upgraded and closed here, read
// and written by the client window through the held recordsets.

#include "platform/dao/dao.h"

#include <QString>

/// Closes the five held recordsets, then the database. Skip mode.
void CERRARCLIENTES();

/// Makes the file with its four tables where there is none. Handler mode: 3204 ends it, all else goes on.
void CREARCLIENTES();

/// Opens the store and its five recordsets, makes the table of prices where it is missing, and upgrades an
/// old file. Skip mode.
void ABRIRCLIENTES();

/// Makes `TarifasCliente` in the open store. Tried at every start: where the table is there already nothing
/// changes. Skip mode.
void CREARTARIFAS();

/// Brings an old file to the present columns, six steps, each by the number of columns of a held recordset.
/// Skip mode.
void ACTUALIZARCLIENTES();

/// Numbers the lines of `clientescyctabla` within each client, and rebuilds its primary index with the line
/// as third key column. Needs the file for itself; where another run holds it the index stays as it was.
/// Leaves the store closed. Skip mode.
void RENUMERARCYC();

/// Changes a table's columns: `orden` "APPEND" adds the column, "DELETE" removes it, any other leaves the
/// table alone. In all cases every column then takes "". `tipo` and `tamano` matter for "APPEND" only. Skip
/// mode.
void MODIFICARCAMPO(const platform::dao::TableDef& tabla, const QString& orden, const QString& nombre,
                    platform::dao::FieldType tipo = platform::dao::dbText, int tamano = 0);
