// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/storage/storage.h"

namespace platform::storage {

int TableDefinition::columnIndex(QStringView columnName) const
{
    for (qsizetype i = 0; i < columns.size(); ++i) {
        if (columns.at(i).name.compare(columnName, Qt::CaseInsensitive) == 0)
            return static_cast<int>(i);
    }
    return -1;
}

const IndexDefinition* TableDefinition::index(QStringView indexName) const
{
    for (const IndexDefinition& candidate : indexes) {
        if (candidate.name.compare(indexName, Qt::CaseInsensitive) == 0)
            return &candidate;
    }
    return nullptr;
}

} // namespace platform::storage
