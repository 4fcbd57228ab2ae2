// SPDX-License-Identifier: GPL-3.0-or-later
// What stands between two operators: powers, subscripts, literals, fields, calls, parentheses, lists.
#include "platform/print/formula/parserclass.h"

#include "platform/print/formula/functions.h"

using namespace Qt::StringLiterals;

namespace platform::print::formula {

NodePtr Parser::power()
{
    NodePtr left = subscripts();
    while (left && m_token.kind == TokenKind::Power) {
        NodePtr both = node(NodeKind::Binary, m_token.position);
        both->op = Op::Power;
        take();
        const Position sign = m_token.position;
        const bool negative = takeIf(TokenKind::Minus);
        NodePtr right = subscripts();
        if (right && negative) {
            NodePtr negated = node(NodeKind::Unary, sign);
            negated->op = Op::Negate;
            right = adopt(std::move(negated), std::move(right));
        }
        both = adopt(std::move(both), std::move(left));
        left = both ? adopt(std::move(both), std::move(right)) : nullptr;
    }
    return left;
}

NodePtr Parser::subscripts()
{
    NodePtr value = primary();
    while (value && m_token.kind == TokenKind::OpenList) {
        NodePtr made = node(NodeKind::Subscript, m_token.position);
        take();
        made = adopt(std::move(made), std::move(value));
        if (made && m_nesting >= kMaxNesting)
            return failAt(m_token.position, u"la fórmula es demasiado complicada"_s);
        ++m_nesting;
        value = made ? adopt(std::move(made), operation(LevelRange)) : nullptr;
        --m_nesting;
        if (value && !takeIf(TokenKind::CloseList))
            return expected(u"«]»"_s);
    }
    return value;
}

NodePtr Parser::literal(Value value)
{
    NodePtr made = node(NodeKind::Constant, m_token.position);
    made->constant = std::move(value);
    take();
    return made;
}

NodePtr Parser::primary()
{
    switch (m_token.kind) {
    case TokenKind::Number:
        return literal(m_token.number);
    case TokenKind::Text:
        return literal(m_token.text);
    case TokenKind::True:
        return literal(true);
    case TokenKind::False:
        return literal(false);
    case TokenKind::Field:
        return field();
    case TokenKind::Name:
        return nameOrCall();
    case TokenKind::Open:
        return parenthesis();
    case TokenKind::OpenList:
        return list();
    default:
        return expected(u"un valor"_s);
    }
}

NodePtr Parser::field()
{
    const QString& inside = m_token.text;
    const qsizetype dot = inside.indexOf(u'.');
    NodePtr made = node(NodeKind::Field, m_token.position);
    if (inside.startsWith(u'@')) {
        made->kind = NodeKind::FormulaField;
        made->name = inside.sliced(1).trimmed();
    } else if (dot > 0 && (inside[0].isLetterOrNumber() || inside[0] == u'_')) {
        made->name = inside.first(dot).trimmed();
        made->detail = inside.sliced(dot + 1).trimmed();
    }
    if (made->name.isEmpty() || (made->kind == NodeKind::Field && made->detail.isEmpty())) {
        return failAt(m_token.position,
                      u"«{%1}» no es un campo: se admiten {tabla.columna} y {@fórmula}"_s.arg(inside));
    }
    take();
    return made;
}

NodePtr Parser::nameOrCall()
{
    const bool function = isFunctionName(m_token.text);
    NodePtr made = node(function ? NodeKind::Call : NodeKind::Variable, m_token.position);
    made->name = m_token.text;
    take();
    if (m_token.kind != TokenKind::Open)
        return made;
    if (m_nesting >= kMaxNesting)
        return failAt(m_token.position, u"la fórmula es demasiado complicada"_s);
    made->kind = NodeKind::Call;
    take();
    if (takeIf(TokenKind::Close))
        return made;
    ++m_nesting;
    do {
        made = adopt(std::move(made), expression());
    } while (made && takeIf(TokenKind::Comma));
    --m_nesting;
    if (made && !takeIf(TokenKind::Close))
        return expected(u"«,» o «)»"_s);
    return made;
}

NodePtr Parser::parenthesis()
{
    if (m_nesting >= kMaxNesting)
        return failAt(m_token.position, u"la fórmula es demasiado complicada"_s);
    ++m_nesting;
    take();
    NodePtr made = sequence(TokenKind::Close);
    --m_nesting;
    if (made)
        take();
    return made;
}

NodePtr Parser::list()
{
    if (m_nesting >= kMaxNesting)
        return failAt(m_token.position, u"la fórmula es demasiado complicada"_s);
    NodePtr made = node(NodeKind::List, m_token.position);
    take();
    if (takeIf(TokenKind::CloseList))
        return made;
    ++m_nesting;
    do {
        made = adopt(std::move(made), operation(LevelRange));
    } while (made && takeIf(TokenKind::Comma));
    --m_nesting;
    if (made && !takeIf(TokenKind::CloseList))
        return expected(u"«,» o «]»"_s);
    return made;
}

} // namespace platform::print::formula
