// SPDX-License-Identifier: GPL-3.0-or-later
// Reports over real stores: joining, selecting, sorting, grouping, totals, and what stops a report.
#include "platform/print/data/execution.h"

#include "platform/print/data/pushdown.h"
#include "platform/print/definition/read_xml.h"
#include "platform/print/problem.h"
#include "platform/print/storefixture.h"
#include "platform/storage/storage.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace platform;
using namespace platform::print;

class ExecutionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void recordsKeepTheOrderOfTheirRows();
    void selectionAndFilterBothApply();
    void rowWithABadValueIsLeftOutAndCounted();
    void neededTableDropsRecordsWithoutAMatch();
    void optionalTableGivesNulls();
    void matchesMultiplyTheRecords();
    void matchesStopAtTheirLimit();
    void conditionJoinsByTheTablesFolder();
    void groupsFollowTheSpanishOrder();
    void nullsFormAGroupOfTheirOwnFirst();
    void keySortsGroupsBeforeTheirField();
    void totalsByGroupAndOverAll();
    void groupSelectionLooksAtTheFirstRecord();
    void totalsComeAfterBothSelections();
    void subreportTakesTheRecordsOfItsLink();
    void pushedSelectionTakesTheSameRecords();
    void onlyWhatComparesOneColumnIsPushed_data();
    void onlyWhatComparesOneColumnIsPushed();
    void storeIsFreeAfterTheRun();
    void storeThatIsBusyStopsTheReport();
    void reportThatCantRunSaysWhy_data();
    void reportThatCantRunSaysWhy();

private:
    QString path(const QString& name) const { return m_folder->filePath(name); }
    /// Reads and runs a report with these elements over table CLI, and ZON where it is named.
    void run(const QString& elements, const QString& formula = {});
    /// The value of formula field "X" for each record in order.
    QStringList values();

    QTemporaryDir m_template; ///< stores that each test gets a copy of
    std::unique_ptr<QTemporaryDir> m_folder;
    std::optional<Report> m_report;
    std::unique_ptr<Execution> m_execution;
    View* m_view = nullptr;
};

void ExecutionTest::init()
{
    m_execution.reset();
    m_folder = std::make_unique<QTemporaryDir>();
    for (const QString& name : {u"CLIENTES.MDB"_s, u"ZONAS.MDB"_s})
        QVERIFY(QFile::copy(m_template.filePath(name), path(name)));
}

void ExecutionTest::initTestCase()
{
    givenTable(m_template.filePath(u"CLIENTES.MDB"_s), u"CLI"_s,
               {u"COD"_s, u"NOMBRE"_s, u"ZONA"_s, u"IMPORTE#"_s},
               {{u"3"_s, u"Zurbano"_s, u"B"_s, 30.0},
                {u"1"_s, u"ñu"_s, u"A"_s, 10.0},
                {u"2"_s, u"Nuria"_s, u"A"_s, 20.0},
                {u"4"_s, u"nz"_s, Null{}, 40.0}});
    givenTable(m_template.filePath(u"ZONAS.MDB"_s), u"ZON"_s, {u"COD"_s, u"TEXTO"_s},
               {{u"A"_s, u"Norte"_s}, {u"A"_s, u"Sur"_s}});
}

void ExecutionTest::run(const QString& elements, const QString& formula)
{
    const QString field = formula.isEmpty() ? u"{CLI.COD}"_s : formula;
    const QString xml =
        u"<informe version=\"1\" nombre=\"P\"><tabla n=\"0\" alias=\"CLI\" fichero=\"CLIENTES.MDB\"/>"
        "%1<formula nombre=\"X\"><![CDATA[%2]]></formula></informe>"_s.arg(elements, field);
    ReadReport read = readReport(xml.toUtf8());
    QVERIFY2(read.report, read.faults.empty() ? "" : qPrintable(read.faults.front().text));
    m_report = std::move(read.report);
    m_execution = std::make_unique<Execution>(*m_report, QDateTime(QDate(2024, 3, 5), QTime(10, 0)));
    const QStringList files{path(u"CLIENTES.MDB"_s), path(u"ZONAS.MDB"_s)};
    std::vector<TablePaths> subreports(m_report->subreports.size(), {path(u"ZONAS.MDB"_s)});
    m_execution->run(files.first(static_cast<qsizetype>(m_report->tables.size())), subreports);
    m_view = m_execution->records().view();
}

QStringList ExecutionTest::values()
{
    QStringList result;
    for (quint32 position = 0; position < m_view->size(); ++position) {
        m_execution->records().setPosition(position);
        const formula::Outcome outcome = m_execution->records().formula(0);
        result += outcome.fault || !formula::hasValue(outcome.value) ? u"-"_s : formatted({}, outcome.value);
    }
    return result;
}

