// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/data/demoroot.h"

#include "platform/dao/constants.h"
#include "platform/storage/storage.h"
#include "platform/system/paths.h"
#include "stores/allstores.h"
#include "tools/data/bulktable.h"
#include "tools/data/catalogue.h"
#include "tools/data/companiesschema.h"
#include "tools/data/fill.h"
#include "tools/data/toolerror.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <memory>

namespace tools {

namespace {

using platform::storage::Connection;

void makeFolder(const QString& folder)
{
    const QFileInfo info(folder);
    if (info.exists() && !info.isDir())
        throw ToolError(QStringLiteral("«%1» no es una carpeta").arg(folder));
    if (info.exists() && !QDir(folder).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot))
        throw ToolError(QStringLiteral("la carpeta «%1» no está vacía: no se toca").arg(folder));
    if (!QDir().mkpath(folder))
        throw ToolError(QStringLiteral("no se puede crear la carpeta «%1»").arg(folder));
}

/// Makes a store with the tables of its schema, all at once and open. Row for row and column for column it is
/// what the program's own create procedure makes, which asks for a durable commit a column.
std::unique_ptr<Connection> created(const stores::StoreSchema& store, const QString& folder)
{
    const QString path = platform::nativePath(folder + u'\\' + store.file.toString());
    const platform::storage::CreateOptions options{platform::dao::kSpanishLocale.toString(),
                                                   store.formatOption};
    auto connection = platform::storage::sqliteEngine()->create(path, options);
    for (const auto& table : stores::tableDefinitions(store.tables))
        connection->createTable(table);
    return connection;
}

void makeCatalogue(const QString& root)
{
    const auto catalogue = created(kCompaniesStore, root);
    BulkTable table(*catalogue, kEmp.name);
    for (const Company& company : companies()) {
        table.add({{u"MENUMEMPRESA", company.number.toString()},
                   {u"MENOMBRE", company.name.toString()},
                   {u"MENUMDIG", QStringLiteral("3")},
                   {u"MENUMDIG2", QStringLiteral("5")},
                   {u"MENUMDIG3", QStringLiteral("9")}});
    }
    table.flush();
}

/// Numbers of the generator's streams, so that a change in one store leaves the rows of the others as they
/// were.
enum Stream : std::uint64_t { Articles, Types, Clients, Consultations, Telephones, StreamsPerCompany };

struct DemoCompany
{
    const Company& company;
    int clients;
    std::uint64_t seed;
    std::uint64_t firstStream;

    [[nodiscard]] Random draws(Stream stream) const { return {seed, firstStream + stream}; }
};

void makeCompany(const DemoCompany& demo, const QString& root, Connection& telephones)
{
    const QString folder = root + QStringLiteral("/Empresa") + demo.company.number.toString();
    if (!QDir().mkpath(folder))
        throw ToolError(QStringLiteral("no se puede crear la carpeta «%1»").arg(folder));
    Random articleDraws = demo.draws(Articles);
    fillArticles(*created(stores::kArticulosStore, folder), articleDraws);
    fillZones(*created(stores::kZonasStore, folder));
    Random typeDraws = demo.draws(Types);
    fillTypes(*created(stores::kTiposStore, folder), typeDraws);

    const auto clients = created(stores::kClientesStore, folder);
    clients->createTable(stores::tableDefinition(stores::kTarifasCliente)); // as the first opening does
    Random clientDraws = demo.draws(Clients);
    const std::vector<WrittenClient> written = fillClients(*clients, demo.clients, clientDraws);
    Random consultationDraws = demo.draws(Consultations);
    fillConsultations(*created(stores::kConsultasStore, folder), written, consultationDraws);
    Random telephoneDraws = demo.draws(Telephones);
    fillTelephones(telephones, demo.company, written, telephoneDraws);
}

void copyReports(const QString& from, const QString& root)
{
    if (from.isEmpty())
        return;
    const QDir folder(from);
    for (const QString& name : folder.entryList({QStringLiteral("*.rpt")}, QDir::Files, QDir::Name)) {
        if (!QFile::copy(folder.filePath(name), QDir(root).filePath(name)))
            throw ToolError(QStringLiteral("no se puede copiar el informe «%1»").arg(name));
    }
}

} // namespace

void makeDemoRoot(const DemoRequest& request)
{
    constexpr int kClientsOfOthers = 40;
    makeFolder(request.folder);
    const QString root = QDir(request.folder).absolutePath();
    makeCatalogue(root);
    const auto telephones = created(stores::kTelefonosStore, root);
    std::uint64_t firstStream = 0;
    for (const Company& company : companies()) {
        const int clients = company.isMain ? request.clients : kClientsOfOthers;
        makeCompany({company, clients, request.seed, firstStream}, root, *telephones);
        firstStream += StreamsPerCompany;
    }
    copyReports(request.reports, root);
}

} // namespace tools
