// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The zones store, "ZONAS.MDB" in the company folder.

/// Closes the held recordset, then the database. Skip mode.
void CERRARZONAS();

/// Makes the file with its table where there is none. Handler mode: 3204 ends it, all else goes on.
void CREARZONAS();

/// Opens the store and its recordset, and sees to it that the default zone "0000000001" is there. A
/// description that the user gave it stays. Skip mode.
void ABRIRZONAS();
