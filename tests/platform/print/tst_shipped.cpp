// SPDX-License-Identifier: GPL-3.0-or-later
// The shipped reports over a small company folder: what stands on their pages, and the report tool.
#include "platform/print/output/exports.h"
#include "platform/print/storefixture.h"
#include "platform/system/clock.h"
#include "tools/orvane-informe/reporttool.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QTextStream>

using namespace Qt::StringLiterals;
using namespace platform;
using namespace platform::print;

class ShippedTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void everyShippedReportIsCorrect_data();
    void everyShippedReportIsCorrect();
    void toolListsWhatAReportReads();
    void toolRefusesAWrongCommandLine_data();
    void toolRefusesAWrongCommandLine();
    void toolSaysWhyItCantBeDone_data();
    void toolSaysWhyItCantBeDone();
    void toolSaysThatAFileCantBeRead();
    void toolChecksAgainstTheFirstCompany();
    void toolHelpsOnRequest();
    void maintenanceNoteForEachClientInTheOrderOfTheRoad();
    void maintenanceNoteLeavesEndedConceptsOut();
    void maintenanceNoteHidesPricesOnRequest();
    void zoneSummaryComesOnRequest();
    void maintenanceNoteTakesTheCompanyOfItsFolder();
    void notesForZonesWithoutClientsSayIt();
    void summaryTakesTheMonthOfEveryYear();
    void summaryTellsStatesApart();
    void summaryShowsTextsOnRequest();
    void clientListCountsItsRows();
    void clientsByTypeHaveSubtotals();
    void reportWithEveryElementPrints();
    void toolTellsTheFaultsOfAFile();

private:
    /// Text of the report made by the tool, "|" between pages, runs of blanks as one.
    QString rendered(const QString& report, const QStringList& more = {});
    int runTool(const QStringList& arguments);

    QTemporaryDir m_root;
    QString m_out;
    QString m_err;
};

namespace {

QString reportPath(const QString& name)
{
    return QString::fromUtf8(ORVANE_REPORTS_DIR) + u'/' + name;
}

/// A row with values by column name, the other columns empty.
std::vector<Value> row(const QStringList& columns, const QHash<QString, Value>& values)
{
    std::vector<Value> cells;
    for (QString column : columns) {
        const bool number = column.endsWith(u'#');
        if (number || column.endsWith(u'+'))
            column.chop(1);
        cells.push_back(values.value(column, number ? Value(0.0) : Value(QString())));
    }
    return cells;
}

const QStringList kClients{u"CliCodigo"_s,          u"CliNombre"_s,          u"CliCif"_s,
                           u"CliEMail"_s,           u"CliDireccion"_s,       u"CliCodPostal"_s,
                           u"CliCodPostalLocali"_s, u"CliCodPostalProvin"_s, u"CliTelefonoAdicional"_s,
                           u"ZonaCodigo"_s,         u"ZonaDesc"_s,           u"TipoClienteCodigo"_s,
                           u"TipoClienteDesc"_s,    u"CliNomComercial"_s,    u"CliPersonaCont"_s};
const QStringList kConcepts{u"clientescycarticulo"_s,  u"clientescyccliente"_s, u"clientescycdescrip"_s,
                            u"clientescycfecinic"_s,   u"clientescycfecvcto"_s, u"clientescycfecbaja"_s,
                            u"clientescycunidades#"_s, u"clientescycprecio#"_s, u"clientescynumserie"_s,
                            u"clientescylineas#"_s};
const QStringList kQuestions{u"ORDEN#"_s,  u"CLICONSULTA"_s,  u"TEMA"_s,      u"FEINICIO"_s, u"HOINICIO"_s,
                             u"FEFINAL"_s, u"DESCRIPCION+"_s, u"SOLUCION+"_s, u"TECNICO"_s,  u"ESTADO"_s};

std::vector<Value> client(const QString& code, const QString& name, const QString& postCode,
                          const QString& zone)
{
    return row(kClients, {{u"CliCodigo"_s, code},
                          {u"CliNombre"_s, name},
                          {u"CliCodPostal"_s, postCode},
                          {u"CliCodPostalLocali"_s, u"Almería"_s},
                          {u"ZonaCodigo"_s, zone},
                          {u"TipoClienteCodigo"_s, u"0001"_s},
                          {u"TipoClienteDesc"_s, u"Talleres"_s}});
}

std::vector<Value> concept_(const QString& article, const QString& of, double units, double price,
                            const QString& ended)
{
    return row(kConcepts, {{u"clientescycarticulo"_s, article},
                           {u"clientescyccliente"_s, of},
                           {u"clientescycfecvcto"_s, u"01/01/100"_s},
                           {u"clientescycfecbaja"_s, ended},
                           {u"clientescycunidades"_s, units},
                           {u"clientescycprecio"_s, price}});
}

std::vector<Value> question(double number, const QString& of, const QString& start, const QString& end,
                            const QString& state)
{
    return row(kQuestions, {{u"ORDEN"_s, number},
                            {u"CLICONSULTA"_s, of},
                            {u"FEINICIO"_s, start},
                            {u"FEFINAL"_s, end},
                            {u"ESTADO"_s, state},
                            {u"TEMA"_s, u"Asunto %1"_s.arg(number)},
                            {u"TECNICO"_s, u"Íñigo"_s},
                            {u"DESCRIPCION"_s, u"Texto largo"_s}});
}

} // namespace

