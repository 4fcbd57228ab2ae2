// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/core/failure.h"

#include <QString>

namespace tools {

/// Why a store can't be opened, in a few Spanish words.
[[nodiscard]] QString openingFault(const platform::Failure& failure);

} // namespace tools
