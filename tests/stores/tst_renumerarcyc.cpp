// SPDX-License-Identifier: GPL-3.0-or-later

// The numbering of the periodic concepts' lines, once in the life of an old clients store.

#include "shell/globalsat.h"
#include "stores/bdcliente.h"
#include "stores/clientesschema.h"
#include "stores/storefixture.h"
#include "support/failingcalls.h"
#include "support/failingengine.h"
#include "support/failureof.h"
#include "support/tempdataroot.h"

#include "platform/core/regime.h"
#include "platform/system/paths.h"

#include <QtTest>

#include <algorithm>

using namespace Qt::StringLiterals;

class RenumerarCycTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void linesCountUpWithinEachClient();
    void emptyClientCodeContinuesFromTheStart();
    void onlyTheFirstRunOfEmptyCodesIsSpecial();
    void casesOfACodeAreDifferentClients();
    void indexGetsTheLineAsThirdKey();
    void anArticleMayThenStandOnSeveralLines();
    void storeIsOpenAfterTheUpgrade();
    void emptyTableGetsTheIndexToo();
    void indexStaysWhileAnotherRunHoldsTheFile();
    void linesAreNumberedWhileAnotherRunHoldsTheFile();
    void indexIsNotRebuiltAtTheNextStart();
    void failureInTheLoopLeavesNoTrace();
    void unboundStoreEndsTheLoop();
    void everyStepMayFailAlone();

private:
    QString path() const { return RUTAEMPRESA + u"Clientes.mdb"_s; }
    void givenConcepts(std::initializer_list<std::pair<QString, QString>> articlesAndClients) const;
    /// "client line" of every row, sorted.
    QStringList lines() const;
    void restoreFile(const QByteArray& content) const;
    QStringList indexKey() const
    {
        return storetest::keyOf(path(), u"clientescyctabla"_s, u"clientescyccodigoindice"_s);
    }

    std::unique_ptr<testsupport::TempDataRoot> m_root;
};

namespace {

const QStringList kWideKey{u"clientescycarticulo"_s, u"clientescyccliente"_s, u"clientescylineas"_s};

} // namespace

void RenumerarCycTest::init()
{
    m_root = std::make_unique<testsupport::TempDataRoot>();
    resetProgramState();
    RUTAEMPRESA = m_root->companyPath();
}

void RenumerarCycTest::cleanup()
{
    resetProgramState();
    platform::dao::DBEngine().setStorage(nullptr);
    m_root.reset();
}

void RenumerarCycTest::givenConcepts(
    std::initializer_list<std::pair<QString, QString>> articlesAndClients) const
{
    storetest::makeStore(path(), {stores::kClientesTabla, stores::kClidirenvios, stores::kClibancosdisp,
                                  storetest::unnumberedConcepts()});
    for (const auto& [article, client] : articlesAndClients)
        storetest::addRow(path(), u"clientescyctabla"_s,
                          {{u"clientescycarticulo", article}, {u"clientescyccliente", client}});
}

QStringList RenumerarCycTest::lines() const
{
    QStringList lines;
    for (const QStringList& row : storetest::rows(path(), u"clientescyctabla"_s))
        lines.append(row.at(1) + u' ' + row.at(15));
    lines.sort();
    return lines;
}

void RenumerarCycTest::linesCountUpWithinEachClient()
{
    givenConcepts({{u"1"_s, u"A"_s}, {u"2"_s, u"A"_s}, {u"1"_s, u"B"_s}});

    ABRIRCLIENTES();

    QCOMPARE(lines(), QStringList({u"A 1"_s, u"A 2"_s, u"B 1"_s}));
}

void RenumerarCycTest::emptyClientCodeContinuesFromTheStart()
{
    givenConcepts({{u"1"_s, u""_s}});

    ABRIRCLIENTES();

    QCOMPARE(lines(), QStringList{u" 2"_s});
}

void RenumerarCycTest::onlyTheFirstRunOfEmptyCodesIsSpecial()
{
    givenConcepts({{u"1"_s, u""_s}, {u"2"_s, u""_s}, {u"1"_s, u"A"_s}});

    ABRIRCLIENTES();

    QCOMPARE(lines(), QStringList({u" 2"_s, u" 3"_s, u"A 1"_s}));
}

void RenumerarCycTest::casesOfACodeAreDifferentClients()
{
    givenConcepts({{u"1"_s, u"a"_s}, {u"2"_s, u"A"_s}});

    ABRIRCLIENTES();

    QCOMPARE(lines(), QStringList({u"A 1"_s, u"a 1"_s}));
}

