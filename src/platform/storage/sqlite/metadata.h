// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The one hidden table of a store, which holds what SQLite's own schema can't say. It annotates and may lag
// behind a change made with another tool; where the two differ the schema is right.
//
// Shape: kind ('file', 'column', 'index'), owner (the table, '' for the file), item (column or index),
// property, value.

#include "platform/storage/sqlite/handle.h"
#include "platform/storage/storage.h"

#include <QHash>

namespace platform::storage::sqlite {

inline constexpr char kMetadataTable[] = "store_metadata";

/// Mark in the header of a store of ours, "ORVN".
inline constexpr int kApplicationId = 0x4F52564E;

/// What the metadata table says, read at one moment. Names ignore case.
class Metadata
{
public:
    /// An empty one: a file made with another tool.
    Metadata() = default;
    /// Reads the table. To be called within a reading.
    explicit Metadata(const Database& database);

    /// What the file was made with.
    [[nodiscard]] CreateOptions options() const;
    /// The size noted for a column, 0 when there is none.
    [[nodiscard]] int columnSize(const QString& table, const QString& column) const;
    /// True, too, for a column that nothing is noted of.
    [[nodiscard]] bool allowsZeroLength(const QString& table, const QString& column) const;
    /// Whether the index was made the primary one with exactly these columns.
    [[nodiscard]] bool isPrimary(const QString& table, const QString& index,
                                 const QStringList& columns) const;

private:
    [[nodiscard]] Value property(QLatin1String kind, const QString& owner, const QString& item,
                                 QLatin1String name) const;

    QHash<QString, Value> m_properties;
};

/// Makes the table where it is missing.
void makeMetadataTable(const Database& database);

/// Writers, each to be called within a writing.
void makeMetadata(const Database& database, const CreateOptions& options);
void noteColumn(const Database& database, const QString& table, const Column& column);
void noteIndex(const Database& database, const QString& table, const IndexDefinition& index);
void noteZeroLength(const Database& database, const QString& table, const QString& column, bool allowed);
void forgetColumn(const Database& database, const QString& table, const QString& column);
void forgetIndex(const Database& database, const QString& table, const QString& index);

} // namespace platform::storage::sqlite
