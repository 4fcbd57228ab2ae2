// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/storage/sqlite/salvage.h"

#include "platform/storage/sqlite/metadata.h"
#include "platform/storage/sqlite/salvagedschema.h"
#include "platform/storage/sqlite/schema.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace platform::storage::sqlite {

namespace {

/// More tables and indexes than this are no schema but damage.
constexpr std::size_t kMostSchemaRows = 1024;

/// A table of which pages are sought.
struct Owner
{
    TableDefinition definition;
    quint32 root = 0;
    bool broken = true; ///< part of its tree can't be reached
    std::vector<quint32> leaves;
};

bool fits(const Value& value, const Column& column)
{
    switch (column.type) {
    case ColumnType::Number:
        return !std::holds_alternative<QString>(value);
    case ColumnType::Text:
        return !std::holds_alternative<double>(value);
    case ColumnType::Memo:
        break;
    }
    return true;
}

/// How well a row fits a table: 0 not at all, more with as many columns as the table has now.
int fitness(const SalvagedRow& row, const TableDefinition& table)
{
    const auto columns = static_cast<std::size_t>(table.columns.size());
    if (row.values.empty() || row.values.size() > columns)
        return 0;
    for (std::size_t i = 0; i < row.values.size(); ++i) {
        if (!fits(row.values[i], table.columns.at(static_cast<qsizetype>(i))))
            return 0;
    }
    return row.values.size() == columns ? 2 : 1;
}

/// The same for the rows of a page; 0 unless most of them fit.
qint64 pageFitness(const std::vector<SalvagedRow>& rows, const TableDefinition& table)
{
    qint64 sum = 0;
    std::size_t fitting = 0;
    for (const SalvagedRow& row : rows) {
        const int one = fitness(row, table);
        sum += one;
        fitting += one > 0 ? 1 : 0;
    }
    return 2 * fitting > rows.size() ? sum : 0;
}

/// Whether a row is one of the metadata table.
bool isNote(const SalvagedRow& row)
{
    constexpr std::size_t kColumns = 5;
    if (row.values.size() != kColumns)
        return false;
    const auto* kind = std::get_if<QString>(&row.values.front());
    return kind != nullptr && (*kind == "file"_L1 || *kind == "column"_L1 || *kind == "index"_L1);
}

class Search
{
public:
    explicit Search(const PageFile& file)
        : m_file(file)
        , m_owned(static_cast<std::size_t>(file.pageCount()) + 1, false)
    {}

    /// The rows of the schema, orphan pages included where its tree is broken.
    std::vector<SchemaRow> schemaRows()
    {
        Owner schema;
        schema.root = 1;
        schema.definition.columns = QList<Column>(5, Column{u"c"_s, ColumnType::Memo, 0, true});
        walk(schema);
        if (schema.broken) {
            for (quint32 page = 1; page <= m_file.pageCount(); ++page) {
                if (!m_owned[page])
                    schema.leaves.push_back(page);
            }
        }
        std::vector<SchemaRow> found;
        for (const quint32 page : schema.leaves)
            takeSchemaRows(page, found);
        return found;
    }

    /// Every leaf page that nobody has and that holds notes of the metadata table.
    std::vector<quint32> orphanNotes()
    {
        std::vector<quint32> pages;
        for (quint32 page = 1; page <= m_file.pageCount(); ++page) {
            if (m_owned[page] || m_file.kind(page) != PageKind::TableLeaf)
                continue;
            const std::vector<SalvagedRow> rows = m_file.rows(page);
            if (!rows.empty() && std::all_of(rows.begin(), rows.end(), &isNote)) {
                m_owned[page] = true;
                pages.push_back(page);
            }
        }
        return pages;
    }

    /// Collects the leaves below the owner's root that are its own.
    void walk(Owner& owner)
    {
        owner.broken = false;
        std::vector<quint32> open{owner.root};
        while (!open.empty()) {
            const quint32 page = open.back();
            open.pop_back();
            const PageKind kind = m_file.kind(page);
            if (kind == PageKind::Other || m_owned[page] || !belongs(page, kind, owner)) {
                owner.broken = true;
                continue;
            }
            m_owned[page] = true;
            if (kind == PageKind::TableLeaf)
                owner.leaves.push_back(page);
            const std::vector<quint32> below = m_file.children(page);
            open.insert(open.end(), below.rbegin(), below.rend());
        }
    }

    /// Gives each leaf page that nobody has to the broken owner that it fits best.
    void adoptOrphans(std::vector<Owner>& owners)
    {
        const std::vector<bool> free = m_file.freePages();
        for (quint32 page = 1; page <= m_file.pageCount(); ++page) {
            if (m_owned[page] || free[page] || m_file.kind(page) != PageKind::TableLeaf)
                continue;
            if (Owner* owner = bestOwner(m_file.rows(page), owners)) {
                owner->leaves.push_back(page);
                m_owned[page] = true;
            }
        }
    }

private:
    void takeSchemaRows(quint32 page, std::vector<SchemaRow>& found)
    {
        for (const SalvagedRow& row : m_file.rows(page)) {
            std::optional<SchemaRow> schemaRow = schemaRowOf(row.values);
            if (!schemaRow || found.size() >= kMostSchemaRows)
                continue;
            found.push_back(std::move(*schemaRow));
            m_owned[page] = true;
        }
    }

