// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/data/tablereader.h"

#include "platform/core/failurenumbers.h"
#include "platform/print/formula/to_text.h"
#include "platform/text/textfunctions.h"

#include <sqlite3.h>

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace platform::print {
namespace {

namespace sqlite = storage::sqlite;

/// Rows looked at in one step: well below a millisecond for rows of usual length.
constexpr int kRowsAStep = 250;
/// Row numbers that a condition is tried on before a step ends, met or not.
constexpr qint64 kConditionRange = 500;
constexpr qint64 kLastRowNumber = std::numeric_limits<qint64>::max();

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

QByteArray columnList(const sqlite::StoredTable& table, const std::vector<int>& columns)
{
    // A table of which no column is read is counted.
    QByteArrayList names;
    for (const int column : columns)
        names += sqlite::quoted(table.definition.columns[column].name);
    return names.isEmpty() ? QByteArray("1") : names.join(", ");
}

} // namespace

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

TableReader::TableReader(const sqlite::Store& store, QString path, const sqlite::StoredTable& table,
                         const std::vector<int>& columns, const QByteArray& condition)
    : m_path(std::move(path))
    , m_next(std::numeric_limits<qint64>::min())
    , m_rangeLength(condition.isEmpty() ? kLastRowNumber : kConditionRange)
{
    for (const int column : columns) {
        const bool number = table.definition.columns[column].type == storage::ColumnType::Number;
        m_types.push_back(number ? formula::Type::Number : formula::Type::Text);
    }
    m_rows = RowStore(m_types);
    const QByteArray from = " FROM " + sqlite::quoted(table.definition.name) + " WHERE " + table.rowId;
    const QByteArray order = " ORDER BY " + table.rowId;
    const QByteArray met = condition.isEmpty() ? QByteArray() : " AND (" + condition + ')';
    m_first =
        store.prepare("SELECT " + table.rowId + from + " >= ?1" + order + " LIMIT 1", sqlite::Task::Read);
    m_statement =
        store.prepare("SELECT " + columnList(table, columns) + from + " BETWEEN ?1 AND ?2" + met + order,
                      sqlite::Task::Read);
}

/// Goes on to the next numbers that have rows. False when there are no more rows.
bool TableReader::beginRange()
{
    m_first.bind(1, m_next);
    sqlite::Run run(m_first, sqlite::Task::Read);
    if (!run.next())
        return false;
    const qint64 first = sqlite::integerAt(m_first, 0);
    const qint64 last = first > kLastRowNumber - m_rangeLength ? kLastRowNumber : first + m_rangeLength;
    m_statement.bind(1, first);
    m_statement.bind(2, last);
    m_run.emplace(m_statement, sqlite::Task::Read);
    m_isLastRange = last == kLastRowNumber;
    m_next = m_isLastRange ? last : last + 1;
    return true;
}

bool TableReader::readRow()
{
    if (!m_run->next())
        return false;
    ++m_count;
    for (std::size_t i = 0; i < m_types.size(); ++i) {
        const auto add = m_types[i] == formula::Type::Number ? addNumberCell : addTextCell;
        add(m_rows, m_statement.get(), static_cast<int>(i));
    }
    return true;
}

bool TableReader::step()
{
    try {
        if (!m_run && !beginRange())
            return false;
        for (int i = 0; i < kRowsAStep; ++i) {
            if (!readRow()) {
                m_run.reset();
                return !m_isLastRange;
            }
        }
        return true;
    } catch (const Failure& failure) {
        throw readProblem(failure, m_path);
    }
}

RowStore TableReader::takeRows()
{
    m_rows.setRowCount(m_count);
    return std::move(m_rows);
}

} // namespace platform::print
