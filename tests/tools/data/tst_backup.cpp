// SPDX-License-Identifier: GPL-3.0-or-later

// Copies of a data root as a user makes them: the real tool, real stores, and a station that writes
// meanwhile.

#include "platform/storage/rawsqlite.h"
#include "platform/storage/upkeep.h"
#include "tools/data/demofolder.h"
#include "tools/data/rowhash.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QtTest>

using namespace Qt::StringLiterals;
using platform::storage::Connection;
using platform::storage::Sharing;
using tooltest::DemoFolder;
using tooltest::filesUnder;
using tooltest::runTool;
using tooltest::ToolRun;

namespace {

QString clientsFile()
{
    return u"Empresa00012/Clientes.mdb"_s;
}

QString manifestName()
{
    return u"orvane-copia.txt"_s;
}

/// A folder for copies, beside a data root.
struct Desk
{
    DemoFolder root;
    QTemporaryDir folder;

    [[nodiscard]] QString copy() const { return folder.filePath(u"copia"_s); }
    [[nodiscard]] QString target() const { return folder.filePath(u"destino"_s); }
    [[nodiscard]] ToolRun backUp() const { return runTool({u"backup"_s, root.path(), copy()}); }
    [[nodiscard]] ToolRun verify() const { return runTool({u"verify"_s, copy()}); }
    [[nodiscard]] ToolRun restore(const QString& to, bool replaces = false) const
    {
        QStringList arguments{u"restore"_s, copy(), to};
        return runTool(replaces ? arguments << u"--replace"_s : arguments);
    }
};

std::unique_ptr<Connection> opened(const QString& file, Sharing sharing = Sharing::Shared)
{
    return platform::storage::sqliteEngine()->open(file, sharing);
}

/// What every store below the folder holds, by path.
QMap<QString, QList<tools::TableHashes>> rowsBelow(const QString& folder)
{
    QMap<QString, QList<tools::TableHashes>> rows;
    QDirIterator files(folder, {u"*.mdb"_s}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString file = files.next();
        rows.insert(QDir(folder).relativeFilePath(file), tools::hashesOf(*opened(file)));
    }
    return rows;
}

void flipByte(const QString& file, qint64 offset)
{
    QFile bytes(file);
    QVERIFY(bytes.open(QIODevice::ReadWrite));
    QVERIFY(bytes.seek(offset));
    char byte = 0;
    QVERIFY(bytes.getChar(&byte));
    QVERIFY(bytes.seek(offset));
    QVERIFY(bytes.putChar(static_cast<char>(byte ^ 0x20)));
}

void addClient(const QString& root, const QString& code)
{
    const auto store = opened(QDir(root).filePath(clientsFile()));
    const auto table = store->openTable(u"ClientesTabla"_s);
    platform::storage::Row row(static_cast<std::size_t>(table->definition().columns.size()));
    row.front() = code;
    table->insert(row);
}

qint64 countOf(const QString& file, const QString& table)
{
    return platform::storage::openCopy(file)->openTable(table)->count();
}

} // namespace

class BackupTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void copyHoldsEveryRowOfEveryStore();
    void copyHoldsTheReports();
    void storesOfTheRootKeepTheirBytes();
    void copyOpensWithoutLockFiles();
    void emptyFolderIsTaken();
    void folderWithContentIsRefusedAndKept();
    void folderWithoutCatalogueIsNoDataRoot();
    void storeHeldAloneGivesNoCopy();
    void damagedStoreGivesNoCopy();
    void rowsThatWaitInAJournalAreNotLost();
    void copyOfBusyStoresIsOfOneMomentAndStationsGoOn();

    void soundCopyIsVerified();
    void everyAlteredRowIsNamed();
    void alteredByteIsFound();
    void missingFileIsFound();
    void alteredListIsRefused_data();
    void alteredListIsRefused();
    void folderWithoutListIsNoCopy();

    void missingFolderBecomesTheRoot();
    void restoredRootPassesTheCheck();
    void folderWithContentIsRefusedWithoutReplace();
    void replaceBringsTheRowsBackAndKeepsTheFormerFiles();
    void storeYoungerThanTheCopyIsPutAside();
    void otherFilesOfTheRootStay();
    void earlierKeptFilesAreNotOverwritten();
    void rootInUseIsRefusedAndKept();
    void faultyCopyIsNotRestored();

    void missingArgumentIsRefused_data();
    void missingArgumentIsRefused();
};

