// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The damaged file under repair: put aside under a free name, never written to, and either replaced by the
// new file or left where it was.

#include <QByteArray>
#include <QString>

namespace platform::storage::sqlite {

/// What is added to a store's name for the file put aside (a number follows) and for the new one.
struct AsideNames
{
    QString kept;
    QString replacement;
};

class DamagedFile
{
public:
    /// Gives the file the first free name `<name>.dañado-N`, or that of `names`, with the journal that a
    /// crash left beside it. Where the file system has links it keeps its own name as well, so that no moment
    /// is without a file. The caller holds the store exclusively. 3051 no permission in the folder.
    explicit DamagedFile(const QString& path,
                         const AsideNames& names = {QStringLiteral(".dañado-"), QStringLiteral(".reparado")});
    /// Undoes the putting aside unless `replace()` was called.
    ~DamagedFile();
    DamagedFile(const DamagedFile&) = delete;
    DamagedFile& operator=(const DamagedFile&) = delete;

    [[nodiscard]] const QString& keptPath() const noexcept { return m_kept; }
    /// Where the new file is to be written; nothing stands there yet.
    [[nodiscard]] const QString& replacementPath() const noexcept { return m_replacement; }
    /// The bytes of the damaged file. 3043 when the disk doesn't give them.
    [[nodiscard]] QByteArray bytes() const;
    /// Puts the new file in the old one's place, durably.
    void replace();
    /// Leaves no file in the old one's place, durably.
    void withdraw();

private:
    void putAside();
    [[nodiscard]] bool takeName(const QString& kept);

    QString m_path;
    QString m_keptStart; ///< the name put aside, without its number
    QString m_kept;
    QString m_replacement;
    bool m_linked = false;
    bool m_replaced = false;
};

} // namespace platform::storage::sqlite
