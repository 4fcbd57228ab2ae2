// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Stores to damage: filled ones, their bytes, and which rows stand on which page.

#include "platform/storage/rawsqlite.h"
#include "platform/storage/sqlite/pagefile.h"
#include "platform/storage/storefixture.h"

#include <QFile>
#include <QSet>
#include <QTest>

namespace platform::storage::test {

inline constexpr int kRows = 300;
inline constexpr qsizetype kPageSize = 4096;
inline constexpr qsizetype kHeader = 100;

inline QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline void writeBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    QCOMPARE(file.write(bytes), bytes.size());
}

inline QString code(int number)
{
    return QString::number(number).rightJustified(10, u'0');
}

/// What `fill` writes: every tenth row has notes that need overflow pages.
inline Row clientOf(int number)
{
    const Value notes =
        number % 10 == 0 ? Value(QString(9000 + number, u'ñ')) : Value(u"notas de "_s + code(number));
    return client(code(number), u"Nombre del cliente "_s + code(number), static_cast<double>(number), notes);
}

inline void fill(const StoreFolder& folder, int rows = kRows)
{
    static_cast<void>(folder.createClients());
    const QByteArray sql = "WITH RECURSIVE r(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM r WHERE n < " +
                           QByteArray::number(rows) +
                           ") INSERT INTO CLIENTES SELECT printf('%010d', n),"
                           " 'Nombre del cliente ' || printf('%010d', n), n, CASE n % 10"
                           " WHEN 0 THEN replace(hex(zeroblob(9000 + n)), '00', 'ñ')"
                           " ELSE 'notas de ' || printf('%010d', n) END FROM r";
    QCOMPARE(RawSqlite(folder.path()).run(sql.constData()), SQLITE_OK);
}

/// A table's leaf pages: those whose rows have as many columns as a client.
inline QList<quint32> clientLeaves(const QByteArray& bytes)
{
    const sqlite::PageFile file(bytes);
    QList<quint32> pages;
    for (quint32 page = 1; page <= file.pageCount(); ++page) {
        const std::vector<sqlite::SalvagedRow> rows = file.rows(page);
        if (!rows.empty() && rows.front().values.size() == 4)
            pages.append(page);
    }
    return pages;
}

inline QSet<QString> codesOn(const QByteArray& bytes, quint32 page)
{
    QSet<QString> codes;
    for (const sqlite::SalvagedRow& row : sqlite::PageFile(bytes).rows(page))
        codes.insert(std::get<QString>(row.values.front()));
    return codes;
}

inline void zeroPage(QByteArray& bytes, quint32 page)
{
    bytes.replace(static_cast<qsizetype>(page - 1) * kPageSize, kPageSize, QByteArray(kPageSize, '\0'));
}

inline QSet<QString> storedCodes(const StoreFolder& folder)
{
    const auto connection = folder.open();
    const auto table = connection->openTable(u"CLIENTES"_s);
    QSet<QString> codes;
    RowBlock block;
    const std::vector<int> columns{0};
    table->readMany(table->order(u"PorCodigo"_s), columns, block);
    for (const Value& cell : block.cells)
        codes.insert(std::get<QString>(cell));
    return codes;
}

inline QString integrity(const StoreFolder& folder)
{
    return RawSqlite(folder.path()).value("PRAGMA integrity_check");
}

} // namespace platform::storage::test
