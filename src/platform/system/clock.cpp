// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/system/clock.h"

namespace platform {

namespace {

std::function<QDateTime()> replacedClock;

} // namespace

QDateTime now()
{
    return replacedClock ? replacedClock() : QDateTime::currentDateTime();
}

void setClock(std::function<QDateTime()> clock)
{
    replacedClock = std::move(clock);
}

} // namespace platform
