// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The copy buffer of a recordset: the values of a record that is being added or changed, until `Update`.

#include "platform/storage/storage.h"

namespace platform::dao {

class EditBuffer
{
public:
    [[nodiscard]] bool isPending() const noexcept { return m_mode != Mode::None; }
    [[nodiscard]] bool isAdding() const noexcept { return m_mode == Mode::Adding; }

    /// Starts a new record, all Null. What was pending is replaced in silence; so it is by `beginEdit`.
    void beginAdd(std::size_t columnCount);
    void beginEdit(storage::RowId id, storage::Row current);
    void drop() noexcept;

    [[nodiscard]] const Value& value(int column) const { return m_values[static_cast<std::size_t>(column)]; }
    void setValue(int column, Value value) { m_values[static_cast<std::size_t>(column)] = std::move(value); }
    [[nodiscard]] const storage::Row& values() const noexcept { return m_values; }

    /// Writes the buffer to the table. A failure leaves the edit pending; after 3197 (changed by another
    /// since the record was read) a second call overwrites what the other wrote. The caller drops the buffer
    /// on success.
    void write(storage::Table& table);

private:
    enum class Mode { None, Adding, Editing };

    void writeEdit(storage::Table& table);

    Mode m_mode = Mode::None;
    storage::RowId m_id = 0;
    storage::Row m_original;
    storage::Row m_values;
};

} // namespace platform::dao
