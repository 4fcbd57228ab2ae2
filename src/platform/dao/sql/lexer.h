// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Splits a query text into words, literals and symbols. Holds nothing but a view and a position, so a copy is
// a bookmark. It knows no keywords: those are the parser's.

#include <QString>
#include <QStringView>

namespace platform::sql {

enum class TokenKind {
    End,
    Word, ///< unquoted: a keyword or a name
    Name, ///< [bracketed], without the brackets
    Text, ///< '…' or "…", quotes taken off and doubled ones made single
    Number,
    Symbol,    ///< one of ( ) , . * / + - & = < > <= >= <> ;
    Malformed, ///< an unclosed quote or bracket, or a character that has no place in a query
};

struct Token
{
    TokenKind kind = TokenKind::End;
    QString text;
};

class Lexer
{
public:
    explicit Lexer(QStringView text) noexcept
        : m_rest(text)
    {}

    /// The next token; `End` again and again after the last one. Each call costs time in proportion to its
    /// token.
    [[nodiscard]] Token next();

    /// True when nothing but blanks is left.
    [[nodiscard]] bool atEnd() noexcept;

private:
    [[nodiscard]] QStringView take(qsizetype count) noexcept;
    void skipBlanks() noexcept;
    [[nodiscard]] Token readQuoted(QChar quote);
    [[nodiscard]] Token readBracketed();
    [[nodiscard]] Token readNumber();
    [[nodiscard]] Token readWord();
    [[nodiscard]] Token readSymbol();

    QStringView m_rest;
};

} // namespace platform::sql
