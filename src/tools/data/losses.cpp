// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/data/losses.h"

#include "platform/core/failure.h"

namespace tools {

namespace {

using platform::storage::LostRow;
using platform::storage::TableLosses;

QString nameOf(const LostRow& row)
{
    QStringList parts;
    for (qsizetype i = 0; i < row.columns.size(); ++i) {
        const platform::Value& value = row.key[static_cast<std::size_t>(i)];
        parts.append(QStringLiteral("%1=%2").arg(
            row.columns.at(i), platform::isNull(value) ? QStringLiteral("Null") : platform::asText(value)));
    }
    return parts.join(QStringLiteral(", "));
}

QString certainty(const TableLosses& table)
{
    if (!table.isCertain)
        return QStringLiteral("los índices no dicen si falta alguna más");
    return table.lost.empty() ? QStringLiteral("no falta ninguna") : QStringLiteral("no falta ninguna más");
}

void tellTable(const TableLosses& table, const QString& file, Findings& findings)
{
    findings.notice({file, table.table, {}}, QStringLiteral("%1 filas legibles, %2 perdidas; %3")
                                                 .arg(table.readable)
                                                 .arg(table.lost.size())
                                                 .arg(certainty(table)));
    for (const LostRow& row : table.lost)
        findings.fault({file, table.table, nameOf(row)}, QStringLiteral("fila perdida"));
    if (table.refused > 0)
        findings.fault({file, table.table, {}},
                       QStringLiteral("%1 filas repiten una clave y se han dejado fuera").arg(table.refused));
}

} // namespace

void tellLosses(const std::vector<TableLosses>& tables, const QString& file, Findings& findings)
{
    for (const TableLosses& table : tables)
        tellTable(table, file, findings);
}

void tellLosses(const QString& path, const QString& file,
                const QList<platform::storage::TableDefinition>& expected, Findings& findings)
{
    try {
        tellLosses(platform::storage::examineStore(path, expected), file, findings);
    } catch (const platform::Failure& failure) {
        findings.fault({file, {}, {}},
                       QStringLiteral("no se puede examinar (fallo %1)").arg(failure.number()));
    }
}

} // namespace tools
