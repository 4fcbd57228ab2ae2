// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Finds a column's position by its name, without regard to case and without allocating.

#include "platform/storage/storage.h"

#include <QString>

#include <array>
#include <unordered_map>
#include <vector>

namespace platform::dao {

class ColumnNames
{
public:
    explicit ColumnNames(const QList<storage::Column>& columns);

    /// Position from 0, or -1 when there is no such column. Of two columns with one name it is the first.
    [[nodiscard]] int position(QStringView name) const;

private:
    struct FoldedHash
    {
        using is_transparent = void;
        std::size_t operator()(QStringView name) const noexcept;
    };
    struct FoldedEqual
    {
        using is_transparent = void;
        bool operator()(QStringView left, QStringView right) const noexcept;
    };

    /// The spellings asked for last, by their length: a program asks for the same few over and over.
    struct Spelling
    {
        QString name;
        int position = -1;
    };
    static constexpr std::size_t kSpellings = 16;

    std::unordered_map<QString, int, FoldedHash, FoldedEqual> m_positions;
    mutable std::array<Spelling, kSpellings> m_spellings;
};

} // namespace platform::dao
