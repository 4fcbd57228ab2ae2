// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/dao/callprobe.h"

#include <utility>

namespace platform::dao {

CallProbe detail::callProbe;

void setCallProbe(CallProbe probe)
{
    detail::callProbe = std::move(probe);
}

} // namespace platform::dao
