// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// An XML text as a tree of elements that remember where they and their attributes stand.

#include <QString>

#include <optional>
#include <vector>

namespace platform::print {

struct SourcePlace
{
    int line = 1;
    int column = 1;
};

/// A fault of a definition file, as the checker prints it.
struct DefinitionFault
{
    SourcePlace place;
    QString text;
};

struct XmlAttribute
{
    QString name;
    QString value;
    SourcePlace place;
};

struct XmlElement
{
    QString name;
    SourcePlace place;
    std::vector<XmlAttribute> attributes;
    std::vector<XmlElement> children;
    QString text; ///< character data directly inside, CDATA included
};

/// Deepest nesting of elements that is read.
inline constexpr int kMaxElementDepth = 12;

/// The root element, or the first fault: not UTF-8, not well formed, a document type, an entity of its own.
[[nodiscard]] std::optional<XmlElement> readXmlTree(const QByteArray& bytes,
                                                    std::vector<DefinitionFault>& faults);

} // namespace platform::print
