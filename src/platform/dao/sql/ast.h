// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Syntax tree of the stores' query language: one SELECT over one table, or one DROP INDEX. Nothing else is
// accepted, so a text typed by a user can never do more than select.

#include <QString>

#include <memory>
#include <optional>
#include <variant>
#include <vector>

namespace platform::sql {

struct Expression;
using ExpressionPtr = std::unique_ptr<Expression>;

/// `column` or `table.column`.
struct ColumnRef
{
    QString table; ///< empty when not qualified
    QString column;
};

struct TextLiteral
{
    QString text;
};

struct NumberLiteral
{
    double number = 0;
};

struct NullLiteral
{
};

enum class BinaryOperator {
    Equal,
    NotEqual,
    Less,
    LessEqual,
    Greater,
    GreaterEqual,
    Like,
    And,
    Or,
    Add,
    Subtract,
    Multiply,
    Divide,
    Concatenate
};

struct Binary
{
    BinaryOperator op;
    ExpressionPtr left;
    ExpressionPtr right;
};

struct Not
{
    ExpressionPtr operand;
};

struct Negate
{
    ExpressionPtr operand;
};

/// `operand IS [NOT] NULL`.
struct IsNullTest
{
    ExpressionPtr operand;
    bool negated = false;
};

/// `name(arguments)`; names are checked when the query is bound.
struct Call
{
    QString name;
    std::vector<ExpressionPtr> arguments;
};

struct Expression
{
    std::variant<ColumnRef, TextLiteral, NumberLiteral, NullLiteral, Binary, Not, Negate, IsNullTest, Call>
        node;
};

/// `*` or `table.*`.
struct AllColumns
{
    QString table;
};

struct SelectItem
{
    std::variant<AllColumns, ExpressionPtr> what;
    QString alias; ///< without quotes; empty when none was given
};

struct OrderItem
{
    ExpressionPtr expression;
    bool descending = false;
};

struct Select
{
    std::vector<SelectItem> items;
    QString table;
    ExpressionPtr where; ///< null when there is none
    std::vector<OrderItem> orderBy;
};

struct DropIndex
{
    QString index;
    QString table;
};

} // namespace platform::sql
