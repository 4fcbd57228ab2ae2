// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/core/failure.h"

namespace platform {

Failure::Failure(int number, QString text)
    : m_number(number)
    , m_text(std::move(text))
    , m_what(QStringLiteral("failure %1: %2").arg(number).arg(m_text).toUtf8())
{}

} // namespace platform
