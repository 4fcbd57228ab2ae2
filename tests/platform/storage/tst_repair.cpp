// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/core/failurenumbers.h"
#include "platform/storage/rawsqlite.h"
#include "platform/storage/sqlite/pagefile.h"
#include "platform/storage/sqlite/repair.h"
#include "platform/storage/storefixture.h"

#include <QFile>
#include <QRandomGenerator>
#include <QSet>
#include <QTest>

using namespace platform;
using namespace platform::storage;
using namespace platform::storage::test;
using platform::storage::sqlite::PageFile;
using platform::storage::sqlite::PageKind;
using platform::storage::sqlite::RepairResult;
using platform::storage::sqlite::repairStore;
using platform::storage::sqlite::SalvagedRow;

namespace {

constexpr int kRows = 300;
constexpr qsizetype kPageSize = 4096;
constexpr qsizetype kHeader = 100;

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    QCOMPARE(file.write(bytes), bytes.size());
}

QString code(int number)
{
    return QString::number(number).rightJustified(10, u'0');
}

/// What `fill` writes: every tenth row has notes that need overflow pages.
Row clientOf(int number)
{
    const Value notes = number % 10 == 0 ? Value(QString(9000 + number, u'ñ')) : Value(u"notas de "_s + code(number));
    return client(code(number), u"Nombre del cliente "_s + code(number), static_cast<double>(number), notes);
}

void fill(const StoreFolder& folder, int rows = kRows)
{
    static_cast<void>(folder.createClients());
    const QByteArray sql = "WITH RECURSIVE r(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM r WHERE n < "
                           + QByteArray::number(rows)
                           + ") INSERT INTO CLIENTES SELECT printf('%010d', n),"
                             " 'Nombre del cliente ' || printf('%010d', n), n, CASE n % 10"
                             " WHEN 0 THEN replace(hex(zeroblob(9000 + n)), '00', 'ñ')"
                             " ELSE 'notas de ' || printf('%010d', n) END FROM r";
    QCOMPARE(RawSqlite(folder.path()).run(sql.constData()), SQLITE_OK);
}

/// A table's leaf pages: those whose rows have as many columns as a client.
QList<quint32> clientLeaves(const QByteArray& bytes)
{
    const PageFile file(bytes);
    QList<quint32> pages;
    for (quint32 page = 1; page <= file.pageCount(); ++page) {
        const std::vector<SalvagedRow> rows = file.rows(page);
        if (!rows.empty() && rows.front().values.size() == 4)
            pages.append(page);
    }
    return pages;
}

QSet<QString> codesOn(const QByteArray& bytes, quint32 page)
{
    QSet<QString> codes;
    for (const SalvagedRow& row : PageFile(bytes).rows(page))
        codes.insert(std::get<QString>(row.values.front()));
    return codes;
}

void zeroPage(QByteArray& bytes, quint32 page)
{
    bytes.replace(static_cast<qsizetype>(page - 1) * kPageSize, kPageSize, QByteArray(kPageSize, '\0'));
}

QSet<QString> storedCodes(const StoreFolder& folder)
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

QString integrity(const StoreFolder& folder)
{
    return RawSqlite(folder.path()).value("PRAGMA integrity_check");
}

} // namespace

class RepairTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyDamageEndsInAValidStore_data();
    void everyDamageEndsInAValidStore();
    void damagedFileIsKeptByteForByte();
    void earlierKeptFileIsNotOverwritten();
    void everyRowOnAnIntactPageComesBack();
    void everyRowComesBackWhenTheTreesInnerPagesAreGone();
    void everyRowComesBackWhenTheHeaderIsZeroed();
    void everyRowComesBackWhenTheFirstPageIsZeroed();
    void soundFileComesBackWhole();
    void longNotesComeBackWhole();
    void marksOfTheMetadataSurvive();
    void rowsOfSeveralTablesStayApart();
    void deletedRowsStayDeleted();
    void rowThatViolatesAKeyIsLeftOutAndCounted();
    void olderNarrowerTableKeepsItsColumns();
    void randomBitFlipsEndInAValidStore();
    void randomBytesEndInAValidStore();
    void overflowChainThatTurnsInACircleEnds();
    void cellsThatClaimTheSameBytesEnd();
    void journalOfACrashGoesWithTheDamagedFile();
    void fileOfAnotherToolIsRepairedByItsDeclaredTypes();
    void openStoreIsNotRepaired();
    void missingFileFails();
};

void RepairTest::everyDamageEndsInAValidStore_data()
{
    QTest::addColumn<QByteArray>("head");
    QTest::addColumn<double>("keptPart");
    QTest::newRow("truncated in the middle") << QByteArray() << 0.5;
    QTest::newRow("truncated within the first page") << QByteArray() << 0.001;
    QTest::newRow("header alone") << QByteArray() << -1.0;
    QTest::newRow("length 0") << QByteArray() << 0.0;
    QTest::newRow("zeroed header") << QByteArray(kHeader, '\0') << 1.0;
    QTest::newRow("zeroed first page") << QByteArray(kPageSize, '\0') << 1.0;
    QTest::newRow("zeroed first ten pages") << QByteArray(10 * kPageSize, '\0') << 1.0;
    QTest::newRow("plain text over the header") << QByteArray("Esto no es una base de datos.\r\n") << 1.0;
    QTest::newRow("plain text alone") << QByteArray("Esto no es una base de datos.\r\n").repeated(400) << 0.0;
}

