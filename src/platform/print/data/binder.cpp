// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/data/binder.h"

#include "platform/print/problem.h"

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace platform::print {
namespace {

formula::Binding refused(ErrorCode code, const QString& text)
{
    formula::Binding binding;
    binding.code = code;
    binding.text = text;
    return binding;
}

QString sectionName(const Section& section)
{
    static const std::array kNames{u"cabecera-informe"_s, u"cabecera-pagina"_s, u"cabecera-grupo"_s,
                                   u"detalle"_s,          u"pie-grupo"_s,       u"pie-informe"_s,
                                   u"pie-pagina"_s,       u"sin-datos"_s};
    QString name = kNames[static_cast<std::size_t>(section.kind)];
    if (section.group >= 0)
        name += u' ' + QString::number(section.group + 1);
    return name + u' ' + QChar(u'a' + section.letter);
}

} // namespace

Binder::Binder(Report& report, const std::vector<std::vector<SourceColumn>>& schemas, Variables& variables)
    : m_report(report)
    , m_schemas(schemas)
    , m_variables(variables)
    , m_states(report.formulas.size(), State::Unbound)
    , m_tables(report.formulas.size(), 0)
    , m_used(report.tables.size())
    , m_constantConditions(report.tables.size(), false)
{}

void Binder::bindAll()
{
    // The order is that of the messages: what decides the records comes first.
    bindCondition(m_report.filter, u"filtro"_s, true);
    bindCondition(m_report.selection, u"selección"_s, true);
    bindCondition(m_report.groupSelection, u"selección de grupos"_s, true);
    bindTables();
    bindGroups();
    for (FormulaField& field : m_report.formulas) {
        const formula::Binding binding = formula(field.name);
        if (binding.code != kNoError)
            throw Problem(binding.code, binding.text);
    }
    bindSections();
}

void Binder::bind(formula::Formula& formula, const QString& name)
{
    if (!formula.bind(*this))
        throw Problem(formula.fault()->code, describe(name, *formula.fault()));
}

void Binder::bindCondition(formula::Formula& formula, const QString& name, bool selects)
{
    bind(formula, name);
    if (formula.isEmpty())
        return;
    if (formula.type() != formula::Type::Boolean)
        throw Problem(kFormulaTypes, u"%1: el resultado ha de ser sí o no"_s.arg(name));
    const formula::Uses& uses = formula.uses();
    if (selects && (uses.totals || uses.pages || uses.order || uses.printing))
        throw Problem(kFormulaTypes, u"%1: pide algo que sólo se conoce después de seleccionar"_s.arg(name));
}

void Binder::bindKey(formula::Formula& formula, const QString& name)
{
    bind(formula, name);
    const formula::Uses& uses = formula.uses();
    if (uses.totals || uses.pages || uses.order || uses.printing || uses.variables)
        throw Problem(kFormulaTypes, u"%1: pide algo que sólo se conoce después de ordenar"_s.arg(name));
}

void Binder::bindTables()
{
    for (std::size_t i = 0; i < m_report.tables.size(); ++i) {
        Table& table = m_report.tables[i];
        const QString name = u"enlace de «%1»"_s.arg(table.alias);
        for (TableLink& link : table.links) {
            m_touched = 0;
            bindKey(link.field, name);
            const bool own = (m_touched & ~(1u << i)) == 0;
            m_touched = 0;
            bindKey(link.with, name);
            if (!own || m_touched >= (1u << i))
                throw Problem(kFormulaTypes,
                              u"%1: «campo» es de esta tabla y «con» de las anteriores"_s.arg(name));
            if (link.field.type() != link.with.type())
                throw Problem(kFormulaTypes, u"%1: los dos lados son de tipos distintos"_s.arg(name));
        }
        if (table.condition) {
            m_touched = 0;
            bindCondition(*table.condition, name, true);
            m_constantConditions[i] = (m_touched & ~(1u << i)) == 0;
            if (m_touched >= (1u << (i + 1)))
                throw Problem(kFormulaTypes, u"%1: la condición mira una tabla posterior"_s.arg(name));
        }
    }
    for (TableLink& link : m_report.links)
        bindKey(link.field, u"vínculo"_s);
}

void Binder::bindGroups()
{
    for (std::size_t i = 0; i < m_report.groups.size(); ++i) {
        Group& group = m_report.groups[i];
        const QString name = u"grupo %1"_s.arg(i + 1);
        bindKey(group.field, name);
        const formula::Node* root = group.field.root();
        if (root == nullptr ||
            (root->kind != formula::NodeKind::Field && root->kind != formula::NodeKind::FormulaField))
            throw Problem(kFormulaTypes, u"%1: «campo» ha de ser {tabla.columna} o {@fórmula}"_s.arg(name));
        if (group.key)
            bindKey(*group.key, name);
    }
    for (SortField& field : m_report.sorting)
        bindKey(field.field, u"orden"_s);
}

void Binder::bindSections()
{
    for (Section& section : m_report.sections) {
        const QString name = sectionName(section);
        if (section.suppress)
            bindCondition(*section.suppress, name, false);
        for (std::size_t i = 0; i < section.items.size(); ++i)
            bindItem(section.items[i], u"%1, elemento %2"_s.arg(name).arg(i + 1));
    }
}

void Binder::bindItem(Item& item, const QString& name)
{
    if (item.suppress)
        bindCondition(*item.suppress, name, false);
    if (item.formula)
        bind(*item.formula, name);
    for (TextPiece& piece : item.pieces) {
        if (piece.field)
            bind(*piece.field, name);
    }
}

formula::Binding Binder::column(const QString& table, const QString& column)
{
    const auto same = [](const QString& left, const QString& right) {
        return left.compare(right, Qt::CaseInsensitive) == 0;
    };
    const auto known = std::find_if(m_report.tables.begin(), m_report.tables.end(),
                                    [&](const Table& candidate) { return same(candidate.alias, table); });
    if (known == m_report.tables.end())
        return refused(kFormulaTypes, u"el informe no tiene la tabla «%1»"_s.arg(table));
    const auto place = static_cast<std::size_t>(known - m_report.tables.begin());
    const std::vector<SourceColumn>& columns = m_schemas[place];
    const auto found = std::find_if(columns.begin(), columns.end(), [&](const SourceColumn& candidate) {
        return same(candidate.name, column);
    });
    if (found == columns.end())
        return refused(kColumnMissing, u"la tabla «%1» no tiene la columna «%2»"_s.arg(table, column));
    m_touched |= 1u << place;
    formula::Binding binding;
    binding.type = found->type;
    const int position = static_cast<int>(found - columns.begin());
    const auto used = std::find_if(m_slots.begin(), m_slots.end(), [&](const Slot& slot) {
        return slot.table == static_cast<int>(place) && slot.column == position;
    });
    binding.slot = static_cast<int>(used - m_slots.begin());
    if (used == m_slots.end()) {
        m_slots.push_back(
            {static_cast<int>(place), position, static_cast<int>(m_used[place].size()), found->type});
        m_used[place].push_back(position);
    }
    return binding;
}

formula::Binding Binder::formula(const QString& name)
{
    FormulaField* field = m_report.formulaField(name);
    if (field == nullptr)
        return refused(kFormulaTypes, u"el informe no tiene la fórmula «%1»"_s.arg(name));
    const auto place = static_cast<std::size_t>(field - m_report.formulas.data());
    if (m_states[place] == State::Binding)
        return refused(kFormulaTypes, u"la fórmula «%1» se usa a sí misma"_s.arg(name));
    if (m_states[place] == State::Unbound) {
        m_states[place] = State::Binding;
        const unsigned before = std::exchange(m_touched, 0);
        const bool bound = field->formula.bind(*this);
        m_tables[place] = std::exchange(m_touched, before);
        m_states[place] = State::Bound;
        if (!bound)
            return refused(field->formula.fault()->code,
                           describe(u"@"_s + field->name, *field->formula.fault()));
    }
    m_touched |= m_tables[place];
    formula::Binding binding;
    binding.slot = static_cast<int>(place);
    binding.type = field->formula.type();
    binding.uses = field->formula.uses();
    return binding;
}

formula::Binding Binder::variable(formula::Scope scope, const QString& name, formula::Type type)
{
    formula::Binding binding;
    binding.type = type;
    binding.slot = m_variables.space(scope).declare(name, type);
    if (binding.slot < 0)
        return refused(kFormulaTypes, u"la variable «%1» es de otro tipo en otra fórmula"_s.arg(name));
    return binding;
}

int Binder::group(const formula::Operand& field)
{
    for (std::size_t i = 0; i < m_report.groups.size(); ++i) {
        const formula::Node* root = m_report.groups[i].field.root();
        const bool isFormula = root != nullptr && root->kind == formula::NodeKind::FormulaField;
        if (root != nullptr && isFormula == field.isFormula && root->slot == field.slot)
            return static_cast<int>(i);
    }
    return -1;
}

int Binder::total(formula::TotalKind kind, const formula::Operand& field, int group)
{
    const auto known = std::find_if(m_totals.begin(), m_totals.end(), [&](const TotalRequest& request) {
        return request.kind == kind && request.group == group && request.field.isFormula == field.isFormula &&
               request.field.slot == field.slot;
    });
    if (known == m_totals.end()) {
        m_totals.push_back({kind, field, group});
        return static_cast<int>(m_totals.size()) - 1;
    }
    return static_cast<int>(known - m_totals.begin());
}

} // namespace platform::print
