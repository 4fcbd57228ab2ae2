// SPDX-License-Identifier: GPL-3.0-or-later

// Starts over store files that can't be used: each ends, says only what is told, and leaves the file as it
// was.

#include "platform/system/paths.h"
#include "shell/globalsat.h"
#include "stores/allstores.h"
#include "stores/bdarticul.h"
#include "stores/bdcliente.h"
#include "stores/storefixture.h"
#include "stores/telefonos.h"
#include "stores/tipcli.h"
#include "stores/zone.h"
#include "support/failingengine.h"
#include "support/failureof.h"
#include "support/messagerecorder.h"
#include "support/tempdataroot.h"

#include <QtTest>

using namespace Qt::StringLiterals;
using platform::dao::Recordset;
using platform::storage::Sharing;

namespace {

/// A store other than the assistance store, which has tests of its own.
struct SilentStore
{
    const char* name;
    QStringView file; ///< below the data root
    void (*create)();
    void (*open)();
    Recordset* recordset;
};

const std::array kSilentStores{
    SilentStore{"articles", u"Empresa00012/ARTICULOS.MDB", &CREARARTICULOS, &ABRIRARTICULOS, &RSARTICULOS},
    SilentStore{"clients", u"Empresa00012/Clientes.mdb", &CREARCLIENTES, &ABRIRCLIENTES, &RSCLIENTES},
    SilentStore{"zones", u"Empresa00012/ZONAS.MDB", &CREARZONAS, &ABRIRZONAS, &RSZONAS},
    SilentStore{"types", u"Empresa00012/TIPOS DE CLIENTES.MDB", &CREARTIPOS, &ABRIRTIPOS, &RSTIPOCLI},
    SilentStore{"telephones", u"TELEFONOS DE CLIENTES.MDB", &CREARTELEFONOS, &ABRIRTELEFONOS, &RSTELEFONOS},
};

} // namespace

class SpoiledStoresTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void junkFileStaysAsItIsInSilence_data();
    void junkFileStaysAsItIsInSilence();
    void emptyFileStaysAsItIsInSilence_data() { storeRows(); }
    void emptyFileStaysAsItIsInSilence();
    void fileHeldExclusivelyLeavesTheStoreUnboundInSilence_data() { storeRows(); }
    void fileHeldExclusivelyLeavesTheStoreUnboundInSilence();
    void missingFolderEndsInSilence_data() { storeRows(); }
    void missingFolderEndsInSilence();
    void foreignDatabaseKeepsItsTables_data() { storeRows(); }
    void foreignDatabaseKeepsItsTables();
    void oldReadOnlyClientsStoreOpensAsItIs();
    void oldReadOnlyArticlesStoreOpensAsItIs();
    void storeThatWontOpenIsTriedByOneUpgradeStepOnly_data() { upgradedRows(); }
    void storeThatWontOpenIsTriedByOneUpgradeStepOnly();
    void storeThatOpensAtASecondTryEndsOpen_data() { upgradedRows(); }
    void storeThatOpensAtASecondTryEndsOpen();
    void lockedTableEndsTheUpgrade();

private:
    static void storeRows();
    static void upgradedRows(); ///< the stores that have upgrade steps
    [[nodiscard]] const SilentStore& store() const;
    [[nodiscard]] QString nativePath() const { return m_root->path(store().file.toString()); }
    void givenFile(const QByteArray& content) const;

    std::unique_ptr<testsupport::TempDataRoot> m_root;
    std::unique_ptr<testsupport::MessageRecorder> m_messages;
};

void SpoiledStoresTest::init()
{
    m_root = std::make_unique<testsupport::TempDataRoot>();
    m_messages = std::make_unique<testsupport::MessageRecorder>();
    resetProgramState();
    RUTAEMPRESA = m_root->companyPath();
}

void SpoiledStoresTest::cleanup()
{
    resetProgramState();
    platform::dao::DBEngine().setStorage(nullptr);
    m_messages.reset();
    m_root.reset();
}

void SpoiledStoresTest::storeRows()
{
    QTest::addColumn<int>("store");
    for (std::size_t index = 0; index < kSilentStores.size(); ++index)
        QTest::newRow(kSilentStores[index].name) << static_cast<int>(index);
}

void SpoiledStoresTest::upgradedRows()
{
    QTest::addColumn<int>("store");
    QTest::newRow("articles") << 0;
    QTest::newRow("clients") << 1;
}

const SilentStore& SpoiledStoresTest::store() const
{
    const auto* index = static_cast<const int*>(QTest::qData("store", QMetaType::Int));
    return kSilentStores.at(static_cast<std::size_t>(*index));
}

