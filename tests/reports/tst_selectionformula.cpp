// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/catalogue.h"
#include "reports/selectionformula.h"

#include <QtTest>

using namespace Qt::StringLiterals;
using namespace reports;

namespace {

const QDate kMarch1(2024, 3, 1);
const QDate kMarch31(2024, 3, 31);

FormulaChoices choicesOf(double report)
{
    FormulaChoices choices;
    choices.report = report;
    choices.reportFile = u"C:\\Q\\informe.rpt"_s;
    choices.programFolder = u"C:\\Programa"_s;
    choices.text1 = u"5"_s;
    choices.text2 = u"9"_s;
    choices.date1 = kMarch1;
    choices.date2 = kMarch31;
    choices.month = u"03"_s;
    return choices;
}

QString header(const QString& column)
{
    return u"DateVar FECHA;NumberVar Dia;NumberVar Mes;NumberVar Any;Dia:= val(mid(%1,1,2)); "
           "Mes:= val(mid(%1,4,2));Any:= val(mid(%1,7,4));"_s.arg(column);
}

} // namespace

class SelectionFormulaTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyRowYieldsItsTemplate_data();
    void everyRowYieldsItsTemplate();
    void documentsByDateListTheDays_data();
    void documentsByDateListTheDays();
    void formulaOfOneFormHasNoEyesForThePage_data();
    void formulaOfOneFormHasNoEyesForThePage();
    void rangesOfMasterReportsAreTrimmed();
    void untouchedBoxesOf725SelectAllZonesAsText();
    void oneDayGivesAListOfOneDateWithoutComma();
    void listOfDatesSpansTheYearEnd();
    void listLongerThan366DaysKeepsItsLastComma();
    void reversedDatesKeepTheLastComma();
    void guaranteeInvoicesPutTheirPrefixBeforeBothForms();
    void guaranteeOrdersCompareTheFileWithoutItsExtension();
    void boxesOf726ThatAreNoNumbersLeaveEmptyAndZero();
    void chainedReceiptSelectsItsNumber();
    void chainedReceiptThatCouldNotBeFoundHasAnEmptyFormula();
    void numberOutsideTheCatalogueHasNoFormula();
    void report8881HasAPlaceButNoFormula();
    void accountingRowsFillFromTheirParameters();
    void balanceWithAnotherOptionIsEmpty();
    void lookupFormulaPassesAsItStands();
    void catalogueHasEachNumberOnce();
};

