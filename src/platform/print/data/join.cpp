// SPDX-License-Identifier: GPL-3.0-or-later
// How records come about: the rows of table 0, each with its matches in the other tables, filtered and
// selected.
#include "platform/print/data/keys.h"
#include "platform/print/data/records.h"
#include "platform/print/problem.h"

#include <QHash>

#include <numeric>

using namespace Qt::StringLiterals;

namespace platform::print {
namespace {

/// Most rows of a table that is joined by a condition.
constexpr quint32 kMaxConditionRows = 10'000;

} // namespace

void Records::load(std::vector<RowStore> tables)
{
    m_tables = std::move(tables);
    const std::size_t width = m_current.size();
    const quint32 count = m_tables[0].rowCount();
    m_rows.assign(count * width, kNoRow);
    for (quint32 row = 0; row < count; ++row)
        m_rows[row * width] = row;
    for (std::size_t table = 1; table < width; ++table)
        join(table);
    select();
}

void Records::join(std::size_t table)
{
    std::vector<quint32> joined;
    joined.reserve(m_rows.size());
    if (m_report.tables[table].condition)
        joinByCondition(table, joined);
    else
        joinByLinks(table, joined);
    m_rows = std::move(joined);
}

/// The values of one side of the links as one key; empty when one of them has no value, which matches
/// nothing.
QByteArray Records::linkKey(const std::vector<TableLink>& links, bool with)
{
    QByteArray key;
    for (const TableLink& link : links) {
        const formula::Outcome outcome = (with ? link.with : link.field).evaluate(*this);
        if (outcome.fault || !formula::hasValue(outcome.value))
            return {};
        const QByteArray part = valueKey(outcome.value, m_options.caseSensitive);
        key += QByteArray::number(part.size()) + ':' + part;
    }
    return key;
}

void Records::joinByLinks(std::size_t table, std::vector<quint32>& joined)
{
    const std::vector<TableLink>& links = m_report.tables[table].links;
    QHash<QByteArray, std::vector<quint32>> rowsByKey;
    m_current.assign(m_current.size(), kNoRow);
    for (quint32 row = 0; row < m_tables[table].rowCount(); ++row) {
        m_current[table] = row;
        const QByteArray key = linkKey(links, false);
        if (!key.isEmpty())
            rowsByKey[key].push_back(row);
    }
    const auto records = static_cast<quint32>(m_rows.size() / m_current.size());
    for (quint32 record = 0; record < records; ++record) {
        enter(record);
        const auto found = rowsByKey.constFind(linkKey(links, true));
        append(joined, record, table,
               found == rowsByKey.constEnd() ? std::span<const quint32>() : std::span<const quint32>(*found));
    }
}

void Records::joinByCondition(std::size_t table, std::vector<quint32>& joined)
{
    const quint32 rows = m_tables[table].rowCount();
    if (rows > kMaxConditionRows)
        throw Problem(kBadValue, u"la tabla «%1» tiene demasiadas filas para una condición"_s.arg(
                                     m_report.tables[table].alias));
    const auto records = static_cast<quint32>(m_rows.size() / m_current.size());
    std::vector<quint32> matches;
    for (quint32 record = 0; record < records; ++record) {
        enter(record);
        if (record == 0 || !m_binder.conditionIsConstant(table)) {
            matches.clear();
            for (quint32 row = 0; row < rows; ++row) {
                m_current[table] = row;
                if (met(*m_report.tables[table].condition))
                    matches.push_back(row);
            }
        }
        append(joined, record, table, matches);
    }
}

void Records::append(std::vector<quint32>& joined, quint32 record, std::size_t table,
                     std::span<const quint32> matches)
{
    static constexpr quint32 none[] = {kNoRow};
    const Table& definition = m_report.tables[table];
    if (matches.empty() && definition.optional)
        matches = none;
    if (definition.maxRows > 0)
        matches = matches.first(std::min(matches.size(), static_cast<std::size_t>(definition.maxRows)));
    const std::size_t width = m_current.size();
    for (const quint32 match : matches) {
        for (std::size_t i = 0; i < width; ++i)
            joined.push_back(i == table ? match : m_rows[record * width + i]);
    }
}

void Records::select()
{
    const std::size_t width = m_current.size();
    const auto records = static_cast<quint32>(m_rows.size() / width);
    std::size_t kept = 0;
    for (quint32 record = 0; record < records; ++record) {
        enter(record);
        if (!met(m_report.filter) || !met(m_report.selection))
            continue;
        for (const quint32 row : m_current)
            m_rows[kept++] = row;
    }
    m_rows.resize(kept);
}

} // namespace platform::print
