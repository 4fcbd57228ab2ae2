// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/storage/sqlite/recordformat.h"

#include <QStringDecoder>

#include <bit>
#include <cmath>

namespace platform::storage::sqlite {

namespace {

using Bytes = std::span<const unsigned char>;

/// The most columns that SQLite lets a table have; more is damage.
constexpr std::size_t kMostColumns = 32767;

constexpr quint64 kSerialNull = 0;
constexpr quint64 kSerialReal = 7;
constexpr quint64 kSerialZero = 8;
constexpr quint64 kSerialOne = 9;
constexpr quint64 kFirstVariable = 12;

/// Bytes of a value by its serial type; nothing for the types that don't exist.
std::optional<quint64> lengthOf(quint64 serial) noexcept
{
    constexpr quint64 kFixed[] = {0, 1, 2, 3, 4, 6, 8, 8, 0, 0};
    if (serial < std::size(kFixed))
        return kFixed[serial];
    if (serial < kFirstVariable)
        return std::nullopt;
    return (serial - kFirstVariable) / 2;
}

double integerOf(Bytes bytes) noexcept
{
    const quint64 raw = readBigEndian(bytes, 0, bytes.size());
    const std::size_t unusedBits = 64 - 8 * bytes.size();
    return static_cast<double>(static_cast<qint64>(raw << unusedBits) >> unusedBits);
}

Value realOf(Bytes bytes) noexcept
{
    const double number = std::bit_cast<double>(readBigEndian(bytes, 0, bytes.size()));
    return std::isnan(number) ? Value(Null{}) : Value(number);
}

QString textOf(Bytes bytes, int encoding)
{
    const void* start = bytes.data();
    const QByteArrayView view(static_cast<const char*>(start), static_cast<qsizetype>(bytes.size()));
    if (encoding == kUtf16Little)
        return QStringDecoder(QStringDecoder::Utf16LE).decode(view);
    if (encoding == kUtf16Big)
        return QStringDecoder(QStringDecoder::Utf16BE).decode(view);
    return QString::fromUtf8(view);
}

Value valueOf(quint64 serial, Bytes bytes, int encoding)
{
    switch (serial) {
    case kSerialNull:
        return Null{};
    case kSerialReal:
        return realOf(bytes);
    case kSerialZero:
        return 0.0;
    case kSerialOne:
        return 1.0;
    default:
        break;
    }
    if (serial < kFirstVariable)
        return integerOf(bytes);
    // Even types are blobs, whose bytes are taken for text as everywhere else.
    return textOf(bytes, serial % 2 == 0 ? kUtf8 : encoding);
}

/// The serial types of a record, nothing when its header is no header.
std::optional<std::vector<quint64>> readTypes(Bytes payload, std::size_t& headerLength)
{
    const std::optional<Varint> header = readVarint(payload, 0);
    if (!header || header->value < header->length || header->value > payload.size())
        return std::nullopt;
    headerLength = static_cast<std::size_t>(header->value);
    const Bytes head = payload.first(headerLength);
    std::vector<quint64> types;
    for (std::size_t offset = header->length; offset < headerLength;) {
        const std::optional<Varint> type = readVarint(head, offset);
        if (!type || types.size() >= kMostColumns)
            return std::nullopt;
        types.push_back(type->value);
        offset += type->length;
    }
    return types;
}

} // namespace

std::optional<Varint> readVarint(Bytes bytes, std::size_t offset) noexcept
{
    constexpr std::size_t kLongest = 9;
    Varint result;
    while (result.length < kLongest) {
        if (offset + result.length >= bytes.size())
            return std::nullopt;
        const unsigned char byte = bytes[offset + result.length];
        ++result.length;
        if (result.length == kLongest) {
            result.value = (result.value << 8) | byte;
            break;
        }
        result.value = (result.value << 7) | (byte & 0x7FU);
        if ((byte & 0x80U) == 0)
            break;
    }
    return result;
}

quint64 readBigEndian(Bytes bytes, std::size_t offset, std::size_t length) noexcept
{
    quint64 value = 0;
    for (std::size_t i = 0; i < length; ++i)
        value = (value << 8) | bytes[offset + i];
    return value;
}

std::optional<std::vector<Value>> decodeRecord(Bytes payload, int encoding)
{
    std::size_t offset = 0;
    const std::optional<std::vector<quint64>> types = readTypes(payload, offset);
    if (!types)
        return std::nullopt;
    std::vector<Value> values;
    values.reserve(types->size());
    for (const quint64 type : *types) {
        const std::optional<quint64> length = lengthOf(type);
        if (!length || *length > payload.size() - offset)
            return std::nullopt;
        values.push_back(valueOf(type, payload.subspan(offset, static_cast<std::size_t>(*length)), encoding));
        offset += static_cast<std::size_t>(*length);
    }
    if (offset != payload.size())
        return std::nullopt;
    return values;
}

} // namespace platform::storage::sqlite
