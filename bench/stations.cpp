// SPDX-License-Identifier: GPL-3.0-or-later
//
// orvane-bench-stations [SECONDS]: eight processes save and read clients in one file, once through the stores
// and once through plain SQLite with the same durability and its own way of waiting. Prints rows saved, the
// share of the station that saved least, and the worst wait. The program starts itself for each station.

#include "platform/core/failure.h"
#include "platform/system/paths.h"
#include "shell/globalsat.h"
#include "stores/bdcliente.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>

#include <sqlite3.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int kStations = 8;
constexpr int kDefaultSeconds = 20;
constexpr int kPlainTimeoutMs = 10'000;
constexpr char kPlainFile[] = "plain.db";

struct Load
{
    int rows = 0;
    int failures = 0;
    qint64 worst = 0; ///< milliseconds that the slowest save or read took
};

QString keyOf(const QString& name, int number)
{
    return name + QString::number(number).rightJustified(10 - name.size(), u'0');
}

/// Saves and reads until the time is up. `save` and `read` take a key and answer whether it went well.
template <typename Save, typename Read>
Load work(const QString& name, int seconds, Save&& save, Read&& read)
{
    Load load;
    QElapsedTimer running;
    running.start();
    while (running.elapsed() < qint64{seconds} * 1000) {
        const QString key = keyOf(name, load.rows + 1);
        QElapsedTimer step;
        step.start();
        const bool isSaved = save(key);
        load.rows += isSaved ? 1 : 0;
        load.worst = std::max(load.worst, step.restart());
        const bool isRead = read(key);
        load.worst = std::max(load.worst, step.elapsed());
        load.failures += (isSaved ? 0 : 1) + (isRead ? 0 : 1);
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

Load workThroughTheStore(const QString& name, int seconds)
{
    ABRIRCLIENTES();
    RSCLIENTES.setIndex(u"CliCodigoIndice"_s);
    const auto save = [&](const QString& key) {
        return succeeds([&] {
            RSCLIENTES.AddNew();
            RSCLIENTES[u"CliCodigo"].setValue(key);
            RSCLIENTES[u"CliNombre"].setValue(u"CLIENTE "_s + key);
            RSCLIENTES.Update();
        });
    };
    const auto read = [&](const QString& key) { return succeeds([&] { RSCLIENTES.Seek(u"=", key); }); };
    return work(name, seconds, save, read);
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

Load workThroughPlainSqlite(const QString& name, int seconds)
{
    sqlite3* database = openPlain();
    const auto save = [&](const QString& key) {
        return runPlain(database, "INSERT INTO clients (code, name) VALUES (?1, 'CLIENTE ' || ?1)", key);
    };
    const auto read = [&](const QString& key) {
        return runPlain(database, "SELECT name FROM clients WHERE code = ?1", key);
    };
    const Load load = work(name, seconds, save, read);
    sqlite3_close(database);
    return load;
}

std::vector<Load> runStations(const QString& kind, int seconds)
{
    std::vector<std::unique_ptr<QProcess>> stations;
    for (int number = 0; number < kStations; ++number) {
        stations.push_back(std::make_unique<QProcess>());
        stations.back()->start(QCoreApplication::applicationFilePath(),
                               {kind, u"S%1"_s.arg(number), QString::number(seconds)});
    }
    std::vector<Load> loads;
    for (const std::unique_ptr<QProcess>& station : stations) {
        station->waitForFinished(-1);
        const QList<QByteArray> numbers = station->readAllStandardOutput().trimmed().split(' ');
        loads.push_back({numbers.value(0).toInt(), numbers.value(1).toInt(), numbers.value(2).toLongLong()});
    }
    return loads;
}

void printLoads(const char* name, const std::vector<Load>& loads)
{
    Load sum;
    int least = loads.front().rows;
    for (const Load& load : loads) {
        sum.rows += load.rows;
        sum.failures += load.failures;
        sum.worst = std::max(sum.worst, load.worst);
        least = std::min(least, load.rows);
    }
    const double share = sum.rows == 0 ? 0 : 100.0 * least * kStations / sum.rows;
    std::printf("%-14s %8d rows   least share %5.1f %%   worst wait %6lld ms   failures %d\n", name, sum.rows,
                share, static_cast<long long>(sum.worst), sum.failures);
}

void runAll(int seconds)
{
    const QTemporaryDir root;
    QDir::setCurrent(root.path());
    QDir().mkdir(u"Empresa00012"_s);
    RUTAEMPRESA = platform::currentDirectory() + u"\\Empresa00012\\"_s;
    CREARCLIENTES();
    ABRIRCLIENTES();
    resetProgramState();
    sqlite3* plain = openPlain();
    sqlite3_exec(plain, "CREATE TABLE clients (code TEXT PRIMARY KEY, name TEXT)", nullptr, nullptr, nullptr);
    sqlite3_close(plain);

    printLoads("stores", runStations(u"store"_s, seconds));
    printLoads("plain SQLite", runStations(u"plain"_s, seconds));
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 4) {
        runAll(arguments.size() > 1 ? arguments.at(1).toInt() : kDefaultSeconds);
        return 0;
    }
    RUTAEMPRESA = platform::currentDirectory() + u"\\Empresa00012\\"_s;
    const bool isPlain = arguments.at(1) == u"plain";
    const int seconds = arguments.at(3).toInt();
    const Load load = isPlain ? workThroughPlainSqlite(arguments.at(2), seconds)
                              : workThroughTheStore(arguments.at(2), seconds);
    std::printf("%d %d %lld\n", load.rows, load.failures, static_cast<long long>(load.worst));
    return 0;
}
