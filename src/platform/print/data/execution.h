// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// One run of a report over its stores: binds, reads everything in one go, closes the files, arranges the
// records. Subreports are read along with it and arranged for each value of their links.

#include "platform/print/data/records.h"

#include <QHash>

#include <memory>

namespace platform::print {

/// Where the tables of a report lie: native paths, one for each table.
using TablePaths = QStringList;

class Execution
{
public:
    /// Keeps the report by reference and binds its formulas in place.
    Execution(Report& report, QDateTime moment);
    ~Execution();

    /// Paths of the report's tables and of each subreport's. Throws `Problem`; all files are closed
    /// afterwards.
    void run(const TablePaths& paths, const std::vector<TablePaths>& subreportPaths);
    /// Binds only, to see whether the stores have what the report names. Throws `Problem`.
    void check(const TablePaths& paths, const std::vector<TablePaths>& subreportPaths);

    [[nodiscard]] Report& report() noexcept { return m_report; }
    [[nodiscard]] Records& records() noexcept { return *m_records; }
    [[nodiscard]] Variables& variables() noexcept { return m_variables; }
    [[nodiscard]] Execution& subreport(int i) noexcept { return *m_subreports[static_cast<std::size_t>(i)]; }
    /// The subreport's records for the main record that `records()` stands on; the subreport is set to that
    /// view.
    View& enterSubreport(int i);
    [[nodiscard]] int invalidCount() const;

private:
    void open(Connection& connection, const TablePaths& paths);
    void bind(Connection& connection, Execution* parent);
    void bindSubreports(Connection& connection, const std::vector<TablePaths>& subreportPaths);
    void load(const Connection& connection);

    Report& m_report;
    QDateTime m_moment;
    TablePaths m_paths;
    Variables m_variables;
    std::vector<std::vector<SourceColumn>> m_schemas;
    std::unique_ptr<Binder> m_binder;
    std::unique_ptr<Records> m_records;
    View m_view;
    std::vector<std::unique_ptr<Execution>> m_subreports;
    QHash<QByteArray, std::vector<quint32>> m_recordsByLink; ///< of a subreport
    QHash<QByteArray, std::shared_ptr<View>> m_views;        ///< of a subreport, by link values
};

} // namespace platform::print
