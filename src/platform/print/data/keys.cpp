// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/data/keys.h"

#include "platform/print/formula/compare.h"

#include <QtEndian>

#include <bit>

namespace platform::print {
namespace {

QByteArray bigEndian(quint64 number)
{
    QByteArray key(8, '\0');
    qToBigEndian(number, key.data());
    return key;
}

/// Doubles in the order of their bits: negative ones turned round, positive ones above them.
QByteArray numberKey(double number)
{
    constexpr quint64 signBit = quint64(1) << 63;
    const auto bits = std::bit_cast<quint64>(number == 0 ? 0.0 : number);
    return bigEndian((bits & signBit) != 0 ? ~bits : bits | signBit);
}

QByteArray momentKey(qint64 day, qint64 second)
{
    return bigEndian(static_cast<quint64>(day * 100'000 + second));
}

} // namespace

QByteArray valueKey(const formula::Value& value, bool caseSensitive)
{
    if (const auto* text = std::get_if<QString>(&value))
        return 'T' + formula::sortKey(*text, caseSensitive);
    if (const auto* number = std::get_if<double>(&value))
        return numberKey(*number);
    if (const auto* flag = std::get_if<bool>(&value))
        return QByteArray(1, *flag ? '\2' : '\1');
    if (const auto* date = std::get_if<formula::Date>(&value))
        return momentKey(date->day, 0);
    if (const auto* time = std::get_if<formula::Time>(&value))
        return momentKey(0, time->second);
    if (const auto* moment = std::get_if<formula::DateTime>(&value))
        return momentKey(moment->day, moment->second);
    return {};
}

} // namespace platform::print