void RenumerarCycTest::indexGetsTheLineAsThirdKey()
{
    givenConcepts({{u"1"_s, u"A"_s}});
    QCOMPARE(indexKey().size(), 2);

    ABRIRCLIENTES();

    QCOMPARE(indexKey(), kWideKey);
    const platform::storage::TableDefinition table = storetest::definition(path(), u"clientescyctabla"_s);
    QVERIFY(table.index(u"clientescyccodigoindice")->primary);
    QVERIFY(table.index(u"clientescyccodigoindice")->unique);
}

void RenumerarCycTest::anArticleMayThenStandOnSeveralLines()
{
    givenConcepts({{u"1"_s, u"A"_s}});

    ABRIRCLIENTES();

    storetest::addRow(
        path(), u"clientescyctabla"_s,
        {{u"clientescycarticulo", u"1"_s}, {u"clientescyccliente", u"A"_s}, {u"clientescylineas", 2.0}});
    QCOMPARE(lines(), QStringList({u"A 1"_s, u"A 2"_s}));
}

void RenumerarCycTest::storeIsOpenAfterTheUpgrade()
{
    givenConcepts({{u"1"_s, u"A"_s}});

    ABRIRCLIENTES();

    RSCYC.setIndex(u"clientescyccodigoindice"_s);
    RSCYC.Seek(u"=", u"1"_s, u"A"_s, 1.0);
    QVERIFY(!RSCYC.NoMatch());
    QVERIFY(RSTARIFAS.isBound());
}

void RenumerarCycTest::emptyTableGetsTheIndexToo()
{
    givenConcepts({});

    ABRIRCLIENTES();

    QCOMPARE(indexKey(), kWideKey);
}

void RenumerarCycTest::indexStaysWhileAnotherRunHoldsTheFile()
{
    givenConcepts({{u"1"_s, u"A"_s}});
    const auto other = platform::storage::sqliteEngine()->open(platform::nativePath(path()),
                                                               platform::storage::Sharing::Shared);

    ABRIRCLIENTES();

    QCOMPARE(indexKey().size(), 2);
    QCOMPARE(RSCYC.Fields().Count(), 16);
}

void RenumerarCycTest::linesAreNumberedWhileAnotherRunHoldsTheFile()
{
    givenConcepts({{u"1"_s, u"A"_s}, {u"2"_s, u"A"_s}});
    const auto other = platform::storage::sqliteEngine()->open(platform::nativePath(path()),
                                                               platform::storage::Sharing::Shared);

    ABRIRCLIENTES();

    QCOMPARE(lines(), QStringList({u"A 1"_s, u"A 2"_s}));
}

void RenumerarCycTest::indexIsNotRebuiltAtTheNextStart()
{
    givenConcepts({{u"1"_s, u"A"_s}});
    auto other = platform::storage::sqliteEngine()->open(platform::nativePath(path()),
                                                         platform::storage::Sharing::Shared);
    ABRIRCLIENTES();
    storetest::endRun();
    other.reset();

    ABRIRCLIENTES();

    QCOMPARE(indexKey().size(), 2);
}

void RenumerarCycTest::failureInTheLoopLeavesNoTrace()
{
    platform::setLastError(3021);

    RENUMERARCYC();

    // What fails after the loop is the closing of what nothing has opened.
    QCOMPARE(platform::lastError(), 91);
}

void RenumerarCycTest::unboundStoreEndsTheLoop()
{
    RENUMERARCYC();

    QVERIFY(!BDCLIENTES.isBound());
}

void RenumerarCycTest::everyStepMayFailAlone()
{
    givenConcepts({{u"1"_s, u"A"_s}, {u"2"_s, u"A"_s}});
    {
        platform::dao::Database store = platform::dao::DBEngine().Workspaces(0).OpenDatabase(path());
        MODIFICARCAMPO(store.TableDefs().Item(u"clientescyctabla"_s), u"APPEND"_s, u"clientescylineas"_s,
                       platform::dao::dbDouble);
        store.Close();
    }
    const QByteArray old = storetest::filesBelow(m_root->path(u"Empresa00012"_s)).first();
    testsupport::FailingCalls calls;
    int count = 1;
    for (int n = 0; n <= count; ++n) {
        restoreFile(old);
        ABRIRCLIENTES();
        calls.failNth(n);
        RENUMERARCYC();
        if (n == 0)
            count = calls.count();
        calls.restart();
        storetest::endRun();

        const QStringList numbered = lines();
        QCOMPARE(numbered.size(), 2);
        const bool areNumbered = numbered == QStringList({u"A 1"_s, u"A 2"_s});
        QVERIFY2(areNumbered || indexKey().size() != 2, qPrintable(QString::number(n)));
    }
}

void RenumerarCycTest::restoreFile(const QByteArray& content) const
{
    QFile file(m_root->companyFile(u"Clientes.mdb"_s));
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(content);
}

QTEST_GUILESS_MAIN(RenumerarCycTest)
#include "tst_renumerarcyc.moc"