void ShippedTest::initTestCase()
{
    setClock([] { return QDateTime(QDate(2024, 3, 5), QTime(10, 0)); });
    QVERIFY(QDir(m_root.path()).mkdir(u"Empresa00012"_s));
    const QString folder = m_root.filePath(u"Empresa00012/"_s);
    givenTable(m_root.filePath(u"Empresas de Quenda.mdb"_s), u"EMP"_s, {u"MENUMEMPRESA"_s, u"MENOMBRE"_s},
               {{u"00001"_s, u"Otra"_s}, {u"00012"_s, u"Climas Peña"_s}});
    givenTable(folder + u"CLIENTES.MDB"_s, u"ClientesTabla"_s, kClients,
               {client(u"0000000001"_s, u"Zurita"_s, u"04900"_s, u"0000000001"_s),
                client(u"0000000002"_s, u"Alba"_s, u"04001"_s, u"0000000001"_s),
                client(u"0000000003"_s, u"Sin conceptos"_s, u"04002"_s, u"0000000001"_s)});
    givenTable(folder + u"CLIENTES.MDB"_s, u"clientescyctabla"_s, kConcepts,
               {concept_(u"CAL01"_s, u"0000000001"_s, 2, 10.5, u""_s),
                concept_(u"CAL02"_s, u"0000000001"_s, 1, 5, u"  /  /"_s),
                concept_(u"BAJA"_s, u"0000000001"_s, 9, 9, u"01/02/2024"_s),
                concept_(u"CAL03"_s, u"0000000002"_s, 1, 1234.5, u""_s)});
    givenTable(folder + u"ASISTENCIAS.MDB"_s, u"CONS"_s, kQuestions,
               {question(1, u"0000000001"_s, u"01/03/2024"_s, u"04/03/2024"_s, u"02 Cerrada"_s),
                question(2, u"0000000001"_s, u"02/03/2024"_s, u"02/03/2024"_s, u"01 Abierta"_s),
                question(3, u"0000000009"_s, u"15/03/2019"_s, u"15/03/2019"_s, u""_s),
                question(4, u"0000000001"_s, u"15/04/2024"_s, u"15/04/2024"_s, u"01 Abierta"_s)});
}

void ShippedTest::cleanupTestCase()
{
    setClock({});
}

int ShippedTest::runTool(const QStringList& arguments)
{
    m_out.clear();
    m_err.clear();
    QTextStream out(&m_out);
    QTextStream err(&m_err);
    return orvane::tools::runReportTool(arguments, out, err);
}

QString ShippedTest::rendered(const QString& report, const QStringList& more)
{
    const QString file = m_root.filePath(u"salida.pdf"_s);
    if (runTool(QStringList{u"render"_s, report, u"--data"_s, m_root.path(), u"--company"_s, u"00012"_s,
                            u"--pdf"_s, file} +
                more) != 0)
        return m_err;
    QProcess text;
    text.start(u"pdftotext"_s, {u"-layout"_s, file, u"-"_s});
    text.waitForFinished();
    return QString::fromUtf8(text.readAllStandardOutput()).replace(u'\f', u'|').simplified();
}

