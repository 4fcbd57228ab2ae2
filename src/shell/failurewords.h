// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What the user is told of a failure that no procedure takes.

#include <QString>

namespace shell {

/// A sentence in Spanish for a number of `failurenumbers.h`; empty for any other number.
[[nodiscard]] QString failureWords(int number);

} // namespace shell
