// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/storage/sqlite/pagefile.h"

#include "platform/storage/sqlite/recordformat.h"

#include <algorithm>
#include <utility>

namespace platform::storage::sqlite {

namespace {

constexpr unsigned char kIndexInteriorType = 2;
constexpr unsigned char kTableInteriorType = 5;
constexpr unsigned char kIndexLeafType = 10;
constexpr unsigned char kTableLeafType = 13;
constexpr std::size_t kLeafHeader = 8;
constexpr std::size_t kInteriorHeader = 12;
constexpr std::size_t kFileHeader = 100;
constexpr int kMostReserved = 64;
/// How many times over the rows of one page may claim its bytes before the rest counts as damage.
constexpr std::size_t kOverlaps = 8;
constexpr quint32 kUsualPageSize = 4096;

std::span<const unsigned char> unsignedBytes(const QByteArray& bytes) noexcept
{
    const void* start = bytes.constData();
    return {static_cast<const unsigned char*>(start), static_cast<std::size_t>(bytes.size())};
}

/// The page size of the file's header, 0 when it tells none that is possible.
quint32 headerPageSize(std::span<const unsigned char> bytes) noexcept
{
    constexpr quint64 kMeansLargest = 1;
    if (bytes.size() < kFileHeader)
        return 0;
    const quint64 raw = readBigEndian(bytes, 16, 2);
    const quint64 size = raw == kMeansLargest ? 65536 : raw;
    return size >= 512 && (size & (size - 1)) == 0 ? static_cast<quint32>(size) : 0;
}

int headerEncoding(std::span<const unsigned char> bytes) noexcept
{
    const quint64 raw = bytes.size() >= kFileHeader ? readBigEndian(bytes, 56, 4) : 0;
    return raw == kUtf16Little || raw == kUtf16Big ? static_cast<int>(raw) : kUtf8;
}

int headerReserved(std::span<const unsigned char> bytes) noexcept
{
    const int reserved = bytes.size() >= kFileHeader ? bytes[20] : 0;
    return reserved <= kMostReserved ? reserved : 0;
}

/// Most bytes of a payload that a table's leaf page holds itself.
std::size_t mostInTable(std::size_t usable) noexcept
{
    return usable - 35;
}

/// The same for a page of an index.
std::size_t mostInIndex(std::size_t usable) noexcept
{
    return (usable - 12) * 64 / 255 - 23;
}

/// How much of a payload stands in the page itself.
std::size_t localLength(quint64 payload, std::size_t usable, std::size_t most) noexcept
{
    if (payload <= most)
        return static_cast<std::size_t>(payload);
    const std::size_t least = (usable - 12) * 32 / 255 - 23;
    const std::size_t fitting = least + static_cast<std::size_t>((payload - least) % (usable - 4));
    return fitting <= most ? fitting : least;
}

} // namespace

PageFile::PageFile(QByteArray bytes)
    : m_bytes(std::move(bytes))
{
    const std::span<const unsigned char> raw = unsignedBytes(m_bytes);
    m_encoding = headerEncoding(raw);
    m_reserved = headerReserved(raw);
    const quint32 told = headerPageSize(raw);
    quint32 best = told != 0 ? told : kUsualPageSize;
    setPageSize(best);
    quint64 mostRows = readableRows();
    for (quint32 size = 512; size <= 65536; size *= 2) {
        setPageSize(size);
        const quint64 rows = readableRows();
        if (rows > mostRows)
            best = size;
        mostRows = std::max(rows, mostRows);
    }
    setPageSize(best);
}

void PageFile::setPageSize(quint32 size) noexcept
{
    constexpr quint64 kVisitsPerPage = 64;
    m_pageSize = size;
    m_usable = size - static_cast<std::size_t>(m_reserved);
    m_pageCount = static_cast<quint32>(std::min<qsizetype>(m_bytes.size() / size, 0x7FFFFFFF));
    m_overflowBudget = kVisitsPerPage * m_pageCount;
}

quint64 PageFile::readableRows() const
{
    quint64 count = 0;
    for (quint32 page = 1; page <= m_pageCount; ++page) {
        if (kind(page) == PageKind::TableLeaf)
            count += rows(page).size();
    }
    return count;
}

PageFile::Bytes PageFile::bytesOf(quint32 page) const noexcept
{
    return unsignedBytes(m_bytes).subspan(static_cast<std::size_t>(page - 1) * m_pageSize, m_usable);
}

PageKind PageFile::kind(quint32 page) const noexcept
{
    if (page == 0 || page > m_pageCount)
        return PageKind::Other;
    switch (bytesOf(page)[treeOffset(page)]) {
    case kTableLeafType:
        return PageKind::TableLeaf;
    case kTableInteriorType:
        return PageKind::TableInterior;
    default:
        return PageKind::Other;
    }
}

std::vector<std::size_t> PageFile::cellOffsets(quint32 page, std::size_t headerLength) const
{
    const Bytes bytes = bytesOf(page);
    const std::size_t tree = treeOffset(page);
    const std::size_t pointers = tree + headerLength;
    const std::size_t room = (bytes.size() - pointers) / 2;
    const std::size_t count = std::min(static_cast<std::size_t>(readBigEndian(bytes, tree + 3, 2)), room);
    std::vector<std::size_t> offsets;
    for (std::size_t i = 0; i < count; ++i) {
        const auto offset = static_cast<std::size_t>(readBigEndian(bytes, pointers + 2 * i, 2));
        if (offset >= pointers + 2 * count && offset < bytes.size())
            offsets.push_back(offset);
    }
    return offsets;
}

std::vector<SalvagedRow> PageFile::rows(quint32 page) const
{
    std::vector<SalvagedRow> found;
    if (kind(page) != PageKind::TableLeaf)
        return found;
    const Bytes bytes = bytesOf(page);
    // Rows of an honest page share neither bytes nor overflow pages.
    Allowance allowance{kOverlaps * m_usable, m_pageCount};
    for (const std::size_t offset : cellOffsets(page, kLeafHeader)) {
        if (std::optional<SalvagedRow> row = rowAt(bytes, offset, allowance))
            found.push_back(std::move(*row));
    }
    return found;
}

std::optional<SalvagedRow> PageFile::rowAt(Bytes page, std::size_t offset, Allowance& allowance) const
{
    const std::optional<Varint> length = readVarint(page, offset);
    if (!length || length->value == 0 || length->value > static_cast<quint64>(m_bytes.size()))
        return std::nullopt;
    const std::optional<Varint> rowId = readVarint(page, offset + length->length);
    if (!rowId)
        return std::nullopt;
    const std::size_t start = offset + length->length + rowId->length;
    std::optional<std::vector<Value>> values =
        recordAt(page, start, length->value, mostInTable(m_usable), allowance);
    if (!values)
        return std::nullopt;
    return SalvagedRow{static_cast<qint64>(rowId->value), std::move(*values)};
}

std::optional<std::vector<Value>> PageFile::recordAt(Bytes page, std::size_t start, quint64 length,
                                                     std::size_t most, Allowance& allowance) const
{
    const std::size_t local = localLength(length, m_usable, most);
    const bool overflows = local < length;
    if (start + local + (overflows ? 4 : 0) > page.size() || local > allowance.bytes)
        return std::nullopt;
    allowance.bytes -= local;
    if (!overflows)
        return decodeRecord(page.subspan(start, local), m_encoding);
    const void* begin = page.data() + start;
    QByteArray payload(static_cast<const char*>(begin), static_cast<qsizetype>(local));
    const auto next = static_cast<quint32>(readBigEndian(page, start + local, 4));
    if (!followOverflow(next, length, payload, allowance))
        return std::nullopt;
    return decodeRecord(unsignedBytes(payload), m_encoding);
}

bool PageFile::followOverflow(quint32 page, quint64 wanted, QByteArray& payload, Allowance& allowance) const
{
    while (static_cast<quint64>(payload.size()) < wanted) {
        if (page == 0 || page > m_pageCount || m_overflowBudget == 0 || allowance.overflowPages == 0)
            return false;
        --m_overflowBudget;
        --allowance.overflowPages;
        const Bytes bytes = bytesOf(page);
        const quint64 missing = wanted - static_cast<quint64>(payload.size());
        const std::size_t taken = static_cast<std::size_t>(std::min<quint64>(missing, bytes.size() - 4));
        const void* begin = bytes.data() + 4;
        payload.append(static_cast<const char*>(begin), static_cast<qsizetype>(taken));
        page = static_cast<quint32>(readBigEndian(bytes, 0, 4));
    }
    // A chain that goes on after the last byte belongs to another row.
    return page == 0;
}

std::vector<quint32> PageFile::children(quint32 page) const
{
    std::vector<quint32> found;
    if (kind(page) != PageKind::TableInterior)
        return found;
    const Bytes bytes = bytesOf(page);
    for (const std::size_t offset : cellOffsets(page, kInteriorHeader)) {
        if (offset + 4 <= bytes.size())
            found.push_back(static_cast<quint32>(readBigEndian(bytes, offset, 4)));
    }
    found.push_back(static_cast<quint32>(readBigEndian(bytes, treeOffset(page) + 8, 4)));
    return found;
}

std::optional<IndexPage> PageFile::indexPage(quint32 page) const
{
    // Page 1 is the schema's.
    if (page < 2 || page > m_pageCount)
        return std::nullopt;
    const Bytes bytes = bytesOf(page);
    const bool isLeaf = bytes[0] == kIndexLeafType;
    if (!isLeaf && bytes[0] != kIndexInteriorType)
        return std::nullopt;
    IndexPage found;
    Allowance allowance{kOverlaps * m_usable, m_pageCount};
    const std::size_t pointer = isLeaf ? 0 : 4;
    const std::vector<std::size_t> offsets = cellOffsets(page, isLeaf ? kLeafHeader : kInteriorHeader);
    found.isWhole = offsets.size() == readBigEndian(bytes, 3, 2);
    for (const std::size_t offset : offsets) {
        if (!isLeaf && offset + pointer <= bytes.size())
            found.children.push_back(static_cast<quint32>(readBigEndian(bytes, offset, pointer)));
        std::optional<std::vector<Value>> entry = indexEntry(bytes, offset + pointer, allowance);
        if (entry)
            found.entries.push_back(std::move(*entry));
        else
            found.isWhole = false;
    }
    if (!isLeaf)
        found.children.push_back(static_cast<quint32>(readBigEndian(bytes, 8, 4)));
    return found;
}

std::optional<std::vector<Value>> PageFile::indexEntry(Bytes page, std::size_t offset,
                                                       Allowance& allowance) const
{
    const std::optional<Varint> length = readVarint(page, offset);
    if (!length || length->value == 0 || length->value > static_cast<quint64>(m_bytes.size()))
        return std::nullopt;
    return recordAt(page, offset + length->length, length->value, mostInIndex(m_usable), allowance);
}

std::vector<bool> PageFile::freePages() const
{
    std::vector<bool> free(static_cast<std::size_t>(m_pageCount) + 1, false);
    if (m_pageCount == 0)
        return free;
    auto trunk = static_cast<quint32>(readBigEndian(bytesOf(1), 32, 4));
    while (trunk != 0 && trunk <= m_pageCount && !free[trunk]) {
        free[trunk] = true;
        const Bytes bytes = bytesOf(trunk);
        const std::size_t most = bytes.size() / 4 - 2;
        const std::size_t count = std::min(static_cast<std::size_t>(readBigEndian(bytes, 4, 4)), most);
        for (std::size_t i = 0; i < count; ++i) {
            const auto leaf = static_cast<quint32>(readBigEndian(bytes, 8 + 4 * i, 4));
            if (leaf != 0 && leaf <= m_pageCount)
                free[leaf] = true;
        }
        trunk = static_cast<quint32>(readBigEndian(bytes, 0, 4));
    }
    return free;
}

} // namespace platform::storage::sqlite
