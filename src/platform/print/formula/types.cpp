// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/formula/types.h"

#include "platform/print/formula/checker.h"

using namespace Qt::StringLiterals;

namespace platform::print::formula {
namespace {

bool isMoment(Type type) noexcept
{
    return type == Type::Date || type == Type::DateTime;
}

/// The type that holds both, for the branches of a choice.
std::optional<Type> common(Type left, Type right) noexcept
{
    if (left == right)
        return left;
    return isMoment(left) && isMoment(right) ? std::optional(Type::DateTime) : std::nullopt;
}

} // namespace

bool comparable(Type left, Type right) noexcept
{
    return common(left, right).has_value();
}

bool Checker::fail(const Node& node, const QString& text, ErrorCode code)
{
    if (!result.fault)
        result.fault = Fault{code, node.position, text};
    return false;
}

bool Checker::wanted(NodePtr& node, Type type)
{
    if (!value(node))
        return false;
    if (node->type == type)
        return true;
    return fail(*node, u"se esperaba %1 y hay %2"_s.arg(typeName(type), typeName(node->type)));
}

bool Checker::bound(Node& node, const Binding& binding)
{
    if (binding.code != kNoError)
        return fail(node, binding.text, binding.code);
    node.slot = binding.slot;
    node.type = binding.type;
    result.uses |= binding.uses;
    return true;
}

bool Checker::value(NodePtr& node)
{
    switch (node->kind) {
    case NodeKind::Constant: {
        const Value& constant = node->constant;
        node->type = std::holds_alternative<double>(constant) ? Type::Number
                     : std::holds_alternative<bool>(constant) ? Type::Boolean
                                                              : Type::Text;
        return true;
    }
    case NodeKind::Field:
        return bound(*node, m_names.column(node->name, node->detail));
    case NodeKind::FormulaField:
        return bound(*node, m_names.formula(node->name));
    case NodeKind::Variable:
        return variable(*node);
    case NodeKind::Declaration:
        return declaration(*node);
    case NodeKind::Assignment:
        return variable(*node) && assigned(*node, node->type);
    case NodeKind::If:
        return conditional(*node);
    case NodeKind::Unary:
        return unary(*node);
    case NodeKind::Binary:
        return binary(*node);
    case NodeKind::Subscript:
        return subscript(*node);
    case NodeKind::Call:
        return call(node);
    case NodeKind::Sequence:
        return sequence(*node);
    case NodeKind::Range:
    case NodeKind::List:
        return fail(*node, u"un intervalo o una lista sólo puede estar detrás de In"_s);
    default:
        return true;
    }
}

bool Checker::variable(Node& node)
{
    const auto found = m_variables.constFind(node.name.toLower());
    if (found == m_variables.constEnd())
        return fail(node, u"la variable «%1» no está declarada"_s.arg(node.name));
    node.scope = found->scope;
    node.slot = found->slot;
    node.type = found->type;
    return true;
}

bool Checker::declaration(Node& node)
{
    const QString key = node.name.toLower();
    const auto known = m_variables.constFind(key);
    if (known != m_variables.constEnd()) {
        if (known->scope != node.scope || known->type != node.type)
            return fail(node, u"la variable «%1» ya está declarada de otra manera"_s.arg(node.name));
        node.slot = known->slot;
    } else if (node.scope == Scope::Local) {
        node.slot = static_cast<int>(result.locals.size());
        result.locals.push_back(node.type);
    } else {
        if (!bound(node, m_names.variable(node.scope, node.name, node.type)))
            return false;
        result.uses.variables = true;
    }
    m_variables.insert(key, Variable{node.scope, node.slot, node.type});
    return node.children.empty() || assigned(node, node.type);
}

bool Checker::assigned(Node& node, Type type)
{
    NodePtr& given = node.children.front();
    if (!value(given))
        return false;
    if (given->type == type || (type == Type::DateTime && given->type == Type::Date))
        return true;
    return fail(*given, u"la variable «%1» es de tipo %2 y el valor es %3"_s.arg(node.name, typeName(type),
                                                                                 typeName(given->type)));
}

bool Checker::conditional(Node& node)
{
    if (!wanted(node.children[0], Type::Boolean) || !value(node.children[1]))
        return false;
    node.type = node.children[1]->type;
    if (node.children.size() < 3)
        return true;
    if (!value(node.children[2]))
        return false;
    const std::optional<Type> both = common(node.type, node.children[2]->type);
    if (!both) {
        return fail(*node.children[2], u"las dos ramas son de tipos distintos: %1 y %2"_s.arg(
                                           typeName(node.type), typeName(node.children[2]->type)));
    }
    node.type = *both;
    return true;
}

bool Checker::sequence(Node& node)
{
    for (NodePtr& step : node.children) {
        if (!value(step))
            return false;
    }
    node.type = node.children.back()->type;
    return true;
}

bool Checker::unary(Node& node)
{
    node.type = node.op == Op::Not ? Type::Boolean : Type::Number;
    return wanted(node.children[0], node.type);
}

bool Checker::binary(Node& node)
{
    switch (node.op) {
    case Op::And:
    case Op::Or:
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
    case Op::Concatenate:
        node.type = Type::Text;
        return value(node.children[0]) && value(node.children[1]);
    case Op::Add:
    case Op::Subtract:
        return sum(node);
    default:
        return arithmetic(node);
    }
}

bool Checker::logical(Node& node)
{
    node.type = Type::Boolean;
    return wanted(node.children[0], Type::Boolean) && wanted(node.children[1], Type::Boolean);
}

bool Checker::comparison(Node& node)
{
    node.type = Type::Boolean;
    if (!value(node.children[0]) || !value(node.children[1]))
        return false;
    const Type left = node.children[0]->type;
    const Type right = node.children[1]->type;
    const bool ordered = node.op != Op::Equal && node.op != Op::NotEqual;
    if (!comparable(left, right) || (ordered && left == Type::Boolean))
        return fail(node, u"no se puede comparar %1 con %2"_s.arg(typeName(left), typeName(right)));
    return true;
}

bool Checker::arithmetic(Node& node)
{
    node.type = Type::Number;
    return wanted(node.children[0], Type::Number) && wanted(node.children[1], Type::Number);
}

bool Checker::sum(Node& node)
{
    if (!value(node.children[0]) || !value(node.children[1]))
        return false;
    const Type left = node.children[0]->type;
    const Type right = node.children[1]->type;
    const bool adding = node.op == Op::Add;
    node.type = left;
    if (right == Type::Number && (left == Type::Number || isMoment(left)))
        return true;
    if (adding && left == Type::Text && right == Type::Text)
        return true;
    if (adding && left == Type::Number && isMoment(right)) {
        node.type = right;
        return true;
    }
    if (!adding && isMoment(left) && isMoment(right)) {
        node.type = Type::Number;
        return true;
    }
    return fail(node, u"no se puede %1 %2 y %3"_s.arg(adding ? u"sumar"_s : u"restar"_s, typeName(left),
                                                      typeName(right)));
}

bool Checker::membership(Node& node)
{
    node.type = Type::Boolean;
    if (!value(node.children[0]))
        return false;
    const Type left = node.children[0]->type;
    NodePtr& right = node.children[1];
    if (right->kind == NodeKind::List) {
        for (NodePtr& entry : right->children) {
            if (!member(entry, left))
                return false;
        }
        right->type = left;
        return true;
    }
    if (right->kind == NodeKind::Range)
        return member(right, left);
    if (!value(right))
        return false;
    if (left == Type::Text && right->type == Type::Text)
        return true;
    return fail(node, u"detrás de In se esperaba un intervalo o una lista"_s);
}

bool Checker::member(NodePtr& node, Type left)
{
    if (node->kind == NodeKind::Range ? !range(*node) : !value(node))
        return false;
    if (comparable(left, node->type))
        return true;
    return fail(*node, u"no se puede comparar %1 con %2"_s.arg(typeName(left), typeName(node->type)));
}

bool Checker::range(Node& node)
{
    bool first = true;
    for (NodePtr& bound : node.children) {
        if (!bound)
            continue;
        if (!value(bound))
            return false;
        const bool fits = bound->type != Type::Boolean && (first || comparable(node.type, bound->type));
        if (!fits)
            return fail(*bound, u"los límites del intervalo son de tipos distintos o no tienen orden"_s);
        node.type = first ? bound->type : *common(node.type, bound->type);
        first = false;
    }
    return true;
}

bool Checker::subscript(Node& node)
{
    node.type = Type::Text;
    if (!wanted(node.children[0], Type::Text))
        return false;
    NodePtr& place = node.children[1];
    if (place->kind != NodeKind::Range)
        return wanted(place, Type::Number);
    if (!range(*place))
        return false;
    return place->type == Type::Number || fail(*place, u"las posiciones de un texto son números"_s);
}

Checked check(NodePtr& root, Names& names)
{
    Checker checker(names);
    if (checker.value(root))
        checker.result.type = root->type;
    return checker.result;
}

} // namespace platform::print::formula
