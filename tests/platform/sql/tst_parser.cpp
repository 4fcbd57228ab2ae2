// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/core/failurenumbers.h"
#include "platform/dao/sql/parser.h"
#include "platform/sql/treetext.h"
#include "support/failureof.h"

#include <QTest>

using namespace platform;
using namespace Qt::StringLiterals;
using support::failureOf;

class ParserTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void queryInUseIsAccepted_data();
    void queryInUseIsAccepted();
    void conditionIsReadByStrength_data();
    void conditionIsReadByStrength();
    void itemIsReadAsWritten_data();
    void itemIsReadAsWritten();
    void orderTakesSeveralKeys();
    void tableNameMayStandInBrackets();
    void oneSemicolonAtTheEndIsAccepted_data();
    void oneSemicolonAtTheEndIsAccepted();
    void blanksAndLineEndsPartWords();
    void dropIndexIsAccepted_data();
    void dropIndexIsAccepted();
    void otherActionIsRefused_data();
    void otherActionIsRefused();
};

void ParserTest::queryInUseIsAccepted_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("items");
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("where");
    QTest::addColumn<QString>("order");
    QTest::newRow("catalogue") << u"Select * from EMP ORDER BY MENOMBRE"_s << u"*"_s << u"EMP"_s << u""_s
                               << u"MENOMBRE"_s;
    QTest::newRow("concepts of all clients")
        << u"SELECT clientescyctabla.* From clientescyctabla ORDER BY clientescyctabla.clientescyccliente"_s
        << u"clientescyctabla.*"_s << u"clientescyctabla"_s << u""_s
        << u"clientescyctabla.clientescyccliente"_s;
    QTest::newRow("concepts of a client")
        << u"SELECT clientescyctabla.* From clientescyctabla WHERE (((clientescyctabla.clientescyccliente)="
           "'0000000012')) "_s
        << u"clientescyctabla.*"_s << u"clientescyctabla"_s
        << u"(clientescyctabla.clientescyccliente = '0000000012')"_s << u""_s;
    QTest::newRow("telephones of a client")
        << u"SELECT TELEFON.* From TELEFON WHERE (((TELEFON.TELECODIGOEMPRESA)='00012') AND "
           "((TELEFON.TELECODIGO)='0000000012'))"_s
        << u"TELEFON.*"_s << u"TELEFON"_s
        << u"((TELEFON.TELECODIGOEMPRESA = '00012') AND (TELEFON.TELECODIGO = '0000000012'))"_s << u""_s;
    QTest::newRow("client of a telephone")
        << u"SELECT TELECODIGO From TELEFON WHERE TELECODIGOEMPRESA='00012' AND TELETELEFONO='600 11 22'"_s
        << u"TELECODIGO"_s << u"TELEFON"_s
        << u"((TELECODIGOEMPRESA = '00012') AND (TELETELEFONO = '600 11 22'))"_s << u""_s;
    QTest::newRow("consultations of a client")
        << u"SELECT CONS.* From CONS WHERE (((CONS.CLICONSULTA)='0000000012'))"_s << u"CONS.*"_s << u"CONS"_s
        << u"(CONS.CLICONSULTA = '0000000012')"_s << u""_s;
    QTest::newRow("consultations of no client")
        << u"SELECT CONS.* From CONS WHERE (((CONS.CLICONSULTA)=''))"_s << u"CONS.*"_s << u"CONS"_s
        << u"(CONS.CLICONSULTA = '')"_s << u""_s;
    QTest::newRow("families")
        << u"SELECT FAMICODIGO, FAMIDESCRIPCION FROM FAMI ORDER BY FAMIDESCRIPCION ASC"_s
        << u"FAMICODIGO, FAMIDESCRIPCION"_s << u"FAMI"_s << u""_s << u"FAMIDESCRIPCION"_s;
    QTest::newRow("receipt of an invoice")
        << u"SELECT FACTURASLineas.FACTURAS2DocuVa From FACTURASLineas WHERE "
           u"(((FACTURASLineas.FACTURAS2Numero)="
           "125) AND ((FACTURASLineas.FACTURAS2Linea)=1) AND ((FACTURASLineas.FACTURAS2Canal)=''))"_s
        << u"FACTURASLineas.FACTURAS2DocuVa"_s << u"FACTURASLineas"_s
        << u"(((FACTURASLineas.FACTURAS2Numero = 125) AND (FACTURASLineas.FACTURAS2Linea = 1)) AND "
           "(FACTURASLineas.FACTURAS2Canal = ''))"_s
        << u""_s;
}

void ParserTest::queryInUseIsAccepted()
{
    QFETCH(QString, text);
    QFETCH(QString, items);
    QFETCH(QString, table);
    QFETCH(QString, where);
    QFETCH(QString, order);

    const sql::Select select = sql::parseSelect(text);

    QCOMPARE(treetext::ofItems(select), items);
    QCOMPARE(select.table, table);
    QCOMPARE(treetext::ofWhere(select), where);
    QCOMPARE(treetext::ofOrder(select), order);
}

