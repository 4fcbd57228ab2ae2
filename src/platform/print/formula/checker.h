// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The type checker's inside, shared by its two source files; nothing else includes it.

#include "platform/print/formula/functions.h"
#include "platform/print/formula/types.h"

#include <QHash>

namespace platform::print::formula {

/// Every method gives false once a fault is known. Methods may replace the node that they are given.
class Checker
{
public:
    explicit Checker(Names& names)
        : m_names(names)
    {}

    /// A value of any type; ranges and lists are refused.
    bool value(NodePtr& node);
    Checked result;

private:
    struct Variable
    {
        Scope scope = Scope::Global;
        int slot = -1;
        Type type = Type::Text;
    };

    bool fail(const Node& node, const QString& text, ErrorCode code = kFormulaTypes);
    bool wanted(NodePtr& node, Type type);
    bool bound(Node& node, const Binding& binding);

    // types.cpp: variables, choice, operators
    bool variable(Node& node);
    bool declaration(Node& node);
    bool assigned(Node& node, Type type);
    bool conditional(Node& node);
    bool sequence(Node& node);
    bool unary(Node& node);
    bool binary(Node& node);
    bool logical(Node& node);
    bool comparison(Node& node);
    bool arithmetic(Node& node);
    bool sum(Node& node);
    bool membership(Node& node);
    bool member(NodePtr& node, Type left);
    bool range(Node& node);
    bool subscript(Node& node);

    // checkcalls.cpp: functions
    bool call(NodePtr& node);
    bool plainCall(Node& node);
    bool specialCall(Node& node, const SpecialFunction& special);
    bool totalCall(Node& node, TotalKind kind);
    bool extremeCall(Node& node, int direction);
    bool nullTest(Node& node);
    bool neighbour(Node& node, int step);
    bool groupName(Node& node);
    bool argumentCount(const Node& node, std::size_t least, std::size_t most);
    bool operand(NodePtr& node, Operand& operand);

    Names& m_names;
    QHash<QString, Variable> m_variables;
};

/// True for a column or a formula field, the only arguments of totals and neighbours.
[[nodiscard]] inline bool isField(const Node& node) noexcept
{
    return node.kind == NodeKind::Field || node.kind == NodeKind::FormulaField;
}

} // namespace platform::print::formula
