// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Checks a whole data root: every store of every company, and the telephones that all of them share.

#include <QString>
#include <QTextStream>

namespace tools {

/// Checks the data root in `folder` and writes what it finds to `out`, one line a finding and one line at the
/// end. True when there is no fault. Changes no store: it opens each as a station does, shared, and waits its
/// turn at the gate; as with a station, a lock file comes to stand beside a store that had none. Throws
/// `ToolError` when the folder is no data root.
[[nodiscard]] bool checkRoot(const QString& folder, QTextStream& out);

} // namespace tools
