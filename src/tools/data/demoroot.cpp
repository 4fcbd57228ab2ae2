// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/data/demoroot.h"

#include "platform/storage/storage.h"
#include "platform/system/paths.h"
#include "shell/globalsat.h"
#include "stores/allstores.h"
#include "stores/bdarticul.h"
#include "stores/bdcliente.h"
#include "stores/consultas.h"
#include "stores/creation.h"
#include "stores/telefonos.h"
#include "stores/tipcli.h"
#include "stores/zone.h"
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

/// Works inside a folder, and puts the directory and the program-wide variables back on every way out.
class InsideFolder
{
public:
    explicit InsideFolder(const QString& folder)
        : m_before(QDir::currentPath())
    {
        if (!QDir::setCurrent(folder))
            throw ToolError(QStringLiteral("no se puede entrar en la carpeta «%1»").arg(folder));
    }
    ~InsideFolder()
    {
        resetProgramState();
        QDir::setCurrent(m_before);
    }
    InsideFolder(const InsideFolder&) = delete;
    InsideFolder& operator=(const InsideFolder&) = delete;
    InsideFolder(InsideFolder&&) = delete;
    InsideFolder& operator=(InsideFolder&&) = delete;

private:
    QString m_before;
};

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

std::unique_ptr<Connection> opened(const stores::StoreSchema& store)
{
    const QString folder = store.place == stores::Place::CompanyFolder ? RUTAEMPRESA : platform::currentDirectory();
    return platform::storage::sqliteEngine()->open(platform::nativePath(folder + store.file.toString()),
                                                   platform::storage::Sharing::Shared);
}

void makeCatalogue()
{
    stores::createStore(platform::currentDirectory() + kCompaniesStore.file.toString(), kCompaniesStore);
    const auto connection = opened(kCompaniesStore);
    BulkTable table(*connection, kEmp.name);
    for (const Company& company : companies()) {
        table.add({{u"MENUMEMPRESA", company.number.toString()},
                   {u"MENOMBRE", company.name.toString()},
                   {u"MENUMDIG", QStringLiteral("3")},
                   {u"MENUMDIG2", QStringLiteral("5")},
                   {u"MENUMDIG3", QStringLiteral("9")}});
    }
    table.flush();
}

/// Every store of the company in `RUTAEMPRESA`, as its first start would leave it. The two that an opening adds
/// to, prices and the default zone, are opened once.
void createStores()
{
    CREARARTICULOS();
    CREARCLIENTES();
    ABRIRCLIENTES();
    CERRARCLIENTES();
    CREARZONAS();
    ABRIRZONAS();
    CERRARZONAS();
    CREARTIPOS();
    CREARCONSULTAS();
    CREARTELEFONOS();
}

/// Numbers of the generator's streams, so that a change in one store leaves the rows of the others as they were.
enum Stream : std::uint64_t { Articles, Types, Clients, Consultations, Telephones, StreamsPerCompany };

void makeCompany(const Company& company, int clientCount, std::uint64_t seed, std::uint64_t firstStream)
{
    NUMEMPRESA = company.number.toString();
    RUTAEMPRESA = platform::currentDirectory() + QStringLiteral("\\Empresa%1\\").arg(NUMEMPRESA);
    if (!QDir().mkpath(platform::nativePath(RUTAEMPRESA)))
        throw ToolError(QStringLiteral("no se puede crear la carpeta «Empresa%1»").arg(NUMEMPRESA));
    createStores();

    const auto generator = [&](Stream stream) { return Random(seed, firstStream + stream); };
    Random articleDraws = generator(Articles);
    fillArticles(*opened(stores::kArticulosStore), articleDraws);
    fillZones(*opened(stores::kZonasStore));
    Random typeDraws = generator(Types);
    fillTypes(*opened(stores::kTiposStore), typeDraws);
    Random clientDraws = generator(Clients);
    const std::vector<WrittenClient> written =
        fillClients(*opened(stores::kClientesStore), clientCount, clientDraws);
    Random consultationDraws = generator(Consultations);
    fillConsultations(*opened(stores::kConsultasStore), written, consultationDraws);
    Random telephoneDraws = generator(Telephones);
    fillTelephones(*opened(stores::kTelefonosStore), company, written, telephoneDraws);
}

void copyReports(const QString& from)
{
    if (from.isEmpty())
        return;
    const QDir folder(from);
    for (const QString& name : folder.entryList({QStringLiteral("*.rpt")}, QDir::Files, QDir::Name)) {
        if (!QFile::copy(folder.filePath(name), QDir::current().filePath(name)))
            throw ToolError(QStringLiteral("no se puede copiar el informe «%1»").arg(name));
    }
}

} // namespace

void makeDemoRoot(const DemoRequest& request)
{
    constexpr int kClientsOfOthers = 40;
    makeFolder(request.folder);
    const QString reports = request.reports.isEmpty() ? QString() : QDir(request.reports).absolutePath();
    const InsideFolder inside(request.folder);
    makeCatalogue();
    std::uint64_t firstStream = 0;
    for (const Company& company : companies()) {
        makeCompany(company, company.isMain ? request.clients : kClientsOfOthers, request.seed, firstStream);
        firstStream += StreamsPerCompany;
    }
    copyReports(reports);
}

} // namespace tools