void ParserTest::conditionIsReadByStrength_data()
{
    QTest::addColumn<QString>("condition");
    QTest::addColumn<QString>("read");
    QTest::newRow("and before or") << u"a = 1 OR b = 2 AND c = 3"_s
                                   << u"((a = 1) OR ((b = 2) AND (c = 3)))"_s;
    QTest::newRow("parentheses first")
        << u"(a=1 OR b=2) AND c=3"_s << u"(((a = 1) OR (b = 2)) AND (c = 3))"_s;
    QTest::newRow("not takes a comparison") << u"NOT a = 1 AND b = 2"_s << u"((NOT (a = 1)) AND (b = 2))"_s;
    QTest::newRow("not twice") << u"NOT NOT a = 1"_s << u"(NOT (NOT (a = 1)))"_s;
    QTest::newRow("all comparisons")
        << u"a=1 AND b<>2 AND c<3 AND d<=4 AND e>5 AND f>=6"_s
        << u"((((((a = 1) AND (b <> 2)) AND (c < 3)) AND (d <= 4)) AND (e > 5)) AND (f >= 6))"_s;
    QTest::newRow("like") << u"a LIKE '*x*'"_s << u"(a LIKE '*x*')"_s;
    QTest::newRow("not like") << u"a NOT LIKE 'x' OR b = 1"_s << u"((NOT (a LIKE 'x')) OR (b = 1))"_s;
    QTest::newRow("is null") << u"a IS NULL"_s << u"(a IS NULL)"_s;
    QTest::newRow("is not null") << u"a IS NOT NULL AND b=1"_s << u"((a IS NOT NULL) AND (b = 1))"_s;
    QTest::newRow("isnull as a function") << u"ISNULL(a) OR a = '0'"_s << u"(ISNULL(a) OR (a = '0'))"_s;
    QTest::newRow("function in any case") << u"isnull ( a )"_s << u"isnull(a)"_s;
    QTest::newRow("function without arguments") << u"f() = 1"_s << u"(f() = 1)"_s;
    QTest::newRow("function of two arguments") << u"f(a, 'b') = 1"_s << u"(f(a, 'b') = 1)"_s;
    QTest::newRow("keywords in any case")
        << u"a like 'x' aNd nOt b is nUll"_s << u"((a LIKE 'x') AND (NOT (b IS NULL)))"_s;
    QTest::newRow("sums before comparisons") << u"a + 1 > b - 2"_s << u"((a + 1) > (b - 2))"_s;
    QTest::newRow("products before sums") << u"a + b * c - d / e"_s << u"((a + (b * c)) - (d / e))"_s;
    QTest::newRow("joined text") << u"a & b = 'xy'"_s << u"((a & b) = 'xy')"_s;
    QTest::newRow("minus binds tightest") << u"-a * b = -1"_s << u"(((-a) * b) = (-1))"_s;
    QTest::newRow("left to right") << u"a - b - c = 0"_s << u"(((a - b) - c) = 0)"_s;
    QTest::newRow("deep parentheses") << u"((((((a))))=(('x'))))"_s << u"(a = 'x')"_s;
    QTest::newRow("doubled apostrophe") << u"a = 'l''Hospitalet'"_s << u"(a = 'l'Hospitalet')"_s;
    QTest::newRow("only a doubled apostrophe") << u"a = ''''"_s << u"(a = ''')"_s;
    QTest::newRow("text in double quotes") << u"a = \"b\"\"c\""_s << u"(a = 'b\"c')"_s;
    QTest::newRow("semicolon in a text") << u"a = 'x; DELETE'"_s << u"(a = 'x; DELETE')"_s;
    QTest::newRow("number with decimals") << u"a = 1.5"_s << u"(a = 1.5)"_s;
    QTest::newRow("number without a zero") << u"a = .5"_s << u"(a = 0.5)"_s;
    QTest::newRow("number with an exponent") << u"a = 1.5E+3"_s << u"(a = 1500)"_s;
    QTest::newRow("null") << u"a = Null"_s << u"(a = NULL)"_s;
    QTest::newRow("brackets") << u"[a b].[or] = 1"_s << u"(a b.or = 1)"_s;
    QTest::newRow("accents in names") << u"AÑO = 1"_s << u"(AÑO = 1)"_s;
    QTest::newRow("condition that is always true")
        << u"a='x' OR 'a'='a'"_s << u"((a = 'x') OR ('a' = 'a'))"_s;
}

void ParserTest::conditionIsReadByStrength()
{
    QFETCH(QString, condition);
    QFETCH(QString, read);

    const sql::Select select = sql::parseSelect(u"SELECT * FROM t WHERE "_s + condition);

    QCOMPARE(treetext::ofWhere(select), read);
}

