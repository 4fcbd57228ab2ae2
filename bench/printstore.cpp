// SPDX-License-Identifier: GPL-3.0-or-later
#include "printstore.h"

#include "platform/storage/storage.h"
#include "rawstore.h"
#include "stores/consultasschema.h"

#include <QFileInfo>
#include <QHash>

#include <sqlite3.h>

#include <array>

using namespace Qt::StringLiterals;
using platform::Value;
namespace storage = platform::storage;

namespace bench {

namespace {

constexpr std::array kWords{u"avería",   u"caldera",  u"no",        u"arranca",  u"presión",  u"del",
                            u"circuito", u"revisión", u"anual",     u"cambiar",  u"la",       u"sonda",
                            u"quemador", u"ruido",    u"al",        u"encender", u"depósito", u"señal",
                            u"técnico",  u"llamará",  u"mañana",    u"pieza",    u"pedida",   u"al almacén",
                            u"filtro",   u"sucio",    u"termostato"};
constexpr std::array kTechnicians{u"Álvarez, José", u"Núñez, Ana",    u"Ibáñez, Luis",   u"Chacón, Marta",
                                  u"Llorens, Pau",  u"Güell, Jordi",  u"Zamora, Inés",   u"Ortiz, Raúl",
                                  u"Ñíguez, Elena", u"Costa, Miguel", u"Pérez, Antonio", u"Sáez, Lucía"};

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

QString dayText(int number)
{
    return u"%1/%2/%3"_s.arg(number % 28 + 1, 2, 10, QChar(u'0'))
        .arg(number / 28 % 12 + 1, 2, 10, QChar(u'0'))
        .arg(2015 + number / 336 % 10);
}

QString hourText(int number)
{
    return u"%1:%2:%3"_s.arg(8 + number % 11, 2, 10, QChar(u'0'))
        .arg(number % 60, 2, 10, QChar(u'0'))
        .arg(number * 7 % 60, 2, 10, QChar(u'0'));
}

QHash<QString, Value> consultation(int number)
{
    const auto technician = static_cast<std::size_t>(number * 31) % kTechnicians.size();
    return {{u"ORDEN"_s, number + 1.0},
            {u"CLICONSULTA"_s, u"%1"_s.arg(number * 7 % 20'000, 10, 10, QChar(u'0'))},
            {u"TEMA"_s, words(number, 4).left(35)},
            {u"PROGRAMA"_s, words(number + 3, 1).left(10)},
            {u"FEINICIO"_s, dayText(number)},
            {u"HOINICIO"_s, hourText(number)},
            {u"FEFINAL"_s, dayText(number + number % 9)},
            {u"HOFINAL"_s, hourText(number + 3)},
            {u"DESCRIPCION"_s, words(number + 5, 8 + number % 13)},
            {u"SOLUCION"_s, words(number + 7, 3 + number % 7)},
            {u"TECNICO"_s, QStringView(kTechnicians[technician]).toString()},
            {u"ESTADO"_s, number % 3 == 0 ? u"01 Abierta"_s : u"02 Cerrada"_s},
            {u"conpublicable"_s, u"NO"_s},
            {u"conpaginaweb"_s, number % 4 == 0 ? u"www.ejemplo.es"_s : u""_s}};
}

void fill(storage::Table& table)
{
    constexpr int kBatch = 10'000;
    for (int first = 0; first < kConsultations; first += kBatch) {
        std::vector<storage::Row> rows;
        rows.reserve(kBatch);
        for (int number = first; number < first + kBatch; ++number) {
            const QHash<QString, Value> values = consultation(number);
            storage::Row row;
            for (const storage::Column& column : table.definition().columns)
                row.push_back(values.value(column.name));
            rows.push_back(std::move(row));
        }
        table.insertMany(rows);
    }
}

QByteArray field(double x, double y, double width, const QByteArray& column, const QByteArray& more = {})
{
    return "<campo x=\"" + QByteArray::number(x) + "\" y=\"" + QByteArray::number(y) + "\" ancho=\"" +
           QByteArray::number(width) + "\" alto=\"4\" expr=\"{CONS." + column + "}\" estilo=\"normal\"" +
           more + "/>\n";
}

QByteArray detail(bool memo)
{
    constexpr std::array kWidths{16, 22, 20, 54, 28, 22, 20};
    QByteArray text =
        memo ? "<seccion tipo=\"detalle\" alto=\"8.8\">\n" : "<seccion tipo=\"detalle\" alto=\"4.4\">\n";
    double x = 0;
    for (std::size_t i = 0; i < kWidths.size(); ++i) {
        text += field(x, 0.2, kWidths[i], printedColumns()[static_cast<qsizetype>(i)].toUtf8());
        x += kWidths[i];
    }
    if (memo)
        text += field(16, 4.4, 76, kMemoColumn, " crece=\"si\"");
    return text + "</seccion>\n";
}

} // namespace

QString printStore(const QString& folder)
{
    QString path = folder + u"/ASISTENCIAS.MDB"_s;
    if (QFileInfo::exists(path))
        return path;
    const std::unique_ptr<storage::Connection> connection = storage::sqliteEngine()->create(path, {});
    for (const storage::TableDefinition& table : stores::tableDefinitions(stores::kConsultasTables)) {
        connection->createTable(table);
        fill(*connection->openTable(table.name));
    }
    return path;
}

const QStringList& printedColumns()
{
    static const QStringList columns{u"ORDEN"_s,   u"CLICONSULTA"_s, u"FEINICIO"_s, u"TEMA"_s,
                                     u"TECNICO"_s, u"ESTADO"_s,      u"FEFINAL"_s};
    return columns;
}

qint64 columnBytes(const QString& store, const QStringList& columns)
{
    QStringList sums;
    for (const QString& column : columns)
        sums += column == u"ORDEN" ? u"sum(8)"_s : u"sum(length(CAST(%1 AS BLOB)))"_s.arg(column);
    const RawStore raw(store);
    sqlite3_stmt* statement =
        raw.prepare(u"SELECT %1 FROM CONS"_s.arg(sums.join(u" + "_s)).toUtf8().constData());
    const qint64 bytes = sqlite3_step(statement) == SQLITE_ROW ? sqlite3_column_int64(statement, 0) : 0;
    sqlite3_finalize(statement);
    return bytes;
}

QByteArray printDefinition(Lines lines, const QByteArray& selection)
{
    QByteArray text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                      "<informe version=\"1\" nombre=\"Consultas\">\n"
                      "<pagina papel=\"A4\" orientacion=\"vertical\" margenes=\"12 12 12 12\"/>\n"
                      "<estilo id=\"normal\" letra=\"DejaVu Sans\" cuerpo=\"8\"/>\n"
                      "<tabla n=\"0\" alias=\"CONS\" fichero=\"ASISTENCIAS.MDB\"/>\n";
    if (!selection.isEmpty())
        text += "<seleccion><![CDATA[" + selection + "]]></seleccion>\n";
    if (lines != Lines::Plain)
        text += "<grupo n=\"1\" campo=\"{CONS.TECNICO}\"/>\n<orden campo=\"{CONS.TEMA}\"/>\n";
    text += "<seccion tipo=\"cabecera-pagina\" alto=\"8\">"
            "<texto x=\"0\" y=\"0\" ancho=\"100\" alto=\"5\" estilo=\"normal\">Consultas</texto></seccion>\n";
    if (lines != Lines::Plain)
        text += "<seccion tipo=\"cabecera-grupo\" grupo=\"1\" alto=\"6\">" + field(0, 1, 60, "TECNICO") +
                "</seccion>\n";
    return text + detail(lines == Lines::Memo) +
           "<seccion tipo=\"pie-pagina\" alto=\"6\">"
           "<campo x=\"0\" y=\"1\" ancho=\"56\" alto=\"4\" expr=\"PageNofM\" estilo=\"normal\"/></seccion>\n"
           "</informe>\n";
}

} // namespace bench