    /// A pointer that damage turned must not lead one table to another's rows.
    [[nodiscard]] bool belongs(quint32 page, PageKind kind, const Owner& owner) const
    {
        if (kind == PageKind::TableInterior)
            return true;
        const std::vector<SalvagedRow> rows = m_file.rows(page);
        return rows.empty() || pageFitness(rows, owner.definition) > 0;
    }

    static Owner* bestOwner(const std::vector<SalvagedRow>& rows, std::vector<Owner>& owners)
    {
        Owner* best = nullptr;
        qint64 most = 0;
        for (Owner& owner : owners) {
            const qint64 fit = owner.broken ? pageFitness(rows, owner.definition) : 0;
            if (fit > most) {
                most = fit;
                best = &owner;
            }
        }
        return best;
    }

    const PageFile& m_file;
    std::vector<bool> m_owned; ///< by page
};

quint32 rootOf(const std::vector<SchemaRow>& schema, QLatin1String type, const QString& name)
{
    for (const SchemaRow& row : schema) {
        if (row.type == type && row.name.compare(name, Qt::CaseInsensitive) == 0)
            return row.root;
    }
    return 0;
}

quint32 rootOf(const std::vector<SchemaRow>& schema, const QString& table)
{
    return rootOf(schema, "table"_L1, table);
}

/// The indexes of a table under the names that the file gives them: ours bear the table's, those of another
/// tool don't.
std::vector<SalvagedIndex> indexesOf(const TableDefinition& table, const std::vector<SchemaRow>& schema)
{
    std::vector<SalvagedIndex> indexes;
    for (const IndexDefinition& index : table.indexes) {
        const quint32 own = rootOf(schema, "index"_L1, storedIndexName(table.name, index.name));
        const quint32 root = own != 0 ? own : rootOf(schema, "index"_L1, index.name);
        indexes.push_back({index.columns, index.primary ? 0 : index.unique ? 1 : 2, root});
    }
    return indexes;
}

const TableDefinition* named(const QList<TableDefinition>& tables, const QString& name)
{
    for (const TableDefinition& table : tables) {
        if (table.name.compare(name, Qt::CaseInsensitive) == 0)
            return &table;
    }
    return nullptr;
}

bool hasColumns(const TableDefinition& table, const QStringList& columns)
{
    return std::all_of(columns.begin(), columns.end(),
                       [&](const QString& column) { return table.columnIndex(column) >= 0; });
}

/// Indexes, and marks on them, that the damage took from a table.
void complete(TableDefinition& table, const TableDefinition& expected)
{
    const auto isPrimary = [](const IndexDefinition& index) { return index.primary; };
    for (const IndexDefinition& wanted : expected.indexes) {
        const bool hasPrimary = std::any_of(table.indexes.cbegin(), table.indexes.cend(), isPrimary);
        if (wanted.primary && hasPrimary)
            continue;
        if (table.index(wanted.name) == nullptr) {
            if (hasColumns(table, wanted.columns))
                table.indexes.append(wanted);
            continue;
        }
        for (IndexDefinition& index : table.indexes) {
            if (index.name.compare(wanted.name, Qt::CaseInsensitive) == 0)
                index.primary = wanted.primary && index.unique && index.columns == wanted.columns;
        }
    }
}

Owner metadataOwner(const std::vector<SchemaRow>& schema)
{
    Owner owner;
    owner.root = rootOf(schema, QString::fromLatin1(kMetadataTable));
    for (const char* name : {"kind", "owner", "item", "property"})
        owner.definition.columns.append({QString::fromLatin1(name), ColumnType::Text, 0, true});
    owner.definition.columns.append({u"value"_s, ColumnType::Memo, 0, true});
    return owner;
}

/// The schema as the damaged file tells it, with its notes.
SalvagedSchema rebuildSchema(const PageFile& file, Search& search, const std::vector<SchemaRow>& rows)
{
    SalvagedSchema schema;
    for (const char* type : {"table", "index"}) {
        for (const SchemaRow& row : rows) {
            if (row.type == QLatin1String(type))
                schema.add(row);
        }
    }
    Owner notes = metadataOwner(rows);
    search.walk(notes);
    if (notes.broken) {
        const std::vector<quint32> orphans = search.orphanNotes();
        notes.leaves.insert(notes.leaves.end(), orphans.begin(), orphans.end());
    }
    for (const quint32 page : notes.leaves) {
        for (const SalvagedRow& row : file.rows(page)) {
            if (isNote(row))
                schema.addMetadata(row.values);
        }
    }
    return schema;
}

} // namespace

Salvage salvageTables(const PageFile& file, const QList<TableDefinition>& expected)
{
    Search search(file);
    const std::vector<SchemaRow> rows = search.schemaRows();
    const SalvagedSchema schema = rebuildSchema(file, search, rows);

    std::vector<Owner> owners;
    const QList<TableDefinition> found = schema.tables();
    for (TableDefinition table : found) {
        if (const TableDefinition* wanted = named(expected, table.name))
            complete(table, *wanted);
        owners.push_back({table, rootOf(rows, table.name), true, {}});
    }
    for (const TableDefinition& table : expected) {
        if (named(found, table.name) == nullptr)
            owners.push_back({table, rootOf(rows, table.name), true, {}});
    }
    for (Owner& owner : owners)
        search.walk(owner);
    search.adoptOrphans(owners);

    Salvage salvage{{}, schema.options()};
    for (Owner& owner : owners)
        salvage.tables.push_back({owner.definition, schema.rowIdColumn(owner.definition),
                                  std::move(owner.leaves), indexesOf(owner.definition, rows)});
    return salvage;
}

} // namespace platform::storage::sqlite
