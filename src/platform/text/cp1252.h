// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The Windows-1252 repertoire, which is the one of the suite's stores and report calls.
// The five bytes without a character (81, 8D, 8F, 90, 9D) stand for the control of the same code.

#include <QByteArray>
#include <QString>

#include <optional>

namespace platform {

/// The code 0..255 of a character, or nothing when the repertoire doesn't hold it.
[[nodiscard]] std::optional<unsigned char> cp1252Code(QChar character) noexcept;

/// The character of a code.
[[nodiscard]] QChar cp1252Character(unsigned char code) noexcept;

/// Bytes to text, one character a byte.
[[nodiscard]] QString fromCp1252(QByteArrayView bytes);

/// Text to bytes, or nothing when a character has no code.
[[nodiscard]] std::optional<QByteArray> toCp1252(QStringView text);

} // namespace platform
