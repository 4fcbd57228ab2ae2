// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/data/manifest.h"

#include "platform/system/durable.h"
#include "tools/data/toolerror.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>

#include <optional>

namespace tools {

namespace {

constexpr char kFirstLine[] = "orvane-copia 1";

QByteArray sha256(const QByteArray& bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256);
}

QByteArray encoded(const QString& name)
{
    return name.toUtf8().toPercentEncoding("/ ");
}

QString decoded(const QByteArray& name)
{
    return QString::fromUtf8(QByteArray::fromPercentEncoding(name));
}

/// Reads the lines one after the other; anything unexpected makes the whole unreadable.
class Reader
{
public:
    explicit Reader(const QByteArray& text)
        : m_lines(text.split('\n'))
    {}

    std::optional<Manifest> manifest()
    {
        Manifest manifest;
        if (next() != kFirstLine)
            return std::nullopt;
        const QList<QByteArray> moment = fields("momento", 2);
        manifest.moment = QDateTime::fromString(QString::fromLatin1(moment.value(1)), Qt::ISODate);
        while (m_isSound && (peek().startsWith("base ") || peek().startsWith("fichero ")))
            manifest.files.append(file(peek().startsWith("base ")));
        m_isSound = m_isSound && manifest.moment.isValid() && m_at + 1 == m_lines.size() && peek().isEmpty();
        return m_isSound ? std::optional(manifest) : std::nullopt;
    }

private:
    [[nodiscard]] QByteArray peek() const { return m_lines.value(m_at); }
    QByteArray next() { return m_lines.value(m_at++); }

    /// The parts of the next line, of which the last may hold blanks.
    QList<QByteArray> fields(const char* word, int count)
    {
        QByteArray line = next();
        QList<QByteArray> parts;
        while (parts.size() + 1 < count) {
            const qsizetype blank = line.indexOf(' ');
            m_isSound = m_isSound && blank > 0;
            parts.append(line.left(blank));
            line = line.mid(blank + 1);
        }
        parts.append(line);
        m_isSound = m_isSound && (*word == '\0' || parts.first() == word);
        return parts;
    }

    CopiedFile file(bool isStore)
    {
        const QList<QByteArray> parts = fields(isStore ? "base" : "fichero", 4);
        CopiedFile file{decoded(parts.value(3)),
                        number(parts.value(2)),
                        QByteArray::fromHex(parts.value(1)),
                        isStore,
                        {}};
        while (isStore && m_isSound && peek().startsWith("tabla "))
            file.tables.append(table());
        return file;
    }

    TableHashes table()
    {
        const QList<QByteArray> parts = fields("tabla", 4);
        TableHashes table{decoded(parts.value(3)), QByteArray::fromHex(parts.value(2)), {}};
        const qint64 rows = number(parts.value(1));
        for (qint64 row = 0; m_isSound && row < rows; ++row) {
            const QList<QByteArray> line = fields("", 2);
            table.rows.insert(number(line.value(0)), QByteArray::fromHex(line.value(1)));
        }
        return table;
    }

    qint64 number(const QByteArray& text)
    {
        bool isNumber = false;
        const qint64 value = text.toLongLong(&isNumber);
        m_isSound = m_isSound && isNumber;
        return value;
    }

    QList<QByteArray> m_lines;
    qsizetype m_at = 0;
    bool m_isSound = true;
};

QByteArray textOf(const Manifest& manifest)
{
    QByteArray text = kFirstLine;
    text += "\nmomento " + manifest.moment.toUTC().toString(Qt::ISODate).toLatin1() + '\n';
    for (const CopiedFile& file : manifest.files) {
        text += (file.isStore ? "base " : "fichero ") + file.sha256.toHex() + ' ' +
                QByteArray::number(file.size) + ' ' + encoded(file.path) + '\n';
        for (const TableHashes& table : file.tables) {
            text += "tabla " + QByteArray::number(table.rows.size()) + ' ' + table.shape.toHex() + ' ' +
                    encoded(table.table) + '\n';
            for (auto row = table.rows.cbegin(); row != table.rows.cend(); ++row)
                text += QByteArray::number(row.key()) + ' ' + row.value().toHex() + '\n';
        }
    }
    return text;
}

} // namespace

qint64 Manifest::rowCount() const
{
    qint64 count = 0;
    for (const CopiedFile& file : files) {
        for (const TableHashes& table : file.tables)
            count += table.rows.size();
    }
    return count;
}

QString manifestPath(const QString& copy)
{
    return QDir(copy).filePath(QStringLiteral("orvane-copia.txt"));
}

void writeManifest(const Manifest& manifest, const QString& copy)
{
    const QString path = manifestPath(copy);
    const QByteArray text = textOf(manifest);
    QFile file(path);
    const bool isWritten = file.open(QIODevice::WriteOnly | QIODevice::Truncate) &&
                           file.write(text) == text.size() &&
                           file.write("fin " + sha256(text).toHex() + '\n') > 0 && file.flush();
    if (!isWritten)
        throw ToolError(QStringLiteral("no se puede escribir «%1»").arg(path));
    file.close();
    platform::makeLasting(path);
}

Manifest readManifest(const QString& copy)
{
    QFile file(manifestPath(copy));
    if (!file.open(QIODevice::ReadOnly))
        throw ToolError(
            QStringLiteral("«%1» no es una copia: falta o no se puede leer «orvane-copia.txt»").arg(copy));
    const QByteArray all = file.readAll();
    const qsizetype end = all.lastIndexOf("\nfin ") + 1;
    const QByteArray text = all.left(end);
    std::optional<Manifest> manifest;
    if (end > 0 && all.mid(end) == "fin " + sha256(text).toHex() + '\n')
        manifest = Reader(text).manifest();
    if (!manifest)
        throw ToolError(QStringLiteral("la lista «orvane-copia.txt» de «%1» está dañada").arg(copy));
    return *manifest;
}

} // namespace tools
