// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/dao/freshness.h"

namespace platform::dao {
namespace {

std::chrono::milliseconds s_freshness = kRowFreshness;

} // namespace

void setRowFreshness(std::chrono::milliseconds duration)
{
    s_freshness = duration;
}

Stamp Stamp::now(quint64 ownChanges, std::optional<quint64> version)
{
    return {std::chrono::steady_clock::now(), ownChanges, version};
}

bool Stamp::isFresh(quint64 changesNow) const
{
    return ownChanges == changesNow && std::chrono::steady_clock::now() - readAt < s_freshness;
}

} // namespace platform::dao
