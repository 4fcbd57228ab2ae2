// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/data/checkstore.h"

#include "stores/clientesschema.h"

#include <algorithm>
#include <array>

namespace tools {

namespace {

using platform::storage::Column;
using platform::storage::IndexDefinition;
using platform::storage::TableDefinition;

/// How many columns at the end of a table came with upgrades. An older file may lack them, and holds them in
/// any order.
struct UpgradedEnd
{
    QStringView table;
    int columns;
};
constexpr std::array kUpgradedEnds{
    UpgradedEnd{u"ClientesTabla", 4},
    UpgradedEnd{u"CLIDIRENVIOS", 1},
    UpgradedEnd{u"clientescyctabla", 1},
    UpgradedEnd{u"ArticulosTabla", 13},
};

/// The size of `CliCuentaVentas` where an upgrade has added it; a new store has it at 1.
constexpr int kUpgradedAccountSize = 12;

bool sameName(QStringView left, QStringView right)
{
    return left.compare(right, Qt::CaseInsensitive) == 0;
}

int fixedColumns(const TableDefinition& expected)
{
    const auto end = std::find_if(kUpgradedEnds.begin(), kUpgradedEnds.end(), [&](const UpgradedEnd& entry) {
        return sameName(entry.table, expected.name);
    });
    return static_cast<int>(expected.columns.size()) - (end == kUpgradedEnds.end() ? 0 : end->columns);
}

QString described(const Column& column)
{
    switch (column.type) {
    case platform::storage::ColumnType::Text:
        return QStringLiteral("texto de %1").arg(column.size);
    case platform::storage::ColumnType::Number:
        return QStringLiteral("número");
    case platform::storage::ColumnType::Memo:
        return QStringLiteral("memo");
    }
    return {};
}

bool sameKind(const Column& expected, const Column& found)
{
    if (expected.type != found.type)
        return false;
    if (expected.type != platform::storage::ColumnType::Text || expected.size == found.size)
        return true;
    return sameName(expected.name, u"CliCuentaVentas") && found.size == kUpgradedAccountSize;
}

void checkColumn(const Column& expected, const Column& found, const Spot& spot, Findings& findings)
{
    if (!sameKind(expected, found)) {
        findings.fault(spot, QStringLiteral("la columna %1 es %2 y debe ser %3")
                                 .arg(expected.name, described(found), described(expected)));
    } else if (expected.allowZeroLength && !found.allowZeroLength) {
        findings.fault(spot, QStringLiteral("la columna %1 no admite el texto vacío").arg(expected.name));
    }
}

void checkColumns(const TableDefinition& expected, const TableDefinition& found, const Spot& spot,
                  Findings& findings)
{
    const int fixed = fixedColumns(expected);
    for (int i = 0; i < expected.columns.size(); ++i) {
        const Column& column = expected.columns[i];
        const int position = found.columnIndex(column.name);
        if (position < 0 && i >= fixed)
            findings.notice(spot,
                            QStringLiteral("forma antigua: falta la columna %1, que se añade al arrancar")
                                .arg(column.name));
        else if (position < 0)
            findings.fault(spot, QStringLiteral("falta la columna %1").arg(column.name));
        else
            checkColumn(column, found.columns[position], spot, findings);
        if (position >= 0 && i < fixed && position != i)
            findings.fault(spot, QStringLiteral("la columna %1 está en el lugar %2 y debe estar en el %3")
                                     .arg(column.name)
                                     .arg(position + 1)
                                     .arg(i + 1));
    }
    for (const Column& column : found.columns) {
        if (expected.columnIndex(column.name) < 0)
            findings.notice(spot, QStringLiteral("la columna %1 no es de este programa").arg(column.name));
    }
}

bool sameColumns(const QStringList& left, const QStringList& right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](const QString& a, const QString& b) { return sameName(a, b); });
}

/// The concepts' index from before lines had numbers: right for a table that has no such column yet.
bool isOldConceptsIndex(const IndexDefinition& expected, const IndexDefinition& found,
                        const TableDefinition& table)
{
    const QStringView line = stores::kClientescyctablaColumns.back().name;
    return sameName(table.name, stores::kClientescyctabla.name) && table.columnIndex(line) < 0 &&
           sameColumns(expected.columns.mid(0, expected.columns.size() - 1), found.columns);
}

void checkIndex(const IndexDefinition& expected, const TableDefinition& table, const Spot& spot,
                Findings& findings)
{
    const IndexDefinition* found = table.index(expected.name);
    if (found == nullptr) {
        findings.fault(spot, QStringLiteral("falta el índice %1").arg(expected.name));
        return;
    }
    if (!sameColumns(expected.columns, found->columns)) {
        if (isOldConceptsIndex(expected, *found, table))
            findings.notice(
                spot, QStringLiteral("forma antigua: el índice %1 se rehace al arrancar").arg(expected.name));
        else
            findings.fault(spot,
                           QStringLiteral("el índice %1 es de %2 y debe ser de %3")
                               .arg(expected.name, found->columns.join(u'+'), expected.columns.join(u'+')));
    }
    if (found->primary != expected.primary || found->unique != expected.unique)
        findings.fault(spot, QStringLiteral("el índice %1 no es %2 como debe")
                                 .arg(expected.name, expected.primary  ? QStringLiteral("primario")
                                                     : expected.unique ? QStringLiteral("único")
                                                                       : QStringLiteral("repetible")));
}

/// The table of prices comes with the first start that opens the store.
void checkPrices(const QList<TableDefinition>& found, const stores::StoreSchema& schema, const QString& file,
                 Findings& findings)
{
    if (schema.file != stores::kClientesStore.file)
        return;
    const TableDefinition expected = stores::tableDefinition(stores::kTarifasCliente);
    const auto prices = std::find_if(found.begin(), found.end(), [&](const TableDefinition& table) {
        return sameName(table.name, expected.name);
    });
    const Spot spot{file, expected.name, {}};
    if (prices == found.end()) {
        findings.notice(spot, QStringLiteral("forma antigua: la tabla se crea al arrancar"));
        return;
    }
    checkColumns(expected, *prices, spot, findings);
    for (const IndexDefinition& index : expected.indexes)
        checkIndex(index, *prices, spot, findings);
}

} // namespace

void checkSchema(platform::storage::Connection& store, const stores::StoreSchema& schema, const QString& file,
                 Findings& findings)
{
    const QList<TableDefinition> tables = store.tables();
    for (const TableDefinition& expected : stores::tableDefinitions(schema.tables)) {
        const Spot spot{file, expected.name, {}};
        const auto found = std::find_if(tables.begin(), tables.end(), [&](const TableDefinition& table) {
            return sameName(table.name, expected.name);
        });
        if (found == tables.end()) {
            findings.fault(spot, QStringLiteral("falta la tabla"));
            continue;
        }
        checkColumns(expected, *found, spot, findings);
        for (const IndexDefinition& index : expected.indexes)
            checkIndex(index, *found, spot, findings);
    }
    checkPrices(tables, schema, file, findings);
}

} // namespace tools
