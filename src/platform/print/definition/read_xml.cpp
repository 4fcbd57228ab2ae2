// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/definition/read_xml.h"

#include "platform/print/definition/reportreader.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace platform::print {
namespace {

constexpr double kMaxPaper = 2'000;

} // namespace

void ReportReader::readMain(const XmlElement& root)
{
    ElementReader reader(root, faults);
    if (root.name != u"informe") {
        reader.fail(root.place, u"se esperaba el elemento «informe» y hay «%1»"_s.arg(root.name));
        return;
    }
    reader.neededNumber("version"_L1, 1, 1);
    report.name = reader.needed("nombre"_L1);
    readHead(reader, report);
    report.styles.push_back(Style{});
    for (const XmlElement& child : root.children) {
        if (child.name == u"pagina")
            readPage(child);
        else if (child.name == u"estilo")
            readStyle(child);
        else if (child.name == u"definicion")
            nameSubreport(child);
    }
    readBody(root, report, {u"pagina"_s, u"estilo"_s, u"definicion"_s});
    m_inSubreport = true;
    for (const XmlElement& child : root.children) {
        if (child.name == u"definicion")
            readSubreport(child);
    }
    reader.finish(false, true);
}

void ReportReader::readHead(ElementReader& reader, Report& target)
{
    target.caseSensitive = reader.choice("mayusculas"_L1, {"iguales"_L1, "distintas"_L1}, 0) == 1;
    target.nullsAsEmpty = reader.choice("nulos"_L1, {"parar"_L1, "vacio"_L1}, 0) == 1;
}

void ReportReader::readPage(const XmlElement& element)
{
    ElementReader reader(element, faults);
    PageSetup& page = report.page;
    const QString paper = reader.text("papel"_L1, u"A4"_s);
    const QStringList sides = paper.split(u'x');
    if (paper == u"A4")
        page.width = 210, page.height = 297;
    else if (paper == u"A5")
        page.width = 148, page.height = 210;
    else if (paper == u"Carta")
        page.width = 215.9, page.height = 279.4;
    else if (sides.size() == 2)
        page.width = sides[0].trimmed().toDouble(), page.height = sides[1].trimmed().toDouble();
    else
        page.width = 0;
    if (page.width < 20 || page.height < 20 || page.width > kMaxPaper || page.height > kMaxPaper) {
        reader.failAt("papel"_L1, u"«papel» ha de ser A4, A5, Carta o «ancho x alto» en milímetros"_s);
        page = PageSetup{};
    }
    if (reader.choice("orientacion"_L1, {"vertical"_L1, "horizontal"_L1}, 0) == 1)
        std::swap(page.width, page.height);
    const QString margins = reader.text("margenes"_L1, u"12 12 12 12"_s);
    const QStringList parts = margins.split(u' ', Qt::SkipEmptyParts);
    double* const targets[] = {&page.top, &page.right, &page.bottom, &page.left};
    bool good = parts.size() == 4;
    for (qsizetype i = 0; good && i < 4; ++i) {
        *targets[i] = parts[i].toDouble(&good);
        good = good && *targets[i] >= 0 && *targets[i] <= kMaxPaper;
    }
    if (!good)
        reader.failAt("margenes"_L1, u"«margenes» son cuatro números: arriba, derecha, abajo, izquierda"_s);
    reader.finish();
}

void ReportReader::readStyle(const XmlElement& element)
{
    ElementReader reader(element, faults);
    const QString id = reader.needed("id"_L1);
    Style style;
    if (reader.has("base"_L1)) {
        const int base = styleNumber(reader, "base"_L1);
        style = report.styles[static_cast<std::size_t>(base)];
    }
    const auto sameId = [&id](const Style& known) { return known.id == id; };
    if (!id.isEmpty() && std::any_of(report.styles.begin(), report.styles.end(), sameId))
        reader.failAt("id"_L1, u"el estilo «%1» ya existe"_s.arg(id));
    style.id = id;
    if (reader.has("letra"_L1)) {
        style.families.clear();
        for (const QString& family : reader.text("letra"_L1).split(u',', Qt::SkipEmptyParts))
            style.families += family.trimmed();
        if (style.families.isEmpty())
            reader.failAt("letra"_L1, u"«letra» ha de nombrar un tipo de letra"_s);
    }
    style.points = reader.number("cuerpo"_L1, 1, 200, style.points);
    style.bold = reader.yes("negrita"_L1, style.bold);
    style.italic = reader.yes("cursiva"_L1, style.italic);
    style.underline = reader.yes("subrayado"_L1, style.underline);
    style.color = reader.color("color"_L1).value_or(style.color);
    if (const std::optional<quint32> background = reader.color("fondo"_L1))
        style.background = background;
    style.align = static_cast<Align>(reader.choice("alinear"_L1, {"izquierda"_L1, "centro"_L1, "derecha"_L1},
                                                   static_cast<int>(style.align)));
    style.vertical = static_cast<VerticalAlign>(reader.choice(
        "vertical"_L1, {"arriba"_L1, "centro"_L1, "abajo"_L1}, static_cast<int>(style.vertical)));
    if (const std::optional<Format> format = reader.format("formato"_L1))
        style.format = format;
    reader.finish();
    report.styles.push_back(style);
}

