// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Reads the attributes of one element, each once, and finds those that are missing, wrong or unknown.

#include "platform/print/definition/model.h"
#include "platform/print/definition/xmltree.h"

#include <initializer_list>
#include <utility>

namespace platform::print {

class ElementReader
{
public:
    ElementReader(const XmlElement& element, std::vector<DefinitionFault>& faults)
        : m_element(element)
        , m_faults(faults)
    {}

    [[nodiscard]] bool has(QLatin1StringView name) const { return find(name) != nullptr; }
    void fail(const SourcePlace& place, const QString& text) { m_faults.push_back({place, text}); }
    /// A fault at an attribute, or at the element where it stands not.
    void failAt(QLatin1StringView name, const QString& text);

    /// The attribute's text; a fault and "" when it is needed and isn't there.
    QString needed(QLatin1StringView name);
    QString text(QLatin1StringView name, const QString& otherwise = {});
    double number(QLatin1StringView name, double least, double most, double otherwise);
    double neededNumber(QLatin1StringView name, double least, double most);
    bool yes(QLatin1StringView name, bool otherwise = false);
    std::optional<quint32> color(QLatin1StringView name);
    std::optional<Format> format(QLatin1StringView name);
    std::optional<formula::Formula> formula(QLatin1StringView name);
    formula::Formula neededFormula(QLatin1StringView name);
    /// The number of the word found among `words`, `otherwise` without the attribute.
    int choice(QLatin1StringView name, std::initializer_list<QLatin1StringView> words, int otherwise);
    /// A formula out of the element's text, with its fault placed at the element.
    formula::Formula content();

    /// Reports attributes that nothing has asked for, and text or children where none belong.
    void finish(bool takesText = false, bool takesChildren = false);

private:
    [[nodiscard]] const XmlAttribute* find(QLatin1StringView name) const;
    const XmlAttribute* take(QLatin1StringView name);
    void checkSyntax(const formula::Formula& formula, const SourcePlace& place);

    const XmlElement& m_element;
    std::vector<DefinitionFault>& m_faults;
    std::vector<QLatin1StringView> m_known;
};

} // namespace platform::print
