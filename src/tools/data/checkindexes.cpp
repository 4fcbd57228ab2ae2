// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/data/checkstore.h"

#include "platform/text/spanishorder.h"

#include <algorithm>

namespace tools {

namespace {

using platform::Value;
using platform::storage::IndexDefinition;
using platform::storage::RowId;

constexpr std::size_t kRowsPerBlock = 2000;

/// The order of the stores: Null first, then numbers, then texts.
int compareValues(const Value& left, const Value& right)
{
    if (left.index() != right.index())
        return left.index() < right.index() ? -1 : 1;
    if (const QString* text = std::get_if<QString>(&left))
        return platform::compareSpanish(*text, std::get<QString>(right));
    if (const double* number = std::get_if<double>(&left)) {
        const double other = std::get<double>(right);
        return *number < other ? -1 : static_cast<int>(*number > other);
    }
    return 0;
}

int compareKeys(std::span<const Value> left, std::span<const Value> right)
{
    for (std::size_t i = 0; i < left.size(); ++i) {
        if (const int order = compareValues(left[i], right[i]); order != 0)
            return order;
    }
    return 0;
}

bool hasNull(std::span<const Value> key)
{
    return std::any_of(key.begin(), key.end(), [](const Value& value) { return platform::isNull(value); });
}

class IndexWalk
{
public:
    IndexWalk(platform::storage::Table& table, const IndexDefinition& index, const QString& file,
              Findings& findings)
        : m_table(table)
        , m_index(index)
        , m_file(file)
        , m_findings(findings)
    {}

    void visit(RowId id, std::span<const Value> key)
    {
        if (m_index.primary && hasNull(key))
            fault(id, QStringLiteral("Null en la clave del índice %1"));
        if (!m_previous.empty())
            compare(id, key);
        m_previous.assign(key.begin(), key.end());
    }

private:
    void compare(RowId id, std::span<const Value> key)
    {
        const int order = compareKeys(m_previous, key);
        if (order > 0)
            fault(id, QStringLiteral("fuera de orden en el índice %1"));
        if (order == 0 && m_index.unique && !hasNull(key))
            fault(id, QStringLiteral("clave repetida en el índice %1"));
    }

    void fault(RowId id, const QString& text)
    {
        m_findings.fault({m_file, m_table.definition().name, rowName(m_table, id)}, text.arg(m_index.name));
    }

    platform::storage::Table& m_table;
    const IndexDefinition& m_index;
    const QString& m_file;
    Findings& m_findings;
    std::vector<Value> m_previous;
};

std::vector<int> keyColumns(const platform::storage::Table& table, const IndexDefinition& index)
{
    std::vector<int> columns;
    for (const QString& column : index.columns)
        columns.push_back(table.definition().columnIndex(column));
    return columns;
}

void checkIndexOf(platform::storage::Table& table, const IndexDefinition& index, const QString& file,
                  Findings& findings)
{
    const std::vector<int> columns = keyColumns(table, index);
    const std::vector<RowId> ids = table.order(index.name);
    if (static_cast<qint64>(ids.size()) != table.count())
        findings.fault({file, table.definition().name, {}},
                       QStringLiteral("el índice %1 tiene %2 filas y la tabla %3")
                           .arg(index.name)
                           .arg(ids.size())
                           .arg(table.count()));
    IndexWalk walk(table, index, file, findings);
    for (std::size_t first = 0; first < ids.size(); first += kRowsPerBlock) {
        const std::size_t count = std::min(kRowsPerBlock, ids.size() - first);
        platform::storage::RowBlock block;
        table.readMany(std::span(ids).subspan(first, count), columns, block);
        for (std::size_t row = 0; row < block.rowIds.size(); ++row)
            walk.visit(block.rowIds[row],
                       std::span(block.cells).subspan(row * columns.size(), columns.size()));
    }
}

} // namespace

void checkIndexes(platform::storage::Table& table, const QString& file, Findings& findings)
{
    for (const IndexDefinition& index : table.definition().indexes)
        checkIndexOf(table, index, file, findings);
}

} // namespace tools
