// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Paths as the program builds them, with "\" between the parts, and what they mean on the disk.
// "\" and "/" both separate, doubled ones collapse, names compare without regard to case.

#include <QString>

namespace platform {

/// The current directory, read afresh, with "\" between the parts and none at the end (but for a root).
[[nodiscard]] QString currentDirectory();

/// The native path of a program's path. Each part is looked up on the disk: an exact match first, else the
/// first match without regard to case in sorted order, else the part as written (so a file can be created
/// there). A relative path counts from the current directory. The result is absolute and, where it exists,
/// canonical.
[[nodiscard]] QString nativePath(const QString& path);

/// A native path in the program's form, with "\".
[[nodiscard]] QString programPath(const QString& native);

} // namespace platform
