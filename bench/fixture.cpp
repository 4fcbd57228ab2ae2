// SPDX-License-Identifier: GPL-3.0-or-later
#include "fixture.h"

#include "platform/storage/storage.h"
#include "platform/system/paths.h"
#include "shell/globalsat.h"
#include "stores/allstores.h"
#include "stores/bdarticul.h"
#include "stores/bdcliente.h"
#include "stores/consultas.h"
#include "stores/telefonos.h"
#include "stores/tipcli.h"
#include "stores/zone.h"

#include <QDir>
#include <QHash>

using namespace Qt::StringLiterals;
using platform::Value;
namespace storage = platform::storage;

namespace bench {

namespace {

constexpr std::array kWords{u"Ferretería", u"Álvarez",   u"Núñez",       u"Climatización", u"Hermanos",
                            u"Llorens",    u"Chacón",    u"Talleres",    u"del Norte",     u"Comunidad",
                            u"Hotel",      u"Panadería", u"Suministros", u"Ibáñez",        u"Güell",
                            u"y Cía.",     u"Mar",       u"Sierra"};

QString words(int seed, int count)
{
    QStringList parts;
    unsigned state = static_cast<unsigned>(seed) * 2654435761U + 12345U;
    for (int i = 0; i < count; ++i) {
        state = state * 1664525U + 1013904223U;
        parts.append(QStringView(kWords[(state >> 16) % kWords.size()]).toString());
    }
    return parts.join(u' ');
}

/// Columns whose values matter to a key or a case; the others get words, numbers or Null by their type.
QHash<QString, Value> keyValues(int number)
{
    const QString code = clientCode(number);
    const QString ten = u"%1"_s.arg(number + 1, 10, 10, QChar(u'0'));
    return {{u"CliCodigo"_s, code},
            {u"CliNombre"_s, words(number, 3).left(35)},
            {u"CLIENVICODIGO"_s, code},
            {u"CLIENVIDIRECCION"_s, u"Calle "_s + words(number, 2)},
            {u"CLIBANCOSCODIGO"_s, code},
            {u"CLIBANCOSCUENTA"_s, ten},
            {u"clientescycarticulo"_s, ten},
            {u"clientescyccliente"_s, code},
            {u"clientescylineas"_s, 1.0},
            {u"TariCodCliente"_s, code},
            {u"TariCodArticul"_s, ten},
            {u"ArtCodigo"_s, ten},
            {u"ZONCODIGO"_s, ten},
            {u"ZONDESCRIPCION"_s, u"Zona "_s + ten},
            {u"TIPOCODIGO"_s, u"%1"_s.arg(number, 4, 36, QChar(u'0')).toUpper()},
            {u"TIPOFAMICODIGO"_s, u"%1"_s.arg(number, 4, 36, QChar(u'0')).toUpper()},
            {u"TIPOFAMILINEA"_s, u"0001"_s},
            {u"TIPOARTICODIGO"_s, u"%1"_s.arg(number, 4, 36, QChar(u'0')).toUpper()},
            {u"TIPOARTIARTI"_s, ten},
            {u"ORDEN"_s, number + 1.0},
            {u"CLICONSULTA"_s, code},
            {u"ESTADO"_s, number % 3 == 0 ? u"01 Abierta"_s : u"02 Cerrada"_s},
            {u"FEINICIO"_s, u"15/03/2024"_s},
            {u"TELECODIGOEMPRESA"_s, u"00001"_s},
            {u"TELECODIGO"_s, code},
            {u"TELETELEFONO"_s, u"9%1"_s.arg(number, 8, 10, QChar(u'0'))}};
}

Value fillValue(const storage::Column& column, int number)
{
    if (column.type == storage::ColumnType::Number)
        return number % 1000 + 0.5;
    if (column.type == storage::ColumnType::Memo)
        return number % 4 == 0 ? Value(words(number, 8)) : Value(platform::Null{});
    return words(number, 2).left(column.size);
}

void fill(storage::Table& table)
{
    constexpr int kBatch = 10'000;
    const storage::TableDefinition& definition = table.definition();
    for (int first = 0; first < kRows; first += kBatch) {
        std::vector<storage::Row> rows;
        rows.reserve(kBatch);
        for (int number = first; number < first + kBatch; ++number) {
            const QHash<QString, Value> known = keyValues(number);
            storage::Row row;
            for (const storage::Column& column : definition.columns)
                row.push_back(known.contains(column.name) ? known.value(column.name)
                                                          : fillValue(column, number));
            rows.push_back(std::move(row));
        }
        table.insertMany(rows);
    }
}

constexpr int kFullLines = 14;
constexpr int kFullConsultations = 200;

/// Adds the lines of the full client to one table.
void fillFullClient(storage::Table& table, int count)
{
    const storage::TableDefinition& definition = table.definition();
    std::vector<storage::Row> rows;
    for (int line = 0; line < count; ++line) {
        QHash<QString, Value> known = keyValues(kRows + line);
        for (const char* owner : {"CliCodigo", "CLIENVICODIGO", "CLIBANCOSCODIGO", "clientescyccliente",
                                  "CLICONSULTA", "TELECODIGO"})
            known[QString::fromLatin1(owner)] = fullClientCode();
        storage::Row row;
        for (const storage::Column& column : definition.columns)
            row.push_back(known.contains(column.name) ? known.value(column.name) : fillValue(column, line));
        rows.push_back(std::move(row));
    }
    table.insertMany(rows);
}

void fillFullClient()
{
    struct Lines
    {
        QStringView file;
        QString table;
        int count;
    };
    const std::array lines{Lines{u"Clientes.mdb", u"ClientesTabla"_s, 1},
                           Lines{u"Clientes.mdb", u"CLIDIRENVIOS"_s, kFullLines},
                           Lines{u"Clientes.mdb", u"CLIBANCOSDISP"_s, kFullLines},
                           Lines{u"Clientes.mdb", u"clientescyctabla"_s, kFullLines},
                           Lines{stores::kTelefonosStore.file, u"TELEFON"_s, kFullLines},
                           Lines{stores::kConsultasStore.file, u"CONS"_s, kFullConsultations}};
    for (const Lines& part : lines) {
        const auto connection = storage::sqliteEngine()->open(storePath(part.file), storage::Sharing::Shared);
        fillFullClient(*connection->openTable(part.table), part.count);
    }
}

void fillStores()
{
    CREARARTICULOS();
    CREARCLIENTES();
    ABRIRCLIENTES(); // the table of prices comes into being at the first opening
    CERRARCLIENTES();
    CREARZONAS();
    CREARTIPOS();
    CREARCONSULTAS();
    CREARTELEFONOS();
    for (const stores::StoreSchema& store : stores::kAllStores) {
        const auto connection =
            storage::sqliteEngine()->open(storePath(store.file), storage::Sharing::Shared);
        for (const storage::TableDefinition& table : connection->tables())
            fill(*connection->openTable(table.name));
    }
    fillFullClient();
}

} // namespace

QString fullClientCode()
{
    return u"0000500003"_s; // between two others: theirs are 1, 8, 15 …
}

QString clientCode(int number)
{
    return u"%1"_s.arg(number * 7 + 1, 10, 10, QChar(u'0'));
}

QString storePath(QStringView file)
{
    for (const stores::StoreSchema& store : stores::kAllStores) {
        if (store.file == file && store.place == stores::Place::CurrentDirectory)
            return platform::nativePath(platform::currentDirectory() + file.toString());
    }
    return platform::nativePath(RUTAEMPRESA + file.toString());
}

void useDataRoot(const QString& folder)
{
    const QString company = folder + u"/Empresa00001"_s;
    const bool isFilled = QDir(company).exists();
    QDir().mkpath(company);
    QDir::setCurrent(folder);
    NUMEMPRESA = u"00001"_s;
    RUTAEMPRESA = platform::currentDirectory() + u"\\Empresa00001\\"_s;
    if (!isFilled)
        fillStores();
}

} // namespace bench
