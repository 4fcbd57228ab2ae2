// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Repair of a damaged store: the file found is kept, byte for byte, beside a new one that holds every row that
// could be read.

#include "platform/storage/storage.h"

namespace platform::storage::sqlite {

/// As `Engine::repair`.
void repairStore(const QString& path, const QList<TableDefinition>& expected);

} // namespace platform::storage::sqlite
