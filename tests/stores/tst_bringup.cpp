// SPDX-License-Identifier: GPL-3.0-or-later

// What a start makes of a company's folder: its store files, and nothing more at the second start.

#include "shell/globalsat.h"
#include "stores/allstores.h"
#include "stores/bdarticul.h"
#include "stores/bdcliente.h"
#include "stores/consultas.h"
#include "stores/storefixture.h"
#include "support/failingengine.h"
#include "support/failureof.h"
#include "support/messagerecorder.h"
#include "support/tempdataroot.h"

#include <QDir>
#include <QtTest>

using namespace Qt::StringLiterals;
using stores::TableSchema;
using testsupport::Operation;

class BringUpTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void firstRunMakesEveryStoreFile();
    void tablesOfANewStoreHaveTheirShape_data();
    void tablesOfANewStoreHaveTheirShape();
    void newTablesAreEmptyButForTheDefaultZone();
    void everyTextAndMemoColumnTakesTheEmptyText();
    void secondRunChangesNoByte();
    void secondRunWritesNothing();
    void everyHeldHandleIsBound();
    void heldRecordsetsLockOptimistically();
    void missingCompanyFolderIsNotMade();
    void missingCompanyFolderLeavesTheHandlesUnbound();
    void missingCompanyFolderIsSilentButForTheAssistanceStore();
    void creatingLeavesAnExistingFileAlone();
    void closingBeforeAnythingIsOpenIsSilent();
    void twoCompaniesHaveTheirOwnStoresAndShareTheTelephones();

private:
    QString path(QStringView file) const;

    std::unique_ptr<testsupport::TempDataRoot> m_root;
    std::unique_ptr<testsupport::MessageRecorder> m_messages;
};

void BringUpTest::init()
{
    m_root = std::make_unique<testsupport::TempDataRoot>();
    m_messages = std::make_unique<testsupport::MessageRecorder>();
    resetProgramState();
    RUTAEMPRESA = m_root->companyPath();
}

void BringUpTest::cleanup()
{
    resetProgramState();
    platform::dao::DBEngine().setStorage(nullptr);
    m_messages.reset();
    m_root.reset();
}

/// Path of a store file by its name, as the schema spells it.
QString BringUpTest::path(QStringView file) const
{
    return (file.startsWith(u'\\') ? m_root->path() : RUTAEMPRESA) + file.toString();
}

void BringUpTest::firstRunMakesEveryStoreFile()
{
    storetest::bringUp();

    QDir company(m_root->path(u"Empresa00012"_s));
    QCOMPARE(company.entryList({u"*.mdb"_s}, QDir::Files, QDir::Name | QDir::IgnoreCase),
             QStringList({u"ARTICULOS.MDB"_s, u"ASISTENCIAS.MDB"_s, u"Clientes.mdb"_s,
                          u"TIPOS DE CLIENTES.MDB"_s, u"ZONAS.MDB"_s}));
    QVERIFY(QFile::exists(m_root->path(u"TELEFONOS DE CLIENTES.MDB"_s)));
    QVERIFY(m_messages->isEmpty());
}

void BringUpTest::tablesOfANewStoreHaveTheirShape_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("table");

    for (const stores::StoreSchema& store : stores::kAllStores) {
        for (std::size_t table = 0; table < store.tables.size(); ++table)
            QTest::newRow(qPrintable(store.tables[table].name.toString()))
                << store.file.toString() << static_cast<int>(table);
    }
}

