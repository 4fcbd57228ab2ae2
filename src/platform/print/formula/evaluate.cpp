// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/formula/evaluate.h"

#include "platform/print/formula/compare.h"
#include "platform/print/formula/evaluaterun.h"
#include "platform/print/formula/operate.h"

using namespace Qt::StringLiterals;

namespace platform::print::formula {

Value Run::fail(const Node& node, const QString& why)
{
    if (!fault)
        fault = Fault{kValueError, node.position, why};
    return {};
}

Value Run::taken(Outcome outcome)
{
    if (outcome.fault && !fault)
        fault = std::move(outcome.fault);
    return std::move(outcome.value);
}

Value Run::value(const Node& node)
{
    switch (node.kind) {
    case NodeKind::Constant:
        return node.constant;
    case NodeKind::Field: {
        Value read = m_context.column(node.slot);
        if (!hasValue(read) && m_context.options().nullsAsEmpty)
            return startValue(node.type);
        return read;
    }
    case NodeKind::FormulaField:
        return taken(m_context.formula(node.slot));
    case NodeKind::Variable:
        return variable(node);
    case NodeKind::Declaration:
    case NodeKind::Assignment:
        return assignment(node);
    case NodeKind::If:
        return choice(node);
    case NodeKind::Unary:
        return unary(node);
    case NodeKind::Binary:
        return binary(node);
    case NodeKind::Subscript:
        return subscript(node);
    case NodeKind::Call:
        return call(node);
    case NodeKind::Sequence:
        return sequence(node);
    case NodeKind::IsNull:
        return nullTest(node);
    case NodeKind::Neighbour:
        return neighbour(node);
    case NodeKind::Total:
        return m_context.total(node.slot);
    case NodeKind::Special:
        return special(node);
    case NodeKind::Extreme:
        return extreme(node);
    case NodeKind::Range:
    case NodeKind::List:
        break;
    }
    return {};
}

Value& Run::variable(const Node& node)
{
    return node.scope == Scope::Local ? m_locals[node.slot] : m_context.variable(node.scope, node.slot);
}

Value Run::assignment(const Node& node)
{
    if (node.children.empty())
        return variable(node);
    Value given = value(*node.children[0]);
    if (!hasValue(given))
        return {};
    if (node.type == Type::DateTime)
        given = withTime(std::move(given));
    variable(node) = given;
    return given;
}

Value Run::choice(const Node& node)
{
    const Value condition = value(*node.children[0]);
    if (!hasValue(condition))
        return {};
    const bool met = std::get<bool>(condition);
    if (!met && node.children.size() < 3)
        return startValue(node.type);
    Value chosen = value(*node.children[met ? 1 : 2]);
    return node.type == Type::DateTime ? withTime(std::move(chosen)) : chosen;
}

Value Run::sequence(const Node& node)
{
    Value last;
    for (const NodePtr& step : node.children) {
        last = value(*step);
        if (!hasValue(last))
            return {};
    }
    return last;
}

Value Run::unary(const Node& node)
{
    const Value given = value(*node.children[0]);
    if (!hasValue(given))
        return {};
    if (node.op == Op::Not)
        return !std::get<bool>(given);
    return node.op == Op::Negate ? -std::get<double>(given) : std::get<double>(given);
}

Value Run::binary(const Node& node)
{
    switch (node.op) {
    case Op::And:
    case Op::Or:
        return shortCircuit(node);
    case Op::Xor:
    case Op::Eqv:
    case Op::Imp:
        return logical(node);
    case Op::Equal:
    case Op::NotEqual:
    case Op::Less:
    case Op::Greater:
    case Op::LessEqual:
    case Op::GreaterEqual:
        return comparison(node);
    case Op::In:
        return membership(node);
    default:
        break;
    }
    const Value left = value(*node.children[0]);
    if (!hasValue(left))
        return {};
    const Value right = value(*node.children[1]);
    if (!hasValue(right))
        return {};
    QString error;
    Value result = operate(node.op, left, right, error);
    return error.isEmpty() ? result : fail(node, error);
}

/// And and Or stop as soon as the result is known.
Value Run::shortCircuit(const Node& node)
{
    Value left = value(*node.children[0]);
    if (!hasValue(left) || std::get<bool>(left) == (node.op == Op::Or))
        return left;
    return value(*node.children[1]);
}

Value Run::logical(const Node& node)
{
    const Value left = value(*node.children[0]);
    if (!hasValue(left))
        return {};
    const Value right = value(*node.children[1]);
    if (!hasValue(right))
        return {};
    const bool first = std::get<bool>(left);
    const bool second = std::get<bool>(right);
    if (node.op == Op::Xor)
        return first != second;
    return node.op == Op::Eqv ? first == second : !first || second;
}

Value Run::comparison(const Node& node)
{
    const Value left = value(*node.children[0]);
    if (!hasValue(left))
        return {};
    const Value right = value(*node.children[1]);
    if (!hasValue(right))
        return {};
    const int order = compareValues(left, right, m_context.options().caseSensitive);
    switch (node.op) {
    case Op::Equal:
        return order == 0;
    case Op::NotEqual:
        return order != 0;
    case Op::Less:
        return order < 0;
    case Op::Greater:
        return order > 0;
    case Op::LessEqual:
        return order <= 0;
    default:
        return order >= 0;
    }
}

Value Run::call(const Node& node)
{
    QVarLengthArray<Value, 6> arguments;
    for (std::size_t i = 0; i < node.children.size(); ++i) {
        Value argument = value(*node.children[i]);
        if (!hasValue(argument))
            return {};
        const bool moment = parameterType(*node.function, i) == Type::DateTime;
        arguments.append(moment ? withTime(std::move(argument)) : std::move(argument));
    }
    Call call{std::span<const Value>(arguments.constData(), static_cast<std::size_t>(arguments.size())),
              m_context.options().caseSensitive,
              {}};
    Value result = node.function->evaluate(call);
    return call.error.isEmpty() ? result : fail(node, call.error);
}

Value Run::special(const Node& node)
{
    int argument = node.index;
    if (!node.children.empty()) {
        const Value given = value(*node.children[0]);
        if (!hasValue(given))
            return {};
        const double number = std::get<double>(given);
        argument = number >= 0 && number < 1'000 ? static_cast<int>(number) : -1;
    }
    return m_context.special(static_cast<Special>(node.slot), argument);
}

Value Run::neighbour(const Node& node)
{
    const Node& field = *node.children[0];
    const Operand operand{field.kind == NodeKind::FormulaField, field.slot, field.type};
    return taken(m_context.neighbour(node.slot, operand));
}

/// The one test that looks at a null without ending the evaluation.
Value Run::nullTest(const Node& node)
{
    const Node& field = *node.children[0];
    if (field.kind == NodeKind::Field)
        return !hasValue(m_context.column(field.slot));
    Outcome outcome = m_context.formula(field.slot);
    if (outcome.fault)
        return taken(std::move(outcome));
    return !hasValue(outcome.value);
}

Outcome evaluate(const Node& root, std::span<const Type> locals, Context& context)
{
    Run run(locals, context);
    Outcome outcome;
    outcome.value = run.value(root);
    outcome.fault = std::move(run.fault);
    return outcome;
}

} // namespace platform::print::formula
