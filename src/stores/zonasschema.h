// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The zones store.

#include "stores/schema.h"

namespace stores {

using platform::dao::dbMemo;
using platform::dao::dbText;

inline constexpr std::array kZonatabColumns{
    ColumnSchema{u"ZONCODIGO", dbText, 10},
    ColumnSchema{u"ZONDESCRIPCION", dbText, 35},
    ColumnSchema{u"ZONampli", dbMemo},
};
inline constexpr std::array kZonatabIndexes{
    IndexSchema{u"ZONASINDICE", true, true, {u"ZONCODIGO"}},
    IndexSchema{u"zonasindial", false, true, {u"ZONDESCRIPCION"}},
};
inline constexpr TableSchema kZonatab{u"ZONATAB", kZonatabColumns, kZonatabIndexes};

inline constexpr std::array kZonasTables{kZonatab};
inline constexpr StoreSchema kZonasStore{u"ZONAS.MDB", Place::CompanyFolder, platform::dao::dbVersion40,
                                         kZonasTables};

} // namespace stores
