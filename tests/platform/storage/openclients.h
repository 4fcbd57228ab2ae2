// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// An open table to read from and write to.

#include "platform/storage/storefixture.h"

namespace platform::storage::test {

/// A store with the table of `clients()`, opened.
struct OpenClients
{
    StoreFolder folder;
    std::unique_ptr<Connection> connection = folder.createClients();
    std::unique_ptr<Table> table = connection->openTable(u"CLIENTES"_s);

    [[nodiscard]] std::optional<RowId> seek(const QString& index, const std::vector<Value>& keys,
                                            Row& row) const
    {
        return table->seek(index, keys, row);
    }
    [[nodiscard]] std::optional<RowId> seek(const QString& index, const std::vector<Value>& keys) const
    {
        Row row;
        return table->seek(index, keys, row);
    }
    /// The names in the order of an index.
    [[nodiscard]] QStringList names(const QString& index) const
    {
        QStringList found;
        for (const RowId id : table->order(index)) {
            Row row;
            if (table->read(id, row))
                found.append(std::get<QString>(row[1]));
        }
        return found;
    }
};

} // namespace platform::storage::test
