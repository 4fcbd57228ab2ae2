// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/storage/sqlite/authorizer.h"

#include "platform/storage/sqlite/metadata.h"

#include <sqlite3.h>

namespace platform::storage::sqlite {

namespace {

bool isHiddenTable(const char* name) noexcept
{
    return name != nullptr &&
           (sqlite3_strnicmp(name, "sqlite_", 7) == 0 || sqlite3_stricmp(name, kMetadataTable) == 0);
}

int judgeQuery(int action, const char* first) noexcept
{
    switch (action) {
    case SQLITE_SELECT:
    case SQLITE_FUNCTION:
        return SQLITE_OK;
    case SQLITE_READ:
        return isHiddenTable(first) ? SQLITE_DENY : SQLITE_OK;
    default:
        return SQLITE_DENY;
    }
}

int judge(void* self, int action, const char* first, const char*, const char*, const char*) noexcept
{
    if (static_cast<const Authorizer*>(self)->onlySelects())
        return judgeQuery(action, first);
    switch (action) {
    case SQLITE_ATTACH:
    case SQLITE_DETACH:
    case SQLITE_CREATE_TRIGGER:
    case SQLITE_CREATE_VTABLE:
        return SQLITE_DENY;
    default:
        return SQLITE_OK;
    }
}

} // namespace

Authorizer::Authorizer(sqlite3* database)
{
    sqlite3_set_authorizer(database, &judge, this);
}

} // namespace platform::storage::sqlite
