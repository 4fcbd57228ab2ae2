// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/storage/sqlite/gate.h"

#include "platform/core/failure.h"
#include "platform/storage/sqlite/heldreading.h"
#include "platform/storage/sqlite/rangelock.h"

using namespace Qt::StringLiterals;

namespace platform::storage::sqlite {

namespace {

using Deadline = GatePass::Deadline;

/// What stands in the way may be a reading of our own, so such readings end before anything is waited for.
/// The wait is the longer for it.
void finishOwnReadings(Deadline& deadline)
{
    const Deadline before = std::chrono::steady_clock::now();
    if (finishHeldReadings())
        deadline += std::chrono::steady_clock::now() - before;
}

LockResult lockInTurn(int descriptor, off_t offset, LockKind kind, Deadline& deadline)
{
    const LockResult atOnce = tryLock(descriptor, offset, kind);
    if (atOnce != LockResult::Refused)
        return atOnce;
    finishOwnReadings(deadline);
    return lockUntil(descriptor, offset, kind, deadline);
}

/// Whether nobody is inside, waits or just comes: not even whom one would be let in beside.
bool isDeserted(int descriptor, LockKind kind) noexcept
{
    return !lockOfOthers(descriptor, {kTurnstileByte, kLineEnd}, kind);
}

} // namespace

GatePass::GatePass(const Sidecar& sidecar, Task task, bool writes, std::chrono::milliseconds wait)
    : m_descriptor(sidecar.descriptor())
{
    if (!sidecar.exists())
        return;
    Deadline deadline = std::chrono::steady_clock::now() + wait;
    const LockKind kind = writes ? LockKind::Exclusive : LockKind::Shared;
    // A sidecar that is only readable gives no exclusive lock, so its readers can't queue at the turnstile.
    const LockResult result = sidecar.isWritable() ? enterRoom(sidecar.line(), kind, deadline)
                                                   : lockInTurn(m_descriptor, kRoomByte, kind, deadline);
    if (result != LockResult::Taken)
        throw Failure(lockedNumber(task), u"the file stayed locked by others"_s);
    // A writer keeps its place, so that the next one wakes once, when the room is free. Readers go in beside
    // each other.
    if (!writes)
        m_place.reset();
}

GatePass::~GatePass()
{
    if (m_descriptor >= 0)
        unlock(m_descriptor, kRoomByte);
}

LockResult GatePass::enterRoom(WaitingLine& line, LockKind kind, Deadline& deadline)
{
    if (isDeserted(m_descriptor, kind)) {
        const LockResult atOnce = tryLock(m_descriptor, kRoomByte, kind);
        if (atOnce != LockResult::Refused)
            return atOnce;
    }
    const LockResult queued = takeTurnstile(line, deadline);
    if (queued != LockResult::Taken)
        return queued;
    const LockResult inside = lockInTurn(m_descriptor, kRoomByte, kind, deadline);
    unlock(m_descriptor, kTurnstileByte);
    return inside;
}

LockResult GatePass::takeTurnstile(WaitingLine& line, Deadline& deadline)
{
    if (line.isEmpty()) {
        const LockResult atOnce = tryLock(m_descriptor, kTurnstileByte, LockKind::Exclusive);
        if (atOnce != LockResult::Refused)
            return atOnce;
    }
    finishOwnReadings(deadline);
    m_place.emplace(line);
    return m_place->takeTurnstile(deadline);
}

} // namespace platform::storage::sqlite
