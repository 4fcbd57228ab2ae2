// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The parser's inside, shared by its two source files; nothing else includes it.

#include "platform/print/formula/lexer.h"
#include "platform/print/formula/parser.h"

namespace platform::print::formula {

// Binding levels of the operators, loosest first.
enum Level : int {
    LevelImp,
    LevelEqv,
    LevelXor,
    LevelOr,
    LevelAnd,
    LevelNot,
    LevelCompare,
    LevelRange,
    LevelConcatenate,
    LevelAdd,
    LevelModulo,
    LevelIntegerDivide,
    LevelMultiply,
    LevelSign,
    LevelPower,
    LevelNone,
};

/// Recursive descent with binding levels. Every method gives null once a fault is known.
class Parser
{
public:
    explicit Parser(QStringView text)
        : m_lexer(text)
        , m_token(m_lexer.next())
        , m_ahead(m_lexer.next())
    {}

    Parsed run();

private:
    void take();
    bool takeIf(TokenKind kind);
    NodePtr expected(const QString& what);
    NodePtr failAt(Position position, const QString& text);
    NodePtr node(NodeKind kind, Position position) const;
    NodePtr adopt(NodePtr parent, NodePtr child);

    NodePtr sequence(TokenKind end);
    NodePtr expression();
    NodePtr declaration(Scope scope);
    NodePtr assignment();
    NodePtr assignedTo(NodePtr target);
    NodePtr conditional();
    NodePtr operation(Level least);
    NodePtr operand(Level least);
    NodePtr prefixed(Op op, Level least, Level inner);
    NodePtr openRange();
    NodePtr closedRange(NodePtr from);
    NodePtr power();
    NodePtr subscripts();
    NodePtr primary();
    NodePtr field();
    NodePtr nameOrCall();
    NodePtr parenthesis();
    NodePtr list();
    NodePtr literal(Value value);
    bool variableName(QString& name);

    Lexer m_lexer;
    Token m_token;
    Token m_ahead;
    int m_nesting = 0;
    std::optional<Fault> m_fault;
};

} // namespace platform::print::formula
