// SPDX-License-Identifier: GPL-3.0-or-later

// Damaged stores of a data root: what `check` and `repair` tell of them is held against what the damage took.

#include "platform/storage/rawsqlite.h"
#include "platform/storage/sqlite/pagefile.h"
#include "platform/storage/upkeep.h"
#include "tools/data/demofolder.h"
#include "tools/data/rowhash.h"

#include <QFile>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QtTest>

using namespace Qt::StringLiterals;
using platform::storage::sqlite::PageFile;
using platform::storage::test::RawSqlite;
using tooltest::DemoFolder;
using tooltest::runTool;
using tooltest::ToolRun;

namespace {

constexpr qsizetype kPageSize = 4096;

QString clientsFile()
{
    return u"Empresa00012/Clientes.mdb"_s;
}

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

void spoilPage(QByteArray& bytes, quint32 page)
{
    bytes.replace(static_cast<qsizetype>(page - 1) * kPageSize, kPageSize, QByteArray(kPageSize, '\x7f'));
}

/// Root page of a table or index, as SQLite's schema tells it.
quint32 rootOf(const QString& path, const char* name)
{
    const QByteArray sql = QByteArray("SELECT rootpage FROM sqlite_master WHERE name = '") + name + "'";
    return RawSqlite(path).value(sql.constData()).toUInt();
}

/// The leaf pages of a table, and the codes in the first column of the rows on one.
std::vector<quint32> leavesOf(const PageFile& file, quint32 root)
{
    std::vector<quint32> leaves;
    for (const quint32 child : file.children(root)) {
        if (!file.rows(child).empty())
            leaves.push_back(child);
    }
    return leaves;
}

QStringList codesOn(const PageFile& file, quint32 page)
{
    QStringList codes;
    for (const auto& row : file.rows(page))
        codes.append(std::get<QString>(row.values.front()));
    return codes;
}

/// The codes in the lines "fallo: FILE: ClientesTabla: CliCodigo=CODE: fila perdida".
QStringList lostCodes(const ToolRun& run)
{
    static const QRegularExpression kLine(u"ClientesTabla: CliCodigo=(.*): fila perdida$"_s);
    QStringList codes;
    for (const QString& line : run.faults()) {
        if (const auto match = kLine.match(line); match.hasMatch())
            codes.append(match.captured(1));
    }
    return codes;
}

/// How many clients are told as lost, whichever index names them.
qsizetype lostClients(const ToolRun& run)
{
    return run.faults().filter(u": ClientesTabla: "_s).filter(u": fila perdida"_s).size();
}

ToolRun repair(const QString& path)
{
    return runTool({u"repair"_s, path});
}

qint64 clientsIn(const QString& path)
{
    return platform::storage::openCopy(path)->openTable(u"ClientesTabla"_s)->count();
}

} // namespace

class RepairFileTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyLostRowIsNamedByItsKey();
    void repairTellsTheSameAsTheCheck();
    void rowsThatAreNotOnTheSpoiltPageAreAllSaved();
    void lostRootOfATableLosesNoRow();
    void spoiltIndexesLeaveTheCountOpen();
    void indexAloneThatIsSpoiltLosesNoRow();
    void everyDamageIsToldAndMended_data();
    void everyDamageIsToldAndMended();
    void soundFileIsNotTouched();
    void damagedFileIsKept();
    void fileInUseIsRefusedAndKept();
    void missingFileIsRefused();
    void tablesOfAKnownStoreComeBackEmptyFromGarbage();
    void checkChangesNoByteOfADamagedStore();
};

void RepairFileTest::everyLostRowIsNamedByItsKey()
{
    const DemoFolder demo;
    const QString path = demo.path(clientsFile());
    QByteArray bytes = bytesOf(path);
    const PageFile file(bytes);
    const std::vector<quint32> leaves = leavesOf(file, rootOf(path, "ClientesTabla"));
    QVERIFY(leaves.size() > 1);
    const QStringList expected = codesOn(file, leaves.at(1));
    QVERIFY(!expected.isEmpty());
    spoilPage(bytes, leaves.at(1));
    writeBytes(path, bytes);

    const ToolRun run = demo.check();

    QCOMPARE(run.exitCode, 1);
    QCOMPARE(lostCodes(run), expected);
    const QString told =
        u"aviso: %1: ClientesTabla: %2 filas legibles, %3 perdidas; no falta ninguna más"_s.arg(clientsFile())
            .arg(20 - expected.size())
            .arg(expected.size());
    QVERIFY2(run.notices().contains(told), qUtf8Printable(run.out));
}