namespace {

const QString kZones = u"<tabla n=\"1\" alias=\"ZON\" fichero=\"@0/ZONAS.MDB\" %1>"
                       "<enlace campo=\"{ZON.COD}\" con=\"{CLI.ZONA}\"/></tabla>"_s;

} // namespace

void ExecutionTest::recordsKeepTheOrderOfTheirRows()
{
    run({});
    QCOMPARE(values(), (QStringList{u"3"_s, u"1"_s, u"2"_s, u"4"_s}));
}

void ExecutionTest::selectionAndFilterBothApply()
{
    run(u"<filtro><![CDATA[{CLI.COD} <> \"1\"]]></filtro><seleccion><![CDATA[{CLI.IMPORTE} < 30]]></seleccion>"_s);
    QCOMPARE(values(), QStringList{u"2"_s});
}

void ExecutionTest::rowWithABadValueIsLeftOutAndCounted()
{
    run(u"<seleccion><![CDATA[1 / ({CLI.IMPORTE} - 10) < 5]]></seleccion>"_s);
    QCOMPARE(values(), (QStringList{u"3"_s, u"2"_s, u"4"_s}));
    QCOMPARE(m_execution->invalidCount(), 1);
}

void ExecutionTest::neededTableDropsRecordsWithoutAMatch()
{
    run(kZones.arg(u"max-filas=\"1\""_s));
    QCOMPARE(values(), (QStringList{u"1"_s, u"2"_s}));
}

void ExecutionTest::optionalTableGivesNulls()
{
    run(kZones.arg(u"union=\"opcional\" max-filas=\"1\""_s),
        u"IIf(IsNull({ZON.TEXTO}), \"sin\", {CLI.COD})"_s);
    QCOMPARE(values(), (QStringList{u"sin"_s, u"1"_s, u"2"_s, u"sin"_s}));
}

void ExecutionTest::matchesMultiplyTheRecords()
{
    run(kZones.arg(QString()), u"{CLI.COD} & {ZON.TEXTO}"_s);
    QCOMPARE(values(), (QStringList{u"1Norte"_s, u"1Sur"_s, u"2Norte"_s, u"2Sur"_s}));
}

void ExecutionTest::matchesStopAtTheirLimit()
{
    run(kZones.arg(u"max-filas=\"1\""_s), u"{CLI.COD} & {ZON.TEXTO}"_s);
    QCOMPARE(values(), (QStringList{u"1Norte"_s, u"2Norte"_s}));
}

void ExecutionTest::conditionJoinsByTheTablesFolder()
{
    run(u"<tabla n=\"1\" alias=\"ZON\" fichero=\"@0/ZONAS.MDB\" max-filas=\"1\">"
        "<condicion>FicheroTabla(0) = \"clientes.mdb\" and {ZON.TEXTO} = \"Sur\"</condicion></tabla>"_s,
        u"{CLI.COD} & {ZON.TEXTO}"_s);
    QCOMPARE(values(), (QStringList{u"3Sur"_s, u"1Sur"_s, u"2Sur"_s, u"4Sur"_s}));
}

void ExecutionTest::groupsFollowTheSpanishOrder()
{
    run(u"<grupo n=\"1\" campo=\"{CLI.NOMBRE}\"/>"_s, u"{CLI.NOMBRE}"_s);
    QCOMPARE(values(), (QStringList{u"Nuria"_s, u"nz"_s, u"ñu"_s, u"Zurbano"_s}));
    QCOMPARE(m_view->groups[0].size(), 4u);
}

void ExecutionTest::nullsFormAGroupOfTheirOwnFirst()
{
    run(u"<grupo n=\"1\" campo=\"{CLI.ZONA}\"/><orden campo=\"{CLI.COD}\" sentido=\"desc\"/>"_s);
    QCOMPARE(values(), (QStringList{u"4"_s, u"2"_s, u"1"_s, u"3"_s}));
    QCOMPARE(m_view->groups[0].size(), 3u);
}

void ExecutionTest::keySortsGroupsBeforeTheirField()
{
    run(u"<grupo n=\"1\" campo=\"{CLI.COD}\" clave=\"0 - {CLI.IMPORTE}\"/>"_s);
    QCOMPARE(values(), (QStringList{u"4"_s, u"3"_s, u"2"_s, u"1"_s}));
}

void ExecutionTest::totalsByGroupAndOverAll()
{
    run(u"<grupo n=\"1\" campo=\"{CLI.ZONA}\"/>"_s,
        u"ToText(Sum({CLI.IMPORTE},{CLI.ZONA}),0) & \"/\" & ToText(Sum({CLI.IMPORTE}),0) & \"/\" & "
        "ToText(Count({CLI.COD},{CLI.ZONA}),0) & \"/\" & Maximum({CLI.NOMBRE})"_s);
    QCOMPARE(values(), (QStringList{u"40/100/1/Zurbano"_s, u"30/100/2/Zurbano"_s, u"30/100/2/Zurbano"_s,
                                    u"30/100/1/Zurbano"_s}));
}

