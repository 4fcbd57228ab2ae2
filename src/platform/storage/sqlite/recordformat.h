// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The form in which SQLite packs numbers and rows. Everything is bounds-checked.

#include "platform/core/value.h"

#include <QByteArray>

#include <optional>
#include <span>
#include <vector>

namespace platform::storage::sqlite {

/// How the file keeps text, as its header numbers it.
inline constexpr int kUtf8 = 1;
inline constexpr int kUtf16Little = 2;
inline constexpr int kUtf16Big = 3;

/// A number of one to nine bytes; `length` is how many it took.
struct Varint
{
    quint64 value = 0;
    std::size_t length = 0;
};

/// The packed number at `offset`, nothing when the bytes end before it does.
[[nodiscard]] std::optional<Varint> readVarint(std::span<const unsigned char> bytes,
                                               std::size_t offset) noexcept;

/// A number of `length` bytes (1 to 8), highest byte first. The caller has checked the bounds.
[[nodiscard]] quint64 readBigEndian(std::span<const unsigned char> bytes, std::size_t offset,
                                    std::size_t length) noexcept;

/// The values of a row. Nothing unless header and values fill the payload exactly, as SQLite writes them.
[[nodiscard]] std::optional<std::vector<Value>> decodeRecord(std::span<const unsigned char> payload,
                                                             int encoding);

} // namespace platform::storage::sqlite
