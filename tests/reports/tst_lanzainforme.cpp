// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/output/printers.h"
#include "platform/system/clock.h"
#include "platform/system/paths.h"
#include "platform/window/combolist.h"
#include "platform/window/textbox.h"
#include "reports/catalogue.h"
#include "reports/lista.h"
#include "reports/recordingengine.h"
#include "shell/globalsat.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QPushButton>
#include <QtTest>

using namespace platform;
using namespace Qt::StringLiterals;
using reports::LISTA;

namespace {

const QString kCompany = u"C:\\Q\\Empresa00012\\"_s;
const QString kSelectPrinter = u"PESelectPrinter(1, \"PCL\", \"Taller\", \"P2\", none)"_s;
const QString kWindowOptions = u"PESetWindowOptions(1, 26, 001111101010)"_s;

template <typename T>
T* control(LISTA& window, const char* name)
{
    return window.findChild<T*>(QLatin1String(name));
}

QStringList callsNamed(const QString& name)
{
    return recordedCalls().filter(QRegularExpression(u"^"_s + name + u"\\("_s));
}

} // namespace

class LanzaInformeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void report888PreviewsWithTheseCallsInThisOrder();
    void report725MovesTablesZeroAndTwo();
    void everyRowSendsItsFormulaThreeTimes_data();
    void everyRowSendsItsFormulaThreeTimes();
    void numberOutsideTheCatalogueSendsNoFormula();
    void report8881SendsNoFormula();
    void rowWithAnEmptyFormulaSendsItAllTheSame();
    void formulaEndsInTwoZeros();

    void previewIgnoresTheCopies();
    void printingSelectsThePrinterAgain();
    void printingPassesTheCopiesByTheOptionsOnly();
    void withoutCopiesNoOptionsArePassed();
    void chosenPrinterCountsForTheNextRun();

    void scanMovesTablesToTheCompany_data();
    void scanMovesTablesToTheCompany();
    void tableThatCannotBeReadKeepsItsPlace();
    void scanReadsAndWritesWithDifferentRecordSizes();
    void gapInTheListLeavesThatTable();
    void lastSubreportOfASectionIsMovedForEach();
    void onlyReport1MovesSubreports();

    void formulaFieldsAreSetTwice();
    void refusedFormulaFieldEndsThem();
    void commissionsPrintTheirPeriod();
    void reportsWithoutFieldsSetNone();

    void receiptIsChainedAfterPrinting();
    void previewChainsNoReceipt();
    void chainedReceiptSelectsNothing();

    void everyFailingCallLeavesTheOthersAsTheyAre_data();
    void everyFailingCallLeavesTheOthersAsTheyAre();
    void fileThatDoesNotOpenRunsOnJobZero();
    void engineTextIsAlwaysOneBlank();

private:
    std::unique_ptr<LISTA> requested(double report);
    void preview(LISTA& window);
    void print(LISTA& window);
};

void LanzaInformeTest::init()
{
    QCoreApplication::setApplicationVersion(u"3.32.3009"_s);
    resetProgramState();
    resetRecordingEngine();
    setClock([] { return QDateTime(QDate(2026, 11, 20), QTime(9, 30)); });
    setPrinterSource([] {
        return PrinterList{{{u"Oficina"_s, u"PostScript"_s, u"P1"_s}, {u"Taller"_s, u"PCL"_s, u"P2"_s}}, 1};
    });
    RUTAEMPRESA = kCompany;
}

void LanzaInformeTest::cleanup()
{
    setPrinterSource({});
    setClock({});
}

std::unique_ptr<LISTA> LanzaInformeTest::requested(double report)
{
    NUMINFORME = report;
    FICHEROINFORME = u"C:\\Q\\informe.rpt"_s;
    TITULOINFORME = u"Título"_s;
    BASEINFORME = kCompany + u"CLIENTES.MDB"_s;
    auto window = std::make_unique<LISTA>();
    window->showModeless();
    recordedCalls().clear();
    return window;
}

void LanzaInformeTest::preview(LISTA& window)
{
    QTest::mouseClick(control<QPushButton>(window, "Command1"), Qt::LeftButton);
}

