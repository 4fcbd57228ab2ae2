// SPDX-License-Identifier: GPL-3.0-or-later

// Stations killed in the middle of their work, one alone or eight at once, lose at most the row in hand and
// leave stores that open without repair.

#include "hard/form.h"
#include "platform/system/paths.h"
#include "shell/globalsat.h"
#include "stores/bdcliente.h"
#include "stores/consultas.h"
#include "stores/storefixture.h"
#include "stores/telefonos.h"
#include "support/messagerecorder.h"
#include "support/tempdataroot.h"

#include <QProcess>
#include <QRandomGenerator>
#include <QThread>
#include <QtTest>

using namespace Qt::StringLiterals;
using hardtest::byForm;

class KillsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void acknowledgedRowsOutliveTheKill_data();
    void acknowledgedRowsOutliveTheKill();
    void killedFirstStartLeavesNoHalfStore_data();
    void killedFirstStartLeavesNoHalfStore();
    void firstStartsAtOnceAllFindTheStores();
    void cleanupTestCase();

private:
    struct Rows
    {
        int clients = 0;
        int telephones = 0;
        int consultations = 0;
    };

    /// Lines that each writing station gave before all were killed.
    QMap<QString, QStringList> killedStations(int stations, int round);
    void checkRound(const QMap<QString, QStringList>& said);
    void checkSoundness() const;
    void renewRoot();

    std::unique_ptr<testsupport::TempDataRoot> m_root;
    std::unique_ptr<testsupport::MessageRecorder> m_messages;
    QRandomGenerator m_random;
    Rows m_before;
    qsizetype m_acknowledged = 0;
    int m_kills = 0;
};

namespace {

/// The long form is a number of series, which may run in as many processes at once.
quint32 seedOf(int series)
{
    return 20261119 + static_cast<quint32>(series);
}

/// After so many rounds the stores are made anew, so that they don't grow for ever.
constexpr int kRoundsPerRoot = 40;

const QStringList kFiles{u"Empresa00012/Clientes.mdb"_s, u"Empresa00012/ASISTENCIAS.MDB"_s,
                         u"TELEFONOS DE CLIENTES.MDB"_s};

/// A station is killed after so many lines at most, "ready" being the first, and so long after the last of
/// them.
constexpr int kMostLines = 40;
constexpr int kMostMicroseconds = 20'000;
constexpr int kStartMicroseconds = 100'000;

void waitForLines(QProcess& station, int lines)
{
    while (station.peek(station.bytesAvailable()).count('\n') < lines && station.waitForReadyRead()) {
    }
}

void openStores()
{
    ABRIRCLIENTES();
    ABRIRTELEFONOS();
    ABRIRCONSULTAS();
}

/// Each killed station may have one more row than it could say.
bool isGrowthOf(int before, qsizetype acknowledged, qsizetype stations, int now)
{
    return now - before >= acknowledged && now - before <= acknowledged + stations;
}

qsizetype saidOf(const QMap<QString, QStringList>& said, const QString& kind)
{
    qsizetype count = 0;
    for (const QStringList& lines : said)
        count += lines.filter(kind).size();
    return count;
}

} // namespace

void KillsTest::renewRoot()
{
    resetProgramState();
    // Each root gives the current directory back to the one before it.
    m_root.reset();
    m_root = std::make_unique<testsupport::TempDataRoot>();
    RUTAEMPRESA = m_root->companyPath();
    m_before = {};
}

void KillsTest::init()
{
    m_messages = std::make_unique<testsupport::MessageRecorder>();
    renewRoot();
}

void KillsTest::cleanup()
{
    resetProgramState();
    m_messages.reset();
    m_root.reset();
}

void KillsTest::cleanupTestCase()
{
    qInfo("%d kills, %lld rows acknowledged", m_kills, static_cast<long long>(m_acknowledged));
}

QMap<QString, QStringList> KillsTest::killedStations(int stations, int round)
{
    std::vector<std::unique_ptr<QProcess>> processes;
    for (int number = 0; number < stations; ++number) {
        const QString name = u"K%1%2"_s.arg(number).arg(round, 3, 10, QChar(u'0'));
        processes.push_back(std::make_unique<QProcess>());
        processes.back()->start(QStringLiteral(ORVANE_STATION), {u"write"_s, name});
    }
    // One round in eight is killed while it still starts, the others in the middle of their work, which takes
    // its time on a busy machine.
    if (m_random.bounded(8) != 0) {
        waitForLines(*processes.front(), 1 + m_random.bounded(kMostLines));
        QThread::usleep(static_cast<unsigned long>(m_random.bounded(kMostMicroseconds)));
    } else {
        QThread::usleep(static_cast<unsigned long>(m_random.bounded(kStartMicroseconds)));
    }
    for (const std::unique_ptr<QProcess>& station : processes)
        station->kill();
    QMap<QString, QStringList> said;
    for (const std::unique_ptr<QProcess>& station : processes) {
        station->waitForFinished();
        const QString output = QString::fromUtf8(station->readAllStandardOutput());
        // A line without its end wasn't said.
        said[station->arguments().last()] = output.left(output.lastIndexOf(u'\n')).split(u'\n');
        ++m_kills;
    }
    return said;
}

void KillsTest::checkSoundness() const
{
    for (const QString& file : kFiles) {
        const auto connection = platform::storage::sqliteEngine()->open(
            platform::nativePath(m_root->path(file)), platform::storage::Sharing::Shared);
        QCOMPARE(connection->integrityFaults(), QStringList());
    }
}

