// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/dao/editbuffer.h"

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"

namespace platform::dao {

void EditBuffer::beginAdd(std::size_t columnCount)
{
    m_mode = Mode::Adding;
    m_values.assign(columnCount, Value(Null{}));
}

void EditBuffer::beginEdit(storage::RowId id, storage::Row current)
{
    m_mode = Mode::Editing;
    m_id = id;
    m_values = current;
    m_original = std::move(current);
}

void EditBuffer::drop() noexcept
{
    m_mode = Mode::None;
}

void EditBuffer::write(storage::Table& table)
{
    if (m_mode == Mode::Adding)
        table.insert(m_values);
    else
        writeEdit(table);
}

void EditBuffer::writeEdit(storage::Table& table)
{
    try {
        table.update(m_id, m_original, m_values);
    } catch (const Failure& failure) {
        // The next attempt compares with what the other station left, and so replaces it. Where the row has
        // gone meanwhile, that attempt says so.
        if (failure.number() == kDataChanged)
            static_cast<void>(table.read(m_id, m_original));
        throw;
    }
}

} // namespace platform::dao
