// SPDX-License-Identifier: GPL-3.0-or-later

// The company and the exercise of the run, and the bring-up of the stores.

#include "shell/globalsat.h"
#include "shell/stmain.h"
#include "support/failureof.h"
#include "support/messagerecorder.h"
#include "support/processrecorder.h"
#include "support/tempdataroot.h"

#include <QDir>
#include <QtTest>

using namespace Qt::StringLiterals;
using platform::ComboList;
using testsupport::TempDataRoot;

class CompanyTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void launchedCompanyIsSelectedAndBothCombosAreDisabled();
    void numberWithBlanksSelectsTheSameCompany();
    void numberWithBlanksHasAFolderOfItsOwn();
    void unknownCompanyLeavesTheLastEntrySelected();
    void unknownCompanySetsEMPRESACOMBO();
    void unknownCompanyOpensTheStoresOfTheLaunchedNumber();
    void knownCompanyLeavesEMPRESACOMBOEmpty();
    void emptyCatalogueLeavesBothCombosEnabled();
    void emptyCatalogueBringsTheStoresUp();
    void exerciseHasNoEffectWhenItIsChanged();
    void rowWithANullAddsNoEntry_data();
    void rowWithANullAddsNoEntry();
    void fillingAgainRemovesTheOldEntriesFirst();
    void folderIsBuiltFromTheCurrentDirectory();
    void storesComeUpInTheirOrder();
    void leelongiFailsAtItsFirstStatement();
    void noRunLeavesAUserFile();
    void missingFolderLeavesTheRunGoing();

private:
    std::unique_ptr<STMAIN> started(const QList<TempDataRoot::Company>& companies,
                                    const QString& commandLine);
    static ComboList* companies(const STMAIN& window) { return window.findChild<ComboList*>(u"Idioma"_s); }
    static ComboList* exercises(const STMAIN& window) { return window.findChild<ComboList*>(u"Ejercicio"_s); }

    std::unique_ptr<TempDataRoot> m_root;
    std::unique_ptr<testsupport::MessageRecorder> m_messages;
    std::unique_ptr<testsupport::ProcessRecorder> m_process;
};

namespace {

const QList<TempDataRoot::Company> kTwoCompanies{{u"00001"_s, u"ZURBANO"_s}, {u"00012"_s, u"ALMACENES"_s}};

} // namespace

void CompanyTest::init()
{
    m_messages = std::make_unique<testsupport::MessageRecorder>();
    m_process = std::make_unique<testsupport::ProcessRecorder>();
    resetProgramState();
}

void CompanyTest::cleanup()
{
    resetProgramState();
    m_process.reset();
    m_messages.reset();
    m_root.reset();
}

std::unique_ptr<STMAIN> CompanyTest::started(const QList<TempDataRoot::Company>& companies,
                                             const QString& commandLine)
{
    m_root = std::make_unique<TempDataRoot>(companies);
    auto window = std::make_unique<STMAIN>(commandLine, STMAINLinks{});
    window->load();
    return window;
}

void CompanyTest::launchedCompanyIsSelectedAndBothCombosAreDisabled()
{
    const auto window = started(kTwoCompanies, u"00012 ana"_s);

    QCOMPARE(companies(*window)->listCount(), 2);
    QCOMPARE(companies(*window)->list(0), u"00012    ALMACENES"_s);
    QCOMPARE(companies(*window)->list(1), u"00001    ZURBANO"_s);
    QCOMPARE(companies(*window)->listIndex(), 0);
    QVERIFY(!companies(*window)->isEnabled());
    QVERIFY(!exercises(*window)->isEnabled());
}

void CompanyTest::numberWithBlanksSelectsTheSameCompany()
{
    const auto window = started(kTwoCompanies, u"12   xana"_s);

    QCOMPARE(companies(*window)->text(), u"00012    ALMACENES"_s);
}

void CompanyTest::numberWithBlanksHasAFolderOfItsOwn()
{
    const auto window = started(kTwoCompanies, u"12   xana"_s);

    QVERIFY(RUTAEMPRESA.endsWith(u"\\Empresa12\\"_s));
    QVERIFY(!RSCLIENTES.isBound());
}

void CompanyTest::unknownCompanyLeavesTheLastEntrySelected()
{
    const auto window = started(kTwoCompanies, u"00099 ana"_s);

    QCOMPARE(companies(*window)->text(), u"00001    ZURBANO"_s);
    QVERIFY(!companies(*window)->isEnabled());
}

void CompanyTest::unknownCompanySetsEMPRESACOMBO()
{
    const auto window = started(kTwoCompanies, u"00099 ana"_s);

    QCOMPARE(window->EMPRESACOMBO, u"00001"_s);
    QCOMPARE(NUMEMPRESA, u"00099"_s);
}