void ParserTest::itemIsReadAsWritten_data()
{
    QTest::addColumn<QString>("item");
    QTest::addColumn<QString>("read");
    QTest::newRow("all columns") << u"*"_s << u"*"_s;
    QTest::newRow("all columns of the table") << u"CONS . *"_s << u"CONS.*"_s;
    QTest::newRow("all columns and one more") << u"*, a"_s << u"*, a"_s;
    QTest::newRow("alias keeps its case") << u"a AS FEcha"_s << u"a as FEcha"_s;
    QTest::newRow("as in any case") << u"a aS b"_s << u"a as b"_s;
    QTest::newRow("alias in apostrophes") << u"a as 'Forma de pago'"_s << u"a as Forma de pago"_s;
    QTest::newRow("alias in double quotes") << u"a as \"Forma de pago\""_s << u"a as Forma de pago"_s;
    QTest::newRow("alias in brackets") << u"a as [Forma de pago]"_s << u"a as Forma de pago"_s;
    QTest::newRow("keyword in brackets as alias") << u"a as [From]"_s << u"a as From"_s;
    QTest::newRow("constant text") << u"'' as S"_s << u"'' as S"_s;
    QTest::newRow("constant number") << u"1 as uno"_s << u"1 as uno"_s;
    QTest::newRow("expression") << u"a + b as suma"_s << u"(a + b) as suma"_s;
    QTest::newRow("function") << u"int(a) as entero"_s << u"int(a) as entero"_s;
    QTest::newRow("no blank after the comma") << u"'' as S,a as b"_s << u"'' as S, a as b"_s;
}

void ParserTest::itemIsReadAsWritten()
{
    QFETCH(QString, item);
    QFETCH(QString, read);

    QCOMPARE(treetext::ofItems(sql::parseSelect(u"SELECT "_s + item + u" FROM t"_s)), read);
}

void ParserTest::orderTakesSeveralKeys()
{
    const sql::Select select = sql::parseSelect(u"SELECT * FROM t ORDER BY a DESC, int(b)DESC,c ASC, t.d");

    QCOMPARE(treetext::ofOrder(select), u"a DESC, int(b) DESC, c, t.d"_s);
}

void ParserTest::tableNameMayStandInBrackets()
{
    QCOMPARE(sql::parseSelect(u"SELECT * FROM [TIPOS DE CLIENTES]").table, u"TIPOS DE CLIENTES"_s);
}

void ParserTest::oneSemicolonAtTheEndIsAccepted_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("at once") << u"SELECT * FROM t;"_s;
    QTest::newRow("after a blank") << u"SELECT * FROM t ;"_s;
    QTest::newRow("blanks behind it") << u"SELECT * FROM t; \r\n"_s;
    QTest::newRow("after a condition") << u"SELECT * FROM t WHERE a = 1;"_s;
    QTest::newRow("after an order") << u"SELECT * FROM t ORDER BY a DESC;"_s;
}

void ParserTest::oneSemicolonAtTheEndIsAccepted()
{
    QFETCH(QString, text);

    QCOMPARE(sql::parseSelect(text).table, u"t"_s);
}

void ParserTest::blanksAndLineEndsPartWords()
{
    const sql::Select select = sql::parseSelect(u"\r\n select\ta\r\nfrom\n t \twhere\na=1 ");

    QCOMPARE(treetext::ofItems(select), u"a"_s);
    QCOMPARE(treetext::ofWhere(select), u"(a = 1)"_s);
}

void ParserTest::dropIndexIsAccepted_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("index");
    QTest::addColumn<QString>("table");
    QTest::newRow("in use") << u"DROP INDEX clientescyccodigoindice ON clientescyctabla"_s
                            << u"clientescyccodigoindice"_s << u"clientescyctabla"_s;
    QTest::newRow("any case and a semicolon") << u"drop Index a on b ;"_s << u"a"_s << u"b"_s;
    QTest::newRow("brackets") << u"DROP INDEX [a b] ON [c d]"_s << u"a b"_s << u"c d"_s;
}

void ParserTest::dropIndexIsAccepted()
{
    QFETCH(QString, text);
    QFETCH(QString, index);
    QFETCH(QString, table);

    const sql::DropIndex drop = sql::parseAction(text);

    QCOMPARE(drop.index, index);
    QCOMPARE(drop.table, table);
}

void ParserTest::otherActionIsRefused_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("number");
    QTest::newRow("query") << u"SELECT * FROM t"_s << kConstructNotSupported;
    QTest::newRow("query in small letters") << u" select * from t"_s << kConstructNotSupported;
    QTest::newRow("empty") << u""_s << kSyntaxError;
    QTest::newRow("drop table") << u"DROP TABLE t"_s << kSyntaxError;
    QTest::newRow("delete") << u"DELETE FROM t"_s << kSyntaxError;
    QTest::newRow("no table") << u"DROP INDEX a"_s << kSyntaxError;
    QTest::newRow("no index") << u"DROP INDEX ON t"_s << kSyntaxError;
    QTest::newRow("more behind") << u"DROP INDEX a ON t CASCADE"_s << kSyntaxError;
    QTest::newRow("second statement") << u"DROP INDEX a ON t; DROP INDEX b ON t"_s << kTextAfterEnd;
}

void ParserTest::otherActionIsRefused()
{
    QFETCH(QString, text);
    QFETCH(int, number);

    QCOMPARE(failureOf([&] { return sql::parseAction(text); }), number);
}

QTEST_GUILESS_MAIN(ParserTest)
#include "tst_parser.moc"
