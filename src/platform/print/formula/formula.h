// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// One formula through its life: text, parsed at once; bound to a report's names; evaluated for each record.

#include "platform/print/formula/ast.h"
#include "platform/print/formula/context.h"
#include "platform/print/formula/names.h"

#include <QString>

#include <memory>
#include <optional>
#include <vector>

namespace platform::print::formula {

class Formula
{
public:
    /// The empty formula.
    Formula() = default;
    /// Parses; see `fault`.
    explicit Formula(const QString& text);

    [[nodiscard]] const QString& text() const noexcept { return m_text; }
    /// No text but blanks and comments, or nothing before its first zero character.
    [[nodiscard]] bool isEmpty() const noexcept { return m_root == nullptr && !m_fault; }
    /// The first fault: of the syntax after the making, of names and types after `bind`.
    [[nodiscard]] const std::optional<Fault>& fault() const noexcept { return m_fault; }

    /// Binds names and checks types. False when there is a fault. May be called again with other names.
    bool bind(Names& names);

    /// Known after `bind`. An empty formula is text.
    [[nodiscard]] Type type() const noexcept { return m_type; }
    [[nodiscard]] const Uses& uses() const noexcept { return m_uses; }

    /// For a bound formula. An empty one has the value "".
    [[nodiscard]] Outcome evaluate(Context& context) const;

    /// The tree, checked once it is bound; null for an empty formula. Borrowed.
    [[nodiscard]] const Node* root() const noexcept { return m_root.get(); }

private:
    QString m_text;
    std::shared_ptr<Node> m_root;
    std::optional<Fault> m_fault;
    std::vector<Type> m_locals;
    Type m_type = Type::Text;
    Uses m_uses;
};

} // namespace platform::print::formula
