// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Copies of a data root: made while stations work, verified row by row, put back.
//
// A copy is a folder with the root's stores and report files under their own names, and the list of what they
// hold (see manifest.h). Any program that reads SQLite can look into it.

#include "platform/storage/upkeep.h"

#include <QString>
#include <QTextStream>

namespace tools {

/// Copies the data root `folder` to `copy`, a folder that must be missing or empty. It grows under another
/// name beside it and has its own only when it is complete, on the disk and listed. Says what it did on
/// `out`.
///
/// `ToolError` when a folder can't be used, or a store can't be had or is damaged; nothing is left then.
void backUp(const QString& folder, const QString& copy, QTextStream& out);

/// Holds every byte and every row of the copy against its list; one line on `out` for each fault, and one at
/// the end. True when there is none. Changes nothing. `ToolError` when the folder is no copy.
[[nodiscard]] bool verifyCopy(const QString& copy, QTextStream& out);

/// Puts a copy back into `folder`. It is verified first, and a faulty one is not used: false, with its faults
/// on `out`. A missing or empty folder becomes the data root in one step. With `replaces`, a folder with
/// content keeps what the copy doesn't have; each store of the copy takes the place of the one that is there,
/// which is kept as `<name>.anterior-N`, and a store of the same companies that the copy lacks is put aside
/// in the same way. All stores are had alone before the first is replaced.
///
/// `ToolError` when the folder has content and `replaces` isn't set, when a store is in use, or when the disk
/// refuses. Before the first replacement nothing has changed then.
[[nodiscard]] bool restore(const QString& copy, const QString& folder, bool replaces, QTextStream& out);

} // namespace tools
