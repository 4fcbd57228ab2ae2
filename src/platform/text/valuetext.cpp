// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"
#include "platform/core/value.h"
#include "platform/text/textfunctions.h"

namespace platform {

namespace {

[[noreturn]] void failNull()
{
    throw Failure(kInvalidUseOfNull, QStringLiteral("invalid use of Null"));
}

} // namespace

QString asText(const Value& value)
{
    if (const auto* text = std::get_if<QString>(&value))
        return *text;
    if (const auto* number = std::get_if<double>(&value))
        return CStr(*number);
    failNull();
}

double asNumber(const Value& value)
{
    if (const auto* number = std::get_if<double>(&value))
        return *number;
    if (const auto* text = std::get_if<QString>(&value))
        return CDbl(*text);
    failNull();
}

} // namespace platform
