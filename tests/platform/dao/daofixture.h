// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A store in a temporary folder, for the tests of the data access objects: table LINEAS with a text, a number
// and a memo, primary index PRIMARIO on CODIGO and NUMERO, and a second one, NOMBRES, on NOMBRE.

#include "platform/core/failure.h"
#include "platform/dao/dao.h"

#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <memory>

namespace daotest {

using namespace Qt::StringLiterals;

/// Number of the failure that a call ends with, 0 when it doesn't fail.
[[nodiscard]] int failureOf(const std::function<void()>& call);

/// The native path of a store in a temporary folder that lives as long as the object.
class Store
{
public:
    Store();
    [[nodiscard]] QString path() const;
    [[nodiscard]] QString path(const QString& name) const { return m_directory.filePath(name); }
    /// Creates the store with its table, empty, and closes it.
    void create() const;
    [[nodiscard]] platform::dao::Database open() const;
    /// Another station's way to the same file, past the data access objects of this one.
    [[nodiscard]] std::unique_ptr<platform::storage::Connection> otherStation() const;

private:
    QTemporaryDir m_directory;
};

[[nodiscard]] platform::dao::TableDef lineTable(const platform::dao::Database& database, const QString& name);

/// Adds a row with CODIGO, NUMERO and NOMBRE.
void addLine(platform::dao::Recordset& lines, const QString& code, double number, const QString& name);
/// The same by another station.
void addLine(platform::storage::Connection& station, const QString& code, double number, const QString& name);
void deleteLine(platform::storage::Connection& station, const QString& code, double number);
void renameLine(platform::storage::Connection& station, const QString& code, double number,
                const QString& name);

[[nodiscard]] QString text(const platform::dao::Recordset& rows, QStringView column);
/// The NOMBRE of each row from the first to the last, moving by MoveFirst and MoveNext.
[[nodiscard]] QStringList walk(platform::dao::Recordset& rows);

[[nodiscard]] platform::dao::Workspace workspace();

/// Every test of a unit starts with no open database, the real engine, and copies of rows that are looked at
/// anew at every access.
void resetEngine();

} // namespace daotest