void CompanyTest::unknownCompanyOpensTheStoresOfTheLaunchedNumber()
{
    m_root = std::make_unique<TempDataRoot>(kTwoCompanies);
    QVERIFY(QDir(m_root->path()).mkdir(u"Empresa00099"_s));
    STMAIN window(u"00099 ana"_s, STMAINLinks{});

    window.load();

    QVERIFY(RUTAEMPRESA.endsWith(u"\\Empresa00099\\"_s));
    QVERIFY(QFile::exists(m_root->companyFile(u"Clientes.mdb"_s, u"00099"_s)));
    QVERIFY(!QFile::exists(m_root->companyFile(u"Clientes.mdb"_s, u"00001"_s)));
}

void CompanyTest::knownCompanyLeavesEMPRESACOMBOEmpty()
{
    const auto window = started(kTwoCompanies, u"00012 ana"_s);

    QVERIFY(window->EMPRESACOMBO.isEmpty());
}

void CompanyTest::emptyCatalogueLeavesBothCombosEnabled()
{
    const auto window = started({}, u"00012 ana"_s);

    QCOMPARE(companies(*window)->listCount(), 0);
    QVERIFY(companies(*window)->isEnabled());
    QVERIFY(exercises(*window)->isEnabled());
}

void CompanyTest::emptyCatalogueBringsTheStoresUp()
{
    m_root = std::make_unique<TempDataRoot>(QList<TempDataRoot::Company>());
    QVERIFY(QDir(m_root->path()).mkdir(u"Empresa00012"_s));
    STMAIN window(u"00012 ana"_s, STMAINLinks{});

    window.load();

    QVERIFY(RSCLIENTES.isBound());
    QVERIFY(RSTELEFONOS.isBound());
    QVERIFY(m_messages->isEmpty());
}

void CompanyTest::exerciseHasNoEffectWhenItIsChanged()
{
    const auto window = started({}, u"00012 ana"_s);
    const QString folder = RUTAEMPRESA;

    exercises(*window)->setListIndex(0);

    QCOMPARE(RUTAEMPRESA, folder);
    QCOMPARE(exercises(*window)->text(), u"1900"_s);
}

void CompanyTest::rowWithANullAddsNoEntry_data()
{
    QTest::addColumn<QString>("number");
    QTest::addColumn<QString>("name");

    QTest::newRow("no number") << QString() << u"SIN NUMERO"_s;
    QTest::newRow("no name") << u"00003"_s << QString();
}

void CompanyTest::rowWithANullAddsNoEntry()
{
    QFETCH(QString, number);
    QFETCH(QString, name);
    m_root = std::make_unique<TempDataRoot>(kTwoCompanies);
    m_root->addCatalogueRow({number, name});
    STMAIN window(u"00012 ana"_s, STMAINLinks{});

    window.load();

    QCOMPARE(companies(window)->listCount(), 2);
    QCOMPARE(companies(window)->text(), u"00012    ALMACENES"_s);
}

void CompanyTest::fillingAgainRemovesTheOldEntriesFirst()
{
    const auto window = started(kTwoCompanies, u"00012 ana"_s);

    window->DEUNAEMPRESA();

    QCOMPARE(companies(*window)->listCount(), 2);
    QCOMPARE(CONTADOR, std::int16_t(-1));
}

void CompanyTest::folderIsBuiltFromTheCurrentDirectory()
{
    const auto window = started(kTwoCompanies, u"00012 ana"_s);

    QCOMPARE(RUTAEMPRESA, m_root->companyPath(u"00012"_s));
}

void CompanyTest::storesComeUpInTheirOrder()
{
    const auto window = started(kTwoCompanies, u"00012 ana"_s);

    QStringList names;
    const platform::dao::Databases databases = platform::dao::DBEngine().Workspaces(0).Databases();
    for (int index = 0; index < databases.Count(); ++index)
        names.append(databases.Item(index).Name().section(u'\\', -1));
    QCOMPARE(names,
             QStringList({u"Empresas de Quenda.mdb"_s, u"Articulos.MDB"_s, u"Clientes.mdb"_s, u"ZONAS.MDB"_s,
                          u"TIPOS DE CLIENTES.MDB"_s, u"ASISTENCIAS.MDB"_s, u"TELEFONOS DE CLIENTES.MDB"_s}));
}

void CompanyTest::leelongiFailsAtItsFirstStatement()
{
    const auto window = started(kTwoCompanies, u"00012 ana"_s);
    window->EMPRESACOMBO = u"00001"_s;

    QCOMPARE(support::failureOf([&] { window->leelongi(); }), 91);
}

void CompanyTest::noRunLeavesAUserFile()
{
    const auto window = started(kTwoCompanies, u"00099 ana"_s);

    QVERIFY(QDir(m_root->path()).entryList({u"cb-*"_s}).isEmpty());
}

void CompanyTest::missingFolderLeavesTheRunGoing()
{
    const auto window = started(kTwoCompanies, u"00099 ana"_s);

    QVERIFY(window->isVisible());
    QVERIFY(!RSCLIENTES.isBound());
    QVERIFY(!QFile::exists(m_root->path(u"Empresa00099"_s)));
    QCOMPARE(m_process->endings(), 0);
}

QTEST_MAIN(CompanyTest)
#include "tst_company.moc"
