// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/data/execution.h"

#include "platform/print/data/keys.h"
#include "platform/print/data/pushdown.h"
#include "platform/print/problem.h"

using namespace Qt::StringLiterals;

namespace platform::print {
namespace {

QByteArray keyPart(const formula::Outcome& outcome, bool caseSensitive)
{
    const QByteArray part = outcome.fault ? QByteArray() : valueKey(outcome.value, caseSensitive);
    return QByteArray::number(part.size()) + ':' + part;
}

} // namespace

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
    for (std::size_t i = 0; i < m_report.tables.size(); ++i)
        m_schemas.push_back(connection.columns(m_paths[static_cast<qsizetype>(i)], m_report.tables[i].table));
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

void Execution::bindSubreports(Connection& connection, const std::vector<TablePaths>& subreportPaths)
{
    for (std::size_t i = 0; i < m_subreports.size(); ++i) {
        m_subreports[i]->open(connection, subreportPaths[i]);
        m_subreports[i]->bind(connection, this);
    }
}

void Execution::check(const TablePaths& paths, const std::vector<TablePaths>& subreportPaths)
{
    Connection connection;
    open(connection, paths);
    bind(connection, nullptr);
    bindSubreports(connection, subreportPaths);
}

void Execution::load(const Connection& connection)
{
    std::vector<RowStore> tables;
    for (std::size_t i = 0; i < m_report.tables.size(); ++i) {
        const QByteArray condition =
            i > 0 ? QByteArray()
                  : pushedCondition({&m_report.filter, &m_report.selection}, m_binder->slotList(),
                                    m_schemas[0], m_records->options());
        tables.push_back(connection.read(m_paths[static_cast<qsizetype>(i)], m_report.tables[i].table,
                                         m_binder->usedColumns()[i], condition));
    }
    m_records->load(std::move(tables));
}

void Execution::run(const TablePaths& paths, const std::vector<TablePaths>& subreportPaths)
{
    {
        Connection connection;
        open(connection, paths);
        bind(connection, nullptr);
        bindSubreports(connection, subreportPaths);
        load(connection);
        for (const std::unique_ptr<Execution>& subreport : m_subreports)
            subreport->load(connection);
    }
    m_variables.global.restart();
    m_variables.shared->restart();
    m_view = m_records->arrange(m_records->all());
    m_records->setView(m_view);
    m_records->setPosition(0);
    for (const std::unique_ptr<Execution>& subreport : m_subreports) {
        for (const quint32 record : subreport->m_records->all()) {
            QByteArray key;
            for (const TableLink& link : subreport->m_report.links)
                key +=
                    keyPart(subreport->m_records->evaluateRecord(link.field, record), m_report.caseSensitive);
            subreport->m_recordsByLink[key].push_back(record);
        }
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
    inner.m_records->setView(*view);
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
