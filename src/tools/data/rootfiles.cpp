// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/data/rootfiles.h"

#include "platform/system/paths.h"
#include "stores/allstores.h"
#include "tools/data/companiesschema.h"
#include "tools/data/toolerror.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace tools {

namespace {

/// The file's name without the "\" that the program puts before some.
QStringView plainName(const stores::StoreSchema& store)
{
    return store.file.startsWith(u'\\') ? store.file.sliced(1) : store.file;
}

constexpr std::array kRootStores{kCompaniesStore, stores::kTelefonosStore};

template <typename Stores>
QStringList storesIn(const QDir& root, const QString& folder, const Stores& all)
{
    QStringList found;
    for (const stores::StoreSchema& store : all) {
        const QString path = platform::nativePath(root.filePath(folder) + u'/' + plainName(store).toString());
        if (QFileInfo(path).isFile())
            found.append(QDir(root.canonicalPath()).relativeFilePath(path));
    }
    return found;
}

std::vector<stores::StoreSchema> companyStores()
{
    std::vector<stores::StoreSchema> found;
    std::copy_if(stores::kAllStores.begin(), stores::kAllStores.end(), std::back_inserter(found),
                 [](const auto& store) { return store.place == stores::Place::CompanyFolder; });
    return found;
}

} // namespace

void requireDataRoot(const QString& folder)
{
    if (!QFileInfo(folder).isDir())
        throw ToolError(QStringLiteral("no existe la carpeta «%1»").arg(folder));
    const QString catalogue =
        platform::nativePath(QDir(folder).absolutePath() + kCompaniesStore.file.toString());
    if (!QFileInfo(catalogue).isFile())
        throw ToolError(
            QStringLiteral("«%1» no es una raíz de datos: falta «Empresas de Quenda.mdb»").arg(folder));
}

const stores::StoreSchema* storeNamed(const QString& fileName)
{
    const auto bearsName = [&fileName](const stores::StoreSchema& store) {
        return plainName(store).compare(fileName, Qt::CaseInsensitive) == 0;
    };
    if (bearsName(kCompaniesStore))
        return &kCompaniesStore;
    const auto store = std::find_if(stores::kAllStores.begin(), stores::kAllStores.end(), bearsName);
    return store == stores::kAllStores.end() ? nullptr : &*store;
}

RootFiles rootFiles(const QString& folder)
{
    const QDir root(folder);
    RootFiles files;
    files.stores.append(storesIn(root, QStringLiteral("."), kRootStores));
    const QStringList companies = root.entryList(
        {QStringLiteral("Empresa?????")}, QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    for (const QString& company : companies)
        files.stores.append(storesIn(root, company, companyStores()));
    files.reports = root.entryList({QStringLiteral("*.rpt")}, QDir::Files | QDir::Hidden, QDir::Name);
    return files;
}

} // namespace tools
