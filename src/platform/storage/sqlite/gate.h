// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The fair gate before every SQLite transaction. SQLite's own waiting polls, so that on a busy file some
// stations wait for seconds; here everyone queues in the system: first at the turnstile, whoever has it waits
// for the room and lets the next one to the turnstile once inside.

#include "platform/storage/sqlite/handle.h"
#include "platform/storage/sqlite/sidecar.h"

#include <chrono>

namespace platform::storage::sqlite {

/// How long turnstile and room together may take.
inline constexpr std::chrono::milliseconds kGateWait{2000};

/// A stay inside the gate, shared for reading or exclusive for writing; ends with the object. Refused, it
/// fails with the lock failure of the task. Without a sidecar (a folder that can't be written) there is no
/// gate.
class GatePass
{
public:
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

    int m_descriptor;
};

} // namespace platform::storage::sqlite
