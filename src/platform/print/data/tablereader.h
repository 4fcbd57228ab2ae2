// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Takes the rows of one table out of an open store, a few at a time.

#include "platform/core/failure.h"
#include "platform/print/data/rows.h"
#include "platform/print/problem.h"
#include "platform/storage/sqlite/schema.h"
#include "platform/storage/sqlite/store.h"

#include <optional>

namespace platform::print {

/// Why a store can't be read, from a failure of the storage: file missing (7), busy, damaged or unreadable
/// (18).
[[nodiscard]] Problem readProblem(const Failure& failure, const QString& path);

class TableReader
{
public:
    /// Rows by row number, only the columns named by position; all of them, or those that meet a condition of
    /// `pushedCondition`. The store stays open and within a transaction for as long as this lives.
    TableReader(const storage::sqlite::Store& store, QString path, const storage::sqlite::StoredTable& table,
                const std::vector<int>& columns, const QByteArray& condition);

    /// Reads some more rows; with a condition it looks at so many at most, whether they meet it or not. False
    /// when all are read. Throws `Problem` (18).
    bool step();
    /// Rows taken so far.
    [[nodiscard]] quint32 rowCount() const noexcept { return m_count; }
    /// What has been read; a value of another class than its column's has become the column's type. Once.
    [[nodiscard]] RowStore takeRows();

private:
    bool beginRange();
    bool readRow();

    QString m_path;
    storage::sqlite::Statement m_first; ///< least row number from the one given on
    storage::sqlite::Statement m_statement;
    std::optional<storage::sqlite::Run> m_run;
    std::vector<formula::Type> m_types;
    RowStore m_rows;
    qint64 m_next;
    qint64 m_rangeLength;
    bool m_isLastRange = false;
    quint32 m_count = 0;
};

} // namespace platform::print
