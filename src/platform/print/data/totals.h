// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// One total of a view, taken over its records a few at a time.

#include "platform/print/data/binder.h"
#include "platform/print/data/view.h"

#include <QSet>

namespace platform::print {

class Records;

/// What one group's values come to so far.
class Sum
{
public:
    Sum(formula::TotalKind kind, bool caseSensitive)
        : m_kind(kind)
        , m_caseSensitive(caseSensitive)
    {}

    /// No value is passed over.
    void add(const formula::Value& value);
    [[nodiscard]] formula::Value result() const;

private:
    void keepExtreme(const formula::Value& value);

    formula::TotalKind m_kind;
    bool m_caseSensitive;
    double m_sum = 0;
    qint64 m_count = 0;
    QSet<QByteArray> m_different;
    formula::Value m_extreme;
};

class Totaller
{
public:
    /// Over the view that the records stand in; moves their position. Both are kept by reference.
    Totaller(Records& records, const TotalRequest& request);

    /// Adds some records. False when all are added.
    bool step();
    /// One value for each group, or one for the whole report.
    [[nodiscard]] std::vector<formula::Value> takeResults() { return std::move(m_results); }

private:
    Records& m_records;
    const TotalRequest& m_request;
    std::vector<Span> m_spans;
    std::size_t m_span = 0;
    quint32 m_position = 0;
    Sum m_sum;
    std::vector<formula::Value> m_results;
};

} // namespace platform::print
