// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/storage/sqlite/functions.h"

#include "platform/core/failure.h"
#include "platform/core/value.h"
#include "platform/storage/sqlite/handle.h"
#include "platform/text/likepattern.h"

#include <sqlite3.h>

#include <cmath>

namespace platform::storage::sqlite {

namespace {

QString argumentText(sqlite3_value* argument)
{
    const int type = sqlite3_value_type(argument);
    if (type == SQLITE_INTEGER || type == SQLITE_FLOAT)
        return asText(sqlite3_value_double(argument));
    const void* bytes = sqlite3_value_text(argument);
    return QString::fromUtf8(static_cast<const char*>(bytes), sqlite3_value_bytes(argument));
}

/// Runs the body of a function; a failure becomes the error of the statement.
template <typename Body>
void guarded(sqlite3_context* context, Body body) noexcept
{
    try {
        body();
    } catch (const Failure& failure) {
        sqlite3_result_error(context, failure.what(), -1);
    } catch (const std::bad_alloc&) {
        sqlite3_result_error_nomem(context);
    }
}

void dropPattern(void* pattern) noexcept
{
    delete static_cast<QString*>(pattern);
}

/// The pattern as text, kept by SQLite from row to row while it is a constant.
QString patternOf(sqlite3_context* context, sqlite3_value* argument)
{
    if (const void* kept = sqlite3_get_auxdata(context, 1))
        return *static_cast<const QString*>(kept);
    QString pattern = argumentText(argument);
    sqlite3_set_auxdata(context, 1, std::make_unique<QString>(pattern).release(), &dropPattern);
    return pattern;
}

void likeFunction(sqlite3_context* context, int, sqlite3_value** arguments) noexcept
{
    if (sqlite3_value_type(arguments[0]) == SQLITE_NULL || sqlite3_value_type(arguments[1]) == SQLITE_NULL)
        return;
    guarded(context, [&] {
        const QString pattern = patternOf(context, arguments[1]);
        sqlite3_result_int(context, likeMatches(argumentText(arguments[0]), pattern) ? 1 : 0);
    });
}

void textFunction(sqlite3_context* context, int, sqlite3_value** arguments) noexcept
{
    guarded(context, [&] {
        const bool isNull = sqlite3_value_type(arguments[0]) == SQLITE_NULL;
        const QByteArray text = isNull ? QByteArray() : argumentText(arguments[0]).toUtf8();
        sqlite3_result_text(context, text.constData(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
    });
}

void integerFunction(sqlite3_context* context, int, sqlite3_value** arguments) noexcept
{
    const int type = sqlite3_value_type(arguments[0]);
    if (type == SQLITE_NULL)
        return;
    guarded(context, [&] {
        const bool isNumber = type == SQLITE_INTEGER || type == SQLITE_FLOAT;
        const double number =
            isNumber ? sqlite3_value_double(arguments[0]) : asNumber(argumentText(arguments[0]));
        sqlite3_result_double(context, std::floor(number));
    });
}

using Function = void (*)(sqlite3_context*, int, sqlite3_value**);

void registerFunction(sqlite3* database, const char* name, int arguments, Function function)
{
    constexpr int kFlags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
    const int code = sqlite3_create_function_v2(database, name, arguments, kFlags, nullptr, function, nullptr,
                                                nullptr, nullptr);
    if (code != SQLITE_OK)
        fail(code, database, Task::Open);
}

} // namespace

void registerFunctions(sqlite3* database)
{
    const int code = registerCollation(database);
    if (code != SQLITE_OK)
        fail(code, database, Task::Open);
    registerFunction(database, kLikeFunction, 2, &likeFunction);
    registerFunction(database, kTextFunction, 1, &textFunction);
    registerFunction(database, kIntegerFunction, 1, &integerFunction);
}

} // namespace platform::storage::sqlite
