// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// How long what was read from a store may be used without looking at the file again.
//
// A copy of a row, a block of rows and a list of row numbers each carry a `Stamp`. Within `kRowFreshness`
// they are used as they are; later the store's change number is looked at first. So what another station has
// changed is seen at the next positioning by `Seek`, `MoveFirst` or `MoveLast`, or at latest this long after
// its commit. What this database object changed itself is seen at once.

#include <QtGlobal>

#include <chrono>
#include <optional>

namespace platform::dao {

inline constexpr std::chrono::milliseconds kRowFreshness{20};

/// Replaces `kRowFreshness` (tests); 0 looks at the file at every access.
void setRowFreshness(std::chrono::milliseconds duration);

/// A steady clock of a few milliseconds' grain, which is enough here and is asked at every field access.
struct CoarseClock
{
    using duration = std::chrono::nanoseconds;
    using rep = duration::rep;
    using period = duration::period;
    using time_point = std::chrono::time_point<CoarseClock>;
    static constexpr bool is_steady = true;

    [[nodiscard]] static time_point now() noexcept;
};

struct Stamp
{
    CoarseClock::time_point readAt;
    quint64 ownChanges = 0;         ///< changes made through the database object so far
    std::optional<quint64> version; ///< the store's change number at the reading, when it was asked for

    [[nodiscard]] static Stamp now(quint64 ownChanges, std::optional<quint64> version = std::nullopt);
    /// False when the store's change number has to be looked at.
    [[nodiscard]] bool isFresh(quint64 changesNow) const;
};

} // namespace platform::dao