void ShippedTest::everyShippedReportIsCorrect_data()
{
    QTest::addColumn<QString>("name");
    for (const QString& name : QDir(QString::fromUtf8(ORVANE_REPORTS_DIR)).entryList({u"*.rpt"_s}))
        QTest::newRow(qPrintable(name)) << name;
}

void ShippedTest::everyShippedReportIsCorrect()
{
    QFETCH(const QString, name);

    QCOMPARE(runTool({u"check"_s, reportPath(name), u"--data"_s, m_root.path(), u"--company"_s, u"00012"_s}),
             0);
    QVERIFY2(m_err.isEmpty(), qPrintable(m_err));
}

void ShippedTest::toolListsWhatAReportReads()
{
    QCOMPARE(runTool({u"fields"_s, reportPath(u"clientes.rpt"_s)}), 0);

    QVERIFY2(m_out.contains(u"tabla ClientesTabla: CLIENTES.MDB\n"_s), qPrintable(m_out));
    QCOMPARE(m_out.count(u"columna ClientesTabla.CliCodigo\n"_s), 1);
}

void ShippedTest::toolRefusesAWrongCommandLine_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("fault");
    const QString root = m_root.path();
    const auto row = [](const char* name, const QString& arguments, const QString& fault) {
        QTest::newRow(name) << arguments.split(u' ', Qt::SkipEmptyParts) << fault;
    };
    row("nothing", u""_s, u"falta la orden: check, render o fields"_s);
    row("unknown command", u"print a.rpt"_s, u"orden desconocida «print»: check, render o fields"_s);
    row("no file", u"check"_s, u"falta el fichero del informe"_s);
    row("an option for the file", u"check --data ."_s, u"falta el fichero del informe"_s);
    row("unknown option", u"check a.rpt --all x"_s, u"opción desconocida «--all»"_s);
    row("one argument too many", u"check a.rpt b.rpt"_s, u"sobra el argumento «b.rpt»"_s);
    row("option without value", u"check a.rpt --data"_s, u"falta el valor de --data"_s);
    row("company without data", u"check a.rpt --company 12"_s, u"--company sin --data"_s);
    row("selection for check", u"check a.rpt --where True"_s,
        u"--where, --formula, --pdf y --csv son de render"_s);
    row("data for fields", u"fields a.rpt --data ."_s, u"fields no lleva --data"_s);
    row("render without data", u"render a.rpt --pdf b"_s, u"falta --data"_s);
    row("render without company", u"render a.rpt --data . --pdf b"_s, u"falta --company"_s);
    row("render without output", u"render a.rpt --data . --company 1"_s,
        u"hace falta una salida: --pdf o --csv"_s);
    row("render to both", u"render a.rpt --data . --company 1 --pdf b --csv c"_s,
        u"hace falta una salida: --pdf o --csv"_s);
    row("formula without text", u"render a.rpt --formula F"_s, u"--formula quiere NOMBRE=TEXTO, no «F»"_s);
    row("no such data root", u"check a.rpt --data /no/hay"_s, u"no existe la carpeta «/no/hay»"_s);
    row("a data root without companies", u"check a.rpt --data %1/Empresa00012"_s.arg(root),
        u"«%1/Empresa00012» no tiene ninguna carpeta de empresa"_s.arg(root));
    row("no such company", u"check a.rpt --data %1 --company 9"_s.arg(root),
        u"«%1» no tiene la empresa 00009"_s.arg(root));
}

void ShippedTest::toolRefusesAWrongCommandLine()
{
    QFETCH(const QStringList, arguments);
    QFETCH(const QString, fault);

    QCOMPARE(runTool(arguments), 2);
    QCOMPARE(m_err, u"orvane-informe: %1 (véase --help)\n"_s.arg(fault));
    QVERIFY(m_out.isEmpty());
}

void ShippedTest::toolSaysWhyItCantBeDone_data()
{
    QTest::addColumn<QStringList>("more");
    QTest::addColumn<QString>("fault");
    const auto row = [](const char* name, const QStringList& more, const QString& fault) {
        QTest::newRow(name) << more << fault;
    };
    row("bad selection", {u"--where"_s, u"{ClientesTabla.CliCodigo} in '1' to"_s},
        u"clientes.rpt: selección, 1:36: se esperaba un valor"_s);
    row("selection by an unknown column", {u"--where"_s, u"{ClientesTabla.Nada} = ''"_s},
        u"clientes.rpt: selección, 1:1: la tabla «ClientesTabla» no tiene la columna «Nada»"_s);
    row("unknown formula", {u"--formula"_s, u"Nada=1"_s},
        u"orvane-informe: el informe no tiene la fórmula «Nada»"_s);
    row("output that can't be written", {u"--pdf"_s, u"/no/hay/x.pdf"_s},
        u"orvane-informe: no se puede escribir «/no/hay/x.pdf»"_s);
}

