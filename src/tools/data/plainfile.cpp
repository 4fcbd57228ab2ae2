// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/data/plainfile.h"

#include "platform/system/durable.h"
#include "tools/data/toolerror.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <functional>

namespace tools {

namespace {

constexpr qint64 kBlock = 1 << 20;

/// Reads the file in blocks and gives each to `take`.
Imprint readFile(const QString& path, const std::function<void(const QByteArray&)>& take)
{
    QFile file(path);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    Imprint imprint;
    bool isRead = file.open(QIODevice::ReadOnly);
    while (isRead && !file.atEnd()) {
        const QByteArray block = file.read(kBlock);
        isRead = !block.isEmpty();
        hash.addData(block);
        imprint.size += block.size();
        take(block);
    }
    if (!isRead || file.error() != QFileDevice::NoError)
        throw ToolError(QStringLiteral("no se puede leer «%1»").arg(path));
    imprint.sha256 = hash.result();
    return imprint;
}

} // namespace

Imprint imprintOf(const QString& path)
{
    return readFile(path, [](const QByteArray&) {});
}

Imprint copyPlainFile(const QString& from, const QString& to)
{
    makeFolderOf(to);
    QFile target(to);
    bool isWritten = target.open(QIODevice::WriteOnly | QIODevice::NewOnly);
    Imprint imprint = readFile(
        from, [&](const QByteArray& block) { isWritten = isWritten && target.write(block) == block.size(); });
    if (!isWritten || !target.flush())
        throw ToolError(QStringLiteral("no se puede escribir «%1»: %2").arg(to, target.errorString()));
    target.close();
    platform::makeLasting(to);
    return imprint;
}

void makeFolderOf(const QString& path)
{
    const QString folder = QFileInfo(path).path();
    if (!QDir().mkpath(folder))
        throw ToolError(QStringLiteral("no se puede crear la carpeta «%1»").arg(folder));
}

} // namespace tools
