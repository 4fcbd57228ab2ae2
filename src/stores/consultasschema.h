// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The assistance store: the log of technical consultations.

#include "stores/schema.h"

namespace stores {

using platform::dao::dbDouble;
using platform::dao::dbMemo;
using platform::dao::dbText;

inline constexpr std::array kConsColumns{
    ColumnSchema{u"ORDEN", dbDouble},          ColumnSchema{u"CLICONSULTA", dbText, 10},
    ColumnSchema{u"TEMA", dbText, 35},         ColumnSchema{u"PROGRAMA", dbText, 10},
    ColumnSchema{u"FEINICIO", dbText, 10},     ColumnSchema{u"HOINICIO", dbText, 8},
    ColumnSchema{u"FEFINAL", dbText, 10},      ColumnSchema{u"HOFINAL", dbText, 8},
    ColumnSchema{u"DESCRIPCION", dbMemo},      ColumnSchema{u"SOLUCION", dbMemo},
    ColumnSchema{u"TECNICO", dbText, 35},      ColumnSchema{u"ESTADO", dbText, 20},
    ColumnSchema{u"conpublicable", dbText, 5}, ColumnSchema{u"conpaginaweb", dbText, 50},
};
inline constexpr std::array kConsIndexes{
    IndexSchema{u"CONnum", true, true, {u"ORDEN", u"CLICONSULTA"}},
    IndexSchema{u"connumeracion", false, false, {u"ORDEN"}},
};
inline constexpr TableSchema kCons{u"CONS", kConsColumns, kConsIndexes};

inline constexpr std::array kConsultasTables{kCons};
inline constexpr StoreSchema kConsultasStore{u"ASISTENCIAS.MDB", Place::CompanyFolder,
                                             platform::dao::dbVersion30, kConsultasTables};

} // namespace stores