void ExecutionTest::groupSelectionLooksAtTheFirstRecord()
{
    run(u"<seleccion-grupo>{CLI.COD} = \"1\"</seleccion-grupo><grupo n=\"1\" campo=\"{CLI.ZONA}\"/>"_s);
    QCOMPARE(values(), (QStringList{u"1"_s, u"2"_s}));
}

void ExecutionTest::totalsComeAfterBothSelections()
{
    run(u"<seleccion-grupo>{CLI.ZONA} = \"A\"</seleccion-grupo><grupo n=\"1\" campo=\"{CLI.ZONA}\"/>"_s,
        u"Sum({CLI.IMPORTE})"_s);
    QCOMPARE(values(), (QStringList{u"30"_s, u"30"_s}));
}

void ExecutionTest::subreportTakesTheRecordsOfItsLink()
{
    run(u"<definicion nombre=\"S\"><tabla n=\"0\" alias=\"ZON\" fichero=\"@0/ZONAS.MDB\"/>"
        "<vinculo campo=\"{ZON.COD}\" con=\"{CLI.ZONA}\"/></definicion>"_s);
    m_execution->records().setPosition(0);
    QCOMPARE(m_execution->enterSubreport(0).size(), 0u);
    m_execution->records().setPosition(1);
    QCOMPARE(m_execution->enterSubreport(0).size(), 2u);
}

void ExecutionTest::pushedSelectionTakesTheSameRecords()
{
    givenTable(path(u"CLIENTES.MDB"_s), u"RARA"_s, {u"T"_s, u"N#"_s},
               {{u""_s, 0.0},
                {Null{}, Null{}},
                {u"a"_s, 1.0},
                {u"a "_s, -1.0},
                {u"A"_s, 2.5},
                {u"á"_s, 3.0},
                {u"12,50"_s, 12.0},
                {u"15/03/2024"_s, 1e15},
                {u"ñ"_s, 4.0},
                {u"O'B"_s, 5.0},
                {u"10"_s, 10.0}});
    const QStringList formulas{u"{RARA.T} = \"a\""_s,
                               u"{RARA.T} <> \"a\""_s,
                               u"\"a\" < {RARA.T}"_s,
                               u"{RARA.T} >= \"a \""_s,
                               u"{RARA.T} in \"1\" to \"9\""_s,
                               u"{RARA.T} in \"a\" _to_ \"ñ\""_s,
                               u"{RARA.T} in [\"O'B\", \"á\", \"0\" to \"2\"]"_s,
                               u"{RARA.T} in upfrom \"n\""_s,
                               u"Mid({RARA.T},4,2) = \"03\""_s,
                               u"Mid({RARA.T},2) = \"\""_s,
                               u"Left({RARA.T},1) = \"A\""_s,
                               u"Right({RARA.T},1) = \" \""_s,
                               u"Length({RARA.T}) in 1 to 2"_s,
                               u"Val({RARA.T}) > 9"_s,
                               u"{RARA.N} > 2"_s,
                               u"{RARA.N} in [2.5, 3 to 5]"_s,
                               u"{RARA.N} <= -1"_s,
                               u"IsNull({RARA.T})"_s,
                               u"not IsNull({RARA.N}) and {RARA.N} < 3 and {RARA.T} <> \"\""_s,
                               u"IsNull({RARA.T}) or {RARA.T} = \"\""_s,
                               u"5 < {RARA.N}"_s,
                               u"{RARA.T} in []"_s};
    for (const QString& nulls : {u"parar"_s, u"vacio"_s}) {
        for (const QString& formula : formulas) {
            const QString xml =
                u"<informe version=\"1\" nombre=\"P\" nulos=\"%1\"><tabla n=\"0\" alias=\"RARA\" "
                "fichero=\"CLIENTES.MDB\"/><seleccion><![CDATA[%2]]></seleccion></informe>"_s.arg(nulls,
                                                                                                  formula);
            QList<quint32> sizes;
            for (const bool on : {false, true}) {
                ReadReport read = readReport(xml.toUtf8());
                QVERIFY(read.report);
                setPushdown(on);
                Execution execution(*read.report, QDateTime(QDate(2024, 3, 5), QTime(10, 0)));
                execution.run({path(u"CLIENTES.MDB"_s)}, {});
                sizes += execution.records().view()->size();
            }
            QVERIFY2(sizes[0] == sizes[1], qPrintable(formula));
        }
    }
    setPushdown(true);
}

