// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Locks on single bytes of a sidecar file, held by the open file: two opens conflict even within one process,
// and a lock goes only with its own descriptor. Never used on a store file itself.

#include <chrono>
#include <optional>

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

/// A stretch of bytes, both ends included.
struct ByteSpan
{
    off_t first = 0;
    off_t last = 0;
};

/// One lock of others that would refuse such a lock of ours on these bytes; of several, the one that the
/// system names. The whole stretch where the system can't tell.
[[nodiscard]] std::optional<ByteSpan> lockOfOthers(int descriptor, ByteSpan where, LockKind kind) noexcept;

void unlock(int descriptor, off_t offset) noexcept;

} // namespace platform::storage::sqlite
