// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The one exception that the program's two failure regimes know, and the numbers it carries.
// Anything else that is thrown (out of memory, a broken assertion) is a fault of ours and is never swallowed.

#include <QString>

#include <exception>

namespace platform {

/// A failed statement. `number` is the runtime's or the data engine's number for the failure (see
/// `failurenumbers.h`); `text` says it in words for logs and tests and is never shown by the program.
class Failure : public std::exception
{
public:
    explicit Failure(int number, QString text = {});

    [[nodiscard]] int number() const noexcept { return m_number; }
    [[nodiscard]] const QString& text() const noexcept { return m_text; }
    [[nodiscard]] const char* what() const noexcept override { return m_what.constData(); }

private:
    int m_number;
    QString m_text;
    QByteArray m_what;
};

} // namespace platform
