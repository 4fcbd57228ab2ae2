// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/data/execution.h"

#include "platform/print/data/arrange.h"
#include "platform/print/data/keys.h"
#include "platform/print/data/pushdown.h"
#include "platform/storage/sqlite/heldreading.h"

using namespace Qt::StringLiterals;

namespace platform::print {
namespace {

QByteArray keyPart(const formula::Outcome& outcome, bool caseSensitive)
{
    const QByteArray part = outcome.fault ? QByteArray() : valueKey(outcome.value, caseSensitive);
    return QByteArray::number(part.size()) + ':' + part;
}

} // namespace

/// The open files and who takes rows out of them.
struct Execution::Reading
{
    struct Source
    {
        Execution* execution;
        std::unique_ptr<TableReader> reader;
    };

    // In this order: the readers go before their files, and the files before the word that they are held.
    std::optional<storage::sqlite::HeldReading> held;
    Connection connection;
    std::vector<Source> sources;
    std::size_t current = 0;
};

Execution::Execution(Report& report, QDateTime moment)
    : m_report(report)
    , m_moment(std::move(moment))
{
    for (Report& subreport : report.subreports)
        m_subreports.push_back(std::make_unique<Execution>(subreport, m_moment));
}

Execution::~Execution() = default;

void Execution::open(Connection& connection, const TablePaths& paths)
{
    m_paths = paths;
    for (const QString& path : paths)
        connection.open(path);
}

void Execution::bind(Connection& connection, Execution* parent)
{
    m_schemas.clear();
    for (std::size_t i = 0; i < m_report.tables.size(); ++i) {
        const Table& table = m_report.tables[i];
        const QString& path = m_paths[static_cast<qsizetype>(i)];
        m_schemas.push_back(connection.columns(path, table.table));
        if (table.condition && connection.hasMoreRows(path, table.table, kMaxConditionRows))
            throw Problem(kBadValue,
                          u"la tabla «%1» tiene demasiadas filas para una condición"_s.arg(table.alias));
    }
    if (parent != nullptr)
        m_variables.shared = parent->m_variables.shared;
    m_binder = std::make_unique<Binder>(m_report, m_schemas, m_variables);
    m_binder->bindAll();
    for (TableLink& link : m_report.links) {
        parent->m_binder->bind(link.with, u"vínculo"_s);
        if (link.with.type() != link.field.type())
            throw Problem(kFormulaTypes, u"vínculo: los dos lados son de tipos distintos"_s);
    }
    m_records = std::make_unique<Records>(m_report, *m_binder, m_variables, m_moment, m_paths);
}

void Execution::bindAll(Connection& connection, const TablePaths& paths,
                        const std::vector<TablePaths>& subreportPaths)
{
    open(connection, paths);
    bind(connection, nullptr);
    for (std::size_t i = 0; i < m_subreports.size(); ++i) {
        m_subreports[i]->open(connection, subreportPaths[i]);
        m_subreports[i]->bind(connection, this);
    }
}

void Execution::check(const TablePaths& paths, const std::vector<TablePaths>& subreportPaths)
{
    Connection connection;
    bindAll(connection, paths, subreportPaths);
}

void Execution::addReaders(Reading& reading)
{
    for (std::size_t i = 0; i < m_report.tables.size(); ++i) {
        const QByteArray condition =
            i > 0 ? QByteArray()
                  : pushedCondition({&m_report.filter, &m_report.selection}, m_binder->slotList(),
                                    m_schemas[0], m_records->options());
        reading.sources.push_back(
            {this, reading.connection.reader(m_paths[static_cast<qsizetype>(i)], m_report.tables[i].table,
                                             m_binder->usedColumns()[i], condition)});
    }
}

void Execution::begin(const TablePaths& paths, const std::vector<TablePaths>& subreportPaths)
{
    auto reading = std::make_unique<Reading>();
    bindAll(reading->connection, paths, subreportPaths);
    addReaders(*reading);
    for (const std::unique_ptr<Execution>& subreport : m_subreports)
        subreport->addReaders(*reading);
    reading->held.emplace([this] { finishReading(); });
    m_reading = std::move(reading);

    addLoad(*this);
    for (const std::unique_ptr<Execution>& subreport : m_subreports)
        addLoad(*subreport);
    m_tasks.push_back([this] {
        m_variables.global.restart();
        m_variables.shared->restart();
        return false;
    });
    const auto arranger = std::make_shared<std::unique_ptr<Arranger>>();
    m_tasks.push_back([this, arranger] {
        if (!*arranger)
            *arranger = std::make_unique<Arranger>(*m_records, m_records->all());
        if ((*arranger)->step())
            return true;
        m_view = (*arranger)->takeView();
        m_records->setView(&m_view);
        return false;
    });
    addTotals();
    for (const std::unique_ptr<Execution>& subreport : m_subreports)
        addLinks(*subreport);
    m_tasks.push_back([this] {
        m_records->setPosition(0);
        return false;
    });
}

/// The rows that were read become records.
void Execution::addLoad(Execution& execution)
{
    m_tasks.push_back([&execution] {
        execution.m_records->beginLoad(std::move(execution.m_tables));
        return false;
    });
    m_tasks.push_back([&execution] { return execution.m_records->loadStep(); });
}

/// Totals that can be known before any page is.
void Execution::addTotals()
{
    for (std::size_t total = 0; total < m_records->totalCount(); ++total) {
        const auto totaller = std::make_shared<std::unique_ptr<Totaller>>();
        m_tasks.push_back([this, total, totaller] {
            if (!*totaller)
                *totaller = m_records->totaller(total);
            if ((*totaller)->step())
                return true;
            m_records->keepTotal(total, **totaller);
            return false;
        });
    }
}

/// Tells the subreport's records apart by the values of their links.
void Execution::addLinks(Execution& subreport)
{
    const auto records = std::make_shared<std::vector<quint32>>();
    const auto next = std::make_shared<std::size_t>(0);
    m_tasks.push_back([&subreport, records] {
        *records = subreport.m_records->all();
        return false;
    });
    m_tasks.push_back([this, &subreport, records, next] {
        const std::size_t end = std::min(*next + kRecordsAStep, records->size());
        for (; *next < end; ++*next)
            subreport.m_recordsByLink[linkKey(subreport, (*records)[*next])].push_back((*records)[*next]);
        return end < records->size();
    });
}

QByteArray Execution::linkKey(Execution& subreport, quint32 record) const
{
    QByteArray key;
    for (const TableLink& link : subreport.m_report.links)
        key += keyPart(subreport.m_records->evaluateRecord(link.field, record), m_report.caseSensitive);
    return key;
}

bool Execution::step()
{
    if (m_readProblem)
        throw Problem(*m_readProblem);
    if (m_reading)
        return readStep();
    if (m_tasks.empty())
        return false;
    if (!m_tasks.front()())
        m_tasks.pop_front();
    return !m_tasks.empty();
}

bool Execution::readStep()
{
    try {
        Reading::Source& source = m_reading->sources[m_reading->current];
        const quint32 before = source.reader->rowCount();
        const bool more = source.reader->step();
        m_rowsRead += source.reader->rowCount() - before;
        if (more)
            return true;
        source.execution->m_tables.push_back(source.reader->takeRows());
        if (++m_reading->current == m_reading->sources.size())
            m_reading.reset();
        return true;
    } catch (const Problem&) {
        cancel();
        throw;
    }
}

/// Everything that is still to be read, for someone who needs one of the files.
void Execution::finishReading()
{
    try {
        while (m_reading)
            readStep();
    } catch (const Problem& problem) {
        m_readProblem = problem;
    }
}

void Execution::cancel()
{
    m_reading.reset();
    m_tasks.clear();
}

void Execution::run(const TablePaths& paths, const std::vector<TablePaths>& subreportPaths)
{
    begin(paths, subreportPaths);
    while (step()) {
    }
}

View& Execution::enterSubreport(int i)
{
    Execution& inner = subreport(i);
    QByteArray key;
    for (const TableLink& link : inner.m_report.links)
        key += keyPart(link.with.evaluate(*m_records), m_report.caseSensitive);
    std::shared_ptr<View>& view = inner.m_views[key];
    if (!view)
        view = std::make_shared<View>(inner.m_records->arrange(inner.m_recordsByLink.value(key)));
    inner.m_records->setView(view.get());
    inner.m_records->setPosition(0);
    return *view;
}

int Execution::invalidCount() const
{
    int count = m_records ? m_records->invalidCount() : 0;
    for (const std::unique_ptr<Execution>& subreport : m_subreports)
        count += subreport->invalidCount();
    return count;
}

} // namespace platform::print
