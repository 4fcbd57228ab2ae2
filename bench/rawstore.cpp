// SPDX-License-Identifier: GPL-3.0-or-later
#include "rawstore.h"

#include "platform/storage/sqlite/functions.h"

#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>

namespace bench {

namespace {

void require(int code, int wanted, const char* what)
{
    if (code == wanted)
        return;
    std::fprintf(stderr, "orvane-bench: %s gave %d\n", what, code);
    std::exit(1);
}

} // namespace

RawStore::RawStore(const QString& path)
    : m_sidecar(path)
{
    require(sqlite3_open_v2(path.toUtf8().constData(), &m_handle, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX,
                            nullptr),
            SQLITE_OK, "sqlite3_open_v2");
    require(platform::storage::sqlite::registerCollation(m_handle), SQLITE_OK, "registerCollation");
    for (const char* pragma :
         {"PRAGMA synchronous = EXTRA", "PRAGMA mmap_size = 0", "PRAGMA temp_store = MEMORY"})
        execute(pragma);
}

RawStore::~RawStore()
{
    sqlite3_close_v2(m_handle);
}

sqlite3_stmt* RawStore::prepare(const char* sql) const
{
    sqlite3_stmt* statement = nullptr;
    require(sqlite3_prepare_v3(m_handle, sql, -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr), SQLITE_OK,
            sql);
    return statement;
}

void RawStore::execute(const char* sql) const
{
    require(sqlite3_exec(m_handle, sql, nullptr, nullptr, nullptr), SQLITE_OK, sql);
}

QString textColumn(sqlite3_stmt* statement, int column)
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return QString::fromUtf8(text, sqlite3_column_bytes(statement, column));
}

void bindText(sqlite3_stmt* statement, int position, const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    require(sqlite3_bind_text(statement, position, bytes.constData(), static_cast<int>(bytes.size()),
                              SQLITE_TRANSIENT),
            SQLITE_OK, "sqlite3_bind_text");
}

} // namespace bench
