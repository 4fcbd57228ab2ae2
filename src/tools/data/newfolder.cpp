// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/data/newfolder.h"

#include "platform/core/failure.h"
#include "platform/system/durable.h"
#include "tools/data/toolerror.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFileInfo>

namespace tools {

bool isMissingOrEmpty(const QString& folder)
{
    const QFileInfo info(folder);
    if (info.isSymLink() && !info.exists())
        return false;
    return !info.exists() || (info.isDir() && QDir(folder).isEmpty(QDir::AllEntries | QDir::Hidden |
                                                                   QDir::System | QDir::NoDotAndDotDot));
}

NewFolder::NewFolder(const QString& path, const QString& word)
    : m_path(QDir::cleanPath(QDir(path).absolutePath()))
    , m_workingPath(QStringLiteral("%1.%2-%3").arg(m_path, word).arg(QCoreApplication::applicationPid()))
{
    if (!isMissingOrEmpty(m_path))
        throw ToolError(QStringLiteral("«%1» no está vacía: no se toca").arg(path));
    if (!QDir().mkpath(m_workingPath))
        throw ToolError(QStringLiteral("no se puede crear la carpeta «%1»").arg(m_workingPath));
}

NewFolder::~NewFolder()
{
    if (!m_isPublished)
        QDir(m_workingPath).removeRecursively();
}

void NewFolder::publish()
{
    QDirIterator folders(m_workingPath, QDir::Dirs | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (folders.hasNext())
        platform::makeLasting(folders.next());
    platform::makeLasting(m_workingPath);
    try {
        platform::renameLasting(m_workingPath, m_path);
    } catch (const platform::Failure&) {
        throw ToolError(QStringLiteral("no se puede crear la carpeta «%1»").arg(m_path));
    }
    m_isPublished = true;
}

} // namespace tools
