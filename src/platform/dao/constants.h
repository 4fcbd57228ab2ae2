// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The published names and codes of the data access objects.

#include <QStringView>

namespace platform::dao {

enum FieldType { dbDouble = 7, dbText = 10, dbMemo = 12 };

enum RecordsetType { dbOpenTable = 1, dbOpenDynaset = 2, dbOpenSnapshot = 4 };

enum UpdateType { dbUpdateRegular = 1 };

inline constexpr int dbVersion30 = 32;
inline constexpr int dbVersion40 = 64;

/// Traditional Spanish, the locale of every store.
inline constexpr QStringView kSpanishLocale = u";LANGID=0x040A;CP=1252;COUNTRY=0";

/// Members of `TableDefs` that are the engine's own: MSysACEs, MSysObjects, MSysQueries, MSysRelationships.
inline constexpr int kSystemTables = 4;

} // namespace platform::dao
