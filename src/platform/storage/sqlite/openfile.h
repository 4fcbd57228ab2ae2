// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// How a store file is opened and made. Nothing here opens a store by plain input or output while SQLite may
// have it open: closing a plain descriptor would drop SQLite's locks on it.

#include "platform/storage/sqlite/store.h"
#include "platform/storage/storage.h"

namespace platform::storage::sqlite {

/// Opens a store: 3024 no file, 3044 no folder, 3049 no database or of length 0, 3050 locked, 3051 no
/// permission. A file or folder that can't be written opens for reading.
[[nodiscard]] std::unique_ptr<Store> openStore(const QString& path, Sharing sharing);

/// Makes an empty store and opens it, shared: 3204 the name is taken (case ignored), 3044 no folder, 3050
/// another station is making it, 3051 no permission, 3026 disk full. No moment shows a file that isn't whole.
[[nodiscard]] std::unique_ptr<Store> createStore(const QString& path, const CreateOptions& options);

/// 3024 no file, 3044 no folder, 3051 no plain file or no permission to read.
void requireReadable(const QString& path);

/// Makes the file alone, without presence or gate, under a name that nobody else knows: 3204, 3026, 3051.
[[nodiscard]] Database makeStoreFile(const QString& path, const CreateOptions& options);

} // namespace platform::storage::sqlite