void BringUpTest::tablesOfANewStoreHaveTheirShape()
{
    QFETCH(QString, file);
    QFETCH(int, table);
    const auto store = std::ranges::find(stores::kAllStores, QStringView(file), &stores::StoreSchema::file);
    const platform::storage::TableDefinition expected =
        stores::tableDefinition(store->tables[static_cast<std::size_t>(table)]);

    storetest::bringUp();
    storetest::endRun();

    const platform::storage::TableDefinition found = storetest::definition(path(file), expected.name);
    QCOMPARE(found.name, expected.name);
    QCOMPARE(found.columns.size(), expected.columns.size());
    for (qsizetype column = 0; column < expected.columns.size(); ++column) {
        QCOMPARE(found.columns[column].name, expected.columns[column].name);
        QCOMPARE(found.columns[column].type, expected.columns[column].type);
        QCOMPARE(found.columns[column].size, expected.columns[column].size);
        QCOMPARE(found.columns[column].allowZeroLength, expected.columns[column].allowZeroLength);
    }
    QCOMPARE(found.indexes.size(), expected.indexes.size());
    for (const platform::storage::IndexDefinition& index : expected.indexes) {
        QVERIFY2(found.index(index.name) != nullptr, qPrintable(index.name));
        QCOMPARE(found.index(index.name)->columns, index.columns);
        QCOMPARE(found.index(index.name)->primary, index.primary);
        QCOMPARE(found.index(index.name)->unique, index.unique);
    }
}

void BringUpTest::newTablesAreEmptyButForTheDefaultZone()
{
    storetest::bringUp();
    storetest::endRun();

    for (const stores::StoreSchema& store : stores::kAllStores) {
        for (const TableSchema& table : store.tables) {
            const qsizetype expected = table.name == u"ZONATAB" ? 1 : 0;
            QCOMPARE(storetest::rows(path(store.file), table.name.toString()).size(), expected);
        }
    }
}

void BringUpTest::everyTextAndMemoColumnTakesTheEmptyText()
{
    storetest::bringUp();

    for (platform::dao::Recordset* held :
         {&RSCLIENTES, &RSENVIOS, &RSBANCOS, &RSCYC, &RSTARIFAS, &RSARTICULOS, &RSZONAS, &RSTIPOCLI,
          &RSTIPOFAMI, &RSTIPOARTI, &RSCONSULTAS, &RSTELEFONOS}) {
        held->AddNew();
        for (int column = 0; column < held->Fields().Count(); ++column) {
            const platform::dao::Field field = held->Fields().Item(column);
            const bool isNumber =
                field.Size() == 8 && support::failureOf([&] { field.setValue(u"x"_s); }) == 3421;
            if (!isNumber)
                QCOMPARE(support::failureOf([&] { field.setValue(QString()); }), 0);
        }
    }
}

void BringUpTest::secondRunChangesNoByte()
{
    storetest::bringUp();
    storetest::endRun();
    const QMap<QString, QByteArray> before = storetest::filesBelow(m_root->path());

    storetest::bringUp();
    storetest::endRun();

    QCOMPARE(before.size(), 7);
    QCOMPARE(storetest::filesBelow(m_root->path()), before);
}

void BringUpTest::secondRunWritesNothing()
{
    storetest::bringUp();
    storetest::endRun();
    auto engine = std::make_shared<testsupport::FailingEngine>();
    platform::dao::DBEngine().setStorage(engine);

    storetest::bringUp();

    for (const Operation write :
         {Operation::Insert, Operation::Update, Operation::Erase, Operation::AddColumn, Operation::DropColumn,
          Operation::CreateIndex, Operation::DropIndex, Operation::SetAllowZeroLength, Operation::Repair})
        QCOMPARE(engine->count(write), 0);
    QVERIFY(m_messages->isEmpty());
}

void BringUpTest::everyHeldHandleIsBound()
{
    storetest::bringUp();

    for (const platform::dao::Recordset& held :
         {RSCLIENTES, RSENVIOS, RSBANCOS, RSCYC, RSTARIFAS, RSARTICULOS, RSZONAS, RSTIPOCLI, RSTIPOFAMI,
          RSTIPOARTI, RSCONSULTAS, RSTELEFONOS})
        QVERIFY(held.isBound());
    QCOMPARE(platform::dao::DBEngine().Workspaces(0).Databases().Count(), 6);
}

void BringUpTest::heldRecordsetsLockOptimistically()
{
    storetest::bringUp();

    for (const platform::dao::Recordset& held :
         {RSCLIENTES, RSENVIOS, RSBANCOS, RSCYC, RSTARIFAS, RSARTICULOS, RSZONAS, RSTIPOCLI, RSTIPOFAMI,
          RSTIPOARTI, RSCONSULTAS, RSTELEFONOS})
        QVERIFY(!held.LockEdits());
}

