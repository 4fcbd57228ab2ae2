// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/core/failurenumbers.h"
#include "platform/dao/sql/parser.h"
#include "platform/storage/rawsqlite.h"
#include "platform/storage/storefixture.h"

#include <QTest>

using namespace platform;
using namespace platform::storage;
using namespace platform::storage::test;

namespace {

/// A store with four clients.
struct FourClients
{
    FourClients()
    {
        RawSqlite(folder.path())
            .run("INSERT INTO CLIENTES VALUES('003', 'Chopo', 10.5, '12'), ('001', 'cuna', 2, '7'),"
                 " ('002', 'Ávila', NULL, ' 100,5 '), ('004', 'ana', -2.5, NULL)");
    }

    [[nodiscard]] ResultSet run(const QString& sql) const { return connection->query(sql::parseSelect(sql)); }
    /// First column of every row, joined by commas; Null as "-".
    [[nodiscard]] QString column(const QString& sql) const
    {
        const ResultSet result = run(sql);
        QStringList cells;
        for (const Value& cell : result.values.front())
            cells.append(isNull(cell) ? u"-"_s : asText(cell));
        return cells.join(u',');
    }

    StoreFolder folder;
    std::unique_ptr<Connection> connection = folder.createClients();
};

} // namespace

class QueryTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rowsMatch_data();
    void rowsMatch();
    void failureHasItsNumber_data();
    void failureHasItsNumber();
    void systemTableIsUnknown_data();
    void systemTableIsUnknown();
    void columnsAreNamedAsDeclaredOrByTheirAlias();
    void sizesAreThoseOfTheColumns();
    void wholeRowsBringTheirNumbers();
    void partsOfRowsBringNoNumbers();
    void emptyResultKeepsItsColumns();
    void equalRowsComeInTheOrderOfTheirMaking();
    void resultDoesNotSeeLaterRows();
    void columnAddedByAnotherStationIsKnown();
    void nothingStaysLockedAfterAQuery();
    void textOfTheUserNeverReachesTheFile();
    void textColumnOfAnotherToolCompares();
};