void BackupTest::copyHoldsEveryRowOfEveryStore()
{
    const Desk desk;

    const ToolRun run = desk.backUp();

    QCOMPARE(run.exitCode, 0);
    QVERIFY2(run.out.contains(u"todos los ficheros son de un mismo instante"), qUtf8Printable(run.out));
    QCOMPARE(rowsBelow(desk.copy()).size(), 17);
    QVERIFY(rowsBelow(desk.copy()) == rowsBelow(desk.root.path()));
}

void BackupTest::copyHoldsTheReports()
{
    const Desk desk;
    QFile report(desk.root.path(u"propio.RPT"_s));
    QVERIFY(report.open(QIODevice::WriteOnly));
    report.write("informe");
    report.close();

    QCOMPARE(desk.backUp().exitCode, 0);

    QCOMPARE(filesUnder(desk.copy()).value(u"propio.RPT"_s), "informe");
}

void BackupTest::storesOfTheRootKeepTheirBytes()
{
    const Desk desk;
    const auto before = desk.root.stores();

    QCOMPARE(desk.backUp().exitCode, 0);

    QVERIFY(desk.root.stores() == before);
}

void BackupTest::copyOpensWithoutLockFiles()
{
    const Desk desk;

    QCOMPARE(desk.backUp().exitCode, 0);
    QCOMPARE(desk.verify().exitCode, 0);

    QDirIterator left(desk.copy(), {u"*.ldb"_s, u"*-journal"_s}, QDir::Files, QDirIterator::Subdirectories);
    QVERIFY(!left.hasNext());
}

void BackupTest::emptyFolderIsTaken()
{
    const Desk desk;
    QVERIFY(QDir().mkpath(desk.copy()));

    QCOMPARE(desk.backUp().exitCode, 0);

    QCOMPARE(desk.verify().exitCode, 0);
}

