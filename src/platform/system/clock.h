// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The clock of the program. A test sets it; the program only reads it.

#include <QDateTime>

#include <functional>

namespace platform {

[[nodiscard]] QDateTime now();

/// Replaces the clock; an empty function brings the system's back.
void setClock(std::function<QDateTime()> clock);

} // namespace platform
