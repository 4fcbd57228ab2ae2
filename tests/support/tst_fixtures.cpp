// SPDX-License-Identifier: GPL-3.0-or-later
//
// The fixtures that other tests lean on, and the reset of the program-wide variables.

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"
#include "platform/core/regime.h"
#include "platform/system/clock.h"
#include "platform/system/paths.h"
#include "platform/system/process.h"
#include "shell/globalsat.h"
#include "support/failingcalls.h"
#include "support/failingengine.h"
#include "support/fixedclock.h"
#include "support/messagerecorder.h"
#include "support/processrecorder.h"
#include "support/tempdataroot.h"

#include <QDir>
#include <QFileInfo>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace testsupport;
using namespace platform::dao;

class FixturesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { resetProgramState(); }

    void theDataRootIsTheCurrentDirectory();
    void theDataRootHasACatalogue();
    void aCompanyHasARowAndAFolder();
    void aNullNameLeavesItsColumnNull();
    void theFormerDirectoryComesBack();
    void theClockStandsStill();
    void messagesAreRecorded();
    void processesAreRecorded();
    void theNthCallFails();
    void everyCallOnAColumnFails();
    void theNthOperationFails();
    void everyOperationOnATableFails();
    void anOperationThatNamesAColumnFails();
    void resetBringsTheVariablesBack();
    void resetClosesWhatIsOpen();
};

namespace {

Recordset openCompanies()
{
    Database catalogue = DBEngine().Workspaces(0).OpenDatabase(TempDataRoot::cataloguePath());
    return catalogue.OpenRecordset(u"EMP"_s, dbOpenTable);
}

int failureOf(const std::function<void()>& call)
{
    platform::clearError();
    platform::attempt(call);
    return platform::lastError();
}

} // namespace

void FixturesTest::theDataRootIsTheCurrentDirectory()
{
    const TempDataRoot root;

    QCOMPARE(QDir::currentPath(), QFileInfo(root.path()).canonicalFilePath());
}

void FixturesTest::theDataRootHasACatalogue()
{
    const TempDataRoot root(QList<TempDataRoot::Company>{});

    QVERIFY(QFileInfo::exists(root.path(u"Empresas de Quenda.mdb"_s)));
    QCOMPARE(openCompanies().RecordCount(), 0);
}

void FixturesTest::aCompanyHasARowAndAFolder()
{
    const TempDataRoot root;

    QVERIFY(QFileInfo(root.path(u"Empresa00012"_s)).isDir());
    const Recordset companies = openCompanies();
    QCOMPARE(platform::asText(companies[u"MENUMEMPRESA"].Value()), u"00012"_s);
    QCOMPARE(platform::nativePath(root.companyPath() + u"Clientes.mdb"_s),
             QFileInfo(root.path(u"Empresa00012"_s)).canonicalFilePath() + u"/Clientes.mdb"_s);
    QVERIFY(root.companyPath().endsWith(u"\\Empresa00012\\"_s));
}

void FixturesTest::aNullNameLeavesItsColumnNull()
{
    TempDataRoot root(QList<TempDataRoot::Company>{});

    root.addCatalogueRow({u"00001"_s, QString()});

    QVERIFY(platform::isNull(openCompanies()[u"MENOMBRE"].Value()));
    QVERIFY(!QFileInfo::exists(root.path(u"Empresa00001"_s)));
}

void FixturesTest::theFormerDirectoryComesBack()
{
    const QString before = QDir::currentPath();
    {
        const TempDataRoot root;
        QVERIFY(QDir::currentPath() != before);
    }
    QCOMPARE(QDir::currentPath(), before);
}

void FixturesTest::theClockStandsStill()
{
    {
        FixedClock clock(QDate(2026, 2, 3), QTime(4, 5, 6));
        clock.advance(60);
        QCOMPARE(platform::now(), QDateTime(QDate(2026, 2, 3), QTime(4, 6, 6)));
    }
    QVERIFY(platform::now().date() != QDate(2026, 2, 3));
}

void FixturesTest::messagesAreRecorded()
{
    MessageRecorder messages;
    QStringList shown;
    messages.whileShown([&](const platform::Message& message) { shown.append(message.text); });

    platform::messageBox({u"uno"_s, {}, platform::MessageIcon::Information});
    platform::messageBox({u"dos"_s, {}, platform::MessageIcon::None});

    QCOMPARE(messages.texts(), (QStringList{u"uno"_s, u"dos"_s}));
    QCOMPARE(shown, messages.texts());
    QCOMPARE(messages.messages().first().icon, platform::MessageIcon::Information);
}

