// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A data root whose six stores hold 100,000 rows a table, made by the program's own store procedures and
// filled through the storage seam.

#include <QString>

namespace bench {

inline constexpr int kRows = 100'000;
inline constexpr int kClients = kRows;

/// Makes the data root where it isn't there yet, makes it the current directory, and brings `NUMEMPRESA` and
/// `RUTAEMPRESA` to its company.
void useDataRoot(const QString& folder);

/// Native path of a store's file.
[[nodiscard]] QString storePath(QStringView file);

/// A client with 14 lines in each grid and 200 consultations; its code.
[[nodiscard]] QString fullClientCode();

/// Code of client `number`, from 0.
[[nodiscard]] QString clientCode(int number);

} // namespace bench
