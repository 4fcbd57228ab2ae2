// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The pages of a damaged SQLite file, read without SQLite. Nothing in the bytes is trusted: every offset,
// length and page number is checked, and the work is bounded whatever they say.

#include "platform/core/value.h"

#include <QByteArray>

#include <optional>
#include <span>
#include <vector>

namespace platform::storage::sqlite {

enum class PageKind { TableLeaf, TableInterior, Other };

/// A row as it stands in a page.
struct SalvagedRow
{
    qint64 rowId = 0;
    std::vector<Value> values;
};

/// A page of an index's tree.
struct IndexPage
{
    std::vector<std::vector<Value>> entries; ///< key columns and, last, the row's number
    std::vector<quint32> children;           ///< pages below; they may be any numbers
    bool isWhole = true;                     ///< every entry that the page counts could be read
};

class PageFile
{
public:
    /// Takes the bytes of the file. The page size is the one under which most rows can be read; the one that
    /// the file's own header tells goes before where both do.
    explicit PageFile(QByteArray bytes);

    /// Pages are numbered from 1.
    [[nodiscard]] quint32 pageCount() const noexcept { return m_pageCount; }
    [[nodiscard]] PageKind kind(quint32 page) const noexcept;
    /// Every row of a table's leaf page that can be read whole, with what it keeps on overflow pages.
    [[nodiscard]] std::vector<SalvagedRow> rows(quint32 page) const;
    /// Pages below an interior page. They may be any numbers.
    [[nodiscard]] std::vector<quint32> children(quint32 page) const;
    /// Keys and pages below of an index's page; nothing for a page of another kind.
    [[nodiscard]] std::optional<IndexPage> indexPage(quint32 page) const;
    /// For every page (index 0 unused) whether the list of free pages names it.
    [[nodiscard]] std::vector<bool> freePages() const;

private:
    using Bytes = std::span<const unsigned char>;

    /// What the rows of one page may still take, so that lying lengths can't make the work endless.
    struct Allowance
    {
        std::size_t bytes;
        quint64 overflowPages;
    };

    void setPageSize(quint32 size) noexcept;
    [[nodiscard]] quint64 readableRows() const;
    [[nodiscard]] Bytes bytesOf(quint32 page) const noexcept;
    /// Where in the page its tree header begins: after the file's header on page 1.
    [[nodiscard]] static std::size_t treeOffset(quint32 page) noexcept { return page == 1 ? 100 : 0; }
    [[nodiscard]] std::vector<std::size_t> cellOffsets(quint32 page, std::size_t headerLength) const;
    [[nodiscard]] std::optional<SalvagedRow> rowAt(Bytes page, std::size_t offset,
                                                   Allowance& allowance) const;
    [[nodiscard]] std::optional<std::vector<Value>> indexEntry(Bytes page, std::size_t offset,
                                                               Allowance& allowance) const;
    /// The values of a payload of `length` bytes that begins at `start`, at most `most` of them in the page.
    [[nodiscard]] std::optional<std::vector<Value>> recordAt(Bytes page, std::size_t start, quint64 length,
                                                             std::size_t most, Allowance& allowance) const;
    [[nodiscard]] bool followOverflow(quint32 page, quint64 wanted, QByteArray& payload,
                                      Allowance& allowance) const;

    QByteArray m_bytes;
    quint32 m_pageSize = 0;
    quint32 m_pageCount = 0;
    std::size_t m_usable = 0; ///< bytes of a page that SQLite uses
    int m_reserved = 0;
    int m_encoding = 1;
    mutable quint64 m_overflowBudget = 0; ///< overflow pages that may still be looked at
};

} // namespace platform::storage::sqlite