void QueryTest::rowsMatch_data()
{
    QTest::addColumn<QString>("sql");
    QTest::addColumn<QString>("expected");
    QTest::newRow("no order: by row number") << u"SELECT CODIGO FROM CLIENTES"_s << u"003,001,002,004"_s;
    QTest::newRow("names ignore case")
        << u"select codigo from clientes order by Codigo"_s << u"001,002,003,004"_s;
    QTest::newRow("traditional order")
        << u"SELECT NOMBRE FROM CLIENTES ORDER BY NOMBRE"_s << u"ana,Ávila,cuna,Chopo"_s;
    QTest::newRow("descending") << u"SELECT CODIGO FROM CLIENTES ORDER BY CODIGO DESC"_s
                                << u"004,003,002,001"_s;
    QTest::newRow("Null first") << u"SELECT SALDO FROM CLIENTES ORDER BY SALDO ASC"_s << u"-,-2,5,2,10,5"_s;
    QTest::newRow("order by an alias")
        << u"SELECT NOMBRE AS N FROM CLIENTES ORDER BY N"_s << u"ana,Ávila,cuna,Chopo"_s;
    QTest::newRow("column goes before an alias of its name")
        << u"SELECT NOMBRE AS CODIGO FROM CLIENTES ORDER BY CODIGO"_s << u"cuna,Ávila,Chopo,ana"_s;
    QTest::newRow("order by a place")
        << u"SELECT CODIGO, NOMBRE FROM CLIENTES ORDER BY 2"_s << u"004,002,001,003"_s;
    QTest::newRow("equal ignores case and trailing blanks")
        << u"SELECT CODIGO FROM CLIENTES WHERE NOMBRE='CHOPO  '"_s << u"003"_s;
    QTest::newRow("equal tells accents apart")
        << u"SELECT CODIGO FROM CLIENTES WHERE NOMBRE='Avila'"_s << QString();
    QTest::newRow("text literals compare likewise")
        << u"SELECT CODIGO FROM CLIENTES WHERE 'a '='A' AND CODIGO='001'"_s << u"001"_s;
    QTest::newRow("parentheses keep the column's order")
        << u"SELECT CODIGO FROM CLIENTES WHERE (((CLIENTES.NOMBRE)='chopo'))"_s << u"003"_s;
    QTest::newRow("less than") << u"SELECT CODIGO FROM CLIENTES WHERE NOMBRE<'chopo' ORDER BY CODIGO"_s
                               << u"001,002,004"_s;
    QTest::newRow("number against a text of digits")
        << u"SELECT CODIGO FROM CLIENTES WHERE SALDO='2'"_s << u"001"_s;
    QTest::newRow("text against a number") << u"SELECT CODIGO FROM CLIENTES WHERE NOTAS=12"_s << u"003"_s;
    QTest::newRow("number range")
        << u"SELECT CODIGO FROM CLIENTES WHERE SALDO>=-2.5 AND SALDO<10 ORDER BY CODIGO"_s << u"001,004"_s;
    QTest::newRow("LIKE with a run")
        << u"SELECT CODIGO FROM CLIENTES WHERE NOMBRE LIKE '*N*' ORDER BY CODIGO"_s << u"001,004"_s;
    QTest::newRow("LIKE leaves Null out")
        << u"SELECT CODIGO FROM CLIENTES WHERE NOTAS LIKE '*'"_s << u"003,001,002"_s;
    QTest::newRow("LIKE takes the percent sign for itself")
        << u"SELECT CODIGO FROM CLIENTES WHERE NOMBRE LIKE '%a%'"_s << QString();
    QTest::newRow("LIKE on a number") << u"SELECT CODIGO FROM CLIENTES WHERE SALDO LIKE '10,5'"_s << u"003"_s;
    QTest::newRow("NOT LIKE") << u"SELECT CODIGO FROM CLIENTES WHERE NOT NOMBRE LIKE '*a'"_s << u"003"_s;
    QTest::newRow("ISNULL") << u"SELECT CODIGO FROM CLIENTES WHERE ISNULL(SALDO)"_s << u"002"_s;
    QTest::newRow("IS NOT NULL") << u"SELECT CODIGO FROM CLIENTES WHERE SALDO IS NOT NULL ORDER BY CODIGO"_s
                                 << u"001,003,004"_s;
    QTest::newRow("OR and AND keep their ranks")
        << u"SELECT CODIGO FROM CLIENTES WHERE CODIGO='001' OR ISNULL(SALDO) AND NOMBRE LIKE 'x*'"_s
        << u"001"_s;
    QTest::newRow("int is the floor")
        << u"SELECT int(SALDO) FROM CLIENTES ORDER BY CODIGO"_s << u"2,-,10,-3"_s;
    QTest::newRow("int converts a numeric text")
        << u"SELECT CODIGO FROM CLIENTES ORDER BY int(NOTAS)DESC"_s << u"002,003,001,004"_s;
    QTest::newRow("constant text") << u"SELECT '' AS S, CODIGO FROM CLIENTES WHERE CODIGO='001'"_s
                                   << QString();
    QTest::newRow("apostrophes closed again")
        << u"SELECT CODIGO FROM CLIENTES WHERE NOMBRE='x' OR 'a'='a'"_s << u"003,001,002,004"_s;
    QTest::newRow("fraction of whole numbers")
        << u"SELECT SALDO/4 FROM CLIENTES WHERE CODIGO='001'"_s << u"0,5"_s;
    QTest::newRow("joined texts, Null as empty")
        << u"SELECT NOMBRE & '-' & SALDO FROM CLIENTES ORDER BY CODIGO"_s
        << u"cuna-2,Ávila-,Chopo-10,5,ana--2,5"_s;
    QTest::newRow("plus joins texts")
        << u"SELECT CODIGO+NOMBRE FROM CLIENTES WHERE CODIGO='004'"_s << u"004ana"_s;
}

void QueryTest::rowsMatch()
{
    QFETCH(QString, sql);
    QFETCH(QString, expected);
    const FourClients store;

    QCOMPARE(store.column(sql), expected);
}

