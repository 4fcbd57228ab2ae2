// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/formula/parserclass.h"

#include "platform/print/formula/functions.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace platform::print::formula {
namespace {

struct Operator
{
    Level level = LevelNone;
    Op op = Op::Add;
};

Operator binaryOperator(TokenKind kind)
{
    switch (kind) {
    case TokenKind::Imp:
        return {LevelImp, Op::Imp};
    case TokenKind::Eqv:
        return {LevelEqv, Op::Eqv};
    case TokenKind::Xor:
        return {LevelXor, Op::Xor};
    case TokenKind::Or:
        return {LevelOr, Op::Or};
    case TokenKind::And:
        return {LevelAnd, Op::And};
    case TokenKind::Equal:
        return {LevelCompare, Op::Equal};
    case TokenKind::NotEqual:
        return {LevelCompare, Op::NotEqual};
    case TokenKind::Less:
        return {LevelCompare, Op::Less};
    case TokenKind::Greater:
        return {LevelCompare, Op::Greater};
    case TokenKind::LessEqual:
        return {LevelCompare, Op::LessEqual};
    case TokenKind::GreaterEqual:
        return {LevelCompare, Op::GreaterEqual};
    case TokenKind::In:
        return {LevelCompare, Op::In};
    case TokenKind::Concatenate:
        return {LevelConcatenate, Op::Concatenate};
    case TokenKind::Plus:
        return {LevelAdd, Op::Add};
    case TokenKind::Minus:
        return {LevelAdd, Op::Subtract};
    case TokenKind::Mod:
        return {LevelModulo, Op::Modulo};
    case TokenKind::IntegerDivide:
        return {LevelIntegerDivide, Op::IntegerDivide};
    case TokenKind::Times:
        return {LevelMultiply, Op::Multiply};
    case TokenKind::Divide:
        return {LevelMultiply, Op::Divide};
    case TokenKind::Percent:
        return {LevelMultiply, Op::Percent};
    case TokenKind::Power:
        return {LevelPower, Op::Power};
    default:
        return {};
    }
}

bool isRangeWord(TokenKind kind)
{
    return kind == TokenKind::To || kind == TokenKind::ToBefore || kind == TokenKind::AfterTo ||
           kind == TokenKind::AfterToBefore;
}

std::optional<Type> variableType(TokenKind kind)
{
    switch (kind) {
    case TokenKind::NumberVar:
    case TokenKind::CurrencyVar:
        return Type::Number;
    case TokenKind::StringVar:
        return Type::Text;
    case TokenKind::BooleanVar:
        return Type::Boolean;
    case TokenKind::DateVar:
        return Type::Date;
    case TokenKind::TimeVar:
        return Type::Time;
    case TokenKind::DateTimeVar:
        return Type::DateTime;
    default:
        return std::nullopt;
    }
}

} // namespace

void Parser::take()
{
    m_token = std::exchange(m_ahead, m_lexer.next());
}

bool Parser::takeIf(TokenKind kind)
{
    if (m_token.kind != kind)
        return false;
    take();
    return true;
}

NodePtr Parser::failAt(Position position, const QString& text)
{
    if (!m_fault)
        m_fault = Fault{kFormulaSyntax, position, text};
    return nullptr;
}

NodePtr Parser::expected(const QString& what)
{
    if (m_token.kind == TokenKind::Fault)
        return failAt(m_token.position, m_token.text);
    return failAt(m_token.position, u"se esperaba "_s + what);
}

NodePtr Parser::node(NodeKind kind, Position position) const
{
    auto made = std::make_unique<Node>();
    made->kind = kind;
    made->position = position;
    return made;
}

NodePtr Parser::adopt(NodePtr parent, NodePtr child)
{
    if (!parent || !child)
        return nullptr;
    parent->depth = std::max(parent->depth, child->depth + 1);
    if (parent->depth > kMaxDepth)
        return failAt(parent->position, u"la fórmula es demasiado complicada"_s);
    parent->children.push_back(std::move(child));
    return parent;
}

Parsed Parser::run()
{
    Parsed parsed;
    if (m_token.kind == TokenKind::End)
        return parsed;
    parsed.root = sequence(TokenKind::End);
    if (m_fault)
        parsed.root.reset();
    parsed.fault = m_fault;
    return parsed;
}

/// Steps up to `end`, which stays untaken. A single step is returned as it is.
NodePtr Parser::sequence(TokenKind end)
{
    NodePtr steps = node(NodeKind::Sequence, m_token.position);
    do {
        steps = adopt(std::move(steps), expression());
        if (!steps)
            return nullptr;
    } while (takeIf(TokenKind::Semicolon) && m_token.kind != end);
    if (m_token.kind != end)
        return expected(end == TokenKind::End ? u"un operador o el final de la fórmula"_s : u"«)»"_s);
    if (steps->children.size() == 1)
        return std::move(steps->children.front());
    return steps;
}

NodePtr Parser::expression()
{
    switch (m_token.kind) {
    case TokenKind::Local:
        take();
        return declaration(Scope::Local);
    case TokenKind::Global:
        take();
        return declaration(Scope::Global);
    case TokenKind::Shared:
        take();
        return declaration(Scope::Shared);
    case TokenKind::If:
        return conditional();
    case TokenKind::Name:
        return m_ahead.kind == TokenKind::Assign ? assignment() : operation(LevelImp);
    default:
        return variableType(m_token.kind) ? declaration(Scope::Global) : operation(LevelImp);
    }
}

