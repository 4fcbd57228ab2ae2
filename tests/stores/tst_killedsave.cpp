// SPDX-License-Identifier: GPL-3.0-or-later

// A station killed in the middle of a save loses at most the row in hand, and leaves stores that open.
//
// ORVANE_KILL_ROUNDS sets the number of rounds.

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

class KilledSaveTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void acknowledgedRowsOutliveTheKill();
    void storesAreSoundAfterAllRounds();

private:
    struct Rows
    {
        int clients = 0;
        int telephones = 0;
        int consultations = 0;
    };

    /// Lines that a writing station gave before it was killed.
    QStringList killedStation(const QString& name);
    void checkRound(const QString& name, const QStringList& said);
    static bool isGrowthOf(int before, qsizetype acknowledged, int now)
    {
        return now - before == acknowledged || now - before == acknowledged + 1;
    }

    std::unique_ptr<testsupport::TempDataRoot> m_root;
    std::unique_ptr<testsupport::MessageRecorder> m_messages;
    QRandomGenerator m_random{20261120};
    Rows m_before;
    qsizetype m_acknowledged = 0;
};

namespace {

int rounds()
{
    bool isSet = false;
    const int wanted = qEnvironmentVariableIntValue("ORVANE_KILL_ROUNDS", &isSet);
    return isSet ? wanted : 200;
}

} // namespace

void KilledSaveTest::initTestCase()
{
    m_root = std::make_unique<testsupport::TempDataRoot>();
    m_messages = std::make_unique<testsupport::MessageRecorder>();
    resetProgramState();
    RUTAEMPRESA = m_root->companyPath();
    storetest::bringUp();
    storetest::endRun();
}

void KilledSaveTest::cleanupTestCase()
{
    resetProgramState();
    m_messages.reset();
    m_root.reset();
}

QStringList KilledSaveTest::killedStation(const QString& name)
{
    QProcess station;
    station.start(QStringLiteral(ORVANE_STATION), {u"write"_s, name});
    // One round in eight is killed while it still starts.
    const bool isEarly = m_random.bounded(8) == 0;
    if (!isEarly && station.waitForReadyRead())
        QThread::usleep(static_cast<unsigned long>(m_random.bounded(150'000)));
    else
        QThread::usleep(static_cast<unsigned long>(m_random.bounded(20'000)));
    station.kill();
    station.waitForFinished();
    return QString::fromUtf8(station.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
}

void KilledSaveTest::checkRound(const QString& name, const QStringList& said)
{
    ABRIRCLIENTES();
    ABRIRTELEFONOS();
    ABRIRCONSULTAS();
    RSCLIENTES.setIndex(u"CliCodigoIndice"_s);
    RSTELEFONOS.setIndex(u"TELEINDICE"_s);
    RSCONSULTAS.setIndex(u"CONnum"_s);
    for (const QString& line : said) {
        const QString key = line.mid(2);
        if (line.startsWith(u"C "_s)) {
            RSCLIENTES.Seek(u"=", key);
            QVERIFY2(!RSCLIENTES.NoMatch(), qPrintable(line));
        } else if (line.startsWith(u"T "_s)) {
            RSTELEFONOS.Seek(u"=", u"00012"_s, key);
            QVERIFY2(!RSTELEFONOS.NoMatch(), qPrintable(line));
        } else if (line.startsWith(u"A "_s)) {
            RSCONSULTAS.Seek(u"=", key, name);
            QVERIFY2(!RSCONSULTAS.NoMatch(), qPrintable(line));
        }
    }
    QVERIFY(isGrowthOf(m_before.clients, said.filter(u"C "_s).size(), RSCLIENTES.RecordCount()));
    QVERIFY(isGrowthOf(m_before.telephones, said.filter(u"T "_s).size(), RSTELEFONOS.RecordCount()));
    QVERIFY(isGrowthOf(m_before.consultations, said.filter(u"A "_s).size(), RSCONSULTAS.RecordCount()));
    m_before = {RSCLIENTES.RecordCount(), RSTELEFONOS.RecordCount(), RSCONSULTAS.RecordCount()};
    m_acknowledged += said.filter(u" "_s).size();
}

void KilledSaveTest::acknowledgedRowsOutliveTheKill()
{
    const int count = rounds();

    for (int round = 0; round < count && !QTest::currentTestFailed(); ++round) {
        const QString name = u"K%1"_s.arg(round, 4, 10, QChar(u'0'));
        checkRound(name, killedStation(name));
        storetest::endRun();
    }

    QVERIFY(m_messages->isEmpty());
    QVERIFY(m_acknowledged > 0);
    qInfo("%d rounds, %lld rows acknowledged", count, static_cast<long long>(m_acknowledged));
}

void KilledSaveTest::storesAreSoundAfterAllRounds()
{
    for (const QString& file : {u"Empresa00012/Clientes.mdb"_s, u"Empresa00012/ASISTENCIAS.MDB"_s,
                                u"TELEFONOS DE CLIENTES.MDB"_s}) {
        const auto connection = platform::storage::sqliteEngine()->open(
            platform::nativePath(m_root->path(file)), platform::storage::Sharing::Shared);
        QCOMPARE(connection->integrityFaults(), QStringList());
    }
}

QTEST_GUILESS_MAIN(KilledSaveTest)
#include "tst_killedsave.moc"
