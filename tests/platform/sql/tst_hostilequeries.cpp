// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/core/failurenumbers.h"
#include "platform/dao/sql/parser.h"
#include "platform/sql/treetext.h"
#include "support/failureof.h"

#include <QElapsedTimer>
#include <QTest>

using namespace platform;
using namespace Qt::StringLiterals;
using support::failureOf;

namespace {

constexpr int kMegabyte = 1 << 20;
constexpr int kMostMilliseconds = 5000;

[[nodiscard]] QString nested(int levels)
{
    return u"SELECT * FROM t WHERE "_s + QString(levels, u'(') + u"a"_s + QString(levels, u')');
}

} // namespace

class HostileQueriesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void malformedQueryIsASyntaxError_data();
    void malformedQueryIsASyntaxError();
    void textAfterTheEndIsRefused_data();
    void textAfterTheEndIsRefused();
    void actionQueryIsAnInvalidOperation_data();
    void actionQueryIsAnInvalidOperation();
    void typedTextStaysInItsLiteral_data();
    void typedTextStaysInItsLiteral();
    void twoHundredLevelsAreAccepted();
    void deeperNestingIsASyntaxError_data();
    void deeperNestingIsASyntaxError();
    void longTextTakesTimeInProportion_data();
    void longTextTakesTimeInProportion();
    void longLiteralIsAccepted();
    void listOf255IsAccepted();
    void longerListIsASyntaxError_data();
    void longerListIsASyntaxError();
};