void RepairFileTest::repairTellsTheSameAsTheCheck()
{
    const DemoFolder demo;
    const QString path = demo.path(clientsFile());
    QByteArray bytes = bytesOf(path);
    const PageFile file(bytes);
    spoilPage(bytes, leavesOf(file, rootOf(path, "ClientesTabla")).front());
    writeBytes(path, bytes);
    const ToolRun checked = demo.check();

    const ToolRun repaired = repair(path);

    QCOMPARE(repaired.exitCode, 1);
    QVERIFY(!lostCodes(checked).isEmpty());
    QCOMPARE(lostCodes(repaired), lostCodes(checked));
    QVERIFY2(repaired.out.contains(u"con pérdidas"), qUtf8Printable(repaired.out));
}

void RepairFileTest::rowsThatAreNotOnTheSpoiltPageAreAllSaved()
{
    const DemoFolder demo;
    const QString path = demo.path(clientsFile());
    QByteArray bytes = bytesOf(path);
    const PageFile file(bytes);
    const quint32 page = leavesOf(file, rootOf(path, "ClientesTabla")).front();
    const auto before = tools::hashesOf(*platform::storage::openCopy(path));
    spoilPage(bytes, page);
    writeBytes(path, bytes);

    QCOMPARE(repair(path).exitCode, 1);

    auto after = tools::hashesOf(*platform::storage::openCopy(path));
    QCOMPARE(after.size(), before.size());
    for (qsizetype i = 0; i < before.size(); ++i) {
        tools::RowHashes expected = before.at(i).rows;
        if (before.at(i).table == u"ClientesTabla") {
            for (const auto& row : file.rows(page))
                expected.remove(row.rowId);
        }
        QCOMPARE(after.at(i).rows, expected);
    }
}

void RepairFileTest::lostRootOfATableLosesNoRow()
{
    const DemoFolder demo;
    const QString path = demo.path(clientsFile());
    QByteArray bytes = bytesOf(path);
    spoilPage(bytes, rootOf(path, "ClientesTabla"));
    writeBytes(path, bytes);

    const ToolRun run = repair(path);

    QCOMPARE(run.exitCode, 0);
    QVERIFY2(run.out.contains(u"nada perdido"), qUtf8Printable(run.out));
    QCOMPARE(clientsIn(path), 20);
}

void RepairFileTest::spoiltIndexesLeaveTheCountOpen()
{
    const DemoFolder demo;
    const QString path = demo.path(clientsFile());
    QByteArray bytes = bytesOf(path);
    const PageFile file(bytes);
    spoilPage(bytes, leavesOf(file, rootOf(path, "ClientesTabla")).front());
    for (const char* index :
         {"ClientesTabla.CliCodigoIndice", "ClientesTabla.CliNombreIndice", "ClientesTabla.CliNifIndice"})
        spoilPage(bytes, rootOf(path, index));
    writeBytes(path, bytes);

    const ToolRun run = repair(path);

    QCOMPARE(run.exitCode, 1);
    QVERIFY2(
        run.notices().join(u'\n').contains(u"ClientesTabla: %1 filas legibles, 0 perdidas; los índices no "
                                           "dicen si falta alguna más"_s.arg(clientsIn(path))),
        qUtf8Printable(run.out));
}

void RepairFileTest::indexAloneThatIsSpoiltLosesNoRow()
{
    const DemoFolder demo;
    const QString path = demo.path(clientsFile());
    QByteArray bytes = bytesOf(path);
    spoilPage(bytes, rootOf(path, "ClientesTabla.CliNombreIndice"));
    writeBytes(path, bytes);

    const ToolRun run = demo.check();

    QCOMPARE(run.exitCode, 1);
    QVERIFY(lostCodes(run).isEmpty());
    QVERIFY2(run.out.contains(u"ClientesTabla: 20 filas legibles, 0 perdidas; no falta ninguna"_s),
             qUtf8Printable(run.out));
    QCOMPARE(repair(path).exitCode, 0);
    QCOMPARE(clientsIn(path), 20);
}

void RepairFileTest::everyDamageIsToldAndMended_data()
{
    QTest::addColumn<int>("seed");
    QTest::addColumn<QString>("kind");
    for (int seed = 1; seed <= 4; ++seed) {
        for (const char* kind : {"bytes", "pages", "cut", "head", "moved", "zeros"})
            QTest::addRow("%s %d", kind, seed) << seed << QString::fromLatin1(kind);
    }
}

