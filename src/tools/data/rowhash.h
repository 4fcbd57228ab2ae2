// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Short words that stand for what a table holds: one for its shape, one for each row. Equal words mean equal
// content; the order of the rows doesn't count.

#include "platform/storage/storage.h"

#include <QByteArray>
#include <QMap>

namespace tools {

/// Rows by number, each with the first 16 bytes of the SHA-256 of its values.
using RowHashes = QMap<platform::storage::RowId, QByteArray>;

struct TableHashes
{
    QString table;
    QByteArray shape; ///< of names, types and sizes of the columns, and of the indexes
    RowHashes rows;

    friend bool operator==(const TableHashes&, const TableHashes&) = default;
};

/// Every table of the store. Reads each row once.
[[nodiscard]] QList<TableHashes> hashesOf(platform::storage::Connection& store);

} // namespace tools
