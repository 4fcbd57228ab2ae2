// SPDX-License-Identifier: GPL-3.0-or-later
//
// orvane-bench-stations [SECONDS [STATIONS [LIGHT]]]: eight processes save and read clients in one file, once
// through the stores and once through plain SQLite with the same durability and its own way of waiting. LIGHT
// more of them rest between two saves, as people do. Prints a line for each: rows saved and lost, failures,
// how much the busy station that saved least did of what the one that saved most did, and the worst waits of
// a save and of a read in milliseconds. Ends with 1 when the stores lost a row or failed. The program starts
// itself for each station.

#include "platform/core/failure.h"
#include "platform/system/paths.h"
#include "shell/globalsat.h"
#include "stores/bdcliente.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <sqlite3.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int kDefaultStations = 8;
constexpr int kDefaultSeconds = 20;
/// What a light station rests after each save and read.
constexpr int kRestMs = 150;
constexpr int kPlainTimeoutMs = 10'000;
constexpr char kPlainFile[] = "plain.db";

struct Load
{
    int rows = 0;
    int failures = 0;
    qint64 worstSave = 0; ///< milliseconds
    qint64 worstRead = 0;
};

/// One station: its place in the run and what it is to do.
struct Station
{
    QString name;
    int seconds = 0;
    int restMs = 0;
};

/// The stations of a run.
struct Stations
{
    int seconds = kDefaultSeconds;
    int busy = kDefaultStations;
    int light = 0;
};

QString keyOf(const QString& name, int number)
{
    return name + QString::number(number).rightJustified(10 - name.size(), u'0');
}

/// Saves and reads until the time is up. `save` and `read` take a key and answer whether it went well.
template <typename Save, typename Read>
Load work(const Station& station, Save&& save, Read&& read)
{
    Load load;
    QElapsedTimer running;
    running.start();
    while (running.elapsed() < qint64{station.seconds} * 1000) {
        const QString key = keyOf(station.name, load.rows + 1);
        QElapsedTimer step;
        step.start();
        const bool isSaved = save(key);
        load.rows += isSaved ? 1 : 0;
        load.worstSave = std::max(load.worstSave, step.restart());
        const bool isRead = read(key);
        load.worstRead = std::max(load.worstRead, step.elapsed());
        load.failures += (isSaved ? 0 : 1) + (isRead ? 0 : 1);
        if (station.restMs > 0)
            QThread::msleep(static_cast<unsigned long>(station.restMs));
    }
    return load;
}

template <typename Body>
bool succeeds(Body&& body)
{
    try {
        body();
        return true;
    } catch (const platform::Failure&) {
        return false;
    }
}

Load workThroughTheStore(const Station& station)
{
    ABRIRCLIENTES();
    // The opening waits at the gate like everything else, and is silent when it waited in vain.
    if (!succeeds([] { RSCLIENTES.setIndex(u"CliCodigoIndice"_s); }))
        return {.failures = 1};
    const auto save = [&](const QString& key) {
        return succeeds([&] {
            RSCLIENTES.AddNew();
            RSCLIENTES[u"CliCodigo"].setValue(key);
            RSCLIENTES[u"CliNombre"].setValue(u"CLIENTE "_s + key);
            RSCLIENTES.Update();
        });
    };
    const auto read = [&](const QString& key) { return succeeds([&] { RSCLIENTES.Seek(u"=", key); }); };
    return work(station, save, read);
}

sqlite3* openPlain()
{
    sqlite3* database = nullptr;
    sqlite3_open(kPlainFile, &database);
    sqlite3_busy_timeout(database, kPlainTimeoutMs);
    sqlite3_exec(database, "PRAGMA synchronous = EXTRA", nullptr, nullptr, nullptr);
    return database;
}

