// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// One run of a report over its stores: binds, reads everything at one moment, closes the files, arranges the
// records; step by step, so that windows stay alive. Subreports are read along with it and arranged for each
// value of their links.

#include "platform/print/data/records.h"
#include "platform/print/problem.h"

#include <QHash>

#include <deque>
#include <functional>
#include <memory>
#include <optional>

namespace platform::print {

/// Where the tables of a report lie: native paths, one for each table.
using TablePaths = QStringList;

class Execution
{
public:
    /// Keeps the report by reference and binds its formulas in place.
    Execution(Report& report, QDateTime moment);
    ~Execution();
    Execution(const Execution&) = delete;
    Execution& operator=(const Execution&) = delete;

    /// Opens the files of the report's tables and of each subreport's, and binds; nothing is read yet. Throws
    /// `Problem`, then no file is open. The files stay open, each within a transaction, until all rows are
    /// read: by `step`, or because someone in this thread needs one of the files (see `HeldReading`).
    void begin(const TablePaths& paths, const std::vector<TablePaths>& subreportPaths);
    /// Does about a millisecond of the work. False when the records are ready. Throws `Problem` (18); all
    /// files are closed then.
    bool step();
    /// Closes all files; the records will never be ready.
    void cancel();
    /// True while files are open.
    [[nodiscard]] bool isReading() const noexcept { return m_reading != nullptr; }
    /// Rows read so far, of all tables.
    [[nodiscard]] qint64 rowsRead() const noexcept { return m_rowsRead; }

    /// `begin` and every step. Throws `Problem`; all files are closed afterwards.
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
    struct Reading;
    /// Part of the work: does some of it, false when it is done.
    using Task = std::function<bool()>;

    void open(Connection& connection, const TablePaths& paths);
    void bind(Connection& connection, Execution* parent);
    void bindAll(Connection& connection, const TablePaths& paths,
                 const std::vector<TablePaths>& subreportPaths);
    void addReaders(Reading& reading);
    bool readStep();
    void finishReading();
    void addLoad(Execution& execution);
    void addTotals();
    void addLinks(Execution& subreport);
    [[nodiscard]] QByteArray linkKey(Execution& subreport, quint32 record) const;

    Report& m_report;
    QDateTime m_moment;
    TablePaths m_paths;
    Variables m_variables;
    std::vector<std::vector<SourceColumn>> m_schemas;
    std::unique_ptr<Binder> m_binder;
    std::unique_ptr<Records> m_records;
    View m_view;
    std::vector<std::unique_ptr<Execution>> m_subreports;
    std::unique_ptr<Reading> m_reading;
    std::vector<RowStore> m_tables; ///< read, until the records take them
    qint64 m_rowsRead = 0;
    std::optional<Problem> m_readProblem;                    ///< met while someone else needed a file
    std::deque<Task> m_tasks;                                ///< what is still to be done after the reading
    QHash<QByteArray, std::vector<quint32>> m_recordsByLink; ///< of a subreport
    QHash<QByteArray, std::shared_ptr<View>> m_views;        ///< of a subreport, by link values
};

} // namespace platform::print