void BringUpTest::missingCompanyFolderIsNotMade()
{
    RUTAEMPRESA = m_root->path() + u"\\Empresa00099\\"_s;

    storetest::bringUp();

    QVERIFY(!QFile::exists(m_root->path(u"Empresa00099"_s)));
    QVERIFY(!QFile::exists(m_root->path(u"Clientes.mdb"_s)));
    QVERIFY(QFile::exists(m_root->path(u"TELEFONOS DE CLIENTES.MDB"_s)));
}

void BringUpTest::missingCompanyFolderLeavesTheHandlesUnbound()
{
    RUTAEMPRESA = m_root->path() + u"\\Empresa00099\\"_s;

    storetest::bringUp();

    for (const platform::dao::Database& database : {BDARTICULOS, BDCLIENTES, BDZONAS, BDTIPOS, BDASISTENCIAS})
        QVERIFY(!database.isBound());
    QVERIFY(!RSCLIENTES.isBound());
    QVERIFY(RSTELEFONOS.isBound());
}

void BringUpTest::missingCompanyFolderIsSilentButForTheAssistanceStore()
{
    RUTAEMPRESA = m_root->path() + u"\\Empresa00099\\"_s;

    storetest::bringUp();

    QCOMPARE(m_messages->texts(), QStringList({u"ERROR  3044"_s, u"ERROR  91"_s, u"ERROR  91"_s}));
}

void BringUpTest::creatingLeavesAnExistingFileAlone()
{
    for (const stores::StoreSchema& store : stores::kAllStores) {
        QFile file(m_root->path(store.place == stores::Place::CompanyFolder
                                    ? u"Empresa00012/"_s + store.file.toString()
                                    : store.file.toString()));
        file.setFileName(file.fileName().replace(u'\\', u'/'));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("not a database");
    }
    const QMap<QString, QByteArray> before = storetest::filesBelow(m_root->path());

    CREARARTICULOS();
    CREARCLIENTES();
    CREARCONSULTAS();

    QCOMPARE(storetest::filesBelow(m_root->path()), before);
    QVERIFY(m_messages->isEmpty());
}

void BringUpTest::closingBeforeAnythingIsOpenIsSilent()
{
    CERRARCLIENTES();
    CERRARARTICULOS();
    CERRARCONSULTAS();

    QVERIFY(m_messages->isEmpty());
    QVERIFY(!BDCLIENTES.isBound());
}

void BringUpTest::twoCompaniesHaveTheirOwnStoresAndShareTheTelephones()
{
    m_root->addCompany({u"00001"_s, u"ALMACENES"_s});
    storetest::bringUp();
    storetest::addRow(path(u"ZONAS.MDB"), u"ZONATAB"_s,
                      {{u"ZONCODIGO", u"N"_s}, {u"ZONDESCRIPCION", u"NORTE"_s}});
    storetest::addRow(
        path(u"\\TELEFONOS DE CLIENTES.MDB"), u"TELEFON"_s,
        {{u"TELECODIGOEMPRESA", u"00012"_s}, {u"TELECODIGO", u"A"_s}, {u"TELETELEFONO", u"911"_s}});
    storetest::endRun();

    RUTAEMPRESA = m_root->companyPath(u"00001"_s);
    storetest::bringUp();
    storetest::addRow(
        path(u"\\TELEFONOS DE CLIENTES.MDB"), u"TELEFON"_s,
        {{u"TELECODIGOEMPRESA", u"00001"_s}, {u"TELECODIGO", u"A"_s}, {u"TELETELEFONO", u"911"_s}});

    QCOMPARE(RSZONAS.RecordCount(), 1);
    QCOMPARE(RSTELEFONOS.RecordCount(), 2);
}

QTEST_GUILESS_MAIN(BringUpTest)
#include "tst_bringup.moc"
