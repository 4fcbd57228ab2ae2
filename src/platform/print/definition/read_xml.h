// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Report file to model, with every check that needs no store: elements, attributes, ranges, references,
// syntax of formulas. A file with any fault isn't used.

#include "platform/print/definition/model.h"
#include "platform/print/definition/xmltree.h"

#include <optional>
#include <vector>

namespace platform::print {

struct ReadReport
{
    std::optional<Report> report;        ///< nothing when there are faults
    std::vector<DefinitionFault> faults; ///< in the order of the file
};

[[nodiscard]] ReadReport readReport(const QByteArray& bytes);

/// "consultatec.rpt:23:17: el atributo «anchoo» no existe en «campo»".
[[nodiscard]] QString describe(const QString& fileName, const DefinitionFault& fault);

} // namespace platform::print
