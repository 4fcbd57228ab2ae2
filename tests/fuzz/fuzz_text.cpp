// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/require.h"
#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"
#include "platform/text/cp1252.h"
#include "platform/text/spanishorder.h"
#include "platform/text/textfunctions.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>

using namespace platform;
using fuzz::require;

namespace {

[[nodiscard]] int sign(int order) noexcept
{
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

void checkRepertoire(QByteArrayView bytes, const QString& text)
{
    const QString wide = fromCp1252(bytes);
    require(wide.size() == bytes.size(), "a byte is a character");
    require(toCp1252(wide) == bytes.toByteArray(), "bytes come back from their text");
    const auto narrow = toCp1252(text);
    require(!narrow || fromCp1252(*narrow) == text, "text comes back from its bytes");
}

void checkOrder(const QString& left, const QString& right)
{
    const int order = sign(compareSpanish(left, right));
    require(sign(compareSpanish(right, left)) == -order, "the order is the same from both sides");
    require(compareSpanish(left, left) == 0, "a text equals itself");
    require(sign(spanishSortKey(left).compare(spanishSortKey(right))) == order,
            "keys have the order of the texts");
    // Half a surrogate pair can't be told in UTF-8.
    if (left.isValidUtf16() && right.isValidUtf16())
        require(sign(compareSpanishUtf8(left.toUtf8(), right.toUtf8())) == order,
                "both encodings have one order");
    require(compareSpanish(left + QString(2, u' '), left) == 0, "blanks at the end don't count");
}

void checkRawBytes(QByteArrayView left, QByteArrayView right)
{
    require(sign(compareSpanishUtf8(left, right)) == -sign(compareSpanishUtf8(right, left)),
            "any bytes have one order");
    require(compareSpanishUtf8(left, left) == 0, "any bytes equal themselves");
}

void checkNumbers(const QString& text)
{
    require(std::isfinite(Val(text)), "the leading number is finite");
    static_cast<void>(FormatAmount(text));
    try {
        const double number = CDbl(text);
        require(std::isfinite(number), "a number is finite");
        const QString plain = CStr(number);
        require(plain.contains(u'E') || CStr(CDbl(plain)) == plain, "the plain form comes back");
        require(Str(number).size() > 1, "a number has a text");
    } catch (const Failure& failure) {
        require(failure.number() == kTypeMismatch || failure.number() == kOverflow,
                "a number fails with 13 or 6");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArrayView bytes(data, static_cast<qsizetype>(size));
    const QString text = QString::fromUtf8(bytes);
    checkRepertoire(bytes, text);
    checkOrder(text.first(text.size() / 2), text.sliced(text.size() / 2));
    QString wide(bytes.size() / 2, Qt::Uninitialized);
    std::memcpy(wide.data(), data, static_cast<std::size_t>(wide.size()) * sizeof(QChar));
    checkOrder(wide.first(wide.size() / 2), wide.sliced(wide.size() / 2));
    checkRawBytes(bytes.first(bytes.size() / 2), bytes.sliced(bytes.size() / 2));
    checkNumbers(text);
    return 0;
}
