// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/data/backup.h"

#include "platform/core/failure.h"
#include "tools/data/enginefault.h"
#include "tools/data/manifest.h"
#include "tools/data/newfolder.h"
#include "tools/data/plainfile.h"
#include "tools/data/rootfiles.h"
#include "tools/data/toolerror.h"

#include <QDir>

namespace tools {

namespace {

using platform::storage::CopyAccount;
using platform::storage::CopyJob;

CopyAccount copyAllStores(const RootFiles& files, const QDir& root, const QDir& copy)
{
    QList<QList<CopyJob>> groups;
    for (const QStringList& group : files.stores) {
        QList<CopyJob> jobs;
        for (const QString& path : group) {
            makeFolderOf(copy.filePath(path));
            jobs.append({root.filePath(path), copy.filePath(path)});
        }
        groups.append(jobs);
    }
    try {
        return platform::storage::copyStores(groups);
    } catch (const platform::Failure& failure) {
        // The text of the failure is the store's path.
        throw ToolError(QStringLiteral("%1: %2; no se ha hecho la copia")
                            .arg(root.relativeFilePath(failure.text()), openingFault(failure)));
    }
}

/// What the copy of a store holds. A store that is damaged within gives no copy.
CopiedFile listed(const QDir& copy, const QString& path)
{
    const QString file = copy.filePath(path);
    const auto store = platform::storage::openCopy(file);
    if (const QStringList faults = store->integrityFaults(); !faults.isEmpty())
        throw ToolError(
            QStringLiteral("%1: está dañado (%2); no se ha hecho la copia").arg(path, faults.first()));
    const QList<TableHashes> tables = hashesOf(*store);
    const Imprint imprint = imprintOf(file);
    return {path, imprint.size, imprint.sha256, true, tables};
}

QString momentText(const CopyAccount& account)
{
    const QString held =
        QStringLiteral("los puestos esperaron %1 ms como mucho").arg(account.longestHold.count());
    if (account.moments <= 1)
        return QStringLiteral("todos los ficheros son de un mismo instante; ") + held;
    return QStringLiteral("aviso: los puestos no pararon de escribir y la copia se tomó en %1 instantes; ")
               .arg(account.moments) +
           held;
}

} // namespace

void backUp(const QString& folder, const QString& copyFolder, QTextStream& out)
{
    requireDataRoot(folder);
    const QDir root(QDir(folder).canonicalPath());
    NewFolder growing(copyFolder, QStringLiteral("parcial"));
    const QDir copy(growing.workingPath());
    const RootFiles files = rootFiles(root.path());

    Manifest manifest;
    const CopyAccount account = copyAllStores(files, root, copy);
    manifest.moment = QDateTime::currentDateTimeUtc();
    for (const QStringList& group : files.stores) {
        for (const QString& path : group)
            manifest.files.append(listed(copy, path));
    }
    for (const QString& report : files.reports) {
        const Imprint imprint = copyPlainFile(root.filePath(report), copy.filePath(report));
        manifest.files.append({report, imprint.size, imprint.sha256, false, {}});
    }
    writeManifest(manifest, copy.path());
    growing.publish();
    out << QStringLiteral("Copia hecha en «%1»: %2 ficheros, %3 filas.\n")
               .arg(copyFolder)
               .arg(manifest.files.size())
               .arg(manifest.rowCount());
    out << momentText(account) << u'\n';
}

} // namespace tools
