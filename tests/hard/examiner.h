// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Opens a store as it was found, with the engine of every day, and says what it holds.

#include "hard/disk.h"

#include <QHash>
#include <QSet>
#include <QTemporaryDir>

namespace hardtest {

/// What a store holds, structure and rows, as one short word that differs where anything differs; "absent"
/// without the file; "refused N" where it doesn't open; "damaged: ..." where its parts don't agree.
using Content = QByteArray;

inline constexpr char kAbsent[] = "absent";

[[nodiscard]] bool isSound(const Content& content);

class Examiner
{
public:
    /// The store of that name among the files, with its journal. Equal files are opened once.
    [[nodiscard]] Content content(const DiskImage& files, const QByteArray& store);
    /// Different files opened so far.
    [[nodiscard]] qsizetype opened() const { return m_known.size(); }

private:
    [[nodiscard]] Content examine(const QByteArray& store, const QByteArray* journal);

    QTemporaryDir m_folder;
    QHash<QByteArray, Content> m_known;
};

/// The same of a store on the disk, which nobody has open.
[[nodiscard]] Content contentOf(const QString& nativePath);

/// Its rows, each with the name of its table and without its number. Empty where the store doesn't open.
[[nodiscard]] QSet<QByteArray> rowsOf(const QString& nativePath);

} // namespace hardtest