void LanzaInformeTest::print(LISTA& window)
{
    QTest::mouseClick(control<QPushButton>(window, "Command2"), Qt::LeftButton);
}

void LanzaInformeTest::report888PreviewsWithTheseCallsInThisOrder()
{
    const auto window = requested(888);
    BASEINFORME = kCompany + u"ASISTENCIAS.MDB"_s;
    const QString formula = u"\"Mid ({CONS.FEINICIO},4,2) = \"11\"\""_s;

    preview(*window);

    QCOMPARE(recordedCalls(),
             (QStringList{
                 u"PEOpenPrintJob(\"C:\\Q\\informe.rpt\")"_s,
                 u"PESetNthTableLocation(1, 0, 258, \"C:\\Q\\Empresa00012\\ASISTENCIAS.MDB\")"_s,
                 kSelectPrinter,
                 u"PESetGroupSelectionFormula(1, "_s + formula + u")"_s,
                 u"PESetGroupSelectionFormula(1, "_s + formula + u")"_s,
                 u"PESetSelectionFormula(1, "_s + formula + u")"_s,
                 kWindowOptions,
                 u"PEOutputToWindow(1, \"Título\", 50, 50, 600, 600, 0, 0)"_s,
                 u"PEGetErrorCode(1)"_s,
                 u"PEStartPrintJob(1, 0)"_s,
             }));
}

void LanzaInformeTest::report725MovesTablesZeroAndTwo()
{
    const auto window = requested(725);
    BASEINFORME2 = BASEINFORME;

    preview(*window);

    QCOMPARE(callsNamed(u"PESetNthTableLocation"_s),
             (QStringList{u"PESetNthTableLocation(1, 0, 258, \"C:\\Q\\Empresa00012\\CLIENTES.MDB\")"_s,
                          u"PESetNthTableLocation(1, 2, 258, \"C:\\Q\\Empresa00012\\CLIENTES.MDB\")"_s}));
}

void LanzaInformeTest::everyRowSendsItsFormulaThreeTimes_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<bool>("toPrinter");
    for (const reports::ReportRow& row : reports::catalogue()) {
        if (row.number == reports::kNumberRange)
            continue;
        QTest::addRow("%d to the window", row.number) << row.number << false;
        QTest::addRow("%d to the printer", row.number) << row.number << true;
    }
}

void LanzaInformeTest::everyRowSendsItsFormulaThreeTimes()
{
    QFETCH(int, number);
    QFETCH(bool, toPrinter);
    const auto window = requested(number);

    toPrinter ? print(*window) : preview(*window);

    const QString sent = window->FORMULAINFORME;
    const QString text = u"(1, \""_s + sent.left(sent.indexOf(QChar(u'\0'))) + u"\")"_s;
    QCOMPARE(callsNamed(u"PESet(Group)?SelectionFormula"_s),
             (QStringList{u"PESetGroupSelectionFormula"_s + text, u"PESetGroupSelectionFormula"_s + text,
                          u"PESetSelectionFormula"_s + text}));
    QCOMPARE(callsNamed(u"PEStartPrintJob"_s).size(), 1);
    QCOMPARE(callsNamed(u"PEOutputToWindow"_s).size(), toPrinter ? 0 : 1);
    QCOMPARE(callsNamed(u"PEOutputToPrinter"_s).size(), toPrinter ? 1 : 0);
}

void LanzaInformeTest::numberOutsideTheCatalogueSendsNoFormula()
{
    const auto window = requested(4711);

    preview(*window);

    QVERIFY(callsNamed(u"PESet(Group)?SelectionFormula"_s).isEmpty());
    QCOMPARE(window->FORMULAINFORME, QString());
    QCOMPARE(callsNamed(u"PEStartPrintJob"_s).size(), 1);
}

void LanzaInformeTest::report8881SendsNoFormula()
{
    const auto window = requested(8881);

    preview(*window);

    QVERIFY(callsNamed(u"PESet(Group)?SelectionFormula"_s).isEmpty());
}

