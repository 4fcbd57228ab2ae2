// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/textfunctions.h"

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"
#include "platform/text/cp1252.h"

#include <algorithm>

namespace platform {

namespace {

void requireNotNegative(qsizetype count)
{
    if (count < 0)
        throw Failure(kInvalidProcedureCall, QStringLiteral("negative length"));
}

void requirePosition(qsizetype start)
{
    if (start < 1)
        throw Failure(kInvalidProcedureCall, QStringLiteral("position below 1"));
}

[[nodiscard]] QStringView withoutLeadingBlanks(QStringView text) noexcept
{
    while (!text.isEmpty() && text.front() == u' ')
        text = text.sliced(1);
    return text;
}

[[nodiscard]] QStringView withoutBlanks(QStringView text) noexcept
{
    text = withoutLeadingBlanks(text);
    while (!text.isEmpty() && text.back() == u' ')
        text.chop(1);
    return text;
}

/// Upper case of one unit. A character of the Windows-1252 repertoire whose capital lies outside it stays.
[[nodiscard]] QChar upperCase(QChar character) noexcept
{
    const QChar upper = character.toUpper();
    return cp1252Code(character) && !cp1252Code(upper) ? character : upper;
}

} // namespace

QString Trim(QStringView text)
{
    return withoutBlanks(text).toString();
}

QString LTrim(QStringView text)
{
    return withoutLeadingBlanks(text).toString();
}

QString Left(QStringView text, qsizetype count)
{
    requireNotNegative(count);
    return text.first(std::min(count, text.size())).toString();
}

QString Mid(QStringView text, qsizetype start)
{
    requirePosition(start);
    return start > text.size() ? QString() : text.sliced(start - 1).toString();
}

QString Mid(QStringView text, qsizetype start, qsizetype count)
{
    requirePosition(start);
    requireNotNegative(count);
    return Left(start > text.size() ? QStringView() : text.sliced(start - 1), count);
}

qsizetype InStr(QStringView text, QStringView wanted) noexcept
{
    return text.isEmpty() ? 0 : text.indexOf(wanted) + 1;
}

qsizetype InStrRev(QStringView text, QStringView wanted) noexcept
{
    if (text.isEmpty())
        return 0;
    // An empty text is found at the end, on the last character.
    return wanted.isEmpty() ? text.size() : text.lastIndexOf(wanted) + 1;
}

QString String(qsizetype count, QChar character)
{
    requireNotNegative(count);
    return QString(count, character);
}

QString UCase(QStringView text)
{
    QString result = text.toString();
    std::transform(result.cbegin(), result.cend(), result.begin(), upperCase);
    return result;
}

bool beginsIgnoringCase(QStringView text, QStringView beginning) noexcept
{
    return text.size() >= beginning.size() &&
           std::equal(beginning.cbegin(), beginning.cend(), text.cbegin(), [](QChar one, QChar other) {
               return one == other || upperCase(one) == upperCase(other);
           });
}

int Asc(QStringView text)
{
    if (text.isEmpty())
        throw Failure(kInvalidProcedureCall, QStringLiteral("no first character"));
    const int code = cp1252Code(text.front()).value_or(0);
    if (code == 0)
        throw Failure(kSubscriptOutOfRange, QStringLiteral("the character has no code from 1 to 255"));
    return code;
}

bool IsNumeric(QStringView text) noexcept
{
    QStringView digits = withoutBlanks(text);
    if (!digits.isEmpty() && (digits.front() == u'+' || digits.front() == u'-'))
        digits = digits.sliced(1);
    const auto isDigit = [](QChar unit) { return unit >= u'0' && unit <= u'9'; };
    const auto isPoint = [](QChar unit) { return unit == u'.' || unit == u','; };
    const auto digitCount = std::count_if(digits.begin(), digits.end(), isDigit);
    const auto pointCount = std::count_if(digits.begin(), digits.end(), isPoint);
    return digitCount > 0 && pointCount <= 1 && digitCount + pointCount == digits.size();
}

QString FormatDate(QDate date)
{
    return date.toString(u"dd/MM/yyyy");
}

QString FormatTime(QTime time)
{
    return time.toString(u"HH:mm:ss");
}

} // namespace platform
