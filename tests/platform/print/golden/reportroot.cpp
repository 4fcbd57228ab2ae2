// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/golden/reportroot.h"

#include "platform/print/storefixture.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace platform::print {
namespace {

struct TableText
{
    QStringList columns; ///< as `givenTable` takes them
    std::vector<std::vector<Value>> rows;
};

/// "~" is a null, "\n" within a memo a line's end.
Value valueOf(const QString& column, const QString& cell)
{
    if (cell == u"~")
        return Null{};
    if (column.endsWith(u'#'))
        return cell.toDouble();
    return QString(cell).replace(u"\\n"_s, u"\r\n"_s);
}

/// First line the columns, then a row a line, cells parted by "|".
TableText readTable(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error(path.toStdString());
    TableText table;
    for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts)) {
        const QStringList cells = line.split(u'|');
        if (table.columns.isEmpty()) {
            table.columns = cells;
            continue;
        }
        std::vector<Value> row;
        for (qsizetype i = 0; i < cells.size(); ++i)
            row.push_back(valueOf(table.columns[i], cells[i]));
        table.rows.push_back(std::move(row));
    }
    return table;
}

} // namespace

ReportRoot::ReportRoot(const QString& dataFolder)
{
    const auto tableText = [&dataFolder](const QString& table) {
        return readTable(dataFolder + u'/' + table + u".txt"_s);
    };
    const TableText companies = tableText(u"EMP"_s);
    givenTable(path(u"Empresas de Quenda.mdb"_s), u"EMP"_s, companies.columns, companies.rows);
    QDir(path()).mkdir(u"Empresa00012"_s);
    QDir(path()).mkdir(u"Empresa00034"_s);
    const std::pair<QString, QString> stores[] = {{u"CLIENTES.MDB"_s, u"ClientesTabla"_s},
                                                  {u"CLIENTES.MDB"_s, u"clientescyctabla"_s},
                                                  {u"ASISTENCIAS.MDB"_s, u"CONS"_s}};
    for (const auto& [file, name] : stores) {
        const TableText table = tableText(name);
        givenTable(path(u"Empresa00012/"_s + file), name, table.columns, table.rows);
        givenTable(path(u"Empresa00034/"_s + file), name, table.columns, {});
    }
}

QString ReportRoot::path(const QString& relative) const
{
    return relative.isEmpty() ? m_folder.path() : m_folder.filePath(relative);
}

QString ReportRoot::withReport(const QString& reportFile, const QString& folder) const
{
    QDir(path()).mkdir(folder);
    QString copy = path(folder + u'/' + QFileInfo(reportFile).fileName());
    QFile::copy(reportFile, copy);
    return copy;
}

} // namespace platform::print