void ExecutionTest::onlyWhatComparesOneColumnIsPushed_data()
{
    QTest::addColumn<QString>("selection");
    QTest::addColumn<QByteArray>("condition");
    const auto row = [](const char* name, const QString& selection, const QByteArray& condition) {
        QTest::newRow(name) << selection << condition;
    };
    row("part of a column", u"Mid ({A.T},4,2) = \"03\""_s,
        "report_compare(report_mid(report_text(\"T\"),4,2),'03',0)=0");
    row("an apostrophe", u"{A.T} = \"O'B\""_s, "report_compare(report_text(\"T\"),'O''B',0)=0");
    row("constant first", u"3 < {A.N}"_s, "report_compare(report_number(\"N\"),3.0,0)>0");
    row("one term of two", u"{A.N} = 1 and {A.T} & \"x\" = \"y\""_s,
        "report_compare(report_number(\"N\"),1.0,0)=0");
    row("a null", u"IsNull({A.T})"_s, "\"T\" IS NULL");
    row("either of two", u"{A.N} = 1 or {A.N} = 2"_s, "");
    row("a variable", u"NumberVar x := 1; {A.N} = x"_s, "");
    row("a choice", u"if {A.N} = 1 then True else False"_s, "");
    row("two columns", u"{A.N} = Length({A.T})"_s, "");
    row("a value error", u"Mid({A.T},0) = \"\""_s, "");
}

void ExecutionTest::onlyWhatComparesOneColumnIsPushed()
{
    QFETCH(const QString, selection);
    QFETCH(const QByteArray, condition);
    const QString xml = u"<informe version=\"1\" nombre=\"P\"><tabla n=\"0\" alias=\"A\" fichero=\"A.MDB\"/>"
                        "<seleccion><![CDATA[%1]]></seleccion></informe>"_s.arg(selection);
    ReadReport read = readReport(xml.toUtf8());
    const std::vector<std::vector<SourceColumn>> schemas{
        {{u"T"_s, formula::Type::Text}, {u"N"_s, formula::Type::Number}}};
    Variables variables;
    Binder binder(*read.report, schemas, variables);
    binder.bindAll();

    QCOMPARE(pushedCondition({&read.report->selection}, binder.slotList(), schemas[0], {}), condition);
}

void ExecutionTest::storeThatIsBusyStopsTheReport()
{
    const auto alone = storage::sqliteEngine()->open(path(u"CLIENTES.MDB"_s), storage::Sharing::Exclusive);
    int code = 0;
    try {
        run({});
    } catch (const Problem& problem) {
        code = problem.code();
    }
    QCOMPARE(code, static_cast<int>(kReadError));
}

void ExecutionTest::storeIsFreeAfterTheRun()
{
    run({});
    QVERIFY(storage::sqliteEngine()->open(path(u"CLIENTES.MDB"_s), storage::Sharing::Exclusive) != nullptr);
}

void ExecutionTest::reportThatCantRunSaysWhy_data()
{
    QTest::addColumn<QString>("elements");
    QTest::addColumn<QString>("formula");
    QTest::addColumn<int>("code");
    const auto row = [](const char* name, const QString& elements, const QString& formula, ErrorCode code) {
        QTest::newRow(name) << elements << formula << static_cast<int>(code);
    };
    row("a column that isn't there", {}, u"{CLI.NADA}"_s, kColumnMissing);
    row("a table that the report hasn't", {}, u"{NADA.COD}"_s, kFormulaTypes);
    row("a table that the store hasn't",
        u"<tabla n=\"1\" alias=\"NADA\" fichero=\"@0/ZONAS.MDB\">"
        "<condicion>1 = 1</condicion></tabla>"_s,
        {}, kTableMissing);
    row("a selection that is no condition", u"<seleccion>1 + 1</seleccion>"_s, {}, kFormulaTypes);
    row("a selection by a total", u"<seleccion>Sum({CLI.IMPORTE}) > 1</seleccion>"_s, {}, kFormulaTypes);
    row("a formula that uses itself", {}, u"{@X} & \"a\""_s, kFormulaTypes);
    row("a total by no group", {}, u"Sum({CLI.IMPORTE},{CLI.ZONA})"_s, kFormulaTypes);
    row("a link of two types",
        u"<tabla n=\"1\" alias=\"ZON\" fichero=\"@0/ZONAS.MDB\">"
        "<enlace campo=\"{ZON.COD}\" con=\"{CLI.IMPORTE}\"/></tabla>"_s,
        {}, kFormulaTypes);
}

void ExecutionTest::reportThatCantRunSaysWhy()
{
    QFETCH(const QString, elements);
    QFETCH(const QString, formula);
    QFETCH(const int, code);
    int found = 0;
    try {
        run(elements, formula);
    } catch (const Problem& problem) {
        found = problem.code();
        QVERIFY(!problem.text().isEmpty());
    }
    QCOMPARE(found, code);
}

QTEST_GUILESS_MAIN(ExecutionTest)
#include "tst_execution.moc"
