// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Small store files for report tests, made by the storage engine itself.

#include "platform/core/value.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace platform::print {

/// Adds a table to a store, which is made if it isn't there. A column is "NAME" (text), "NAME#" (number) or
/// "NAME+" (memo).
void givenTable(const QString& path, const QString& table, const QStringList& columns,
                const std::vector<std::vector<Value>>& rows);

} // namespace platform::print
