// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What a copy of a data root should hold, kept in the copy itself as `orvane-copia.txt`:
//
//   orvane-copia 1
//   momento 2026-11-21T01:43:00Z
//   base SHA-256 SIZE PATH              one for each store, PATH from the root on, percent-encoded
//   tabla ROWS SHAPE NAME               after its store, one for each table
//   NUMBER HASH                         after its table, one for each row
//   fichero SHA-256 SIZE PATH           one for each other file
//   fin SHA-256                         of all the bytes before this line

#include "tools/data/rowhash.h"

#include <QDateTime>
#include <QList>
#include <QString>

namespace tools {

struct CopiedFile
{
    QString path; ///< from the root on, with "/"
    qint64 size = 0;
    QByteArray sha256; ///< 32 bytes
    bool isStore = false;
    QList<TableHashes> tables; ///< of a store
};

struct Manifest
{
    QDateTime moment; ///< UTC
    QList<CopiedFile> files;

    [[nodiscard]] qint64 rowCount() const;
};

/// Where the manifest of a copy stands.
[[nodiscard]] QString manifestPath(const QString& copy);

/// Writes the manifest into the folder of the copy, lastingly. `ToolError` when that fails.
void writeManifest(const Manifest& manifest, const QString& copy);

/// `ToolError` when the folder is no copy, or the manifest isn't what was written.
[[nodiscard]] Manifest readManifest(const QString& copy);

} // namespace tools
