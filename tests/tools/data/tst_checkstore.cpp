// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/data/checkstore.h"

#include "stores/allstores.h"

#include <QTemporaryDir>
#include <QtTest>

#include <memory>
#include <utility>

using namespace platform::storage;
using platform::Null;
using platform::Value;
using tools::Findings;

namespace {

/// A table whose index gives whatever order the test says: what a file indexed under another order looks
/// like.
class ScriptedTable final : public Table
{
public:
    ScriptedTable(TableDefinition definition, std::vector<Row> rows, std::vector<RowId> given)
        : m_definition(std::move(definition))
        , m_rows(std::move(rows))
        , m_given(std::move(given))
    {}

    [[nodiscard]] const TableDefinition& definition() const override { return m_definition; }
    [[nodiscard]] qint64 count() override { return static_cast<qint64>(m_rows.size()); }
    [[nodiscard]] std::vector<RowId> order(const QString&) override { return m_given; }
    [[nodiscard]] std::optional<RowId> first(const QString&, Row&) override { return std::nullopt; }
    [[nodiscard]] std::optional<RowId> last(const QString&, Row&) override { return std::nullopt; }
    [[nodiscard]] std::optional<RowId> seek(const QString&, std::span<const Value>, Row&) override
    {
        return std::nullopt;
    }
    [[nodiscard]] bool read(RowId id, Row& row) override
    {
        row = m_rows.at(static_cast<std::size_t>(id));
        return true;
    }
    void readMany(std::span<const RowId> ids, std::span<const int> columns, RowBlock& block) override
    {
        for (const RowId id : ids) {
            block.rowIds.push_back(id);
            for (const int column : columns)
                block.cells.push_back(
                    m_rows.at(static_cast<std::size_t>(id)).at(static_cast<std::size_t>(column)));
        }
    }
    RowId insert(const Row&) override { return 0; }
    void update(RowId, const Row&, const Row&) override {}
    void erase(RowId) override {}

private:
    TableDefinition m_definition;
    std::vector<Row> m_rows;
    std::vector<RowId> m_given;
};

TableDefinition zones()
{
    TableDefinition definition = stores::tableDefinition(stores::kZonatab);
    definition.indexes.resize(1); // the primary one, on the code
    return definition;
}

std::vector<Row> codes(const QList<Value>& values)
{
    std::vector<Row> rows;
    for (const Value& value : values)
        rows.push_back({value, Value(QString()), Value(QString())});
    return rows;
}

QStringList findingsOf(const std::function<void(Findings&)>& check)
{
    QString text;
    QTextStream out(&text);
    Findings findings(out);
    check(findings);
    out.flush();
    return text.split(u'\n', Qt::SkipEmptyParts);
}

QStringList indexFindings(const QList<Value>& values, const std::vector<RowId>& order)
{
    ScriptedTable table(zones(), codes(values), order);
    return findingsOf([&](Findings& findings) { tools::checkIndexes(table, QStringLiteral("Z"), findings); });
}

QString text(const char16_t* literal)
{
    return QString::fromUtf16(literal);
}

} // namespace

class CheckStoreTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anIndexInSpanishOrderIsSound();
    void aRowOutOfOrderIsAFault();
    void aKeyThatRepeatsIsAFault();
    void keysThatDifferInCaseRepeat();
    void aNullInThePrimaryKeyIsAFault();
    void anIndexThatLosesARowIsAFault();
    void everySchemaIsFoundAsCreated();
    void aMissingTableIsAFault();
    void aMissingColumnIsAFault();
    void columnsThatAnUpgradeAddsAreNotices_data();
    void columnsThatAnUpgradeAddsAreNotices();
    void aStoreWithoutPricesIsAnOldShape();
    void theAccountColumnMayHaveTheUpgradesSize();
    void aColumnOfAnotherSizeIsAFault();
    void aColumnOutOfItsPlaceIsAFault();
    void freeColumnsAndBarcodesMayChangePlaces();
    void aForeignColumnIsANotice();
    void aMissingIndexIsAFault();
    void theOldConceptsIndexIsANoticeWithoutTheLineColumn();
    void theOldConceptsIndexIsAFaultWithTheLineColumn();
    void anIndexThatIsNotUniqueIsAFault();

private:
    [[nodiscard]] QStringList schemaFindings(const stores::StoreSchema& schema,
                                             const QList<TableDefinition>& tables);

    QTemporaryDir m_folder;
    int m_files = 0;
};

