// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Repair of a damaged store: the file found is kept, byte for byte, beside a new one that holds every row
// that could be read.

#include "platform/storage/upkeep.h"

namespace platform::storage::sqlite {

/// As `Engine::repair`. 3024 no file, 3044 no folder, 3050 open elsewhere, 3051 no permission.
/// On a failure the file stands where it was.
RepairAccount repairStore(const QString& path, const QList<TableDefinition>& expected);

} // namespace platform::storage::sqlite
