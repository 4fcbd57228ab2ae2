// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Whether locks on a file mean anything. Some shares say yes to every lock and keep none, others keep them on
// this machine alone; two stations on such a share would write over each other.

#include "platform/storage/sqlite/rangelock.h"

#include <QByteArray>

#include <functional>

namespace platform::storage::sqlite {

/// What a trial found. `Local`: the share keeps locks on this machine alone.
enum class Locking { True, Local, None };

/// Tries the locks of the open file `descriptor`, which must be writable, against a second opening of `path`
/// on a byte that nothing else is kept on, and looks at the options of its mount if that is a share. A few
/// system calls.
[[nodiscard]] Locking tryLocking(int descriptor, const QByteArray& path) noexcept;

/// Whether a mount keeps locks on this machine alone: `mountInfo` is the text of /proc/self/mountinfo, the
/// mount is told by its device. False for a mount that it doesn't tell.
[[nodiscard]] bool keepsLocksLocal(const QByteArray& mountInfo, unsigned deviceMajor, unsigned deviceMinor);

} // namespace platform::storage::sqlite
