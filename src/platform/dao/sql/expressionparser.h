// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The token stream of a query and the expression half of its grammar. Used by the parser only.

#include "platform/dao/sql/ast.h"
#include "platform/dao/sql/lexer.h"

namespace platform::sql {

[[noreturn]] void failSyntax(const QString& why);

/// One token ahead of a lexer, with the tests that both halves of the grammar need. A copy is a bookmark.
class TokenStream
{
public:
    explicit TokenStream(QStringView text);

    [[nodiscard]] const Token& current() const noexcept { return m_current; }
    void advance() { m_current = m_lexer.next(); }

    [[nodiscard]] bool isSymbol(QStringView symbol) const noexcept;
    [[nodiscard]] bool isWord(QStringView keyword) const noexcept; ///< no regard to case
    bool acceptSymbol(QStringView symbol);
    bool acceptWord(QStringView keyword);
    void expectSymbol(QStringView symbol);
    void expectWord(QStringView keyword);

    /// True for a bracketed name and for a word that is no keyword.
    [[nodiscard]] bool isName() const noexcept;
    [[nodiscard]] QString expectName();

    /// Accepts one ";" and then demands the end: 3142 for a text behind the ";", else 3075.
    void expectEnd();

private:
    Lexer m_lexer;
    Token m_current;
};

/// Reads one whole expression. An expression nested, or chained, deeper than 200 is a syntax error, so that
/// neither reading the tree nor walking it can exhaust the stack.
[[nodiscard]] ExpressionPtr parseExpression(TokenStream& tokens);

} // namespace platform::sql
