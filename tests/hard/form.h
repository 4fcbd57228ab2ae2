// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The short form runs with every test run; the long one, `./dev hard`, takes its time.

#include <QString>

namespace hardtest {

[[nodiscard]] inline bool isLongForm()
{
    return qEnvironmentVariable("ORVANE_HARD") == QLatin1String("long");
}

template <typename T>
[[nodiscard]] T byForm(T shortForm, T longForm)
{
    return isLongForm() ? longForm : shortForm;
}

} // namespace hardtest
