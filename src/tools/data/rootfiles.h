// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Which files of a data root are the program's: the catalogue, the stores of every company folder, the shared
// telephones, and the report files.

#include "stores/schema.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace tools {

/// Refuses a folder that isn't there or has no catalogue, with a `ToolError`.
void requireDataRoot(const QString& folder);

/// The store whose file bears that name, case ignored; null for any other file.
[[nodiscard]] const stores::StoreSchema* storeNamed(const QString& fileName);

struct RootFiles
{
    /// Paths from the root on, with "/": the stores of the root itself, then those of each company.
    QList<QStringList> stores;
    QStringList reports;
};

/// What is there now, sorted by name. Paths are as the disk spells them.
[[nodiscard]] RootFiles rootFiles(const QString& folder);

} // namespace tools