QStringList CheckStoreTest::schemaFindings(const stores::StoreSchema& schema,
                                           const QList<TableDefinition>& tables)
{
    const auto store = sqliteEngine()->create(m_folder.filePath(QStringLiteral("%1.mdb").arg(++m_files)), {});
    for (const TableDefinition& table : tables)
        store->createTable(table);
    return findingsOf(
        [&](Findings& findings) { tools::checkSchema(*store, schema, QStringLiteral("S"), findings); });
}

void CheckStoreTest::anIndexInSpanishOrderIsSound()
{
    const QList<Value> values{text(u"Cuenca"),  text(u"Chacón"), text(u"Dos"),    text(u"Luz"),
                              text(u"Llorens"), text(u"Nube"),   text(u"Ñíguez"), text(u"Ojo")};

    QCOMPARE(indexFindings(values, {0, 1, 2, 3, 4, 5, 6, 7}), QStringList());
}

void CheckStoreTest::aRowOutOfOrderIsAFault()
{
    // As a general order would have it: ch within c.
    const QList<Value> values{text(u"Chacón"), text(u"Cuenca")};

    QCOMPARE(
        indexFindings(values, {0, 1}),
        QStringList{text(u"fallo: Z: ZONATAB: ZONCODIGO=Cuenca: fuera de orden en el índice ZONASINDICE")});
}

void CheckStoreTest::aKeyThatRepeatsIsAFault()
{
    QCOMPARE(indexFindings({text(u"A"), text(u"A")}, {0, 1}),
             QStringList{text(u"fallo: Z: ZONATAB: ZONCODIGO=A: clave repetida en el índice ZONASINDICE")});
}

void CheckStoreTest::keysThatDifferInCaseRepeat()
{
    QCOMPARE(indexFindings({text(u"ñu"), text(u"ÑU ")}, {0, 1}).size(), 1);
}

void CheckStoreTest::aNullInThePrimaryKeyIsAFault()
{
    QCOMPARE(
        indexFindings({Null{}}, {0}),
        QStringList{text(u"fallo: Z: ZONATAB: ZONCODIGO=Null: Null en la clave del índice ZONASINDICE")});
}

void CheckStoreTest::anIndexThatLosesARowIsAFault()
{
    QCOMPARE(indexFindings({text(u"A"), text(u"B")}, {0}),
             QStringList{text(u"fallo: Z: ZONATAB: el índice ZONASINDICE tiene 1 filas y la tabla 2")});
}

void CheckStoreTest::everySchemaIsFoundAsCreated()
{
    for (const stores::StoreSchema& schema : stores::kAllStores) {
        QList<TableDefinition> tables = stores::tableDefinitions(schema.tables);
        if (schema.file == stores::kClientesStore.file)
            tables.append(stores::tableDefinition(stores::kTarifasCliente));
        QCOMPARE(schemaFindings(schema, tables), QStringList());
    }
}

void CheckStoreTest::aMissingTableIsAFault()
{
    QCOMPARE(schemaFindings(stores::kZonasStore, {}),
             QStringList{text(u"fallo: S: ZONATAB: falta la tabla")});
}

void CheckStoreTest::aMissingColumnIsAFault()
{
    TableDefinition table = stores::tableDefinition(stores::kZonatab);
    table.columns.removeLast();

    QCOMPARE(schemaFindings(stores::kZonasStore, {table}),
             QStringList{text(u"fallo: S: ZONATAB: falta la columna ZONampli")});
}

void CheckStoreTest::columnsThatAnUpgradeAddsAreNotices_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<int>("missing");
    QTest::newRow("clients of 48 columns") << QStringLiteral("ClientesTabla") << 4;
    QTest::newRow("addresses of 7 columns") << QStringLiteral("CLIDIRENVIOS") << 1;
}

void CheckStoreTest::columnsThatAnUpgradeAddsAreNotices()
{
    QFETCH(QString, table);
    QFETCH(int, missing);
    QList<TableDefinition> tables = stores::tableDefinitions(stores::kClientesTables);
    tables.append(stores::tableDefinition(stores::kTarifasCliente));
    for (TableDefinition& definition : tables) {
        if (definition.name == table)
            definition.columns.resize(definition.columns.size() - missing);
    }

    const QStringList found = schemaFindings(stores::kClientesStore, tables);

    QCOMPARE(found.size(), missing);
    QVERIFY2(
        found.front().startsWith(QStringLiteral("aviso: S: %1: forma antigua: falta la columna").arg(table)),
        qUtf8Printable(found.front()));
}