bool runPlain(sqlite3* database, const char* sql, const QString& key)
{
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(database, sql, -1, &statement, nullptr) != SQLITE_OK)
        return false;
    const QByteArray text = key.toUtf8();
    sqlite3_bind_text(statement, 1, text.constData(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
    const int code = sqlite3_step(statement);
    sqlite3_finalize(statement);
    return code == SQLITE_DONE || code == SQLITE_ROW;
}

Load workThroughPlainSqlite(const Station& station)
{
    sqlite3* database = openPlain();
    const auto save = [&](const QString& key) {
        return runPlain(database, "INSERT INTO clients (code, name) VALUES (?1, 'CLIENTE ' || ?1)", key);
    };
    const auto read = [&](const QString& key) {
        return runPlain(database, "SELECT name FROM clients WHERE code = ?1", key);
    };
    const Load load = work(station, save, read);
    sqlite3_close(database);
    return load;
}

std::vector<Load> runStations(const QString& kind, const Stations& stations)
{
    std::vector<std::unique_ptr<QProcess>> processes;
    for (int number = 0; number < stations.busy + stations.light; ++number) {
        const int restMs = number < stations.busy ? 0 : kRestMs;
        processes.push_back(std::make_unique<QProcess>());
        processes.back()->start(QCoreApplication::applicationFilePath(),
                                {u"station"_s, kind, u"S%1"_s.arg(number, 2, 10, QChar(u'0')),
                                 QString::number(stations.seconds), QString::number(restMs)});
    }
    std::vector<Load> loads;
    for (const std::unique_ptr<QProcess>& process : processes) {
        process->waitForFinished(-1);
        const QList<QByteArray> numbers = process->readAllStandardOutput().trimmed().split(' ');
        loads.push_back({numbers.value(0).toInt(), numbers.value(1).toInt(), numbers.value(2).toLongLong(),
                         numbers.value(3).toLongLong()});
    }
    return loads;
}

/// Prints the line of one kind. True when nothing was lost and nothing failed.
bool printLoads(const char* name, const std::vector<Load>& loads, int busy, int rowsInFile)
{
    Load sum;
    for (const Load& load : loads) {
        sum.rows += load.rows;
        sum.failures += load.failures;
        sum.worstSave = std::max(sum.worstSave, load.worstSave);
        sum.worstRead = std::max(sum.worstRead, load.worstRead);
    }
    const auto [least, most] =
        std::minmax_element(loads.begin(), loads.begin() + busy,
                            [](const Load& one, const Load& other) { return one.rows < other.rows; });
    const double fairness = most->rows == 0 ? 0 : static_cast<double>(least->rows) / most->rows;
    std::printf("%-12s rows=%d lost=%d failures=%d least/most=%.2f worst-save=%lld worst-read=%lld\n", name,
                sum.rows, sum.rows - rowsInFile, sum.failures, fairness,
                static_cast<long long>(sum.worstSave), static_cast<long long>(sum.worstRead));
    std::fflush(stdout);
    return sum.rows > 0 && sum.rows == rowsInFile && sum.failures == 0;
}

int rowsInPlainFile()
{
    sqlite3* database = openPlain();
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(database, "SELECT count(*) FROM clients", -1, &statement, nullptr);
    const int rows = sqlite3_step(statement) == SQLITE_ROW ? sqlite3_column_int(statement, 0) : 0;
    sqlite3_finalize(statement);
    sqlite3_close(database);
    return rows;
}

/// The company folder of the current directory.
QString companyFolder()
{
    return platform::currentDirectory() + u"\\Empresa00012\\"_s;
}

int rowsInStore()
{
    RUTAEMPRESA = companyFolder();
    ABRIRCLIENTES();
    const int rows = RSCLIENTES.RecordCount();
    resetProgramState();
    return rows;
}

bool runAll(const Stations& stations)
{
    const QTemporaryDir root;
    QDir::setCurrent(root.path());
    QDir().mkdir(u"Empresa00012"_s);
    RUTAEMPRESA = companyFolder();
    CREARCLIENTES();
    ABRIRCLIENTES();
    resetProgramState();
    sqlite3* plain = openPlain();
    sqlite3_exec(plain, "CREATE TABLE clients (code TEXT PRIMARY KEY, name TEXT)", nullptr, nullptr, nullptr);
    sqlite3_close(plain);

    const std::vector<Load> ours = runStations(u"store"_s, stations);
    const bool isWell = printLoads("stores", ours, stations.busy, rowsInStore());
    const std::vector<Load> theirs = runStations(u"plain"_s, stations);
    printLoads("plain SQLite", theirs, stations.busy, rowsInPlainFile());
    return isWell;
}

int workAsStation(const QStringList& arguments)
{
    RUTAEMPRESA = companyFolder();
    const Station station{arguments.at(3), arguments.at(4).toInt(), arguments.at(5).toInt()};
    const Load load =
        arguments.at(2) == u"plain" ? workThroughPlainSqlite(station) : workThroughTheStore(station);
    std::printf("%d %d %lld %lld\n", load.rows, load.failures, static_cast<long long>(load.worstSave),
                static_cast<long long>(load.worstRead));
    return 0;
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == u"station")
        return workAsStation(arguments);
    Stations stations;
    if (arguments.size() > 1)
        stations.seconds = arguments.at(1).toInt();
    if (arguments.size() > 2)
        stations.busy = std::max(1, arguments.at(2).toInt());
    if (arguments.size() > 3)
        stations.light = arguments.at(3).toInt();
    return runAll(stations) ? 0 : 1;
}
