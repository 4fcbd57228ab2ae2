// SPDX-License-Identifier: GPL-3.0-or-later
// Type checking of calls: plain functions by their signatures, and those that stand for a fact of the report.
#include "platform/print/formula/checker.h"

using namespace Qt::StringLiterals;

namespace platform::print::formula {
namespace {

bool is(const Node& node, QLatin1StringView name)
{
    return node.name.compare(name, Qt::CaseInsensitive) == 0;
}

} // namespace

bool Checker::call(NodePtr& node)
{
    if (is(*node, "IsNull"_L1))
        return nullTest(*node);
    if (is(*node, "IIf"_L1)) {
        node->kind = NodeKind::If;
        return argumentCount(*node, 3, 3) && conditional(*node);
    }
    if (is(*node, "Previous"_L1))
        return neighbour(*node, -1);
    if (is(*node, "Next"_L1))
        return neighbour(*node, 1);
    if (is(*node, "GroupName"_L1))
        return groupName(*node);
    if (const SpecialFunction* special = findSpecial(node->name))
        return specialCall(*node, *special);
    if (const std::optional<TotalKind> kind = findTotal(node->name)) {
        const bool extreme = *kind == TotalKind::Minimum || *kind == TotalKind::Maximum;
        if (extreme && node->children.size() == 1 && !isField(*node->children[0]))
            return extremeCall(*node, *kind == TotalKind::Minimum ? -1 : 1);
        return totalCall(*node, *kind);
    }
    return plainCall(*node);
}

bool Checker::argumentCount(const Node& node, std::size_t least, std::size_t most)
{
    if (node.children.size() >= least && node.children.size() <= most)
        return true;
    const QString given = QString::number(node.children.size());
    return fail(node, u"«%1» no admite %2 argumentos"_s.arg(node.name, given));
}

bool Checker::plainCall(Node& node)
{
    if (!isPlainFunction(node.name))
        return fail(node, u"la función «%1» no existe"_s.arg(node.name));
    std::vector<Type> types;
    QStringList names;
    for (NodePtr& argument : node.children) {
        if (!value(argument))
            return false;
        types.push_back(argument->type);
        names += typeName(argument->type);
    }
    node.function = findFunction(node.name, types);
    if (node.function == nullptr)
        return fail(node, u"«%1» no admite los argumentos (%2)"_s.arg(node.name, names.join(u", "_s)));
    node.type = resultType(*node.function);
    return true;
}

bool Checker::specialCall(Node& node, const SpecialFunction& special)
{
    const auto count = static_cast<std::size_t>(special.arguments);
    if (!argumentCount(node, count, count))
        return false;
    if (count == 1 && !wanted(node.children[0], Type::Number))
        return false;
    node.kind = NodeKind::Special;
    node.slot = static_cast<int>(special.special);
    node.type = special.type;
    result.uses |= special.uses;
    return true;
}

bool Checker::operand(NodePtr& node, Operand& operand)
{
    if (!isField(*node))
        return fail(*node, u"se esperaba un campo {tabla.columna} o {@fórmula}"_s);
    const Uses before = result.uses;
    result.uses = {};
    const bool known = value(node);
    const Uses own = result.uses;
    result.uses |= before;
    operand = Operand{node->kind == NodeKind::FormulaField, node->slot, node->type};
    if (!known)
        return false;
    if (own.totals || own.pages || own.variables || own.printing)
        return fail(*node, u"esta fórmula sólo se conoce al imprimir"_s);
    return true;
}

bool Checker::totalCall(Node& node, TotalKind kind)
{
    Operand field;
    if (!argumentCount(node, 1, 2) || !operand(node.children[0], field))
        return false;
    const bool numeric = kind == TotalKind::Sum || kind == TotalKind::Average;
    if (numeric && field.type != Type::Number)
        return fail(*node.children[0], u"se esperaba número y hay %1"_s.arg(typeName(field.type)));
    int group = -1;
    if (node.children.size() == 2) {
        Operand by;
        if (!operand(node.children[1], by))
            return false;
        group = m_names.group(by);
        if (group < 0)
            return fail(*node.children[1], u"el informe no tiene un grupo por este campo"_s);
    }
    const bool counting = kind == TotalKind::Count || kind == TotalKind::DistinctCount;
    node.kind = NodeKind::Total;
    node.slot = m_names.total(kind, field, group);
    node.type = counting ? Type::Number : field.type;
    result.uses.totals = true;
    return true;
}

bool Checker::extremeCall(Node& node, int direction)
{
    NodePtr& set = node.children[0];
    if (set->kind == NodeKind::Range) {
        if (!range(*set))
            return false;
    } else if (set->kind == NodeKind::List && !set->children.empty()) {
        bool first = true;
        for (NodePtr& entry : set->children) {
            if (entry->kind == NodeKind::Range ? !range(*entry) : !value(entry))
                return false;
            if (entry->type == Type::Boolean || (!first && entry->type != set->type))
                return fail(*entry, u"los valores de la lista son de tipos distintos o no tienen orden"_s);
            set->type = entry->type;
            first = false;
        }
    } else {
        return fail(*set, u"se esperaba un campo, una lista o un intervalo"_s);
    }
    node.kind = NodeKind::Extreme;
    node.slot = direction;
    node.type = set->type;
    return true;
}

bool Checker::nullTest(Node& node)
{
    if (!argumentCount(node, 1, 1))
        return false;
    if (!isField(*node.children[0]))
        return fail(*node.children[0], u"se esperaba un campo {tabla.columna} o {@fórmula}"_s);
    node.kind = NodeKind::IsNull;
    node.type = Type::Boolean;
    return value(node.children[0]);
}

bool Checker::neighbour(Node& node, int step)
{
    Operand field;
    if (!argumentCount(node, 1, 1) || !operand(node.children[0], field))
        return false;
    node.kind = NodeKind::Neighbour;
    node.slot = step;
    node.type = field.type;
    result.uses.order = true;
    return true;
}

bool Checker::groupName(Node& node)
{
    Operand by;
    if (!argumentCount(node, 1, 1) || !operand(node.children[0], by))
        return false;
    node.index = m_names.group(by);
    if (node.index < 0)
        return fail(*node.children[0], u"el informe no tiene un grupo por este campo"_s);
    node.kind = NodeKind::Special;
    node.slot = static_cast<int>(Special::GroupName);
    node.type = Type::Text;
    node.children.clear();
    result.uses.order = true;
    return true;
}

} // namespace platform::print::formula
