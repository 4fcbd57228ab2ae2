// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A place for tests to stand between the program and the data access objects. The program itself never sets
// it.

#include <QStringView>

#include <functional>

namespace platform::dao {

/// Called before a member of a bound object runs; what it throws, the member throws. `column` is the
/// column's name for the members of a `Field`, else empty.
using CallProbe = std::function<void(QStringView column)>;

/// Sets the probe; an empty function takes it away.
void setCallProbe(CallProbe probe);

namespace detail {
extern CallProbe callProbe;
}

inline void probeCall(QStringView column = {})
{
    if (detail::callProbe)
        detail::callProbe(column);
}

} // namespace platform::dao
