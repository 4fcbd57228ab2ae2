// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/storage/sqlite/querywriter.h"

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"
#include "platform/storage/sqlite/expressionwriter.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace platform::storage::sqlite {

namespace {

constexpr int kNumberSize = 8;
/// First number of the names that unnamed expressions get: Expr1000, Expr1001, ...
constexpr int kFirstExpression = 1000;

class QueryWriter
{
public:
    QueryWriter(const sql::Select& select, const StoredTable& table)
        : m_select(select)
        , m_table(table)
        , m_expressions(table)
    {}

    WrittenQuery write()
    {
        m_query.wholeRows = m_select.items.size() == 1 && isAll(m_select.items.front());
        m_query.sql = "SELECT ";
        if (m_query.wholeRows)
            m_query.sql += rowNumber();
        for (const sql::SelectItem& item : m_select.items)
            writeItem(item);
        m_query.sql += " FROM " + quoted(m_table.definition.name);
        if (m_select.where) {
            m_query.sql += " WHERE ";
            m_expressions.write(*m_select.where, m_query.sql);
        }
        writeOrder();
        m_query.values = std::move(m_expressions.values());
        return std::move(m_query);
    }

private:
    static bool isAll(const sql::SelectItem& item)
    {
        return std::holds_alternative<sql::AllColumns>(item.what);
    }

    void writeItem(const sql::SelectItem& item)
    {
        if (const auto* all = std::get_if<sql::AllColumns>(&item.what))
            return writeAll(*all);
        const sql::Expression& expression = *std::get<sql::ExpressionPtr>(item.what);
        separate();
        m_expressions.write(expression, m_query.sql);
        m_query.columns.push_back(resultColumn(expression, item.alias));
    }

    void writeAll(const sql::AllColumns& all)
    {
        if (!all.table.isEmpty() && all.table.compare(m_table.definition.name, Qt::CaseInsensitive) != 0)
            throw Failure(kInputTableNotFound, all.table);
        for (const Column& column : m_table.definition.columns) {
            separate();
            m_query.sql += quoted(m_table.definition.name) + '.' + quoted(column.name);
            m_query.columns.push_back(declared(column));
        }
    }

    /// Puts a comma before every column but the first of all.
    void separate()
    {
        if (m_query.wholeRows || !m_query.columns.empty())
            m_query.sql += ", ";
    }

    QByteArray rowNumber() const { return quoted(m_table.definition.name) + '.' + m_table.rowId; }

    static ResultColumn declared(const Column& column)
    {
        const int size = column.type == ColumnType::Number ? kNumberSize : column.size;
        return {column.name, column.type, size};
    }

    ResultColumn resultColumn(const sql::Expression& expression, const QString& alias)
    {
        ResultColumn result;
        if (const auto* reference = std::get_if<sql::ColumnRef>(&expression.node))
            result = declared(*m_expressions.column(*reference));
        else if (m_expressions.givesText(expression))
            result = {unnamed(), ColumnType::Text, 0};
        else
            result = {unnamed(), ColumnType::Number, kNumberSize};
        if (!alias.isEmpty())
            result.name = alias;
        return result;
    }

    QString unnamed() const { return u"Expr"_s + QString::number(kFirstExpression + m_query.columns.size()); }

    void writeOrder()
    {
        m_query.sql += " ORDER BY ";
        bool descending = false;
        for (const sql::OrderItem& item : m_select.orderBy) {
            writeOrderItem(*item.expression);
            descending = item.descending;
            m_query.sql += descending ? " DESC, " : ", ";
        }
        // Equal rows come in the order of their making, or against it, so that an index can serve.
        m_query.sql += rowNumber() + (descending ? " DESC" : "");
    }

    void writeOrderItem(const sql::Expression& expression)
    {
        if (const sql::Expression* named = selected(expression))
            m_expressions.write(*named, m_query.sql);
        else if (const std::optional<std::size_t> place = position(expression))
            m_query.sql += QByteArray::number(static_cast<qulonglong>(*place) + (m_query.wholeRows ? 1 : 0));
        else
            m_expressions.write(expression, m_query.sql);
    }

    /// The selected expression whose alias the order names; a column of the table goes before.
    const sql::Expression* selected(const sql::Expression& expression) const
    {
        const auto* reference = std::get_if<sql::ColumnRef>(&expression.node);
        if (reference == nullptr || !reference->table.isEmpty() ||
            m_expressions.column(*reference) != nullptr)
            return nullptr;
        for (const sql::SelectItem& item : m_select.items) {
            if (!isAll(item) && item.alias.compare(reference->column, Qt::CaseInsensitive) == 0)
                return std::get<sql::ExpressionPtr>(item.what).get();
        }
        return nullptr;
    }

    /// A whole number in the order means the selected column at that place.
    std::optional<std::size_t> position(const sql::Expression& expression) const
    {
        const auto* literal = std::get_if<sql::NumberLiteral>(&expression.node);
        if (literal == nullptr || std::trunc(literal->number) != literal->number || literal->number < 1 ||
            literal->number > static_cast<double>(m_query.columns.size()))
            return std::nullopt;
        return static_cast<std::size_t>(literal->number);
    }

    const sql::Select& m_select;
    const StoredTable& m_table;
    ExpressionWriter m_expressions;
    WrittenQuery m_query;
};

} // namespace

WrittenQuery writeQuery(const sql::Select& select, const StoredTable& table)
{
    return QueryWriter(select, table).write();
}

} // namespace platform::storage::sqlite
