// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A file system of a few hundred KB in memory, for this process alone. Mounting asks for root, or for a
// kernel that lets users have name spaces of their own.

#include <QString>

namespace hardtest {

/// Gives the process a name space of its own for mounts. To be called before any thread is started. False
/// where the system allows it not.
[[nodiscard]] bool mayMount();

class SmallDisk
{
public:
    /// `kilobytes` large, mounted on a folder that exists.
    SmallDisk(const QString& folder, int kilobytes);
    ~SmallDisk();
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    [[nodiscard]] bool isMounted() const { return m_mounted; }
    /// Fills the disk with a file so that this much is left.
    void leaveFree(int kilobytes);
    /// Removes that file.
    void empty();

private:
    [[nodiscard]] QString fillerPath() const;
    [[nodiscard]] qint64 freeBytes() const;

    QString m_folder;
    bool m_mounted = false;
};

} // namespace hardtest
