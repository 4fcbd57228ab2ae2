// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/storage/sqlite/losses.h"

#include <QHash>
#include <QSet>

#include <algorithm>

namespace platform::storage::sqlite {

namespace {

/// The entries of one index, as far as its tree holds together.
class IndexSearch
{
public:
    IndexSearch(const PageFile& file, const SalvagedIndex& index)
        : m_file(file)
        , m_index(index)
        , m_seen(static_cast<std::size_t>(file.pageCount()) + 1, false)
    {}

    /// Adds the rows that the index names and the table lacks. False when part of the index can't be read.
    bool addLost(const QSet<RowId>& present, QHash<RowId, LostRow>& lost)
    {
        bool isWhole = true;
        std::vector<quint32> open{m_index.root};
        while (!open.empty()) {
            const quint32 number = open.back();
            open.pop_back();
            const std::optional<IndexPage> page = unseenPage(number);
            isWhole = isWhole && page && page->isWhole;
            if (!page)
                continue;
            for (const std::vector<Value>& entry : page->entries)
                isWhole = take(entry, present, lost) && isWhole;
            open.insert(open.end(), page->children.begin(), page->children.end());
        }
        return isWhole;
    }

private:
    std::optional<IndexPage> unseenPage(quint32 number)
    {
        if (number == 0 || number > m_file.pageCount() || m_seen[number])
            return std::nullopt;
        m_seen[number] = true;
        return m_file.indexPage(number);
    }

    bool take(const std::vector<Value>& entry, const QSet<RowId>& present, QHash<RowId, LostRow>& lost) const
    {
        const auto columns = static_cast<std::size_t>(m_index.columns.size());
        const double* id = entry.empty() ? nullptr : std::get_if<double>(&entry.back());
        if (id == nullptr || entry.size() != columns + 1)
            return false;
        const auto row = static_cast<RowId>(*id);
        if (!present.contains(row) && !lost.contains(row))
            lost.insert(row, {row, m_index.columns, Row(entry.begin(), entry.end() - 1)});
        return true;
    }

    const PageFile& m_file;
    const SalvagedIndex& m_index;
    std::vector<bool> m_seen; ///< by page
};

QSet<RowId> presentRows(const PageFile& file, const SalvagedTable& table)
{
    QSet<RowId> present;
    for (const quint32 page : table.leaves) {
        for (const SalvagedRow& row : file.rows(page))
            present.insert(row.rowId);
    }
    return present;
}

} // namespace

TableLosses lossesOf(const PageFile& file, const SalvagedTable& table)
{
    TableLosses losses;
    losses.table = table.definition.name;
    const QSet<RowId> present = presentRows(file, table);
    losses.readable = present.size();
    // The index that says most about a row comes first.
    std::vector<SalvagedIndex> indexes = table.indexes;
    std::stable_sort(indexes.begin(), indexes.end(),
                     [](const SalvagedIndex& a, const SalvagedIndex& b) { return a.rank < b.rank; });
    QHash<RowId, LostRow> lost;
    for (const SalvagedIndex& index : indexes)
        losses.isCertain = IndexSearch(file, index).addLost(present, lost) || losses.isCertain;
    losses.lost.assign(lost.cbegin(), lost.cend());
    std::sort(losses.lost.begin(), losses.lost.end(),
              [](const LostRow& a, const LostRow& b) { return a.id < b.id; });
    return losses;
}

} // namespace platform::storage::sqlite
