// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The evaluator's inside, shared by its two source files; nothing else includes it.

#include "platform/print/formula/evaluate.h"

#include <QVarLengthArray>

namespace platform::print::formula {

/// One evaluation. "No value" from any method ends it: either a null was read or `fault` is set.
class Run
{
public:
    Run(std::span<const Type> locals, Context& context)
        : m_context(context)
    {
        for (const Type type : locals)
            m_locals.append(startValue(type));
    }

    Value value(const Node& node);
    std::optional<Fault> fault;

private:
    Value fail(const Node& node, const QString& why);
    Value taken(Outcome outcome);
    Value& variable(const Node& node);
    Value assignment(const Node& node);
    Value choice(const Node& node);
    Value sequence(const Node& node);
    Value unary(const Node& node);
    Value binary(const Node& node);
    Value logical(const Node& node);
    Value shortCircuit(const Node& node);
    Value comparison(const Node& node);
    Value membership(const Node& node);
    Value inRange(const Value& left, const Node& range);
    Value inList(const Value& left, const Node& list);
    Value subscript(const Node& node);
    Value call(const Node& node);
    Value special(const Node& node);
    Value neighbour(const Node& node);
    Value nullTest(const Node& node);
    Value extreme(const Node& node);
    bool better(const Node& bound, int direction, Value& best);

    Context& m_context;
    QVarLengthArray<Value, 4> m_locals;
};

} // namespace platform::print::formula
