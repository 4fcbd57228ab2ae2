// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A store file in the making. It grows under a name of its own and takes the store's name only when it is
// complete and on the disk, so that whoever dies on the way leaves no half store that nobody would finish:
// a name that is taken is never made again.

#include "platform/storage/sqlite/sidecar.h"

#include <QString>

namespace platform::storage::sqlite {

/// Keeps all others from making the store of this sidecar until the sidecar ends, or `stopMaking`. Waits half
/// a minute for another maker; 3050 when that was in vain or the file system doesn't lock. Whoever only opens
/// stores never waits for a maker, nor he for them.
void startMaking(const Sidecar& sidecar);
void stopMaking(const Sidecar& sidecar) noexcept;

class NewFile
{
public:
    /// For the store of that path, of which we are the maker. What an earlier maker left who died is removed.
    explicit NewFile(const QString& path);
    /// Removes the file, whatever its name is by now, unless it is kept.
    ~NewFile();
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    /// Where the file is: first under a name of its own, then under the store's.
    [[nodiscard]] const QString& path() const noexcept { return m_path; }
    /// Gives the file the store's name, for good. Nobody may have it open, since a journal's name follows the
    /// file's. 0, or the number of the failure: 3204 the name is taken by now, 3051 it can't be given, or a
    /// change of the file isn't finished.
    [[nodiscard]] int publish() noexcept;
    void keep() noexcept { m_kept = true; }

private:
    QString m_storePath;
    QString m_path;
    bool m_kept = false;
};

} // namespace platform::storage::sqlite
