// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What belongs to a store file besides its bytes: its name in the folder, and the files that SQLite keeps
// beside it and would take for those of any other file of that name.

#include <QString>

namespace platform::storage::sqlite {

/// Removes a file that nobody has open, and its companions.
void removeWithCompanions(const QString& path) noexcept;
/// Removes companions that a file left which is gone.
void removeCompanions(const QString& path) noexcept;

/// True while a change of the file isn't finished, or was cut short.
[[nodiscard]] bool hasJournal(const QString& path) noexcept;

/// Renames the companions of one file to those of another. Missing ones are passed over.
void moveCompanions(const QString& from, const QString& to) noexcept;

/// Makes new names in the file's folder lasting. A folder that can't be opened is passed over.
void syncFolderOf(const QString& path) noexcept;

} // namespace platform::storage::sqlite
