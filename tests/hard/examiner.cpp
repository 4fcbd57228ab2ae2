// SPDX-License-Identifier: GPL-3.0-or-later
#include "hard/examiner.h"

#include "platform/core/failure.h"
#include "platform/storage/storage.h"

#include <QCryptographicHash>
#include <QFile>

#include <numeric>

namespace hardtest {

namespace {

using platform::Value;
using namespace platform::storage;

QByteArray textOf(const Value& value)
{
    if (const QString* text = std::get_if<QString>(&value))
        return '"' + text->toUtf8() + '"';
    if (const double* number = std::get_if<double>(&value))
        return QByteArray::number(*number, 'g', 17);
    return "Null";
}

void addStructure(QCryptographicHash& hash, const TableDefinition& table)
{
    QByteArray text = table.name.toUtf8();
    for (const Column& column : table.columns)
        text += '\n' + column.name.toUtf8() + ' ' + QByteArray::number(static_cast<int>(column.type)) + ' ' +
                QByteArray::number(column.size) + (column.allowZeroLength ? " z" : "");
    for (const IndexDefinition& index : table.indexes)
        text += '\n' + index.name.toUtf8() + (index.primary ? " primary" : "") +
                (index.unique ? " unique " : " ") + index.columns.join(u'|').toUtf8();
    hash.addData(text);
}

RowBlock rowsOf(Table& table)
{
    std::vector<int> columns(static_cast<std::size_t>(table.definition().columns.size()));
    std::iota(columns.begin(), columns.end(), 0);
    RowBlock block;
    table.readMany(table.order({}), columns, block);
    return block;
}

void addRows(QCryptographicHash& hash, const RowBlock& block)
{
    for (const RowId id : block.rowIds)
        hash.addData(QByteArray::number(id) + ' ');
    for (const Value& value : block.cells)
        hash.addData(textOf(value) + '\n');
}

void write(const QString& path, const QByteArray* bytes)
{
    QFile::remove(path);
    if (bytes == nullptr)
        return;
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(*bytes) != bytes->size())
        qFatal("the scratch folder can't be written");
}

} // namespace

bool isSound(const Content& content)
{
    return !content.startsWith("refused") && !content.startsWith("damaged");
}

Content contentOf(const QString& nativePath)
{
    if (!QFile::exists(nativePath))
        return kAbsent;
    try {
        const auto store = sqliteEngine()->open(nativePath, Sharing::Shared);
        const QStringList faults = store->integrityFaults();
        if (!faults.isEmpty())
            return "damaged: " + faults.join(u"; ").toUtf8();
        QCryptographicHash hash(QCryptographicHash::Sha1);
        for (const TableDefinition& table : store->tables()) {
            addStructure(hash, table);
            addRows(hash, rowsOf(*store->openTable(table.name)));
        }
        return hash.result().toHex();
    } catch (const platform::Failure& failure) {
        return "refused " + QByteArray::number(failure.number());
    }
}

QSet<QByteArray> rowsOf(const QString& nativePath)
{
    QSet<QByteArray> rows;
    try {
        const auto store = sqliteEngine()->open(nativePath, Sharing::Shared);
        for (const TableDefinition& table : store->tables()) {
            const RowBlock block = rowsOf(*store->openTable(table.name));
            for (std::size_t row = 0; row < block.rowIds.size(); ++row) {
                QByteArray text = table.name.toUtf8();
                for (std::size_t column = 0; column < block.columns.size(); ++column)
                    text += '|' + textOf(block.cells[row * block.columns.size() + column]);
                rows.insert(text);
            }
        }
    } catch (const platform::Failure&) {
        return {};
    }
    return rows;
}

Content Examiner::content(const DiskImage& files, const QByteArray& store)
{
    const auto bytes = files.constFind(store);
    if (bytes == files.cend())
        return kAbsent;
    const auto journal = files.constFind(store + "-journal");
    const bool hasJournal = journal != files.cend();
    QCryptographicHash hash(QCryptographicHash::Sha1);
    hash.addData(*bytes);
    hash.addData(hasJournal ? "\njournal\n" + *journal : QByteArray("\nno journal\n"));
    Content& known = m_known[hash.result()];
    if (known.isEmpty())
        known = examine(*bytes, hasJournal ? &*journal : nullptr);
    return known;
}

Content Examiner::examine(const QByteArray& store, const QByteArray* journal)
{
    const QString path = m_folder.filePath(QStringLiteral("store.mdb"));
    write(path, &store);
    write(path + QStringLiteral("-journal"), journal);
    return contentOf(path);
}

} // namespace hardtest
