// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QTextStream>

namespace tools {

/// Repairs a store as the program repairs the assistance store, and tells what was saved and what is lost, a
/// line each. A sound store isn't touched. The tables of a file under one of the program's names are made
/// anew where the damage took them. True when nothing is lost. `ToolError` when the file isn't there, is in
/// use or can't be written.
[[nodiscard]] bool repairFile(const QString& file, QTextStream& out);

} // namespace tools
