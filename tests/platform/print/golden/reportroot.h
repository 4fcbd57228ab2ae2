// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A small data root that never changes: the rows stand as text in golden/data, one file for each table.

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace platform::print {

class ReportRoot
{
public:
    /// Makes the catalogue, company 00012 with the rows of the files, and company 00034 with empty tables.
    explicit ReportRoot(const QString& dataFolder);

    [[nodiscard]] QString path(const QString& relative = {}) const;
    /// A copy of a report file in a folder of its own, where its pictures are looked for.
    [[nodiscard]] QString withReport(const QString& reportFile, const QString& folder) const;

private:
    QTemporaryDir m_folder;
};

} // namespace platform::print