void CheckStoreTest::aStoreWithoutPricesIsAnOldShape()
{
    QCOMPARE(schemaFindings(stores::kClientesStore, stores::tableDefinitions(stores::kClientesTables)),
             QStringList{text(u"aviso: S: TarifasCliente: forma antigua: la tabla se crea al arrancar")});
}

void CheckStoreTest::theAccountColumnMayHaveTheUpgradesSize()
{
    QList<TableDefinition> tables = stores::tableDefinitions(stores::kClientesTables);
    tables.append(stores::tableDefinition(stores::kTarifasCliente));
    tables.front().columns.last().size = 12;

    QCOMPARE(schemaFindings(stores::kClientesStore, tables), QStringList());
}

void CheckStoreTest::aColumnOfAnotherSizeIsAFault()
{
    TableDefinition table = stores::tableDefinition(stores::kZonatab);
    table.columns[1].size = 20;

    QCOMPARE(schemaFindings(stores::kZonasStore, {table}),
             QStringList{text(
                 u"fallo: S: ZONATAB: la columna ZONDESCRIPCION es texto de 20 y debe ser texto de 35")});
}

void CheckStoreTest::aColumnOutOfItsPlaceIsAFault()
{
    TableDefinition table = stores::tableDefinition(stores::kZonatab);
    table.columns.swapItemsAt(1, 2);

    QCOMPARE(schemaFindings(stores::kZonasStore, {table}).size(), 2);
}

void CheckStoreTest::freeColumnsAndBarcodesMayChangePlaces()
{
    TableDefinition table = stores::tableDefinition(stores::kArticulosTabla);
    for (int i = 0; i < 3; ++i)
        table.columns.move(table.columns.size() - 1, 70);

    QCOMPARE(schemaFindings(stores::kArticulosStore, {table}), QStringList());
}

void CheckStoreTest::aForeignColumnIsANotice()
{
    TableDefinition table = stores::tableDefinition(stores::kZonatab);
    table.columns.append({QStringLiteral("COLOR"), ColumnType::Text, 10, true});

    QCOMPARE(schemaFindings(stores::kZonasStore, {table}),
             QStringList{text(u"aviso: S: ZONATAB: la columna COLOR no es de este programa")});
}

void CheckStoreTest::aMissingIndexIsAFault()
{
    TableDefinition table = stores::tableDefinition(stores::kZonatab);
    table.indexes.removeLast();

    QCOMPARE(schemaFindings(stores::kZonasStore, {table}),
             QStringList{text(u"fallo: S: ZONATAB: falta el índice zonasindial")});
}

void CheckStoreTest::theOldConceptsIndexIsANoticeWithoutTheLineColumn()
{
    QList<TableDefinition> tables = stores::tableDefinitions(stores::kClientesTables);
    tables.append(stores::tableDefinition(stores::kTarifasCliente));
    TableDefinition& concepts = tables[3];
    concepts.columns.removeLast();
    concepts.indexes.front().columns.removeLast();

    const QStringList found = schemaFindings(stores::kClientesStore, tables);

    QCOMPARE(found.size(), 2);
    QVERIFY2(found.join(u'\n').count(QStringLiteral("aviso: S: clientescyctabla: forma antigua")) == 2,
             qUtf8Printable(found.join(u'\n')));
}

void CheckStoreTest::theOldConceptsIndexIsAFaultWithTheLineColumn()
{
    QList<TableDefinition> tables = stores::tableDefinitions(stores::kClientesTables);
    tables.append(stores::tableDefinition(stores::kTarifasCliente));
    tables[3].indexes.front().columns.removeLast();

    const QStringList found = schemaFindings(stores::kClientesStore, tables);

    QCOMPARE(found.size(), 1);
    QVERIFY2(found.front().startsWith(u"fallo: S: clientescyctabla: el índice clientescyccodigoindice es de"),
             qUtf8Printable(found.front()));
}

void CheckStoreTest::anIndexThatIsNotUniqueIsAFault()
{
    TableDefinition table = stores::tableDefinition(stores::kZonatab);
    table.indexes.last().unique = false;

    QCOMPARE(schemaFindings(stores::kZonasStore, {table}),
             QStringList{text(u"fallo: S: ZONATAB: el índice zonasindial no es único como debe")});
}

QTEST_GUILESS_MAIN(CheckStoreTest)
#include "tst_checkstore.moc"
