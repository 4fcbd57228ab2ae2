// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/storage/sqlite/waitingline.h"

#include <algorithm>

namespace platform::storage::sqlite {

namespace {

using Clock = std::chrono::steady_clock;

/// Number of the first place in a line that begins now.
off_t numberOfNow() noexcept
{
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return kLineByte + std::chrono::duration_cast<std::chrono::microseconds>(now).count();
}

/// Looks without a movement after which the one behind the frozen passes over it, and any further one, so
/// that they go in their order.
constexpr int kLooksOfTheNext = 1;
constexpr int kLooksOfOthers = 3;

} // namespace

bool WaitingLine::isEmpty() const noexcept
{
    return !lockOfOthers(m_descriptor, {m_passed + 1, kLineEnd}, LockKind::Exclusive);
}

std::optional<off_t> WaitingLine::lastPlace() const noexcept
{
    std::optional<off_t> last;
    off_t from = m_passed + 1;
    while (from <= kLineEnd) {
        const auto found = lockOfOthers(m_descriptor, {from, kLineEnd}, LockKind::Exclusive);
        if (!found)
            break;
        last = found->last;
        from = found->last + 1;
    }
    return last;
}

std::optional<off_t> WaitingLine::firstPlaceBefore(off_t number) const noexcept
{
    std::optional<off_t> first;
    off_t to = number - 1;
    while (to > m_passed) {
        const auto found = lockOfOthers(m_descriptor, {m_passed + 1, to}, LockKind::Exclusive);
        if (!found)
            break;
        first = found->first;
        to = found->first - 1;
    }
    return first;
}

Place::Place(WaitingLine& line) noexcept
    : m_line(line)
    , m_ahead(line.lastPlace())
{
    off_t number = m_ahead ? *m_ahead + 1 : std::max(numberOfNow(), line.m_passed + 1);
    while (number <= kLineEnd) {
        const LockResult result = tryLock(line.m_descriptor, number, LockKind::Exclusive);
        if (result == LockResult::Taken)
            m_number = number;
        if (result != LockResult::Refused)
            break;
        // Another one came at the same moment.
        m_ahead = number++;
    }
    if (m_number == 0)
        m_ahead.reset();
}

Place::~Place()
{
    if (m_number != 0)
        unlock(m_line.m_descriptor, m_number);
}

LockResult Place::takeTurnstile(Clock::time_point deadline) noexcept
{
    const int descriptor = m_line.m_descriptor;
    std::optional<off_t> seen;
    int looks = 0;
    while (m_ahead) {
        const Clock::time_point look = std::min(deadline, Clock::now() + m_line.m_patience);
        const LockResult left = lockUntil(descriptor, *m_ahead, LockKind::Shared, look);
        if (left == LockResult::Taken) {
            unlock(descriptor, *m_ahead);
            m_ahead.reset();
            break;
        }
        if (left == LockResult::Unavailable || Clock::now() >= deadline)
            return left;
        const std::optional<off_t> first = m_line.firstPlaceBefore(m_number);
        looks = first == seen ? looks + 1 : 0;
        seen = first;
        const int enough = first == m_ahead ? kLooksOfTheNext : kLooksOfOthers;
        if (looks >= enough && tryLock(descriptor, kTurnstileByte, LockKind::Exclusive) == LockResult::Taken)
            break;
    }
    // Whoever stood in front has gone in, or is passed over.
    if (m_number != 0)
        m_line.m_passed = m_number - 1;
    return lockUntil(descriptor, kTurnstileByte, LockKind::Exclusive, deadline);
}

} // namespace platform::storage::sqlite
