// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/spanishorder.h"

#include "platform/text/cp1252.h"
#include "platform/text/spanishweights.h"

#include <algorithm>

namespace platform {

namespace {

using spanish::Element;

constexpr char32_t kReplacement = 0xFFFD;
constexpr Element kEnd{0, 0};

/// Reads code points from UTF-16; half a surrogate pair is U+FFFD.
class Utf16Reader
{
public:
    using Unit = char16_t;

    explicit Utf16Reader(QStringView text) noexcept
        : m_at(text.utf16())
        , m_end(m_at + text.size())
    {}

    [[nodiscard]] bool atEnd() const noexcept { return m_at == m_end; }
    [[nodiscard]] Unit unit() const noexcept { return *m_at; }
    void skipUnit() noexcept { ++m_at; }

    [[nodiscard]] char32_t take() noexcept
    {
        const char16_t unit = *m_at++;
        if (!QChar::isSurrogate(unit))
            return unit;
        if (QChar::isLowSurrogate(unit) || atEnd() || !QChar::isLowSurrogate(*m_at))
            return kReplacement;
        return QChar::surrogateToUcs4(unit, *m_at++);
    }

private:
    const char16_t* m_at;
    const char16_t* m_end;
};

/// Reads code points from UTF-8; a byte that belongs to no well-formed sequence is U+FFFD.
class Utf8Reader
{
public:
    using Unit = unsigned char;

    explicit Utf8Reader(QByteArrayView text) noexcept
        : m_at(reinterpret_cast<const unsigned char*>(text.data()))
        , m_end(m_at + text.size())
    {}

    [[nodiscard]] bool atEnd() const noexcept { return m_at == m_end; }
    [[nodiscard]] Unit unit() const noexcept { return *m_at; }
    void skipUnit() noexcept { ++m_at; }

    [[nodiscard]] char32_t take() noexcept
    {
        const unsigned char lead = *m_at++;
        if (lead < 0x80)
            return lead;
        if (lead >= 0xC2 && lead <= 0xDF)
            return takeRest(lead & 0x1FU, 1, 0x80);
        if (lead >= 0xE0 && lead <= 0xEF)
            return takeRest(lead & 0x0FU, 2, 0x800);
        if (lead >= 0xF0 && lead <= 0xF4)
            return takeRest(lead & 0x07U, 3, 0x10000);
        return kReplacement;
    }

private:
    [[nodiscard]] char32_t takeRest(char32_t value, int count, char32_t least) noexcept
    {
        if (m_end - m_at < count)
            return kReplacement;
        for (int i = 0; i < count; ++i) {
            if ((m_at[i] & 0xC0U) != 0x80U)
                return kReplacement;
            value = (value << 6U) | (m_at[i] & 0x3FU);
        }
        if (value < least || value > QChar::LastValidCodePoint || (value >= 0xD800 && value <= 0xDFFF))
            return kReplacement;
        m_at += count;
        return value;
    }

    const unsigned char* m_at;
    const unsigned char* m_end;
};

/// The weights of a text, one after the other, then `kEnd` for ever.
template <typename Reader>
class Weights
{
public:
    explicit Weights(Reader reader) noexcept
        : m_reader(reader)
    {}

    [[nodiscard]] Element next() noexcept
    {
        if (m_pending != m_pendingEnd)
            return *m_pending++;
        if (m_reader.atEnd())
            return kEnd;
        const char32_t point = m_reader.take();
        return point < 0x80 ? ofAscii(point) : ofOther(point);
    }

    /// The next weight that isn't an accent.
    [[nodiscard]] std::uint32_t nextPrimary() noexcept
    {
        Element element = next();
        while (element.primary == 0 && element.secondary != 0)
            element = next();
        return element.primary;
    }

private:
    [[nodiscard]] Element ofAscii(char32_t point) noexcept
    {
        const char32_t lower = point | 0x20U;
        if (lower == U'c' && acceptLetter('h'))
            return spanish::kCh;
        if (lower == U'l' && acceptLetter('l'))
            return spanish::kLl;
        return spanish::kCharacters[point].elements[0];
    }

    [[nodiscard]] bool acceptLetter(typename Reader::Unit lower) noexcept
    {
        if (m_reader.atEnd() || (m_reader.unit() | 0x20U) != lower)
            return false;
        m_reader.skipUnit();
        return true;
    }

