// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/data/connection.h"

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"
#include "platform/print/data/pushdown.h"
#include "platform/print/formula/to_text.h"
#include "platform/print/problem.h"
#include "platform/storage/sqlite/openfile.h"
#include "platform/storage/sqlite/schema.h"
#include "platform/storage/sqlite/store.h"
#include "platform/text/textfunctions.h"

#include <QFileInfo>

#include <sqlite3.h>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace platform::print {
namespace {

namespace sqlite = storage::sqlite;

Problem readProblem(const Failure& failure, const QString& path)
{
    switch (failure.number()) {
    case kDatabaseFileNotFound:
    case kPathNotValid:
        return Problem(kStoreMissing, u"no existe el fichero de datos «%1»"_s.arg(path));
    case kCouldNotLockFile:
    case kLockedByAnother:
    case kCouldNotLockTable:
        return Problem(kReadError, u"el fichero de datos «%1» está ocupado"_s.arg(path));
    default:
        return Problem(kReadError,
                       u"no se puede leer el fichero de datos «%1»: %2"_s.arg(path, failure.text()));
    }
}

QByteArrayView textAt(sqlite3_stmt* statement, int column)
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return QByteArrayView(text, text != nullptr ? sqlite3_column_bytes(statement, column) : 0);
}

void addNumberCell(RowStore& rows, sqlite3_stmt* statement, int column)
{
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_NULL:
        return rows.addNull();
    case SQLITE_INTEGER:
    case SQLITE_FLOAT:
        return rows.addNumber(sqlite3_column_double(statement, column));
    default:
        return rows.addNumber(Val(QString::fromUtf8(textAt(statement, column))));
    }
}

void addTextCell(RowStore& rows, sqlite3_stmt* statement, int column)
{
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_NULL:
        return rows.addNull();
    case SQLITE_INTEGER:
    case SQLITE_FLOAT:
        return rows.addText(formula::plainNumber(sqlite3_column_double(statement, column)).toUtf8());
    default:
        break;
    }
    const QByteArrayView text = textAt(statement, column);
    if (text.size() > kMaxCellBytes)
        throw Problem(kReadError, u"un texto de los datos es demasiado largo"_s);
    rows.addText(text);
}

} // namespace

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

RowStore Connection::read(const QString& nativePath, const QString& table, const std::vector<int>& columns,
                          const QByteArray& condition) const
{
    const File& source = file(nativePath);
    const sqlite::StoredTable* stored = sqlite::findTable(source.schema, table);
    std::vector<formula::Type> types;
    QByteArrayList names;
    for (const int column : columns) {
        const storage::Column& wanted = stored->definition.columns[column];
        types.push_back(wanted.type == storage::ColumnType::Number ? formula::Type::Number
                                                                   : formula::Type::Text);
        names += sqlite::quoted(wanted.name);
    }
    const QByteArray where = condition.isEmpty() ? QByteArray() : " WHERE " + condition;
    const QByteArray from = " FROM " + sqlite::quoted(stored->definition.name) + where;
    RowStore rows(types);
    try {
        if (columns.empty()) {
            const sqlite::Database& database = source.store->database();
            rows.setRowCount(
                static_cast<quint32>(database.number("SELECT count(*)" + from, sqlite::Task::Read)));
            return rows;
        }
        const QByteArray sql = "SELECT " + names.join(", ") + from + " ORDER BY " + stored->rowId;
        sqlite::Statement statement = source.store->prepare(sql, sqlite::Task::Read);
        sqlite::Run run(statement, sqlite::Task::Read);
        while (run.next()) {
            for (std::size_t i = 0; i < types.size(); ++i) {
                const auto add = types[i] == formula::Type::Number ? addNumberCell : addTextCell;
                add(rows, statement.get(), static_cast<int>(i));
            }
        }
    } catch (const Failure& failure) {
        throw readProblem(failure, nativePath);
    }
    return rows;
}

} // namespace platform::print
