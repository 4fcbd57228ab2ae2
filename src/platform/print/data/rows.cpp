// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/data/rows.h"

#include <bit>

namespace platform::print {
namespace {

/// A text cell is its offset (40 bits) and length (24 bits); all ones is a null, as it is for a number, where
/// this pattern is a NaN that no store holds.
constexpr quint64 kNullCell = ~quint64(0);
constexpr int kLengthBits = 24;

} // namespace

RowStore::RowStore(std::vector<formula::Type> columns)
    : m_columns(std::move(columns))
{}

void RowStore::addNull()
{
    m_cells.push_back(kNullCell);
}

void RowStore::addNumber(double number)
{
    m_cells.push_back(std::bit_cast<quint64>(number));
}

void RowStore::addText(QByteArrayView utf8)
{
    const auto offset = static_cast<quint64>(m_texts.size());
    m_texts.append(utf8);
    m_cells.push_back(offset << kLengthBits | static_cast<quint64>(utf8.size()));
}

quint32 RowStore::rowCount() const noexcept
{
    return m_columns.empty() ? m_plainRows : static_cast<quint32>(m_cells.size() / m_columns.size());
}

QByteArrayView RowStore::bytes(quint32 row, int column) const noexcept
{
    const auto place = static_cast<std::size_t>(column);
    const quint64 cell = row == kNoRow ? kNullCell : m_cells[row * m_columns.size() + place];
    if (cell == kNullCell || m_columns[place] == formula::Type::Number)
        return {};
    return QByteArrayView(m_texts.constData() + (cell >> kLengthBits),
                          static_cast<qsizetype>(cell & ((quint64(1) << kLengthBits) - 1)));
}

formula::Value RowStore::value(quint32 row, int column) const
{
    if (row == kNoRow)
        return {};
    const auto place = static_cast<std::size_t>(column);
    const quint64 cell = m_cells[row * m_columns.size() + place];
    if (cell == kNullCell)
        return {};
    if (m_columns[place] == formula::Type::Number)
        return std::bit_cast<double>(cell);
    return QString::fromUtf8(bytes(row, column));
}

} // namespace platform::print
