// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A disk that refuses: the nth call of one kind fails, once or from then on. Until it is armed everything
// passes.

#include "hard/observedvfs.h"

#include <functional>

namespace hardtest {

struct DiskFault
{
    const char* name;
    VfsCall call;
    int code;     ///< SQLite's result code, which the call is given in place of being made
    bool forGood; ///< every later call of the kind fails as well
};

class FaultyDisk final : public VfsObserver
{
public:
    /// Calls of the kind are counted from 1; `nth` 0 only counts. `onFault` runs when the first one is
    /// refused.
    void arm(const DiskFault& fault, int nth, std::function<void()> onFault = {});
    void disarm() { m_fault = nullptr; }

    [[nodiscard]] int calls() const { return m_calls; }
    [[nodiscard]] bool hasRefused() const { return m_refused; }

    int before(const VfsEvent& event) override;

private:
    const DiskFault* m_fault = nullptr;
    int m_nth = 0;
    int m_calls = 0;
    bool m_refused = false;
    std::function<void()> m_onFault;
};

} // namespace hardtest
