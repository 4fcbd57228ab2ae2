// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Values as byte keys whose order is the order of the values: for sorting, grouping, links and distinct
// counts.

#include "platform/print/formula/value.h"

#include <QByteArray>

namespace platform::print {

/// No value gives the empty key, which comes first. Keys of one type compare by their bytes.
[[nodiscard]] QByteArray valueKey(const formula::Value& value, bool caseSensitive);

} // namespace platform::print
