// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sql/treetext.h"

#include <QStringList>

#include <array>

using namespace platform::sql;
using namespace Qt::StringLiterals;

namespace treetext {

namespace {

constexpr std::array<QStringView, 14> kOperators{u"=",   u"<>", u"<", u"<=", u">", u">=", u"LIKE",
                                                 u"AND", u"OR", u"+", u"-",  u"*", u"/",  u"&"};

struct Printer
{
    [[nodiscard]] QString operator()(const ColumnRef& ref) const
    {
        return ref.table.isEmpty() ? ref.column : ref.table + u'.' + ref.column;
    }
    [[nodiscard]] QString operator()(const TextLiteral& literal) const
    {
        return u'\'' + literal.text + u'\'';
    }
    [[nodiscard]] QString operator()(const NumberLiteral& literal) const
    {
        return QString::number(literal.number);
    }
    [[nodiscard]] QString operator()(const NullLiteral&) const { return u"NULL"_s; }
    [[nodiscard]] QString operator()(const Binary& binary) const
    {
        const auto name = kOperators[static_cast<std::size_t>(binary.op)];
        return u"(%1 %2 %3)"_s.arg(ofExpression(*binary.left), name, ofExpression(*binary.right));
    }
    [[nodiscard]] QString operator()(const Not& negation) const
    {
        return u"(NOT %1)"_s.arg(ofExpression(*negation.operand));
    }
    [[nodiscard]] QString operator()(const Negate& negation) const
    {
        return u"(-%1)"_s.arg(ofExpression(*negation.operand));
    }
    [[nodiscard]] QString operator()(const IsNullTest& test) const
    {
        return u"(%1 IS %2NULL)"_s.arg(ofExpression(*test.operand), test.negated ? u"NOT " : u"");
    }
    [[nodiscard]] QString operator()(const Call& call) const
    {
        QStringList arguments;
        for (const ExpressionPtr& argument : call.arguments)
            arguments.append(ofExpression(*argument));
        return u"%1(%2)"_s.arg(call.name, arguments.join(u", "_s));
    }
    [[nodiscard]] QString operator()(const AllColumns& all) const
    {
        return all.table.isEmpty() ? u"*"_s : all.table + u".*"_s;
    }
    [[nodiscard]] QString operator()(const ExpressionPtr& expression) const
    {
        return ofExpression(*expression);
    }
};

} // namespace

QString ofExpression(const Expression& expression)
{
    return std::visit(Printer(), expression.node);
}

QString ofItems(const Select& select)
{
    QStringList items;
    for (const SelectItem& item : select.items) {
        const QString what = std::visit(Printer(), item.what);
        items.append(item.alias.isEmpty() ? what : what + u" as "_s + item.alias);
    }
    return items.join(u", "_s);
}

QString ofWhere(const Select& select)
{
    return select.where ? ofExpression(*select.where) : QString();
}

QString ofOrder(const Select& select)
{
    QStringList keys;
    for (const OrderItem& key : select.orderBy)
        keys.append(ofExpression(*key.expression) + (key.descending ? u" DESC"_s : QString()));
    return keys.join(u", "_s);
}

} // namespace treetext
