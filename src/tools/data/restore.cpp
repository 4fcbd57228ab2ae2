// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"
#include "platform/system/durable.h"
#include "platform/system/paths.h"
#include "tools/data/backup.h"
#include "tools/data/enginefault.h"
#include "tools/data/manifest.h"
#include "tools/data/newfolder.h"
#include "tools/data/plainfile.h"
#include "tools/data/rootfiles.h"
#include "tools/data/toolerror.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>

namespace tools {

namespace {

using platform::storage::StoreReplacement;

/// Copies a file of the copy and makes sure that it has come over as listed.
void bringOver(const CopiedFile& file, const QDir& copy, const QString& to)
{
    static_cast<void>(copyPlainFile(copy.filePath(file.path), to));
    if (imprintOf(to) != Imprint{file.size, file.sha256})
        throw ToolError(QStringLiteral("«%1» no se ha escrito bien").arg(to));
}

void restoreAsNew(const Manifest& manifest, const QDir& copy, const QString& folder)
{
    NewFolder growing(folder, QStringLiteral("restaurando"));
    for (const CopiedFile& file : manifest.files)
        bringOver(file, copy, QDir(growing.workingPath()).filePath(file.path));
    growing.publish();
}

/// A store or report of a root in which others may stand already.
class Replacements
{
public:
    Replacements(const QString& folder, const QDir& copy)
        : m_root(folder)
        , m_copy(copy)
    {}

    /// Has the store alone from here on. `file` null: it is only put aside.
    void take(const QString& relative, const CopiedFile* file)
    {
        const QString path = platform::nativePath(m_root.absoluteFilePath(relative));
        makeFolderOf(path);
        try {
            m_stores.push_back({std::make_unique<StoreReplacement>(path), file});
        } catch (const platform::Failure& failure) {
            if (failure.number() == platform::kCouldNotLockFile)
                throw ToolError(QStringLiteral("un puesto tiene abierto «%1»: hay que cerrar el programa en "
                                               "todos los puestos")
                                    .arg(relative));
            throw ToolError(QStringLiteral("%1: %2").arg(relative, openingFault(failure)));
        }
    }

    /// Writes every new file beside the place that it will have.
    void write()
    {
        for (const Store& store : m_stores) {
            if (store.file != nullptr)
                bringOver(*store.file, m_copy, store.replacement->workingPath());
        }
    }

    /// Puts the new files in place and gives the names of those put aside.
    QStringList replace()
    {
        QStringList kept;
        for (const Store& store : m_stores)
            kept.append(store.file != nullptr ? store.replacement->replace() : store.replacement->putAside());
        kept.removeAll(QString());
        return kept;
    }

private:
    struct Store
    {
        std::unique_ptr<StoreReplacement> replacement;
        const CopiedFile* file;
    };

    QDir m_root;
    QDir m_copy;
    std::vector<Store> m_stores;
};

void replaceReport(const CopiedFile& file, const QDir& copy, const QDir& root)
{
    const QString path = platform::nativePath(root.absoluteFilePath(file.path));
    const QString working = path + QStringLiteral(".restaurado");
    QFile::remove(working);
    bringOver(file, copy, working);
    platform::renameLasting(working, path);
}

/// Stores of the root itself, and of companies that the copy has too, which it lacks: they are younger than
/// it.
QStringList youngerStores(const RootFiles& there, const Manifest& manifest)
{
    QSet<QString> listed;
    QSet<QString> folders;
    for (const CopiedFile& file : manifest.files) {
        listed.insert(file.path.toCaseFolded());
        folders.insert(QFileInfo(file.path).path().toCaseFolded());
    }
    QStringList younger;
    for (const QStringList& group : there.stores) {
        for (const QString& path : group) {
            if (folders.contains(QFileInfo(path).path().toCaseFolded()) &&
                !listed.contains(path.toCaseFolded()))
                younger.append(path);
        }
    }
    return younger;
}

QStringList restoreOver(const Manifest& manifest, const QDir& copy, const QString& folder)
{
    Replacements replacements(folder, copy);
    for (const QString& younger : youngerStores(rootFiles(folder), manifest))
        replacements.take(younger, nullptr);
    for (const CopiedFile& file : manifest.files) {
        if (file.isStore)
            replacements.take(file.path, &file);
    }
    replacements.write();
    QStringList kept = replacements.replace();
    for (const CopiedFile& file : manifest.files) {
        if (!file.isStore)
            replaceReport(file, copy, QDir(folder));
    }
    return kept;
}

} // namespace

bool restore(const QString& copyFolder, const QString& folder, bool replaces, QTextStream& out)
{
    const Manifest manifest = readManifest(copyFolder);
    const bool isNew = isMissingOrEmpty(folder);
    if (!isNew && !QFileInfo(folder).isDir())
        throw ToolError(QStringLiteral("«%1» no es una carpeta").arg(folder));
    if (!isNew && !replaces)
        throw ToolError(
            QStringLiteral("«%1» no está vacía: no se toca sin --replace (véase --help)").arg(folder));
    if (platform::isSameFile(copyFolder, folder))
        throw ToolError(QStringLiteral("«%1» es la propia copia").arg(folder));
    if (!verifyCopy(copyFolder, out)) {
        out << QStringLiteral("La copia tiene fallos: no se ha restaurado nada.\n");
        return false;
    }
    QStringList kept;
    if (isNew)
        restoreAsNew(manifest, QDir(copyFolder), folder);
    else
        kept = restoreOver(manifest, QDir(copyFolder), folder);
    out << QStringLiteral("Restaurada en «%1»: %2 ficheros, %3 filas.\n")
               .arg(folder)
               .arg(manifest.files.size())
               .arg(manifest.rowCount());
    for (const QString& file : kept)
        out << QStringLiteral("El fichero que había queda en «%1».\n")
                   .arg(QDir(folder).relativeFilePath(file));
    return true;
}

} // namespace tools
