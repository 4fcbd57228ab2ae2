// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What a damaged store has lost, in Spanish lines.

#include "platform/storage/upkeep.h"
#include "tools/data/findings.h"

namespace tools {

/// Looks into a damaged store, which must not be open here, and tells for each table a notice of what can
/// still be read, and a fault for each row that is lost, named by its key as far as an index tells it.
void tellLosses(const QString& path, const QString& file,
                const QList<platform::storage::TableDefinition>& expected, Findings& findings);

/// The same of tables that were examined already.
void tellLosses(const std::vector<platform::storage::TableLosses>& tables, const QString& file,
                Findings& findings);

} // namespace tools
