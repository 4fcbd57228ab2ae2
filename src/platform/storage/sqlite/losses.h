// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What a damaged table has lost, as far as its indexes still tell: every index entry bears the key and the
// number of its row.

#include "platform/storage/sqlite/salvage.h"
#include "platform/storage/upkeep.h"

namespace platform::storage::sqlite {

/// Only index pages that are still reached from an index's root are believed: others may be of rows that were
/// deleted long ago.
[[nodiscard]] TableLosses lossesOf(const PageFile& file, const SalvagedTable& table);

} // namespace platform::storage::sqlite
