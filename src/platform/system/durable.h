// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Files and names that outlast a loss of power. Never for a store file that anyone may have open: closing a
// plain descriptor would drop the engine's locks on it.

#include <QString>

namespace platform {

/// Brings a file's bytes, or a folder's names, onto the disk. 3043 when the disk refuses, 3026 when it is
/// full, 53 when there is no such file.
void makeLasting(const QString& path);

/// Gives a file or folder another name in the same folder, in the place of the file or empty folder that bore
/// it, and makes that lasting. 3051 when the name can't be given.
void renameLasting(const QString& from, const QString& to);

/// Whether both paths lead to the same file or folder. False unless both are there.
[[nodiscard]] bool isSameFile(const QString& left, const QString& right);

} // namespace platform
