// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Long work that leaves windows alive: it is done in slices of the event loop, one slice in each turn,
// whoever's work it is. All of it runs on the user interface thread.

#include <functional>

namespace platform::print {

/// How long a slice goes on. Its last step and what it shows come on top; together they stay below 30 ms.
inline constexpr int kSliceMilliseconds = 20;

class SlicedWork
{
public:
    /// `slice` does part of the work, for about `kSliceMilliseconds`; it may stop the work, it must not end
    /// this object.
    explicit SlicedWork(std::function<void()> slice);
    ~SlicedWork();
    SlicedWork(const SlicedWork&) = delete;
    SlicedWork& operator=(const SlicedWork&) = delete;

    /// Takes its turn behind the works that have been started before.
    void start();
    void stop();
    [[nodiscard]] bool isActive() const;

private:
    friend class SliceQueue;

    std::function<void()> m_slice;
};

} // namespace platform::print
