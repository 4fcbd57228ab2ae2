// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/fixedclock.h"

#include "platform/system/clock.h"

namespace testsupport {

FixedClock::FixedClock(const QDateTime& time)
    : m_time(time)
{
    platform::setClock([this] { return m_time; });
}

FixedClock::~FixedClock()
{
    platform::setClock({});
}

} // namespace testsupport
