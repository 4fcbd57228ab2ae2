// SPDX-License-Identifier: GPL-3.0-or-later
#include "stores/storefixture.h"

#include "platform/core/regime.h"
#include "platform/system/paths.h"
#include "shell/globalsat.h"
#include "stores/bdarticul.h"
#include "stores/bdcliente.h"
#include "stores/clientesschema.h"
#include "stores/consultas.h"
#include "stores/creation.h"
#include "stores/telefonos.h"
#include "stores/tipcli.h"
#include "stores/zone.h"

#include <QDirIterator>
#include <QFile>

#include <stdexcept>

namespace storetest {

namespace {

using namespace platform::dao;

constexpr std::array kUnnumberedIndexes{
    stores::IndexSchema{
        u"clientescyccodigoindice", true, true, {u"clientescycarticulo", u"clientescyccliente"}},
};

platform::After passOn(int number)
{
    // A numeric column takes no "" and needs none.
    if (number != 3219)
        throw std::runtime_error("fixture: failure " + std::to_string(number));
    return platform::After::NextStatement;
}

QString asPlainText(const platform::Value& value)
{
    return isNull(value) ? QStringLiteral("Null") : asText(value);
}

} // namespace

void makeStore(const QString& path, const QList<stores::TableSchema>& tables)
{
    Database database = DBEngine().Workspaces(0).CreateDatabase(path, kSpanishLocale, dbVersion40);
    for (const stores::TableSchema& table : tables) {
        std::int16_t counter = 0;
        static_cast<void>(stores::createTable(database, table, &passOn, counter));
    }
    database.Close();
}

stores::TableSchema firstColumns(const stores::TableSchema& table, std::size_t columns)
{
    return {table.name, table.columns.first(columns), table.indexes};
}

stores::TableSchema unnumberedConcepts()
{
    return {stores::kClientescyctabla.name, stores::kClientescyctabla.columns.first(15), kUnnumberedIndexes};
}

void addRow(const QString& path, const QString& table, RowValues values)
{
    Database database = DBEngine().Workspaces(0).OpenDatabase(path);
    Recordset rows = database.OpenRecordset(table, dbOpenTable);
    rows.AddNew();
    for (const auto& [column, value] : values)
        rows[QStringView(column)].setValue(value);
    rows.Update();
    database.Close();
}

QStringList columnNames(const QString& path, const QString& table)
{
    QStringList names;
    const platform::storage::TableDefinition found = definition(path, table);
    for (const platform::storage::Column& column : found.columns)
        names.append(column.name);
    return names;
}

platform::storage::TableDefinition definition(const QString& path, const QString& table)
{
    const auto connection = platform::storage::sqliteEngine()->open(platform::nativePath(path),
                                                                    platform::storage::Sharing::Shared);
    const QList<platform::storage::TableDefinition> tables = connection->tables();
    for (const platform::storage::TableDefinition& candidate : tables) {
        if (candidate.name.compare(table, Qt::CaseInsensitive) == 0)
            return candidate;
    }
    return {};
}

QStringList keyOf(const QString& path, const QString& table, const QString& index)
{
    const platform::storage::TableDefinition found = definition(path, table);
    const platform::storage::IndexDefinition* definition = found.index(index);
    return definition == nullptr ? QStringList() : definition->columns;
}

QList<QStringList> rows(const QString& path, const QString& table)
{
    QList<QStringList> all;
    Database database = DBEngine().Workspaces(0).OpenDatabase(path);
    Recordset rows = database.OpenRecordset(table, dbOpenTable);
    for (; !rows.EOF_(); rows.MoveNext()) {
        QStringList row;
        for (int column = 0; column < rows.Fields().Count(); ++column)
            row.append(asPlainText(rows[column].Value()));
        all.append(row);
    }
    database.Close();
    return all;
}

void bringUp()
{
    for (void (*const procedure)() :
         {&CERRARARTICULOS, &CREARARTICULOS, &ABRIRARTICULOS, &CERRARCLIENTES, &CREARCLIENTES, &ABRIRCLIENTES,
          &CERRARZONAS, &CREARZONAS, &ABRIRZONAS, &CERRARTIPOS, &CREARTIPOS, &ABRIRTIPOS, &CERRARCONSULTAS,
          &CREARCONSULTAS, &ABRIRCONSULTAS, &CERRARTELEFONOS, &CREARTELEFONOS, &ABRIRTELEFONOS})
        platform::attempt([&] { procedure(); });
}

void endRun()
{
    const QString folder = RUTAEMPRESA;
    resetProgramState();
    RUTAEMPRESA = folder;
}

QMap<QString, QByteArray> filesBelow(const QString& nativeFolder)
{
    QMap<QString, QByteArray> files;
    QDirIterator entries(nativeFolder, QDir::Files, QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        QFile file(entries.next());
        if (!file.fileName().endsWith(QLatin1String(".ldb")) && file.open(QIODevice::ReadOnly))
            files.insert(file.fileName(), file.readAll());
    }
    return files;
}

} // namespace storetest
