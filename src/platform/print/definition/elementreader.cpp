// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/definition/elementreader.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace platform::print {

const XmlAttribute* ElementReader::find(QLatin1StringView name) const
{
    const auto found = std::find_if(m_element.attributes.begin(), m_element.attributes.end(),
                                    [name](const XmlAttribute& attribute) { return attribute.name == name; });
    return found == m_element.attributes.end() ? nullptr : &*found;
}

const XmlAttribute* ElementReader::take(QLatin1StringView name)
{
    m_known.push_back(name);
    return find(name);
}

void ElementReader::failAt(QLatin1StringView name, const QString& text)
{
    const XmlAttribute* attribute = find(name);
    fail(attribute != nullptr ? attribute->place : m_element.place, text);
}

QString ElementReader::needed(QLatin1StringView name)
{
    const XmlAttribute* attribute = take(name);
    if (attribute != nullptr && !attribute->value.isEmpty())
        return attribute->value;
    failAt(name, u"falta el atributo «%1» en «%2»"_s.arg(name, m_element.name));
    return {};
}

QString ElementReader::text(QLatin1StringView name, const QString& otherwise)
{
    const XmlAttribute* attribute = take(name);
    return attribute != nullptr ? attribute->value : otherwise;
}

double ElementReader::number(QLatin1StringView name, double least, double most, double otherwise)
{
    const XmlAttribute* attribute = take(name);
    if (attribute == nullptr)
        return otherwise;
    bool read = false;
    const double value = attribute->value.toDouble(&read);
    const bool plain = std::all_of(attribute->value.begin(), attribute->value.end(), [](QChar c) {
        return (c >= u'0' && c <= u'9') || c == u'.' || c == u'-';
    });
    if (read && plain && value >= least && value <= most)
        return value;
    failAt(name, u"«%1» ha de ser un número entre %2 y %3"_s.arg(name).arg(least).arg(most));
    return otherwise;
}

double ElementReader::neededNumber(QLatin1StringView name, double least, double most)
{
    if (!has(name))
        needed(name);
    return number(name, least, most, least);
}

bool ElementReader::yes(QLatin1StringView name, bool otherwise)
{
    return choice(name, {"no"_L1, "si"_L1}, otherwise ? 1 : 0) == 1;
}

std::optional<quint32> ElementReader::color(QLatin1StringView name)
{
    const XmlAttribute* attribute = take(name);
    if (attribute == nullptr)
        return std::nullopt;
    bool read = false;
    const quint32 value = QStringView(attribute->value).mid(1).toUInt(&read, 16);
    if (read && attribute->value.size() == 7 && attribute->value.startsWith(u'#'))
        return value;
    failAt(name, u"«%1» ha de ser un color «#rrggbb»"_s.arg(name));
    return std::nullopt;
}

std::optional<Format> ElementReader::format(QLatin1StringView name)
{
    const XmlAttribute* attribute = take(name);
    if (attribute == nullptr)
        return std::nullopt;
    std::optional<Format> read = parseFormat(attribute->value);
    if (!read)
        failAt(name, u"el formato «%1» no existe"_s.arg(attribute->value));
    return read;
}

void ElementReader::checkSyntax(const formula::Formula& formula, const SourcePlace& place)
{
    if (formula.fault())
        fail(place, formula::describe(u"fórmula"_s, *formula.fault()));
}

std::optional<formula::Formula> ElementReader::formula(QLatin1StringView name)
{
    const XmlAttribute* attribute = take(name);
    if (attribute == nullptr)
        return std::nullopt;
    formula::Formula read(attribute->value);
    checkSyntax(read, attribute->place);
    return read;
}

formula::Formula ElementReader::neededFormula(QLatin1StringView name)
{
    const QString value = needed(name);
    formula::Formula read(value);
    if (!value.isEmpty())
        checkSyntax(read, find(name)->place);
    return read;
}

int ElementReader::choice(QLatin1StringView name, std::initializer_list<QLatin1StringView> words,
                          int otherwise)
{
    const XmlAttribute* attribute = take(name);
    if (attribute == nullptr)
        return otherwise;
    const auto found = std::find_if(words.begin(), words.end(),
                                    [attribute](QLatin1StringView word) { return attribute->value == word; });
    if (found != words.end())
        return static_cast<int>(found - words.begin());
    QStringList allowed;
    for (const QLatin1StringView word : words)
        allowed += u"«%1»"_s.arg(word);
    failAt(name, u"«%1» ha de ser %2"_s.arg(name, allowed.join(u", "_s)));
    return otherwise;
}

formula::Formula ElementReader::content()
{
    formula::Formula read(m_element.text.trimmed());
    checkSyntax(read, m_element.place);
    return read;
}

void ElementReader::finish(bool takesText, bool takesChildren)
{
    for (const XmlAttribute& attribute : m_element.attributes) {
        const bool known = std::any_of(m_known.begin(), m_known.end(), [&attribute](QLatin1StringView name) {
            return attribute.name == name;
        });
        if (!known)
            fail(attribute.place,
                 u"el atributo «%1» no existe en «%2»"_s.arg(attribute.name, m_element.name));
    }
    if (!takesText && !m_element.text.trimmed().isEmpty())
        fail(m_element.place, u"«%1» no lleva texto"_s.arg(m_element.name));
    for (const XmlElement& child : m_element.children) {
        if (!takesChildren)
            fail(child.place, u"el elemento «%1» no existe en «%2»"_s.arg(child.name, m_element.name));
    }
}

} // namespace platform::print
