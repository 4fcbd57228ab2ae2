// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The articles store, "ARTICULOS.MDB" in the company folder: created, opened and upgraded here; the lookup
// and the periodic concepts read it.

/// Closes the held recordset, then the database. Skip mode.
void CERRARARTICULOS();

/// Makes the file with its table where there is none. Handler mode: 3204 ends it, all else goes on.
void CREARARTICULOS();

/// Opens the store and its recordset and upgrades an old file. Skip mode.
void ABRIRARTICULOS();

/// Brings an old file to the present columns, in two steps by the number of columns. Skip mode.
void ACTUALIZARARTICULOS();
