// SPDX-License-Identifier: GPL-3.0-or-later
// Sections of a definition and what stands in them.
#include "platform/print/definition/reportreader.h"

#include <algorithm>
#include <tuple>

using namespace Qt::StringLiterals;

namespace platform::print {
namespace {

constexpr double kMaxLength = 2'000;

bool belongsToGroup(SectionKind kind)
{
    return kind == SectionKind::GroupHeader || kind == SectionKind::GroupFooter;
}

/// Place of a section from the top of the report down: group footers go from the innermost group out.
std::tuple<int, int> rank(const Section& section)
{
    return {static_cast<int>(section.kind),
            section.kind == SectionKind::GroupFooter ? -section.group : section.group};
}

} // namespace

void ReportReader::readSection(const XmlElement& element, Report& target)
{
    ElementReader reader(element, faults);
    Section section;
    reader.needed("tipo"_L1);
    section.kind = static_cast<SectionKind>(
        reader.choice("tipo"_L1,
                      {"cabecera-informe"_L1, "cabecera-pagina"_L1, "cabecera-grupo"_L1, "detalle"_L1,
                       "pie-grupo"_L1, "pie-informe"_L1, "pie-pagina"_L1, "sin-datos"_L1},
                      3));
    section.height = reader.neededNumber("alto"_L1, 0, kMaxLength);
    const int group = static_cast<int>(reader.number("grupo"_L1, 1, 8, 0));
    if (belongsToGroup(section.kind) != (group > 0))
        reader.failAt("grupo"_L1, u"«grupo» va en las secciones de grupo y sólo en ellas"_s);
    else if (group > static_cast<int>(target.groups.size()))
        reader.failAt("grupo"_L1, u"el grupo %1 no existe"_s.arg(group));
    section.group = group - 1;
    section.together = reader.yes("junto"_L1);
    const int newPage = reader.choice("pagina-nueva"_L1, {"no"_L1, "antes"_L1, "despues"_L1}, 0);
    section.newPageBefore = newPage == 1;
    section.newPageAfter = newPage == 2;
    section.atFoot = reader.yes("al-pie"_L1);
    section.repeat = reader.yes("repetir"_L1);
    section.suppress = reader.formula("suprimir"_L1);
    section.suppressEmpty = reader.yes("suprimir-vacia"_L1);
    for (const Section& known : target.sections)
        section.letter += known.kind == section.kind && known.group == section.group ? 1 : 0;
    for (const XmlElement& child : element.children)
        readItem(child, section);
    reader.finish(false, true);
    target.sections.push_back(std::move(section));
}

void ReportReader::orderSections(Report& target)
{
    std::stable_sort(target.sections.begin(), target.sections.end(),
                     [](const Section& left, const Section& right) { return rank(left) < rank(right); });
}

void ReportReader::readItem(const XmlElement& element, Section& section)
{
    ElementReader reader(element, faults);
    Item item;
    if (!readContent(element, reader, item)) {
        reader.fail(element.place, u"el elemento «%1» no existe en «seccion»"_s.arg(element.name));
        return;
    }
    item.suppress = reader.formula("suprimir"_L1);
    reader.finish(item.kind == Item::Kind::Text || item.kind == Item::Kind::Picture);
    section.items.push_back(std::move(item));
}

void ReportReader::readPlace(ElementReader& reader, Item& item)
{
    item.x = reader.neededNumber("x"_L1, -kMaxLength, kMaxLength);
    item.y = reader.neededNumber("y"_L1, 0, kMaxLength);
    item.width = reader.neededNumber("ancho"_L1, 0, kMaxLength);
}

void ReportReader::readFrame(ElementReader& reader, Item& item)
{
    item.thickness = reader.number("grosor"_L1, 0, 20, item.thickness);
    item.color = reader.color("color"_L1).value_or(item.color);
    item.background = reader.color("fondo"_L1);
    item.rounding = reader.number("redondeo"_L1, 0, 100, 0);
    item.toFoot = reader.yes("hasta-pie"_L1);
}

/// What is particular to each kind; false for an unknown one.
bool ReportReader::readContent(const XmlElement& element, ElementReader& reader, Item& item)
{
    if (element.name == u"linea") {
        item.kind = Item::Kind::Line;
        item.x = reader.neededNumber("x"_L1, -kMaxLength, kMaxLength);
        item.y = reader.neededNumber("y"_L1, 0, kMaxLength);
        item.toX = reader.number("hasta-x"_L1, -kMaxLength, kMaxLength, item.x);
        item.toY = reader.number("hasta-y"_L1, 0, kMaxLength, item.y);
        readFrame(reader, item);
        return true;
    }
    const bool known = element.name == u"texto" || element.name == u"campo" || element.name == u"caja" ||
                       element.name == u"imagen" || element.name == u"subinforme";
    if (!known)
        return false;
    readPlace(reader, item);
    if (element.name == u"subinforme") {
        item.kind = Item::Kind::Subreport;
        item.grows = reader.yes("crece"_L1, true);
        const QString name = reader.needed("nombre"_L1);
        item.subreport = report.subreportIndex(name);
        if (item.subreport < 0 || m_inSubreport)
            reader.failAt("nombre"_L1, u"el subinforme «%1» no existe"_s.arg(name));
        return true;
    }
    item.height = reader.neededNumber("alto"_L1, 0, kMaxLength);
    if (element.name == u"caja") {
        item.kind = Item::Kind::Box;
        readFrame(reader, item);
        return true;
    }
    if (element.name == u"imagen") {
        item.kind = Item::Kind::Picture;
        item.file = reader.text("fichero"_L1);
        item.formula = reader.formula("expr"_L1);
        item.optional = reader.yes("opcional"_L1);
        if (item.file.isEmpty() != item.formula.has_value())
            reader.fail(element.place, u"«imagen» lleva «fichero» o «expr»"_s);
        item.style = styleNumber(reader, "estilo"_L1);
        if (!element.text.trimmed().isEmpty())
            item.pieces = readPieces(element);
        return true;
    }
    item.style = styleNumber(reader, "estilo"_L1);
    item.format = reader.format("formato"_L1);
    item.grows = reader.yes("crece"_L1);
    if (element.name == u"texto") {
        item.kind = Item::Kind::Text;
        item.pieces = readPieces(element);
        return true;
    }
    item.kind = Item::Kind::Field;
    item.formula = reader.neededFormula("expr"_L1);
    item.blankRepeated = !reader.yes("repetidos"_L1, true);
    return true;
}

std::vector<TextPiece> ReportReader::readPieces(const XmlElement& element)
{
    std::vector<TextPiece> pieces;
    QString literal;
    const QString& text = element.text;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] != u'{') {
            literal += text[i];
            continue;
        }
        if (i + 1 < text.size() && text[i + 1] == u'{') {
            literal += u'{';
            ++i;
            continue;
        }
        const qsizetype close = text.indexOf(u'}', i);
        if (close < 0) {
            faults.push_back({element.place, u"falta la llave que cierra el campo"_s});
            break;
        }
        formula::Formula field(text.sliced(i, close - i + 1));
        if (field.fault())
            faults.push_back({element.place, field.fault()->text});
        pieces.push_back({std::exchange(literal, {}), std::nullopt});
        pieces.push_back({{}, std::move(field)});
        i = close;
    }
    pieces.push_back({literal, std::nullopt});
    return pieces;
}

} // namespace platform::print
