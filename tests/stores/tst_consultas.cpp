// SPDX-License-Identifier: GPL-3.0-or-later

// The assistance store: its two handlers, their messages, and the repair of a damaged file.

#include "stores/consultas.h"

#include "platform/system/paths.h"
#include "shell/globalsat.h"
#include "stores/storefixture.h"
#include "support/failingengine.h"
#include "support/failureof.h"
#include "support/messagerecorder.h"
#include "support/tempdataroot.h"

#include <QtTest>

using namespace Qt::StringLiterals;
using platform::storage::Sharing;
using testsupport::Operation;

class ConsultasTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void newStoreIsEmptyWithBothIndexes();
    void creationBorrowsTheSharedCounter();
    void creationOverAnExistingFileIsSilent();
    void creationInAMissingFolderIsSilent();
    void lockedCreationShowsTheLockingMessageOnce();
    void unknownFailureAtCreationEndsItInSilence();
    void knownFailuresAtCreationGoOn_data();
    void knownFailuresAtCreationGoOn();
    void creationKeepsTheHandleOfTheOpenStore();
    void twoClientsMayHaveTheSameOrder();
    void oneClientCannotHaveAnOrderTwice();
    void closedStoreFailsAsClosedAndIsSilent();
    void openingBindsTheHandlesInSilence();
    void missingFileShowsItsNumberAndThen91Twice();
    void fileHeldExclusivelyShowsTheLockingMessageAndThen91Twice();
    void missingTableShowsItsNumber();
    void damagedFileIsRepairedAndStaysClosedForTheRun_data();
    void damagedFileIsRepairedAndStaysClosedForTheRun();
    void nextRunOpensTheRepairedStore();
    void sameRunMayOpenTheRepairedStoreAgain();
    void repairKeepsTheFileThatItFound();
    void failingRepairGoesToTheCaller();
    void openingAgainLeavesOneDatabaseOpen();

private:
    QString path() const { return RUTAEMPRESA + u"ASISTENCIAS.MDB"_s; }
    QString nativePath() const { return m_root->companyFile(u"ASISTENCIAS.MDB"_s); }
    void givenFile(const QByteArray& content) const;

    std::unique_ptr<testsupport::TempDataRoot> m_root;
    std::unique_ptr<testsupport::MessageRecorder> m_messages;
};

namespace {

const platform::Message kLockingMessage{
    u"No puedo bloquear los ficheros. SHARE no ha sido instalado. Salga de BELMAR, instale SHARE y reinicie el programa."_s,
    QString(), platform::MessageIcon::Information};

platform::Message plain(const QString& text)
{
    return {text, QString(), platform::MessageIcon::None};
}

void addConsultation(double order, const QString& client)
{
    RSCONSULTAS.AddNew();
    RSCONSULTAS[u"ORDEN"].setValue(order);
    RSCONSULTAS[u"CLICONSULTA"].setValue(client);
    RSCONSULTAS.Update();
}

} // namespace

void ConsultasTest::init()
{
    m_root = std::make_unique<testsupport::TempDataRoot>();
    m_messages = std::make_unique<testsupport::MessageRecorder>();
    resetProgramState();
    RUTAEMPRESA = m_root->companyPath();
}

void ConsultasTest::cleanup()
{
    resetProgramState();
    platform::dao::DBEngine().setStorage(nullptr);
    m_messages.reset();
    m_root.reset();
}

