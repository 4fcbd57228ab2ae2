// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/formula/to_text.h"
#include "platform/print/output/exports.h"

#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace platform::print {
namespace {

struct CsvColumn
{
    const formula::Formula* formula = nullptr;
    std::optional<Format> format;
};

QString heading(const formula::Formula& formula)
{
    const formula::Node* root = formula.root();
    if (root == nullptr)
        return {};
    if (root->kind == formula::NodeKind::Field)
        return root->detail;
    return root->kind == formula::NodeKind::FormulaField ? root->name : formula.text();
}

QString quotedCell(const QString& text)
{
    const bool plain =
        !text.contains(u';') && !text.contains(u'"') && !text.contains(u'\n') && !text.contains(u'\r');
    if (plain)
        return text;
    QString doubled = text;
    return u'"' + doubled.replace(u'"', u"\"\""_s) + u'"';
}

QString cell(const CsvColumn& column, Records& records)
{
    const formula::Outcome outcome = column.formula->evaluate(records);
    if (outcome.fault)
        return {};
    if (const auto* number = std::get_if<double>(&outcome.value))
        return formula::plainNumber(*number).replace(u'.', u',');
    return quotedCell(formatted(column.format.value_or(Format{}), outcome.value));
}

/// Group fields, then fields of the detail sections as they stand in the definition.
std::vector<CsvColumn> columnsOf(const Report& report)
{
    std::vector<CsvColumn> columns;
    for (const Group& group : report.groups)
        columns.push_back({&group.field, std::nullopt});
    for (const Section& section : report.sections) {
        if (section.kind != SectionKind::Detail)
            continue;
        for (const Item& item : section.items) {
            const Style& style = report.styles[static_cast<std::size_t>(item.style)];
            if (item.kind == Item::Kind::Field && item.formula)
                columns.push_back({&*item.formula, item.format ? item.format : style.format});
        }
    }
    return columns;
}

} // namespace

bool writeCsv(Document& document, const QString& path)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    const std::vector<CsvColumn> columns = columnsOf(document.report());
    Records& records = document.execution().records();
    QStringList cells;
    for (const CsvColumn& column : columns)
        cells += quotedCell(heading(*column.formula));
    QString text = QChar(0xFEFF) + cells.join(u';') + u"\r\n"_s;
    for (quint32 position = 0; position < records.view()->size(); ++position) {
        records.setPosition(position);
        cells.clear();
        for (const CsvColumn& column : columns)
            cells += cell(column, records);
        text += cells.join(u';') + u"\r\n"_s;
        if (text.size() > 1'000'000) {
            file.write(text.toUtf8());
            text.clear();
        }
    }
    file.write(text.toUtf8());
    return file.commit();
}

} // namespace platform::print
