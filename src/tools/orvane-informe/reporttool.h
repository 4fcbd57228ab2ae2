// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The report tool's commands: `check` tells every fault of a definition, `render` makes a PDF or CSV of it,
// `fields` lists what it reads.

#include <QStringList>

class QTextStream;

namespace orvane::tools {

/// Runs one command line, without the program's name. 0 when all is well, 1 when a file has faults or a
/// report can't be made, 2 for a wrong command line.
[[nodiscard]] int runReportTool(const QStringList& arguments, QTextStream& out, QTextStream& err);

} // namespace orvane::tools
