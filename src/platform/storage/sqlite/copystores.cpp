// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"
#include "platform/storage/sqlite/storecopy.h"
#include "platform/storage/upkeep.h"

#include <algorithm>
#include <span>

namespace platform::storage {

namespace {

using sqlite::StoreCopy;
using Clock = std::chrono::steady_clock;
using Copies = std::vector<std::unique_ptr<StoreCopy>>;

/// How often a group is tried as one. Each try copies what has changed meanwhile, so it gets shorter.
constexpr int kTries = 4;

/// Runs a step of one store's copying; a failure bears the store's path.
template <typename Step>
auto named(const QString& path, Step&& step)
{
    try {
        return step();
    } catch (const Failure& failure) {
        throw Failure(failure.number(), path);
    }
}

/// All gates of a group, taken one after the other and let go together.
class Hold
{
public:
    Hold(std::span<std::unique_ptr<StoreCopy>> copies, std::chrono::milliseconds longest)
        : m_copies(copies)
        , m_longest(longest)
    {}
    ~Hold() { leave(); }
    Hold(const Hold&) = delete;
    Hold& operator=(const Hold&) = delete;

    /// Takes every gate and copies what is to be copied within. False when the time was up.
    bool copy()
    {
        if (!m_copies.front()->enter(sqlite::kGateWait))
            return false;
        m_since = Clock::now();
        const Clock::time_point deadline = m_since + m_longest;
        for (const std::unique_ptr<StoreCopy>& copy : m_copies.subspan(1)) {
            const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
            if (left <= left.zero() || !copy->enter(left))
                return false;
        }
        return std::all_of(m_copies.begin(), m_copies.end(), [&](const auto& copy) {
            return named(copy->path(), [&] { return copy->copyInside(deadline); });
        });
    }
    void leave() noexcept
    {
        for (const std::unique_ptr<StoreCopy>& copy : m_copies)
            copy->leave();
    }
    [[nodiscard]] std::chrono::milliseconds length() const
    {
        return m_since == Clock::time_point()
                   ? std::chrono::milliseconds{0}
                   : std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - m_since);
    }

private:
    std::span<std::unique_ptr<StoreCopy>> m_copies;
    std::chrono::milliseconds m_longest;
    Clock::time_point m_since;
};

class Copying
{
public:
    explicit Copying(std::chrono::milliseconds longestHold)
        : m_longestHold(longestHold)
    {}

    /// The copies of a group as one moment. False when that can't be had.
    bool copyAtOnce(std::span<std::unique_ptr<StoreCopy>> copies)
    {
        for (int attempt = 0; attempt < kTries; ++attempt) {
            Hold hold(copies, m_longestHold);
            const bool isDone = hold.copy();
            hold.leave();
            m_account.longestHold = std::max(m_account.longestHold, hold.length());
            if (isDone) {
                ++m_account.moments;
                return true;
            }
        }
        return false;
    }

    void copyGroup(std::span<std::unique_ptr<StoreCopy>> copies)
    {
        if (copies.empty() || copyAtOnce(copies))
            return;
        for (std::unique_ptr<StoreCopy>& copy : copies) {
            if (!copyAtOnce({&copy, 1}))
                throw Failure(kLockedByAnother, copy->path());
        }
    }

    [[nodiscard]] const CopyAccount& account() const { return m_account; }

private:
    std::chrono::milliseconds m_longestHold;
    CopyAccount m_account;
};

Copies openAll(const QList<CopyJob>& jobs)
{
    Copies copies;
    for (const CopyJob& job : jobs) {
        copies.push_back(named(job.from, [&] { return std::make_unique<StoreCopy>(job.from, job.to); }));
        named(job.from, [&] { copies.back()->copyAhead(); });
    }
    return copies;
}

} // namespace

CopyAccount copyStores(const QList<QList<CopyJob>>& groups, std::chrono::milliseconds longestHold)
{
    Copies all;
    std::vector<std::size_t> ends;
    for (const QList<CopyJob>& group : groups) {
        Copies opened = openAll(group);
        std::move(opened.begin(), opened.end(), std::back_inserter(all));
        ends.push_back(all.size());
    }
    Copying copying(longestHold);
    if (!all.empty() && !copying.copyAtOnce(all)) {
        std::size_t begin = 0;
        for (const std::size_t end : ends) {
            copying.copyGroup(std::span(all).subspan(begin, end - begin));
            begin = end;
        }
    }
    for (const std::unique_ptr<StoreCopy>& copy : all)
        named(copy->path(), [&] { copy->finish(); });
    return copying.account();
}

} // namespace platform::storage