void SelectionFormulaTest::everyRowYieldsItsTemplate_data()
{
    QTest::addColumn<double>("report");
    QTest::addColumn<bool>("dates");
    QTest::addColumn<QString>("formula");

    const QString wide = u"DateTime (2024 , 03 , 01,00, 00, 00) to DateTime (2024 , 03 , 31,00, 00, 00)"_s;
    QTest::newRow("525") << 525.0 << false << u"{ClientesTabla.CliCodigo} in '5' to '9'"_s;
    QTest::newRow("725") << 725.0 << false << u"{ClientesTabla.ZonaCodigo} in '5' to '9'"_s;
    QTest::newRow("8888") << 8888.0 << false << u"{ClientesTabla.TipoClienteCodigo} in '0001' to '9999'"_s;
    QTest::newRow("888") << 888.0 << false << u"Mid ({CONS.FEINICIO},4,2) = \"03\""_s;
    QTest::newRow("1 by number")
        << 1.0 << false << u"{FacturaTabla.FACTURANumero} in 0 to 0 AND {FacturaTabla.FACTURACanal} = ''"_s;
    QTest::newRow("2 by number")
        << 2.0 << false
        << u"{AlbaranesTabla.ALBARANNumero} in 0 to 0 AND {AlbaranesTabla.ALBARANCanal} = ''"_s;
    QTest::newRow("3 by number")
        << 3.0 << false << u"{PEDIDOSTabla.PEDIDOSNumero} in 0 to 0 AND {PEDIDOSTabla.PEDIDOSCanal} = ''"_s;
    QTest::newRow("4 by number")
        << 4.0 << false
        << u"{PresupuestoTabla.PRECOMNumero} in 0 to 0 AND {PresupuestoTabla.PRECOMCanal} = ''"_s;
    QTest::newRow("5 by number") << 5.0 << false
                                 << u"{ComprasPedidosTabla.ComprasPedidosNumero} in 0 to 0 AND "
                                    "{ComprasPedidosTabla.ComprasPedidosCanal} = ''"_s;
    QTest::newRow("7 by number") << 7.0 << false
                                 << u"{ComprasAlbaranesTabla.COMPRASALBARANNumero} in 0 to 0 AND "
                                    "{ComprasAlbaranesTabla.COMPRASALBARANCanal} = ''"_s;
    QTest::newRow("8 by number") << 8.0 << false
                                 << u"{ComprasFacturaTabla.COMPRASFacturaNumero} in 0 to 0 AND "
                                    "{ComprasFacturaTabla.COMPRASFacturaCanal} = ''"_s;
    QTest::newRow("1 by date") << 1.0 << true
                               << header(u"{FacturaTabla.FACTURAFecha}"_s) +
                                      u"fecha:= Date (Any,Mes ,Dia);fecha in "_s + wide;
    QTest::newRow("662")
        << 662.0 << false
        << u"{ACUCARTERATABLA.ACUCARTERAVENCIMIENTO} in DateTime(2024,03,01,00,00,00) to DateTime "
           "(2024,03,31,00,00,00) and  {ACUCARTERATABLA.ACUCARTERACODIGO} in '5' to '9' AND "
           "ISNULL({ACUCARTERATABLA.ACUCARTERARNUMREMESAS}) = True"_s;
    QTest::newRow("444") << 444.0 << false
                         << u"val({ACUCARTERATABLA.ACUCARTERARNUMREMESAS}) in 5 to 9 AND "
                            "{ACUCARTERATABLA.ACUCARTERABANCO}=''"_s;
    QTest::newRow("333 by number") << 333.0 << false
                                   << u"val({ACUCARTERATABLA.ACUCARTERANUMRECIBO}) in 5 to 9"_s;
    QTest::newRow("333 by date")
        << 333.0 << true
        << u"{ACUCARTERATABLA.ACUCARTERAFECHARECIBO} in DateTime (2024,03,01) to DateTime "
           "(2024,03,31)"_s;
    QTest::newRow("6")
        << 6.0 << false
        << u"{ACUCARTERATABLA.ACUCARTERABANCO} in '5' to '9' AND {REMESAS.REMESAFECHA} in DateTime "
           "(2024,03,01) to DateTime (2024,03,31)"_s;
    QTest::newRow("726")
        << 726.0 << false
        << header(u"{FacturaTabla.FACTURAFecha}"_s) +
               u"fecha:= Date(Any,Mes ,Dia);fecha in Date(2024 , 03 , 01) to Date(2024 , 03 , "
               "31)And {COMISIONESTAB.COMISIONESDOCUMENTO}='FACT' and "
               "val({facturatabla.facturanumrepre}) in 5 to 9"_s;
    QTest::newRow("5001 without parameters") << 5001.0 << false
                                             << u"{BALANCES.NATURALEZA} in '21' to '22' AND "
                                                u"length({BALANCES.CTA})=0 AND {BALANCES.DESCRIP}<>'DEBE' "
                                                "AND {BALANCES.DESCRIP}<>'HABER'"_s;
    QTest::newRow("5002 without parameters")
        << 5002.0 << false
        << header(u"{lineaapunte.fechaasiento}"_s) + u"fecha:= Date (Any,Mes ,Dia);fecha in DateTime ( ,  , "
                                                     u",00, 00, 00) to DateTime ( ,  , ,00, 00, "
                                                     "00)"_s;
    QTest::newRow("5003 without parameters") << 5003.0 << false << QString();
}

void SelectionFormulaTest::everyRowYieldsItsTemplate()
{
    QFETCH(double, report);
    QFETCH(bool, dates);
    FormulaChoices choices = choicesOf(report);
    choices.isDatesPageUp = dates;

    const std::optional<QString> formula = selectionFormula(choices);

    QVERIFY(formula.has_value());
    QTEST(*formula, "formula");
}

void SelectionFormulaTest::documentsByDateListTheDays_data()
{
    QTest::addColumn<double>("report");
    QTest::addColumn<QString>("column");
    QTest::newRow("2") << 2.0 << u"{ALBARANESTabla.ALBARANFecha}"_s;
    QTest::newRow("3") << 3.0 << u"{PEDIDOSTabla.PEDIDOSFecha}"_s;
    QTest::newRow("4") << 4.0 << u"{PresupuestoTabla.PRECOMFecha}"_s;
    QTest::newRow("5") << 5.0 << u"{COMPRASPEDIDOSTabla.COMPRASPEDIDOSFecha}"_s;
    QTest::newRow("7") << 7.0 << u"{COMPRASAlbaranesTabla.COMPRASAlbaranFecha}"_s;
    QTest::newRow("8") << 8.0 << u"{ComprasFacturaTabla.COMPRASFacturaFecha}"_s;
}

