// SPDX-License-Identifier: GPL-3.0-or-later

// What the close and the create procedures of the stores have in common when a step of theirs fails.

#include "platform/core/failurenumbers.h"
#include "platform/system/paths.h"
#include "shell/globalsat.h"
#include "stores/bdarticul.h"
#include "stores/bdcliente.h"
#include "stores/consultas.h"
#include "stores/storefixture.h"
#include "stores/telefonos.h"
#include "stores/tipcli.h"
#include "stores/zone.h"
#include "support/failingcalls.h"
#include "support/failingengine.h"
#include "support/failureof.h"
#include "support/messagerecorder.h"
#include "support/tempdataroot.h"

#include <QtTest>

using namespace Qt::StringLiterals;
using platform::dao::Database;
using platform::dao::DBEngine;
using platform::dao::Recordset;
using support::failureOf;
using testsupport::FailingEngine;
using testsupport::Operation;

class StoreEdgesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void closingClosesEveryHandle_data() { addStores(); }
    void closingClosesEveryHandle();
    void recordsetThatWillNotCloseLeavesTheRestClosed_data() { addStores(); }
    void recordsetThatWillNotCloseLeavesTheRestClosed();
    void databaseThatWillNotCloseLeavesItsRecordsetsClosed_data() { addStores(); }
    void databaseThatWillNotCloseLeavesItsRecordsetsClosed();
    void secondClosingIsSilent_data() { addStores(); }
    void secondClosingIsSilent();
    void tableThatCannotBeMadeLeavesTheOthersMade();
    void columnThatRefusesTheEmptyTextLeavesTheOthersTried();
    void existingDatabaseMetInTheMiddleLeavesTheCreationAtOnce();
    void lockedCreationIsSilentButForTheAssistanceStore_data() { addStores(); }
    void lockedCreationIsSilentButForTheAssistanceStore();

private:
    static void addStores();

    std::unique_ptr<testsupport::TempDataRoot> m_root;
    std::unique_ptr<testsupport::MessageRecorder> m_messages;
};

namespace {

using Procedure = void (*)();

struct Store
{
    const char* name;
    Procedure close;
    Procedure create;
    Procedure open;
    Database* database;
    QList<Recordset*> recordsets; ///< in the order of opening
};

const QList<Store>& allStores()
{
    static const QList<Store> all{
        {"articles", &CERRARARTICULOS, &CREARARTICULOS, &ABRIRARTICULOS, &BDARTICULOS, {&RSARTICULOS}},
        {"clients",
         &CERRARCLIENTES,
         &CREARCLIENTES,
         &ABRIRCLIENTES,
         &BDCLIENTES,
         {&RSCLIENTES, &RSENVIOS, &RSBANCOS, &RSCYC, &RSTARIFAS}},
        {"zones", &CERRARZONAS, &CREARZONAS, &ABRIRZONAS, &BDZONAS, {&RSZONAS}},
        {"client types",
         &CERRARTIPOS,
         &CREARTIPOS,
         &ABRIRTIPOS,
         &BDTIPOS,
         {&RSTIPOCLI, &RSTIPOFAMI, &RSTIPOARTI}},
        {"assistance", &CERRARCONSULTAS, &CREARCONSULTAS, &ABRIRCONSULTAS, &BDASISTENCIAS, {&RSCONSULTAS}},
        {"telephones", &CERRARTELEFONOS, &CREARTELEFONOS, &ABRIRTELEFONOS, &BDTELEFONOS, {&RSTELEFONOS}},
    };
    return all;
}

const Store& opened(int index)
{
    const Store& store = allStores().at(index);
    store.create();
    store.open();
    return store;
}

int failureOfRecordset(const Recordset& recordset)
{
    return failureOf([&] { return recordset.RecordCount(); });
}

int openDatabases()
{
    return DBEngine().Workspaces(0).Databases().Count();
}

QStringList tablesOf(const QString& path)
{
    QStringList names;
    const auto connection = platform::storage::sqliteEngine()->open(platform::nativePath(path),
                                                                    platform::storage::Sharing::Shared);
    for (const platform::storage::TableDefinition& table : connection->tables())
        names.append(table.name);
    return names;
}

std::shared_ptr<FailingEngine> failingEngine()
{
    auto engine = std::make_shared<FailingEngine>();
    DBEngine().setStorage(engine);
    return engine;
}

} // namespace

