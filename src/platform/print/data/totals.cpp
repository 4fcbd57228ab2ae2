// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/data/totals.h"

#include "platform/print/data/keys.h"
#include "platform/print/data/records.h"
#include "platform/print/formula/compare.h"

namespace platform::print {

using formula::TotalKind;
using formula::Value;

void Sum::add(const Value& value)
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

Value Sum::result() const
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

void Sum::keepExtreme(const Value& value)
{
    const int order =
        formula::hasValue(m_extreme) ? formula::compareValues(value, m_extreme, m_caseSensitive) : 0;
    const bool better = m_kind == TotalKind::Minimum ? order < 0 : order > 0;
    if (!formula::hasValue(m_extreme) || better)
        m_extreme = value;
}

Totaller::Totaller(Records& records, const TotalRequest& request)
    : m_records(records)
    , m_request(request)
    , m_sum(request.kind, records.options().caseSensitive)
{
    const View& view = *records.view();
    if (request.group >= 0)
        m_spans = view.groups[static_cast<std::size_t>(request.group)];
    else
        m_spans = {{0, view.size() == 0 ? 0 : view.size() - 1}};
}

bool Totaller::step()
{
    for (int i = 0; i < kRecordsAStep; ++i) {
        if (m_span == m_spans.size())
            return false;
        const Span& span = m_spans[m_span];
        if (m_position < m_records.view()->size()) {
            m_records.setPosition(m_position);
            m_sum.add(m_records.operand(m_request.field));
        }
        if (m_position++ < span.last)
            continue;
        m_results.push_back(m_sum.result());
        m_sum = Sum(m_request.kind, m_records.options().caseSensitive);
        ++m_span;
    }
    return true;
}

} // namespace platform::print
