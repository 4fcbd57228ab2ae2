// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Files that nobody has open, byte for byte.

#include <QByteArray>
#include <QString>

namespace tools {

struct Imprint
{
    qint64 size = 0;
    QByteArray sha256;

    friend bool operator==(const Imprint&, const Imprint&) = default;
};

/// Size and hash of a file. `ToolError` when it can't be read to its end.
[[nodiscard]] Imprint imprintOf(const QString& path);

/// Copies a file to a name that is free, lastingly, and gives the imprint of what was read. Folders on the
/// way are made. `ToolError` when it can't be done.
Imprint copyPlainFile(const QString& from, const QString& to);

/// Makes the folders that the file will stand in.
void makeFolderOf(const QString& path);

} // namespace tools
