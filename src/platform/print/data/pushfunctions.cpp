// SPDX-License-Identifier: GPL-3.0-or-later
// The functions of pushed conditions, on the data engine's connection. Each reads a value as the row store
// does and answers as the formula language does; a null stays a null.
#include "platform/print/data/pushdown.h"
#include "platform/print/formula/compare.h"
#include "platform/print/formula/to_text.h"
#include "platform/text/textfunctions.h"

#include <sqlite3.h>

#include <algorithm>

namespace platform::print {
namespace {

QString textOf(sqlite3_value* value)
{
    const int type = sqlite3_value_type(value);
    if (type == SQLITE_INTEGER || type == SQLITE_FLOAT)
        return formula::plainNumber(sqlite3_value_double(value));
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return QString::fromUtf8(text, text != nullptr ? sqlite3_value_bytes(value) : 0);
}

bool answerNull(sqlite3_context* context, sqlite3_value* value)
{
    if (sqlite3_value_type(value) != SQLITE_NULL)
        return false;
    sqlite3_result_null(context);
    return true;
}

void answer(sqlite3_context* context, QStringView text)
{
    const QByteArray bytes = text.toUtf8();
    sqlite3_result_text(context, bytes.constData(), static_cast<int>(bytes.size()), SQLITE_TRANSIENT);
}

void reportText(sqlite3_context* context, int, sqlite3_value** values)
{
    if (!answerNull(context, values[0]))
        answer(context, textOf(values[0]));
}

void reportNumber(sqlite3_context* context, int, sqlite3_value** values)
{
    if (answerNull(context, values[0]))
        return;
    const int type = sqlite3_value_type(values[0]);
    const bool number = type == SQLITE_INTEGER || type == SQLITE_FLOAT;
    sqlite3_result_double(context, number ? sqlite3_value_double(values[0]) : Val(textOf(values[0])));
}

void reportVal(sqlite3_context* context, int, sqlite3_value** values)
{
    if (!answerNull(context, values[0]))
        sqlite3_result_double(context, Val(textOf(values[0])));
}

void reportLength(sqlite3_context* context, int, sqlite3_value** values)
{
    if (!answerNull(context, values[0]))
        sqlite3_result_double(context, static_cast<double>(textOf(values[0]).size()));
}

void reportMid(sqlite3_context* context, int count, sqlite3_value** values)
{
    if (answerNull(context, values[0]))
        return;
    const QString text = textOf(values[0]);
    const qsizetype start = std::min<qsizetype>(sqlite3_value_int(values[1]) - 1, text.size());
    answer(context, QStringView(text).mid(start, count > 2 ? sqlite3_value_int(values[2]) : text.size()));
}

void reportLeft(sqlite3_context* context, int, sqlite3_value** values)
{
    if (!answerNull(context, values[0]))
        answer(context, textOf(values[0]).left(sqlite3_value_int(values[1])));
}

void reportRight(sqlite3_context* context, int, sqlite3_value** values)
{
    if (!answerNull(context, values[0]))
        answer(context, textOf(values[0]).right(sqlite3_value_int(values[1])));
}

void reportCompare(sqlite3_context* context, int, sqlite3_value** values)
{
    if (answerNull(context, values[0]))
        return;
    if (sqlite3_value_type(values[1]) != SQLITE_TEXT) {
        const double left = sqlite3_value_double(values[0]);
        const double right = sqlite3_value_double(values[1]);
        sqlite3_result_int(context, left < right ? -1 : (right < left ? 1 : 0));
        return;
    }
    const bool caseSensitive = sqlite3_value_int(values[2]) != 0;
    sqlite3_result_int(context, formula::compareText(textOf(values[0]), textOf(values[1]), caseSensitive));
}

using Function = void (*)(sqlite3_context*, int, sqlite3_value**);

struct Entry
{
    const char* name;
    int arguments;
    Function function;
};

constexpr Entry kFunctions[] = {
    {"report_text", 1, reportText},       {"report_number", 1, reportNumber},
    {"report_val", 1, reportVal},         {"report_length", 1, reportLength},
    {"report_mid", 2, reportMid},         {"report_mid", 3, reportMid},
    {"report_left", 2, reportLeft},       {"report_right", 2, reportRight},
    {"report_compare", 3, reportCompare},
};

} // namespace

void registerPushdown(sqlite3* database)
{
    for (const Entry& entry : kFunctions) {
        sqlite3_create_function_v2(database, entry.name, entry.arguments, SQLITE_UTF8 | SQLITE_DETERMINISTIC,
                                   nullptr, entry.function, nullptr, nullptr, nullptr);
    }
}

} // namespace platform::print
