// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/storage/sqlite/presence.h"

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"
#include "platform/storage/sqlite/heldreading.h"
#include "platform/storage/sqlite/rangelock.h"

using namespace Qt::StringLiterals;

namespace platform::storage::sqlite {

namespace {

/// A reading of our own that is still under way doesn't keep the store from being had alone: it ends first.
LockResult lockPresence(int descriptor, LockKind kind)
{
    const LockResult result = tryLock(descriptor, kPresenceByte, kind);
    return result == LockResult::Refused && finishHeldReadings() ? tryLock(descriptor, kPresenceByte, kind)
                                                                 : result;
}

} // namespace

void takePresence(const Sidecar& sidecar, Sharing sharing)
{
    if (!sidecar.exists()) {
        if (sharing == Sharing::Exclusive)
            throw Failure(kCouldNotLockFile, u"there is no sidecar to lock"_s);
        return;
    }
    const LockKind kind = sharing == Sharing::Shared ? LockKind::Shared : LockKind::Exclusive;
    switch (lockPresence(sidecar.descriptor(), kind)) {
    case LockResult::Taken:
        return;
    case LockResult::Refused:
        throw Failure(kCouldNotLockFile, u"the file is open elsewhere"_s);
    case LockResult::Unavailable:
        throw Failure(kCouldNotLockFile, u"the file system does not lock"_s);
    }
}

} // namespace platform::storage::sqlite
