// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The catalogue of companies. It belongs to the suite and the program only reads it; this is the part of its
// shape that the program knows, with sizes that the suite could well have.

#include "stores/schema.h"

namespace tools {

inline constexpr std::array kEmpColumns{
    stores::ColumnSchema{u"MENUMEMPRESA", platform::dao::dbText, 5},
    stores::ColumnSchema{u"MENOMBRE", platform::dao::dbText, 50},
    stores::ColumnSchema{u"MENUMDIG", platform::dao::dbText, 2},
    stores::ColumnSchema{u"MENUMDIG2", platform::dao::dbText, 2},
    stores::ColumnSchema{u"MENUMDIG3", platform::dao::dbText, 2},
    stores::ColumnSchema{u"MENUMDIG4", platform::dao::dbText, 2},
    stores::ColumnSchema{u"MENUMDIG5", platform::dao::dbText, 2},
    stores::ColumnSchema{u"MENUMDIG6", platform::dao::dbText, 2},
    stores::ColumnSchema{u"MENUMDIG7", platform::dao::dbText, 2},
    stores::ColumnSchema{u"MENUMDIG8", platform::dao::dbText, 2},
    stores::ColumnSchema{u"EMPLOGOTI", platform::dao::dbMemo},
};
inline constexpr std::array kEmpIndexes{
    stores::IndexSchema{u"INDMENUM", true, true, {u"MENUMEMPRESA"}},
};
inline constexpr stores::TableSchema kEmp{u"EMP", kEmpColumns, kEmpIndexes};
inline constexpr std::array kCompaniesTables{kEmp};
inline constexpr stores::StoreSchema kCompaniesStore{u"\\Empresas de Quenda.mdb",
                                                     stores::Place::CurrentDirectory,
                                                     platform::dao::dbVersion40, kCompaniesTables};

} // namespace tools
