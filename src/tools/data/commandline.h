// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The command line of `orvane-data`: reads the arguments, calls the command, says what happened.

#include <QStringList>
#include <QTextStream>

namespace tools {

/// Exit codes of the tool.
enum ExitCode { ExitClean = 0, ExitFaults = 1, ExitRefused = 2 };

/// Runs one call of the tool. `arguments` come without the program's name. Results go to `out`; what was
/// refused goes to `err` in one line.
[[nodiscard]] int runDataTool(const QStringList& arguments, QTextStream& out, QTextStream& err);

} // namespace tools
