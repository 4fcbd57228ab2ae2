// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The client types store: types and their discounts by article family and by article.

#include "stores/schema.h"

namespace stores {

using platform::dao::dbDouble;
using platform::dao::dbText;

inline constexpr std::array kTipocliColumns{
    ColumnSchema{u"TIPOCODIGO", dbText, 4},
    ColumnSchema{u"TIPODESCRIPCION", dbText, 35},
};
inline constexpr std::array kTipocliIndexes{
    IndexSchema{u"TIPOINDICE", true, true, {u"TIPOCODIGO"}},
    IndexSchema{u"TIPOINDICEalf", false, false, {u"TIPODESCRIPCION"}},
};
inline constexpr TableSchema kTipocli{u"TIPOCLI", kTipocliColumns, kTipocliIndexes};

inline constexpr std::array kTipofamicliColumns{
    ColumnSchema{u"TIPOFAMICODIGO", dbText, 4},
    ColumnSchema{u"TIPOFAMILINEA", dbText, 4},
    ColumnSchema{u"TIPOFAMIDESCRI", dbText, 50},
    ColumnSchema{u"TIPOFAMIDESCUEN", dbDouble},
};
inline constexpr std::array kTipofamicliIndexes{
    IndexSchema{u"TIPOFAMIINDICE", true, true, {u"TIPOFAMICODIGO", u"TIPOFAMILINEA"}},
};
inline constexpr TableSchema kTipofamicli{u"TIPOFAMICLI", kTipofamicliColumns, kTipofamicliIndexes};

inline constexpr std::array kTipoarticliColumns{
    ColumnSchema{u"TIPOARTICODIGO", dbText, 4},  ColumnSchema{u"TIPOARTIARTI", dbText, 10},
    ColumnSchema{u"TIPOARTIDESCRI", dbText, 50}, ColumnSchema{u"TIPOARTIDESCUEN1", dbDouble},
    ColumnSchema{u"TIPOARTIDESCUEN2", dbDouble}, ColumnSchema{u"TIPOARTIDESCUEN3", dbDouble},
    ColumnSchema{u"TIPOARTIDESCUEN4", dbDouble}, ColumnSchema{u"TIPOARTIDESCUEN5", dbDouble},
    ColumnSchema{u"TIPOARTIDESCUEN6", dbDouble},
};
inline constexpr std::array kTipoarticliIndexes{
    IndexSchema{u"TIPOARTIINDICE", true, true, {u"TIPOARTICODIGO", u"TIPOARTIARTI"}},
};
inline constexpr TableSchema kTipoarticli{u"TIPOARTICLI", kTipoarticliColumns, kTipoarticliIndexes};

inline constexpr std::array kTiposTables{kTipocli, kTipofamicli, kTipoarticli};
inline constexpr StoreSchema kTiposStore{u"TIPOS DE CLIENTES.MDB", Place::CompanyFolder,
                                         platform::dao::dbVersion40, kTiposTables};

} // namespace stores