void SelectionFormulaTest::documentsByDateListTheDays()
{
    QFETCH(double, report);
    QFETCH(QString, column);
    FormulaChoices choices = choicesOf(report);
    choices.isDatesPageUp = true;
    choices.date2 = QDate(2024, 3, 2);

    QCOMPARE(selectionFormula(choices), column + u" in [\"01/03/2024\", \"02/03/2024\"]"_s);
}

void SelectionFormulaTest::formulaOfOneFormHasNoEyesForThePage_data()
{
    QTest::addColumn<double>("report");
    for (const double report :
         {6.0, 444.0, 525.0, 662.0, 725.0, 726.0, 888.0, 1099.0, 5001.0, 5002.0, 8888.0})
        QTest::addRow("%g", report) << report;
}

void SelectionFormulaTest::formulaOfOneFormHasNoEyesForThePage()
{
    QFETCH(double, report);
    FormulaChoices choices = choicesOf(report);
    choices.lookupFormula = u"{ClientesTabla.CliCodigo} = '1'"_s;
    const std::optional<QString> byNumber = selectionFormula(choices);
    choices.isDatesPageUp = true;

    QVERIFY(byNumber.has_value() && !byNumber->isEmpty());
    QCOMPARE(selectionFormula(choices), byNumber);
}

void SelectionFormulaTest::rangesOfMasterReportsAreTrimmed()
{
    FormulaChoices choices = choicesOf(525);
    choices.text1 = u"  A1 "_s;
    choices.text2 = u" Z9"_s;

    QCOMPARE(selectionFormula(choices), u"{ClientesTabla.CliCodigo} in 'A1' to 'Z9'"_s);
}

void SelectionFormulaTest::untouchedBoxesOf725SelectAllZonesAsText()
{
    FormulaChoices choices = choicesOf(725);
    choices.text1 = reportRow(725)->firstStart.toString();
    choices.text2 = reportRow(725)->secondStart.toString();

    QCOMPARE(selectionFormula(choices), u"{ClientesTabla.ZonaCodigo} in '0000000001' to '9999999999'"_s);
}

void SelectionFormulaTest::oneDayGivesAListOfOneDateWithoutComma()
{
    FormulaChoices choices = choicesOf(2);
    choices.isDatesPageUp = true;
    choices.date2 = choices.date1;

    QCOMPARE(selectionFormula(choices), u"{ALBARANESTabla.ALBARANFecha} in [\"01/03/2024\"]"_s);
}

void SelectionFormulaTest::listOfDatesSpansTheYearEnd()
{
    QCOMPARE(dateList(QDate(2023, 12, 30), QDate(2024, 1, 1)),
             u"\"30/12/2023\", \"31/12/2023\", \"01/01/2024\""_s);
}

void SelectionFormulaTest::listLongerThan366DaysKeepsItsLastComma()
{
    const QString list = dateList(QDate(2023, 1, 1), QDate(2024, 1, 2));

    QCOMPARE(list.count(u','), 366);
    QVERIFY(list.endsWith(u"\"01/01/2024\", "_s));
    QCOMPARE(dateList(QDate(2023, 1, 1), QDate(2024, 1, 1)).count(u','), 365);
}

void SelectionFormulaTest::reversedDatesKeepTheLastComma()
{
    QVERIFY(dateList(kMarch31, kMarch1).endsWith(u", "_s));
}

void SelectionFormulaTest::guaranteeInvoicesPutTheirPrefixBeforeBothForms()
{
    FormulaChoices choices = choicesOf(1);
    choices.reportFile = u"C:\\Programa\\Factura garantias.rpt"_s;
    const QString prefix =
        u"{extendido.extendocumento} ='FACT' OR ISNULL({extendido.extendocumento})= TRUE AND "_s;

    QVERIFY(selectionFormula(choices)->startsWith(prefix + u"{FacturaTabla"_s));
    choices.isDatesPageUp = true;
    QVERIFY(selectionFormula(choices)->startsWith(prefix + u"DateVar FECHA"_s));
}

