// SPDX-License-Identifier: GPL-3.0-or-later
// Sorting, grouping, the group selection and totals.
#include "platform/print/data/keys.h"
#include "platform/print/data/records.h"
#include "platform/print/formula/compare.h"

#include <QSet>

#include <algorithm>
#include <numeric>

namespace platform::print {
namespace {

using formula::TotalKind;
using formula::Value;

/// A level of sorting; the rank of a group's own field tells its groups apart.
struct Level
{
    const formula::Formula* formula = nullptr;
    bool descending = false;
    bool isGroup = false;
};

std::vector<Level> levelsOf(const Report& report)
{
    std::vector<Level> levels;
    for (const Group& group : report.groups) {
        if (group.key)
            levels.push_back({&*group.key, group.descending, false});
        levels.push_back({&group.field, group.descending, true});
    }
    for (const SortField& field : report.sorting)
        levels.push_back({&field.field, field.descending, false});
    return levels;
}

/// One total under way.
class Sum
{
public:
    Sum(TotalKind kind, bool caseSensitive)
        : m_kind(kind)
        , m_caseSensitive(caseSensitive)
    {}

    void add(const Value& value)
    {
        if (!formula::hasValue(value))
            return;
        ++m_count;
        if (m_kind == TotalKind::Sum || m_kind == TotalKind::Average)
            m_sum += std::get<double>(value);
        else if (m_kind == TotalKind::DistinctCount)
            m_different.insert(valueKey(value, m_caseSensitive));
        else if (m_kind == TotalKind::Minimum || m_kind == TotalKind::Maximum)
            keepExtreme(value);
    }

    [[nodiscard]] Value result() const
    {
        switch (m_kind) {
        case TotalKind::Sum:
            return m_sum;
        case TotalKind::Count:
            return static_cast<double>(m_count);
        case TotalKind::DistinctCount:
            return static_cast<double>(m_different.size());
        case TotalKind::Average:
            return m_count == 0 ? Value() : Value(m_sum / static_cast<double>(m_count));
        default:
            return m_extreme;
        }
    }

private:
    void keepExtreme(const Value& value)
    {
        const int order =
            formula::hasValue(m_extreme) ? formula::compareValues(value, m_extreme, m_caseSensitive) : 0;
        const bool better = m_kind == TotalKind::Minimum ? order < 0 : order > 0;
        if (!formula::hasValue(m_extreme) || better)
            m_extreme = value;
    }

    TotalKind m_kind;
    bool m_caseSensitive;
    double m_sum = 0;
    qint64 m_count = 0;
    QSet<QByteArray> m_different;
    Value m_extreme;
};

} // namespace

View Records::arrange(std::vector<quint32> records)
{
    View view;
    const std::vector<Level> levels = levelsOf(m_report);
    std::vector<std::vector<quint32>> places;
    for (const Level& level : levels) {
        std::vector<QByteArray> keys;
        keys.reserve(records.size());
        for (const quint32 record : records) {
            const formula::Outcome outcome = evaluateRecord(*level.formula, record);
            m_invalid += outcome.fault ? 1 : 0;
            keys.push_back(outcome.fault ? QByteArray() : valueKey(outcome.value, m_options.caseSensitive));
        }
        places.push_back(ranks(keys, level.descending));
    }
    std::vector<quint32> order(records.size());
    std::iota(order.begin(), order.end(), 0u);
    std::stable_sort(order.begin(), order.end(), [&places](quint32 left, quint32 right) {
        for (const std::vector<quint32>& place : places) {
            if (place[left] != place[right])
                return place[left] < place[right];
        }
        return false;
    });
    view.groups.resize(m_report.groups.size());
    for (quint32 position = 0; position < order.size(); ++position) {
        view.order.push_back(records[order[position]]);
        bool starts = position == 0;
        std::size_t group = 0;
        for (std::size_t i = 0; i < levels.size(); ++i) {
            if (!levels[i].isGroup)
                continue;
            starts = starts || places[i][order[position]] != places[i][order[position - 1]];
            if (starts)
                view.groups[group].push_back({position, position});
            view.groups[group].back().last = position;
            ++group;
        }
    }
    keepChosenGroups(view);
    view.totals.assign(m_binder.totals().size(), {});
    return view;
}

/// The group formula is tried on the first record of each innermost group.
void Records::keepChosenGroups(View& view)
{
    if (view.groups.empty() || m_report.groupSelection.isEmpty())
        return;
    View* const before = m_view;
    m_view = &view;
    std::vector<bool> chosen;
    for (const Span& span : view.groups.back()) {
        setPosition(span.first);
        chosen.push_back(met(m_report.groupSelection));
    }
    m_view = before;
    View kept;
    kept.groups.resize(view.groups.size());
    std::vector<std::size_t> last(view.groups.size(), view.size());
    for (quint32 position = 0; position < view.size(); ++position) {
        if (!chosen[view.groupAt(view.groups.size() - 1, position)])
            continue;
        const quint32 now = kept.size();
        kept.order.push_back(view.order[position]);
        for (std::size_t level = 0; level < view.groups.size(); ++level) {
            const std::size_t group = view.groupAt(level, position);
            if (last[level] != group)
                kept.groups[level].push_back({now, now});
            last[level] = group;
            kept.groups[level].back().last = now;
        }
    }
    view = std::move(kept);
}

Value Records::total(int slot)
{
    if (m_view == nullptr)
        return {};
    const auto place = static_cast<std::size_t>(slot);
    if (m_view->totals[place].empty())
        computeTotal(place);
    const int group = m_binder.totals()[place].group;
    if (group < 0)
        return m_view->totals[place].front();
    const auto level = static_cast<std::size_t>(group);
    if (m_position >= m_view->size())
        return {};
    return m_view->totals[place][m_view->groupAt(level, m_position)];
}

void Records::computeTotal(std::size_t slot)
{
    const TotalRequest& request = m_binder.totals()[slot];
    const quint32 here = m_position;
    const Span whole{0, m_view->size() == 0 ? 0 : m_view->size() - 1};
    const std::vector<Span> spans = request.group < 0
                                        ? std::vector<Span>{whole}
                                        : m_view->groups[static_cast<std::size_t>(request.group)];
    std::vector<Value> results;
    for (const Span& span : spans) {
        Sum sum(request.kind, m_options.caseSensitive);
        for (quint32 position = span.first; position <= span.last && position < m_view->size(); ++position) {
            setPosition(position);
            sum.add(operand(request.field));
        }
        results.push_back(sum.result());
    }
    m_view->totals[slot] = std::move(results);
    setPosition(here);
}

} // namespace platform::print
