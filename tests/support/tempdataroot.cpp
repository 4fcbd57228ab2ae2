// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/tempdataroot.h"

#include "platform/dao/dao.h"
#include "platform/system/paths.h"

#include <QDir>

namespace testsupport {
namespace {

using namespace platform::dao;

struct TextColumn
{
    const char* name;
    int size;
};

constexpr TextColumn kCompanyColumns[] = {
    {"MENUMEMPRESA", 5}, {"MENOMBRE", 50}, {"MENUMDIG", 2},    {"MENUMDIG2", 2},
    {"MENUMDIG3", 2},    {"MENUMDIG4", 2}, {"MENUMDIG5", 2},   {"MENUMDIG6", 2},
    {"MENUMDIG7", 2},    {"MENUMDIG8", 2}, {"EMPLOGOTI", 255},
};

void createCatalogue()
{
    Database catalogue =
        DBEngine().Workspaces(0).CreateDatabase(TempDataRoot::cataloguePath(), kSpanishLocale, dbVersion40);
    TableDef companies = catalogue.CreateTableDef(QStringLiteral("EMP"));
    for (const TextColumn& column : kCompanyColumns) {
        Field field = companies.CreateField(QLatin1String(column.name), dbText, column.size);
        field.setAllowZeroLength(true);
        companies.Fields().Append(field);
    }
    Index number = companies.CreateIndex(QStringLiteral("INDMENUM"));
    number.Fields().Append(number.CreateField(QStringLiteral("MENUMEMPRESA")));
    companies.Indexes().Append(number);
    catalogue.TableDefs().Append(companies);
    catalogue.Close();
}

void setUnlessNull(const Recordset& rows, QStringView column, const QString& text)
{
    if (!text.isNull())
        rows[column].setValue(text);
}

} // namespace

TempDataRoot::TempDataRoot()
    : TempDataRoot({{QStringLiteral("00012"), QStringLiteral("TALLERES DEL NORTE")}})
{}

TempDataRoot::TempDataRoot(const QList<Company>& companies)
    : m_formerDirectory(QDir::currentPath())
{
    QDir::setCurrent(m_directory.path());
    createCatalogue();
    for (const Company& company : companies)
        addCompany(company);
}

TempDataRoot::~TempDataRoot()
{
    QDir::setCurrent(m_formerDirectory);
}

void TempDataRoot::addCompany(const Company& company)
{
    addCatalogueRow(company);
    QDir(m_directory.path()).mkdir(QStringLiteral("Empresa") + company.number.trimmed());
}

void TempDataRoot::addCatalogueRow(const Company& company)
{
    Database catalogue = DBEngine().Workspaces(0).OpenDatabase(cataloguePath());
    Recordset rows = catalogue.OpenRecordset(QStringLiteral("EMP"), dbOpenTable);
    rows.AddNew();
    setUnlessNull(rows, u"MENUMEMPRESA", company.number);
    setUnlessNull(rows, u"MENOMBRE", company.name);
    rows[u"MENUMDIG"].setValue(QStringLiteral("9"));
    rows.Update();
    catalogue.Close();
}

QString TempDataRoot::path(const QString& relative) const
{
    return relative.isEmpty() ? m_directory.path() : m_directory.filePath(relative);
}

QString TempDataRoot::companyPath(const QString& number) const
{
    return platform::programPath(path(QStringLiteral("Empresa") + number)) + u'\\';
}

QString TempDataRoot::companyFile(const QString& name, const QString& number) const
{
    return path(QStringLiteral("Empresa%1/%2").arg(number, name));
}

QString TempDataRoot::cataloguePath()
{
    return platform::currentDirectory() + QStringLiteral("\\Empresas de Quenda.mdb");
}

} // namespace testsupport
