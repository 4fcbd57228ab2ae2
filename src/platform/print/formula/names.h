// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What a formula's names mean: the report answers the type checker's questions through `Names`.

#include "platform/print/errorcodes.h"
#include "platform/print/formula/ast.h"
#include "platform/print/formula/value.h"

#include <QString>

namespace platform::print::formula {

enum class TotalKind { Sum, Count, DistinctCount, Average, Minimum, Maximum };

/// What a formula asks for beyond the columns of its own record. Decides when it can be evaluated.
struct Uses
{
    bool variables = false; ///< Global or Shared ones: evaluated once, in print order
    bool order = false;     ///< record and group numbers, neighbours: known after sorting
    bool totals = false;    ///< known after grouping
    bool pages = false;     ///< the page it stands on
    bool pageTotal = false; ///< known when all pages are
    bool printing = false;  ///< asked for by `WhilePrintingRecords`

    Uses& operator|=(const Uses& other) noexcept
    {
        variables |= other.variables;
        order |= other.order;
        totals |= other.totals;
        pages |= other.pages;
        pageTotal |= other.pageTotal;
        printing |= other.printing;
        return *this;
    }
};

/// An answer: where the value is found and its type, or why the name can't be used.
struct Binding
{
    int slot = -1;
    Type type = Type::Text;
    Uses uses;
    ErrorCode code = kNoError;
    QString text;
};

/// A column or a formula field that a total, a group or a neighbour refers to.
struct Operand
{
    bool isFormula = false;
    int slot = -1;
    Type type = Type::Text;
};

class Names
{
public:
    virtual ~Names() = default;

    /// 9 when the table has no such column, 11 when the report has no such table.
    [[nodiscard]] virtual Binding column(const QString& table, const QString& column) = 0;
    /// 11 when there is no such formula field, or when it leads back to itself.
    [[nodiscard]] virtual Binding formula(const QString& name) = 0;
    /// 11 when a variable of that name and scope has another type.
    [[nodiscard]] virtual Binding variable(Scope scope, const QString& name, Type type) = 0;
    /// Number, from 0, of the group made by this field; −1 when there is none.
    [[nodiscard]] virtual int group(const Operand& field) = 0;
    /// Number of a total over the whole report (`group` −1) or over one group.
    [[nodiscard]] virtual int total(TotalKind kind, const Operand& field, int group) = 0;
};

} // namespace platform::print::formula
