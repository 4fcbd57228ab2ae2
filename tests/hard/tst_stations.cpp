// SPDX-License-Identifier: GPL-3.0-or-later

// Many stations on one data root: nothing is lost and nobody starves; a frozen one makes the others fail as
// told and go on afterwards; first starts at once leave one valid result.

#include "hard/form.h"
#include "platform/core/failurenumbers.h"
#include "platform/system/paths.h"
#include "shell/globalsat.h"
#include "stores/bdcliente.h"
#include "stores/clientesschema.h"
#include "stores/storefixture.h"
#include "stores/upgrade.h"
#include "support/failureof.h"
#include "support/tempdataroot.h"

#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QRegularExpression>
#include <QtTest>

#include <csignal>

using namespace Qt::StringLiterals;
using hardtest::byForm;

class StationsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void busyStationsLoseNothing_data();
    void busyStationsLoseNothing();
    void frozenWriterMakesOthersFailAfterTheBoundedWait();
    void frozenReaderHoldsUpWritersAlone();
    void othersGoOnWhenTheFrozenStationWakes();
    void othersGoOnWhenTheFrozenStationDies();
    void frozenStationOutsideTheGateHoldsUpNobody();
    void frozenStationInTheLineHoldsUpNobodyForLong();
    void firstStartsAtOnceMakeOneRoot();
    void startsAtOnceNumberOldRowsOnce();

private:
    std::unique_ptr<testsupport::TempDataRoot> m_root;
};

namespace {

constexpr int kStarters = 8;
/// The gate lets nobody wait for longer than two seconds; what is above is the machine's.
constexpr int kLongestWaitMs = 5000;

/// Another process that holds a lock of the clients store, and can be frozen.
class Holder
{
public:
    explicit Holder(const QString& what)
    {
        m_process.start(QStringLiteral(STORAGE_LOCKHOLDER),
                        {platform::nativePath(RUTAEMPRESA + u"Clientes.mdb"_s), what});
        m_process.waitForReadyRead();
        m_isHeld = m_process.readAllStandardOutput() == "held\n";
    }
    ~Holder()
    {
        m_process.kill();
        m_process.waitForFinished();
    }
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;