void SelectionFormulaTest::guaranteeOrdersCompareTheFileWithoutItsExtension()
{
    FormulaChoices choices = choicesOf(3);
    choices.reportFile = u"C:\\Programa\\Pedido garantias.rpt  "_s;
    QVERIFY(selectionFormula(choices)->startsWith(u"{extendido.extendocumento} ='PEDI' AND {PEDIDOSTabla"_s));

    choices.reportFile = u"rpt"_s;
    QVERIFY(selectionFormula(choices)->startsWith(u"{PEDIDOSTabla"_s));
}

void SelectionFormulaTest::boxesOf726ThatAreNoNumbersLeaveEmptyAndZero()
{
    FormulaChoices choices = choicesOf(726);
    choices.text1 = u"uno"_s;
    choices.text2 = u"99999"_s; // does not fit 16 bits

    QVERIFY(selectionFormula(choices)->endsWith(u"val({facturatabla.facturanumrepre}) in  to 0"_s));
    choices.text1 = u"0001"_s;
    choices.text2 = u"9999"_s;
    QVERIFY(selectionFormula(choices)->endsWith(u" in 1 to 9999"_s));
}

void SelectionFormulaTest::chainedReceiptSelectsItsNumber()
{
    FormulaChoices choices = choicesOf(333);
    choices.isChainedReceipt = true;
    choices.chainedReceipt = u"7"_s;

    QCOMPARE(selectionFormula(choices), u"val({ACUCARTERATABLA.ACUCARTERANUMRECIBO}) in 7 to 7"_s);
}

void SelectionFormulaTest::chainedReceiptThatCouldNotBeFoundHasAnEmptyFormula()
{
    FormulaChoices choices = choicesOf(333);
    choices.isChainedReceipt = true;

    QCOMPARE(selectionFormula(choices), QString());
}

void SelectionFormulaTest::numberOutsideTheCatalogueHasNoFormula()
{
    QVERIFY(!selectionFormula(choicesOf(99)).has_value());
    QVERIFY(!selectionFormula(choicesOf(725.5)).has_value());
}

void SelectionFormulaTest::report8881HasAPlaceButNoFormula()
{
    QVERIFY(reportRow(8881) != nullptr);
    QVERIFY(!selectionFormula(choicesOf(8881)).has_value());
}

void SelectionFormulaTest::accountingRowsFillFromTheirParameters()
{
    AccountingParameters parameters;
    parameters.OPCIONES = 1;
    parameters.DesdeFecha = kMarch1;
    parameters.HastaFecha = kMarch31;
    parameters.DesdeAsiento = u"000001"_s;
    parameters.HastaAsiento = u"000099"_s;
    parameters.NCuenta = u"4300"_s;
    FormulaChoices choices = choicesOf(5001);
    choices.accounting = parameters;

    QCOMPARE(selectionFormula(choices),
             u"{BALANCES.NATURALEZA} in '21' to '22' AND {BALANCES.DESCRIP}<>'DEBE' AND "
             "{BALANCES.DESCRIP}<>'HABER'"_s);
    choices.report = 5002;
    QVERIFY(selectionFormula(choices)->endsWith(
        u"DateTime (2024 , 03 , 01,00, 00, 00) to DateTime (2024 , 03 , 31,00, 00, 00) AND "
        "{lineaapunte.numeroasiento}>='000001' and {lineaapunte.numeroasiento}<='000099' AND "
        "{lineaapunte.cuentaasiento}={cta.numcuenta}"_s));
    choices.report = 5003;
    QCOMPARE(selectionFormula(choices), u"mid({lineaapunte.cuentaasiento},1,4) in '4300'"_s);
}

void SelectionFormulaTest::balanceWithAnotherOptionIsEmpty()
{
    FormulaChoices choices = choicesOf(5001);
    choices.accounting = AccountingParameters{};
    choices.accounting->OPCIONES = 2;

    QCOMPARE(selectionFormula(choices), QString());
}

void SelectionFormulaTest::lookupFormulaPassesAsItStands()
{
    FormulaChoices choices = choicesOf(1099);
    choices.lookupFormula = u"{clientescyctabla.clientescycarticulo} in [\"CAL01\"]"_s;

    QCOMPARE(selectionFormula(choices), choices.lookupFormula);
}

void SelectionFormulaTest::catalogueHasEachNumberOnce()
{
    QCOMPARE(catalogue().size(), std::size_t(21));
    for (const ReportRow& row : catalogue())
        QCOMPARE(reportRow(row.number), &row);
}

QTEST_GUILESS_MAIN(SelectionFormulaTest)
#include "tst_selectionformula.moc"
