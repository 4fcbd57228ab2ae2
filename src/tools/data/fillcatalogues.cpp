// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/data/fill.h"

#include "platform/text/textfunctions.h"
#include "tools/data/bulktable.h"

#include <QDate>

#include <cmath>

namespace tools {

namespace {

using platform::Null;
using platform::Value;

Value textOrNull(QStringView text)
{
    return text.isEmpty() ? Value(Null{}) : Value(text.toString());
}

Value flag(bool set)
{
    return set ? QStringLiteral("1") : QStringLiteral("0");
}

double cents(double amount)
{
    return static_cast<double>(std::llround(amount * 100.0)) / 100.0;
}

/// Columns of work and contracts, which have no stock and may be billed by themselves.
std::vector<Cell> billingOf(const Article& article)
{
    return {
        {u"TipoEsServicio", flag(article.service)},
        {u"EsFacturaPeriodica", flag(article.service)},
        {u"FacturaFijo", flag(article.service)},
        {u"FacturaActualizarImporte", flag(false)},
        {u"FacturaVariable", flag(false)},
        {u"FacturaTabla", flag(false)},
        // A row that an older program wrote knows nothing of obsolete articles.
        {u"TipoArticuloObsoleto", article.price < 5 ? Value(Null{}) : flag(article.obsolete)},
    };
}

std::vector<Cell> stockOf(const Article& article, Random& random)
{
    const int stock = article.service ? 0 : random.below(40);
    const QString bought = platform::FormatDate(makeDay(firstDay(), lastDay(), random));
    return {
        {u"UltCompra", article.service ? Value(Null{}) : Value(bought)},
        {u"StockMin", article.service ? 0.0 : 2.0},
        {u"StockMax", article.service ? 0.0 : 40.0},
        {u"Stock", static_cast<double>(stock)},
        {u"StockVenta", static_cast<double>(stock)},
        {u"Unidad", 1.0},
        {u"FabricDiasGarantia", article.service ? 0.0 : 730.0},
        {u"NumerosSerie", flag(article.price > 250 && !article.service)},
    };
}

std::vector<Cell> pricesOf(const Article& article)
{
    return {
        {u"MedioCoste", cents(article.price * 0.62)},
        {u"TarifaPrecioVenta1", article.price},
        {u"TarifaPrecioVenta2", cents(article.price * 0.95)},
        {u"TarifaPrecioVenta3", cents(article.price * 0.9)},
        {u"TPVPrecio", article.price},
        {u"TPVDescuento", 0.0},
    };
}

} // namespace

QDate firstDay() noexcept
{
    return {kFirstYear, 1, 7};
}

QDate lastDay() noexcept
{
    return {kFirstYear + 7, 3, 27};
}

QDate makeDay(const QDate& from, const QDate& to, Random& random)
{
    return from.addDays(random.between(0, static_cast<int>(from.daysTo(to))));
}

void fillArticles(platform::storage::Connection& store, Random& random)
{
    BulkTable table(store, u"ArticulosTabla");
    for (const Article& article : articles()) {
        std::vector<Cell> cells{
            {u"ArtCodigo", article.code.toString()},
            {u"CodigoAlternativo", textOrNull(article.alternative)},
            {u"Descripcion", article.description.toString()},
            {u"Familia", article.family.toString()},
            {u"DescripcionFamilia", familyOf(article.family).description.toString()},
            {u"TipoIVA", QStringLiteral("0001")},
            {u"DescripcionIVA", QStringLiteral("I.V.A. general 21 %")},
        };
        for (const auto& more : {billingOf(article), stockOf(article, random), pricesOf(article)})
            cells.insert(cells.end(), more.begin(), more.end());
        table.add(cells);
    }
    table.flush();
}

void fillZones(platform::storage::Connection& store)
{
    BulkTable table(store, u"ZONATAB");
    for (const Zone& zone : zones()) {
        table.add({{u"ZONCODIGO", zone.code.toString()},
                   {u"ZONDESCRIPCION", zone.description.toString()},
                   {u"ZONampli", textOrNull(zone.notes)}});
    }
    table.flush();
}

void fillTypes(platform::storage::Connection& store, Random& random)
{
    BulkTable types(store, u"TIPOCLI");
    BulkTable byFamily(store, u"TIPOFAMICLI");
    BulkTable byArticle(store, u"TIPOARTICLI");
    for (const ClientType& type : clientTypes()) {
        types.add({{u"TIPOCODIGO", type.code.toString()}, {u"TIPODESCRIPCION", type.description.toString()}});
        for (const Family& family : families()) {
            byFamily.add({{u"TIPOFAMICODIGO", type.code.toString()},
                          {u"TIPOFAMILINEA", family.code.toString()},
                          {u"TIPOFAMIDESCRI", family.description.toString()},
                          {u"TIPOFAMIDESCUEN", static_cast<double>(random.between(0, type.discount))}});
        }
        const Article& article = random.pick(articles());
        byArticle.add({{u"TIPOARTICODIGO", type.code.toString()},
                       {u"TIPOARTIARTI", article.code.toString()},
                       {u"TIPOARTIDESCRI", article.description.toString()},
                       {u"TIPOARTIDESCUEN1", static_cast<double>(type.discount)},
                       {u"TIPOARTIDESCUEN2", static_cast<double>(type.discount) / 2}});
    }
    types.flush();
    byFamily.flush();
    byArticle.flush();
}

} // namespace tools
