// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/data/arrange.h"

#include "platform/print/data/keys.h"
#include "platform/print/data/records.h"

#include <algorithm>
#include <numeric>

namespace platform::print {
namespace {

/// Places that are only looked up, not evaluated: some hundred microseconds.
constexpr quint32 kPlacesAStep = 4096;

} // namespace

Arranger::Arranger(Records& records, std::vector<quint32> numbers)
    : m_records(records)
    , m_numbers(std::move(numbers))
{
    const Report& report = records.report();
    for (const Group& group : report.groups) {
        if (group.key)
            m_levels.push_back({&*group.key, group.descending, false});
        m_levels.push_back({&group.field, group.descending, true});
    }
    for (const SortField& field : report.sorting)
        m_levels.push_back({&field.field, field.descending, false});
    m_order.resize(m_numbers.size());
    std::iota(m_order.begin(), m_order.end(), 0u);
    m_view.groups.resize(report.groups.size());
    if (m_levels.empty())
        m_stage = Stage::Grouping;
}

bool Arranger::step()
{
    switch (m_stage) {
    case Stage::Keys:
        if (m_places.size() == m_levels.size() || !takeKeys())
            beginSort();
        return true;
    case Stage::Sorting:
        if (m_sort->step())
            return true;
        m_sort.reset();
        m_at = 0;
        m_stage = m_places.size() < m_levels.size() ? Stage::Ranking : Stage::Grouping;
        if (m_stage == Stage::Ranking)
            m_places.emplace_back(m_order.size());
        m_place = 0;
        return true;
    case Stage::Ranking:
        if (!rank()) {
            m_keys.clear();
            m_stage = Stage::Keys;
        }
        return true;
    case Stage::Grouping:
        if (!group()) {
            m_at = 0;
            const bool chooses = !m_view.groups.empty() && !m_records.report().groupSelection.isEmpty();
            m_stage = chooses ? Stage::Choosing : Stage::Ready;
        }
        return true;
    case Stage::Choosing:
        if (!choose()) {
            m_at = 0;
            m_kept.groups.resize(m_view.groups.size());
            m_last.assign(m_view.groups.size(), m_view.size());
            m_stage = Stage::Keeping;
        }
        return true;
    case Stage::Keeping:
        if (!keep()) {
            m_view = std::move(m_kept);
            m_stage = Stage::Ready;
        }
        return true;
    case Stage::Ready:
        m_view.totals.assign(m_records.totalCount(), {});
        return false;
    }
    return false;
}

/// The keys of the next level. False when every record has one.
bool Arranger::takeKeys()
{
    const Level& level = m_levels[m_places.size()];
    const auto end = std::min(m_keys.size() + kRecordsAStep, m_numbers.size());
    m_keys.reserve(m_numbers.size());
    while (m_keys.size() < end) {
        const formula::Outcome outcome = m_records.evaluateRecord(*level.formula, m_numbers[m_keys.size()]);
        if (outcome.fault)
            m_records.countUnplaced();
        m_keys.push_back(outcome.fault ? QByteArray()
                                       : valueKey(outcome.value, m_records.options().caseSensitive));
    }
    return end < m_numbers.size();
}

/// By the keys of a level, or at last by the places on every level.
void Arranger::beginSort()
{
    std::iota(m_order.begin(), m_order.end(), 0u);
    m_stage = Stage::Sorting;
    if (m_places.size() < m_levels.size()) {
        m_sort.emplace(m_order, [this](quint32 left, quint32 right) { return m_keys[left] < m_keys[right]; });
        return;
    }
    m_sort.emplace(m_order, [this](quint32 left, quint32 right) {
        for (const std::vector<quint32>& place : m_places) {
            if (place[left] != place[right])
                return place[left] < place[right];
        }
        return false;
    });
}

/// Gives the next keys of the level their place among the different keys. False when each has one.
bool Arranger::rank()
{
    const bool descending = m_levels[m_places.size() - 1].descending;
    const auto end = static_cast<quint32>(std::min<std::size_t>(m_at + kPlacesAStep, m_order.size()));
    for (; m_at < end; ++m_at) {
        const quint32 here = m_order[m_at];
        m_place += m_at > 0 && m_keys[here] != m_keys[m_order[m_at - 1]] ? 1u : 0u;
        // The complement of a number turns the order round.
        m_places.back()[here] = descending ? ~m_place : m_place;
    }
    return m_at < m_order.size();
}

/// Puts the next records into their groups. False when all are in.
bool Arranger::group()
{
    const auto end = static_cast<quint32>(std::min<std::size_t>(m_at + kPlacesAStep, m_order.size()));
    for (; m_at < end; ++m_at) {
        m_view.order.push_back(m_numbers[m_order[m_at]]);
        bool starts = m_at == 0;
        std::size_t group = 0;
        for (std::size_t i = 0; i < m_levels.size(); ++i) {
            if (!m_levels[i].isGroup)
                continue;
            starts = starts || m_places[i][m_order[m_at]] != m_places[i][m_order[m_at - 1]];
            if (starts)
                m_view.groups[group].push_back({m_at, m_at});
            m_view.groups[group].back().last = m_at;
            ++group;
        }
    }
    return m_at < m_order.size();
}

/// Tries the group formula on the first record of the next innermost groups. False when all are tried.
bool Arranger::choose()
{
    View* const before = m_records.view();
    m_records.setView(&m_view);
    const std::vector<Span>& groups = m_view.groups.back();
    const auto end = static_cast<quint32>(std::min<std::size_t>(m_at + kRecordsAStep, groups.size()));
    for (; m_at < end; ++m_at) {
        m_records.setPosition(groups[m_at].first);
        m_chosen.push_back(m_records.met(m_records.report().groupSelection));
    }
    m_records.setView(before);
    return m_at < groups.size();
}

/// Takes the next records of chosen groups over. False when all are looked at.
bool Arranger::keep()
{
    const quint32 end = std::min(m_at + kPlacesAStep, m_view.size());
    for (; m_at < end; ++m_at) {
        if (!m_chosen[m_view.groupAt(m_view.groups.size() - 1, m_at)])
            continue;
        const quint32 now = m_kept.size();
        m_kept.order.push_back(m_view.order[m_at]);
        for (std::size_t level = 0; level < m_view.groups.size(); ++level) {
            const std::size_t group = m_view.groupAt(level, m_at);
            if (m_last[level] != group)
                m_kept.groups[level].push_back({now, now});
            m_last[level] = group;
            m_kept.groups[level].back().last = now;
        }
    }
    return m_at < m_view.size();
}

} // namespace platform::print