void ShippedTest::toolSaysWhyItCantBeDone()
{
    QFETCH(const QStringList, more);
    QFETCH(const QString, fault);

    const QStringList arguments{
        u"render"_s, reportPath(u"clientes.rpt"_s), u"--data"_s, m_root.path(), u"--company"_s, u"12"_s,
        u"--pdf"_s,  m_root.filePath(u"x.pdf"_s)};
    QCOMPARE(runTool(arguments + more), 1);
    QCOMPARE(m_err, fault + u'\n');
    QVERIFY(m_out.isEmpty());
}

void ShippedTest::toolSaysThatAFileCantBeRead()
{
    QCOMPARE(runTool({u"check"_s, u"/no/hay.rpt"_s}), 1);
    QCOMPARE(m_err, u"orvane-informe: no se puede leer «/no/hay.rpt»\n"_s);
}

void ShippedTest::toolChecksAgainstTheFirstCompany()
{
    QCOMPARE(runTool({u"check"_s, reportPath(u"clientes.rpt"_s), u"--data"_s, m_root.path()}), 0);

    QVERIFY2(m_out.startsWith(u"tabla ClientesTabla: %1/Empresa00012/CLIENTES.MDB\n"_s.arg(m_root.path())),
             qPrintable(m_out));
    QVERIFY(m_out.contains(u"\ncolumna ClientesTabla.CliNombre\n"_s));
    QVERIFY(m_out.endsWith(u"\nclientes.rpt: correcto\n"_s));
}

void ShippedTest::toolHelpsOnRequest()
{
    QCOMPARE(runTool({u"render"_s, u"--help"_s}), 0);
    QVERIFY(m_out.contains(u"--where FÓRMULA"_s));
    QCOMPARE(runTool({u"--version"_s}), 0);
    QVERIFY(m_out.startsWith(u"orvane-informe 3."_s));
}

void ShippedTest::maintenanceNoteForEachClientInTheOrderOfTheRoad()
{
    const QString text = rendered(reportPath(u"conservacion.rpt"_s));
    QCOMPARE(text.count(u'|'), 2);
    QVERIFY(text.indexOf(u"Alba"_s) < text.indexOf(u"Zurita"_s));
    QVERIFY(!text.contains(u"Sin conceptos"_s));
    QVERIFY(text.contains(u"ALBARÁN DE MANTENIMIENTO"_s));
    QVERIFY(text.contains(u"0000000002-240305"_s));
    QVERIFY(text.contains(u"Hoja 1 de 1"_s));
    QVERIFY(text.contains(u"Este documento no es una factura."_s));
    QVERIFY(!text.contains(u"01/01/100"_s));
}

void ShippedTest::maintenanceNoteLeavesEndedConceptsOut()
{
    const QString text = rendered(reportPath(u"conservacion.rpt"_s));
    QVERIFY(!text.contains(u"BAJA"_s));
    QVERIFY(text.contains(u"Conceptos: 2"_s));
    QVERIFY(text.contains(u"Importe total (sin IVA) 26,00"_s));
    QVERIFY(text.contains(u"1.234,50"_s));
}

void ShippedTest::maintenanceNoteHidesPricesOnRequest()
{
    const QString text = rendered(reportPath(u"conservacion.rpt"_s), {u"--formula"_s, u"PRECIOS=\"NO\""_s});
    QVERIFY(!text.contains(u"Importe"_s));
    QVERIFY(!text.contains(u"26,00"_s));
}

void ShippedTest::zoneSummaryComesOnRequest()
{
    const QString report = reportPath(u"conservacion.rpt"_s);
    QVERIFY(!rendered(report).contains(u"Resumen de la zona"_s));
    const QString text = rendered(report, {u"--formula"_s, u"RESUMENZONA=\"SI\""_s});
    QVERIFY2(text.contains(u"Albaranes 2 Conceptos 3 Importe (sin IVA) 1.260,50"_s), qPrintable(text));
}

