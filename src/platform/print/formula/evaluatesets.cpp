// SPDX-License-Identifier: GPL-3.0-or-later
// Ranges and lists: what lies in them, what part of a text they name, their extremes.
#include "platform/print/formula/compare.h"
#include "platform/print/formula/evaluaterun.h"
#include "platform/print/formula/operate.h"

using namespace Qt::StringLiterals;

namespace platform::print::formula {

Value Run::membership(const Node& node)
{
    const Value left = value(*node.children[0]);
    if (!hasValue(left))
        return {};
    const Node& right = *node.children[1];
    if (right.kind == NodeKind::Range)
        return inRange(left, right);
    if (right.kind == NodeKind::List)
        return inList(left, right);
    const Value text = value(right);
    if (!hasValue(text))
        return {};
    return findText(std::get<QString>(text), std::get<QString>(left), m_context.options().caseSensitive) >= 0;
}

/// A moment against days counts by its day, so that the last day counts whole.
Value Run::inRange(const Value& left, const Node& range)
{
    Value bounds[2];
    bool days = true;
    for (std::size_t i = 0; i < 2; ++i) {
        if (!range.children[i])
            continue;
        bounds[i] = value(*range.children[i]);
        if (!hasValue(bounds[i]))
            return {};
        days = days && std::holds_alternative<Date>(bounds[i]);
    }
    const DateTime* moment = std::get_if<DateTime>(&left);
    const Value compared = days && moment != nullptr ? Value(Date{moment->day}) : left;
    const bool sense = m_context.options().caseSensitive;
    if (range.children[0]) {
        const int order = compareValues(compared, bounds[0], sense);
        if (order < 0 || (order == 0 && range.fromOpen))
            return false;
    }
    if (range.children[1]) {
        const int order = compareValues(compared, bounds[1], sense);
        if (order > 0 || (order == 0 && range.toOpen))
            return false;
    }
    return true;
}

Value Run::inList(const Value& left, const Node& list)
{
    for (const NodePtr& entry : list.children) {
        if (entry->kind == NodeKind::Range) {
            Value inside = inRange(left, *entry);
            if (!hasValue(inside) || std::get<bool>(inside))
                return inside;
            continue;
        }
        const Value one = value(*entry);
        if (!hasValue(one))
            return {};
        const DateTime* moment = std::get_if<DateTime>(&left);
        const bool byDay = moment != nullptr && std::holds_alternative<Date>(one);
        if (compareValues(byDay ? Value(Date{moment->day}) : left, one, m_context.options().caseSensitive) ==
            0)
            return true;
    }
    return false;
}

Value Run::subscript(const Node& node)
{
    const Value text = value(*node.children[0]);
    if (!hasValue(text))
        return {};
    const Node& place = *node.children[1];
    double bounds[2] = {1, -1};
    for (std::size_t i = 0; i < 2; ++i) {
        const Node* bound = place.kind == NodeKind::Range ? place.children[i].get() : &place;
        if (bound == nullptr)
            continue;
        const Value position = value(*bound);
        if (!hasValue(position))
            return {};
        bounds[i] = std::get<double>(position);
    }
    bounds[0] += place.kind == NodeKind::Range && place.fromOpen ? 1 : 0;
    bounds[1] -= place.kind == NodeKind::Range && place.toOpen ? 1 : 0;
    QString error;
    Value part = slice(std::get<QString>(text), bounds[0], bounds[1], error);
    return error.isEmpty() ? part : fail(node, error);
}

bool Run::better(const Node& bound, int direction, Value& best)
{
    const Value found = value(bound);
    if (!hasValue(found))
        return false;
    if (!hasValue(best) || compareValues(found, best, m_context.options().caseSensitive) * direction > 0)
        best = found;
    return true;
}

Value Run::extreme(const Node& node)
{
    const Node& set = *node.children[0];
    const auto entries = set.kind == NodeKind::List ? std::span<const NodePtr>(set.children)
                                                    : std::span<const NodePtr>(node.children.data(), 1);
    Value best;
    for (const NodePtr& entry : entries) {
        const Node* bound = entry.get();
        if (entry->kind == NodeKind::Range)
            bound = entry->children[node.slot < 0 ? 0 : 1].get();
        if (bound == nullptr)
            return fail(node, u"el intervalo no tiene límite por ese lado"_s);
        if (!better(*bound, node.slot, best))
            return {};
    }
    return best;
}

} // namespace platform::print::formula
