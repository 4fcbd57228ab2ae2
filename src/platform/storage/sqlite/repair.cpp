// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/storage/sqlite/repair.h"

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"
#include "platform/storage/sqlite/openfile.h"
#include "platform/storage/sqlite/presence.h"
#include "platform/storage/sqlite/structure.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace platform::storage::sqlite {

namespace {

/// Gives the damaged file the first free name `<name>.dañado-N`.
QString putAside(const QString& path)
{
    for (int number = 1;; ++number) {
        const QString aside = path + u".dañado-"_s + QString::number(number);
        if (QFile::exists(aside))
            continue;
        if (!QFile::rename(path, aside))
            throw Failure(kCannotOpenFile, path);
        return aside;
    }
}

} // namespace

void repairStore(const QString& path, const QList<TableDefinition>& expected)
{
    if (!QFile::exists(path))
        throw Failure(kDatabaseFileNotFound, path);
    const Sidecar sidecar(path);
    takePresence(sidecar, Sharing::Exclusive);
    putAside(path);
    const Database database = makeStoreFile(path, {});
    for (const TableDefinition& table : expected)
        makeTable(database, table);
}

} // namespace platform::storage::sqlite
