// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/storage/sqlite/expressionwriter.h"

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"
#include "platform/storage/sqlite/functions.h"
#include "platform/text/likepattern.h"

using namespace Qt::StringLiterals;

namespace platform::storage::sqlite {

namespace {

bool isColumn(const sql::Expression& expression)
{
    return std::holds_alternative<sql::ColumnRef>(expression.node);
}

} // namespace

void ExpressionWriter::write(const sql::Expression& expression, QByteArray& text)
{
    std::visit([&](const auto& node) { writeNode(node, text); }, expression.node);
}

const Column* ExpressionWriter::column(const sql::ColumnRef& reference) const
{
    const TableDefinition& table = m_table.definition;
    if (!reference.table.isEmpty() && table.name.compare(reference.table, Qt::CaseInsensitive) != 0)
        return nullptr;
    const int position = table.columnIndex(reference.column);
    return position < 0 ? nullptr : &table.columns.at(position);
}

bool ExpressionWriter::givesText(const sql::Expression& expression) const
{
    if (const auto* reference = std::get_if<sql::ColumnRef>(&expression.node)) {
        const Column* found = column(*reference);
        return found != nullptr && found->type != ColumnType::Number;
    }
    if (const auto* binary = std::get_if<sql::Binary>(&expression.node)) {
        if (binary->op == sql::BinaryOperator::Add)
            return givesText(*binary->left) && givesText(*binary->right);
        return binary->op == sql::BinaryOperator::Concatenate;
    }
    return std::holds_alternative<sql::TextLiteral>(expression.node);
}

void ExpressionWriter::writeNode(const sql::ColumnRef& reference, QByteArray& text)
{
    const Column* found = column(reference);
    if (found == nullptr)
        throw Failure(kUnknownColumn, reference.column);
    text += quoted(m_table.definition.name) + '.' + quoted(found->name);
}

void ExpressionWriter::writeValue(Value value, QByteArray& text)
{
    m_values.push_back(std::move(value));
    text += '?' + QByteArray::number(m_values.size());
}

void ExpressionWriter::writeNode(const sql::TextLiteral& literal, QByteArray& text)
{
    writeValue(literal.text, text);
}

void ExpressionWriter::writeNode(const sql::NumberLiteral& literal, QByteArray& text)
{
    writeValue(literal.number, text);
}

void ExpressionWriter::writeNode(const sql::NullLiteral&, QByteArray& text)
{
    text += "NULL";
}

void ExpressionWriter::writeNode(const sql::Binary& binary, QByteArray& text)
{
    switch (binary.op) {
    case sql::BinaryOperator::Equal:
        return writeComparison(binary, " = ", text);
    case sql::BinaryOperator::NotEqual:
        return writeComparison(binary, " <> ", text);
    case sql::BinaryOperator::Less:
        return writeComparison(binary, " < ", text);
    case sql::BinaryOperator::LessEqual:
        return writeComparison(binary, " <= ", text);
    case sql::BinaryOperator::Greater:
        return writeComparison(binary, " > ", text);
    case sql::BinaryOperator::GreaterEqual:
        return writeComparison(binary, " >= ", text);
    case sql::BinaryOperator::Like:
        return writeLike(binary, text);
    case sql::BinaryOperator::And:
        return writeInfix(binary, " AND ", text);
    case sql::BinaryOperator::Or:
        return writeInfix(binary, " OR ", text);
    case sql::BinaryOperator::Add:
        return writeInfix(binary, givesText(*binary.left) && givesText(*binary.right) ? " || " : " + ", text);
    case sql::BinaryOperator::Subtract:
        return writeInfix(binary, " - ", text);
    case sql::BinaryOperator::Multiply:
        return writeInfix(binary, " * ", text);
    case sql::BinaryOperator::Divide:
        return writeDivision(binary, text);
    case sql::BinaryOperator::Concatenate:
        return writeConcatenation(binary, text);
    }
}

void ExpressionWriter::writeNode(const sql::Not& negation, QByteArray& text)
{
    text += "(NOT ";
    write(*negation.operand, text);
    text += ')';
}

void ExpressionWriter::writeNode(const sql::Negate& negation, QByteArray& text)
{
    text += "(- ";
    write(*negation.operand, text);
    text += ')';
}

void ExpressionWriter::writeNode(const sql::IsNullTest& test, QByteArray& text)
{
    text += '(';
    write(*test.operand, text);
    text += test.negated ? " IS NOT NULL)" : " IS NULL)";
}

void ExpressionWriter::writeNode(const sql::Call& call, QByteArray& text)
{
    const bool isNullTest = call.name.compare("isnull"_L1, Qt::CaseInsensitive) == 0;
    const bool isInteger = call.name.compare(QLatin1String(kIntegerFunction), Qt::CaseInsensitive) == 0;
    if (!isNullTest && !isInteger)
        throw Failure(kUndefinedFunction, call.name);
    if (call.arguments.size() != 1)
        throw Failure(kSyntaxError, call.name);
    const sql::Expression& argument = *call.arguments.front();
    if (isInteger)
        return writeCall(kIntegerFunction, argument, nullptr, text);
    text += '(';
    write(argument, text);
    text += " IS NULL)";
}

void ExpressionWriter::writeCall(const char* function, const sql::Expression& first,
                                 const sql::Expression* second, QByteArray& text)
{
    text += function;
    text += '(';
    write(first, text);
    if (second != nullptr) {
        text += ", ";
        write(*second, text);
    }
    text += ')';
}

void ExpressionWriter::writeInfix(const sql::Binary& binary, const char* sign, QByteArray& text)
{
    text += '(';
    write(*binary.left, text);
    text += sign;
    write(*binary.right, text);
    text += ')';
}

void ExpressionWriter::writeComparison(const sql::Binary& binary, const char* sign, QByteArray& text)
{
    text += '(';
    write(*binary.left, text);
    text += sign;
    write(*binary.right, text);
    // A column brings its own order of text; anything else has none of itself.
    if (!isColumn(*binary.left) && !isColumn(*binary.right))
        text += QByteArray(" COLLATE ") + kCollation;
    text += ')';
}

void ExpressionWriter::writeLike(const sql::Binary& binary, QByteArray& text)
{
    // A broken pattern fails the query even when there is no row to try it on.
    if (const auto* pattern = std::get_if<sql::TextLiteral>(&binary.right->node))
        static_cast<void>(likeMatches(QString(), pattern->text));
    writeCall(kLikeFunction, *binary.left, binary.right.get(), text);
}

void ExpressionWriter::writeDivision(const sql::Binary& binary, QByteArray& text)
{
    // Division of whole numbers keeps its fraction.
    text += "(CAST(";
    write(*binary.left, text);
    text += " AS REAL) / ";
    write(*binary.right, text);
    text += ')';
}

void ExpressionWriter::writeConcatenation(const sql::Binary& binary, QByteArray& text)
{
    text += '(';
    writeCall(kTextFunction, *binary.left, nullptr, text);
    text += " || ";
    writeCall(kTextFunction, *binary.right, nullptr, text);
    text += ')';
}

} // namespace platform::storage::sqlite