void ShippedTest::maintenanceNoteTakesTheCompanyOfItsFolder()
{
    QVERIFY(rendered(reportPath(u"conservacion.rpt"_s)).contains(u"Climas Peña"_s));
}

void ShippedTest::notesForZonesWithoutClientsSayIt()
{
    QVERIFY(rendered(reportPath(u"conservacion.rpt"_s),
                     {u"--where"_s, u"{ClientesTabla.ZonaCodigo} in '5' to '6'"_s})
                .contains(u"No hay clientes con conceptos en vigor en las zonas elegidas."_s));
}

void ShippedTest::summaryTakesTheMonthOfEveryYear()
{
    const QString text =
        rendered(reportPath(u"consultatec.rpt"_s), {u"--where"_s, u"Mid ({CONS.FEINICIO},4,2) = \"03\""_s});
    QCOMPARE(text.count(u'|'), 2);
    QVERIFY(text.indexOf(u"Marzo de 2024"_s) < text.indexOf(u"Marzo de 2019"_s));
    QVERIFY(text.contains(u"(cliente sin ficha)"_s));
    QVERIFY(text.contains(u"Consultas de marzo por años"_s));
    QVERIFY(text.contains(u"2024 2 1 2019 1 0"_s));
    QVERIFY(text.contains(u"Impreso el 05/03/2024"_s));
    QVERIFY(text.contains(u"Página 2 de 2"_s));
    QVERIFY(!text.contains(u"Asunto 4"_s));
}

void ShippedTest::summaryTellsStatesApart()
{
    const QString text =
        rendered(reportPath(u"consultatec.rpt"_s), {u"--where"_s, u"{@AnyMes} = \"202403\""_s});
    QVERIFY2(text.contains(u"2 1 1 0 1 3,0"_s), qPrintable(text));
    QVERIFY2(text.contains(u"Íñigo 1 1 0 2 100,0"_s), qPrintable(text));
    QVERIFY2(text.contains(u"Consultas: 2 (abiertas: 1)"_s), qPrintable(text));
    QVERIFY(!text.contains(u"por años"_s));
}

void ShippedTest::summaryShowsTextsOnRequest()
{
    QVERIFY(!rendered(reportPath(u"consultatec.rpt"_s)).contains(u"Texto largo"_s));
    QVERIFY(rendered(reportPath(u"consultatec.rpt"_s), {u"--formula"_s, u"TEXTOS=\"SI\""_s})
                .contains(u"Texto largo"_s));
}

void ShippedTest::clientListCountsItsRows()
{
    QVERIFY(rendered(reportPath(u"clientes.rpt"_s)).contains(u"Total de clientes: 3"_s));
}

void ShippedTest::clientsByTypeHaveSubtotals()
{
    const QString text = rendered(reportPath(u"clientestipo.rpt"_s));
    QVERIFY(text.contains(u"0001 Talleres"_s));
    QVERIFY(text.contains(u"Clientes del tipo: 3"_s));
}

void ShippedTest::reportWithEveryElementPrints()
{
    const QString text = rendered(QFINDTESTDATA("reports/todo.rpt"));
    QVERIFY2(text.contains(u"Inicio {"_s), qPrintable(text));
    QVERIFY2(text.contains(u"Cliente Zurita"_s), qPrintable(text));
    QVERIFY2(text.contains(u"uno 3"_s) && text.contains(u"dos 4"_s), qPrintable(text));
    QVERIFY2(text.contains(u"Fin de 0000000009"_s), qPrintable(text));
}

void ShippedTest::toolTellsTheFaultsOfAFile()
{
    QFile file(m_root.filePath(u"malo.rpt"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("<informe version=\"1\" nombre=\"x\">\n  <tabla n=\"0\"/>\n</informe>");
    file.close();
    QCOMPARE(runTool({u"check"_s, file.fileName()}), 1);
    QVERIFY(m_err.contains(u"malo.rpt:2:3: falta el atributo «alias» en «tabla»\n"_s));
    QVERIFY(m_err.contains(u"malo.rpt:2:3: falta el atributo «fichero» en «tabla»\n"_s));
}

QTEST_MAIN(ShippedTest)
#include "tst_shipped.moc"
