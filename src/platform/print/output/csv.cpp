// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/formula/to_text.h"
#include "platform/print/output/exports.h"

#include <QSaveFile>

#include <algorithm>

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

class CsvExport final : public Export
{
public:
    explicit CsvExport(const QString& path)
        : m_file(path)
    {}

    bool open() override { return m_file.open(QIODevice::WriteOnly); }

    bool step(Document& document) override
    {
        if (m_position == 0)
            begin(document);
        Records& records = document.execution().records();
        const quint32 end = std::min(m_position + kRecordsAStep, records.view()->size());
        QString text;
        for (; m_position < end; ++m_position) {
            records.setPosition(m_position);
            QStringList cells;
            for (const CsvColumn& column : m_columns)
                cells += cell(column, records);
            text += cells.join(u';') + u"\r\n"_s;
        }
        m_file.write(text.toUtf8());
        return m_position < records.view()->size();
    }

    bool commit() override { return m_file.commit(); }

    [[nodiscard]] QString progress() const override
    {
        return u"registros: "_s + formula::grouped(m_position);
    }

private:
    void begin(Document& document)
    {
        // The pages have counted already; here the counting begins anew.
        document.execution().variables().global.restart();
        document.execution().variables().shared->restart();
        m_columns = columnsOf(document.report());
        QStringList headings;
        for (const CsvColumn& column : m_columns)
            headings += quotedCell(heading(*column.formula));
        m_file.write((QChar(0xFEFF) + headings.join(u';') + u"\r\n"_s).toUtf8());
    }

    QSaveFile m_file;
    std::vector<CsvColumn> m_columns;
    quint32 m_position = 0;
};

} // namespace

std::unique_ptr<Export> csvExport(const QString& path)
{
    return std::make_unique<CsvExport>(path);
}

} // namespace platform::print
