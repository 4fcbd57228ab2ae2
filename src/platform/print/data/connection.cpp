// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/data/connection.h"

#include "platform/print/data/pushdown.h"
#include "platform/storage/sqlite/openfile.h"

#include <QFileInfo>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace platform::print {

namespace sqlite = storage::sqlite;

struct Connection::File
{
    QString path;
    std::unique_ptr<sqlite::Store> store;
    std::optional<sqlite::ReadTransaction> reading;
    QList<sqlite::StoredTable> schema;
};

Connection::Connection() = default;

Connection::~Connection() = default;

void Connection::open(const QString& nativePath)
{
    const auto known = [&nativePath](const std::unique_ptr<File>& file) { return file->path == nativePath; };
    if (std::any_of(m_files.begin(), m_files.end(), known))
        return;
    if (!QFileInfo::exists(nativePath))
        throw Problem(kStoreMissing, u"no existe el fichero de datos «%1»"_s.arg(nativePath));
    auto file = std::make_unique<File>();
    file->path = nativePath;
    try {
        file->store = sqlite::openStore(nativePath, storage::Sharing::Shared);
        registerPushdown(file->store->database().get());
        file->reading.emplace(*file->store);
        file->schema = sqlite::readSchema(file->store->database());
    } catch (const Failure& failure) {
        throw readProblem(failure, nativePath);
    }
    m_files.push_back(std::move(file));
}

const Connection::File& Connection::file(const QString& nativePath) const
{
    return **std::find_if(m_files.begin(), m_files.end(), [&nativePath](const std::unique_ptr<File>& file) {
        return file->path == nativePath;
    });
}

std::vector<SourceColumn> Connection::columns(const QString& nativePath, const QString& table) const
{
    const sqlite::StoredTable* stored = sqlite::findTable(file(nativePath).schema, table);
    if (stored == nullptr)
        throw Problem(kTableMissing, u"la tabla «%1» no existe en «%2»"_s.arg(table, nativePath));
    std::vector<SourceColumn> columns;
    for (const storage::Column& column : stored->definition.columns) {
        const bool number = column.type == storage::ColumnType::Number;
        columns.push_back({column.name, number ? formula::Type::Number : formula::Type::Text});
    }
    return columns;
}

std::unique_ptr<TableReader> Connection::reader(const QString& nativePath, const QString& table,
                                                const std::vector<int>& columns,
                                                const QByteArray& condition) const
{
    const File& source = file(nativePath);
    try {
        return std::make_unique<TableReader>(*source.store, nativePath,
                                             *sqlite::findTable(source.schema, table), columns, condition);
    } catch (const Failure& failure) {
        throw readProblem(failure, nativePath);
    }
}

bool Connection::hasMoreRows(const QString& nativePath, const QString& table, int count) const
{
    const File& source = file(nativePath);
    const sqlite::StoredTable* stored = sqlite::findTable(source.schema, table);
    try {
        const QByteArray sql = "SELECT count(*) FROM (SELECT 1 FROM " +
                               sqlite::quoted(stored->definition.name) + " LIMIT " +
                               QByteArray::number(count + 1) + ")";
        return source.store->database().number(sql, sqlite::Task::Read) > count;
    } catch (const Failure& failure) {
        throw readProblem(failure, nativePath);
    }
}

} // namespace platform::print
