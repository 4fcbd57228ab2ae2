// SPDX-License-Identifier: GPL-3.0-or-later
// Report files: what a good one gives, and what is said about a bad one.
#include "platform/print/definition/read_xml.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace platform::print;

class DefinitionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void goodFileGivesItsModel();
    void styleInheritsFromItsBase();
    void sectionsStandFromTheTopDown();
    void bracesInATextAreFields();
    void subreportHasItsOwnTables();
    void badFileNamesItsFault_data();
    void badFileNamesItsFault();
    void everyFaultIsFound();
    void faultReadsWithFileLineAndColumn();
    void valuePrintsByItsFormat_data();
    void valuePrintsByItsFormat();
};

namespace {

QByteArray report(const QByteArray& inside, const QByteArray& attributes = "version=\"1\" nombre=\"Prueba\"")
{
    return "<informe " + attributes + ">\n<tabla n=\"0\" alias=\"T\" fichero=\"T.MDB\"/>\n" + inside +
           "\n</informe>";
}

} // namespace

void DefinitionTest::goodFileGivesItsModel()
{
    const ReadReport read =
        readReport(report(R"(<pagina papel="A4" orientacion="horizontal" margenes="10 11 12 13"/>
<tabla n="1" alias="Z" fichero="@0/ZONAS.MDB" union="opcional" max-filas="1">
  <enlace campo="{Z.COD}" con="{T.ZONA}"/>
</tabla>
<filtro><![CDATA[{T.A} <> ""]]></filtro>
<formula nombre="F">1 + 1</formula>
<grupo n="1" campo="{T.ZONA}" orden="desc" junto="todo" reinicia-hoja="si"/>
<orden campo="{T.A}" sentido="desc"/>
<seccion tipo="detalle" alto="5"><campo x="1" y="2" ancho="30" alto="4" expr="{T.A}" crece="si" repetidos="no"/></seccion>)"));

    QVERIFY2(read.report, read.faults.empty() ? "" : qPrintable(read.faults.front().text));
    QCOMPARE(read.report->page.width, 297.0);
    QCOMPARE(read.report->page.left, 13.0);
    QCOMPARE(read.report->tables[1].maxRows, 1);
    QVERIFY(read.report->tables[1].optional);
    QCOMPARE(read.report->filter.text(), u"{T.A} <> \"\""_s);
    QVERIFY(read.report->groups[0].descending);
    QVERIFY(read.report->groups[0].restartPages);
    QCOMPARE(read.report->groups[0].together, Together::All);
    const Item& item = read.report->sections[0].items[0];
    QVERIFY(item.grows && item.blankRepeated);
    QCOMPARE(item.x, 1.0);
}

void DefinitionTest::styleInheritsFromItsBase()
{
    const ReadReport read =
        readReport(report(R"x(<estilo id="a" letra="DejaVu Sans, Arial" cuerpo="8" negrita="si"/>
<estilo id="b" base="a" cuerpo="10" alinear="derecha" formato="numero(2)"/>)x"));

    const Style& style = read.report->styles[2];
    QCOMPARE(style.families, (QStringList{u"DejaVu Sans"_s, u"Arial"_s}));
    QCOMPARE(style.points, 10.0);
    QVERIFY(style.bold);
    QCOMPARE(style.align, Align::Right);
}

void DefinitionTest::sectionsStandFromTheTopDown()
{
    const ReadReport read = readReport(report(R"(<grupo n="1" campo="{T.A}"/><grupo n="2" campo="{T.B}"/>
<seccion tipo="pie-pagina" alto="1"/><seccion tipo="pie-grupo" grupo="1" alto="1"/><seccion tipo="detalle" alto="2"/>
<seccion tipo="detalle" alto="3"/><seccion tipo="pie-grupo" grupo="2" alto="1"/>
<seccion tipo="cabecera-grupo" grupo="2" alto="1"/><seccion tipo="cabecera-grupo" grupo="1" alto="1"/>)"));

    QStringList order;
    for (const Section& section : read.report->sections)
        order += u"%1-%2-%3"_s.arg(static_cast<int>(section.kind)).arg(section.group).arg(section.letter);
    QCOMPARE(order.join(u' '), u"2-0-0 2-1-0 3--1-0 3--1-1 4-1-0 4-0-0 6--1-0"_s);
}

void DefinitionTest::bracesInATextAreFields()
{
    const ReadReport read = readReport(report(
        R"(<seccion tipo="detalle" alto="5"><texto x="0" y="0" ancho="9" alto="4">a{{b {T.A}!</texto></seccion>)"));

    const std::vector<TextPiece>& pieces = read.report->sections[0].items[0].pieces;
    QCOMPARE(pieces.size(), 3u);
    QCOMPARE(pieces[0].text, u"a{b "_s);
    QCOMPARE(pieces[1].field->text(), u"{T.A}"_s);
    QCOMPARE(pieces[2].text, u"!"_s);
}

void DefinitionTest::subreportHasItsOwnTables()
{
    const ReadReport read = readReport(report(
        R"(<seccion tipo="detalle" alto="5"><subinforme nombre="S" x="0" y="0" ancho="90"/></seccion>
<definicion nombre="S"><tabla n="0" alias="U" fichero="U.MDB"/><vinculo campo="{U.A}" con="{T.A}"/></definicion>)"));

    QVERIFY2(read.report, read.faults.empty() ? "" : qPrintable(read.faults.front().text));
    QCOMPARE(read.report->sections[0].items[0].subreport, 0);
    QCOMPARE(read.report->subreports[0].tables[0].alias, u"U"_s);
    QCOMPARE(read.report->subreports[0].links.size(), 1u);
}

void DefinitionTest::badFileNamesItsFault_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("fault");
    const auto row = [](const char* name, const QByteArray& file, const QString& fault) {
        QTest::newRow(name) << file << fault;
    };
    row("unknown attribute",
        report("<seccion tipo=\"detalle\" alto=\"5\">\n  <campo x=\"0\" y=\"0\" anchoo=\"2\" "
               "ancho=\"2\" alto=\"4\" expr=\"1\"/></seccion>"),
        u"4:22: el atributo «anchoo» no existe en «campo»"_s);
    row("missing attribute", report("<seccion tipo=\"detalle\"/>"),
        u"3:1: falta el atributo «alto» en «seccion»"_s);
    row("unknown element", report("<secion/>"), u"3:1: el elemento «secion» no existe en «informe»"_s);
    row("bad formula", report("<filtro>1 +</filtro>"), u"3:1: fórmula, 1:4: se esperaba un valor"_s);
    row("number out of range", report("<estilo id=\"a\" cuerpo=\"900\"/>"),
        u"3:16: «cuerpo» ha de ser un número entre 1 y 200"_s);
    row("unknown style",
        report("<seccion tipo=\"detalle\" alto=\"5\"><campo x=\"0\" y=\"0\" ancho=\"2\" alto=\"4\" "
               "expr=\"1\" estilo=\"no\"/></seccion>"),
        u"3:81: el estilo «no» no existe"_s);
    row("unknown group", report("<seccion tipo=\"pie-grupo\" grupo=\"1\" alto=\"5\"/>"),
        u"3:27: el grupo 1 no existe"_s);
    row("unknown word", report("<seccion tipo=\"otra\" alto=\"5\"/>"),
        u"3:10: «tipo» ha de ser «cabecera-informe», «cabecera-pagina», «cabecera-grupo», «detalle», "
        u"«pie-grupo», "
        "«pie-informe», «pie-pagina», «sin-datos»"_s);
    row("document type", "<!DOCTYPE informe><informe/>", u"1:19: no se admite un tipo de documento (DTD)"_s);
    row("another root", "<report/>", u"1:1: se esperaba el elemento «informe» y hay «report»"_s);
    row("table without link", report("<tabla n=\"1\" alias=\"Z\" fichero=\"Z.MDB\"/>"),
        u"3:1: falta el enlace de la tabla «Z»"_s);
    row("table numbers with a gap",
        report("<tabla n=\"2\" alias=\"Z\" fichero=\"Z.MDB\"><enlace campo=\"{Z.A}\" "
               "con=\"{T.A}\"/></tabla>"),
        u"3:8: las tablas se numeran de 0 en adelante, sin huecos y por orden"_s);
    row("unknown subreport",
        report("<seccion tipo=\"detalle\" alto=\"5\"><subinforme nombre=\"S\" x=\"0\" y=\"0\" "
               "ancho=\"9\"/></seccion>"),
        u"3:46: el subinforme «S» no existe"_s);
    row("bad format", report("<estilo id=\"a\" formato=\"numero(x)\"/>"),
        u"3:16: el formato «numero(x)» no existe"_s);
    row("a version of another time", report("", "version=\"2\" nombre=\"P\""),
        u"1:10: «version» ha de ser un número entre 1 y 1"_s);
    row("lines that end with a lone CR", report("<nada/>").replace('\n', '\r'),
        u"3:1: el elemento «nada» no existe en «informe»"_s);
    row("lines that end with CR LF", report("<nada/>").replace("\n", "\r\n"),
        u"3:1: el elemento «nada» no existe en «informe»"_s);
    row("elements that cross", report("<filtro><b></filtro></b>"),
        u"3:21: el fichero no es XML bien formado"_s);
    row("half a file", report("").chopped(9), u"4:2: el fichero acaba antes de tiempo"_s);
    row("nothing", "", u"1:1: el fichero acaba antes de tiempo"_s);
    row("not UTF-8", "<informe nombre=\"\xf1\"/>", u"1:1: el fichero no es UTF-8"_s);
}

void DefinitionTest::badFileNamesItsFault()
{
    QFETCH(const QByteArray, file);
    QFETCH(const QString, fault);

    const ReadReport read = readReport(file);

    QVERIFY(!read.report);
    QCOMPARE(describe(u"x"_s, read.faults.front()), u"x:"_s + fault);
}

void DefinitionTest::everyFaultIsFound()
{
    const ReadReport read = readReport(report("<filtro>1 +</filtro>\n<estilo cuerpo=\"0\"/>\n<nada/>"));

    QCOMPARE(read.faults.size(), 4u);
    QCOMPARE(read.faults[0].place.line, 3);
    QCOMPARE(read.faults[3].place.line, 5);
}

void DefinitionTest::faultReadsWithFileLineAndColumn()
{
    QCOMPARE(describe(u"consultatec.rpt"_s, {{23, 17}, u"el atributo «anchoo» no existe en «campo»"_s}),
             u"consultatec.rpt:23:17: el atributo «anchoo» no existe en «campo»"_s);
}

void DefinitionTest::valuePrintsByItsFormat_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<formula::Value>("value");
    QTest::addColumn<QString>("printed");
    const auto row = [](const char* name, const QString& format, const formula::Value& value,
                        const QString& printed) { QTest::newRow(name) << format << value << printed; };
    row("two decimals", u"numero(2)"_s, 1234.5, u"1.234,50"_s);
    row("zero left blank", u"numero(2,cero-blanco)"_s, 0.0, u""_s);
    row("a text that holds a date", u"fecha(dd-MM-yy)"_s, u"05/03/2024"_s, u"05-03-24"_s);
    row("a text that holds no date", u"fecha(dd-MM-yy)"_s, u"  /  /"_s, u"  /  /"_s);
    row("yes or no", u"sino"_s, true, u"Sí"_s);
    row("a whole number by default", u""_s, 1234.0, u"1.234"_s);
    row("another number by default", u""_s, 0.5, u"0,50"_s);
    row("no value", u"numero(2)"_s, formula::Value(), u""_s);
}

void DefinitionTest::valuePrintsByItsFormat()
{
    QFETCH(const QString, format);
    QFETCH(const formula::Value, value);
    QFETCH(const QString, printed);

    QCOMPARE(formatted(parseFormat(format).value_or(Format{}), value), printed);
}

QTEST_GUILESS_MAIN(DefinitionTest)
#include "tst_definition.moc"
