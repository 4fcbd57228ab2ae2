// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What a damaged file still holds: its tables, and for each the leaf pages whose rows belong to it. Trees are
// walked from their roots as far as they hold together; leaf pages that no tree reaches and no free list
// names go to a table with a broken tree whose columns their rows fit.

#include "platform/storage/sqlite/pagefile.h"
#include "platform/storage/storage.h"

#include <QHash>

namespace platform::storage::sqlite {

/// An index of the damaged file itself.
struct SalvagedIndex
{
    QStringList columns;
    int rank = 0;     ///< 0 primary, 1 unique, 2 neither
    quint32 root = 0; ///< 0 when the schema doesn't tell it any more
};

struct SalvagedTable
{
    TableDefinition definition;
    int rowIdColumn = -1; ///< column that is only another name of the row number; -1 when there is none
    std::vector<quint32> leaves; ///< pages with its rows
    std::vector<SalvagedIndex> indexes;
};

struct Salvage
{
    std::vector<SalvagedTable> tables;
    CreateOptions options;
};

/// `expected` stands in for tables that the file's own schema doesn't tell any more, and completes their
/// indexes.
[[nodiscard]] Salvage salvageTables(const PageFile& file, const QList<TableDefinition>& expected);

} // namespace platform::storage::sqlite
