// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Why a job can't go on. Thrown inside the engine only; the job turns it into its last error.

#include "platform/print/errorcodes.h"

#include <QString>

#include <exception>

namespace platform::print {

class Problem : public std::exception
{
public:
    Problem(ErrorCode code, QString text)
        : m_code(code)
        , m_text(std::move(text))
        , m_what(m_text.toUtf8())
    {}

    [[nodiscard]] ErrorCode code() const noexcept { return m_code; }
    /// Spanish, with the place where there is one.
    [[nodiscard]] const QString& text() const noexcept { return m_text; }
    [[nodiscard]] const char* what() const noexcept override { return m_what.constData(); }

private:
    ErrorCode m_code;
    QString m_text;
    QByteArray m_what;
};

} // namespace platform::print
