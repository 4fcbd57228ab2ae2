// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Global variables of one report and the Shared ones of a job.

#include "platform/print/formula/ast.h"

#include <QHash>

#include <memory>
#include <vector>

namespace platform::print {

class VariableSpace
{
public:
    /// The variable's number; −1 when it is known with another type.
    int declare(const QString& name, formula::Type type);
    [[nodiscard]] formula::Value& value(int slot) { return m_values[static_cast<std::size_t>(slot)]; }
    /// Every variable back to its start value.
    void restart();

private:
    QHash<QString, int> m_names;
    std::vector<formula::Type> m_types;
    std::vector<formula::Value> m_values;
};

struct Variables
{
    VariableSpace global;
    std::shared_ptr<VariableSpace> shared = std::make_shared<VariableSpace>();

    [[nodiscard]] VariableSpace& space(formula::Scope scope)
    {
        return scope == formula::Scope::Shared ? *shared : global;
    }
};

} // namespace platform::print
