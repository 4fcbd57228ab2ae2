// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The fair gate before every SQLite transaction. SQLite's own waiting polls, so that on a busy file some
// stations wait for seconds. Here, where nobody is inside or waits, one goes straight into the room. Else one
// stands in the line until one's turn has come for the turnstile; whoever has that waits for the room and
// lets the next one to the turnstile once inside.

#include "platform/storage/sqlite/handle.h"
#include "platform/storage/sqlite/sidecar.h"
#include "platform/storage/sqlite/waitingline.h"

#include <chrono>
#include <optional>

namespace platform::storage::sqlite {

/// How long line, turnstile and room together may take.
inline constexpr std::chrono::milliseconds kGateWait{2000};

/// A stay inside the gate, shared for reading or exclusive for writing; ends with the object. Refused, it
/// fails with the lock failure of the task. Without a sidecar (a folder that can't be written) there is no
/// gate.
class GatePass
{
public:
    using Deadline = std::chrono::steady_clock::time_point;

    static GatePass forReading(const Sidecar& sidecar, Task task, std::chrono::milliseconds wait = kGateWait)
    {
        return GatePass(sidecar, task, false, wait);
    }
    static GatePass forWriting(const Sidecar& sidecar, Task task)
    {
        return GatePass(sidecar, task, true, kGateWait);
    }
    ~GatePass();
    GatePass(const GatePass&) = delete;
    GatePass& operator=(const GatePass&) = delete;

private:
    GatePass(const Sidecar& sidecar, Task task, bool writes, std::chrono::milliseconds wait);

    /// The room, at once when nobody is there, else by way of the turnstile, which is free afterwards
    /// whatever the outcome.
    LockResult enterRoom(WaitingLine& line, LockKind kind, Deadline& deadline);
    LockResult takeTurnstile(WaitingLine& line, Deadline& deadline);

    int m_descriptor;
    std::optional<Place> m_place;
};

} // namespace platform::storage::sqlite
