// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The syntax tree of a formula. The parser makes it; the type checker fills in the lower part of a node.

#include "platform/print/formula/fault.h"
#include "platform/print/formula/value.h"

#include <memory>
#include <vector>

namespace platform::print::formula {

struct Function;

enum class NodeKind {
    Constant,     ///< constant
    Field,        ///< name = table, detail = column
    FormulaField, ///< name, without its "@"
    Variable,     ///< name
    Declaration,  ///< name, scope, type; child: the value assigned, if any
    Assignment,   ///< name; child: the value
    If,           ///< children: condition, then, and else if there is one
    Unary,        ///< op; one child
    Binary,       ///< op; two children
    Range,        ///< children: from, to; null where the range is open
    List,         ///< children: values and ranges
    Subscript,    ///< children: text, then position or range
    Call,         ///< name; children: arguments
    Sequence,     ///< children; the value is the last one's
    // Made by the type checker out of calls
    IsNull,    ///< child: the field
    Neighbour, ///< slot −1 or 1; child: the field of the record before or after
    Total,     ///< slot: the total's number
    Special,   ///< slot: a `Special`; child: its argument, if any
    Extreme,   ///< slot −1 least, 1 greatest; child: range or list
};

enum class Op {
    Add,
    Subtract,
    Multiply,
    Divide,
    Percent,
    IntegerDivide,
    Modulo,
    Power,
    Concatenate,
    Equal,
    NotEqual,
    Less,
    Greater,
    LessEqual,
    GreaterEqual,
    In,
    And,
    Or,
    Xor,
    Eqv,
    Imp,
    Not,
    Negate,
    Plus,
};

enum class Scope { Local, Global, Shared };

struct Node
{
    NodeKind kind = NodeKind::Constant;
    Position position;
    QString name;
    QString detail;
    Value constant;
    Op op = Op::Add;
    Scope scope = Scope::Global;
    bool fromOpen = false; ///< of a range: its first value doesn't belong to it
    bool toOpen = false;   ///< of a range: its last value doesn't belong to it
    int depth = 1;         ///< levels of the tree from here down
    std::vector<std::unique_ptr<Node>> children;

    Type type = Type::Text;
    int slot = -1;
    int index = -1; ///< second number, where a kind needs one: group, or 1 for a formula field
    const Function* function = nullptr;
};

using NodePtr = std::unique_ptr<Node>;

} // namespace platform::print::formula
