// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A report without pages: columns with values, formula fields, variables. Formulas are run against it.

#include "platform/print/formula/formula.h"

#include <QHash>
#include <QMap>

namespace platform::print::formula {

class FormulaFixture : public Names, public Context
{
public:
    /// Declares a column ("Z.C") and its value in the current record; a default value is a null.
    void givenColumn(const QString& field, Type type, Value value = {})
    {
        m_columns.insert(field.toLower(), Column{type, std::move(value)});
    }
    void givenFormula(const QString& name, const QString& text)
    {
        Formula formula(text);
        formula.bind(*this);
        m_formulas.insert(name.toLower(), formula);
    }
    void givenOptions(Options options) { m_options = options; }

    /// "10,00"-like text of the result; "∅" for no value; "E13 1:3" for a fault.
    QString run(const QString& text)
    {
        Formula formula(text);
        if (!formula.bind(*this))
            return faultText(*formula.fault());
        const Outcome outcome = formula.evaluate(*this);
        if (outcome.fault)
            return faultText(*outcome.fault);
        return hasValue(outcome.value) ? shown(outcome.value) : QStringLiteral("∅");
    }

    Binding column(const QString& table, const QString& column) override
    {
        const QString key = (table + u'.' + column).toLower();
        const auto found = m_columns.constFind(key);
        Binding binding;
        if (found == m_columns.constEnd()) {
            binding.code = kColumnMissing;
            binding.text = QStringLiteral("la columna no existe");
            return binding;
        }
        binding.slot = static_cast<int>(std::distance(m_columns.constBegin(), found));
        binding.type = found->type;
        return binding;
    }
    Binding formula(const QString& name) override
    {
        const auto found = m_formulas.constFind(name.toLower());
        Binding binding;
        if (found == m_formulas.constEnd()) {
            binding.code = kFormulaTypes;
            binding.text = QStringLiteral("la fórmula no existe");
            return binding;
        }
        binding.slot = static_cast<int>(std::distance(m_formulas.constBegin(), found));
        binding.type = found->type();
        binding.uses = found->uses();
        return binding;
    }
    Binding variable(Scope, const QString& name, Type type) override
    {
        Binding binding;
        binding.type = type;
        binding.slot = m_variableNames.value(name.toLower(), -1);
        if (binding.slot < 0) {
            binding.slot = static_cast<int>(m_variables.size());
            m_variableNames.insert(name.toLower(), binding.slot);
            m_variables.push_back(startValue(type));
            m_variableTypes.push_back(type);
        } else if (m_variableTypes[static_cast<std::size_t>(binding.slot)] != type) {
            binding.code = kFormulaTypes;
            binding.text = QStringLiteral("la variable tiene otro tipo");
        }
        return binding;
    }
    int group(const Operand& field) override { return field.slot == 0 ? 0 : -1; }
    /// A total is known by its type: only that tells what its value must be.
    int total(TotalKind kind, const Operand& field, int) override
    {
        const bool counting = kind == TotalKind::Count || kind == TotalKind::DistinctCount;
        return static_cast<int>(counting ? Type::Number : field.type);
    }

    const Options& options() const override { return m_options; }
    Value column(int slot) override { return std::next(m_columns.constBegin(), slot)->value; }
    Outcome formula(int slot) override { return std::next(m_formulas.constBegin(), slot)->evaluate(*this); }
    Value total(int slot) override { return anyOf(static_cast<Type>(slot), 42); }
    Outcome neighbour(int step, const Operand& field) override { return {anyOf(field.type, step), {}}; }
    Value special(Special what, int argument) override;
    Value& variable(Scope, int slot) override { return m_variables[static_cast<std::size_t>(slot)]; }

private:
    struct Column
    {
        Type type = Type::Text;
        Value value;
    };

    static QString faultText(const Fault& fault)
    {
        return QStringLiteral("E%1 %2:%3")
            .arg(fault.code)
            .arg(fault.position.line)
            .arg(fault.position.column);
    }
    static QString shown(const Value& value);
    /// A value of the type, out of a number.
    static Value anyOf(Type type, int number);

    QMap<QString, Column> m_columns;
    QMap<QString, Formula> m_formulas;
    QHash<QString, int> m_variableNames;
    std::vector<Value> m_variables;
    std::vector<Type> m_variableTypes;
    Options m_options;
};

} // namespace platform::print::formula
