// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What a formula reads while it is evaluated: the current record and the state of the report.

#include "platform/print/formula/fault.h"
#include "platform/print/formula/functions.h"
#include "platform/print/formula/names.h"
#include "platform/print/formula/value.h"

#include <optional>

namespace platform::print::formula {

struct Options
{
    bool caseSensitive = false; ///< capitals and small letters are told apart
    bool nullsAsEmpty = false;  ///< a null column reads as "", 0, False or the null date
};

/// The result of an evaluation: a value; or none (a null was read); or a fault (code 13).
struct Outcome
{
    Value value;
    std::optional<Fault> fault;
};

class Context
{
public:
    virtual ~Context() = default;

    [[nodiscard]] virtual const Options& options() const = 0;
    /// Value of a column in the current record; no value for a null.
    [[nodiscard]] virtual Value column(int slot) = 0;
    /// Result of a formula field for the current record.
    [[nodiscard]] virtual Outcome formula(int slot) = 0;
    /// A total's value; no value when it has none.
    [[nodiscard]] virtual Value total(int slot) = 0;
    /// A column or formula field of the record before (−1) or after (1); no value beyond the ends.
    [[nodiscard]] virtual Outcome neighbour(int step, const Operand& field) = 0;
    /// `argument`: the group of `GroupName`, the table of `CarpetaTabla` and `FicheroTabla`.
    [[nodiscard]] virtual Value special(Special what, int argument) = 0;
    /// A Global or Shared variable, to be read and written.
    [[nodiscard]] virtual Value& variable(Scope scope, int slot) = 0;
};

} // namespace platform::print::formula
