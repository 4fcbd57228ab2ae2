// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Who has a store open. An idle SQLite connection holds no lock, so an exclusive opening needs a lock of
// ours: on the presence byte of the sidecar, from the opening to the closing of the descriptor.

#include "platform/storage/sqlite/sidecar.h"
#include "platform/storage/storage.h"

namespace platform::storage::sqlite {

/// Marks the store as open. An exclusive opening fails with 3050 when anyone, this process included, has the
/// store open, a shared one while it is open exclusively, and either where the file system doesn't lock.
void takePresence(const Sidecar& sidecar, Sharing sharing);

} // namespace platform::storage::sqlite