void ConsultasTest::givenFile(const QByteArray& content) const
{
    QFile file(nativePath());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

void ConsultasTest::newStoreIsEmptyWithBothIndexes()
{
    CREARCONSULTAS();

    QVERIFY(storetest::rows(path(), u"CONS"_s).isEmpty());
    QCOMPARE(storetest::keyOf(path(), u"CONS"_s, u"CONnum"_s), QStringList({u"ORDEN"_s, u"CLICONSULTA"_s}));
    QCOMPARE(storetest::keyOf(path(), u"CONS"_s, u"connumeracion"_s), QStringList{u"ORDEN"_s});
    QVERIFY(m_messages->isEmpty());
}

void ConsultasTest::creationBorrowsTheSharedCounter()
{
    CREARCONSULTAS();

    QCOMPARE(CONTADOR, std::int16_t(14));
}

void ConsultasTest::creationOverAnExistingFileIsSilent()
{
    CREARCONSULTAS();
    CONTADOR = 7;

    CREARCONSULTAS();

    QVERIFY(m_messages->isEmpty());
    QCOMPARE(CONTADOR, std::int16_t(7));
}

void ConsultasTest::creationInAMissingFolderIsSilent()
{
    RUTAEMPRESA = m_root->path() + u"\\Empresa00099\\"_s;

    CREARCONSULTAS();

    QVERIFY(m_messages->isEmpty());
}

void ConsultasTest::lockedCreationShowsTheLockingMessageOnce()
{
    auto engine = std::make_shared<testsupport::FailingEngine>();
    platform::dao::DBEngine().setStorage(engine);
    engine->failOperation(Operation::Create, 3050);

    CREARCONSULTAS();

    QCOMPARE(m_messages->messages(), QList{kLockingMessage});
}

void ConsultasTest::unknownFailureAtCreationEndsItInSilence()
{
    auto engine = std::make_shared<testsupport::FailingEngine>();
    platform::dao::DBEngine().setStorage(engine);
    engine->failOperation(Operation::CreateTable, 3026);

    CREARCONSULTAS();

    QCOMPARE(engine->count(Operation::SetAllowZeroLength), 0);
    QCOMPARE(platform::dao::DBEngine().Workspaces(0).Databases().Count(), 0);
    QVERIFY(m_messages->isEmpty());
}

void ConsultasTest::knownFailuresAtCreationGoOn_data()
{
    QTest::addColumn<int>("number");

    for (const int number : {3219, 3420, 91})
        QTest::addRow("%d", number) << number;
}

void ConsultasTest::knownFailuresAtCreationGoOn()
{
    QFETCH(int, number);
    auto engine = std::make_shared<testsupport::FailingEngine>();
    platform::dao::DBEngine().setStorage(engine);
    engine->failOperation(Operation::CreateTable, number);

    CREARCONSULTAS();

    // The loop over the columns stands behind the table's `Append` and runs to its end.
    QCOMPARE(CONTADOR, std::int16_t(14));
    QCOMPARE(platform::dao::DBEngine().Workspaces(0).Databases().Count(), 0);
    QVERIFY(m_messages->isEmpty());
}

void ConsultasTest::creationKeepsTheHandleOfTheOpenStore()
{
    CREARCONSULTAS();
    ABRIRCONSULTAS();

    CREARCONSULTAS();

    QCOMPARE(RSCONSULTAS.RecordCount(), 0);
    QVERIFY(m_messages->isEmpty());
}

void ConsultasTest::twoClientsMayHaveTheSameOrder()
{
    CREARCONSULTAS();
    ABRIRCONSULTAS();

    addConsultation(1, u"0000000001"_s);
    addConsultation(1, u"0000000002"_s);

    QCOMPARE(RSCONSULTAS.RecordCount(), 2);
}

void ConsultasTest::oneClientCannotHaveAnOrderTwice()
{
    CREARCONSULTAS();
    ABRIRCONSULTAS();
    addConsultation(1, u"0000000001"_s);

    QCOMPARE(support::failureOf([] { addConsultation(1, u"0000000001"_s); }), 3022);
    QCOMPARE(RSCONSULTAS.RecordCount(), 1);
}

void ConsultasTest::closedStoreFailsAsClosedAndIsSilent()
{
    CREARCONSULTAS();
    ABRIRCONSULTAS();

    CERRARCONSULTAS();
    CERRARCONSULTAS();

    QCOMPARE(support::failureOf([] { RSCONSULTAS.MoveFirst(); }), 3420);
    QVERIFY(m_messages->isEmpty());
}

void ConsultasTest::openingBindsTheHandlesInSilence()
{
    CREARCONSULTAS();

    ABRIRCONSULTAS();

    QVERIFY(RSCONSULTAS.isBound());
    QVERIFY(!RSCONSULTAS.LockEdits());
    QVERIFY(m_messages->isEmpty());
}

void ConsultasTest::missingFileShowsItsNumberAndThen91Twice()
{
    ABRIRCONSULTAS();

    QCOMPARE(m_messages->messages(),
             QList({plain(u"ERROR  3024"_s), plain(u"ERROR  91"_s), plain(u"ERROR  91"_s)}));
}

void ConsultasTest::fileHeldExclusivelyShowsTheLockingMessageAndThen91Twice()
{
    CREARCONSULTAS();
    const auto other = platform::storage::sqliteEngine()->open(nativePath(), Sharing::Exclusive);

    ABRIRCONSULTAS();

    QCOMPARE(m_messages->messages(), QList({kLockingMessage, plain(u"ERROR  91"_s), plain(u"ERROR  91"_s)}));
}

void ConsultasTest::missingTableShowsItsNumber()
{
    storetest::makeStore(path(), {});

    ABRIRCONSULTAS();

    QCOMPARE(m_messages->messages(), QList({plain(u"ERROR  3011"_s), plain(u"ERROR  91"_s)}));
}

void ConsultasTest::damagedFileIsRepairedAndStaysClosedForTheRun_data()
{
    QTest::addColumn<QByteArray>("content");

    QTest::newRow("garbage") << QByteArray(8192, 'x');
    QTest::newRow("zeroes") << QByteArray(8192, '\0');
    QTest::newRow("length 0") << QByteArray();
}

void ConsultasTest::damagedFileIsRepairedAndStaysClosedForTheRun()
{
    QFETCH(QByteArray, content);
    givenFile(content);

    ABRIRCONSULTAS();

    QVERIFY(!BDASISTENCIAS.isBound());
    QVERIFY(!RSCONSULTAS.isBound());
    QCOMPARE(m_messages->messages(), QList({plain(u"ERROR  91"_s), plain(u"ERROR  91"_s)}));
}

void ConsultasTest::nextRunOpensTheRepairedStore()
{
    givenFile(QByteArray(8192, 'x'));
    ABRIRCONSULTAS();
    storetest::endRun();
    m_messages->clear();

    CERRARCONSULTAS();
    CREARCONSULTAS();
    ABRIRCONSULTAS();

    QCOMPARE(RSCONSULTAS.RecordCount(), 0);
    QCOMPARE(RSCONSULTAS.Fields().Count(), 14);
    QVERIFY(m_messages->isEmpty());
}

void ConsultasTest::sameRunMayOpenTheRepairedStoreAgain()
{
    givenFile(QByteArray(8192, 'x'));
    ABRIRCONSULTAS();
    m_messages->clear();

    ABRIRCONSULTAS();

    QVERIFY(RSCONSULTAS.isBound());
    QVERIFY(m_messages->isEmpty());
}

void ConsultasTest::repairKeepsTheFileThatItFound()
{
    givenFile("what was there");

    ABRIRCONSULTAS();

    const QDir folder(m_root->path(u"Empresa00012"_s));
    const QStringList kept = folder.entryList({u"ASISTENCIAS*dañado*"_s}, QDir::Files);
    QCOMPARE(kept.size(), 1);
    QFile file(folder.filePath(kept.constFirst()));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("what was there"));
}

void ConsultasTest::failingRepairGoesToTheCaller()
{
    auto engine = std::make_shared<testsupport::FailingEngine>();
    platform::dao::DBEngine().setStorage(engine);
    engine->failOperation(Operation::Repair, 3050);
    givenFile("what was there");

    QCOMPARE(support::failureOf([] { ABRIRCONSULTAS(); }), 3050);
    QVERIFY(m_messages->isEmpty());
}

void ConsultasTest::openingAgainLeavesOneDatabaseOpen()
{
    CREARCONSULTAS();
    ABRIRCONSULTAS();

    ABRIRCONSULTAS();

    QCOMPARE(platform::dao::DBEngine().Workspaces(0).Databases().Count(), 1);
    QCOMPARE(BDASISTENCIAS.Recordsets().Count(), 1);
}

QTEST_GUILESS_MAIN(ConsultasTest)
#include "tst_consultas.moc"
