// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What SQLite must know before the first statement on a store: the order of text and the functions that
// queries are written with.

struct sqlite3;

namespace platform::storage::sqlite {

/// Name of the collation of every text column.
inline constexpr char kCollation[] = "ES_TRADICIONAL";

/// Functions of the written queries. `int` is the stores' own name; the others are ours.
inline constexpr char kLikeFunction[] = "store_like"; ///< (text, pattern)
inline constexpr char kTextFunction[] = "store_text"; ///< (value): a number in its plain form, Null as ""
inline constexpr char kIntegerFunction[] = "int";     ///< (value): floor; a numeric text is converted

/// Registers the collation alone. The result code of SQLite.
int registerCollation(sqlite3* database) noexcept;

/// Registers collation and functions; throws what SQLite answers.
void registerFunctions(sqlite3* database);

} // namespace platform::storage::sqlite
