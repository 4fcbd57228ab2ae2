// SPDX-License-Identifier: GPL-3.0-or-later
#include "hard/faultydisk.h"

#include <utility>

namespace hardtest {

void FaultyDisk::arm(const DiskFault& fault, int nth, std::function<void()> onFault)
{
    m_fault = &fault;
    m_nth = nth;
    m_calls = 0;
    m_refused = false;
    m_onFault = std::move(onFault);
}

int FaultyDisk::before(const VfsEvent& event)
{
    if (m_fault == nullptr || event.call != m_fault->call)
        return 0;
    ++m_calls;
    const bool isRefused = m_calls == m_nth || (m_fault->forGood && m_nth != 0 && m_calls > m_nth);
    if (!isRefused)
        return 0;
    if (!std::exchange(m_refused, true) && m_onFault)
        m_onFault();
    return m_fault->code;
}

} // namespace hardtest
