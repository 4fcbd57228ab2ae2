// SPDX-License-Identifier: GPL-3.0-or-later
// LANZAINFORME: formulas, copies, printer and the chain of receipts. The whole lists of calls stand in
// tst_enginecalls.cpp.
#include "reports/drivenwindow.h"
#include "reports/recordingengine.h"

#include "platform/print/output/printers.h"
#include "platform/system/paths.h"
#include "platform/window/combolist.h"
#include "shell/globalsat.h"

#include <QCheckBox>
#include <QTest>

using namespace platform;
using namespace Qt::StringLiterals;
using namespace reporttest;

namespace {

const QString kSelectPrinter = u"PESelectPrinter(1, \"PCL\", \"Taller\", \"P2\", none)"_s;

} // namespace

class LanzaInformeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_driven = std::make_unique<DrivenWindow>(); }
    void cleanup() { m_driven.reset(); }

    void numberOutsideTheCatalogueSendsNoFormula();
    void report8881SendsNoFormula();
    void rowWithAnEmptyFormulaSendsItAllTheSame();
    void formulaEndsInTwoZeros();
    void pageThatIsUpDecidesTheFormula();

    void previewIgnoresTheCopies();
    void printingSelectsThePrinterAgain();
    void printingPassesTheCopiesByTheOptionsOnly();
    void withoutCopiesNoOptionsArePassed();
    void chosenPrinterCountsForTheNextRun();
    void secondRunOpensASecondJob();

    void receiptIsChainedAfterPrinting();
    void previewChainsNoReceipt();
    void chainedReceiptSelectsNothing();
    void chainedReceiptTakesTheDatesWhenTheirPageIsUp();

    void fileThatDoesNotOpenRunsOnJobZero();
    void engineTextIsAlwaysOneBlank();

private:
    std::unique_ptr<DrivenWindow> m_driven;
};

void LanzaInformeTest::numberOutsideTheCatalogueSendsNoFormula()
{
    m_driven->requested(4711);

    m_driven->preview();

    QVERIFY(callsNamed(u"PESet(Group)?SelectionFormula"_s).isEmpty());
    QCOMPARE(m_driven->window().FORMULAINFORME, QString());
    QCOMPARE(callsNamed(u"PEStartPrintJob"_s).size(), 1);
}

void LanzaInformeTest::report8881SendsNoFormula()
{
    m_driven->requested(8881);

    m_driven->preview();

    QVERIFY(callsNamed(u"PESet(Group)?SelectionFormula"_s).isEmpty());
}

void LanzaInformeTest::rowWithAnEmptyFormulaSendsItAllTheSame()
{
    m_driven->requested(5003);

    m_driven->preview();

    QCOMPARE(callsNamed(u"PESet(Group)?SelectionFormula"_s),
             (QStringList{u"PESetGroupSelectionFormula(1, \"\")"_s, u"PESetGroupSelectionFormula(1, \"\")"_s,
                          u"PESetSelectionFormula(1, \"\")"_s}));
}

void LanzaInformeTest::formulaEndsInTwoZeros()
{
    m_driven->requested(725);

    m_driven->preview();

    QCOMPARE(m_driven->window().FORMULAINFORME,
             u"{ClientesTabla.ZonaCodigo} in '0000000001' to '9999999999'"_s + QString(2, QChar(u'\0')));
}

void LanzaInformeTest::pageThatIsUpDecidesTheFormula()
{
    auto& window = m_driven->requested(2);

    window.turnToDates();
    m_driven->preview();
    const QString byDate = window.FORMULAINFORME;
    window.turnToNumbers();
    m_driven->preview();

    QVERIFY(byDate.startsWith(u"{ALBARANESTabla.ALBARANFecha} in [\"20/11/2026\"]"_s));
    QVERIFY(window.FORMULAINFORME.startsWith(u"{AlbaranesTabla.ALBARANNumero} in 0 to 0 AND"_s));
}

void LanzaInformeTest::previewIgnoresTheCopies()
{
    m_driven->requested(725);
    m_driven->control<ComboList>("Combo1").setListIndex(2);

    m_driven->preview();

    QVERIFY(callsNamed(u"PESetPrintOptions"_s).isEmpty());
}

void LanzaInformeTest::printingSelectsThePrinterAgain()
{
    m_driven->requested(725);

    m_driven->print();

    QCOMPARE(callsNamed(u"PESelectPrinter"_s), (QStringList{kSelectPrinter, kSelectPrinter}));
}

void LanzaInformeTest::printingPassesTheCopiesByTheOptionsOnly()
{
    m_driven->requested(725);
    m_driven->control<ComboList>("Combo1").setListIndex(2);

    m_driven->print();

    const qsizetype output = recordedCalls().indexOf(u"PEOutputToPrinter(1, 1)"_s);
    QVERIFY(output > 0);
    QCOMPARE(recordedCalls().mid(output + 1),
             (QStringList{u"PESetPrintOptions(1, 10, 0, 0, 3, 2)"_s, u"PEStartPrintJob(1, 0)"_s}));
}

