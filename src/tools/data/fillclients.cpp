// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/data/fill.h"

#include "platform/text/textfunctions.h"
#include "tools/data/bulktable.h"
#include "tools/data/identifiers.h"
#include "tools/data/wordlists.h"

#include <QStringList>

#include <array>

namespace tools {

namespace {

using platform::Null;
using platform::Value;

struct ClientTables
{
    explicit ClientTables(platform::storage::Connection& store)
        : clients(store, u"ClientesTabla")
        , addresses(store, u"CLIDIRENVIOS")
        , accounts(store, u"CLIBANCOSDISP")
        , concepts(store, u"clientescyctabla")
        , prices(store, u"TarifasCliente")
    {}

    void flush()
    {
        for (BulkTable* table : {&clients, &addresses, &accounts, &concepts, &prices})
            table->flush();
    }

    BulkTable clients;
    BulkTable addresses;
    BulkTable accounts;
    BulkTable concepts;
    BulkTable prices;
};

/// A text as stored by most programs, or the Null that some leave instead: about one in twenty-five.
Value sometimesNull(const QString& text, Random& random)
{
    return random.chance(4) ? Value(Null{}) : Value(text);
}

const ClientType& typeOf(ClientKind kind)
{
    constexpr std::array<std::size_t, 7> kTypeOfKind{0, 1, 2, 3, 4, 5, 6}; // in the order of ClientKind
    return clientTypes()[kTypeOfKind.at(static_cast<std::size_t>(kind))];
}

/// Most clients lie in the general zone, one in five has none.
std::vector<Cell> zoneOf(Random& random)
{
    if (random.chance(20))
        return {{u"ZonaCodigo", QString()}, {u"ZonaDesc", QString()}};
    const Zone& zone = random.chance(40) ? zones().front() : random.pick(zones());
    return {{u"ZonaCodigo", zone.code.toString()}, {u"ZonaDesc", zone.description.toString()}};
}

QString notesFor(Random& random)
{
    constexpr std::array kNotes{
        QStringView(u"Avisar antes de subir: el portero tiene las llaves."),
        QStringView(u"Pagan a 60 días. No servir sin albarán firmado."),
        QStringView(u"Aparcamiento en la calle de atrás.\r\nPreguntar por Begoña en recepción."),
        QStringView(u"Cierran los lunes. En agosto, solo mañanas."),
        QStringView(u"Contrato revisado; incluye piezas hasta 150 €."),
        QStringView(u"Ojo con el perro."),
    };
    return random.chance(60) ? QString() : random.pick(std::span<const QStringView>(kNotes)).toString();
}

/// Rows that other programs left: names in capitals, with a blank behind, empty, or none at all.
Value oddName(const DemoClient& client, Random& random)
{
    switch (random.below(120)) {
    case 0:
        return Null{};
    case 1:
        return QString();
    case 2:
        return client.name + u' ';
    case 3:
    case 4:
    case 5:
    case 6:
        return client.name.toUpper();
    default:
        return client.name;
    }
}

std::vector<Cell> identityOf(const DemoClient& client, Random& random)
{
    return {
        {u"CliCodigo", client.code},
        {u"CliNombre", client.number % 10 == 1 ? Value(client.name) : oddName(client, random)},
        {u"CliCif", sometimesNull(client.taxId, random)},
        {u"CliEMail", sometimesNull(client.email, random)},
        {u"CliPGC", (QStringLiteral("430") + QString::number(codeNumber(client.number))).toDouble()},
        {u"CliDireccion", client.address.street},
        {u"CliCodPostal", client.address.postalCode},
        {u"CliCodPostalLocali", client.address.town},
        {u"CliCodPostalProvin", sometimesNull(client.address.province, random)},
        {u"CliCodPostalPais", sometimesNull(QStringLiteral("España"), random)},
        {u"CliNomComercial", sometimesNull(client.tradeName, random)},
        {u"CliPersonaCont", makePerson(random)},
        {u"Notas", sometimesNull(notesFor(random), random)},
    };
}

std::vector<Cell> termsOf(const DemoClient& client, Random& random)
{
    const ClientType& type = typeOf(client.kind);
    return {
        {u"TipoClienteCodigo", type.code.toString()},
        {u"TipoClienteDesc", type.description.toString()},
        {u"RepresentanteCodigo", QString()},
        {u"RepresentanteDesc", QString()},
        {u"CLITARIFA", QString::number(random.between(1, 3))},
        {u"DescuentoComercial1", static_cast<double>(random.between(0, type.discount))},
        {u"CliFormaPagoCodigo", QStringLiteral("0002")},
        {u"CliFormaPagoDesc", QStringLiteral("Recibo domiciliado a 30 días")},
        {u"CliDiasEntrePagos", 30.0},
        {u"CliDiaPrimerPago", static_cast<double>(random.between(1, 28))},
        {u"AgruparAlbaranes", random.chance(70) ? QStringLiteral("1") : QStringLiteral("0")},
        {u"CliAplicarTasaPtoVerde", random.chance(50) ? QStringLiteral("1") : QStringLiteral("0")},
        {u"CLICODIdioma", QStringLiteral("0001")},
        {u"CLIDESIdioma", QStringLiteral("Español")},
    };
}

void addAddresses(BulkTable& table, const DemoClient& client, Random& random)
{
    const int count = random.chance(55) ? 0 : random.between(1, 3);
    QStringList streets; // two addresses of a client differ in their street
    for (int i = 0; i < count; ++i) {
        const Address address = makeAddress(random);
        if (streets.contains(address.street))
            continue;
        streets.append(address.street);
        table.add(
            {{u"CLIENVICODIGO", client.code},
             {u"CLIENVIDIRECCION", address.street},
             {u"CLIENVICPOSTAL", address.postalCode},
             {u"CLIENVILOCALIDAD", address.town},
             {u"CLIENVIPORTES", random.chance(60) ? QStringLiteral("Debidos") : QStringLiteral("Pagados")},
             {u"CLIENVITRANSPORTISTA", sometimesNull(random.pick(carriers()).toString(), random)},
             {u"CLIENVIACTIVA", i == 0 ? QStringLiteral("1") : QStringLiteral("0")},
             {u"CLIENVINOMCOMERCIAL", Null{}}});
    }
}

QString digits(int count, Random& random)
{
    QString text;
    for (int i = 0; i < count; ++i)
        text += QChar(u'0' + random.below(10));
    return text;
}

void addAccounts(BulkTable& table, const DemoClient& client, Random& random)
{
    const int count = random.chance(25) ? 0 : random.between(1, 2);
    for (int i = 0; i < count; ++i) {
        const Bank& bank = random.pick(banks());
        const QString branch = digits(4, random);
        const QString account =
            QString::number(i + 1) + digits(9, random); // never twice the same for a client
        table.add({{u"CLIBANCOSCODIGO", client.code},
                   {u"CLIBANCOSBANCO", bank.name.toString()},
                   {u"CLIBANCOSENTIDAD", bank.code.toString()},
                   {u"CLIBANCOSSUCURSAL", branch},
                   {u"CLIBANCOSDIGITO", accountCheckDigits(bank.code, branch, account)},
                   {u"CLIBANCOSCUENTA", account},
                   {u"CLIBANCOSCONTABLE", 57200000.0 + random.between(1, 9)},
                   {u"CLIBANCOSACTIVA", i == 0 ? QStringLiteral("1") : QStringLiteral("0")}});
    }
}

bool hasSerial(const Article& article)
{
    return !article.service && article.price > 250;
}

/// Every twelfth month of a monthly concept and so on: how often, as two digits.
QString period(Random& random)
{
    constexpr std::array kPeriods{QStringView(u"01"), QStringView(u"03"), QStringView(u"06"),
                                  QStringView(u"12")};
    return random.pick(std::span<const QStringView>(kPeriods)).toString();
}

/// A concept that has ended bears its day and the reason; one that goes on has an empty date, in the ways
/// that different programs write one.
std::vector<Cell> endOf(const QDate& begun, Random& random)
{
    constexpr std::array kReasons{QStringView(u"Cierre del local"), QStringView(u"Cambio de mantenedor"),
                                  QStringView(u"Equipo sustituido"), QStringView(u"Impago")};
    if (random.chance(12)) {
        const QDate ended = makeDay(begun, lastDay(), random);
        return {{u"clientescycfecbaja", platform::FormatDate(ended)},
                {u"clientescyccausa", random.pick(std::span<const QStringView>(kReasons)).toString()}};
    }
    if (random.chance(8))
        return {{u"clientescycfecbaja", QStringLiteral("  /  /")}};
    return {{u"clientescycfecbaja", random.chance(10) ? Value(Null{}) : Value(QString())}};
}

/// What is kept up for a client: contracts, and machines that are dear enough to bear a serial number.
const Article& conceptArticle(Random& random)
{
    for (;;) {
        const Article& article = random.pick(articles());
        if (article.service || hasSerial(article))
            return article;
    }
}

/// The day as stored; one in a hundred was typed in another manner.
QString begunText(const QDate& begun, Random& random)
{
    return random.chance(1) ? begun.toString(QStringLiteral("d-M-yy")) : platform::FormatDate(begun);
}

int addConcepts(BulkTable& table, const DemoClient& client, Random& random)
{
    constexpr std::array kLetters{QStringView(u"F"), QStringView(u"F"), QStringView(u"R"), QStringView(u"V"),
                                  QStringView(u"T")};
    const int count = random.chance(15) ? 0 : random.between(1, 5);
    for (int line = 1; line <= count; ++line) {
        const Article& article = conceptArticle(random);
        const QDate begun = makeDay(firstDay(), lastDay().addYears(-1), random);
        const QString due =
            random.chance(20) ? QStringLiteral("01/01/100") : platform::FormatDate(begun.addYears(1));
        const QString serial =
            !hasSerial(article) ? QString()
                                : QStringLiteral("%1-%2-%3")
                                      .arg(article.alternative.isEmpty() ? article.code : article.alternative)
                                      .arg(begun.year())
                                      .arg(digits(5, random));
        std::vector<Cell> cells{
            {u"clientescycarticulo", article.code.toString()},
            {u"clientescyccliente", client.code},
            {u"clientescycdescrip", article.description.toString()},
            {u"clientescycfecinic", begunText(begun, random)},
            {u"clientescycfecvcto", due},
            {u"clientescycT", random.pick(std::span<const QStringView>(kLetters)).toString()},
            {u"clientescycPE", period(random)},
            {u"clientescycEM", QString::number(random.between(1, 12)).rightJustified(2, u'0')},
            {u"clientescycunidades", static_cast<double>(random.between(1, 4))},
            {u"clientescycprecio", article.price},
            {u"clientescycIM", QStringLiteral("21")},
            {u"clientescycRE", QStringLiteral("0")},
            {u"clientescynumserie", sometimesNull(serial, random)},
            {u"clientescylineas", static_cast<double>(line)},
        };
        const std::vector<Cell> end = endOf(begun, random);
        cells.insert(cells.end(), end.begin(), end.end());
        table.add(cells);
    }
    return count;
}

void addPrices(BulkTable& table, const DemoClient& client, Random& random)
{
    if (!random.chance(8))
        return;
    const Article& article = random.pick(articles());
    table.add({{u"TariCodCliente", client.code},
               {u"TariCodArticul", article.code.toString()},
               {u"TariDesArticul", article.description.toString()},
               {u"TariTar1", article.price},
               {u"TariTar2", article.price}});
}

} // namespace

std::vector<WrittenClient> fillClients(platform::storage::Connection& store, int count, Random& random)
{
    ClientTables tables(store);
    std::vector<WrittenClient> written;
    written.reserve(static_cast<std::size_t>(count));
    for (int number = 1; number <= count; ++number) {
        const DemoClient client = makeClient(number, random);
        std::vector<Cell> cells = identityOf(client, random);
        for (const auto& more : {termsOf(client, random), zoneOf(random)})
            cells.insert(cells.end(), more.begin(), more.end());
        tables.clients.add(cells);
        addAddresses(tables.addresses, client, random);
        addAccounts(tables.accounts, client, random);
        const int concepts = addConcepts(tables.concepts, client, random);
        addPrices(tables.prices, client, random);
        written.push_back({client.code, client.address.postalCode, concepts});
    }
    tables.flush();
    return written;
}

} // namespace tools