void QueryTest::failureHasItsNumber_data()
{
    QTest::addColumn<QString>("sql");
    QTest::addColumn<int>("number");
    QTest::newRow("unknown table") << u"SELECT A FROM NADA"_s << kInputTableNotFound;
    QTest::newRow("unknown column") << u"SELECT NADA FROM CLIENTES"_s << kUnknownColumn;
    QTest::newRow("unknown column of the test")
        << u"SELECT CODIGO FROM CLIENTES WHERE NADA='x'"_s << kUnknownColumn;
    QTest::newRow("unknown column of the order")
        << u"SELECT CODIGO FROM CLIENTES ORDER BY NADA"_s << kUnknownColumn;
    QTest::newRow("column of another table") << u"SELECT OTRA.CODIGO FROM CLIENTES"_s << kUnknownColumn;
    QTest::newRow("alias in the test") << u"SELECT CODIGO AS X FROM CLIENTES WHERE X='1'"_s << kUnknownColumn;
    QTest::newRow("row number") << u"SELECT rowid FROM CLIENTES"_s << kUnknownColumn;
    QTest::newRow("all of another table") << u"SELECT OTRA.* FROM CLIENTES"_s << kInputTableNotFound;
    QTest::newRow("unknown function") << u"SELECT nada(CODIGO) FROM CLIENTES"_s << kUndefinedFunction;
    QTest::newRow("function of the engine")
        << u"SELECT load_extension('x') FROM CLIENTES"_s << kUndefinedFunction;
    QTest::newRow("our own function") << u"SELECT store_text(CODIGO) FROM CLIENTES"_s << kUndefinedFunction;
    QTest::newRow("function with two arguments") << u"SELECT int(SALDO, 1) FROM CLIENTES"_s << kSyntaxError;
    QTest::newRow("unclosed bracket in a pattern")
        << u"SELECT CODIGO FROM CLIENTES WHERE NOMBRE LIKE '*[a'"_s << kSyntaxError;
    QTest::newRow("int of a text that is no number") << u"SELECT int(NOMBRE) FROM CLIENTES"_s << kSyntaxError;
}

void QueryTest::failureHasItsNumber()
{
    QFETCH(QString, sql);
    QFETCH(int, number);
    const FourClients store;

    QCOMPARE(failureOf([&] { static_cast<void>(store.run(sql)); }), number);
}

void QueryTest::systemTableIsUnknown_data()
{
    QTest::addColumn<QString>("table");
    QTest::newRow("schema") << u"sqlite_master"_s;
    QTest::newRow("schema, newer name") << u"sqlite_schema"_s;
    QTest::newRow("metadata") << u"store_metadata"_s;
    QTest::newRow("pragma") << u"pragma_table_list"_s;
    QTest::newRow("system table") << u"MSysObjects"_s;
}

void QueryTest::systemTableIsUnknown()
{
    QFETCH(QString, table);
    const FourClients store;

    QCOMPARE(failureOf([&] { static_cast<void>(store.run(u"SELECT * FROM "_s + table)); }),
             kInputTableNotFound);
    QCOMPARE(failureOf([&] { static_cast<void>(store.connection->openTable(table)); }), kInputTableNotFound);
}

void QueryTest::columnsAreNamedAsDeclaredOrByTheirAlias()
{
    const FourClients store;

    const ResultSet result =
        store.run(u"SELECT codigo, nombre AS Nombre, saldo as 'El saldo', '' FROM CLIENTES"_s);

    QCOMPARE(result.columns.at(0).name, u"CODIGO"_s);
    QCOMPARE(result.columns.at(1).name, u"Nombre"_s);
    QCOMPARE(result.columns.at(2).name, u"El saldo"_s);
    QCOMPARE(result.columns.at(3).name, u"Expr1003"_s);
}

void QueryTest::sizesAreThoseOfTheColumns()
{
    const FourClients store;

    const ResultSet result = store.run(u"SELECT NOMBRE AS N, SALDO, NOTAS, '' AS S FROM CLIENTES"_s);

    QCOMPARE(result.columns.at(0).size, 35);
    QCOMPARE(result.columns.at(1).size, 8);
    QCOMPARE(result.columns.at(2).size, 0);
    QCOMPARE(result.columns.at(3).size, 0);
    QVERIFY(result.columns.at(1).type == ColumnType::Number);
    QVERIFY(result.columns.at(2).type == ColumnType::Memo);
    QVERIFY(result.columns.at(3).type == ColumnType::Text);
}

