// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The shape of a store as data: tables with their columns and indexes, in the order in which they are
// appended. The create pattern, the repair, the data tools and the tests all walk the same tables.

#include "platform/dao/constants.h"
#include "platform/storage/storage.h"

#include <QList>
#include <QStringView>

#include <array>
#include <span>

namespace stores {

struct ColumnSchema
{
    QStringView name;
    platform::dao::FieldType type;
    int size = 0; ///< of a `dbText`, in UTF-16 units
};

inline constexpr std::size_t kLongestKey = 3;

struct IndexSchema
{
    QStringView name;
    bool primary;
    bool unique;
    std::array<QStringView, kLongestKey> key; ///< unused places at the end are empty
};

struct TableSchema
{
    QStringView name;
    std::span<const ColumnSchema> columns;
    std::span<const IndexSchema> indexes;
};

/// Where the file of a store lies.
enum class Place { CompanyFolder, CurrentDirectory };

struct StoreSchema
{
    QStringView file; ///< as the create procedure appends it to the folder
    Place place;
    int formatOption;                    ///< of `CreateDatabase`
    std::span<const TableSchema> tables; ///< of a file just created
};

/// The table as the storage seam wants it, every column taking "" but the numeric ones.
[[nodiscard]] platform::storage::TableDefinition tableDefinition(const TableSchema& table);
[[nodiscard]] QList<platform::storage::TableDefinition> tableDefinitions(std::span<const TableSchema> tables);

} // namespace stores
