// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Rows as full as their tables let them be.

#include "platform/dao/dao.h"

#include <QMap>

namespace looks {

/// A text of wide letters, letters with accents and letters that hang down, that many long. The number at its
/// beginning tells one from another.
[[nodiscard]] QString longText(int length, int number);

/// Adds a row in which every text has the length of its column and every number all the figures that people
/// write; the number tells it from the others. The columns given hold what is given instead.
void addFullRow(platform::dao::Database& store, const QString& table, int number,
                const QMap<QString, platform::Value>& given);

} // namespace looks