void QueryTest::wholeRowsBringTheirNumbers()
{
    const FourClients store;

    const ResultSet result = store.run(u"SELECT CLIENTES.* FROM CLIENTES ORDER BY CLIENTES.CODIGO"_s);

    QCOMPARE(result.table, u"CLIENTES"_s);
    QCOMPARE(result.rowIds, (std::vector<RowId>{2, 3, 1, 4}));
    QCOMPARE(result.columns.size(), std::size_t{4});
    QCOMPARE(result.rowCount, 4);
}

void QueryTest::partsOfRowsBringNoNumbers()
{
    const FourClients store;

    const ResultSet result = store.run(u"SELECT *, CODIGO FROM CLIENTES"_s);

    QVERIFY(result.rowIds.empty());
    QVERIFY(result.table.isEmpty());
}

void QueryTest::emptyResultKeepsItsColumns()
{
    const FourClients store;

    const ResultSet result = store.run(u"SELECT CODIGO FROM CLIENTES WHERE CODIGO='x'"_s);

    QCOMPARE(result.rowCount, 0);
    QCOMPARE(result.columns.size(), std::size_t{1});
    QVERIFY(result.values.front().empty());
}

void QueryTest::equalRowsComeInTheOrderOfTheirMaking()
{
    const FourClients store;
    const auto table = store.connection->openTable(u"CLIENTES"_s);
    table->insert(client(u"000"_s, u"ANA"_s));

    QCOMPARE(store.column(u"SELECT CODIGO FROM CLIENTES WHERE NOMBRE='ana' ORDER BY NOMBRE"_s), u"004,000"_s);
}

void QueryTest::resultDoesNotSeeLaterRows()
{
    const FourClients store;
    const ResultSet result = store.run(u"SELECT * FROM CLIENTES"_s);

    store.connection->openTable(u"CLIENTES"_s)->insert(client(u"005"_s, u"Eva"_s));

    QCOMPARE(result.rowCount, 4);
}

void QueryTest::columnAddedByAnotherStationIsKnown()
{
    const FourClients store;
    static_cast<void>(store.run(u"SELECT * FROM CLIENTES"_s));

    store.folder.open()->addColumn(u"CLIENTES"_s, text(u"OTRA"_s));

    QCOMPARE(store.column(u"SELECT OTRA FROM CLIENTES"_s), u"-,-,-,-"_s);
}

void QueryTest::nothingStaysLockedAfterAQuery()
{
    const FourClients store;
    static_cast<void>(store.run(u"SELECT * FROM CLIENTES"_s));
    static_cast<void>(
        failureOf([&] { static_cast<void>(store.run(u"SELECT int(NOMBRE) FROM CLIENTES"_s)); }));

    QCOMPARE(RawSqlite(store.folder.path()).run("BEGIN EXCLUSIVE; COMMIT"), SQLITE_OK);
}

void QueryTest::textOfTheUserNeverReachesTheFile()
{
    const FourClients store;
    sql::Select select = sql::parseSelect(u"SELECT CODIGO FROM CLIENTES");
    select.items.front().alias = u"\"; DROP TABLE CLIENTES; --"_s;
    select.where = std::make_unique<sql::Expression>();
    select.where->node = sql::TextLiteral{u"'); DELETE FROM CLIENTES; --"_s};

    const ResultSet result = store.connection->query(select);

    QCOMPARE(result.rowCount, 0);
    QCOMPARE(store.connection->openTable(u"CLIENTES"_s)->count(), 4);
}

void QueryTest::textColumnOfAnotherToolCompares()
{
    const StoreFolder folder;
    RawSqlite(folder.path())
        .run("CREATE TABLE EMP(MENUMEMPRESA VARCHAR(5), \"ME NOMBRE\" TEXT);"
             "INSERT INTO EMP VALUES('1', 'b'), ('2', 'a')");
    const auto connection = folder.open();

    const ResultSet result =
        connection->query(sql::parseSelect(u"Select * from EMP ORDER BY MENUMEMPRESA DESC"));

    QCOMPARE(result.columns.at(1).name, u"ME NOMBRE"_s);
    QCOMPARE(result.values.at(1), (std::vector<Value>{u"a"_s, u"b"_s}));
}

QTEST_GUILESS_MAIN(QueryTest)
#include "tst_query.moc"
