// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/window/flexcolumn.h"

#include "platform/text/textfunctions.h"

#include <algorithm>

namespace platform {

namespace {

const QString kAmountFormat = QStringLiteral("##,##.00");
const QString kDateFormat = QStringLiteral("dd/mm/yyyy");

/// An emptied date cell holds its separators and blanks; it looks empty.
bool isBlankDate(const QString& value)
{
    return std::all_of(value.begin(), value.end(),
                       [](QChar c) { return c == QLatin1Char('/') || c == QLatin1Char(' '); });
}

} // namespace

QString formattedLook(const QString& value, const QString& format)
{
    if (format == kAmountFormat)
        return FormatAmount(value);
    if (format == kDateFormat && isBlankDate(value))
        return {};
    return value;
}

QString inputMaskFor(const QString& mask)
{
    if (mask.isEmpty())
        return {};
    QString result = mask;
    // In Qt "9" demands a digit and an unfinished text couldn't be left; "0" doesn't.
    result.replace(QLatin1Char('9'), QLatin1Char('0'));
    return result + QStringLiteral("; ");
}

bool isTickedText(const QString& text)
{
    return Val(text) != 0.0;
}

} // namespace platform
