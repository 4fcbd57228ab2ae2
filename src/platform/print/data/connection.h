// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The store files of a job, opened together behind the stores' gate, read at one moment and closed again.

#include "platform/print/data/tablereader.h"

#include <QString>

#include <memory>
#include <vector>

namespace platform::print {

struct SourceColumn
{
    QString name;
    formula::Type type = formula::Type::Text; ///< Text or Number
};

class Connection
{
public:
    /// Nothing is open yet.
    Connection();
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// Opens the file (once, however many tables are taken from it) and begins to read it. Throws `Problem`:
    /// file missing (7), busy, damaged or unreadable (18).
    void open(const QString& nativePath);
    /// Columns of a table in an opened file. Throws `Problem`: no such table (8).
    [[nodiscard]] std::vector<SourceColumn> columns(const QString& nativePath, const QString& table) const;
    /// Takes the rows of a table (see `TableReader`); lives no longer than this. Throws `Problem` (18).
    [[nodiscard]] std::unique_ptr<TableReader> reader(const QString& nativePath, const QString& table,
                                                      const std::vector<int>& columns,
                                                      const QByteArray& condition = {}) const;
    /// Whether a table has more rows than that. Throws `Problem` (18).
    [[nodiscard]] bool hasMoreRows(const QString& nativePath, const QString& table, int count) const;

private:
    struct File;
    [[nodiscard]] const File& file(const QString& nativePath) const;

    std::vector<std::unique_ptr<File>> m_files;
};

} // namespace platform::print