int ReportReader::styleNumber(ElementReader& reader, QLatin1StringView attribute)
{
    const QString id = reader.text(attribute);
    if (id.isEmpty())
        return 0;
    for (std::size_t i = 1; i < report.styles.size(); ++i) {
        if (report.styles[i].id == id)
            return static_cast<int>(i);
    }
    reader.failAt(attribute, u"el estilo «%1» no existe"_s.arg(id));
    return 0;
}

void ReportReader::nameSubreport(const XmlElement& element)
{
    ElementReader reader(element, faults);
    Report made;
    made.name = reader.needed("nombre"_L1);
    if (report.subreportIndex(made.name) >= 0)
        reader.failAt("nombre"_L1, u"la definición «%1» ya existe"_s.arg(made.name));
    report.subreports.push_back(std::move(made));
}

void ReportReader::readSubreport(const XmlElement& element)
{
    Report& target = report.subreports[m_nextSubreport++];
    ElementReader reader(element, faults);
    reader.needed("nombre"_L1);
    target.caseSensitive = report.caseSensitive;
    target.nullsAsEmpty = report.nullsAsEmpty;
    for (const XmlElement& child : element.children) {
        if (child.name != u"vinculo")
            continue;
        ElementReader link(child, faults);
        target.links.push_back({link.neededFormula("campo"_L1), link.neededFormula("con"_L1)});
        link.finish();
    }
    readBody(element, target, {u"vinculo"_s});
    reader.finish(false, true);
}

void ReportReader::readBody(const XmlElement& element, Report& target, const QStringList& elsewhere)
{
    for (const XmlElement& child : element.children) {
        if (child.name == u"tabla")
            readTable(child, target);
        else if (child.name == u"filtro")
            target.filter = readText(child);
        else if (child.name == u"seleccion")
            target.selection = readText(child);
        else if (child.name == u"seleccion-grupo")
            target.groupSelection = readText(child);
        else if (child.name == u"formula")
            readFormula(child, target);
        else if (child.name == u"grupo")
            readGroup(child, target);
        else if (child.name == u"orden")
            readSorting(child, target);
        else if (child.name != u"seccion" && !elsewhere.contains(child.name))
            faults.push_back(
                {child.place, u"el elemento «%1» no existe en «%2»"_s.arg(child.name, element.name)});
    }
    // Sections name groups and subreports, which may be written after them.
    for (const XmlElement& child : element.children) {
        if (child.name == u"seccion")
            readSection(child, target);
    }
    if (target.tables.empty())
        faults.push_back({element.place, u"el informe no tiene ninguna tabla"_s});
    orderSections(target);
}

formula::Formula ReportReader::readText(const XmlElement& element)
{
    ElementReader reader(element, faults);
    reader.finish(true);
    return reader.content();
}

