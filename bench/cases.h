// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What is measured. Each gives one case over the data root of `makeDataRoot`; all six stores are open.

#include "measure.h"

#include <QString>

namespace bench {

[[nodiscard]] Case seekCase();
[[nodiscard]] Case walkCase();
[[nodiscard]] Case listCase();
[[nodiscard]] Case saveCase();
[[nodiscard]] Case startCase();

/// The six stores, closed and opened as at a start.
void bringUpStores();

} // namespace bench
