// SPDX-License-Identifier: GPL-3.0-or-later

// Articles stores of every age, brought up to date by one start.

#include "shell/globalsat.h"
#include "stores/articulosschema.h"
#include "stores/bdarticul.h"
#include "stores/storefixture.h"
#include "support/failingengine.h"
#include "support/tempdataroot.h"

#include <QtTest>

using namespace Qt::StringLiterals;

class BdArticulTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void newStoreHas83ColumnsWithTheBarcodesLast();
    void storeOf70ColumnsGetsTheBarcodesAheadOfTheFreeColumns();
    void storeOf73ColumnsGetsTheFreeColumnsOnly();
    void storeOf80ColumnsGetsTheFreeColumnsItLacks();
    void storeOfFewerThan70ColumnsEndsOpen();
    void freeColumnsHaveTheirTypes();
    void secondStartChangesNoByte_data();
    void secondStartChangesNoByte();
    void fileSpelledOtherwiseIsTheSameStore();
    void rowsOfAnOldStoreStay();
    void columnThatCannotBeAddedLeavesTheStoreOpen();

private:
    QString path() const { return RUTAEMPRESA + u"ARTICULOS.MDB"_s; }
    QStringList columns() const { return storetest::columnNames(path(), u"ArticulosTabla"_s); }
    void givenStoreOf(std::size_t count) const
    {
        storetest::makeStore(path(), {storetest::firstColumns(stores::kArticulosTabla, count)});
    }
    void start() const
    {
        CERRARARTICULOS();
        CREARARTICULOS();
        ABRIRARTICULOS();
    }

    std::unique_ptr<testsupport::TempDataRoot> m_root;
};

namespace {

const QStringList kBarcodes{u"ARTICODIGOBARRAS"_s, u"ARTIDIGITOCONTROLBARRAS"_s, u"ARTICULOCODIGODEBARRAS"_s};
const QStringList kFreeTexts{u"CampoTextoLibre1"_s, u"CampoTextoLibre2"_s, u"CampoTextoLibre3"_s,
                             u"CampoTextoLibre4"_s, u"CampoTextoLibre5"_s};
const QStringList kFreeNumbers{u"CampoNumeroLibre1"_s, u"CampoNumeroLibre2"_s, u"CampoNumeroLibre3"_s,
                               u"CampoNumeroLibre4"_s, u"CampoNumeroLibre5"_s};

/// The 70 columns of the oldest stores and the barcodes behind them.
stores::TableSchema withBarcodes(std::size_t freeColumns)
{
    static std::vector<stores::ColumnSchema> columns;
    columns.assign(stores::kArticulosTablaColumns.begin(), stores::kArticulosTablaColumns.begin() + 70);
    columns.insert(columns.end(), stores::kArticulosTablaColumns.begin() + 80,
                   stores::kArticulosTablaColumns.end());
    columns.insert(columns.end(), stores::kArticulosTablaColumns.begin() + 70,
                   stores::kArticulosTablaColumns.begin() + 70 + static_cast<std::ptrdiff_t>(freeColumns));
    return {stores::kArticulosTabla.name, columns, stores::kArticulosTabla.indexes};
}

} // namespace

void BdArticulTest::init()
{
    m_root = std::make_unique<testsupport::TempDataRoot>();
    resetProgramState();
    RUTAEMPRESA = m_root->companyPath();
}

void BdArticulTest::cleanup()
{
    resetProgramState();
    platform::dao::DBEngine().setStorage(nullptr);
    m_root.reset();
}

void BdArticulTest::newStoreHas83ColumnsWithTheBarcodesLast()
{
    start();

    QCOMPARE(RSARTICULOS.Fields().Count(), 83);
    QCOMPARE(columns().mid(70), kFreeTexts + kFreeNumbers + kBarcodes);
}