void SpoiledStoresTest::givenFile(const QByteArray& content) const
{
    QFile file(nativePath());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

void SpoiledStoresTest::junkFileStaysAsItIsInSilence_data()
{
    QTest::addColumn<int>("store");
    QTest::addColumn<QByteArray>("content");
    for (std::size_t index = 0; index < kSilentStores.size(); ++index) {
        const QByteArray name(kSilentStores[index].name);
        QTest::newRow((name + ", garbage").constData()) << static_cast<int>(index) << QByteArray(8192, 'x');
        QTest::newRow((name + ", zeroes").constData()) << static_cast<int>(index) << QByteArray(8192, '\0');
        QTest::newRow((name + ", header only").constData())
            << static_cast<int>(index) << QByteArray("SQLite format 3\0", 16) + QByteArray(2000, 'x');
    }
}

void SpoiledStoresTest::junkFileStaysAsItIsInSilence()
{
    QFETCH(QByteArray, content);
    givenFile(content);
    const QMap<QString, QByteArray> before = storetest::filesBelow(m_root->path());

    store().create();
    store().open();

    QVERIFY(!store().recordset->isBound());
    QVERIFY(m_messages->isEmpty());
    storetest::endRun();
    QCOMPARE(storetest::filesBelow(m_root->path()), before);
}

void SpoiledStoresTest::emptyFileStaysAsItIsInSilence()
{
    givenFile(QByteArray());

    store().create();
    store().open();

    QVERIFY(!store().recordset->isBound());
    QVERIFY(m_messages->isEmpty());
    QCOMPARE(QFileInfo(nativePath()).size(), 0);
}

void SpoiledStoresTest::fileHeldExclusivelyLeavesTheStoreUnboundInSilence()
{
    store().create();
    const auto other = platform::storage::sqliteEngine()->open(nativePath(), Sharing::Exclusive);

    store().open();

    QVERIFY(!store().recordset->isBound());
    QVERIFY(m_messages->isEmpty());
}

void SpoiledStoresTest::missingFolderEndsInSilence()
{
    RUTAEMPRESA = m_root->path() + u"\\Empresa00099\\"_s;

    store().create();
    store().open();

    const bool isShared = store().recordset == &RSTELEFONOS;
    QCOMPARE(store().recordset->isBound(), isShared);
    QVERIFY(m_messages->isEmpty());
}

void SpoiledStoresTest::foreignDatabaseKeepsItsTables()
{
    static constexpr std::array kForeignColumns{stores::ColumnSchema{u"A", platform::dao::dbText, 10}};
    const stores::TableSchema foreign{u"AJENA", kForeignColumns, {}};
    const QString path = platform::programPath(nativePath());
    storetest::makeStore(path, {foreign});
    storetest::addRow(path, u"AJENA"_s, {{u"A", u"x"_s}});

    store().create();
    store().open();
    const bool isBound = store().recordset->isBound();
    storetest::endRun();

    QVERIFY(!isBound);
    QVERIFY(m_messages->isEmpty());
    QCOMPARE(storetest::rows(path, u"AJENA"_s), QList<QStringList>({{u"x"_s}}));
}

void SpoiledStoresTest::oldReadOnlyClientsStoreOpensAsItIs()
{
    storetest::makeStore(RUTAEMPRESA + u"Clientes.mdb"_s,
                         {storetest::firstColumns(stores::kClientesTabla, 48), stores::kClidirenvios,
                          stores::kClibancosdisp, storetest::unnumberedConcepts()});
    auto engine = std::make_shared<testsupport::FailingEngine>();
    platform::dao::DBEngine().setStorage(engine);
    engine->failOperation(testsupport::Operation::AddColumn, 3027);

    CREARCLIENTES();
    ABRIRCLIENTES();

    QCOMPARE(RSCLIENTES.Fields().Count(), 48);
    QCOMPARE(RSCYC.Fields().Count(), 15);
    QVERIFY(m_messages->isEmpty());
}

void SpoiledStoresTest::oldReadOnlyArticlesStoreOpensAsItIs()
{
    storetest::makeStore(RUTAEMPRESA + u"ARTICULOS.MDB"_s,
                         {storetest::firstColumns(stores::kArticulosTabla, 70)});
    auto engine = std::make_shared<testsupport::FailingEngine>();
    platform::dao::DBEngine().setStorage(engine);
    engine->failOperation(testsupport::Operation::AddColumn, 3027);

    CREARARTICULOS();
    ABRIRARTICULOS();

    QCOMPARE(RSARTICULOS.Fields().Count(), 70);
}

// Each opening of a store that others hold waits for its locks.
void SpoiledStoresTest::storeThatWontOpenIsTriedByOneUpgradeStepOnly()
{
    store().create();
    auto engine = std::make_shared<testsupport::FailingEngine>();
    platform::dao::DBEngine().setStorage(engine);
    engine->failOperation(testsupport::Operation::Open, 3050);

    store().open();

    QVERIFY(!store().recordset->isBound());
    QCOMPARE(engine->count(testsupport::Operation::Open), 3); // itself, the first step, and after that step
}

void SpoiledStoresTest::storeThatOpensAtASecondTryEndsOpen()
{
    store().create();
    auto engine = std::make_shared<testsupport::FailingEngine>();
    platform::dao::DBEngine().setStorage(engine);
    engine->failNth(1, 3050);

    store().open();

    QVERIFY(store().recordset->isBound());
    QCOMPARE(platform::dao::DBEngine().Workspaces(0).Databases().Count(), 1);
}

void SpoiledStoresTest::lockedTableEndsTheUpgrade()
{
    CREARCLIENTES();
    auto engine = std::make_shared<testsupport::FailingEngine>();
    platform::dao::DBEngine().setStorage(engine);
    engine->failTable(u"ClientesTabla"_s, 3211);

    ABRIRCLIENTES();

    QVERIFY(!RSCLIENTES.isBound());
    QVERIFY(RSENVIOS.isBound());
}

QTEST_GUILESS_MAIN(SpoiledStoresTest)
#include "tst_spoiledstores.moc"