void LanzaInformeTest::withoutCopiesNoOptionsArePassed()
{
    m_driven->requested(725);
    m_driven->control<ComboList>("Combo1").clear();

    m_driven->print();

    QVERIFY(callsNamed(u"PESetPrintOptions"_s).isEmpty());
    QCOMPARE(callsNamed(u"PEStartPrintJob"_s).size(), 1);
}

void LanzaInformeTest::chosenPrinterCountsForTheNextRun()
{
    m_driven->requested(725);
    setCurrentPrinter(0);

    m_driven->preview();

    QCOMPARE(callsNamed(u"PESelectPrinter"_s),
             QStringList{u"PESelectPrinter(1, \"PostScript\", \"Oficina\", \"P1\", none)"_s});
}

void LanzaInformeTest::secondRunOpensASecondJob()
{
    m_driven->requested(725);

    m_driven->preview();
    m_driven->preview();

    QCOMPARE(callsNamed(u"PEStartPrintJob"_s),
             (QStringList{u"PEStartPrintJob(1, 0)"_s, u"PEStartPrintJob(2, 0)"_s}));
    QVERIFY(callsNamed(u"PECloseEngine"_s).isEmpty());
}

void LanzaInformeTest::receiptIsChainedAfterPrinting()
{
    m_driven->requested(1);
    auto& receipt = m_driven->control<QCheckBox>("Check1");
    receipt.setChecked(true);
    const QString folder = programPath(QCoreApplication::applicationDirPath());

    m_driven->print();

    QVERIFY(!receipt.isChecked());
    QCOMPARE(NUMINFORME, 333.0);
    QCOMPARE(TITULOINFORME, u"Impresión de Recibos"_s);
    QCOMPARE(callsNamed(u"PEOpenPrintJob"_s).last(), u"PEOpenPrintJob(\""_s + folder + u"\\recibo.rpt\")"_s);
    QCOMPARE(
        callsNamed(u"PESetNthTableLocation"_s),
        (QStringList{u"PESetNthTableLocation(2, 0, 258, \""_s + kCompanyFolder + u"RECIBOSCARTERA.MDB\")"_s,
                     u"PESetNthTableLocation(2, 1, 258, \""_s + kCompanyFolder + u"imagenes.MDB\")"_s,
                     u"PESetNthTableLocation(2, 2, 258, \""_s + kCompanyFolder + u"facturas.MDB\")"_s,
                     u"PESetNthTableLocation(2, 3, 258, \""_s + kCompanyFolder + u"CLIENTES.MDB\")"_s}));
    QCOMPARE(callsNamed(u"PEStartPrintJob"_s).size(), 2);
}

void LanzaInformeTest::previewChainsNoReceipt()
{
    m_driven->requested(1);
    m_driven->control<QCheckBox>("Check1").setChecked(true);

    m_driven->preview();

    QCOMPARE(NUMINFORME, 1.0);
    QVERIFY(m_driven->control<QCheckBox>("Check1").isChecked());
}

void LanzaInformeTest::chainedReceiptSelectsNothing()
{
    m_driven->requested(1);
    m_driven->control<QCheckBox>("Check1").setChecked(true);

    m_driven->print();

    QCOMPARE(callsNamed(u"PESetSelectionFormula"_s).last(), u"PESetSelectionFormula(2, \"\")"_s);
    QCOMPARE(m_driven->window().RECIBOENCADENADO, 0.0);
}

void LanzaInformeTest::chainedReceiptTakesTheDatesWhenTheirPageIsUp()
{
    auto& window = m_driven->requested(1);
    m_driven->control<QCheckBox>("Check1").setChecked(true);
    window.turnToDates();

    m_driven->print();

    QVERIFY(callsNamed(u"PESetSelectionFormula"_s)
                .last()
                .contains(u"{ACUCARTERATABLA.ACUCARTERAFECHARECIBO} in DateTime (2026,11,20)"_s));
    QCOMPARE(window.RECIBOENCADENADO, 1.0); // only the number form takes it back
}

void LanzaInformeTest::fileThatDoesNotOpenRunsOnJobZero()
{
    m_driven->requested(888);
    engineAnswers().failing = u"PEOpenPrintJob"_s;

    m_driven->preview();

    QCOMPARE(recordedCalls().mid(recordedCalls().size() - 2),
             (QStringList{u"PEStartPrintJob(0, 0)"_s, u"PEGetErrorCode(0)"_s}));
    QVERIFY(m_driven->window().isVisible());
}

void LanzaInformeTest::engineTextIsAlwaysOneBlank()
{
    m_driven->requested(888);

    QCOMPARE(m_driven->window().TEXTOERRORIMPRESION(1), u" "_s);
    QCOMPARE(recordedCalls(), (QStringList{u"PEGetErrorCode(1)"_s, u"PEGetHandleString(0, 0)"_s}));
}

QTEST_MAIN(LanzaInformeTest)
#include "tst_lanzainforme.moc"
