// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/storage/sqlite/rangelock.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <ctime>

#include <fcntl.h>
#include <pthread.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace platform::storage::sqlite {

namespace {

using Clock = std::chrono::steady_clock;

struct flock spanLock(ByteSpan span, short type) noexcept
{
    struct flock lock = {};
    lock.l_type = type;
    lock.l_whence = SEEK_SET;
    lock.l_start = span.first;
    lock.l_len = span.last - span.first + 1;
    return lock;
}

struct flock byteLock(off_t offset, short type) noexcept
{
    return spanLock({offset, offset}, type);
}

short lockType(LockKind kind) noexcept
{
    return kind == LockKind::Shared ? short{F_RDLCK} : short{F_WRLCK};
}

int wakeSignal() noexcept
{
    return SIGRTMIN + 6;
}

void wake(int) noexcept {}

/// Installed once and left in place: a handler without SA_RESTART makes a waiting call return.
void installWakeHandler() noexcept
{
    static const bool installed = [] {
        struct sigaction action = {};
        action.sa_handler = &wake;
        sigemptyset(&action.sa_mask);
        return sigaction(wakeSignal(), &action, nullptr) == 0;
    }();
    static_cast<void>(installed);
}

/// Signals the calling thread at the deadline, then every few milliseconds, so that a signal that comes just
/// before the waiting call begins is followed by another.
class WakeTimer
{
public:
    explicit WakeTimer(Clock::duration wait) noexcept
    {
        installWakeHandler();
        unblock();
        struct sigevent event = {};
        event.sigev_notify = SIGEV_THREAD_ID;
        event.sigev_signo = wakeSignal();
        event._sigev_un._tid = static_cast<pid_t>(syscall(SYS_gettid));
        m_armed = timer_create(CLOCK_MONOTONIC, &event, &m_timer) == 0 && start(wait);
    }
    ~WakeTimer()
    {
        if (m_armed)
            timer_delete(m_timer);
        pthread_sigmask(SIG_SETMASK, &m_mask, nullptr);
    }
    WakeTimer(const WakeTimer&) = delete;
    WakeTimer& operator=(const WakeTimer&) = delete;

    [[nodiscard]] bool isArmed() const noexcept { return m_armed; }

private:
    void unblock() noexcept
    {
        sigset_t signals;
        sigemptyset(&signals);
        sigaddset(&signals, wakeSignal());
        pthread_sigmask(SIG_UNBLOCK, &signals, &m_mask);
    }
    [[nodiscard]] bool start(Clock::duration wait) noexcept
    {
        constexpr long kRepeatNanoseconds = 10'000'000;
        const auto nanoseconds = std::chrono::duration_cast<std::chrono::nanoseconds>(wait).count();
        struct itimerspec times = {};
        times.it_value.tv_sec = nanoseconds / 1'000'000'000;
        times.it_value.tv_nsec = nanoseconds % 1'000'000'000;
        times.it_interval.tv_nsec = kRepeatNanoseconds;
        if (timer_settime(m_timer, 0, &times, nullptr) == 0)
            return true;
        timer_delete(m_timer);
        return false;
    }

    timer_t m_timer = {};
    sigset_t m_mask = {};
    bool m_armed = false;
};

LockResult refusal(int error) noexcept
{
    return error == EAGAIN || error == EACCES || error == EINTR ? LockResult::Refused
                                                                : LockResult::Unavailable;
}

} // namespace

LockResult tryLock(int descriptor, off_t offset, LockKind kind) noexcept
{
    struct flock lock = byteLock(offset, lockType(kind));
    return fcntl(descriptor, F_OFD_SETLK, &lock) == 0 ? LockResult::Taken : refusal(errno);
}

LockResult lockUntil(int descriptor, off_t offset, LockKind kind, Clock::time_point deadline) noexcept
{
    const LockResult atOnce = tryLock(descriptor, offset, kind);
    const Clock::duration left = deadline - Clock::now();
    if (atOnce != LockResult::Refused || left <= Clock::duration::zero())
        return atOnce;

    const WakeTimer timer(left);
    if (!timer.isArmed())
        return LockResult::Refused;
    while (true) {
        struct flock lock = byteLock(offset, lockType(kind));
        if (fcntl(descriptor, F_OFD_SETLKW, &lock) == 0)
            return LockResult::Taken;
        // Other signals wake the call, too; only the deadline ends the wait.
        if (errno != EINTR || Clock::now() >= deadline)
            return refusal(errno);
    }
}

std::optional<ByteSpan> lockOfOthers(int descriptor, ByteSpan where, LockKind kind) noexcept
{
    struct flock lock = spanLock(where, lockType(kind));
    if (fcntl(descriptor, F_OFD_GETLK, &lock) != 0)
        return where;
    if (lock.l_type == F_UNLCK)
        return std::nullopt;
    // A lock without a length reaches to the end of all files.
    const off_t last = lock.l_len == 0 ? where.last : std::min(where.last, lock.l_start + lock.l_len - 1);
    return ByteSpan{std::max(where.first, lock.l_start), last};
}

void unlock(int descriptor, off_t offset) noexcept
{
    struct flock lock = byteLock(offset, F_UNLCK);
    static_cast<void>(fcntl(descriptor, F_OFD_SETLK, &lock));
}

} // namespace platform::storage::sqlite
