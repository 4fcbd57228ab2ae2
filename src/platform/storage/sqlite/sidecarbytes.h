// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Bytes of a store's sidecar and what a lock on them means.

#include <limits>

#include <sys/types.h>

namespace platform::storage::sqlite {

inline constexpr off_t kPresenceByte = 0;  ///< shared: the store is open; exclusive: open for one alone
inline constexpr off_t kTurnstileByte = 1; ///< exclusive while waiting for the room: the queue before it
inline constexpr off_t kRoomByte = 2;      ///< shared: reading; exclusive: writing
inline constexpr off_t kTrialByte = 3; ///< exclusive for a moment at the opening: whether locks hold at all
inline constexpr off_t kMakerByte = 4; ///< exclusive while the store is being made
inline constexpr off_t kLineByte = 8;  ///< this one and all behind it: a place in the line, exclusive
inline constexpr off_t kLineEnd = std::numeric_limits<off_t>::max() / 2;

} // namespace platform::storage::sqlite