    [[nodiscard]] bool isHeld() const { return m_isHeld; }
    void freeze() const { ::kill(static_cast<pid_t>(m_process.processId()), SIGSTOP); }
    /// Wakes it, and it leaves.
    void wake()
    {
        ::kill(static_cast<pid_t>(m_process.processId()), SIGCONT);
        m_process.closeWriteChannel();
        m_process.waitForFinished();
    }
    void die()
    {
        m_process.kill();
        m_process.waitForFinished();
    }

private:
    QProcess m_process;
    bool m_isHeld = false;
};

/// The number that a save failed with, 0 when it is stored.
int saveFailure(const QString& code)
{
    return support::failureOf([&] {
        RSCLIENTES.AddNew();
        RSCLIENTES[u"CliCodigo"].setValue(code);
        RSCLIENTES.Update();
    });
}

int readFailure(const QString& code)
{
    return support::failureOf([&] {
        RSCLIENTES.setIndex(u"CliCodigoIndice"_s);
        RSCLIENTES.Seek(u"=", code);
    });
}

/// Starts of so many stations in the current directory, all at once, each to its end.
QStringList startAtOnce()
{
    std::vector<std::unique_ptr<QProcess>> starters;
    for (int number = 0; number < kStarters; ++number) {
        starters.push_back(std::make_unique<QProcess>());
        starters.back()->start(QStringLiteral(ORVANE_STATION), {u"begin"_s});
    }
    QStringList answers;
    for (const std::unique_ptr<QProcess>& starter : starters) {
        const bool isDone = starter->waitForFinished(120'000);
        answers.append(isDone ? QString::fromUtf8(starter->readAllStandardOutput()).trimmed() : u"no end"_s);
    }
    return answers;
}

QStringList damages(const QString& file)
{
    return platform::storage::sqliteEngine()
        ->open(platform::nativePath(file), platform::storage::Sharing::Shared)
        ->integrityFaults();
}

double figure(const QString& line, QLatin1String name)
{
    const QRegularExpression form(name + u"=([0-9.]+)"_s);
    const QRegularExpressionMatch match = form.match(line);
    return match.hasMatch() ? match.captured(1).toDouble() : -1;
}

/// A save beside a station that is frozen as it writes, before and after it is let go.
void saveFailsUntil(void (Holder::*letGo)())
{
    storetest::bringUp();
    Holder frozen(u"writing"_s);
    frozen.freeze();
    QCOMPARE(saveFailure(u"A"_s), platform::kLockedByAnother);

    (frozen.*letGo)();

    QCOMPARE(saveFailure(u"A"_s), 0);
    QCOMPARE(RSCLIENTES.RecordCount(), 1);
}

} // namespace

void StationsTest::init()
{
    m_root = std::make_unique<testsupport::TempDataRoot>();
    resetProgramState();
    RUTAEMPRESA = m_root->companyPath();
}

void StationsTest::cleanup()
{
    resetProgramState();
    m_root.reset();
}

void StationsTest::busyStationsLoseNothing_data()
{
    QTest::addColumn<int>("light");
    QTest::newRow("eight busy stations") << 0;
    QTest::newRow("eight busy stations and 32 light ones") << 32;
}

void StationsTest::busyStationsLoseNothing()
{
    QFETCH(int, light);
    QProcess run;
    run.start(QStringLiteral(HARD_STATIONS),
              {QString::number(byForm(4, 60)), u"8"_s, QString::number(light)});
    QVERIFY(run.waitForFinished(600'000));
    const QStringList lines = QString::fromUtf8(run.readAllStandardOutput()).split(u'\n');
    QCOMPARE(lines.size(), 3);
    qInfo("%s", qPrintable(lines.at(0)));
    qInfo("%s", qPrintable(lines.at(1)));
    const QString& ours = lines.at(0);

    QVERIFY(figure(ours, QLatin1String("rows")) > 0);
    QCOMPARE(figure(ours, QLatin1String("lost")), 0.0);
    // Forty stations on a machine that has other things to do may wait in vain, and are told so.
    if (light == 0 || hardtest::isLongForm())
        QCOMPARE(figure(ours, QLatin1String("failures")), 0.0);
    if (!hardtest::isLongForm())
        return;
    // Aims of an otherwise idle machine.
    QVERIFY2(figure(ours, QLatin1String("worst-save")) <= 150, qPrintable(ours));
    QVERIFY2(figure(ours, QLatin1String("worst-read")) <= 60, qPrintable(ours));
    QVERIFY2(figure(ours, QLatin1String("least/most")) >= 0.5, qPrintable(ours));
}

void StationsTest::frozenWriterMakesOthersFailAfterTheBoundedWait()
{
    storetest::bringUp();
    const Holder frozen(u"writing"_s);
    QVERIFY(frozen.isHeld());
    frozen.freeze();
    QElapsedTimer timer;
    timer.start();

    QCOMPARE(saveFailure(u"A"_s), platform::kLockedByAnother);
    QVERIFY(timer.restart() < kLongestWaitMs);

    QCOMPARE(readFailure(u"A"_s), platform::kLockedByAnother);
    QVERIFY(timer.elapsed() < kLongestWaitMs);
}

void StationsTest::frozenReaderHoldsUpWritersAlone()
{
    storetest::bringUp();
    const Holder frozen(u"reading"_s);
    QVERIFY(frozen.isHeld());
    frozen.freeze();

    QCOMPARE(saveFailure(u"A"_s), platform::kLockedByAnother);
    QCOMPARE(readFailure(u"A"_s), 0);
}

void StationsTest::othersGoOnWhenTheFrozenStationWakes()
{
    saveFailsUntil(&Holder::wake);
}

void StationsTest::othersGoOnWhenTheFrozenStationDies()
{
    saveFailsUntil(&Holder::die);
}

void StationsTest::frozenStationOutsideTheGateHoldsUpNobody()
{
    storetest::bringUp();
    const Holder frozen(u"shared"_s);
    QVERIFY(frozen.isHeld());
    frozen.freeze();

    QCOMPARE(saveFailure(u"A"_s), 0);
    QCOMPARE(readFailure(u"A"_s), 0);
}

void StationsTest::frozenStationInTheLineHoldsUpNobodyForLong()
{
    constexpr int kSaves = 100;
    storetest::bringUp();
    const Holder frozen(u"line"_s);
    QVERIFY(frozen.isHeld());
    frozen.freeze();
    QElapsedTimer timer;
    timer.start();

    for (int number = 0; number < kSaves; ++number)
        QCOMPARE(saveFailure(QString::number(number)), 0);

    // If each had to pass over it anew, this would be ten seconds and more.
    QVERIFY(timer.elapsed() < kLongestWaitMs);
}

void StationsTest::firstStartsAtOnceMakeOneRoot()
{
    const int rounds = byForm(20, 200);
    for (int round = 0; round < rounds; ++round) {
        m_root.reset();
        m_root = std::make_unique<testsupport::TempDataRoot>();
        RUTAEMPRESA = m_root->companyPath();

        const QStringList answers = startAtOnce();

        QCOMPARE(answers.count(u"begun 0 0 0"_s), kStarters);
        ABRIRCLIENTES();
        QVERIFY(stores::isOpen(BDCLIENTES));
        QCOMPARE(RSCLIENTES.Fields().Count(), static_cast<int>(stores::kClientesTablaColumns.size()));
        QCOMPARE(saveFailure(u"A"_s), 0);
        QCOMPARE(saveFailure(u"A"_s), platform::kDuplicateKey);
        storetest::endRun();
        QCOMPARE(storetest::columnNames(RUTAEMPRESA + u"Clientes.mdb"_s, u"TarifasCliente"_s).size(),
                 static_cast<qsizetype>(stores::kTarifasClienteColumns.size()));
        QCOMPARE(damages(RUTAEMPRESA + u"Clientes.mdb"_s), QStringList());
    }
}

void StationsTest::startsAtOnceNumberOldRowsOnce()
{
    constexpr int kClients = 5;
    constexpr int kLines = 4;
    const QString path = RUTAEMPRESA + u"Clientes.mdb"_s;
    QStringList expected;
    storetest::makeStore(path, {stores::kClientesTabla, stores::kClidirenvios, stores::kClibancosdisp,
                                storetest::unnumberedConcepts()});
    for (int row = 0; row < kClients * kLines; ++row) {
        const QString client = QString::number(row / kLines);
        storetest::addRow(
            path, u"clientescyctabla"_s,
            {{u"clientescycarticulo", QString::number(row % kLines)}, {u"clientescyccliente", client}});
        expected.append(client + u' ' + QString::number(row % kLines + 1));
    }
    storetest::endRun();
    QFile old(platform::nativePath(path));
    QVERIFY(old.open(QIODevice::ReadOnly));
    const QByteArray bytes = old.readAll();
    old.close();

    const int rounds = byForm(20, 200);
    for (int round = 0; round < rounds; ++round) {
        QVERIFY(old.open(QIODevice::WriteOnly | QIODevice::Truncate));
        old.write(bytes);
        old.close();

        // One that comes while another has the store alone goes without it.
        QVERIFY(!startAtOnce().contains(u"no end"_s));

        QStringList numbered;
        for (const QStringList& row : storetest::rows(path, u"clientescyctabla"_s))
            numbered.append(row.at(1) + u' ' + row.at(15));
        numbered.sort();
        QCOMPARE(numbered, expected);
        QCOMPARE(damages(path), QStringList());
        // Whoever is alone for a moment rebuilds the index; it is the old or the new one, never none.
        const QStringList key = storetest::keyOf(path, u"clientescyctabla"_s, u"clientescyccodigoindice"_s);
        QVERIFY2(key.size() == 2 || key.size() == 3, qPrintable(key.join(u' ')));
        storetest::endRun();
    }
}

QTEST_GUILESS_MAIN(StationsTest)
#include "tst_stations.moc"
