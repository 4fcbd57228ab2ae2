// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Writes one expression of a query for SQLite, collecting the values to bind.

#include "platform/dao/sql/ast.h"
#include "platform/storage/sqlite/schema.h"

namespace platform::storage::sqlite {

class ExpressionWriter
{
public:
    /// The table is borrowed.
    explicit ExpressionWriter(const StoredTable& table)
        : m_table(table)
    {}

    /// Appends the expression to `text`. 3061, 3085, 3075 as told at `writeQuery`.
    void write(const sql::Expression& expression, QByteArray& text);
    /// The column that the reference means; null when the table has none of that name.
    [[nodiscard]] const Column* column(const sql::ColumnRef& reference) const;
    /// Whether the expression gives a text, as far as it can be told before running.
    [[nodiscard]] bool givesText(const sql::Expression& expression) const;

    [[nodiscard]] std::vector<Value>& values() noexcept { return m_values; }

private:
    void writeNode(const sql::ColumnRef& reference, QByteArray& text);
    void writeNode(const sql::TextLiteral& literal, QByteArray& text);
    void writeNode(const sql::NumberLiteral& literal, QByteArray& text);
    void writeNode(const sql::NullLiteral& literal, QByteArray& text);
    void writeNode(const sql::Binary& binary, QByteArray& text);
    void writeNode(const sql::Not& negation, QByteArray& text);
    void writeNode(const sql::Negate& negation, QByteArray& text);
    void writeNode(const sql::IsNullTest& test, QByteArray& text);
    void writeNode(const sql::Call& call, QByteArray& text);
    void writeValue(Value value, QByteArray& text);
    void writeCall(const char* function, const sql::Expression& first, const sql::Expression* second,
                   QByteArray& text);
    void writeInfix(const sql::Binary& binary, const char* sign, QByteArray& text);
    void writeComparison(const sql::Binary& binary, const char* sign, QByteArray& text);
    void writeLike(const sql::Binary& binary, QByteArray& text);
    void writeDivision(const sql::Binary& binary, QByteArray& text);
    void writeConcatenation(const sql::Binary& binary, QByteArray& text);

    const StoredTable& m_table;
    std::vector<Value> m_values;
};

} // namespace platform::storage::sqlite
