// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Table-type recordset: a held position on a table, in the order of an index.
//
// Nothing is kept open in the storage between two calls. `Seek`, `MoveFirst` and `MoveLast` each read their
// row with one question and never build a list; `MoveNext` goes along a list of row numbers that is kept
// while the store stands still, and reads rows ahead, only the columns that the walk uses. What is read is
// trusted as freshness.h says.

#include "platform/dao/recordsetstate.h"
#include "platform/dao/rowblock.h"

namespace platform::dao {

struct TableRecordset final : RecordsetState
{
    TableRecordset(std::shared_ptr<DatabaseState> openDatabase, std::unique_ptr<storage::Table> openTable);

    [[nodiscard]] QString index() const override;
    void setIndex(const QString& name) override;
    void seek(QStringView comparison, std::span<const Value> keys) override;
    [[nodiscard]] bool noMatch() const override;

    void moveFirst() override;
    void moveNext() override;
    void moveLast() override;
    [[nodiscard]] bool bof() override;
    [[nodiscard]] bool eof() override;
    [[nodiscard]] int recordCount() override;

    void addNew() override;
    void edit() override;
    void erase() override;

private:
    // What is current. First: the first record, not looked at yet (after the opening and after `Index`).
    enum class At { First, Row, Deleted, Nowhere };
    using End = std::optional<storage::RowId> (storage::Table::*)(const QString&, storage::Row&);

    [[nodiscard]] Value currentValue(int column) override;
    void writeEdit() override;
    void release() noexcept override;

    // tablerecordset.cpp
    void resolveFirst();
    void requireRow();
    void moveToEnd(End end, bool atStart);
    void standOn(storage::RowId id);
    void wantKeyColumns();
    void lookAgain();
    [[nodiscard]] std::span<const Value> convertKeys(std::span<const Value> keys);

    // tablewalk.cpp
    [[nodiscard]] qsizetype nextPosition();
    [[nodiscard]] qsizetype successor(const std::vector<storage::RowId>& replaced);
    [[nodiscard]] bool standsBefore(storage::RowId id);
    [[nodiscard]] const Value& walkedCell(int column);
    void loadRow();
    void trustRow();
    void trustBlock();
    [[noreturn]] void loseRow();

    std::unique_ptr<storage::Table> m_table;
    QString m_indexName;                               ///< empty: none was set, primary order
    const storage::IndexDefinition* m_index = nullptr; ///< borrowed from the table's definition
    std::vector<int> m_keyColumns;                     ///< positions of the index's columns
    std::vector<Value> m_keys;                         ///< of the seek that is running

    At m_at = At::First;
    storage::RowId m_id = 0;
    bool m_bof = false;
    bool m_eof = false;
    bool m_endsUnknown = false; ///< a seek came before the first record was looked at
    bool m_noMatch = false;

    storage::Row m_row;     ///< copy of the current row
    bool m_hasRow = false;  ///< else the row is only in the block read ahead
    bool m_isWhole = false; ///< else the copy holds only the columns of `m_sought`
    SoughtColumns m_sought; ///< what is read after a seek, and the columns of the index
    bool m_walking = false; ///< the current row was reached by a move
    Stamp m_rowStamp;
    storage::Row m_found; ///< scratch, so that a failing seek leaves the row

    WalkList m_list;
    qsizetype m_position = -1; ///< where the current row is or was in the list, if it's known
    ReadAhead m_ahead;
    WalkColumns m_walkColumns;
};

} // namespace platform::dao
