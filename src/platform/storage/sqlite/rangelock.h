// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Locks on single bytes of a sidecar file, held by the open file: two opens conflict even within one process,
// and a lock goes only with its own descriptor. Never used on a store file itself.

#include <chrono>

#include <sys/types.h>

namespace platform::storage::sqlite {

enum class LockKind { Shared, Exclusive };

/// `Unavailable`: the file system doesn't lock, so nothing may run on it unlocked.
enum class LockResult { Taken, Refused, Unavailable };

/// Locks the byte at `offset` or answers at once.
[[nodiscard]] LockResult tryLock(int descriptor, off_t offset, LockKind kind) noexcept;

/// Locks the byte, waiting in the system's queue until `deadline` at most.
[[nodiscard]] LockResult lockUntil(int descriptor, off_t offset, LockKind kind,
                                   std::chrono::steady_clock::time_point deadline) noexcept;

void unlock(int descriptor, off_t offset) noexcept;

} // namespace platform::storage::sqlite
