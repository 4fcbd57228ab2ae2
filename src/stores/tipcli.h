// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The client types store, "TIPOS DE CLIENTES.MDB" in the company folder.

/// Closes the three held recordsets, then the database. Skip mode.
void CERRARTIPOS();

/// Makes the file with its three tables where there is none. Handler mode: 3204 ends it, all else goes on.
void CREARTIPOS();

/// Opens the store and its three recordsets. Skip mode.
void ABRIRTIPOS();
