// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/cp1252.h"

#include <array>

namespace platform {

namespace {

constexpr unsigned kFirstSpecial = 0x80;
constexpr unsigned kLastSpecial = 0x9F;

// Characters of the codes 80 to 9F; every other code is the character of the same number.
constexpr std::array<char16_t, 32> kSpecials{0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                             0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                             0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                             0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

} // namespace

std::optional<unsigned char> cp1252Code(QChar character) noexcept
{
    const char16_t unit = character.unicode();
    if (unit < kFirstSpecial || (unit > kLastSpecial && unit <= 0xFF))
        return static_cast<unsigned char>(unit);
    for (unsigned i = 0; i < kSpecials.size(); ++i) {
        if (kSpecials[i] == unit)
            return static_cast<unsigned char>(kFirstSpecial + i);
    }
    return std::nullopt;
}

QChar cp1252Character(unsigned char code) noexcept
{
    if (code < kFirstSpecial || code > kLastSpecial)
        return QChar(char16_t{code});
    return QChar(kSpecials[code - kFirstSpecial]);
}

QString fromCp1252(QByteArrayView bytes)
{
    QString text(bytes.size(), Qt::Uninitialized);
    for (qsizetype i = 0; i < bytes.size(); ++i)
        text[i] = cp1252Character(static_cast<unsigned char>(bytes[i]));
    return text;
}

std::optional<QByteArray> toCp1252(QStringView text)
{
    QByteArray bytes(text.size(), Qt::Uninitialized);
    for (qsizetype i = 0; i < text.size(); ++i) {
        const auto code = cp1252Code(text[i]);
        if (!code)
            return std::nullopt;
        bytes[i] = static_cast<char>(*code);
    }
    return bytes;
}

} // namespace platform