void BackupTest::folderWithContentIsRefusedAndKept()
{
    const Desk desk;
    QVERIFY(QDir().mkpath(desk.copy()));
    QFile note(desk.copy() + u"/nota.txt"_s);
    QVERIFY(note.open(QIODevice::WriteOnly));
    note.close();

    const ToolRun run = desk.backUp();

    QCOMPARE(run.exitCode, 2);
    QVERIFY2(run.err.contains(u"no está vacía"), qUtf8Printable(run.err));
    QCOMPARE(QDir(desk.folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList{u"copia"_s});
    QCOMPARE(filesUnder(desk.copy()).keys(), QStringList{u"nota.txt"_s});
}

void BackupTest::folderWithoutCatalogueIsNoDataRoot()
{
    const QTemporaryDir folder;

    const ToolRun run = runTool({u"backup"_s, folder.path(), folder.filePath(u"copia"_s)});

    QCOMPARE(run.exitCode, 2);
    QVERIFY2(run.err.contains(u"no es una raíz de datos"), qUtf8Printable(run.err));
    QVERIFY(QDir(folder.path()).isEmpty());
}

void BackupTest::storeHeldAloneGivesNoCopy()
{
    const Desk desk;
    const auto held = opened(desk.root.path(clientsFile()), Sharing::Exclusive);

    const ToolRun run = desk.backUp();

    QCOMPARE(run.exitCode, 2);
    QVERIFY2(run.err.contains(u"Empresa00012/Clientes.mdb: otro puesto lo tiene bloqueado"),
             qUtf8Printable(run.err));
    QVERIFY(QDir(desk.folder.path()).isEmpty());
}

void BackupTest::damagedStoreGivesNoCopy()
{
    const Desk desk;
    const QString file = desk.root.path(u"Empresa00012/ASISTENCIAS.MDB"_s);
    QFile store(file);
    QVERIFY(store.open(QIODevice::ReadWrite));
    QVERIFY(store.seek(store.size() - 4096));
    store.write(QByteArray(4096, '\x7f'));
    store.close();

    const ToolRun run = desk.backUp();

    QCOMPARE(run.exitCode, 2);
    QVERIFY2(run.err.contains(u"Empresa00012/ASISTENCIAS.MDB"), qUtf8Printable(run.err));
    QVERIFY2(run.err.contains(u"dañado"), qUtf8Printable(run.err));
    QVERIFY(QDir(desk.folder.path()).isEmpty());
}

void BackupTest::rowsThatWaitInAJournalAreNotLost()
{
    const Desk desk;
    const QString file = desk.root.path(clientsFile());
    // A station died in the middle of a save: its journal holds the page as it was.
    QProcess station;
    station.start(u"sqlite3"_s, {file});
    station.write("PRAGMA cache_size = 1; PRAGMA cache_spill = 1; BEGIN IMMEDIATE;"
                  "UPDATE ClientesTabla SET Notas = 'a medias' || hex(zeroblob(900)); SELECT 'spilt';\n");
    QVERIFY(station.waitForReadyRead());
    station.kill();
    QVERIFY(station.waitForFinished());
    QVERIFY(QFile::exists(file + u"-journal"_s));

    QCOMPARE(desk.backUp().exitCode, 0);

    const DemoFolder whole;
    QVERIFY(rowsBelow(desk.copy()) == rowsBelow(whole.path()));
}

void BackupTest::copyOfBusyStoresIsOfOneMomentAndStationsGoOn()
{
    const Desk desk;
    const QString clients = clientsFile();
    const QString telephones = u"TELEFONOS DE CLIENTES.MDB"_s;
    const QString consultations = u"Empresa00012/ASISTENCIAS.MDB"_s;
    const auto counted = [&](const QString& folder) {
        const QDir root(folder);
        return QList<qint64>{countOf(root.filePath(clients), u"ClientesTabla"_s),
                             countOf(root.filePath(telephones), u"TELEFON"_s),
                             countOf(root.filePath(consultations), u"CONS"_s)};
    };
    const QList<qint64> before = counted(desk.root.path());
    // Saves a client, a telephone and a consultation in turn, for ever.
    QProcess station;
    station.setWorkingDirectory(desk.root.path());
    station.start(QStringLiteral(ORVANE_STATION), {u"write"_s, u"B"_s});
    QTRY_VERIFY_WITH_TIMEOUT(station.bytesAvailable() > 200, 20000);
    const qsizetype saved = station.peek(100000).count("\nC ");

    const ToolRun run = desk.backUp();

    QCOMPARE(run.exitCode, 0);
    QVERIFY2(run.out.contains(u"todos los ficheros son de un mismo instante"), qUtf8Printable(run.out));
    QCOMPARE(desk.verify().exitCode, 0);
    const QList<qint64> copied = counted(desk.copy());
    const qint64 addedClients = copied.at(0) - before.at(0);
    const qint64 addedTelephones = copied.at(1) - before.at(1);
    const qint64 addedConsultations = copied.at(2) - before.at(2);
    QVERIFY(addedClients >= saved);
    QVERIFY(addedTelephones == addedClients || addedTelephones == addedClients - 1);
    QVERIFY(addedConsultations == addedTelephones || addedConsultations == addedTelephones - 1);
    QVERIFY(addedConsultations >= addedClients - 1);
    // The station had to wait and didn't fail.
    const qint64 heard = station.bytesAvailable();
    QTRY_VERIFY_WITH_TIMEOUT(station.bytesAvailable() > heard, 10000);
    QCOMPARE(station.state(), QProcess::Running);
    station.kill();
    QVERIFY(station.waitForFinished());
}

void BackupTest::soundCopyIsVerified()
{
    const Desk desk;
    QCOMPARE(desk.backUp().exitCode, 0);
    const auto before = filesUnder(desk.copy());

    const ToolRun run = desk.verify();

    QCOMPARE(run.exitCode, 0);
    QVERIFY2(run.out.contains(u"0 fallos"), qUtf8Printable(run.out));
    QVERIFY(filesUnder(desk.copy()) == before);
}

void BackupTest::everyAlteredRowIsNamed()
{
    const Desk desk;
    QCOMPARE(desk.backUp().exitCode, 0);
    const int code = platform::storage::test::RawSqlite(desk.copy() + u"/Empresa00012/ZONAS.MDB"_s)
                         .run("DROP INDEX \"ZONATAB.ZONASINDICE\"; UPDATE ZONATAB SET ZONDESCRIPCION = "
                              "'otra' WHERE rowid = 2;"
                              "DELETE FROM ZONATAB WHERE rowid = 3; INSERT INTO ZONATAB(rowid) VALUES (900)");
    QCOMPARE(code, SQLITE_OK);

    const ToolRun run = desk.verify();

    QCOMPARE(run.exitCode, 1);
    const QStringList faults = run.faults();
    const QString zones = u"fallo: Empresa00012/ZONAS.MDB: "_s;
    QVERIFY2(faults.contains(zones + u"ZONATAB: fila 2: no es la que se copió"_s), qUtf8Printable(run.out));
    QVERIFY2(faults.contains(zones + u"ZONATAB: fila 3: falta"_s), qUtf8Printable(run.out));
    QVERIFY2(faults.contains(zones + u"ZONATAB: fila 900: no estaba en la copia"_s), qUtf8Printable(run.out));
    QVERIFY2(faults.contains(zones + u"ZONATAB: no tiene la forma que se copió"_s), qUtf8Printable(run.out));
    QCOMPARE(faults.filter(u"fila "_s).size(), 3);
}

void BackupTest::alteredByteIsFound()
{
    const Desk desk;
    QCOMPARE(desk.backUp().exitCode, 0);
    // In the header, where SQLite keeps nothing of the rows.
    flipByte(desk.copy() + u"/Empresa00012/ZONAS.MDB"_s, 75);

    const ToolRun run = desk.verify();

    QCOMPARE(run.exitCode, 1);
    QVERIFY2(run.faults().contains(u"fallo: Empresa00012/ZONAS.MDB: no tiene los bytes que se copiaron"_s),
             qUtf8Printable(run.out));
}

void BackupTest::missingFileIsFound()
{
    const Desk desk;
    QCOMPARE(desk.backUp().exitCode, 0);
    QVERIFY(QFile::remove(desk.copy() + u"/Empresa00001/ZONAS.MDB"_s));

    const ToolRun run = desk.verify();

    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.faults(), QStringList{u"fallo: Empresa00001/ZONAS.MDB: falta"_s});
}

