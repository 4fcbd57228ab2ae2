// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/failingengine.h"

#include "platform/core/failure.h"
#include "platform/dao/sql/ast.h"

namespace testsupport {
namespace {

using namespace platform::storage;
using Plan = std::shared_ptr<FaultPlan>;

class FailingTable final : public Table
{
public:
    FailingTable(Plan plan, std::unique_ptr<Table> real)
        : m_plan(std::move(plan))
        , m_real(std::move(real))
    {}

    const TableDefinition& definition() const override { return m_real->definition(); }

    qint64 count() override
    {
        check(Operation::Count);
        return m_real->count();
    }
    std::vector<RowId> order(const QString& index) override
    {
        check(Operation::Order);
        return m_real->order(index);
    }
    std::optional<RowId> first(const QString& index, Row& row) override
    {
        check(Operation::First);
        return m_real->first(index, row);
    }
    std::optional<RowId> last(const QString& index, Row& row) override
    {
        check(Operation::Last);
        return m_real->last(index, row);
    }
    std::optional<RowId> seek(const QString& index, std::span<const platform::Value> keys, Row& row) override
    {
        check(Operation::Seek);
        return m_real->seek(index, keys, row);
    }
    std::optional<RowId> seekColumns(const QString& index, std::span<const platform::Value> keys,
                                     std::span<const int> columns, Row& row) override
    {
        check(Operation::Seek, namesOf(columns));
        return m_real->seekColumns(index, keys, columns, row);
    }
    bool read(RowId id, Row& row) override
    {
        check(Operation::Read);
        return m_real->read(id, row);
    }
    void readMany(std::span<const RowId> ids, std::span<const int> columns, RowBlock& block) override
    {
        check(Operation::ReadMany, namesOf(columns));
        m_real->readMany(ids, columns, block);
    }
    RowId insert(const Row& row) override
    {
        check(Operation::Insert, differing(Row(row.size(), platform::Value(platform::Null{})), row));
        return m_real->insert(row);
    }
    void insertMany(std::span<const Row> rows) override
    {
        check(Operation::Insert);
        m_real->insertMany(rows);
    }
    void update(RowId id, const Row& original, const Row& changed) override
    {
        check(Operation::Update, differing(original, changed));
        m_real->update(id, original, changed);
    }
    void erase(RowId id) override
    {
        check(Operation::Erase);
        m_real->erase(id);
    }

private:
    void check(Operation operation, const QStringList& columns = {})
    {
        m_plan->check(operation, definition().name, columns);
    }
    QStringList namesOf(std::span<const int> columns) const
    {
        QStringList names;
        for (const int column : columns)
            names.append(definition().columns[column].name);
        return names;
    }
    QStringList differing(const Row& before, const Row& after) const
    {
        QStringList names;
        for (std::size_t i = 0; i < after.size(); ++i) {
            if (before[i] != after[i])
                names.append(definition().columns[static_cast<qsizetype>(i)].name);
        }
        return names;
    }

    Plan m_plan;
    std::unique_ptr<Table> m_real;
};

class FailingConnection final : public Connection
{
public:
    FailingConnection(Plan plan, std::unique_ptr<Connection> real)
        : m_plan(std::move(plan))
        , m_real(std::move(real))
    {}

    bool isReadOnly() const override { return m_real->isReadOnly(); }
    quint64 dataVersion() override
    {
        m_plan->check(Operation::DataVersion);
        return m_real->dataVersion();
    }
    QStringList integrityFaults() override { return m_real->integrityFaults(); }
    QList<TableDefinition> tables() override
    {
        m_plan->check(Operation::Tables);
        return m_real->tables();
    }
    std::unique_ptr<Table> openTable(const QString& name) override
    {
        m_plan->check(Operation::OpenTable, name);
        return std::make_unique<FailingTable>(m_plan, m_real->openTable(name));
    }
    ResultSet query(const platform::sql::Select& select) override
    {
        m_plan->check(Operation::Query, select.table);
        return m_real->query(select);
    }
    void createTable(const TableDefinition& table) override
    {
        m_plan->check(Operation::CreateTable, table.name);
        m_real->createTable(table);
    }
    void addColumn(const QString& table, const Column& column) override
    {
        m_plan->check(Operation::AddColumn, table, {column.name});
        m_real->addColumn(table, column);
    }
    void dropColumn(const QString& table, const QString& column) override
    {
        m_plan->check(Operation::DropColumn, table, {column});
        m_real->dropColumn(table, column);
    }
    void createIndex(const QString& table, const IndexDefinition& index) override
    {
        m_plan->check(Operation::CreateIndex, table, index.columns);
        m_real->createIndex(table, index);
    }
    void dropIndex(const QString& table, const QString& index) override
    {
        m_plan->check(Operation::DropIndex, table);
        m_real->dropIndex(table, index);
    }
    void setAllowZeroLength(const QString& table, const QString& column, bool allowed) override
    {
        m_plan->check(Operation::SetAllowZeroLength, table, {column});
        m_real->setAllowZeroLength(table, column, allowed);
    }

private:
    Plan m_plan;
    std::unique_ptr<Connection> m_real;
};

} // namespace

void FaultPlan::check(Operation asked, const QString& onTable, const QStringList& columns)
{
    ++count;
    ++counts[asked];
    if (!onTable.isEmpty())
        tables.insert(onTable);
    const bool tableFails = !table.isEmpty() && onTable.compare(table, Qt::CaseInsensitive) == 0;
    const bool columnFails = !column.isEmpty() && columns.contains(column, Qt::CaseInsensitive);
    if (count == nth || operation == asked || tableFails || columnFails)
        throw platform::Failure(number, QStringLiteral("made to fail"));
}

FailingEngine::FailingEngine(std::shared_ptr<Engine> real)
    : m_real(real ? std::move(real) : sqliteEngine())
    , m_plan(std::make_shared<FaultPlan>())
{}

void FailingEngine::restart()
{
    *m_plan = {};
}

void FailingEngine::failNth(int n, int number)
{
    restart();
    m_plan->nth = n;
    m_plan->number = number;
}

void FailingEngine::failOperation(Operation operation, int number)
{
    restart();
    m_plan->operation = operation;
    m_plan->number = number;
}

void FailingEngine::failTable(const QString& table, int number)
{
    restart();
    m_plan->table = table;
    m_plan->number = number;
}

void FailingEngine::failColumn(const QString& column, int number)
{
    restart();
    m_plan->column = column;
    m_plan->number = number;
}

std::unique_ptr<Connection> FailingEngine::open(const QString& path, Sharing sharing)
{
    m_plan->check(Operation::Open);
    return std::make_unique<FailingConnection>(m_plan, m_real->open(path, sharing));
}

std::unique_ptr<Connection> FailingEngine::create(const QString& path, const CreateOptions& options)
{
    m_plan->check(Operation::Create);
    return std::make_unique<FailingConnection>(m_plan, m_real->create(path, options));
}

void FailingEngine::repair(const QString& path, const QList<TableDefinition>& expected)
{
    m_plan->check(Operation::Repair);
    m_real->repair(path, expected);
}

} // namespace testsupport
