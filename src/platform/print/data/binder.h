// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Binds every formula of a report to the columns of its tables, and notes what they use.

#include "platform/print/data/connection.h"
#include "platform/print/data/variables.h"
#include "platform/print/definition/model.h"

#include <vector>

namespace platform::print {

/// A column in use.
struct Slot
{
    int table = 0;
    int column = 0; ///< position in the table's store
    int stored = 0; ///< position among the columns read
    formula::Type type = formula::Type::Text;
};

struct TotalRequest
{
    formula::TotalKind kind = formula::TotalKind::Sum;
    formula::Operand field;
    int group = -1; ///< −1: the whole report
};

class Binder : public formula::Names
{
public:
    /// `schemas` holds one list of columns for each table of the report. Both are kept by reference.
    Binder(Report& report, const std::vector<std::vector<SourceColumn>>& schemas, Variables& variables);

    /// Binds them all. Throws `Problem` with the first cause: 9, 10 or 11.
    void bindAll();
    /// Binds one formula that isn't part of this report (a subreport's link). Throws `Problem`.
    void bind(formula::Formula& formula, const QString& name);

    [[nodiscard]] const std::vector<Slot>& slotList() const noexcept { return m_slots; }
    [[nodiscard]] const std::vector<TotalRequest>& totals() const noexcept { return m_totals; }
    /// Columns to read of each table, by position.
    [[nodiscard]] const std::vector<std::vector<int>>& usedColumns() const noexcept { return m_used; }
    /// True when the join condition of a table looks at no other table, so that it holds for every record or
    /// none.
    [[nodiscard]] bool conditionIsConstant(std::size_t table) const { return m_constantConditions[table]; }

    formula::Binding column(const QString& table, const QString& column) override;
    formula::Binding formula(const QString& name) override;
    formula::Binding variable(formula::Scope scope, const QString& name, formula::Type type) override;
    int group(const formula::Operand& field) override;
    int total(formula::TotalKind kind, const formula::Operand& field, int group) override;

private:
    enum class State { Unbound, Binding, Bound };

    void bindCondition(formula::Formula& formula, const QString& name, bool selects);
    void bindKey(formula::Formula& formula, const QString& name);
    void bindTables();
    void bindGroups();
    void bindSections();
    void bindItem(Item& item, const QString& name);

    Report& m_report;
    const std::vector<std::vector<SourceColumn>>& m_schemas;
    Variables& m_variables;
    std::vector<State> m_states;
    std::vector<unsigned> m_tables; ///< tables that each formula field looks at, by bit
    std::vector<Slot> m_slots;
    std::vector<std::vector<int>> m_used;
    std::vector<TotalRequest> m_totals;
    std::vector<bool> m_constantConditions;
    unsigned m_touched = 0; ///< tables looked at since it was last cleared, by bit
};

} // namespace platform::print
