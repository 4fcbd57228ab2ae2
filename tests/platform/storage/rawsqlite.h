// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A file as another tool makes or reads it: SQLite alone, without the engine's gate and notes.

#include "platform/storage/sqlite/functions.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <sqlite3.h>

namespace platform::storage::test {

class RawSqlite
{
public:
    explicit RawSqlite(const QString& path)
    {
        sqlite3* handle = nullptr;
        sqlite3_open(path.toUtf8().constData(), &handle);
        m_handle.reset(handle);
        sqlite::registerFunctions(handle);
    }

    /// Runs the text. The result code of SQLite.
    int run(const char* sql) { return sqlite3_exec(m_handle.get(), sql, nullptr, nullptr, nullptr); }

    /// First column of every row, as text.
    [[nodiscard]] QStringList column(const char* sql)
    {
        QStringList rows;
        sqlite3_exec(m_handle.get(), sql, &collect, &rows, nullptr);
        return rows;
    }
    [[nodiscard]] QString value(const char* sql) { return column(sql).value(0); }

private:
    static int collect(void* rows, int, char** values, char**)
    {
        static_cast<QStringList*>(rows)->append(QString::fromUtf8(values[0]));
        return 0;
    }
    struct Close
    {
        void operator()(sqlite3* handle) const { sqlite3_close(handle); }
    };
    std::unique_ptr<sqlite3, Close> m_handle;
};

} // namespace platform::storage::test
