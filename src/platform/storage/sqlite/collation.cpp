// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/storage/sqlite/functions.h"

#include "platform/text/spanishorder.h"

#include <sqlite3.h>

namespace platform::storage::sqlite {

namespace {

int compare(void*, int leftLength, const void* left, int rightLength, const void* right) noexcept
{
    return compareSpanishUtf8(QByteArrayView(static_cast<const char*>(left), leftLength),
                              QByteArrayView(static_cast<const char*>(right), rightLength));
}

} // namespace

int registerCollation(sqlite3* database) noexcept
{
    return sqlite3_create_collation_v2(database, kCollation, SQLITE_UTF8, nullptr, &compare, nullptr);
}

} // namespace platform::storage::sqlite