void BdArticulTest::storeOf70ColumnsGetsTheBarcodesAheadOfTheFreeColumns()
{
    givenStoreOf(70);

    start();

    QCOMPARE(RSARTICULOS.Fields().Count(), 83);
    QCOMPARE(columns().mid(70), kBarcodes + kFreeTexts + kFreeNumbers);
}

void BdArticulTest::storeOf73ColumnsGetsTheFreeColumnsOnly()
{
    storetest::makeStore(path(), {withBarcodes(0)});

    start();

    QCOMPARE(columns().mid(70), kBarcodes + kFreeTexts + kFreeNumbers);
}

void BdArticulTest::storeOf80ColumnsGetsTheFreeColumnsItLacks()
{
    storetest::makeStore(path(), {withBarcodes(7)});
    QCOMPARE(columns().size(), 80);

    start();

    QCOMPARE(RSARTICULOS.Fields().Count(), 83);
    QCOMPARE(columns().mid(70), kBarcodes + kFreeTexts + kFreeNumbers);
}

void BdArticulTest::storeOfFewerThan70ColumnsEndsOpen()
{
    givenStoreOf(48);

    start();

    QCOMPARE(RSARTICULOS.Fields().Count(), 61);
    QCOMPARE(columns().mid(48), kBarcodes + kFreeTexts + kFreeNumbers);
}

void BdArticulTest::freeColumnsHaveTheirTypes()
{
    givenStoreOf(70);

    start();

    for (const QString& column : kFreeTexts)
        QCOMPARE(RSARTICULOS[column].Size(), 35);
    for (const platform::storage::Column& column :
         storetest::definition(path(), u"ArticulosTabla"_s).columns.mid(78))
        QCOMPARE(column.type, platform::storage::ColumnType::Number);
}

void BdArticulTest::secondStartChangesNoByte_data()
{
    QTest::addColumn<int>("columns");

    QTest::newRow("of 70 columns") << 70;
    QTest::newRow("of 83 columns") << 83;
}

void BdArticulTest::secondStartChangesNoByte()
{
    QFETCH(int, columns);
    givenStoreOf(static_cast<std::size_t>(columns));
    start();
    storetest::endRun();
    const QMap<QString, QByteArray> before = storetest::filesBelow(m_root->path());

    start();
    storetest::endRun();

    QCOMPARE(storetest::filesBelow(m_root->path()), before);
}

void BdArticulTest::fileSpelledOtherwiseIsTheSameStore()
{
    storetest::makeStore(RUTAEMPRESA + u"articulos.mdb"_s, {stores::kArticulosTabla});
    storetest::addRow(path(), u"ArticulosTabla"_s, {{u"ArtCodigo", u"A1"_s}});

    start();

    QCOMPARE(RSARTICULOS.RecordCount(), 1);
    QCOMPARE(QDir(m_root->path(u"Empresa00012"_s)).entryList({u"*.mdb"_s}, QDir::Files),
             QStringList{u"articulos.mdb"_s});
}

void BdArticulTest::rowsOfAnOldStoreStay()
{
    givenStoreOf(70);
    storetest::addRow(path(), u"ArticulosTabla"_s, {{u"ArtCodigo", u"A1"_s}, {u"Descripcion", u"CAÑERÍA"_s}});

    start();

    RSARTICULOS.MoveFirst();
    QCOMPARE(asText(RSARTICULOS[u"Descripcion"].Value()), u"CAÑERÍA"_s);
    QVERIFY(isNull(RSARTICULOS[u"CampoNumeroLibre5"].Value()));
}

void BdArticulTest::columnThatCannotBeAddedLeavesTheStoreOpen()
{
    givenStoreOf(70);
    auto engine = std::make_shared<testsupport::FailingEngine>();
    platform::dao::DBEngine().setStorage(engine);
    engine->failOperation(testsupport::Operation::AddColumn, 3211);

    start();

    QCOMPARE(RSARTICULOS.Fields().Count(), 70);
}

QTEST_GUILESS_MAIN(BdArticulTest)
#include "tst_bdarticul.moc"