void BackupTest::alteredListIsRefused_data()
{
    QTest::addColumn<double>("part");
    QTest::newRow("first line") << 0.0;
    QTest::newRow("a row") << 0.5;
    QTest::newRow("last line") << 1.0;
}

void BackupTest::alteredListIsRefused()
{
    QFETCH(double, part);
    const Desk desk;
    QCOMPARE(desk.backUp().exitCode, 0);
    const QString list = desk.copy() + u'/' + manifestName();
    flipByte(list, static_cast<qint64>(static_cast<double>(QFileInfo(list).size() - 2) * part));

    const ToolRun run = desk.verify();

    QCOMPARE(run.exitCode, 2);
    QVERIFY2(run.err.contains(u"está dañada"), qUtf8Printable(run.err));
}

void BackupTest::folderWithoutListIsNoCopy()
{
    const QTemporaryDir folder;

    const ToolRun run = runTool({u"verify"_s, folder.path()});

    QCOMPARE(run.exitCode, 2);
    QVERIFY2(run.err.contains(u"no es una copia"), qUtf8Printable(run.err));
}

void BackupTest::missingFolderBecomesTheRoot()
{
    const Desk desk;
    QCOMPARE(desk.backUp().exitCode, 0);

    QCOMPARE(desk.restore(desk.target()).exitCode, 0);

    QVERIFY(rowsBelow(desk.target()) == rowsBelow(desk.root.path()));
    QVERIFY(!QFile::exists(desk.target() + u'/' + manifestName()));
}

void BackupTest::restoredRootPassesTheCheck()
{
    const Desk desk;
    QCOMPARE(desk.backUp().exitCode, 0);
    QCOMPARE(desk.restore(desk.target()).exitCode, 0);

    const ToolRun run = runTool({u"check"_s, desk.target()});

    QCOMPARE(run.exitCode, 0);
}

void BackupTest::folderWithContentIsRefusedWithoutReplace()
{
    const Desk desk;
    QCOMPARE(desk.backUp().exitCode, 0);
    const auto before = desk.root.stores();

    const ToolRun run = desk.restore(desk.root.path());

    QCOMPARE(run.exitCode, 2);
    QVERIFY2(run.err.contains(u"--replace"), qUtf8Printable(run.err));
    QVERIFY(desk.root.stores() == before);
}

void BackupTest::replaceBringsTheRowsBackAndKeepsTheFormerFiles()
{
    const Desk desk;
    QCOMPARE(desk.backUp().exitCode, 0);
    const auto rows = rowsBelow(desk.root.path());
    addClient(desk.root.path(), u"NUEVO"_s);
    const QByteArray former = desk.root.stores().value(clientsFile());

    const ToolRun run = desk.restore(desk.root.path(), true);

    QCOMPARE(run.exitCode, 0);
    QVERIFY(rowsBelow(desk.root.path()) == rows);
    QCOMPARE(desk.root.stores().value(clientsFile() + u".anterior-1"_s), former);
    QVERIFY2(run.out.contains(u"El fichero que había queda en «Empresa00012/Clientes.mdb.anterior-1»"),
             qUtf8Printable(run.out));
}