void HostileQueriesTest::malformedQueryIsASyntaxError_data()
{
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, const QString& text) { QTest::newRow(name) << text; };
    row("empty", u""_s);
    row("blanks", u" \t\r\n"_s);
    row("no items", u"SELECT FROM t"_s);
    row("no table", u"SELECT * FROM"_s);
    row("no from", u"SELECT a"_s);
    row("only select", u"SELECT"_s);
    row("semicolon alone", u";"_s);
    row("semicolon in the middle", u"SELECT a; FROM t"_s);
    row("no condition", u"SELECT * FROM t WHERE"_s);
    row("like without a left side", u"SELECT * FROM t WHERE LIKE '*x*'"_s);
    row("like without a pattern", u"SELECT * FROM t WHERE a LIKE"_s);
    row("comparison without a right side", u"SELECT * FROM t WHERE a ="_s);
    row("and without a right side", u"SELECT * FROM t WHERE a = 1 AND"_s);
    row("alias with a hyphen", u"SELECT a as S-Pedido FROM t"_s);
    row("no alias", u"SELECT a as FROM t"_s);
    row("empty alias", u"SELECT a as '' FROM t"_s);
    row("alias without as", u"SELECT a b FROM t"_s);
    row("alias of all columns", u"SELECT * as b FROM t"_s);
    row("keyword as alias", u"SELECT a as Order FROM t"_s);
    row("comma at the end", u"SELECT a, FROM t"_s);
    row("stray apostrophe", u"SELECT * FROM t WHERE a = 'l'Hospitalet'"_s);
    row("unclosed apostrophe", u"SELECT * FROM t WHERE a = 'x"_s);
    row("unclosed double quote", u"SELECT * FROM t WHERE a = \"x"_s);
    row("unclosed bracket", u"SELECT * FROM t WHERE [a = 1"_s);
    row("empty bracket", u"SELECT * FROM t WHERE [] = 1"_s);
    row("unclosed parenthesis", u"SELECT * FROM t WHERE (a = 1"_s);
    row("parenthesis too many", u"SELECT * FROM t WHERE a = 1)"_s);
    row("empty parentheses", u"SELECT * FROM t WHERE ()"_s);
    row("union", u"SELECT a FROM t UNION SELECT b FROM u"_s);
    row("two tables", u"SELECT * FROM t, u"_s);
    row("join", u"SELECT * FROM t INNER JOIN u ON t.a = u.a"_s);
    row("table alias", u"SELECT * FROM t AS u"_s);
    row("table in another file", u"SELECT * FROM t IN 'c:\\x.mdb'"_s);
    row("table by its path", u"SELECT * FROM main.t"_s);
    row("in", u"SELECT * FROM t WHERE a IN ('x')"_s);
    row("between", u"SELECT * FROM t WHERE a BETWEEN 1 AND 2"_s);
    row("subquery", u"SELECT * FROM t WHERE a = (SELECT b FROM u)"_s);
    row("exists", u"SELECT * FROM t WHERE EXISTS (SELECT b FROM u)"_s);
    row("subquery as table", u"SELECT * FROM (SELECT * FROM u)"_s);
    row("distinct", u"SELECT DISTINCT a FROM t"_s);
    row("top", u"SELECT TOP 5 a FROM t"_s);
    row("all", u"SELECT ALL a FROM t"_s);
    row("group", u"SELECT a FROM t GROUP BY a"_s);
    row("having", u"SELECT a FROM t HAVING a = 1"_s);
    row("into", u"SELECT a INTO u FROM t"_s);
    row("limit", u"SELECT a FROM t LIMIT 1"_s);
    row("collation", u"SELECT a FROM t ORDER BY a COLLATE BINARY"_s);
    row("order without by", u"SELECT a FROM t ORDER a"_s);
    row("order without a key", u"SELECT a FROM t ORDER BY"_s);
    row("two directions", u"SELECT a FROM t ORDER BY a ASC DESC"_s);
    row("order before condition", u"SELECT a FROM t ORDER BY a WHERE a = 1"_s);
    row("condition before table", u"SELECT a WHERE a = 1 FROM t"_s);
    row("action word behind", u"SELECT a FROM t DELETE FROM t"_s);
    row("query in parentheses", u"(SELECT a FROM t)"_s);
    row("common table expression", u"WITH u AS (SELECT 1) SELECT * FROM u"_s);
    row("pragma", u"PRAGMA table_info(t)"_s);
    row("attach", u"ATTACH 'x' AS y"_s);
    row("transform", u"TRANSFORM a SELECT b FROM t"_s);
    row("parameters", u"PARAMETERS p Text; SELECT a FROM t"_s);
    row("parameter", u"SELECT a FROM t WHERE a = ?"_s);
    row("named parameter", u"SELECT a FROM t WHERE a = :p"_s);
    row("comment behind", u"SELECT a FROM t -- x"_s);
    row("comment inside", u"SELECT a /* x */ FROM t"_s);
    row("date literal", u"SELECT a FROM t WHERE b = #01/02/2026#"_s);
    row("exclamation mark", u"SELECT a FROM t WHERE t!a = 1"_s);
    row("blob literal", u"SELECT a FROM t WHERE a = x'00'"_s);
    row("number with a letter", u"SELECT a FROM t WHERE a = 12b"_s);
    row("number too large", u"SELECT a FROM t WHERE a = 1E400"_s);
    row("digits of a number too large", u"SELECT a FROM t WHERE a = "_s + QString(400, u'9'));
    row("two operands", u"SELECT a FROM t WHERE a b"_s);
    row("three names", u"SELECT a.b.c FROM t"_s);
    row("function of all", u"SELECT COUNT(*) FROM t"_s);
    row("null test of something else", u"SELECT a FROM t WHERE a IS 1"_s);
    row("doubled comparison sign", u"SELECT a FROM t WHERE a == 1"_s);
    row("zero character behind", u"SELECT a FROM t"_s + QChar(u'\0'));
    row("zero character inside", u"SELECT a"_s + QChar(u'\0') + u" FROM t"_s);
    row("half a surrogate pair", u"SELECT "_s + QChar(0xD800) + u" FROM t"_s);
    row("typographic apostrophe", u"SELECT a FROM t WHERE a = ’x’"_s);
    row("hard blank", u"SELECT\u00A0a FROM t"_s);
}

void HostileQueriesTest::malformedQueryIsASyntaxError()
{
    QFETCH(QString, text);

    QCOMPARE(failureOf([&] { return sql::parseSelect(text); }), kSyntaxError);
}

