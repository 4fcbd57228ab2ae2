// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What the print benchmark prints: a store of 100,000 consultations and report definitions over it.

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace bench {

inline constexpr int kConsultations = 100'000;

/// Makes the store in the folder unless it is there. Its path.
[[nodiscard]] QString printStore(const QString& folder);

/// Columns of the printed fields, in the order of a line.
[[nodiscard]] const QStringList& printedColumns();
/// The text that the memo line prints.
inline constexpr char kMemoColumn[] = "DESCRIPCION";

/// Bytes that the columns' values take in the store; a number takes eight.
[[nodiscard]] qint64 columnBytes(const QString& store, const QStringList& columns);

enum class Lines {
    Plain, ///< by row number
    Fixed, ///< grouped by technician, sorted by topic
    Memo,  ///< as `Fixed`, with a growing memo below each line
};
/// 58 lines of seven fields a page, or fewer with memos.
[[nodiscard]] QByteArray printDefinition(Lines lines, const QByteArray& selection = {});

} // namespace bench