void RepairTest::everyDamageEndsInAValidStore()
{
    QFETCH(QByteArray, head);
    QFETCH(double, keptPart);
    const StoreFolder folder;
    fill(folder, 40);
    QByteArray bytes = bytesOf(folder.path());
    bytes.truncate(keptPart < 0 ? kHeader : static_cast<qsizetype>(static_cast<double>(bytes.size()) * keptPart));
    bytes.replace(0, head.size(), head);
    writeBytes(folder.path(), bytes);

    folder.engine().repair(folder.path(), {clients()});

    QCOMPARE(integrity(folder), u"ok"_s);
    const auto connection = folder.open();
    QCOMPARE(connection->tables().size(), 1);
    connection->openTable(u"CLIENTES"_s)->insert(clientOf(999));
    QCOMPARE(failureOf([&] { connection->openTable(u"CLIENTES"_s)->insert(clientOf(999)); }), kDuplicateKey);
}

void RepairTest::damagedFileIsKeptByteForByte()
{
    const StoreFolder folder;
    fill(folder, 20);
    QByteArray bytes = bytesOf(folder.path());
    bytes.replace(0, kHeader, QByteArray(kHeader, 'x'));
    writeBytes(folder.path(), bytes);

    folder.engine().repair(folder.path(), {clients()});

    QCOMPARE(bytesOf(folder.path(u"Clientes.mdb.dañado-1"_s)), bytes);
}

void RepairTest::earlierKeptFileIsNotOverwritten()
{
    const StoreFolder folder;
    writeBytes(folder.path(), "first");
    folder.engine().repair(folder.path(), {clients()});
    writeBytes(folder.path(), "second");

    folder.engine().repair(folder.path(), {clients()});

    QCOMPARE(bytesOf(folder.path(u"Clientes.mdb.dañado-1"_s)), "first");
    QCOMPARE(bytesOf(folder.path(u"Clientes.mdb.dañado-2"_s)), "second");
}

void RepairTest::everyRowOnAnIntactPageComesBack()
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

void RepairTest::everyRowComesBackWhenTheTreesInnerPagesAreGone()
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

void RepairTest::everyRowComesBackWhenTheHeaderIsZeroed()
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

void RepairTest::everyRowComesBackWhenTheFirstPageIsZeroed()
{
    const StoreFolder folder;
    fill(folder);
    QByteArray bytes = bytesOf(folder.path());
    zeroPage(bytes, 1);
    writeBytes(folder.path(), bytes);

    folder.engine().repair(folder.path(), {clients()});

    QCOMPARE(storedCodes(folder).size(), kRows);
}

void RepairTest::soundFileComesBackWhole()
{
    const StoreFolder folder;
    fill(folder);
    const auto before = folder.open()->tables();

    const RepairResult result = repairStore(folder.path(), {});

    QCOMPARE(result.rows, kRows);
    QCOMPARE(result.refusedRows, 0);
    const auto connection = folder.open();
    const auto table = connection->openTable(u"CLIENTES"_s);
    Row row;
    const std::vector<Value> keys{code(123)};
    QCOMPARE(table->seek(u"PorCodigo"_s, keys, row), std::optional<RowId>(123));
    QCOMPARE(row, clientOf(123));
    QCOMPARE(table->definition().indexes.size(), before.first().indexes.size());
}

void RepairTest::longNotesComeBackWhole()
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

void RepairTest::marksOfTheMetadataSurvive()
{
    const StoreFolder folder;
    {
        const auto connection = folder.engine().create(folder.path(), {u";LANGID=0x040A"_s, 32});
        connection->createTable(clients());
        connection->setAllowZeroLength(u"CLIENTES"_s, u"NOMBRE"_s, false);
    }
    QByteArray bytes = bytesOf(folder.path());
    bytes.replace(0, kHeader, QByteArray(kHeader, '\0'));
    writeBytes(folder.path(), bytes);

    folder.engine().repair(folder.path(), {});

    const TableDefinition table = folder.open()->tables().constFirst();
    QVERIFY(table.index(u"PorCodigo")->primary);
    QVERIFY(!table.index(u"PorSaldo")->primary);
    QVERIFY(!table.columns.at(1).allowZeroLength);
    QVERIFY(table.columns.at(0).allowZeroLength);
    QCOMPARE(RawSqlite(folder.path()).value("SELECT value FROM store_metadata WHERE property = 'format'"), u"32"_s);
}