void HostileQueriesTest::textAfterTheEndIsRefused_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("second query") << u"SELECT * FROM t; SELECT * FROM u"_s;
    QTest::newRow("delete") << u"SELECT * FROM t WHERE a = 'x'; DELETE FROM t"_s;
    QTest::newRow("second semicolon") << u"SELECT * FROM t;;"_s;
    QTest::newRow("stray apostrophe") << u"SELECT * FROM t; '"_s;
    QTest::newRow("comment") << u"SELECT * FROM t; -- x"_s;
    QTest::newRow("zero character") << u"SELECT * FROM t;"_s + QChar(u'\0');
}

void HostileQueriesTest::textAfterTheEndIsRefused()
{
    QFETCH(QString, text);

    QCOMPARE(failureOf([&] { return sql::parseSelect(text); }), kTextAfterEnd);
}

void HostileQueriesTest::actionQueryIsAnInvalidOperation_data()
{
    QTest::addColumn<QString>("text");
    for (const auto& text :
         {u"INSERT INTO t VALUES (1)"_s, u"UPDATE t SET a = 1"_s, u"DELETE FROM t"_s, u"delete * from t"_s,
          u"DROP TABLE t"_s, u"DROP INDEX a ON t"_s, u"CREATE TABLE t (a TEXT)"_s,
          u"ALTER TABLE t ADD a TEXT"_s, u"GRANT SELECT ON t TO u"_s, u"REVOKE SELECT ON t FROM u"_s})
        QTest::newRow(qPrintable(text)) << text;
}

void HostileQueriesTest::actionQueryIsAnInvalidOperation()
{
    QFETCH(QString, text);

    QCOMPARE(failureOf([&] { return sql::parseSelect(text); }), kInvalidOperation);
}

void HostileQueriesTest::typedTextStaysInItsLiteral_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("where");
    QTest::newRow("semicolon") << u"x; DROP TABLE t"_s << u"(a LIKE '*x; DROP TABLE t*')"_s;
    QTest::newRow("comment") << u"x -- y"_s << u"(a LIKE '*x -- y*')"_s;
    QTest::newRow("wildcards") << u"[a-z]#?"_s << u"(a LIKE '*[a-z]#?*')"_s;
    QTest::newRow("double quotes") << u"\"x\""_s << u"(a LIKE '*\"x\"*')"_s;
    QTest::newRow("line end") << u"x\r\ny"_s << u"(a LIKE '*x\r\ny*')"_s;
    QTest::newRow("zero character") << u"x"_s + QChar(u'\0') << u"(a LIKE '*x"_s + QChar(u'\0') + u"*')"_s;
    QTest::newRow("always true") << u"x' OR 'a' LIKE 'a"_s << u"((a LIKE '*x') OR ('a' LIKE 'a*'))"_s;
}

void HostileQueriesTest::typedTextStaysInItsLiteral()
{
    QFETCH(QString, typed);
    QFETCH(QString, where);

    const sql::Select select =
        sql::parseSelect(u"SELECT a FROM t WHERE a LIKE '*"_s + typed + u"*' ORDER BY a"_s);

    QCOMPARE(treetext::ofWhere(select), where);
    QCOMPARE(treetext::ofOrder(select), u"a"_s);
}

void HostileQueriesTest::twoHundredLevelsAreAccepted()
{
    QCOMPARE(treetext::ofWhere(sql::parseSelect(nested(200))), u"a"_s);
}

void HostileQueriesTest::deeperNestingIsASyntaxError_data()
{
    QTest::addColumn<QString>("text");
    const QString start = u"SELECT * FROM t WHERE "_s;
    QTest::newRow("201 parentheses") << nested(201);
    QTest::newRow("a megabyte of parentheses") << nested(kMegabyte / 2);
    QTest::newRow("a megabyte of open parentheses") << start + QString(kMegabyte, u'(');
    QTest::newRow("a megabyte of minus") << start + QString(kMegabyte, u'-') + u"1"_s;
    QTest::newRow("a megabyte of not") << start + u"NOT "_s.repeated(kMegabyte / 4) + u"a"_s;
    QTest::newRow("a megabyte of calls") << start + u"f("_s.repeated(kMegabyte / 2);
    QTest::newRow("a megabyte of or") << start + u"a OR "_s.repeated(kMegabyte / 5) + u"a"_s;
    QTest::newRow("a megabyte of is null") << start + u"a"_s + u" IS NULL"_s.repeated(kMegabyte / 8);
    QTest::newRow("a megabyte of not like") << start + u"a"_s + u" NOT LIKE b"_s.repeated(kMegabyte / 11);
    QTest::newRow("ten thousand characters of plus") << start + u"1"_s + u"+1"_s.repeated(5000);
}

