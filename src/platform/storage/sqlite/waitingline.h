// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The line of those who wait at the gate of a store. The system hands a lock on by waking the next one, and
// whoever is running meanwhile may take the lock first. In this line the order is settled on coming, however
// long the next one takes to wake.
//
// A place is a byte of the sidecar, locked by the one who stands there. Places are numbered upwards: who
// comes stands behind the last one and waits for the one in front alone. A line that was empty begins at the
// clock's microsecond, so a number isn't had twice. Nothing but the order hangs on it: turnstile and room
// keep the stations apart, and where the file system can't tell which bytes are locked, the order is the
// system's.

#include "platform/storage/sqlite/rangelock.h"
#include "platform/storage/sqlite/sidecarbytes.h"

#include <chrono>
#include <optional>

namespace platform::storage::sqlite {

/// The line as one opening of the sidecar sees it.
class WaitingLine
{
public:
    /// How often who waits looks whether the line still moves.
    static constexpr std::chrono::milliseconds kPatience{50};

    /// The descriptor of a sidecar that stays open for longer than the object.
    explicit WaitingLine(int descriptor) noexcept
        : m_descriptor(descriptor)
    {}

    /// Whether nobody stands in it.
    [[nodiscard]] bool isEmpty() const noexcept;
    void setPatience(std::chrono::milliseconds patience) noexcept { m_patience = patience; }

private:
    friend class Place;

    /// The last place that is taken.
    [[nodiscard]] std::optional<off_t> lastPlace() const noexcept;
    /// The first place that is taken in front of `number`.
    [[nodiscard]] std::optional<off_t> firstPlaceBefore(off_t number) const noexcept;

    int m_descriptor;
    /// Places up to this one don't count: they are free, or were passed over.
    off_t m_passed = kLineByte - 1;
    std::chrono::milliseconds m_patience = kPatience;
};

/// A place in the line, from the making of the object to its end.
class Place
{
public:
    /// Stands behind the last one.
    explicit Place(WaitingLine& line) noexcept;
    ~Place();
    Place(const Place&) = delete;
    Place& operator=(const Place&) = delete;

    /// Waits for the turn, until `deadline` at most, and takes the turnstile. Where nothing moves in front
    /// from one look to the next although the turnstile is free, the ones in front are frozen: they are
    /// passed over, and this opening of the sidecar never minds their places again.
    [[nodiscard]] LockResult takeTurnstile(std::chrono::steady_clock::time_point deadline) noexcept;

private:
    WaitingLine& m_line;
    off_t m_number = 0; ///< 0: there is no place to be had
    std::optional<off_t> m_ahead;
};

} // namespace platform::storage::sqlite
