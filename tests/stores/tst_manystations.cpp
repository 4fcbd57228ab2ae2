// SPDX-License-Identifier: GPL-3.0-or-later

// Several stations on the stores of one company: each sees the others' saves at once, and none starves.
//
// ORVANE_STATION_SECONDS sets how long the stations write.

#include "platform/system/paths.h"
#include "shell/globalsat.h"
#include "stores/bdcliente.h"
#include "stores/storefixture.h"
#include "support/tempdataroot.h"

#include <QProcess>
#include <QRegularExpression>
#include <QtTest>

using namespace Qt::StringLiterals;

class ManyStationsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void anotherProgramSeesASaveAtOnce();
    void saveOfAnotherProgramIsSeenAtOnce();
    void heldRecordsetCountsTheOthersRows();
    void eightStationsLoseNothingAndNoneStarves();

private:
    struct Station
    {
        int rows = 0;
        int failures = 0;
        int worst = 0; ///< milliseconds
    };

    static QString ask(QProcess& station, const QString& command);
    static Station report(QProcess& station);

    std::unique_ptr<testsupport::TempDataRoot> m_root;
};

namespace {

constexpr int kStations = 8;
/// A station has its fair share when it saved at least this part of the average.
constexpr double kFairShare = 0.25;

int seconds()
{
    bool isSet = false;
    const int wanted = qEnvironmentVariableIntValue("ORVANE_STATION_SECONDS", &isSet);
    return isSet ? wanted : 3;
}

QString stationName(int number)
{
    return u"S%1"_s.arg(number);
}

void startTalking(QProcess& station)
{
    station.start(QStringLiteral(ORVANE_STATION), {u"talk"_s});
    QVERIFY(station.waitForReadyRead());
    QCOMPARE(station.readAllStandardOutput(), QByteArray("ready\n"));
}

void stopTalking(QProcess& station)
{
    station.closeWriteChannel();
    QVERIFY(station.waitForFinished());
}

void addClient(const QString& key)
{
    RSCLIENTES.AddNew();
    RSCLIENTES[u"CliCodigo"].setValue(key);
    RSCLIENTES.Update();
}

} // namespace

void ManyStationsTest::init()
{
    m_root = std::make_unique<testsupport::TempDataRoot>();
    resetProgramState();
    RUTAEMPRESA = m_root->companyPath();
    CREARCLIENTES();
    ABRIRCLIENTES();
}

void ManyStationsTest::cleanup()
{
    resetProgramState();
    m_root.reset();
}

QString ManyStationsTest::ask(QProcess& station, const QString& command)
{
    station.write(command.toUtf8() + '\n');
    station.waitForReadyRead();
    return QString::fromUtf8(station.readAllStandardOutput()).trimmed();
}

ManyStationsTest::Station ManyStationsTest::report(QProcess& station)
{
    station.waitForFinished(120'000);
    static const QRegularExpression form(u"rows=(\\d+) failures=(\\d+) worst=(\\d+)"_s);
    const QRegularExpressionMatch match = form.match(QString::fromUtf8(station.readAllStandardOutput()));
    return {match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt()};
}

void ManyStationsTest::anotherProgramSeesASaveAtOnce()
{
    QProcess other;
    startTalking(other);
    QCOMPARE(ask(other, u"has A1"_s), u"no"_s);

    addClient(u"A1"_s);

    QCOMPARE(ask(other, u"has A1"_s), u"yes"_s);
    stopTalking(other);
}

void ManyStationsTest::saveOfAnotherProgramIsSeenAtOnce()
{
    QProcess other;
    startTalking(other);
    RSCLIENTES.setIndex(u"CliCodigoIndice"_s);
    RSCLIENTES.Seek(u"=", u"B1"_s);
    QVERIFY(RSCLIENTES.NoMatch());

    QCOMPARE(ask(other, u"add B1"_s), u"added"_s);

    RSCLIENTES.Seek(u"=", u"B1"_s);
    QVERIFY(!RSCLIENTES.NoMatch());
    stopTalking(other);
}

void ManyStationsTest::heldRecordsetCountsTheOthersRows()
{
    QProcess other;
    startTalking(other);
    QCOMPARE(RSCLIENTES.RecordCount(), 0);

    QCOMPARE(ask(other, u"add B1"_s), u"added"_s);

    QCOMPARE(RSCLIENTES.RecordCount(), 1);
    stopTalking(other);
}

void ManyStationsTest::eightStationsLoseNothingAndNoneStarves()
{
    std::vector<std::unique_ptr<QProcess>> stations;
    for (int number = 0; number < kStations; ++number) {
        stations.push_back(std::make_unique<QProcess>());
        stations.back()->start(QStringLiteral(ORVANE_STATION),
                               {u"load"_s, stationName(number), QString::number(seconds())});
    }

    int rows = 0;
    int worst = 0;
    std::vector<Station> reports;
    for (const std::unique_ptr<QProcess>& station : stations) {
        reports.push_back(report(*station));
        rows += reports.back().rows;
        worst = std::max(worst, reports.back().worst);
    }

    qInfo("%d stations, %d s: %d rows, worst wait %d ms", kStations, seconds(), rows, worst);
    QCOMPARE(RSCLIENTES.RecordCount(), rows);
    for (const Station& station : reports) {
        QCOMPARE(station.failures, 0);
        QVERIFY2(station.rows >= rows * kFairShare / kStations, qPrintable(QString::number(station.rows)));
    }
}

QTEST_GUILESS_MAIN(ManyStationsTest)
#include "tst_manystations.moc"
