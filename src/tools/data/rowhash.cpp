// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/data/rowhash.h"

#include "tools/data/checkstore.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QIODevice>

namespace tools {

namespace {

constexpr qsizetype kHashBytes = 16;

/// Bytes in which no two lists of values look alike: every part bears its kind and its length.
class Spelling
{
public:
    Spelling() { m_stream.setVersion(QDataStream::Qt_6_0); }

    void add(const QString& text) { m_stream << quint8{2} << text; }
    void add(int number) { m_stream << quint8{3} << number; }
    void add(const platform::Value& value)
    {
        if (const QString* text = std::get_if<QString>(&value))
            m_stream << quint8{2} << QStringView(*text).size() << *text;
        else if (const double* number = std::get_if<double>(&value))
            m_stream << quint8{1} << *number;
        else
            m_stream << quint8{0};
    }

    [[nodiscard]] QByteArray hash() const
    {
        return QCryptographicHash::hash(m_bytes, QCryptographicHash::Sha256).first(kHashBytes);
    }

private:
    QByteArray m_bytes;
    QDataStream m_stream{&m_bytes, QIODevice::WriteOnly};
};

QByteArray shapeOf(const platform::storage::TableDefinition& table)
{
    Spelling spelling;
    for (const platform::storage::Column& column : table.columns) {
        spelling.add(column.name);
        spelling.add(static_cast<int>(column.type));
        spelling.add(column.size);
        spelling.add(static_cast<int>(column.allowZeroLength));
    }
    for (const platform::storage::IndexDefinition& index : table.indexes) {
        spelling.add(index.name);
        spelling.add(static_cast<int>(index.primary));
        spelling.add(static_cast<int>(index.unique));
        spelling.add(index.columns.join(u'\n'));
    }
    return spelling.hash();
}

} // namespace

QList<TableHashes> hashesOf(platform::storage::Connection& store)
{
    QList<TableHashes> hashes;
    for (const platform::storage::TableDefinition& definition : store.tables()) {
        TableHashes table{definition.name, shapeOf(definition), {}};
        forEachRow(*store.openTable(definition.name), {},
                   [&table](platform::storage::RowId id, std::span<const platform::Value> cells) {
                       Spelling spelling;
                       for (const platform::Value& cell : cells)
                           spelling.add(cell);
                       table.rows.insert(id, spelling.hash());
                   });
        hashes.append(table);
    }
    return hashes;
}

} // namespace tools
