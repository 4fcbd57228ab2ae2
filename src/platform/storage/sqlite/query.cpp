// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/storage/sqlite/query.h"

#include "platform/storage/sqlite/querywriter.h"

namespace platform::storage::sqlite {

ResultSet runQuery(const Store& store, const sql::Select& select, const StoredTable& table)
{
    WrittenQuery written = writeQuery(select, table);
    const SelectOnly selectOnly(store.authorizer());
    Statement statement = store.prepare(written.sql, Task::Read);
    for (std::size_t i = 0; i < written.values.size(); ++i)
        statement.bind(static_cast<int>(i) + 1, written.values[i]);

    ResultSet result;
    result.values.resize(written.columns.size());
    const int first = written.wholeRows ? 1 : 0;
    Run run(statement, Task::Read);
    while (run.next()) {
        for (std::size_t i = 0; i < result.values.size(); ++i)
            readCell(statement.get(), first + static_cast<int>(i), result.values[i].emplace_back());
        if (written.wholeRows)
            result.rowIds.push_back(integerAt(statement, 0));
        ++result.rowCount;
    }
    result.columns = std::move(written.columns);
    if (written.wholeRows)
        result.table = table.definition.name;
    return result;
}

} // namespace platform::storage::sqlite
