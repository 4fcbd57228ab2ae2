// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The records of a report: rows of its tables joined, selected, sorted, grouped and totalled; and the context
// in which its formulas are evaluated for one of them.

#include "platform/print/data/binder.h"
#include "platform/print/data/view.h"
#include "platform/print/formula/context.h"

#include <QDateTime>
#include <QSet>
#include <QStringList>

#include <span>

namespace platform::print {

/// What a formula may ask about the page that it stands on.
struct PageFacts
{
    int page = 1;
    int pageCount = 0;
    int groupPage = 1;
    int groupPageCount = 0;
    bool repeatedHeader = false;
};

class Records : public formula::Context
{
public:
    /// The report must be bound; `binder` tells what its slots mean. Everything is kept by reference.
    Records(Report& report, const Binder& binder, Variables& variables, QDateTime moment,
            QStringList tablePaths);

    /// Takes the rows of the tables, joins, filters and selects them. Throws `Problem` (22: a condition over
    /// too many rows).
    void load(std::vector<RowStore> tables);
    /// Sorts, groups and applies the group selection to these records (all of them: `all()`).
    [[nodiscard]] View arrange(std::vector<quint32> records);
    [[nodiscard]] std::vector<quint32> all() const;
    /// Rows left out or fields left empty because of a value that couldn't be read.
    [[nodiscard]] int invalidCount() const noexcept
    {
        return m_invalid + static_cast<int>(m_invalidRecords.size());
    }
    /// Counts the current record, once however often its fields are evaluated.
    void countInvalid();

    /// The view and the position in it that formulas are evaluated for. The view is kept by reference.
    void setView(View& view) { m_view = &view; }
    void setPosition(quint32 position);
    [[nodiscard]] quint32 position() const noexcept { return m_position; }
    [[nodiscard]] View* view() const noexcept { return m_view; }
    void setPage(const PageFacts& facts) { m_page = facts; }
    /// Evaluates for a record that stands in no view.
    [[nodiscard]] formula::Outcome evaluateRecord(const formula::Formula& formula, quint32 record);
    /// True when the condition is met; a fault counts as an invalid value and isn't met.
    [[nodiscard]] bool met(const formula::Formula& condition);

    const formula::Options& options() const override { return m_options; }
    formula::Value column(int slot) override;
    formula::Outcome formula(int slot) override;
    formula::Value total(int slot) override;
    formula::Outcome neighbour(int step, const formula::Operand& field) override;
    formula::Value special(formula::Special what, int argument) override;
    formula::Value& variable(formula::Scope scope, int slot) override;

private:
    void enter(quint32 record);
    void join(std::size_t table);
    void joinByLinks(std::size_t table, std::vector<quint32>& joined);
    void joinByCondition(std::size_t table, std::vector<quint32>& joined);
    void append(std::vector<quint32>& joined, quint32 record, std::size_t table,
                std::span<const quint32> matches);
    [[nodiscard]] QByteArray linkKey(const std::vector<TableLink>& links, bool with);
    void select();
    void keepChosenGroups(View& view);
    [[nodiscard]] formula::Value operand(const formula::Operand& field);
    void computeTotal(std::size_t slot);
    [[nodiscard]] formula::Value pageFact(formula::Special what) const;
    [[nodiscard]] QString tablePart(int table, bool folder) const;

    Report& m_report;
    const Binder& m_binder;
    Variables& m_variables;
    formula::Options m_options;
    QDateTime m_moment;
    QStringList m_paths; ///< native path of each table's file
    std::vector<RowStore> m_tables;
    std::vector<quint32> m_rows;    ///< one row number a table, record after record
    std::vector<quint32> m_current; ///< row numbers of the record under evaluation
    View* m_view = nullptr;
    quint32 m_position = 0;
    PageFacts m_page;
    int m_invalid = 0;              ///< found while selecting and sorting
    QSet<quint32> m_invalidRecords; ///< found while laying out and painting
};

} // namespace platform::print
