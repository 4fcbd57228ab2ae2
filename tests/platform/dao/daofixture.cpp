// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/dao/daofixture.h"

#include "platform/core/failurenumbers.h"
#include "platform/dao/freshness.h"

namespace daotest {

using namespace platform::dao;
namespace storage = platform::storage;

int failureOf(const std::function<void()>& call)
{
    try {
        call();
    } catch (const platform::Failure& failure) {
        return failure.number();
    }
    return 0;
}

Workspace workspace()
{
    return DBEngine().Workspaces(0);
}

void resetEngine()
{
    DBEngine().setStorage(nullptr);
    setRowFreshness(std::chrono::milliseconds{0});
}

Store::Store() = default;

QString Store::path() const
{
    return m_directory.filePath(u"almacen.mdb"_s);
}

TableDef lineTable(const Database& database, const QString& name)
{
    TableDef table = database.CreateTableDef(name);
    table.Fields().Append(table.CreateField(u"CODIGO"_s, dbText, 10));
    table.Fields().Append(table.CreateField(u"NUMERO"_s, dbDouble));
    table.Fields().Append(table.CreateField(u"NOMBRE"_s, dbText, 20));
    table.Fields().Append(table.CreateField(u"NOTAS"_s, dbMemo));
    Index primary = table.CreateIndex(u"PRIMARIO"_s);
    primary.setPrimary(true);
    primary.setUnique(true);
    primary.Fields().Append(primary.CreateField(u"CODIGO"_s));
    primary.Fields().Append(primary.CreateField(u"NUMERO"_s));
    table.Indexes().Append(primary);
    Index names = table.CreateIndex(u"NOMBRES"_s);
    names.Fields().Append(names.CreateField(u"NOMBRE"_s));
    table.Indexes().Append(names);
    return table;
}

void Store::create() const
{
    Database database = workspace().CreateDatabase(path(), kSpanishLocale, dbVersion40);
    database.TableDefs().Append(lineTable(database, u"LINEAS"_s));
    database.Close();
}

Database Store::open() const
{
    return workspace().OpenDatabase(path());
}

std::unique_ptr<storage::Connection> Store::otherStation() const
{
    return storage::sqliteEngine()->open(path(), storage::Sharing::Shared);
}

void addLine(Recordset& lines, const QString& code, double number, const QString& name)
{
    lines.AddNew();
    lines[u"CODIGO"].setValue(code);
    lines[u"NUMERO"].setValue(number);
    lines[u"NOMBRE"].setValue(name);
    lines.Update();
}

void addLine(storage::Connection& station, const QString& code, double number, const QString& name)
{
    station.openTable(u"LINEAS"_s)->insert({code, number, name, platform::Null{}});
}

namespace {

storage::RowId lineId(storage::Table& lines, const QString& code, double number, storage::Row& row)
{
    const platform::Value keys[] = {code, number};
    return lines.seek(u"PRIMARIO"_s, keys, row).value();
}

} // namespace

void deleteLine(storage::Connection& station, const QString& code, double number)
{
    storage::Row row;
    const std::unique_ptr<storage::Table> lines = station.openTable(u"LINEAS"_s);
    lines->erase(lineId(*lines, code, number, row));
}

void renameLine(storage::Connection& station, const QString& code, double number, const QString& name)
{
    storage::Row row;
    const std::unique_ptr<storage::Table> lines = station.openTable(u"LINEAS"_s);
    const storage::RowId id = lineId(*lines, code, number, row);
    storage::Row changed = row;
    changed[2] = name;
    lines->update(id, row, changed);
}

QString text(const Recordset& rows, QStringView column)
{
    return platform::asText(rows[column].Value());
}

QStringList walk(Recordset& rows)
{
    QStringList names;
    for (rows.MoveFirst(); !rows.EOF_(); rows.MoveNext())
        names.append(text(rows, u"NOMBRE"));
    return names;
}

} // namespace daotest
