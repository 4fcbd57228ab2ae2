// SPDX-License-Identifier: GPL-3.0-or-later
#include "stores/allstores.h"

#include <QtTest>

#include <algorithm>

using namespace Qt::StringLiterals;
using stores::TableSchema;

class SchemasTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tableHasItsColumns_data();
    void tableHasItsColumns();
    void everyTextColumnHasASizeAndNoOtherHas();
    void everyKeyColumnIsAColumnOfItsTable();
    void everyTableHasOnePrimaryIndex();
    void onlyTheZonesAreUniqueOnAnIndexThatIsNotPrimary();
    void onlyTheAssistanceStoreIsOfTheOlderFormat();
    void onlyTheTelephonesLieInTheCurrentDirectory();
    void definitionLetsEveryColumnButTheNumbersTakeTheEmptyText();
    void pricesAreNotPartOfAStoreJustCreated();
};

namespace {

QList<TableSchema> allTables()
{
    QList<TableSchema> tables{stores::kTarifasCliente};
    for (const stores::StoreSchema& store : stores::kAllStores) {
        for (const TableSchema& table : store.tables)
            tables.append(table);
    }
    return tables;
}

} // namespace

void SchemasTest::tableHasItsColumns_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<int>("columns");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("last");

    QTest::newRow("clients") << u"ClientesTabla"_s << 52 << u"CliCodigo"_s << u"CliCuentaVentas"_s;
    QTest::newRow("shipping addresses")
        << u"CLIDIRENVIOS"_s << 8 << u"CLIENVICODIGO"_s << u"CLIENVINOMCOMERCIAL"_s;
    QTest::newRow("bank accounts") << u"CLIBANCOSDISP"_s << 8 << u"CLIBANCOSCODIGO"_s << u"CLIBANCOSACTIVA"_s;
    QTest::newRow("periodic concepts")
        << u"clientescyctabla"_s << 16 << u"clientescycarticulo"_s << u"clientescylineas"_s;
    QTest::newRow("prices") << u"TarifasCliente"_s << 8 << u"TariCodCliente"_s << u"TariTar5"_s;
    QTest::newRow("articles") << u"ArticulosTabla"_s << 83 << u"ArtCodigo"_s << u"ARTICULOCODIGODEBARRAS"_s;
    QTest::newRow("zones") << u"ZONATAB"_s << 3 << u"ZONCODIGO"_s << u"ZONampli"_s;
    QTest::newRow("client types") << u"TIPOCLI"_s << 2 << u"TIPOCODIGO"_s << u"TIPODESCRIPCION"_s;
    QTest::newRow("discounts by family")
        << u"TIPOFAMICLI"_s << 4 << u"TIPOFAMICODIGO"_s << u"TIPOFAMIDESCUEN"_s;
    QTest::newRow("discounts by article")
        << u"TIPOARTICLI"_s << 9 << u"TIPOARTICODIGO"_s << u"TIPOARTIDESCUEN6"_s;
    QTest::newRow("consultations") << u"CONS"_s << 14 << u"ORDEN"_s << u"conpaginaweb"_s;
    QTest::newRow("telephones") << u"TELEFON"_s << 6 << u"TELECODIGOEMPRESA"_s << u"TELECONTACTO"_s;
}

void SchemasTest::tableHasItsColumns()
{
    QFETCH(QString, table);

    const QList<TableSchema> tables = allTables();
    const auto found = std::ranges::find(tables, QStringView(table), &TableSchema::name);
    QVERIFY(found != tables.end());

    QTEST(static_cast<int>(found->columns.size()), "columns");
    QTEST(found->columns.front().name.toString(), "first");
    QTEST(found->columns.back().name.toString(), "last");
}

void SchemasTest::everyTextColumnHasASizeAndNoOtherHas()
{
    for (const TableSchema& table : allTables()) {
        for (const stores::ColumnSchema& column : table.columns)
            QVERIFY2((column.type == platform::dao::dbText) == (column.size > 0),
                     qPrintable(column.name.toString()));
    }
}

void SchemasTest::everyKeyColumnIsAColumnOfItsTable()
{
    for (const TableSchema& table : allTables()) {
        const platform::storage::TableDefinition definition = stores::tableDefinition(table);
        for (const platform::storage::IndexDefinition& index : definition.indexes) {
            QVERIFY(!index.columns.isEmpty());
            for (const QString& column : index.columns)
                QVERIFY2(definition.columnIndex(column) >= 0, qPrintable(column));
        }
    }
}

void SchemasTest::everyTableHasOnePrimaryIndex()
{
    for (const TableSchema& table : allTables())
        QCOMPARE(std::ranges::count_if(table.indexes, &stores::IndexSchema::primary), 1);
}

void SchemasTest::onlyTheZonesAreUniqueOnAnIndexThatIsNotPrimary()
{
    QStringList names;
    for (const TableSchema& table : allTables()) {
        for (const stores::IndexSchema& index : table.indexes) {
            if (index.unique && !index.primary)
                names.append(index.name.toString());
        }
    }

    QCOMPARE(names, QStringList{u"zonasindial"_s});
}

void SchemasTest::onlyTheAssistanceStoreIsOfTheOlderFormat()
{
    for (const stores::StoreSchema& store : stores::kAllStores)
        QCOMPARE(store.formatOption, store.file == u"ASISTENCIAS.MDB" ? 32 : 64);
}

void SchemasTest::onlyTheTelephonesLieInTheCurrentDirectory()
{
    for (const stores::StoreSchema& store : stores::kAllStores)
        QCOMPARE(store.place == stores::Place::CurrentDirectory,
                 store.file == u"\\TELEFONOS DE CLIENTES.MDB");
}

void SchemasTest::definitionLetsEveryColumnButTheNumbersTakeTheEmptyText()
{
    for (const TableSchema& table : allTables()) {
        for (const platform::storage::Column& column : stores::tableDefinition(table).columns)
            QCOMPARE(column.allowZeroLength, column.type != platform::storage::ColumnType::Number);
    }
}

void SchemasTest::pricesAreNotPartOfAStoreJustCreated()
{
    for (const TableSchema& table : stores::kClientesStore.tables)
        QVERIFY(table.name != stores::kTarifasCliente.name);
}

QTEST_GUILESS_MAIN(SchemasTest)
#include "tst_schemas.moc"
