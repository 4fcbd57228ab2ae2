// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/dao/freshness.h"

#include <ctime>

namespace platform::dao {
namespace {

std::chrono::milliseconds s_freshness = kRowFreshness;

} // namespace

void setRowFreshness(std::chrono::milliseconds duration)
{
    s_freshness = duration;
}

CoarseClock::time_point CoarseClock::now() noexcept
{
    timespec time = {};
    clock_gettime(CLOCK_MONOTONIC_COARSE, &time);
    return time_point(std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec));
}

Stamp Stamp::now(quint64 ownChanges, std::optional<quint64> version)
{
    return {CoarseClock::now(), ownChanges, version};
}

bool Stamp::isFresh(quint64 changesNow) const
{
    return ownChanges == changesNow && CoarseClock::now() - readAt < s_freshness;
}

} // namespace platform::dao