void LanzaInformeTest::rowWithAnEmptyFormulaSendsItAllTheSame()
{
    const auto window = requested(5003);

    preview(*window);

    QCOMPARE(callsNamed(u"PESet(Group)?SelectionFormula"_s),
             (QStringList{u"PESetGroupSelectionFormula(1, \"\")"_s, u"PESetGroupSelectionFormula(1, \"\")"_s,
                          u"PESetSelectionFormula(1, \"\")"_s}));
}

void LanzaInformeTest::formulaEndsInTwoZeros()
{
    const auto window = requested(725);

    preview(*window);

    QCOMPARE(window->FORMULAINFORME,
             u"{ClientesTabla.ZonaCodigo} in '0000000001' to '9999999999'"_s + QString(2, QChar(u'\0')));
}

void LanzaInformeTest::previewIgnoresTheCopies()
{
    const auto window = requested(725);
    control<ComboList>(*window, "Combo1")->setListIndex(2);

    preview(*window);

    QVERIFY(callsNamed(u"PESetPrintOptions"_s).isEmpty());
}

void LanzaInformeTest::printingSelectsThePrinterAgain()
{
    const auto window = requested(725);

    print(*window);

    QCOMPARE(callsNamed(u"PESelectPrinter"_s), (QStringList{kSelectPrinter, kSelectPrinter}));
}

void LanzaInformeTest::printingPassesTheCopiesByTheOptionsOnly()
{
    const auto window = requested(725);
    control<ComboList>(*window, "Combo1")->setListIndex(2);

    print(*window);

    const qsizetype output = recordedCalls().indexOf(u"PEOutputToPrinter(1, 1)"_s);
    QVERIFY(output > 0);
    QCOMPARE(recordedCalls().mid(output + 1),
             (QStringList{u"PESetPrintOptions(1, 10, 0, 0, 3, 2)"_s, u"PEStartPrintJob(1, 0)"_s}));
}

void LanzaInformeTest::withoutCopiesNoOptionsArePassed()
{
    const auto window = requested(725);
    control<ComboList>(*window, "Combo1")->clear();

    print(*window);

    QVERIFY(callsNamed(u"PESetPrintOptions"_s).isEmpty());
    QCOMPARE(callsNamed(u"PEStartPrintJob"_s).size(), 1);
}

void LanzaInformeTest::chosenPrinterCountsForTheNextRun()
{
    const auto window = requested(725);
    setCurrentPrinter(0);

    preview(*window);

    QCOMPARE(callsNamed(u"PESelectPrinter"_s),
             QStringList{u"PESelectPrinter(1, \"PostScript\", \"Oficina\", \"P1\", none)"_s});
}

void LanzaInformeTest::scanMovesTablesToTheCompany_data()
{
    QTest::addColumn<QString>("found");
    QTest::addColumn<QString>("moved");
    QTest::newRow("year of the nineties") << u"D:\\datos\\facturas1999.mdb"_s << u"facturas.mdb"_s;
    QTest::newRow("year of this century") << u"D:\\datos\\facturas2003.mdb"_s << u"facturas.mdb"_s;
    QTest::newRow("no year") << u"D:\\datos\\CLIENTES.MDB"_s << u"CLIENTES.MDB"_s;
    QTest::newRow("last 200 wins over 199") << u"D:\\f2001-1998-2002.mdb"_s << u"f2001-1998-.mdb"_s;
    QTest::newRow("200 wins even before 199") << u"D:\\f2001-1998.mdb"_s << u"f-1998.mdb"_s;
    QTest::newRow("year in the folder stays out") << u"D:\\2003\\f.mdb"_s << u"f.mdb"_s;
    QTest::newRow("no backslash") << u"f1999.mdb"_s << u"f.mdb"_s;
}

void LanzaInformeTest::scanMovesTablesToTheCompany()
{
    QFETCH(QString, found);
    QFETCH(QString, moved);
    const auto window = requested(2);
    engineAnswers().tableLocations = {found};

    preview(*window);

    QCOMPARE(callsNamed(u"PESetNthTableLocation"_s),
             QStringList{u"PESetNthTableLocation(1, 0, 258, \""_s + kCompany + moved + u"\")"_s});
}

