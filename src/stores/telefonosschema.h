// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The telephones store, shared by all companies: its rows bear the company's number.

#include "stores/schema.h"

namespace stores {

using platform::dao::dbText;

inline constexpr std::array kTelefonColumns{
    ColumnSchema{u"TELECODIGOEMPRESA", dbText, 5}, ColumnSchema{u"TELECODIGO", dbText, 10},
    ColumnSchema{u"TELETELEFONO", dbText, 15},     ColumnSchema{u"TELEEXTENSION", dbText, 5},
    ColumnSchema{u"TELEFAX", dbText, 15},          ColumnSchema{u"TELECONTACTO", dbText, 35},
};
inline constexpr std::array kTelefonIndexes{
    IndexSchema{u"TELEINDICE", true, true, {u"TELECODIGOEMPRESA", u"TELECODIGO", u"TELETELEFONO"}},
    IndexSchema{u"TELEINDICETELEF", false, false, {u"TELECODIGOEMPRESA", u"TELETELEFONO"}},
};
inline constexpr TableSchema kTelefon{u"TELEFON", kTelefonColumns, kTelefonIndexes};

inline constexpr std::array kTelefonosTables{kTelefon};
inline constexpr StoreSchema kTelefonosStore{u"\\TELEFONOS DE CLIENTES.MDB", Place::CurrentDirectory,
                                             platform::dao::dbVersion40, kTelefonosTables};

} // namespace stores
