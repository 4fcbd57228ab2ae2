// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/storefixture.h"

#include "platform/storage/storage.h"

#include <QFileInfo>

namespace platform::print {

void givenTable(const QString& path, const QString& table, const QStringList& columns,
                const std::vector<std::vector<Value>>& rows)
{
    const std::shared_ptr<storage::Engine> engine = storage::sqliteEngine();
    const std::unique_ptr<storage::Connection> connection =
        QFileInfo::exists(path) ? engine->open(path, storage::Sharing::Shared) : engine->create(path, {});
    storage::TableDefinition definition;
    definition.name = table;
    for (const QString& column : columns) {
        storage::Column made;
        made.name = column;
        made.size = 255;
        made.allowZeroLength = true;
        if (column.endsWith(u'#') || column.endsWith(u'+')) {
            made.name.chop(1);
            made.type = column.endsWith(u'#') ? storage::ColumnType::Number : storage::ColumnType::Memo;
            made.size = 0;
        }
        definition.columns += made;
    }
    connection->createTable(definition);
    connection->openTable(table)->insertMany(rows);
}

} // namespace platform::print
