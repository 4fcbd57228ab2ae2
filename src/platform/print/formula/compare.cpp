// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/formula/compare.h"

#include "platform/text/spanishorder.h"

#include <QtEndian>

#include <compare>

namespace platform::print::formula {
namespace {

qsizetype trailingBlanks(QStringView text) noexcept
{
    qsizetype count = 0;
    while (count < text.size() && text[text.size() - 1 - count] == u' ')
        ++count;
    return count;
}

template <typename T>
int order(const T& left, const T& right) noexcept
{
    return left < right ? -1 : (right < left ? 1 : 0);
}

DateTime moment(const Value& value) noexcept
{
    if (const Date* date = std::get_if<Date>(&value))
        return DateTime{date->day, 0};
    if (const DateTime* both = std::get_if<DateTime>(&value))
        return *both;
    return {};
}

} // namespace

int compareText(QStringView left, QStringView right, bool caseSensitive) noexcept
{
    if (const int byOrder = compareSpanish(left, right); byOrder != 0)
        return byOrder;
    if (const int byBlanks = order(trailingBlanks(left), trailingBlanks(right)); byBlanks != 0)
        return byBlanks;
    return caseSensitive ? left.compare(right, Qt::CaseSensitive) : 0;
}

int compareValues(const Value& left, const Value& right, bool caseSensitive) noexcept
{
    if (!hasValue(left) || !hasValue(right))
        return order(hasValue(left), hasValue(right));
    if (const double* number = std::get_if<double>(&left))
        return order(*number, *std::get_if<double>(&right));
    if (const QString* text = std::get_if<QString>(&left))
        return compareText(*text, *std::get_if<QString>(&right), caseSensitive);
    if (const bool* flag = std::get_if<bool>(&left))
        return order(*flag, *std::get_if<bool>(&right));
    if (const Time* time = std::get_if<Time>(&left))
        return order(*time, *std::get_if<Time>(&right));
    return order(moment(left), moment(right));
}

qsizetype findText(QStringView text, QStringView wanted, bool caseSensitive, qsizetype start)
{
    return text.indexOf(wanted, start, caseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive);
}

QByteArray sortKey(QStringView text, bool caseSensitive)
{
    QByteArray key = spanishSortKey(text);
    key.append(4, '\0');
    qToBigEndian(static_cast<quint32>(trailingBlanks(text)), key.data() + key.size() - 4);
    if (caseSensitive) {
        for (const QChar character : text) {
            key.append(static_cast<char>(character.unicode() >> 8));
            key.append(static_cast<char>(character.unicode() & 0xFF));
        }
    }
    return key;
}

} // namespace platform::print::formula