    [[nodiscard]] Element ofOther(char32_t point) noexcept
    {
        const auto code = point > 0xFFFF ? std::nullopt : cp1252Code(QChar(static_cast<char16_t>(point)));
        if (!code)
            return {spanish::kOutside + point, spanish::kNoAccent};
        const spanish::Character& character = spanish::kCharacters[*code];
        m_pending = character.elements.data() + 1;
        m_pendingEnd = character.elements.data() + character.count;
        return character.elements[0];
    }

    Reader m_reader;
    const Element* m_pending = nullptr;
    const Element* m_pendingEnd = nullptr;
};

template <typename View>
[[nodiscard]] View withoutTrailingBlanks(View text) noexcept
{
    qsizetype size = text.size();
    while (size > 0 && text[size - 1] == decltype(text[0])(u' '))
        --size;
    return text.first(size);
}

/// True when no character and no letter of two characters goes on behind this unit.
template <typename Unit>
[[nodiscard]] bool endsLetter(Unit unit) noexcept
{
    const auto lower = unit | 0x20U;
    return unit < 0x80 && lower != 'c' && lower != 'l';
}

/// Where two texts have to be compared from: their common beginning up to there weighs the same.
template <typename Unit>
[[nodiscard]] qsizetype commonBeginning(const Unit* left, const Unit* right, qsizetype size) noexcept
{
    qsizetype common = std::mismatch(left, left + size, right).first - left;
    while (common > 0 && !endsLetter(left[common - 1]))
        --common;
    return common;
}

template <typename Reader, typename View>
[[nodiscard]] int compareWeights(View left, View right) noexcept
{
    Weights<Reader> leftWeights{Reader(left)};
    Weights<Reader> rightWeights{Reader(right)};
    for (;;) {
        const std::uint32_t leftPrimary = leftWeights.nextPrimary();
        const std::uint32_t rightPrimary = rightWeights.nextPrimary();
        if (leftPrimary != rightPrimary)
            return leftPrimary < rightPrimary ? -1 : 1;
        if (leftPrimary == 0)
            break;
    }
    leftWeights = Weights<Reader>{Reader(left)};
    rightWeights = Weights<Reader>{Reader(right)};
    for (;;) {
        const int leftSecondary = leftWeights.next().secondary;
        const int rightSecondary = rightWeights.next().secondary;
        if (leftSecondary != rightSecondary || leftSecondary == 0)
            return leftSecondary - rightSecondary;
    }
}

} // namespace

int compareSpanish(QStringView left, QStringView right) noexcept
{
    left = withoutTrailingBlanks(left);
    right = withoutTrailingBlanks(right);
    const qsizetype from = commonBeginning(left.utf16(), right.utf16(), std::min(left.size(), right.size()));
    return compareWeights<Utf16Reader>(left.sliced(from), right.sliced(from));
}

int compareSpanishUtf8(QByteArrayView left, QByteArrayView right) noexcept
{
    left = withoutTrailingBlanks(left);
    right = withoutTrailingBlanks(right);
    const qsizetype from = commonBeginning(reinterpret_cast<const unsigned char*>(left.data()),
                                           reinterpret_cast<const unsigned char*>(right.data()),
                                           std::min(left.size(), right.size()));
    return compareWeights<Utf8Reader>(left.sliced(from), right.sliced(from));
}

QByteArray spanishSortKey(QStringView text)
{
    // One byte for a primary of the repertoire, FF and the code point for the others, then 0 and the accents.
    constexpr char kOutsideMark = '\xFF';
    QByteArray primaries;
    QByteArray secondaries;
    Weights<Utf16Reader> weights{Utf16Reader(withoutTrailingBlanks(text))};
    for (Element element = weights.next(); element.secondary != 0; element = weights.next()) {
        secondaries.append(static_cast<char>(element.secondary));
        if (element.primary >= spanish::kOutside) {
            const std::uint32_t point = element.primary - spanish::kOutside;
            primaries.append(kOutsideMark);
            for (const unsigned shift : {16U, 8U, 0U})
                primaries.append(static_cast<char>((point >> shift) & 0xFFU));
        } else if (element.primary != 0) {
            primaries.append(static_cast<char>(element.primary));
        }
    }
    return primaries + '\0' + secondaries;
}

} // namespace platform