void RepairFileTest::everyDamageIsToldAndMended()
{
    QFETCH(int, seed);
    QFETCH(QString, kind);
    const DemoFolder demo;
    const QString path = demo.path(clientsFile());
    QByteArray bytes = bytesOf(path);
    QRandomGenerator random(static_cast<quint32>(seed));
    const auto pages = static_cast<quint32>(bytes.size() / kPageSize);
    for (int hit = 0; hit < 5; ++hit) {
        if (kind == u"bytes")
            bytes[random.bounded(bytes.size())] = static_cast<char>(random.bounded(256));
        else if (kind == u"pages")
            spoilPage(bytes, 2 + random.bounded(pages - 1));
        else if (kind == u"moved")
            bytes.replace(random.bounded(pages) * kPageSize, kPageSize,
                          bytes.mid(random.bounded(pages) * kPageSize, kPageSize));
        else if (kind == u"zeros")
            bytes.replace(random.bounded(pages) * kPageSize, kPageSize, QByteArray(kPageSize, '\0'));
        else if (hit == 0 && kind == u"cut")
            bytes.truncate(random.bounded(bytes.size()));
        else if (hit == 0)
            bytes.replace(0, 100 + random.bounded(200), QByteArray(300, 'x').first(100));
    }
    writeBytes(path, bytes);

    const ToolRun checked = demo.check();
    const ToolRun repaired = repair(path);

    QVERIFY2(checked.exitCode == 0 || checked.exitCode == 1, qUtf8Printable(checked.err));
    QVERIFY2(repaired.exitCode == 0 || repaired.exitCode == 1, qUtf8Printable(repaired.err));
    const ToolRun after = demo.check();
    QVERIFY2(!after.out.contains(u"dañado"), qUtf8Printable(after.out));
    if (checked.notices().filter(u"ClientesTabla: "_s).filter(u"no falta ninguna"_s).size() == 1)
        QVERIFY2(clientsIn(path) + lostClients(checked) >= 20, qUtf8Printable(checked.out));
    else if (checked.exitCode == 0)
        QCOMPARE(clientsIn(path), 20);
}

void RepairFileTest::soundFileIsNotTouched()
{
    const DemoFolder demo;
    const auto before = demo.stores();

    const ToolRun run = repair(demo.path(clientsFile()));

    QCOMPARE(run.exitCode, 0);
    QVERIFY2(run.out.contains(u"no está dañado: no se toca"), qUtf8Printable(run.out));
    QVERIFY(demo.stores() == before);
}

void RepairFileTest::damagedFileIsKept()
{
    const DemoFolder demo;
    const QString path = demo.path(clientsFile());
    QByteArray bytes = bytesOf(path);
    bytes.replace(0, 100, QByteArray(100, '\0'));
    writeBytes(path, bytes);

    const ToolRun run = repair(path);

    QCOMPARE(bytesOf(path + u".dañado-1"_s), bytes);
    QVERIFY2(run.out.contains(u"El fichero dañado queda en «"_s + path + u".dañado-1»"_s),
             qUtf8Printable(run.out));
}

void RepairFileTest::fileInUseIsRefusedAndKept()
{
    const DemoFolder demo;
    const auto station =
        platform::storage::sqliteEngine()->open(demo.path(clientsFile()), platform::storage::Sharing::Shared);
    const auto before = demo.stores();

    const ToolRun run = repair(demo.path(clientsFile()));

    QCOMPARE(run.exitCode, 2);
    QVERIFY2(run.err.contains(u"un puesto tiene abierto"), qUtf8Printable(run.err));
    QVERIFY(demo.stores() == before);
}

void RepairFileTest::missingFileIsRefused()
{
    const DemoFolder demo;

    const ToolRun run = repair(demo.path(u"Empresa00012/NADA.MDB"_s));

    QCOMPARE(run.exitCode, 2);
    QVERIFY2(run.err.contains(u"no existe el fichero"), qUtf8Printable(run.err));
    QVERIFY(!QFile::exists(demo.path(u"Empresa00012/NADA.MDB.ldb"_s)));
}

void RepairFileTest::tablesOfAKnownStoreComeBackEmptyFromGarbage()
{
    const DemoFolder demo;
    const QString path = demo.path(u"Empresa00012/ZONAS.MDB"_s);
    writeBytes(path, QByteArray(5000, 'x'));

    QCOMPARE(repair(path).exitCode, 1);

    QCOMPARE(platform::storage::openCopy(path)->openTable(u"ZONATAB"_s)->count(), 0);
}

void RepairFileTest::checkChangesNoByteOfADamagedStore()
{
    const DemoFolder demo;
    const QString path = demo.path(clientsFile());
    QByteArray bytes = bytesOf(path);
    spoilPage(bytes, rootOf(path, "ClientesTabla"));
    writeBytes(path, bytes);
    const auto before = demo.stores();

    QCOMPARE(demo.check().exitCode, 1);

    QVERIFY(demo.stores() == before);
}

QTEST_GUILESS_MAIN(RepairFileTest)
#include "tst_repairfile.moc"
