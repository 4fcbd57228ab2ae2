// SPDX-License-Identifier: GPL-3.0-or-later
//
// `Database` and `Recordsets`.

#include "platform/dao/queryrecordset.h"
#include "platform/dao/sql/parser.h"
#include "platform/dao/tablerecordset.h"

#include <algorithm>
#include <array>

namespace platform::dao {
namespace {

/// True when the source of a query recordset is a statement, not a table's name.
bool isStatement(QStringView source)
{
    static constexpr std::array<QStringView, 12> kFirstWords{
        u"SELECT", u"DELETE",    u"INSERT",  u"UPDATE",     u"CREATE",    u"DROP",
        u"ALTER",  u"TRANSFORM", u"EXECUTE", u"PARAMETERS", u"PROCEDURE", u"WITH"};
    const QStringView text = source.trimmed();
    const auto wordEnd =
        std::find_if(text.begin(), text.end(), [](QChar unit) { return !unit.isLetterOrNumber(); });
    const QStringView first = text.first(wordEnd - text.begin());
    const auto startsWith = [&](QStringView word) { return first.compare(word, Qt::CaseInsensitive) == 0; };
    return first.isEmpty() || std::any_of(kFirstWords.begin(), kFirstWords.end(), startsWith);
}

sql::Select wholeTable(const QString& name)
{
    sql::Select select;
    select.items.push_back({sql::AllColumns{}, {}});
    select.table = name;
    return select;
}

std::shared_ptr<RecordsetState> openTableRecordset(const std::shared_ptr<DatabaseState>& database,
                                                   const QString& name)
{
    try {
        return std::make_shared<TableRecordset>(database, database->connection->openTable(name));
    } catch (const Failure& failure) {
        if (failure.number() == kInputTableNotFound)
            throw Failure(kObjectNotFound, failure.text());
        throw;
    }
}

std::shared_ptr<RecordsetState> openQueryRecordset(const std::shared_ptr<DatabaseState>& database,
                                                   const QString& source, bool dynaset)
{
    const sql::Select select = isStatement(source) ? sql::parseSelect(source) : wholeTable(source.trimmed());
    return std::make_shared<QueryRecordset>(database, database->connection->query(select), dynaset);
}

} // namespace

Database::Database(std::shared_ptr<DatabaseState> state)
    : m_state(std::move(state))
{}

bool Database::isBound() const noexcept
{
    return m_state != nullptr;
}

QString Database::Name() const
{
    return open(m_state).name;
}

TableDef Database::CreateTableDef(const QString& name) const
{
    open(m_state);
    auto table = std::make_shared<TableDefState>();
    table->name = name;
    return TableDef(std::move(table));
}

dao::TableDefs Database::TableDefs() const
{
    open(m_state);
    dao::TableDefs tables;
    tables.m_database = m_state;
    return tables;
}

dao::Recordsets Database::Recordsets() const
{
    open(m_state);
    dao::Recordsets recordsets;
    recordsets.m_database = m_state;
    return recordsets;
}

Recordset Database::OpenRecordset(const QString& source, RecordsetType type) const
{
    open(m_state);
    if (type == dbOpenTable)
        return Recordset(openTableRecordset(m_state, source));
    return Recordset(openQueryRecordset(m_state, source, type == dbOpenDynaset));
}

void Database::Execute(const QString& sql)
{
    DatabaseState& database = open(m_state);
    const sql::DropIndex action = sql::parseAction(sql);
    database.writable().dropIndex(action.table, action.index);
}

void Database::Close()
{
    // The object must outlive the recordsets that let go of it.
    const std::shared_ptr<DatabaseState> database = m_state;
    open(database).close();
}

int Recordsets::Count() const
{
    return static_cast<int>(open(m_database).recordsets.size());
}

Recordset Recordsets::Item(int index) const
{
    return Recordset(member(open(m_database).recordsets, index)->shared_from_this());
}

} // namespace platform::dao
