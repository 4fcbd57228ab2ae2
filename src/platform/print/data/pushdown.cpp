// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/data/pushdown.h"

#include "platform/print/formula/functions.h"
#include "platform/print/formula/to_text.h"
#include "platform/storage/sqlite/handle.h"

#include <optional>

namespace platform::print {
namespace {

using formula::Node;
using formula::NodeKind;
using formula::Op;
using formula::Type;

bool pushdownOn = true;

/// SQL of one formula; nothing from a method means "can't be pushed".
class Writer
{
public:
    Writer(const std::vector<Slot>& slots, const std::vector<SourceColumn>& columns,
           const formula::Options& options)
        : m_slots(slots)
        , m_columns(columns)
        , m_options(options)
    {}

    void terms(const Node& node, QByteArrayList& found) const
    {
        if (node.kind == NodeKind::Binary && node.op == Op::And) {
            terms(*node.children[0], found);
            terms(*node.children[1], found);
        } else if (const std::optional<QByteArray> sql = term(node)) {
            found += *sql;
        }
    }

private:
    using Sql = std::optional<QByteArray>;

    Sql term(const Node& node) const
    {
        if (node.kind == NodeKind::IsNull)
            return nullTest(node);
        if (node.kind != NodeKind::Binary)
            return std::nullopt;
        return node.op == Op::In ? membership(node) : comparison(node);
    }

    Sql nullTest(const Node& node) const
    {
        const Node& field = *node.children[0];
        const Sql column = field.kind == NodeKind::Field ? plainColumn(field) : std::nullopt;
        return column ? Sql(*column + " IS NULL") : std::nullopt;
    }

    Sql plainColumn(const Node& field) const
    {
        const Slot& slot = m_slots[static_cast<std::size_t>(field.slot)];
        if (slot.table != 0)
            return std::nullopt;
        return storage::sqlite::quoted(m_columns[static_cast<std::size_t>(slot.column)].name);
    }

    /// A column, or a function of one, as the formulas read it.
    Sql operand(const Node& node) const
    {
        if (node.kind == NodeKind::Field) {
            const Sql column = plainColumn(node);
            if (!column)
                return std::nullopt;
            const bool text = node.type == Type::Text;
            const QByteArray read = (text ? "report_text(" : "report_number(") + *column + ')';
            return m_options.nullsAsEmpty ? "ifnull(" + read + (text ? ",'')" : ",0.0)") : read;
        }
        if (node.kind != NodeKind::Call)
            return std::nullopt;
        const QByteArray name = node.name.toLower().toUtf8();
        const bool lengths = name == "length" || name == "len";
        if ((lengths || name == "val") && node.children.size() == 1) {
            const Sql inner = operand(*node.children[0]);
            return inner ? Sql((lengths ? "report_length(" : "report_val(") + *inner + ')') : std::nullopt;
        }
        return name == "mid" || name == "left" || name == "right" ? part(node, name) : std::nullopt;
    }

    Sql part(const Node& node, const QByteArray& name) const
    {
        const Sql inner = operand(*node.children[0]);
        if (!inner)
            return std::nullopt;
        QByteArray sql = "report_" + name + '(' + *inner;
        for (std::size_t i = 1; i < node.children.size(); ++i) {
            const auto* number = std::get_if<double>(&node.children[i]->constant);
            const bool start = name == "mid" && i == 1;
            // What would be a value error stays with the formula.
            if (node.children[i]->kind != NodeKind::Constant || number == nullptr || *number > 1'000'000 ||
                *number < (start ? 1 : 0))
                return std::nullopt;
            sql += ',' + QByteArray::number(static_cast<qint64>(*number));
        }
        return sql + ')';
    }

    static Sql constant(const Node& node)
    {
        if (node.kind != NodeKind::Constant)
            return std::nullopt;
        if (const auto* text = std::get_if<QString>(&node.constant)) {
            QByteArray bytes = text->toUtf8();
            return '\'' + bytes.replace('\'', "''") + '\'';
        }
        if (const auto* number = std::get_if<double>(&node.constant)) {
            const QByteArray digits = formula::plainNumber(*number).toLatin1();
            return digits.contains('.') ? digits : digits + ".0";
        }
        return std::nullopt;
    }

    QByteArray compared(const QByteArray& left, const QByteArray& right, const char* sign) const
    {
        const QByteArray sense = m_options.caseSensitive ? "1" : "0";
        return "report_compare(" + left + ',' + right + ',' + sense + ')' + sign + '0';
    }

    Sql comparison(const Node& node) const
    {
        const Sql first = operand(*node.children[0]);
        const Sql left = first ? first : operand(*node.children[1]);
        const Sql right = constant(*node.children[first ? 1 : 0]);
        const char* sign = signOf(node.op, !first);
        if (sign == nullptr || !left || !right)
            return std::nullopt;
        return compared(*left, *right, sign);
    }

    static const char* signOf(Op op, bool turned)
    {
        switch (op) {
        case Op::Equal:
            return "=";
        case Op::NotEqual:
            return "<>";
        case Op::Less:
            return turned ? ">" : "<";
        case Op::Greater:
            return turned ? "<" : ">";
        case Op::LessEqual:
            return turned ? ">=" : "<=";
        case Op::GreaterEqual:
            return turned ? "<=" : ">=";
        default:
            return nullptr;
        }
    }

    Sql membership(const Node& node) const
    {
        const Sql left = operand(*node.children[0]);
        const Node& set = *node.children[1];
        if (!left)
            return std::nullopt;
        if (set.kind == NodeKind::Range)
            return inRange(*left, set);
        if (set.kind != NodeKind::List || set.children.empty())
            return std::nullopt;
        QByteArrayList choices;
        for (const formula::NodePtr& entry : set.children) {
            const Sql value = entry->kind == NodeKind::Range ? std::nullopt : constant(*entry);
            const Sql choice = entry->kind == NodeKind::Range ? inRange(*left, *entry)
                               : value                        ? Sql(compared(*left, *value, "="))
                                                              : std::nullopt;
            if (!choice)
                return std::nullopt;
            choices += *choice;
        }
        return '(' + choices.join(" OR ") + ')';
    }

    Sql inRange(const QByteArray& left, const Node& range) const
    {
        QByteArrayList bounds;
        for (std::size_t i = 0; i < 2; ++i) {
            if (!range.children[i])
                continue;
            const Sql bound = constant(*range.children[i]);
            if (!bound)
                return std::nullopt;
            const char* sign = i == 0 ? (range.fromOpen ? ">" : ">=") : (range.toOpen ? "<" : "<=");
            bounds += compared(left, *bound, sign);
        }
        return '(' + bounds.join(" AND ") + ')';
    }

    const std::vector<Slot>& m_slots;
    const std::vector<SourceColumn>& m_columns;
    const formula::Options& m_options;
};

} // namespace

QByteArray pushedCondition(const std::vector<const formula::Formula*>& conditions,
                           const std::vector<Slot>& slots, const std::vector<SourceColumn>& columns,
                           const formula::Options& options)
{
    QByteArrayList found;
    if (pushdownOn) {
        const Writer writer(slots, columns, options);
        for (const formula::Formula* condition : conditions) {
            if (condition->root() != nullptr)
                writer.terms(*condition->root(), found);
        }
    }
    return found.join(" AND ");
}

void setPushdown(bool on)
{
    pushdownOn = on;
}

bool pushdownIsOn()
{
    return pushdownOn;
}

} // namespace platform::print
