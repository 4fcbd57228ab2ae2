// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/system/paths.h"

#include <QDir>
#include <QFileInfo>
#include <QStringList>

#include <algorithm>

namespace platform {

namespace {

/// True for whatever bears the name, a link to nowhere included.
[[nodiscard]] bool isThere(const QString& path)
{
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
}

/// First name of the folder, in sorted order, that is `part` without regard to case; else `part` itself.
[[nodiscard]] QString nameOnDisk(const QString& folder, const QString& part)
{
    if (isThere(folder + u'/' + part))
        return part;
    QString found;
    const auto filter = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
    const QStringList names = QDir(folder + u'/').entryList(filter, QDir::Unsorted);
    for (const QString& name : names) {
        if (name.compare(part, Qt::CaseInsensitive) == 0 && (found.isNull() || name < found))
            found = name;
    }
    return found.isNull() ? part : found;
}

/// The folder above, by what is on the disk where it is there: the one above a link is that of its target.
[[nodiscard]] QString folderAbove(const QString& folder)
{
    const QString canonical = QFileInfo(folder + u'/').canonicalFilePath();
    const QString known = canonical.isEmpty() ? folder : canonical;
    return known.left(std::max<qsizetype>(known.lastIndexOf(u'/'), 0));
}

/// Canonical as far as the path exists; what is missing is added as it stands.
[[nodiscard]] QString canonicalName(const QString& path)
{
    for (qsizetype cut = path.size(); cut > 0; cut = path.lastIndexOf(u'/', cut - 1)) {
        const QString canonical = QFileInfo(path.left(cut)).canonicalFilePath();
        if (!canonical.isEmpty())
            return (canonical == u"/" ? QString() : canonical) + path.mid(cut);
    }
    return path;
}

} // namespace

QString currentDirectory()
{
    return programPath(QDir::currentPath());
}

QString nativePath(const QString& path)
{
    const QString slashed = QString(path).replace(u'\\', u'/');
    // Without a "/" at its end, so that a part is added with one: "" is the root.
    QString resolved = slashed.startsWith(u'/') ? QString() : QDir::currentPath();
    if (resolved == u"/")
        resolved.clear();
    const QStringList parts = slashed.split(u'/', Qt::SkipEmptyParts);
    for (const QString& part : parts) {
        if (part == u"..")
            resolved = folderAbove(resolved);
        else if (part != u".")
            resolved += u'/' + nameOnDisk(resolved, part);
    }
    return resolved.isEmpty() ? QStringLiteral("/") : canonicalName(resolved);
}

QString programPath(const QString& native)
{
    return QString(native).replace(u'/', u'\\');
}

} // namespace platform
