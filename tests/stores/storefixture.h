// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Store files of any age for the tests of the stores, and what they hold afterwards.

#include "platform/dao/dao.h"
#include "stores/schema.h"

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

#include <functional>
#include <initializer_list>
#include <utility>
#include <vector>

namespace storetest {

/// A row to add: column and value.
using RowValues = std::initializer_list<std::pair<const char16_t*, platform::Value>>;

/// A store file with the tables given. It is closed again.
void makeStore(const QString& path, const QList<stores::TableSchema>& tables);

/// The table with its first `columns` columns only.
[[nodiscard]] stores::TableSchema firstColumns(const stores::TableSchema& table, std::size_t columns);

/// `clientescyctabla` as it was before its lines were numbered: 15 columns, a primary index of two.
[[nodiscard]] stores::TableSchema unnumberedConcepts();

/// Adds a row to a table of a closed store.
void addRow(const QString& path, const QString& table, RowValues values);

/// Column names of a table of a closed store, in order.
[[nodiscard]] QStringList columnNames(const QString& path, const QString& table);
/// Definition of a table of a closed store, as the storage keeps it.
[[nodiscard]] platform::storage::TableDefinition definition(const QString& path, const QString& table);
/// Key columns of an index; empty when there is none of that name.
[[nodiscard]] QStringList keyOf(const QString& path, const QString& table, const QString& index);
/// Rows of a table of a closed store in the order of its primary index; the values as text, "Null" for Null.
[[nodiscard]] QList<QStringList> rows(const QString& path, const QString& table);

/// Close, create and open of every store, as a start does.
void bringUp();
/// Everything closed and every variable empty, but for `RUTAEMPRESA`.
void endRun();

/// Bytes of every file below the folder, by name; the lock files left out. Nothing may be open.
[[nodiscard]] QMap<QString, QByteArray> filesBelow(const QString& nativeFolder);

} // namespace storetest