void LanzaInformeTest::tableThatCannotBeReadKeepsItsPlace()
{
    const auto window = requested(3);
    engineAnswers().tableLocations = {u"a.mdb"_s, u"b.mdb"_s};
    engineAnswers().unreadableTables = {{0, 0}};

    preview(*window);

    QCOMPARE(callsNamed(u"PESetNthTableLocation"_s),
             QStringList{u"PESetNthTableLocation(1, 1, 258, \""_s + kCompany + u"b.mdb\")"_s});
}

void LanzaInformeTest::scanReadsAndWritesWithDifferentRecordSizes()
{
    const auto window = requested(4);
    engineAnswers().tableLocations = {u"a.mdb"_s};

    preview(*window);

    QCOMPARE(callsNamed(u"PEGetNthTableLocation"_s), QStringList{u"PEGetNthTableLocation(1, 0, 1026)"_s});
    QVERIFY(callsNamed(u"PESetNthTableLocation"_s).first().startsWith(u"PESetNthTableLocation(1, 0, 258"_s));
}

void LanzaInformeTest::gapInTheListLeavesThatTable()
{
    const auto window = requested(525);
    BASEINFORME3 = u"  "_s;
    BASEINFORME7 = u"C:\\siete.mdb"_s;

    preview(*window);

    QCOMPARE(callsNamed(u"PESetNthTableLocation"_s).size(), 2);
    QCOMPARE(callsNamed(u"PESetNthTableLocation"_s).last(),
             u"PESetNthTableLocation(1, 7, 258, \"C:\\siete.mdb\")"_s);
}

void LanzaInformeTest::lastSubreportOfASectionIsMovedForEach()
{
    const auto window = requested(1);
    engineAnswers().subreportsBySection = {{}, {u"primero"_s, u"segundo"_s}};

    preview(*window);

    QCOMPARE(callsNamed(u"PEOpenSubreport"_s),
             (QStringList{u"PEOpenSubreport(1, \"segundo\")"_s, u"PEOpenSubreport(1, \"segundo\")"_s}));
    QCOMPARE(
        callsNamed(u"PESetNthTableLocation"_s),
        (QStringList{2, u"PESetNthTableLocation(51, 0, 258, \""_s + kCompany + u"RECIBOSCARTERA.MDB\")"_s}));
    QCOMPARE(callsNamed(u"PEGetSubreportInfo"_s).first(), u"PEGetSubreportInfo(1, 201, 137)"_s);
}

void LanzaInformeTest::onlyReport1MovesSubreports()
{
    const auto window = requested(2);
    engineAnswers().subreportsBySection = {{u"primero"_s}};

    preview(*window);

    QVERIFY(callsNamed(u"PEGetNSections"_s).isEmpty());
}

void LanzaInformeTest::formulaFieldsAreSetTwice()
{
    const auto window = requested(5);

    preview(*window);

    QCOMPARE(callsNamed(u"PESetFormula"_s),
             (QStringList{2, u"PESetFormula(1, \"FESYS\", \"StringVar YO; YO:=\"\"\")"_s}));
}

void LanzaInformeTest::refusedFormulaFieldEndsThem()
{
    const auto window = requested(7);
    engineAnswers().setFormula = 0;

    preview(*window);

    QCOMPARE(callsNamed(u"PESetFormula"_s).size(), 1);
    QCOMPARE(callsNamed(u"PEStartPrintJob"_s).size(), 1);
}

void LanzaInformeTest::commissionsPrintTheirPeriod()
{
    const auto window = requested(726);
    control<QDateEdit>(*window, "DTPicker1")->setDate(QDate(2026, 1, 2));

    preview(*window);

    QCOMPARE(
        callsNamed(u"PESetFormula"_s).first(),
        u"PESetFormula(1, \"fechas\", \"StringVar YO; YO:=\"Desde el 02/01/2026 hasta el 20/11/2026\"\")"_s);
}

void LanzaInformeTest::reportsWithoutFieldsSetNone()
{
    for (const double report : {6.0, 8.0, 102.0, 99999.0}) {
        const auto window = requested(report);
        preview(*window);
        QVERIFY(callsNamed(u"PESetFormula"_s).isEmpty());
    }
}

