// SPDX-License-Identifier: GPL-3.0-or-later
#include "lookup/buscar.h"

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"
#include "platform/core/regime.h"
#include "platform/system/messagebox.h"
#include "platform/text/textfunctions.h"
#include "platform/window/flexgrid.h"

#include <cmath>

using namespace Qt::StringLiterals;
using platform::attempt;
using platform::FlexGrid;
using platform::holds;
using platform::dao::Recordset;

IndiceLetras INDICELETRAS;
std::shared_ptr<FilasRejilla> DATOSREJILLA;
int REGISTROSREJILLA = 0;

namespace {

constexpr int kLastCode = 255;
constexpr int kNarrowTwips = 1000;
constexpr int kTickTwips = 300;
constexpr int kWidestNarrowField = 18;
constexpr double kWideShare = 1.75;
constexpr QStringView kTickField = u"S";

/// Width of a field's column: short fields are narrow, the others share what they need of the grid.
int widthOf(const FlexGrid& busi, int size, int fields)
{
    if (size <= kWidestNarrowField)
        return kNarrowTwips;
    return static_cast<int>(
        std::nearbyint((static_cast<double>(busi.widthTwips()) / fields - 1) * kWideShare));
}

/// Notes at which position each first letter comes first. The record at position 0 gets no entry, since 0
/// says that there is none. Null and the empty text have no first letter, and leave the code of the record
/// before them.
void indexaLetras(int columna)
{
    int codigo = 0;
    const int registros = DATOSREJILLA == nullptr ? 0 : DATOSREJILLA->rows();
    for (int posicion = 1; posicion < registros; ++posicion) {
        attempt(
            [&] { codigo = platform::Asc(platform::UCase(DATOSREJILLA->value(columna, posicion).left(1))); });
        if (codigo >= 1 && codigo <= kLastCode && INDICELETRAS.at(codigo) == 0)
            INDICELETRAS.set(codigo, posicion);
    }
}

/// The first entry above a code; 0 when there is none.
std::int32_t siguienteEntrada(int codigo)
{
    for (int siguiente = codigo + 1; siguiente <= kLastCode; ++siguiente) {
        if (INDICELETRAS.at(siguiente) != 0)
            return INDICELETRAS.at(siguiente);
    }
    return 0;
}

} // namespace

std::int32_t IndiceLetras::at(int code) const
{
    if (code < 1 || code > kLastCode)
        throw platform::Failure(platform::kSubscriptOutOfRange, u"no letter has the code %1"_s.arg(code));
    return m_rows.at(static_cast<std::size_t>(code - 1));
}

void IndiceLetras::set(int code, std::int32_t row)
{
    if (code < 1 || code > kLastCode)
        throw platform::Failure(platform::kSubscriptOutOfRange, u"no letter has the code %1"_s.arg(code));
    m_rows.at(static_cast<std::size_t>(code - 1)) = row;
}

FilasRejilla::FilasRejilla(platform::dao::RowArray rows)
    : m_rows(std::move(rows))
{}

int FilasRejilla::columns() const
{
    return m_rows.fieldCount();
}

int FilasRejilla::rows() const
{
    return static_cast<int>(m_rows.rowCount());
}

QString FilasRejilla::text(int column, int row) const
{
    const platform::Value& value = m_rows.at(column, row);
    return platform::isNull(value) ? QString() : platform::asText(value);
}

void FilasRejilla::setText(int column, int row, const QString& text)
{
    m_rows.set(column, row, text);
}

QString FilasRejilla::value(int column, int row) const
{
    return platform::asText(m_rows.at(column, row));
}

void ponColumnas(FlexGrid& busi, const Recordset& consulta)
{
    int campos = 0;
    attempt([&] { campos = consulta.Fields().Count(); });
    for (int i = 0; i < campos; ++i) {
        attempt([&] { busi.setHeading(i, consulta[i].Name()); });
        attempt([&] { busi.setColWidth(i, widthOf(busi, consulta[i].Size(), campos)); });
        if (holds([&] { return consulta[i].Name() == kTickField; })) {
            attempt([&] { busi.setColKind(i, platform::CellKind::Boolean); });
            attempt([&] { busi.setColWidth(i, kTickTwips); });
        }
    }
}

double CARGAREJILLA(FlexGrid& busi, const platform::dao::Database& base, const QString& consulta,
                    std::uint8_t columna)
{
    INDICELETRAS.erase();
    DATOSREJILLA.reset();
    platform::clearError();
    Recordset filas;
    attempt([&] { filas = base.OpenRecordset(consulta, platform::dao::dbOpenSnapshot); });
    if (holds([&] { return platform::lastError() != 0 || filas.RecordCount() == 0; }))
        return 0;
    attempt([&] { filas.MoveLast(); });
    attempt([&] { filas.MoveFirst(); });
    attempt([&] { DATOSREJILLA = std::make_shared<FilasRejilla>(filas.GetRows(filas.RecordCount())); });
    double ultima = 0;
    attempt([&] { ultima = filas.RecordCount() - 1; });
    attempt([&] { busi.bindToArray(DATOSREJILLA); });
    ponColumnas(busi, filas);
    if (holds([&] { return columna > filas.Fields().Count() - 1; })) {
        platform::messageBox({u"Intentando ordenar por un campo no introducido en la consulta"_s, {}, {}});
        return ultima;
    }
    attempt([&] { REGISTROSREJILLA = filas.RecordCount(); });
    indexaLetras(columna);
    attempt([&] { filas.Close(); });
    return ultima;
}

void BUSCAREJILLA(FlexGrid& busi, const QString& texto, std::uint8_t columna)
{
    int codigo = 0;
    attempt([&] { codigo = platform::Asc(platform::UCase(texto.left(1))); });
    // A text whose first character has no code finds no entry: the table refuses it.
    if (holds([&] { return INDICELETRAS.at(codigo) == 0; }))
        return;
    const std::int32_t siguiente = siguienteEntrada(codigo);
    int limite = busi.rows() - 1;
    if (siguiente != 0) {
        if (busi.row() < INDICELETRAS.at(codigo))
            attempt([&] { busi.setRow(INDICELETRAS.at(codigo)); });
        limite = siguiente;
    }
    for (int fila = busi.row(); fila <= limite; ++fila) {
        // A row that the grid doesn't have fails the test, which ends the walk with the grid where it was.
        const bool coincide =
            holds([&] { return platform::beginsIgnoringCase(busi.textMatrix(fila, columna), texto); });
        if (!coincide)
            continue;
        attempt([&] { busi.setTopRow(fila); });
        attempt([&] { busi.setRow(fila); });
        return;
    }
}

void olvidaRejilla()
{
    INDICELETRAS.erase();
    DATOSREJILLA.reset();
    REGISTROSREJILLA = 0;
}
