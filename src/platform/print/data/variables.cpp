// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/data/variables.h"

namespace platform::print {

int VariableSpace::declare(const QString& name, formula::Type type)
{
    const QString key = name.toLower();
    const auto known = m_names.constFind(key);
    if (known != m_names.constEnd())
        return m_types[static_cast<std::size_t>(*known)] == type ? *known : -1;
    const int slot = static_cast<int>(m_values.size());
    m_names.insert(key, slot);
    m_types.push_back(type);
    m_values.push_back(formula::startValue(type));
    return slot;
}

void VariableSpace::restart()
{
    for (std::size_t i = 0; i < m_values.size(); ++i)
        m_values[i] = formula::startValue(m_types[i]);
}

} // namespace platform::print
