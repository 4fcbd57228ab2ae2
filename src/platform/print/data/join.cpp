// SPDX-License-Identifier: GPL-3.0-or-later
// How records come about: the rows of table 0, each with its matches in the other tables, filtered and
// selected.
#include "platform/print/data/keys.h"
#include "platform/print/data/records.h"

#include <algorithm>

namespace platform::print {

void Records::beginLoad(std::vector<RowStore> tables)
{
    m_tables = std::move(tables);
    const std::size_t width = m_current.size();
    const quint32 count = m_tables[0].rowCount();
    m_rows.assign(count * width, kNoRow);
    for (quint32 row = 0; row < count; ++row)
        m_rows[row * width] = row;
    m_load = std::make_unique<Load>();
}

bool Records::loadStep()
{
    const bool joins = m_load->table < m_current.size();
    if (joins ? joinStep() : select())
        return true;
    if (joins) {
        m_rows = std::move(m_load->joined);
        const std::size_t next = m_load->table + 1;
        *m_load = Load();
        m_load->table = next;
        return true;
    }
    m_load.reset();
    return false;
}

quint32 Records::loadedRecords() const
{
    return static_cast<quint32>(m_rows.size() / m_current.size());
}

bool Records::joinStep()
{
    const std::size_t table = m_load->table;
    if (m_load->record == 0 && m_load->row == 0)
        m_load->joined.reserve(m_rows.size());
    if (m_report.tables[table].condition)
        return joinByCondition();
    return m_load->row < m_tables[table].rowCount() ? takeKeys() : joinByLinks();
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

/// The keys of the table's next rows.
bool Records::takeKeys()
{
    const std::size_t table = m_load->table;
    m_current.assign(m_current.size(), kNoRow);
    const quint32 end = std::min(m_load->row + kRecordsAStep, m_tables[table].rowCount());
    for (; m_load->row < end; ++m_load->row) {
        m_current[table] = m_load->row;
        const QByteArray key = linkKey(m_report.tables[table].links, false);
        if (!key.isEmpty())
            m_load->rowsByKey[key].push_back(m_load->row);
    }
    return true;
}

/// The matches of the next records. False when every record has its own.
bool Records::joinByLinks()
{
    const std::vector<TableLink>& links = m_report.tables[m_load->table].links;
    const quint32 end = std::min(m_load->record + kRecordsAStep, loadedRecords());
    for (; m_load->record < end; ++m_load->record) {
        enter(m_load->record);
        const auto found = m_load->rowsByKey.constFind(linkKey(links, true));
        append(m_load->record, found == m_load->rowsByKey.constEnd() ? std::span<const quint32>()
                                                                     : std::span<const quint32>(*found));
    }
    return end < loadedRecords();
}

/// The matches of the next record, or of the next ones where all have the same.
bool Records::joinByCondition()
{
    const std::size_t table = m_load->table;
    const bool constant = m_binder.conditionIsConstant(table);
    const quint32 end = std::min(m_load->record + (constant ? kRecordsAStep : 1), loadedRecords());
    for (; m_load->record < end; ++m_load->record) {
        enter(m_load->record);
        if (m_load->record == 0 || !constant) {
            m_load->matches.clear();
            for (quint32 row = 0; row < m_tables[table].rowCount(); ++row) {
                m_current[table] = row;
                if (met(*m_report.tables[table].condition))
                    m_load->matches.push_back(row);
            }
        }
        append(m_load->record, m_load->matches);
    }
    return end < loadedRecords();
}

void Records::append(quint32 record, std::span<const quint32> matches)
{
    static constexpr quint32 none[] = {kNoRow};
    const Table& definition = m_report.tables[m_load->table];
    if (matches.empty() && definition.optional)
        matches = none;
    if (definition.maxRows > 0)
        matches = matches.first(std::min(matches.size(), static_cast<std::size_t>(definition.maxRows)));
    const std::size_t width = m_current.size();
    for (const quint32 match : matches) {
        for (std::size_t i = 0; i < width; ++i)
            m_load->joined.push_back(i == m_load->table ? match : m_rows[record * width + i]);
    }
}

/// Filter and selection of the next records. False when all have been tried.
bool Records::select()
{
    const quint32 records = loadedRecords();
    const quint32 end = std::min(m_load->record + kRecordsAStep, records);
    for (; m_load->record < end; ++m_load->record) {
        enter(m_load->record);
        if (!met(m_report.filter) || !met(m_report.selection))
            continue;
        for (const quint32 row : m_current)
            m_rows[m_load->kept++] = row;
    }
    if (end < records)
        return true;
    m_rows.resize(m_load->kept);
    return false;
}

} // namespace platform::print
