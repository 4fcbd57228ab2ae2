// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/formula/formula.h"

#include "platform/print/formula/evaluate.h"
#include "platform/print/formula/parser.h"
#include "platform/print/formula/types.h"

namespace platform::print::formula {

Formula::Formula(const QString& text)
    : m_text(text)
{
    Parsed parsed = parse(m_text);
    m_root = std::move(parsed.root);
    m_fault = std::move(parsed.fault);
}

bool Formula::bind(Names& names)
{
    // The checker rewrites the tree, so each binding starts from a fresh one.
    Parsed parsed = parse(m_text);
    m_fault = std::move(parsed.fault);
    if (m_fault || !parsed.root)
        return !m_fault;
    Checked checked = check(parsed.root, names);
    m_root = std::move(parsed.root);
    m_fault = std::move(checked.fault);
    m_locals = std::move(checked.locals);
    m_type = checked.type;
    m_uses = checked.uses;
    return !m_fault;
}

Outcome Formula::evaluate(Context& context) const
{
    if (!m_root)
        return {QString(), std::nullopt};
    return formula::evaluate(*m_root, m_locals, context);
}

} // namespace platform::print::formula