void HostileQueriesTest::deeperNestingIsASyntaxError()
{
    QFETCH(QString, text);
    QElapsedTimer timer;
    timer.start();

    QCOMPARE(failureOf([&] { return sql::parseSelect(text); }), kSyntaxError);

    QVERIFY(timer.elapsed() < kMostMilliseconds);
}

void HostileQueriesTest::longTextTakesTimeInProportion_data()
{
    QTest::addColumn<QString>("text");
    const QString start = u"SELECT * FROM t WHERE "_s;
    QTest::newRow("items") << u"SELECT a"_s + u",a"_s.repeated(kMegabyte / 2) + u" FROM"_s;
    QTest::newRow("items by table") << u"SELECT a"_s + u",t.a"_s.repeated(kMegabyte / 4) + u" FROM"_s;
    QTest::newRow("keys") << u"SELECT a FROM t ORDER BY a"_s + u",a"_s.repeated(kMegabyte / 2) + u","_s;
    QTest::newRow("apostrophes") << start + QString(kMegabyte + 1, u'\'');
    QTest::newRow("open brackets") << start + QString(kMegabyte, u'[');
    QTest::newRow("blanks") << start + QString(kMegabyte, u' ');
    QTest::newRow("digits") << start + QString(kMegabyte, u'9') + u" x"_s;
    QTest::newRow("dots") << start + QString(kMegabyte, u'.');
    QTest::newRow("one word") << start + QString(kMegabyte, u'a') + u" x"_s;
    QTest::newRow("semicolons") << start + QString(kMegabyte, u';');
}

void HostileQueriesTest::longTextTakesTimeInProportion()
{
    QFETCH(QString, text);
    QElapsedTimer timer;
    timer.start();

    QCOMPARE(failureOf([&] { return sql::parseSelect(text); }), kSyntaxError);

    QVERIFY(timer.elapsed() < kMostMilliseconds);
}

void HostileQueriesTest::longLiteralIsAccepted()
{
    const QString literal(kMegabyte, u'x');

    const sql::Select select = sql::parseSelect(u"SELECT a FROM t WHERE a = '"_s + literal + u"'"_s);

    QCOMPARE(treetext::ofWhere(select).size(), literal.size() + 8);
}

void HostileQueriesTest::listOf255IsAccepted()
{
    const QString list = u"a"_s + u",a"_s.repeated(254);

    const sql::Select select = sql::parseSelect(u"SELECT %1 FROM t WHERE f(%1) ORDER BY %1"_s.arg(list));

    QCOMPARE(select.items.size(), std::size_t{255});
    QCOMPARE(select.orderBy.size(), std::size_t{255});
}

void HostileQueriesTest::longerListIsASyntaxError_data()
{
    const QString list = u"a"_s + u",a"_s.repeated(255);
    QTest::addColumn<QString>("text");
    QTest::newRow("items") << u"SELECT %1 FROM t"_s.arg(list);
    QTest::newRow("keys") << u"SELECT a FROM t ORDER BY %1"_s.arg(list);
    QTest::newRow("arguments") << u"SELECT a FROM t WHERE f(%1)"_s.arg(list);
}

void HostileQueriesTest::longerListIsASyntaxError()
{
    QFETCH(QString, text);

    QCOMPARE(failureOf([&] { return sql::parseSelect(text); }), kSyntaxError);
}

QTEST_GUILESS_MAIN(HostileQueriesTest)
#include "tst_hostilequeries.moc"
