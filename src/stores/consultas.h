// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The assistance store, "ASISTENCIAS.MDB" in the company folder: the one store that tells the user when it
// can't be locked or opened, and that repairs a damaged file.

/// Closes the held recordset, then the database. Skip mode.
void CERRARCONSULTAS();

/// Makes the file with its table where there is none, in the older file format. Borrows `CONTADOR`. Handler
/// mode: 3204 and every failure that it doesn't know go to the final close; 3050 shows the locking message.
void CREARCONSULTAS();

/// Opens the store and its recordset. Handler mode: 3049 repairs the file, which is then open from the next
/// run on; 3050 shows the locking message; any other failure shows its number. A failing repair goes to the
/// caller.
void ABRIRCONSULTAS();