void BackupTest::storeYoungerThanTheCopyIsPutAside()
{
    const Desk desk;
    const QString zones = u"Empresa00012/ZONAS.MDB"_s;
    const QByteArray bytes = desk.root.stores().value(zones);
    QVERIFY(QFile::remove(desk.root.path(zones)));
    QCOMPARE(desk.backUp().exitCode, 0);
    QFile younger(desk.root.path(zones));
    QVERIFY(younger.open(QIODevice::WriteOnly));
    younger.write(bytes);
    younger.close();

    QCOMPARE(desk.restore(desk.root.path(), true).exitCode, 0);

    QVERIFY(!QFile::exists(desk.root.path(zones)));
    QCOMPARE(desk.root.stores().value(zones + u".anterior-1"_s), bytes);
}

void BackupTest::otherFilesOfTheRootStay()
{
    const Desk desk;
    QCOMPARE(desk.backUp().exitCode, 0);
    for (const QString& name : {u"Empresa00012/CODIGOS POSTALES.MDB"_s, u"nota.txt"_s}) {
        QFile other(desk.root.path(name));
        QVERIFY(other.open(QIODevice::WriteOnly));
        other.write("de otro programa");
    }

    QCOMPARE(desk.restore(desk.root.path(), true).exitCode, 0);

    QCOMPARE(desk.root.stores().value(u"Empresa00012/CODIGOS POSTALES.MDB"_s), "de otro programa");
    QCOMPARE(desk.root.stores().value(u"nota.txt"_s), "de otro programa");
}

void BackupTest::earlierKeptFilesAreNotOverwritten()
{
    const Desk desk;
    QCOMPARE(desk.backUp().exitCode, 0);
    QCOMPARE(desk.restore(desk.root.path(), true).exitCode, 0);
    const QByteArray first = desk.root.stores().value(clientsFile() + u".anterior-1"_s);
    addClient(desk.root.path(), u"NUEVO"_s);

    QCOMPARE(desk.restore(desk.root.path(), true).exitCode, 0);

    QCOMPARE(desk.root.stores().value(clientsFile() + u".anterior-1"_s), first);
    QVERIFY(QFile::exists(desk.root.path(clientsFile() + u".anterior-2"_s)));
}

void BackupTest::rootInUseIsRefusedAndKept()
{
    const Desk desk;
    QCOMPARE(desk.backUp().exitCode, 0);
    addClient(desk.root.path(), u"NUEVO"_s);
    const auto before = desk.root.stores();
    const auto station = opened(desk.root.path(u"Empresa00012/ASISTENCIAS.MDB"_s));

    const ToolRun run = desk.restore(desk.root.path(), true);

    QCOMPARE(run.exitCode, 2);
    QVERIFY2(run.err.contains(u"un puesto tiene abierto «Empresa00012/ASISTENCIAS.MDB»"),
             qUtf8Printable(run.err));
    QVERIFY(desk.root.stores() == before);
}

void BackupTest::faultyCopyIsNotRestored()
{
    const Desk desk;
    QCOMPARE(desk.backUp().exitCode, 0);
    flipByte(desk.copy() + u'/' + clientsFile(), 75);
    const auto before = desk.root.stores();

    QCOMPARE(desk.restore(desk.target()).exitCode, 1);
    QCOMPARE(desk.restore(desk.root.path(), true).exitCode, 1);

    QVERIFY(!QFile::exists(desk.target()));
    QVERIFY(desk.root.stores() == before);
}

void BackupTest::missingArgumentIsRefused_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("said");
    QTest::newRow("backup alone") << QStringList{u"backup"_s} << u"falta la carpeta"_s;
    QTest::newRow("backup without copy")
        << QStringList{u"backup"_s, u"."_s} << u"falta la carpeta de la copia"_s;
    QTest::newRow("backup to an empty name")
        << QStringList{u"backup"_s, u"."_s, QString(u""_s)} << u"falta la carpeta de la copia"_s;
    QTest::newRow("verify alone") << QStringList{u"verify"_s} << u"falta la carpeta de la copia"_s;
    QTest::newRow("restore without folder") << QStringList{u"restore"_s, u"."_s} << u"falta la carpeta"_s;
    QTest::newRow("one too many") << QStringList{u"verify"_s, u"a"_s, u"b"_s} << u"sobra el argumento «b»"_s;
    QTest::newRow("unknown option") << QStringList{u"backup"_s, u"--replace"_s, u"a"_s, u"b"_s}
                                    << u"opción desconocida «--replace»"_s;
    QTest::newRow("repair alone") << QStringList{u"repair"_s} << u"falta el fichero"_s;
}

void BackupTest::missingArgumentIsRefused()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, said);

    const ToolRun run = runTool(arguments);

    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.err, u"orvane-data: "_s + said + u'\n');
}

QTEST_GUILESS_MAIN(BackupTest)
#include "tst_backup.moc"
