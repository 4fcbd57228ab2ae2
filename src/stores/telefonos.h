// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The telephones store, "\TELEFONOS DE CLIENTES.MDB" in the current directory: the one store that all
// companies share.

/// Closes the held recordset, then the database. Skip mode.
void CERRARTELEFONOS();

/// Makes the file with its table where there is none. Handler mode: 3204 ends it, all else goes on.
void CREARTELEFONOS();

/// Opens the store and its recordset. Skip mode.
void ABRIRTELEFONOS();
