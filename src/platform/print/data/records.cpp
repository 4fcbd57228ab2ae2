// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/data/records.h"

#include "platform/print/data/arrange.h"
#include "platform/print/formula/to_text.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace platform::print {

using formula::Special;
using formula::Value;

Records::Records(Report& report, const Binder& binder, Variables& variables, QDateTime moment,
                 QStringList tablePaths)
    : m_report(report)
    , m_binder(binder)
    , m_variables(variables)
    , m_options{report.caseSensitive, report.nullsAsEmpty}
    , m_moment(std::move(moment))
    , m_paths(std::move(tablePaths))
    , m_current(report.tables.size(), kNoRow)
{}

std::vector<quint32> Records::all() const
{
    std::vector<quint32> records(m_rows.size() / m_current.size());
    for (std::size_t i = 0; i < records.size(); ++i)
        records[i] = static_cast<quint32>(i);
    return records;
}

View Records::arrange(std::vector<quint32> records)
{
    Arranger arranger(*this, std::move(records));
    while (arranger.step()) {
    }
    return arranger.takeView();
}

void Records::setPosition(quint32 position)
{
    m_position = position;
    const bool inside = m_view != nullptr && position < m_view->size();
    if (inside)
        enter(m_view->order[position]);
    else
        m_current.assign(m_current.size(), kNoRow);
}

void Records::enter(quint32 record)
{
    for (std::size_t i = 0; i < m_current.size(); ++i)
        m_current[i] = m_rows[record * m_current.size() + i];
}

formula::Outcome Records::evaluateRecord(const formula::Formula& formula, quint32 record)
{
    enter(record);
    return formula.evaluate(*this);
}

void Records::countInvalid()
{
    if (m_view == nullptr || m_position >= m_view->size())
        ++m_invalid;
    else
        m_invalidRecords.insert(m_view->order[m_position]);
}

bool Records::met(const formula::Formula& condition)
{
    if (condition.isEmpty())
        return true;
    const formula::Outcome outcome = condition.evaluate(*this);
    if (outcome.fault)
        countInvalid();
    const bool* result = std::get_if<bool>(&outcome.value);
    return !outcome.fault && result != nullptr && *result;
}

Value Records::column(int slot)
{
    const Slot& place = m_binder.slotList()[static_cast<std::size_t>(slot)];
    const auto table = static_cast<std::size_t>(place.table);
    return m_tables[table].value(m_current[table], place.stored);
}

formula::Outcome Records::formula(int slot)
{
    return m_report.formulas[static_cast<std::size_t>(slot)].formula.evaluate(*this);
}

QByteArrayView Records::columnBytes(int slot) const
{
    const Slot& place = m_binder.slotList()[static_cast<std::size_t>(slot)];
    const auto table = static_cast<std::size_t>(place.table);
    return m_tables[table].bytes(m_current[table], place.stored);
}

Value Records::operand(const formula::Operand& field)
{
    if (!field.isFormula)
        return column(field.slot);
    formula::Outcome outcome = formula(field.slot);
    return outcome.fault ? Value() : std::move(outcome.value);
}

std::unique_ptr<Totaller> Records::totaller(std::size_t total)
{
    return std::make_unique<Totaller>(*this, m_binder.totals()[total]);
}

void Records::keepTotal(std::size_t total, Totaller& totaller)
{
    m_view->totals[total] = totaller.takeResults();
}

Value Records::total(int slot)
{
    if (m_view == nullptr)
        return {};
    const auto place = static_cast<std::size_t>(slot);
    if (m_view->totals[place].empty()) {
        const quint32 here = m_position;
        Totaller totaller(*this, m_binder.totals()[place]);
        while (totaller.step()) {
        }
        keepTotal(place, totaller);
        setPosition(here);
    }
    const int group = m_binder.totals()[place].group;
    if (group < 0)
        return m_view->totals[place].front();
    const auto level = static_cast<std::size_t>(group);
    if (m_position >= m_view->size())
        return {};
    return m_view->totals[place][m_view->groupAt(level, m_position)];
}

formula::Outcome Records::neighbour(int step, const formula::Operand& field)
{
    const quint32 here = m_position;
    const bool outside = m_view == nullptr || (step < 0 ? here == 0 : here + 1 >= m_view->size());
    if (outside)
        return {};
    setPosition(step < 0 ? here - 1 : here + 1);
    formula::Outcome outcome =
        field.isFormula ? formula(field.slot) : formula::Outcome{column(field.slot), {}};
    setPosition(here);
    return outcome;
}

Value& Records::variable(formula::Scope scope, int slot)
{
    return m_variables.space(scope).value(slot);
}

QString Records::tablePart(int table, bool folder) const
{
    if (table < 0 || table >= m_paths.size())
        return {};
    const QFileInfo file(m_paths[table]);
    return folder ? QFileInfo(file.path()).fileName() : file.fileName();
}

Value Records::pageFact(Special what) const
{
    switch (what) {
    case Special::PageNumber:
        return static_cast<double>(m_page.page);
    case Special::TotalPageCount:
        return static_cast<double>(m_page.pageCount);
    case Special::GroupPageNumber:
        return static_cast<double>(m_page.groupPage);
    case Special::GroupPageCount:
        return static_cast<double>(m_page.groupPageCount);
    case Special::PageNofM:
        return u"Página %1 de %2"_s.arg(formula::grouped(m_page.page), formula::grouped(m_page.pageCount));
    default:
        return m_page.repeatedHeader;
    }
}

Value Records::special(Special what, int argument)
{
    const bool placed = m_view != nullptr && m_position < m_view->size();
    switch (what) {
    case Special::RecordNumber:
        return static_cast<double>(m_position) + 1;
    case Special::GroupNumber:
        return placed && !m_view->groups.empty() ? static_cast<double>(m_view->groupAt(0, m_position)) + 1
                                                 : 1.0;
    case Special::OnFirstRecord:
        return m_position == 0;
    case Special::OnLastRecord:
        return m_view != nullptr && m_position + 1 >= m_view->size();
    case Special::GroupName: {
        const formula::Outcome group =
            m_report.groups[static_cast<std::size_t>(argument)].field.evaluate(*this);
        return group.fault ? Value() : Value(formatted({}, group.value));
    }
    case Special::PrintDate:
    case Special::CurrentDate:
        return formula::toDate(m_moment.date());
    case Special::PrintTime:
    case Special::CurrentTime:
        return formula::Time{formula::toDateTime(m_moment).second};
    case Special::CurrentDateTime:
        return formula::toDateTime(m_moment);
    case Special::CarpetaTabla:
        return tablePart(argument, true);
    case Special::FicheroTabla:
        return tablePart(argument, false);
    case Special::Moment:
        return true;
    default:
        return pageFact(what);
    }
}

} // namespace platform::print
