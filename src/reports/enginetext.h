// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Texts on their way to the print engine: single bytes of Windows-1252, ended by a zero.

#include <QByteArray>
#include <QString>

namespace reports {

/// A text for the engine; it owns its bytes and lives as long as the call.
class EngineText
{
public:
    explicit EngineText(QByteArray bytes)
        : m_bytes(std::move(bytes))
    {}
    // NOLINTNEXTLINE(google-explicit-constructor): stands wherever the engine takes a text.
    operator const char*() const { return m_bytes.constData(); }
    [[nodiscard]] const QByteArray& bytes() const { return m_bytes; }

private:
    QByteArray m_bytes;
};

/// A character without a Windows-1252 code becomes "?".
[[nodiscard]] EngineText engineText(const QString& text);

/// A path; one that Windows-1252 can't hold goes as UTF-8, which the engine tries next.
[[nodiscard]] EngineText enginePath(const QString& path);

/// Writes a path into a fixed field: left-justified, cut at `size` - 1 bytes, ended by a zero.
void fillEngineField(char* field, std::size_t size, const QString& path);

/// Reads a fixed field up to its first zero.
[[nodiscard]] QString fromEngineField(const char* field, std::size_t size);

} // namespace reports