void LanzaInformeTest::receiptIsChainedAfterPrinting()
{
    const auto window = requested(1);
    auto* receipt = control<QCheckBox>(*window, "Check1");
    receipt->setChecked(true);
    const QString folder = programPath(QCoreApplication::applicationDirPath());

    print(*window);

    QVERIFY(!receipt->isChecked());
    QCOMPARE(NUMINFORME, 333.0);
    QCOMPARE(TITULOINFORME, u"Impresión de Recibos"_s);
    QCOMPARE(callsNamed(u"PEOpenPrintJob"_s).last(), u"PEOpenPrintJob(\""_s + folder + u"\\recibo.rpt\")"_s);
    QCOMPARE(callsNamed(u"PESetNthTableLocation"_s),
             (QStringList{u"PESetNthTableLocation(1, 0, 258, \""_s + kCompany + u"RECIBOSCARTERA.MDB\")"_s,
                          u"PESetNthTableLocation(1, 1, 258, \""_s + kCompany + u"imagenes.MDB\")"_s,
                          u"PESetNthTableLocation(1, 2, 258, \""_s + kCompany + u"facturas.MDB\")"_s,
                          u"PESetNthTableLocation(1, 3, 258, \""_s + kCompany + u"CLIENTES.MDB\")"_s}));
    QCOMPARE(callsNamed(u"PEStartPrintJob"_s).size(), 2);
}

void LanzaInformeTest::previewChainsNoReceipt()
{
    const auto window = requested(1);
    control<QCheckBox>(*window, "Check1")->setChecked(true);

    preview(*window);

    QCOMPARE(NUMINFORME, 1.0);
    QVERIFY(control<QCheckBox>(*window, "Check1")->isChecked());
}

void LanzaInformeTest::chainedReceiptSelectsNothing()
{
    const auto window = requested(1);
    control<QCheckBox>(*window, "Check1")->setChecked(true);

    print(*window);

    QCOMPARE(callsNamed(u"PESetSelectionFormula"_s).last(), u"PESetSelectionFormula(1, \"\")"_s);
    QCOMPARE(window->RECIBOENCADENADO, 0.0);
}

void LanzaInformeTest::everyFailingCallLeavesTheOthersAsTheyAre_data()
{
    QTest::addColumn<QString>("failing");
    for (const char* name :
         {"PEOpenPrintJob", "PESetNthTableLocation", "PESelectPrinter", "PESetGroupSelectionFormula",
          "PESetSelectionFormula", "PESetWindowOptions", "PEOutputToWindow"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void LanzaInformeTest::everyFailingCallLeavesTheOthersAsTheyAre()
{
    QFETCH(QString, failing);
    const auto window = requested(888);
    preview(*window);
    QStringList usual = recordedCalls();
    recordedCalls().clear();
    engineAnswers().failing = failing;

    preview(*window);

    if (failing == u"PEOpenPrintJob"_s)
        usual.replaceInStrings(QRegularExpression(u"\\(1([,)])"_s), u"(0\\1"_s);
    QCOMPARE(recordedCalls(), usual);
}

void LanzaInformeTest::fileThatDoesNotOpenRunsOnJobZero()
{
    const auto window = requested(888);
    engineAnswers().job = 0;
    engineAnswers().start = 0;

    preview(*window);

    QCOMPARE(recordedCalls().mid(recordedCalls().size() - 2),
             (QStringList{u"PEStartPrintJob(0, 0)"_s, u"PEGetErrorCode(0)"_s}));
    QVERIFY(window->isVisible());
}

void LanzaInformeTest::engineTextIsAlwaysOneBlank()
{
    const auto window = requested(888);

    QCOMPARE(window->TEXTOERRORIMPRESION(1), u" "_s);
    QCOMPARE(recordedCalls(), (QStringList{u"PEGetErrorCode(1)"_s, u"PEGetHandleString(0, 0)"_s}));
}

QTEST_MAIN(LanzaInformeTest)
#include "tst_lanzainforme.moc"
