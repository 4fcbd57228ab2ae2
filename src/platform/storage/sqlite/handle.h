// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Owners of the SQLite handles, and the one place where SQLite's result codes become failures with the data
// engine's numbers.

#include "platform/core/value.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace platform::storage::sqlite {

/// What was being done when SQLite refused: the same code has another number at an open than at an update.
enum class Task { Open, Read, Write, Structure };

/// The failure number of "someone else holds the lock" for a task.
[[nodiscard]] int lockedNumber(Task task) noexcept;

/// Throws the failure for a result code of SQLite. Out of memory comes as `std::bad_alloc`.
[[noreturn]] void fail(int code, sqlite3* database, Task task);

/// A name as SQLite reads it: in double quotes, those within doubled.
[[nodiscard]] QByteArray quoted(const QString& name);

/// An open SQLite file; closes itself.
class Database
{
public:
    Database() = default;
    explicit Database(sqlite3* handle);

    [[nodiscard]] sqlite3* get() const noexcept { return m_handle.get(); }
    /// Runs statements that give no rows. Only text of our own, never a user's.
    void execute(const QByteArray& sql, Task task) const;
    /// First column of the first row as a number, 0 without a row. Only text of our own.
    [[nodiscard]] qint64 number(const QByteArray& sql, Task task) const;

private:
    struct Close
    {
        void operator()(sqlite3* handle) const noexcept;
    };
    std::unique_ptr<sqlite3, Close> m_handle;
};

/// A prepared statement. It is always reset by the `Run` that steps it, so no lock outlives a call.
class Statement
{
public:
    Statement() = default;
    /// Prepares the first statement of `sql`.
    Statement(sqlite3* database, const QByteArray& sql, Task task);

    [[nodiscard]] explicit operator bool() const noexcept { return m_statement != nullptr; }
    [[nodiscard]] sqlite3_stmt* get() const noexcept { return m_statement.get(); }

    /// Binds parameter `position` (from 1). Whole numbers are bound as integers, so that a text column
    /// compares them without a decimal point.
    void bind(int position, const Value& value);
    void bind(int position, qint64 number);

    /// One step: true when there is a row, false at the end.
    [[nodiscard]] bool step(Task task);
    void reset() noexcept;

private:
    struct Finalize
    {
        void operator()(sqlite3_stmt* statement) const noexcept;
    };
    std::unique_ptr<sqlite3_stmt, Finalize> m_statement;
    std::vector<QByteArray> m_texts; ///< bound texts, which SQLite borrows
};

/// One execution of a statement: resets it on every way out.
class Run
{
public:
    Run(Statement& statement, Task task) noexcept
        : m_statement(statement)
        , m_task(task)
    {}
    ~Run() { m_statement.reset(); }
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

    [[nodiscard]] bool next() { return m_statement.step(m_task); }
    /// Steps a statement that gives no rows.
    void finish() { static_cast<void>(m_statement.step(m_task)); }

private:
    Statement& m_statement;
    Task m_task;
};

/// Copies column `column` (from 0) of the current row into `cell`, by the storage class of the value.
void readCell(sqlite3_stmt* statement, int column, Value& cell);
/// Column `column` as text; "" for Null.
[[nodiscard]] QString textAt(const Statement& statement, int column);
[[nodiscard]] qint64 integerAt(const Statement& statement, int column) noexcept;

} // namespace platform::storage::sqlite
