// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/storage/sqlite/gate.h"

#include "platform/core/failure.h"
#include "platform/storage/sqlite/heldreading.h"
#include "platform/storage/sqlite/rangelock.h"

using namespace Qt::StringLiterals;

namespace platform::storage::sqlite {

namespace {

using Deadline = std::chrono::steady_clock::time_point;

/// What stands in the way may be a reading of our own, so such readings end before anything is waited for.
/// The wait is the longer for it.
LockResult lockInTurn(int descriptor, off_t offset, LockKind kind, Deadline& deadline)
{
    const LockResult atOnce = tryLock(descriptor, offset, kind);
    if (atOnce != LockResult::Refused)
        return atOnce;
    const Deadline before = std::chrono::steady_clock::now();
    if (finishHeldReadings())
        deadline += std::chrono::steady_clock::now() - before;
    return lockUntil(descriptor, offset, kind, deadline);
}

/// The room, by way of the turnstile. Whatever the outcome, the turnstile is free afterwards.
LockResult enterRoom(int descriptor, LockKind kind, Deadline& deadline)
{
    const LockResult queued = lockInTurn(descriptor, kTurnstileByte, LockKind::Exclusive, deadline);
    if (queued != LockResult::Taken)
        return queued;
    const LockResult inside = lockInTurn(descriptor, kRoomByte, kind, deadline);
    unlock(descriptor, kTurnstileByte);
    return inside;
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
    const LockResult result = sidecar.isWritable() ? enterRoom(m_descriptor, kind, deadline)
                                                   : lockInTurn(m_descriptor, kRoomByte, kind, deadline);
    if (result != LockResult::Taken)
        throw Failure(lockedNumber(task), u"the file stayed locked by others"_s);
}

GatePass::~GatePass()
{
    if (m_descriptor >= 0)
        unlock(m_descriptor, kRoomByte);
}

} // namespace platform::storage::sqlite
