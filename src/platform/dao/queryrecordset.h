// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Dynaset and snapshot: the rows of a query, all copied when it is opened. Membership and order never change
// afterwards. A result that takes every column of one table can be edited, row by row, if it is a dynaset.

#include "platform/dao/recordsetstate.h"

namespace platform::dao {

struct QueryRecordset final : RecordsetState
{
    QueryRecordset(std::shared_ptr<DatabaseState> openDatabase, storage::ResultSet result, bool dynaset);

    void moveFirst() override;
    void moveNext() override;
    void moveLast() override;
    [[nodiscard]] bool bof() override;
    [[nodiscard]] bool eof() override;
    [[nodiscard]] int recordCount() override;

    void addNew() override;
    void edit() override;
    void erase() override;

    [[nodiscard]] std::shared_ptr<std::vector<std::vector<Value>>> rows(qsizetype count, qsizetype& first,
                                                                        qsizetype& taken) override;

private:
    [[nodiscard]] Value currentValue(int column) override;
    void writeEdit() override;
    [[nodiscard]] const storage::Column& target(int column) const override;
    void release() noexcept override;

    void requireRow() const;
    void moveTo(qsizetype row);
    [[nodiscard]] storage::Table& table();

    std::shared_ptr<std::vector<std::vector<Value>>> m_values; ///< [column][row], shared with `GetRows`
    qsizetype m_rowCount;
    std::vector<storage::RowId> m_rowIds;
    QString m_tableName;                     ///< empty: can't be edited
    std::unique_ptr<storage::Table> m_table; ///< opened by the first `Edit`
    qsizetype m_current = 0;
    qsizetype m_visited = 0;
};

} // namespace platform::dao
