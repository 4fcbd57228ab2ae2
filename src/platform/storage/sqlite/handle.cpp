// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/storage/sqlite/handle.h"

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"

#include <sqlite3.h>

#include <cmath>
#include <new>

namespace platform::storage::sqlite {

namespace {

/// Largest whole number up to which a double holds every integer.
constexpr double kExactIntegers = 9007199254740992.0;

int constraintNumber(int extendedCode) noexcept
{
    switch (extendedCode) {
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_ROWID:
        return kDuplicateKey;
    case SQLITE_CONSTRAINT_NOTNULL:
        return kNullInPrimaryKey;
    default:
        return kInvalidOperation;
    }
}

/// Errors of the text of a statement. The tree was checked before, so these come from a structure that
/// another station changed meanwhile, or from a function that refused its argument.
int textErrorNumber(const QString& message) noexcept
{
    if (message.startsWith(QLatin1String("no such table")))
        return kInputTableNotFound;
    if (message.startsWith(QLatin1String("no such column")) ||
        message.contains(QLatin1String("has no column named")))
        return kItemNotInCollection;
    if (message.startsWith(QLatin1String("no such index")))
        return kNoSuchIndex;
    return kSyntaxError;
}

int failureNumber(int code, Task task, const QString& message) noexcept
{
    if (code == SQLITE_IOERR_LOCK || code == SQLITE_IOERR_RDLOCK || code == SQLITE_IOERR_UNLOCK)
        return lockedNumber(task);
    switch (code & 0xff) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
    case SQLITE_PROTOCOL:
        return lockedNumber(task);
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        return kNotADatabase;
    case SQLITE_FULL:
        return kDiskFull;
    case SQLITE_READONLY:
        return kReadOnly;
    case SQLITE_TOOBIG:
        return kRecordTooLarge;
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
        return kCannotOpenFile;
    case SQLITE_CONSTRAINT:
        return constraintNumber(code);
    case SQLITE_AUTH:
        return kInvalidOperation;
    case SQLITE_ERROR:
        return textErrorNumber(message);
    default:
        return kDiskOrNetworkError;
    }
}

/// Widens plain ASCII into `text`, whose own memory serves again where nobody shares it. False when a byte is
/// not ASCII; `text` is then left undefined.
bool assignAscii(QString& text, const char* bytes, int length)
{
    if (!text.isDetached() || text.capacity() < length)
        text = QString(length, Qt::Uninitialized);
    else
        text.resize(length);
    QChar* const target = text.data();
    unsigned char seen = 0;
    for (int i = 0; i < length; ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        seen = static_cast<unsigned char>(seen | byte);
        target[i] = QChar(char16_t{byte});
    }
    return seen < 0x80;
}

/// Most texts of a store are plain ASCII, so those go the short way.
void assignText(Value& cell, const char* bytes, int length)
{
    if (!std::holds_alternative<QString>(cell))
        cell.emplace<QString>();
    QString& text = *std::get_if<QString>(&cell);
    if (length == 0)
        text = QLatin1String("");
    else if (!assignAscii(text, bytes, length))
        text = QString::fromUtf8(bytes, length);
}

} // namespace

int lockedNumber(Task task) noexcept
{
    switch (task) {
    case Task::Open:
        return kCouldNotLockFile;
    case Task::Structure:
        return kCouldNotLockTable;
    case Task::Read:
    case Task::Write:
        break;
    }
    return kLockedByAnother;
}

void fail(int code, sqlite3* database, Task task)
{
    if ((code & 0xff) == SQLITE_NOMEM)
        throw std::bad_alloc();
    const QString message =
        QString::fromUtf8(database != nullptr ? sqlite3_errmsg(database) : sqlite3_errstr(code));
    throw Failure(failureNumber(code, task, message), message);
}

QByteArray quoted(const QString& name)
{
    QByteArray text = name.toUtf8();
    text.replace('"', "\"\"");
    return '"' + text + '"';
}

Database::Database(sqlite3* handle)
    : m_handle(handle)
{}

void Database::Close::operator()(sqlite3* handle) const noexcept
{
    sqlite3_close_v2(handle);
}

void Database::execute(const QByteArray& sql, Task task) const
{
    const int code = sqlite3_exec(get(), sql.constData(), nullptr, nullptr, nullptr);
    if (code != SQLITE_OK)
        fail(code, get(), task);
}

qint64 Database::number(const QByteArray& sql, Task task) const
{
    Statement statement(get(), sql, task);
    Run run(statement, task);
    return run.next() ? integerAt(statement, 0) : 0;
}

Statement::Statement(sqlite3* database, const QByteArray& sql, Task task)
{
    sqlite3_stmt* statement = nullptr;
    const int code = sqlite3_prepare_v3(database, sql.constData(), static_cast<int>(sql.size()),
                                        SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    if (code != SQLITE_OK)
        fail(code, database, task);
    m_statement.reset(statement);
    m_texts.resize(static_cast<std::size_t>(sqlite3_bind_parameter_count(statement)));
}

void Statement::Finalize::operator()(sqlite3_stmt* statement) const noexcept
{
    sqlite3_finalize(statement);
}

void Statement::bind(int position, const Value& value)
{
    if (const double* number = std::get_if<double>(&value)) {
        if (std::abs(*number) < kExactIntegers && std::trunc(*number) == *number)
            sqlite3_bind_int64(get(), position, static_cast<sqlite3_int64>(*number));
        else
            sqlite3_bind_double(get(), position, *number);
    } else if (const QString* text = std::get_if<QString>(&value)) {
        QByteArray& bytes = m_texts[static_cast<std::size_t>(position - 1)];
        bytes = text->toUtf8();
        sqlite3_bind_text(get(), position, bytes.constData(), static_cast<int>(bytes.size()), SQLITE_STATIC);
    } else {
        sqlite3_bind_null(get(), position);
    }
}

void Statement::bind(int position, qint64 number)
{
    sqlite3_bind_int64(get(), position, number);
}

bool Statement::step(Task task)
{
    const int code = sqlite3_step(get());
    if (code == SQLITE_ROW)
        return true;
    if (code == SQLITE_DONE)
        return false;
    fail(code, sqlite3_db_handle(get()), task);
}

void Statement::reset() noexcept
{
    sqlite3_reset(get());
}

void readCell(sqlite3_stmt* statement, int column, Value& cell)
{
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_NULL:
        cell = Null{};
        return;
    case SQLITE_INTEGER:
    case SQLITE_FLOAT:
        cell = sqlite3_column_double(statement, column);
        return;
    default:
        break;
    }
    // A blob of a file made elsewhere reads as the text of its bytes.
    const void* bytes = sqlite3_column_text(statement, column);
    const int length = sqlite3_column_bytes(statement, column);
    assignText(cell, static_cast<const char*>(bytes), length);
}

QString textAt(const Statement& statement, int column)
{
    const void* bytes = sqlite3_column_text(statement.get(), column);
    const int length = sqlite3_column_bytes(statement.get(), column);
    return QString::fromUtf8(static_cast<const char*>(bytes), length);
}

qint64 integerAt(const Statement& statement, int column) noexcept
{
    return sqlite3_column_int64(statement.get(), column);
}

} // namespace platform::storage::sqlite
