// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/data/demofolder.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QProcess>

namespace tooltest {

namespace {

constexpr int kPatienceMs = 100000;

QStringList linesWith(const QString& text, QStringView start)
{
    QStringList lines;
    for (const QString& line : text.split(u'\n')) {
        if (line.startsWith(start))
            lines.append(line);
    }
    return lines;
}

/// The demo that all copies are made of.
const QString& original()
{
    static const QTemporaryDir folder;
    static const QString path = [] {
        const QString root = folder.filePath(QStringLiteral("raíz"));
        const ToolRun made =
            runTool({QStringLiteral("demo"), root, QStringLiteral("--size"), QStringLiteral("20")});
        return made.exitCode == 0 ? root : QString();
    }();
    return path;
}

} // namespace

QStringList ToolRun::faults() const
{
    return linesWith(out, u"fallo");
}

QStringList ToolRun::notices() const
{
    return linesWith(out, u"aviso");
}

ToolRun runTool(const QStringList& arguments)
{
    QProcess process;
    process.start(QStringLiteral(ORVANE_DATA_TOOL), arguments);
    if (!process.waitForFinished(kPatienceMs))
        return {};
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

DemoFolder::DemoFolder()
{
    const QDir from(original());
    QDirIterator files(from.path(), QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString file = files.next();
        const QString copy = path(from.relativeFilePath(file));
        QDir().mkpath(QFileInfo(copy).path());
        QFile::copy(file, copy);
    }
}

QString DemoFolder::path(const QString& relative) const
{
    return relative.isEmpty() ? m_folder.path() : m_folder.filePath(relative);
}

ToolRun DemoFolder::check() const
{
    return runTool({QStringLiteral("check"), path()});
}

QMap<QString, QByteArray> DemoFolder::stores() const
{
    return filesUnder(path());
}

QMap<QString, QByteArray> filesUnder(const QString& folder)
{
    QMap<QString, QByteArray> bytes;
    QDirIterator files(folder, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString name = files.next();
        if (name.endsWith(u".ldb"))
            continue;
        QFile file(name);
        if (file.open(QIODevice::ReadOnly))
            bytes.insert(QDir(folder).relativeFilePath(name), file.readAll());
    }
    return bytes;
}

} // namespace tooltest