void KillsTest::checkRound(const QMap<QString, QStringList>& said)
{
    openStores();
    QVERIFY(m_messages->isEmpty());
    RSCLIENTES.setIndex(u"CliCodigoIndice"_s);
    RSTELEFONOS.setIndex(u"TELEINDICE"_s);
    RSCONSULTAS.setIndex(u"CONnum"_s);
    for (auto station = said.cbegin(); station != said.cend(); ++station) {
        for (const QString& line : station.value()) {
            const QString key = line.mid(2);
            if (line.startsWith(u"C "_s)) {
                RSCLIENTES.Seek(u"=", key);
                QVERIFY2(!RSCLIENTES.NoMatch(), qPrintable(line));
            } else if (line.startsWith(u"T "_s)) {
                RSTELEFONOS.Seek(u"=", u"00012"_s, key);
                QVERIFY2(!RSTELEFONOS.NoMatch(), qPrintable(line));
            } else if (line.startsWith(u"A "_s)) {
                RSCONSULTAS.Seek(u"=", key, station.key());
                QVERIFY2(!RSCONSULTAS.NoMatch(), qPrintable(line));
                QCOMPARE(RSCONSULTAS[u"DESCRIPCION"].Value(), platform::Value(QString(2000, u'x')));
            }
        }
    }
    const qsizetype stations = said.size();
    QVERIFY(isGrowthOf(m_before.clients, saidOf(said, u"C "_s), stations, RSCLIENTES.RecordCount()));
    QVERIFY(isGrowthOf(m_before.telephones, saidOf(said, u"T "_s), stations, RSTELEFONOS.RecordCount()));
    QVERIFY(isGrowthOf(m_before.consultations, saidOf(said, u"A "_s), stations, RSCONSULTAS.RecordCount()));
    m_before = {RSCLIENTES.RecordCount(), RSTELEFONOS.RecordCount(), RSCONSULTAS.RecordCount()};
    m_acknowledged += saidOf(said, u" "_s);
}

void KillsTest::acknowledgedRowsOutliveTheKill_data()
{
    QTest::addColumn<int>("stations");
    QTest::addColumn<int>("rounds");
    QTest::addColumn<quint32>("seed");
    for (int series = 1; series <= byForm(1, 4); ++series)
        QTest::addRow("one station, series %d", series) << 1 << byForm(110, 750) << seedOf(series);
    for (int series = 1; series <= byForm(1, 5); ++series)
        QTest::addRow("eight stations, series %d", series) << 8 << byForm(20, 150) << seedOf(series);
}

void KillsTest::acknowledgedRowsOutliveTheKill()
{
    QFETCH(const int, stations);
    QFETCH(const int, rounds);
    QFETCH(const quint32, seed);
    m_random.seed(seed);
    storetest::bringUp();
    storetest::endRun();
    const qsizetype before = m_acknowledged;

    for (int round = 0; round < rounds && !QTest::currentTestFailed(); ++round) {
        if (round > 0 && round % kRoundsPerRoot == 0) {
            renewRoot();
            storetest::bringUp();
            storetest::endRun();
        }
        checkRound(killedStations(stations, round % kRoundsPerRoot));
        storetest::endRun();
        checkSoundness();
    }

    QVERIFY(m_acknowledged > before);
}

void KillsTest::killedFirstStartLeavesNoHalfStore_data()
{
    QTest::addColumn<int>("rounds");
    QTest::addColumn<quint32>("seed");
    for (int series = 1; series <= byForm(1, 4); ++series)
        QTest::addRow("series %d", series) << byForm(40, 250) << seedOf(series);
}

void KillsTest::killedFirstStartLeavesNoHalfStore()
{
    constexpr int kMilliseconds = 400;
    QFETCH(const int, rounds);
    QFETCH(const quint32, seed);
    m_random.seed(seed);

    for (int round = 0; round < rounds && !QTest::currentTestFailed(); ++round) {
        renewRoot();
        QProcess station;
        station.start(QStringLiteral(ORVANE_STATION), {u"begin"_s});
        station.waitForStarted();
        QThread::usleep(static_cast<unsigned long>(m_random.bounded(kMilliseconds * 1000)));
        station.kill();
        station.waitForFinished();
        ++m_kills;

        // The next start finds each store whole, or makes it.
        storetest::bringUp();
        for (const platform::dao::Recordset* held :
             {&RSCLIENTES, &RSENVIOS, &RSBANCOS, &RSCYC, &RSTARIFAS, &RSCONSULTAS, &RSTELEFONOS})
            QCOMPARE(held->RecordCount(), 0);
        storetest::endRun();
        checkSoundness();
    }

    QVERIFY(m_messages->isEmpty());
}

void KillsTest::firstStartsAtOnceAllFindTheStores()
{
    constexpr int kStations = 4;
    const int rounds = byForm(3, 100);

    for (int round = 0; round < rounds; ++round) {
        renewRoot();
        std::vector<std::unique_ptr<QProcess>> stations;
        for (int number = 0; number < kStations; ++number) {
            stations.push_back(std::make_unique<QProcess>());
            stations.back()->start(QStringLiteral(ORVANE_STATION), {u"begin"_s});
        }
        for (const std::unique_ptr<QProcess>& station : stations) {
            QVERIFY(station->waitForFinished());
            QCOMPARE(station->readAllStandardOutput(), QByteArray("begun 0 0 0\n"));
        }
        checkSoundness();
    }
}

QTEST_GUILESS_MAIN(KillsTest)
#include "tst_kills.moc"