void ReportReader::readTable(const XmlElement& element, Report& target)
{
    ElementReader reader(element, faults);
    Table table;
    const auto number = static_cast<std::size_t>(reader.neededNumber("n"_L1, 0, 7));
    if (number != target.tables.size())
        reader.failAt("n"_L1, u"las tablas se numeran de 0 en adelante, sin huecos y por orden"_s);
    table.alias = reader.needed("alias"_L1);
    table.file = reader.needed("fichero"_L1);
    table.table = reader.text("nombre"_L1, table.alias);
    table.optional = reader.choice("union"_L1, {"obligatoria"_L1, "opcional"_L1}, 0) == 1;
    table.maxRows = static_cast<int>(reader.number("max-filas"_L1, 1, 1'000'000, 0));
    if (table.file.startsWith(u'@')) {
        bool read = false;
        const auto other = table.file.mid(1).section(u'/', 0, 0).toUInt(&read);
        const std::size_t earlier = m_inSubreport ? report.tables.size() : target.tables.size();
        if (!read || other >= earlier)
            reader.failAt("fichero"_L1, u"«%1» ha de nombrar una tabla anterior"_s.arg(table.file));
    }
    for (const Table& known : target.tables) {
        if (known.alias.compare(table.alias, Qt::CaseInsensitive) == 0)
            reader.failAt("alias"_L1, u"la tabla «%1» ya existe"_s.arg(table.alias));
    }
    for (const XmlElement& child : element.children)
        readJoin(child, table);
    const bool joined = !table.links.empty() || table.condition.has_value();
    if (joined == target.tables.empty())
        reader.fail(element.place, joined ? u"la tabla 0 no lleva enlaces"_s
                                          : u"falta el enlace de la tabla «%1»"_s.arg(table.alias));
    reader.finish(false, true);
    target.tables.push_back(std::move(table));
}

void ReportReader::readJoin(const XmlElement& element, Table& table)
{
    ElementReader reader(element, faults);
    if (element.name == u"enlace") {
        table.links.push_back({reader.neededFormula("campo"_L1), reader.neededFormula("con"_L1)});
        reader.finish();
    } else if (element.name == u"condicion" && !table.condition) {
        table.condition = reader.content();
        reader.finish(true);
    } else {
        reader.fail(element.place, u"el elemento «%1» no existe en «tabla»"_s.arg(element.name));
    }
    if (table.condition && !table.links.empty())
        reader.fail(element.place, u"una tabla lleva enlaces o una condición, no ambas cosas"_s);
}

void ReportReader::readFormula(const XmlElement& element, Report& target)
{
    ElementReader reader(element, faults);
    const QString name = reader.needed("nombre"_L1);
    if (target.formulaField(name) != nullptr)
        reader.failAt("nombre"_L1, u"la fórmula «%1» ya existe"_s.arg(name));
    reader.finish(true);
    target.formulas.push_back({name, reader.content()});
}

void ReportReader::readGroup(const XmlElement& element, Report& target)
{
    ElementReader reader(element, faults);
    Group group;
    const auto number = static_cast<std::size_t>(reader.neededNumber("n"_L1, 1, 8));
    if (number != target.groups.size() + 1)
        reader.failAt("n"_L1, u"los grupos se numeran de 1 en adelante, sin huecos y por orden"_s);
    group.field = reader.neededFormula("campo"_L1);
    group.key = reader.formula("clave"_L1);
    group.descending = reader.choice("orden"_L1, {"asc"_L1, "desc"_L1}, 0) == 1;
    group.together =
        static_cast<Together>(reader.choice("junto"_L1, {"no"_L1, "con-detalle"_L1, "todo"_L1}, 1));
    group.newPage = reader.choice("pagina-nueva"_L1, {"no"_L1, "antes"_L1}, 0) == 1;
    group.restartPages = reader.yes("reinicia-hoja"_L1);
    reader.finish();
    target.groups.push_back(std::move(group));
}

void ReportReader::readSorting(const XmlElement& element, Report& target)
{
    ElementReader reader(element, faults);
    formula::Formula field = reader.neededFormula("campo"_L1);
    const bool descending = reader.choice("sentido"_L1, {"asc"_L1, "desc"_L1}, 0) == 1;
    reader.finish();
    target.sorting.push_back({std::move(field), descending});
}

ReadReport readReport(const QByteArray& bytes)
{
    ReadReport result;
    const std::optional<XmlElement> root = readXmlTree(bytes, result.faults);
    if (!root)
        return result;
    ReportReader reader{result.faults};
    reader.readMain(*root);
    std::stable_sort(result.faults.begin(), result.faults.end(),
                     [](const DefinitionFault& left, const DefinitionFault& right) {
                         return std::pair(left.place.line, left.place.column) <
                                std::pair(right.place.line, right.place.column);
                     });
    if (result.faults.empty())
        result.report = std::move(reader.report);
    return result;
}

QString describe(const QString& fileName, const DefinitionFault& fault)
{
    return u"%1:%2:%3: %4"_s.arg(fileName, QString::number(fault.place.line),
                                 QString::number(fault.place.column), fault.text);
}

} // namespace platform::print
