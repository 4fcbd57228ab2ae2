// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/core/failurenumbers.h"
#include "platform/storage/damage.h"
#include "platform/storage/sqlite/pagefile.h"

#include <QRandomGenerator>

using namespace platform;
using namespace platform::storage;
using namespace platform::storage::test;
using platform::storage::sqlite::PageFile;
using platform::storage::sqlite::PageKind;

class SalvageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyRowOnAnIntactPageComesBack();
    void everyRowComesBackWhenTheTreesInnerPagesAreGone();
    void everyRowComesBackWhenTheHeaderIsZeroed();
    void everyRowComesBackWhenTheFirstPageIsZeroed();
    void longNotesComeBackWhole();
    void rowsOfSeveralTablesStayApart();
    void deletedRowsStayDeleted();
    void randomBitFlipsEndInAValidStore();
    void randomBytesEndInAValidStore();
    void overflowChainThatTurnsInACircleEnds();
    void cellsThatClaimTheSameBytesEnd();
};

void SalvageTest::everyRowOnAnIntactPageComesBack()
{
    const StoreFolder folder;
    fill(folder);
    QByteArray bytes = bytesOf(folder.path());
    const QList<quint32> leaves = clientLeaves(bytes);
    QVERIFY(leaves.size() > 4);
    QSet<QString> expected = storedCodes(folder);
    for (const quint32 page : {leaves.at(1), leaves.at(leaves.size() - 2)}) {
        expected -= codesOn(bytes, page);
        zeroPage(bytes, page);
    }
    writeBytes(folder.path(), bytes);

    folder.engine().repair(folder.path(), {});

    QCOMPARE(storedCodes(folder), expected);
}

void SalvageTest::everyRowComesBackWhenTheTreesInnerPagesAreGone()
{
    const StoreFolder folder;
    fill(folder);
    QByteArray bytes = bytesOf(folder.path());
    const PageFile file(bytes);
    int zeroed = 0;
    for (quint32 page = 2; page <= file.pageCount(); ++page) {
        if (file.kind(page) != PageKind::TableInterior)
            continue;
        zeroPage(bytes, page);
        ++zeroed;
    }
    QVERIFY(zeroed > 0);
    writeBytes(folder.path(), bytes);

    folder.engine().repair(folder.path(), {});

    QCOMPARE(storedCodes(folder).size(), kRows);
}

void SalvageTest::everyRowComesBackWhenTheHeaderIsZeroed()
{
    const StoreFolder folder;
    fill(folder);
    QByteArray bytes = bytesOf(folder.path());
    bytes.replace(0, kHeader, QByteArray(kHeader, '\0'));
    writeBytes(folder.path(), bytes);
    QCOMPARE(failureOf([&] { static_cast<void>(folder.open()); }), kNotADatabase);

    folder.engine().repair(folder.path(), {});

    QCOMPARE(storedCodes(folder).size(), kRows);
}

void SalvageTest::everyRowComesBackWhenTheFirstPageIsZeroed()
{
    const StoreFolder folder;
    fill(folder);
    QByteArray bytes = bytesOf(folder.path());
    zeroPage(bytes, 1);
    writeBytes(folder.path(), bytes);

    folder.engine().repair(folder.path(), {clients()});

    QCOMPARE(storedCodes(folder).size(), kRows);
}

void SalvageTest::longNotesComeBackWhole()
{
    const StoreFolder folder;
    fill(folder, 40);
    QByteArray bytes = bytesOf(folder.path());
    bytes.replace(0, kHeader, QByteArray(kHeader, '\0'));
    writeBytes(folder.path(), bytes);

    folder.engine().repair(folder.path(), {});

    Row row;
    const auto connection = folder.open();
    const std::vector<Value> keys{code(20)};
    QVERIFY(connection->openTable(u"CLIENTES"_s)->seek(u"PorCodigo"_s, keys, row));
    QCOMPARE(row, clientOf(20));
}

