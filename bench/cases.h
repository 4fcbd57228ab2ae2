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
[[nodiscard]] Case showCase();
[[nodiscard]] Case openLookupCase();
[[nodiscard]] Case typedSearchCase();

/// 99th percentiles in milliseconds: a letter typed to the moved and painted selection among 100,000 clients,
/// and a bare view that moves its selection and repaints.
struct KeyTimes
{
    double ours;
    double bareView;
};
[[nodiscard]] KeyTimes lookupKeyTimes();

/// The six stores, closed and opened as at a start.
void bringUpStores();

} // namespace bench
