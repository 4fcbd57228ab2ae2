// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/definition/model.h"

#include <algorithm>

namespace platform::print {

FormulaField* Report::formulaField(QStringView fieldName)
{
    const auto found = std::find_if(formulas.begin(), formulas.end(), [fieldName](const FormulaField& field) {
        return fieldName.compare(field.name, Qt::CaseInsensitive) == 0;
    });
    return found == formulas.end() ? nullptr : &*found;
}

int Report::subreportIndex(QStringView subreportName) const
{
    for (std::size_t i = 0; i < subreports.size(); ++i) {
        if (subreportName.compare(subreports[i].name, Qt::CaseInsensitive) == 0)
            return static_cast<int>(i);
    }
    return -1;
}

} // namespace platform::print