void FixturesTest::processesAreRecorded()
{
    ProcessRecorder processes;
    processes.setMissing({u"NADA.EXE"_s});

    platform::startProgram(u"WINPOPUP.EXE"_s);
    platform::openMail(u"a@b.es"_s);

    QCOMPARE(processes.started(), QStringList{u"WINPOPUP.EXE"_s});
    QCOMPARE(processes.mails(), QStringList{u"a@b.es"_s});
    QCOMPARE(failureOf([] { platform::startProgram(u"NADA.EXE"_s); }), platform::kFileNotFound);
    QVERIFY(ProcessRecorder::ends([] { platform::endProcess(); }));
    QVERIFY(!ProcessRecorder::ends([] {}));
    QCOMPARE(processes.endings(), 1);
}

void FixturesTest::theNthCallFails()
{
    const TempDataRoot root;
    Recordset companies = openCompanies();
    FailingCalls calls;

    calls.failNth(2, 1234);

    QCOMPARE(failureOf([&] { companies.MoveFirst(); }), 0);
    QCOMPARE(failureOf([&] { companies.MoveLast(); }), 1234);
    QCOMPARE(failureOf([&] { companies.MoveLast(); }), 0);
    QCOMPARE(calls.count(), 3);
}

void FixturesTest::everyCallOnAColumnFails()
{
    const TempDataRoot root;
    Recordset companies = openCompanies();
    FailingCalls calls;

    calls.failColumn(u"menombre"_s);

    QCOMPARE(failureOf([&] { (void)companies[u"MENOMBRE"].Value(); }), 3043);
    QCOMPARE(failureOf([&] { (void)companies[u"MENUMEMPRESA"].Value(); }), 0);
}

void FixturesTest::theNthOperationFails()
{
    const TempDataRoot root;
    const auto engine = std::make_shared<FailingEngine>();
    DBEngine().setStorage(engine);
    engine->failNth(3, 3260);

    Recordset companies = openCompanies();

    QCOMPARE(failureOf([&] { (void)companies.RecordCount(); }), 3260);
    QCOMPARE(failureOf([&] { (void)companies.RecordCount(); }), 0);
    DBEngine().setStorage(nullptr);
}

void FixturesTest::everyOperationOnATableFails()
{
    const TempDataRoot root;
    const auto engine = std::make_shared<FailingEngine>();
    DBEngine().setStorage(engine);
    engine->failTable(u"emp"_s);

    QCOMPARE(failureOf([] { (void)openCompanies(); }), 3043);
    QCOMPARE(failureOf([] { (void)openCompanies(); }), 3043);
    DBEngine().setStorage(nullptr);
}

void FixturesTest::anOperationThatNamesAColumnFails()
{
    const TempDataRoot root;
    const auto engine = std::make_shared<FailingEngine>();
    DBEngine().setStorage(engine);
    engine->failColumn(u"MENOMBRE"_s);
    Recordset companies = openCompanies();

    companies.Edit();
    companies[u"MENUMDIG"].setValue(u"8"_s);
    QCOMPARE(failureOf([&] { companies.Update(); }), 0);
    companies.Edit();
    companies[u"MENOMBRE"].setValue(u"OTRA"_s);
    QCOMPARE(failureOf([&] { companies.Update(); }), 3043);
    DBEngine().setStorage(nullptr);
}

void FixturesTest::resetBringsTheVariablesBack()
{
    NUMEMPRESA = u"00012"_s;
    CPOSTALBUSCADO = u"03801"_s;
    TIPOBUSQUEDA = 20;
    CONTADOR = 7;

    resetProgramState();

    QVERIFY(NUMEMPRESA.isEmpty());
    QVERIFY(CPOSTALBUSCADO.isEmpty());
    QCOMPARE(TIPOBUSQUEDA, 0.0);
    QCOMPARE(CONTADOR, std::int16_t{0});
}

void FixturesTest::resetClosesWhatIsOpen()
{
    const TempDataRoot root;
    BDEMPRESAS = DBEngine().Workspaces(0).OpenDatabase(TempDataRoot::cataloguePath());
    RSEMPRESAS = BDEMPRESAS.OpenRecordset(u"EMP"_s, dbOpenDynaset);
    const Database copy = BDEMPRESAS;

    resetProgramState();

    QVERIFY(!BDEMPRESAS.isBound());
    QVERIFY(!RSEMPRESAS.isBound());
    QCOMPARE(DBEngine().Workspaces(0).Databases().Count(), 0);
    QCOMPARE(failureOf([&] { (void)copy.Name(); }), platform::kObjectInvalid);
}

QTEST_GUILESS_MAIN(FixturesTest)
#include "tst_fixtures.moc"
