// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A folder that grows beside its place and takes its name only when it is complete.

#include <QString>

namespace tools {

class NewFolder
{
public:
    /// For a folder that is missing or empty; `ToolError` with another. `word` parts the name that it grows
    /// under from the final one.
    NewFolder(const QString& path, const QString& word);
    /// Removes what has grown, unless it has its name.
    ~NewFolder();
    NewFolder(const NewFolder&) = delete;
    NewFolder& operator=(const NewFolder&) = delete;

    /// Where the folder grows; it is there and empty.
    [[nodiscard]] const QString& workingPath() const noexcept { return m_workingPath; }
    /// Brings all its folders onto the disk and gives it its name.
    void publish();

private:
    QString m_path;
    QString m_workingPath;
    bool m_isPublished = false;
};

/// Whether there is nothing at all in the folder, or no folder.
[[nodiscard]] bool isMissingOrEmpty(const QString& folder);

} // namespace tools
