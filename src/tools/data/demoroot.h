// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Makes a data root to try the program on: the catalogue, three companies with all their stores, the shared
// telephones, and the report files that the build has.

#include <QString>
#include <QStringList>

#include <cstdint>

namespace tools {

struct DemoRequest
{
    QString folder;
    int clients = 300; ///< of the main company; the others have some dozens
    std::uint64_t seed = 1;
    QString reports; ///< folder of report files to copy; empty for none
};

/// Makes the data root in a folder that must be missing or empty; the folder and its parents are made. The
/// same request always makes the same rows. Stores are made from the schemas of the program's own create
/// procedures and filled in blocks of one transaction through the storage seam, so that 100,000 clients take
/// about a minute.
///
/// Throws `ToolError` when the folder can't be used, and the data engine's `Failure` when a store can't be
/// written; what was made until then stays.
void makeDemoRoot(const DemoRequest& request);

} // namespace tools