void SalvageTest::rowsOfSeveralTablesStayApart()
{
    const StoreFolder folder;
    const TableDefinition zones{u"ZONAS"_s, {text(u"ZONCODIGO"_s), text(u"ZONDESCRIPCION"_s, 35)}, {}};
    fill(folder);
    {
        const auto connection = folder.open();
        connection->createTable(zones);
    }
    QCOMPARE(RawSqlite(folder.path())
                 .run("INSERT INTO ZONAS SELECT CODIGO, 'Zona del norte ' || CODIGO FROM CLIENTES"),
             SQLITE_OK);
    QByteArray bytes = bytesOf(folder.path());
    zeroPage(bytes, 1);
    writeBytes(folder.path(), bytes);

    folder.engine().repair(folder.path(), {zones, clients()});

    const auto connection = folder.open();
    QCOMPARE(connection->openTable(u"ZONAS"_s)->count(), kRows);
    QCOMPARE(connection->openTable(u"CLIENTES"_s)->count(), kRows);
}

void SalvageTest::deletedRowsStayDeleted()
{
    const StoreFolder folder;
    fill(folder);
    QCOMPARE(RawSqlite(folder.path()).run("DELETE FROM CLIENTES WHERE rowid BETWEEN 101 AND 200"), SQLITE_OK);

    folder.engine().repair(folder.path(), {});

    QCOMPARE(storedCodes(folder).size(), kRows - 100);
}

void SalvageTest::randomBitFlipsEndInAValidStore()
{
    const StoreFolder source;
    fill(source, 60);
    const QByteArray sound = bytesOf(source.path());
    QRandomGenerator random(20240517);
    for (int attempt = 0; attempt < 40; ++attempt) {
        const StoreFolder folder;
        QByteArray bytes = sound;
        for (int flip = 0; flip < 200; ++flip) {
            const qsizetype at = random.bounded(static_cast<int>(bytes.size()));
            bytes[at] = static_cast<char>(bytes.at(at) ^ (1 << random.bounded(8)));
        }
        writeBytes(folder.path(), bytes);

        folder.engine().repair(folder.path(), {clients()});

        QCOMPARE(integrity(folder), u"ok"_s);
        static_cast<void>(folder.open());
    }
}

void SalvageTest::randomBytesEndInAValidStore()
{
    QRandomGenerator random(4711);
    for (int attempt = 0; attempt < 20; ++attempt) {
        const StoreFolder folder;
        QByteArray bytes(random.bounded(1, 60000), '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(random.bounded(256));
        // Every page claims to be the leaf of a table.
        for (qsizetype at = 0; at < bytes.size(); at += 512)
            bytes[at] = '\x0D';
        writeBytes(folder.path(), bytes);

        folder.engine().repair(folder.path(), {clients()});

        QCOMPARE(integrity(folder), u"ok"_s);
    }
}

void SalvageTest::overflowChainThatTurnsInACircleEnds()
{
    // A leaf whose rows each claim a payload that runs through two pages pointing at each other.
    QByteArray bytes(qsizetype{400} * 512, '\0');
    for (qsizetype page = 1; page < 400; ++page) {
        const qsizetype at = page * 512;
        bytes[at] = '\x0D';
        bytes[at + 4] = 80;
        for (qsizetype cell = 0; cell < 80; ++cell) {
            bytes[at + 8 + 2 * cell] = 1;
            bytes[at + 9 + 2 * cell] = static_cast<char>(0);
        }
        bytes.replace(at + 256, 4, QByteArray::fromHex("86a00001"));
    }
    const StoreFolder folder;
    writeBytes(folder.path(), bytes);

    folder.engine().repair(folder.path(), {clients()});

    QCOMPARE(integrity(folder), u"ok"_s);
}

void SalvageTest::cellsThatClaimTheSameBytesEnd()
{
    // 64 KiB pages whose 30,000 cells are all the same row.
    constexpr qsizetype kLargePage = 65536;
    constexpr int kCells = 30000;
    QByteArray page(kLargePage, '\0');
    page[0] = '\x0D';
    page[3] = static_cast<char>(kCells >> 8);
    page[4] = static_cast<char>(kCells & 0xFF);
    for (int cell = 0; cell < kCells; ++cell) {
        page[8 + 2 * cell] = static_cast<char>(0xF0);
        page[9 + 2 * cell] = 0;
    }
    page.replace(0xF000, 5, QByteArray::fromHex("9001010200"));
    const StoreFolder folder;
    writeBytes(folder.path(), page.repeated(20));

    folder.engine().repair(folder.path(), {clients()});

    QCOMPARE(integrity(folder), u"ok"_s);
}

QTEST_GUILESS_MAIN(SalvageTest)
#include "tst_salvage.moc"
