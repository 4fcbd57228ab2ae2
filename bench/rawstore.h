// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The raw floor: a store's file through SQLite's C interface, with the locking, the durability and the
// collation of a store, and nothing else.

#include "platform/storage/sqlite/gate.h"
#include "platform/storage/sqlite/handle.h"
#include "platform/storage/sqlite/presence.h"
#include "platform/storage/sqlite/sidecar.h"

#include <QString>

struct sqlite3;
struct sqlite3_stmt;

namespace bench {

class RawStore
{
public:
    explicit RawStore(const QString& path);
    ~RawStore();
    RawStore(const RawStore&) = delete;
    RawStore& operator=(const RawStore&) = delete;

    [[nodiscard]] sqlite3* handle() const { return m_handle; }
    [[nodiscard]] const platform::storage::sqlite::Sidecar& sidecar() const { return m_sidecar; }
    /// The caller finalizes it.
    [[nodiscard]] sqlite3_stmt* prepare(const char* sql) const;
    void execute(const char* sql) const;

private:
    platform::storage::sqlite::Sidecar m_sidecar;
    sqlite3* m_handle = nullptr;
};

/// Column of the current row as the program holds a text.
[[nodiscard]] QString textColumn(sqlite3_stmt* statement, int column);
void bindText(sqlite3_stmt* statement, int position, const QString& text);

} // namespace bench