void StoreEdgesTest::addStores()
{
    QTest::addColumn<int>("index");

    for (int index = 0; index < allStores().size(); ++index)
        QTest::newRow(allStores().at(index).name) << index;
}

void StoreEdgesTest::init()
{
    m_root = std::make_unique<testsupport::TempDataRoot>();
    m_messages = std::make_unique<testsupport::MessageRecorder>();
    resetProgramState();
    RUTAEMPRESA = m_root->companyPath();
}

void StoreEdgesTest::cleanup()
{
    DBEngine().setStorage(platform::storage::sqliteEngine());
    resetProgramState();
    m_messages.reset();
    m_root.reset();
}

void StoreEdgesTest::closingClosesEveryHandle()
{
    QFETCH(int, index);
    const Store& store = opened(index);

    store.close();

    for (const Recordset* recordset : store.recordsets)
        QCOMPARE(failureOfRecordset(*recordset), platform::kObjectInvalid);
    QCOMPARE(failureOf([&] { return store.database->Recordsets().Count(); }), platform::kObjectInvalid);
    QCOMPARE(openDatabases(), 0);
}

void StoreEdgesTest::recordsetThatWillNotCloseLeavesTheRestClosed()
{
    QFETCH(int, index);
    const Store& store = opened(index);
    testsupport::FailingCalls calls;
    calls.failNth(1);

    store.close();

    // The database closes last and takes with it what is still open on it.
    QCOMPARE(calls.count(), store.recordsets.size() + 1);
    QCOMPARE(openDatabases(), 0);
}

void StoreEdgesTest::databaseThatWillNotCloseLeavesItsRecordsetsClosed()
{
    QFETCH(int, index);
    const Store& store = opened(index);
    testsupport::FailingCalls calls;
    calls.failNth(static_cast<int>(store.recordsets.size()) + 1);

    store.close();

    calls.restart();
    for (const Recordset* recordset : store.recordsets)
        QCOMPARE(failureOfRecordset(*recordset), platform::kObjectInvalid);
    QCOMPARE(openDatabases(), 1);
}

void StoreEdgesTest::secondClosingIsSilent()
{
    QFETCH(int, index);
    const Store& store = opened(index);
    store.close();

    store.close();

    QVERIFY(m_messages->isEmpty());
}

void StoreEdgesTest::tableThatCannotBeMadeLeavesTheOthersMade()
{
    const auto engine = failingEngine();
    engine->failTable(u"TIPOFAMICLI"_s, 3026);

    CREARTIPOS();

    QCOMPARE(tablesOf(RUTAEMPRESA + u"TIPOS DE CLIENTES.MDB"_s),
             QStringList({u"TIPOCLI"_s, u"TIPOARTICLI"_s}));
    QCOMPARE(openDatabases(), 0);
}

void StoreEdgesTest::columnThatRefusesTheEmptyTextLeavesTheOthersTried()
{
    const auto engine = failingEngine();
    engine->failOperation(Operation::SetAllowZeroLength, 3043);

    CREARZONAS();

    QCOMPARE(engine->count(Operation::SetAllowZeroLength), 3);
    QCOMPARE(tablesOf(RUTAEMPRESA + u"ZONAS.MDB"_s), QStringList(u"ZONATAB"_s));
}

void StoreEdgesTest::existingDatabaseMetInTheMiddleLeavesTheCreationAtOnce()
{
    const auto engine = failingEngine();
    engine->failOperation(Operation::CreateTable, platform::kDatabaseAlreadyExists);

    CREARCLIENTES();

    QCOMPARE(engine->count(Operation::CreateTable), 1);
    QCOMPARE(engine->count(Operation::SetAllowZeroLength), 0);
}

void StoreEdgesTest::lockedCreationIsSilentButForTheAssistanceStore()
{
    QFETCH(int, index);
    const auto engine = failingEngine();
    engine->failOperation(Operation::Create, platform::kCouldNotLockFile);

    allStores().at(index).create();

    QCOMPARE(m_messages->messages().size(), allStores().at(index).create == &CREARCONSULTAS ? 1 : 0);
}

QTEST_GUILESS_MAIN(StoreEdgesTest)
#include "tst_storeedges.moc"
