// SPDX-License-Identifier: GPL-3.0-or-later

// Brings the order of text of the stores to any SQLite program:
//     sqlite3 -cmd ".load ./orvane_collation" Clientes.mdb
// Without it such a program reads rows, but can't sort, search or change a text of theirs.

#include "platform/storage/sqlite/functions.h"
#include "platform/text/spanishorder.h"

#include <sqlite3ext.h>

SQLITE_EXTENSION_INIT1

namespace {

int compare(void*, int leftLength, const void* left, int rightLength, const void* right) noexcept
{
    return platform::compareSpanishUtf8(QByteArrayView(static_cast<const char*>(left), leftLength),
                                        QByteArrayView(static_cast<const char*>(right), rightLength));
}

} // namespace

extern "C" {

/// The entry point that SQLite derives from the file's name.
Q_DECL_EXPORT int sqlite3_orvanecollation_init(sqlite3* database, char**, const sqlite3_api_routines* api)
{
    SQLITE_EXTENSION_INIT2(api)
    return sqlite3_create_collation_v2(database, platform::storage::sqlite::kCollation, SQLITE_UTF8, nullptr,
                                       &compare, nullptr);
}

} // extern "C"