void RepairTest::rowsOfSeveralTablesStayApart()
{
    const StoreFolder folder;
    const TableDefinition zones{u"ZONAS"_s, {text(u"ZONCODIGO"_s), text(u"ZONDESCRIPCION"_s, 35)}, {}};
    fill(folder);
    {
        const auto connection = folder.open();
        connection->createTable(zones);
    }
    QCOMPARE(RawSqlite(folder.path()).run("INSERT INTO ZONAS SELECT CODIGO, 'Zona del norte ' || CODIGO FROM CLIENTES"),
             SQLITE_OK);
    QByteArray bytes = bytesOf(folder.path());
    zeroPage(bytes, 1);
    writeBytes(folder.path(), bytes);

    folder.engine().repair(folder.path(), {zones, clients()});

    const auto connection = folder.open();
    QCOMPARE(connection->openTable(u"ZONAS"_s)->count(), kRows);
    QCOMPARE(connection->openTable(u"CLIENTES"_s)->count(), kRows);
}

void RepairTest::deletedRowsStayDeleted()
{
    const StoreFolder folder;
    fill(folder);
    QCOMPARE(RawSqlite(folder.path()).run("DELETE FROM CLIENTES WHERE rowid BETWEEN 101 AND 200"), SQLITE_OK);

    folder.engine().repair(folder.path(), {});

    QCOMPARE(storedCodes(folder).size(), kRows - 100);
}

void RepairTest::rowThatViolatesAKeyIsLeftOutAndCounted()
{
    const StoreFolder folder;
    fill(folder, 20);
    RawSqlite(folder.path()).run("DROP INDEX \"CLIENTES.PorCodigo\"; DROP INDEX \"CLIENTES.PorSaldo\";"
                                 "UPDATE CLIENTES SET CODIGO = '0000000001' WHERE rowid = 7;"
                                 "UPDATE CLIENTES SET CODIGO = NULL WHERE rowid = 8");

    const RepairResult result = repairStore(folder.path(), {clients()});

    QCOMPARE(result.rows, 18);
    QCOMPARE(result.refusedRows, 2);
}

void RepairTest::olderNarrowerTableKeepsItsColumns()
{
    const StoreFolder folder;
    TableDefinition older = clients();
    older.columns.removeLast();
    {
        const auto connection = folder.create();
        connection->createTable(older);
        connection->openTable(u"CLIENTES"_s)->insert({u"A"_s, u"Ana"_s, 1.0});
    }

    folder.engine().repair(folder.path(), {clients()});

    const auto connection = folder.open();
    QCOMPARE(connection->tables().constFirst().columns.size(), 3);
    QCOMPARE(connection->openTable(u"CLIENTES"_s)->count(), 1);
}

void RepairTest::randomBitFlipsEndInAValidStore()
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

void RepairTest::randomBytesEndInAValidStore()
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

void RepairTest::overflowChainThatTurnsInACircleEnds()
{
    // A leaf whose rows each claim a payload that runs through two pages pointing at each other.
    QByteArray bytes(400 * 512, '\0');
    for (qsizetype page = 1; page < 400; ++page) {
        const qsizetype at = page * 512;
        bytes[at] = '\x0D';
        bytes[at + 4] = 80;
        for (int cell = 0; cell < 80; ++cell) {
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

void RepairTest::cellsThatClaimTheSameBytesEnd()
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

void RepairTest::journalOfACrashGoesWithTheDamagedFile()
{
    const StoreFolder folder;
    fill(folder, 5);
    QByteArray bytes = bytesOf(folder.path());
    bytes.replace(0, kHeader, QByteArray(kHeader, '\0'));
    writeBytes(folder.path(), bytes);
    writeBytes(folder.path(u"Clientes.mdb-journal"_s), "journal");

    folder.engine().repair(folder.path(), {});

    QVERIFY(!QFile::exists(folder.path(u"Clientes.mdb-journal"_s)));
    QCOMPARE(bytesOf(folder.path(u"Clientes.mdb.dañado-1-journal"_s)), "journal");
}

void RepairTest::fileOfAnotherToolIsRepairedByItsDeclaredTypes()
{
    const StoreFolder folder;
    RawSqlite(folder.path()).run("CREATE TABLE EMP(NUM INTEGER PRIMARY KEY, NOMBRE TEXT(30), SALDO REAL);"
                                 "INSERT INTO EMP VALUES(7, 'Uno', 1.5), (9, 'Dos', 2)");

    folder.engine().repair(folder.path(), {});

    const auto connection = folder.open();
    const TableDefinition table = connection->tables().constFirst();
    QCOMPARE(table.columns.at(1).size, 30);
    Row row;
    QCOMPARE(connection->openTable(u"EMP"_s)->last({}, row), std::optional<RowId>(9));
    QCOMPARE(row, (Row{9.0, u"Dos"_s, 2.0}));
}

void RepairTest::openStoreIsNotRepaired()
{
    const StoreFolder folder;
    const auto connection = folder.createClients();

    QCOMPARE(failureOf([&] { folder.engine().repair(folder.path(), {}); }), kCouldNotLockFile);

    QVERIFY(!QFile::exists(folder.path(u"Clientes.mdb.dañado-1"_s)));
}

void RepairTest::missingFileFails()
{
    const StoreFolder folder;

    QCOMPARE(failureOf([&] { folder.engine().repair(folder.path(), {}); }), kDatabaseFileNotFound);
}

QTEST_GUILESS_MAIN(RepairTest)
#include "tst_repair.moc"
