// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What a `Recordset` handle refers to: what table-type recordsets and query recordsets have in common.

#include "platform/dao/columnnames.h"
#include "platform/dao/editbuffer.h"
#include "platform/dao/states.h"

#include <memory>
#include <span>
#include <vector>

namespace platform::dao {

struct RecordsetState : std::enable_shared_from_this<RecordsetState>
{
    RecordsetState(std::shared_ptr<DatabaseState> openDatabase, QList<storage::Column> declared);
    virtual ~RecordsetState();
    RecordsetState(const RecordsetState&) = delete;
    RecordsetState& operator=(const RecordsetState&) = delete;

    [[nodiscard]] bool isClosed() const noexcept { return m_database == nullptr; }
    /// Drops the pending edit and leaves the database's collection. Nothing happens when it is closed
    /// already.
    void close() noexcept;

    [[nodiscard]] const QList<storage::Column>& columns() const noexcept { return m_columns; }
    [[nodiscard]] const std::shared_ptr<FieldState>& field(int position) const;     ///< 3265
    [[nodiscard]] const std::shared_ptr<FieldState>& field(QStringView name) const; ///< 3265

    /// From the edit buffer while an edit is pending, else from the current row.
    [[nodiscard]] Value value(int column);
    void setValue(int column, const Value& value);

    // Members of a table-type recordset; 3251 elsewhere.
    [[nodiscard]] virtual QString index() const;
    virtual void setIndex(const QString& name);
    virtual void seek(QStringView comparison, std::span<const Value> keys);
    [[nodiscard]] virtual bool noMatch() const;

    virtual void moveFirst() = 0;
    virtual void moveNext() = 0;
    virtual void moveLast() = 0;
    [[nodiscard]] virtual bool bof() = 0;
    [[nodiscard]] virtual bool eof() = 0;
    [[nodiscard]] virtual int recordCount() = 0;

    virtual void addNew() = 0;
    virtual void edit() = 0;
    void update();
    virtual void erase() = 0;

    /// Fills the columns with at most `count` rows from the current one on and moves behind them. 3021.
    [[nodiscard]] virtual std::shared_ptr<std::vector<std::vector<Value>>>
    rows(qsizetype count, qsizetype& first, qsizetype& taken);

    bool lockEdits = true; ///< kept; editing holds no lock either way

protected:
    [[nodiscard]] DatabaseState& database() const { return *m_database; }
    [[nodiscard]] storage::Connection& connection() const { return *m_database->connection; }
    /// Counts a write, so that copies made before it are looked at anew.
    void noteOwnChange() { ++m_database->ownChanges; }

    [[nodiscard]] virtual Value currentValue(int column) = 0;
    /// Writes the pending edit; the base class drops it afterwards.
    virtual void writeEdit() = 0;
    /// The columns with their declared limits, for values that go into the buffer.
    [[nodiscard]] virtual const storage::Column& target(int column) const;
    /// Gives up what holds on to the connection.
    virtual void release() noexcept = 0;

    EditBuffer m_edit;

private:
    std::shared_ptr<DatabaseState> m_database; ///< null once closed
    QList<storage::Column> m_columns;
    ColumnNames m_names;
    std::vector<std::shared_ptr<FieldState>> m_fields;
};

} // namespace platform::dao
