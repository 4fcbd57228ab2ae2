// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/dao/sql/lexer.h"

#include <QStringList>
#include <QTest>

using namespace platform::sql;
using namespace Qt::StringLiterals;

namespace {

/// The kinds' initials and the texts: "W:a S:= T:x".
[[nodiscard]] QString tokensOf(QStringView text)
{
    constexpr QStringView kInitials = u"EWNT#SM";
    Lexer lexer(text);
    QStringList tokens;
    for (Token token = lexer.next(); token.kind != TokenKind::End; token = lexer.next())
        tokens.append(kInitials[static_cast<qsizetype>(token.kind)] + u":"_s + token.text);
    return tokens.join(u'|');
}

} // namespace

class LexerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textIsSplit_data();
    void textIsSplit();
    void endComesAgainAndAgain();
    void copyIsABookmark();
    void onlyBlanksLeftIsTheEnd();
};

void LexerTest::textIsSplit_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("tokens");
    QTest::newRow("empty") << u""_s << u""_s;
    QTest::newRow("blanks") << u" \t\r\n\v\f"_s << u""_s;
    QTest::newRow("words keep their case") << u"Select CLIcodigo"_s << u"W:Select|W:CLIcodigo"_s;
    QTest::newRow("word with digits and underline") << u"a_1b"_s << u"W:a_1b"_s;
    QTest::newRow("word with accents") << u"AÑO_día"_s << u"W:AÑO_día"_s;
    QTest::newRow("word behind a number") << u"1a"_s << u"#:1|W:a"_s;
    QTest::newRow("text in apostrophes") << u"'a \"b'"_s << u"T:a \"b"_s;
    QTest::newRow("text in double quotes") << u"\"a 'b\""_s << u"T:a 'b"_s;
    QTest::newRow("doubled apostrophe") << u"'l''x'"_s << u"T:l'x"_s;
    QTest::newRow("empty text") << u"''"_s << u"T:"_s;
    QTest::newRow("unclosed text") << u"'a b"_s << u"M:a b"_s;
    QTest::newRow("name in brackets") << u"[a 'b]"_s << u"N:a 'b"_s;
    QTest::newRow("empty brackets") << u"[]x"_s << u"M:[]x"_s;
    QTest::newRow("unclosed bracket") << u"[a b"_s << u"M:[a b"_s;
    QTest::newRow("whole number") << u"125"_s << u"#:125"_s;
    QTest::newRow("number with decimals") << u"1.5"_s << u"#:1.5"_s;
    QTest::newRow("number ending in a point") << u"1. "_s << u"#:1."_s;
    QTest::newRow("number starting with a point") << u".5"_s << u"#:.5"_s;
    QTest::newRow("point alone") << u"a . b"_s << u"W:a|S:.|W:b"_s;
    QTest::newRow("number with an exponent") << u"1e5 2E-3 3e+1"_s << u"#:1e5|#:2E-3|#:3e+1"_s;
    QTest::newRow("no exponent after all") << u"1e 2e+"_s << u"#:1|W:e|#:2|W:e|S:+"_s;
    QTest::newRow("signs") << u"(),.*/+-&=<>;"_s << u"S:(|S:)|S:,|S:.|S:*|S:/|S:+|S:-|S:&|S:=|S:<>|S:;"_s;
    QTest::newRow("comparisons") << u"< <= > >= <> = <=>"_s << u"S:<|S:<=|S:>|S:>=|S:<>|S:=|S:<=|S:>"_s;
    QTest::newRow("no blanks between") << u"a='x'AND(b)DESC"_s << u"W:a|S:=|T:x|W:AND|S:(|W:b|S:)|W:DESC"_s;
    QTest::newRow("characters without a place") << u"a#?!@"_s << u"W:a|M:#|M:?|M:!|M:@"_s;
}

void LexerTest::textIsSplit()
{
    QFETCH(QString, text);
    QFETCH(QString, tokens);
    QCOMPARE(tokensOf(text), tokens);
}

void LexerTest::endComesAgainAndAgain()
{
    Lexer lexer(u"a");
    static_cast<void>(lexer.next());

    QCOMPARE(lexer.next().kind, TokenKind::End);
    QCOMPARE(lexer.next().kind, TokenKind::End);
}

void LexerTest::copyIsABookmark()
{
    Lexer lexer(u"a b");
    static_cast<void>(lexer.next());

    Lexer bookmark = lexer;
    static_cast<void>(lexer.next());

    QCOMPARE(bookmark.next().text, u"b"_s);
}

void LexerTest::onlyBlanksLeftIsTheEnd()
{
    QVERIFY(Lexer(u" \r\n").atEnd());
    QCOMPARE(Lexer(u" x").atEnd(), false);
}

QTEST_GUILESS_MAIN(LexerTest)
#include "tst_lexer.moc"