bool Parser::variableName(QString& name)
{
    if (m_token.kind != TokenKind::Name) {
        expected(u"el nombre de la variable"_s);
        return false;
    }
    if (isFunctionName(m_token.text)) {
        failAt(m_token.position, u"«%1» es una función y no puede ser una variable"_s.arg(m_token.text));
        return false;
    }
    name = m_token.text;
    take();
    return true;
}

NodePtr Parser::declaration(Scope scope)
{
    const std::optional<Type> type = variableType(m_token.kind);
    if (!type)
        return expected(u"el tipo de la variable"_s);
    NodePtr made = node(NodeKind::Declaration, m_token.position);
    made->scope = scope;
    made->type = *type;
    take();
    if (!variableName(made->name))
        return nullptr;
    return takeIf(TokenKind::Assign) ? assignedTo(std::move(made)) : std::move(made);
}

/// The value behind ":=", which may be an assignment again.
NodePtr Parser::assignedTo(NodePtr target)
{
    if (m_nesting >= kMaxNesting)
        return failAt(m_token.position, u"la fórmula es demasiado complicada"_s);
    ++m_nesting;
    NodePtr made = adopt(std::move(target), expression());
    --m_nesting;
    return made;
}

NodePtr Parser::assignment()
{
    NodePtr made = node(NodeKind::Assignment, m_token.position);
    if (!variableName(made->name))
        return nullptr;
    take();
    return assignedTo(std::move(made));
}

NodePtr Parser::conditional()
{
    if (m_nesting >= kMaxNesting)
        return failAt(m_token.position, u"la fórmula es demasiado complicada"_s);
    ++m_nesting;
    NodePtr made = node(NodeKind::If, m_token.position);
    take();
    made = adopt(std::move(made), expression());
    if (made && !takeIf(TokenKind::Then))
        made = expected(u"«Then»"_s);
    made = made ? adopt(std::move(made), expression()) : nullptr;
    if (made && takeIf(TokenKind::Else))
        made = adopt(std::move(made), expression());
    --m_nesting;
    return made;
}

/// Operators of level `least` and tighter, left to right.
NodePtr Parser::operation(Level least)
{
    NodePtr left = operand(least);
    while (left) {
        if (isRangeWord(m_token.kind) && least <= LevelRange && left->kind != NodeKind::Range) {
            left = closedRange(std::move(left));
            continue;
        }
        const Operator found = binaryOperator(m_token.kind);
        // A power is complete in its operand; a range takes no operator that binds tighter than comparing.
        if (found.level < least || found.level >= LevelPower)
            break;
        if (left->kind == NodeKind::Range && found.level > LevelCompare)
            break;
        NodePtr both = node(NodeKind::Binary, m_token.position);
        both->op = found.op;
        take();
        both = adopt(std::move(both), std::move(left));
        left = both ? adopt(std::move(both), operation(static_cast<Level>(found.level + 1))) : nullptr;
    }
    return left;
}

NodePtr Parser::operand(Level least)
{
    switch (m_token.kind) {
    case TokenKind::Not:
        return prefixed(Op::Not, least, LevelNot);
    case TokenKind::Minus:
        return prefixed(Op::Negate, least, LevelSign);
    case TokenKind::Plus:
        return prefixed(Op::Plus, least, LevelSign);
    case TokenKind::UpTo:
    case TokenKind::UpToBefore:
    case TokenKind::UpFrom:
    case TokenKind::UpFromAfter:
        return least <= LevelRange ? openRange() : expected(u"un valor"_s);
    default:
        return power();
    }
}

NodePtr Parser::prefixed(Op op, Level least, Level inner)
{
    if (least > inner)
        return expected(u"un valor"_s);
    if (m_nesting >= kMaxNesting)
        return failAt(m_token.position, u"la fórmula es demasiado complicada"_s);
    ++m_nesting;
    NodePtr made = node(NodeKind::Unary, m_token.position);
    made->op = op;
    take();
    made = adopt(std::move(made), operation(inner));
    --m_nesting;
    return made;
}

NodePtr Parser::openRange()
{
    const TokenKind kind = m_token.kind;
    const bool below = kind == TokenKind::UpTo || kind == TokenKind::UpToBefore;
    NodePtr made = node(NodeKind::Range, m_token.position);
    made->toOpen = kind == TokenKind::UpToBefore;
    made->fromOpen = kind == TokenKind::UpFromAfter;
    take();
    made = adopt(std::move(made), operation(LevelConcatenate));
    if (made)
        made->children.insert(below ? made->children.begin() : made->children.end(), NodePtr());
    return made;
}

NodePtr Parser::closedRange(NodePtr from)
{
    const TokenKind kind = m_token.kind;
    NodePtr made = node(NodeKind::Range, m_token.position);
    made->fromOpen = kind == TokenKind::AfterTo || kind == TokenKind::AfterToBefore;
    made->toOpen = kind == TokenKind::ToBefore || kind == TokenKind::AfterToBefore;
    take();
    made = adopt(std::move(made), std::move(from));
    return made ? adopt(std::move(made), operation(LevelConcatenate)) : nullptr;
}

Parsed parse(QStringView text)
{
    const qsizetype zero = text.indexOf(QChar(0));
    if ((zero < 0 ? text.size() : zero) > kMaxFormulaLength) {
        Parsed parsed;
        parsed.fault = Fault{kFormulaSyntax, {}, u"la fórmula es demasiado larga"_s};
        return parsed;
    }
    return Parser(text).run();
}

} // namespace platform::print::formula
