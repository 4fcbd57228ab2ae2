// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The reader's inside, shared by its two source files; nothing else includes it.

#include "platform/print/definition/elementreader.h"

namespace platform::print {

class ReportReader
{
public:
    explicit ReportReader(std::vector<DefinitionFault>& found)
        : faults(found)
    {}

    void readMain(const XmlElement& root);

    Report report;
    std::vector<DefinitionFault>& faults;

private:
    // read_xml.cpp
    void readHead(ElementReader& reader, Report& target);
    void readPage(const XmlElement& element);
    void readStyle(const XmlElement& element);
    int styleNumber(ElementReader& reader, QLatin1StringView attribute);
    void nameSubreport(const XmlElement& element);
    void readSubreport(const XmlElement& element);
    void readBody(const XmlElement& element, Report& target, const QStringList& elsewhere);
    formula::Formula readText(const XmlElement& element);
    void readTable(const XmlElement& element, Report& target);
    void readJoin(const XmlElement& element, Table& table);
    void readFormula(const XmlElement& element, Report& target);
    void readGroup(const XmlElement& element, Report& target);
    void readSorting(const XmlElement& element, Report& target);

    // readsections.cpp
    void readSection(const XmlElement& element, Report& target);
    void readItem(const XmlElement& element, Section& section);
    bool readContent(const XmlElement& element, ElementReader& reader, Item& item);
    void readPlace(ElementReader& reader, Item& item);
    void readFrame(ElementReader& reader, Item& item);
    std::vector<TextPiece> readPieces(const XmlElement& element);
    void orderSections(Report& target);

    std::size_t m_nextSubreport = 0;
    bool m_inSubreport = false;
};

} // namespace platform::print
