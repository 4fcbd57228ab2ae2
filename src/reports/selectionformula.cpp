// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/selectionformula.h"

#include "platform/core/regime.h"
#include "platform/text/textfunctions.h"
#include "reports/catalogue.h"

#include <algorithm>
#include <array>

using namespace platform;
using namespace Qt::StringLiterals;

namespace reports {

namespace {

// No part of the system provides a sales channel or a bank.
const QString kCanal;
const QString kBanco;

struct DocumentColumns
{
    int report;
    QStringView number;
    QStringView canal;
    QStringView date;
};

constexpr std::array kDocuments{
    DocumentColumns{kInvoices, u"{FacturaTabla.FACTURANumero}", u"{FacturaTabla.FACTURACanal}",
                    u"{FacturaTabla.FACTURAFecha}"},
    DocumentColumns{kDeliveryNotes, u"{AlbaranesTabla.ALBARANNumero}", u"{AlbaranesTabla.ALBARANCanal}",
                    u"{ALBARANESTabla.ALBARANFecha}"},
    DocumentColumns{kOrders, u"{PEDIDOSTabla.PEDIDOSNumero}", u"{PEDIDOSTabla.PEDIDOSCanal}",
                    u"{PEDIDOSTabla.PEDIDOSFecha}"},
    DocumentColumns{kBudgets, u"{PresupuestoTabla.PRECOMNumero}", u"{PresupuestoTabla.PRECOMCanal}",
                    u"{PresupuestoTabla.PRECOMFecha}"},
    DocumentColumns{kPurchaseOrders, u"{ComprasPedidosTabla.ComprasPedidosNumero}",
                    u"{ComprasPedidosTabla.ComprasPedidosCanal}",
                    u"{COMPRASPEDIDOSTabla.COMPRASPEDIDOSFecha}"},
    DocumentColumns{kPurchaseDeliveryNotes, u"{ComprasAlbaranesTabla.COMPRASALBARANNumero}",
                    u"{ComprasAlbaranesTabla.COMPRASALBARANCanal}",
                    u"{COMPRASAlbaranesTabla.COMPRASAlbaranFecha}"},
    DocumentColumns{kPurchaseInvoices, u"{ComprasFacturaTabla.COMPRASFacturaNumero}",
                    u"{ComprasFacturaTabla.COMPRASFacturaCanal}",
                    u"{ComprasFacturaTabla.COMPRASFacturaFecha}"},
};

/// Day, month and year of a date as texts; empty ones where there is no date.
struct DateParts
{
    QString dia;
    QString mes;
    QString any;
};

DateParts dateParts(QDate date)
{
    if (!date.isValid())
        return {};
    const QString text = FormatDate(date);
    return {Mid(text, 1, 2), Mid(text, 4, 2), Mid(text, 7, 4)};
}

/// Rebuilds the date from a text column "dd/mm/yyyy" before the test that follows it.
QString dateHeader(QStringView column)
{
    const QString campo = column.toString();
    return u"DateVar FECHA;NumberVar Dia;NumberVar Mes;NumberVar Any;Dia:= val(mid("_s + campo +
           u",1,2)); Mes:= val(mid("_s + campo + u",4,2));Any:= val(mid("_s + campo + u",7,4));"_s;
}

QString wideDateTime(const DateParts& parts)
{
    return u"DateTime ("_s + parts.any + u" , "_s + parts.mes + u" , "_s + parts.dia + u",00, 00, 00)"_s;
}

QString narrowDateTime(const DateParts& parts)
{
    return parts.any + u","_s + parts.mes + u","_s + parts.dia;
}

QString wideDateTest(const DateParts& from, const DateParts& to)
{
    return u"fecha:= Date (Any,Mes ,Dia);fecha in "_s + wideDateTime(from) + u" to "_s + wideDateTime(to);
}

QString documentPrefix(const FormulaChoices& choices)
{
    if (choices.report == kInvoices &&
        choices.reportFile == choices.programFolder + u"\\Factura garantias.rpt"_s)
        return u"{extendido.extendocumento} ='FACT' OR ISNULL({extendido.extendocumento})= TRUE AND "_s;
    if (choices.report == kOrders) {
        const QString file = Trim(choices.reportFile);
        // A file name too short for an extension can't be cut: no prefix then.
        if (file.size() >= 4 &&
            Left(file, file.size() - 4) == choices.programFolder + u"\\Pedido garantias"_s)
            return u"{extendido.extendocumento} ='PEDI' AND "_s;
    }
    return {};
}

QString documents(const FormulaChoices& choices)
{
    const auto* columns = std::find_if(kDocuments.begin(), kDocuments.end(), [&](const DocumentColumns& row) {
        return static_cast<double>(row.report) == choices.report;
    });
    const QString prefix = documentPrefix(choices);
    if (!choices.isDatesPageUp)
        return prefix + columns->number.toString() + u" in 0 to 0 AND "_s + columns->canal.toString() +
               u" = '"_s + kCanal + u"'"_s;
    if (choices.report == kInvoices)
        return prefix + dateHeader(columns->date) +
               wideDateTest(dateParts(choices.date1), dateParts(choices.date2));
    return prefix + columns->date.toString() + u" in ["_s + dateList(choices.date1, choices.date2) + u"]"_s;
}

QString portfolioByDueDate(const FormulaChoices& choices)
{
    const DateParts from = dateParts(choices.date1);
    const DateParts to = dateParts(choices.date2);
    return u"{ACUCARTERATABLA.ACUCARTERAVENCIMIENTO} in DateTime("_s + narrowDateTime(from) +
           u",00,00,00) to DateTime ("_s + narrowDateTime(to) +
           u",00,00,00) and  {ACUCARTERATABLA.ACUCARTERACODIGO} in '"_s + Trim(choices.text1) + u"' to '"_s +
           Trim(choices.text2) + u"' AND ISNULL({ACUCARTERATABLA.ACUCARTERARNUMREMESAS}) = True"_s;
}

QString receipts(const FormulaChoices& choices)
{
    const auto numbers = [](const QString& from, const QString& to) {
        return u"val({ACUCARTERATABLA.ACUCARTERANUMRECIBO}) in "_s + from + u" to "_s + to;
    };
    if (choices.isDatesPageUp)
        return u"{ACUCARTERATABLA.ACUCARTERAFECHARECIBO} in DateTime ("_s +
               narrowDateTime(dateParts(choices.date1)) + u") to DateTime ("_s +
               narrowDateTime(dateParts(choices.date2)) + u")"_s;
    if (!choices.isChainedReceipt)
        return numbers(choices.text1, choices.text2);
    return choices.chainedReceipt ? numbers(*choices.chainedReceipt, *choices.chainedReceipt) : QString();
}

QString portfolio(const FormulaChoices& choices)
{
    if (choices.report == kPortfolioByDueDate)
        return portfolioByDueDate(choices);
    if (choices.report == kReceipts)
        return receipts(choices);
    if (choices.report == kRemittanceByNumber)
        return u"val({ACUCARTERATABLA.ACUCARTERARNUMREMESAS}) in "_s + choices.text1 + u" to "_s +
               choices.text2 + u" AND {ACUCARTERATABLA.ACUCARTERABANCO}='"_s + kBanco + u"'"_s;
    return u"{ACUCARTERATABLA.ACUCARTERABANCO} in '"_s + choices.text1 + u"' to '"_s + choices.text2 +
           u"' AND {REMESAS.REMESAFECHA} in DateTime ("_s + narrowDateTime(dateParts(choices.date1)) +
           u") to DateTime ("_s + narrowDateTime(dateParts(choices.date2)) + u")"_s;
}

QString masterRanges(const FormulaChoices& choices)
{
    const auto range = [](QStringView column, const QString& from, const QString& to) {
        return column.toString() + u" in '"_s + from + u"' to '"_s + to + u"'"_s;
    };
    if (choices.report == kClientsByType)
        return range(u"{ClientesTabla.TipoClienteCodigo}", u"0001"_s, u"9999"_s);
    const QStringView column = choices.report == kMaintenanceNotes
                                   ? QStringView(u"{ClientesTabla.ZonaCodigo}")
                                   : QStringView(u"{ClientesTabla.CliCodigo}");
    return range(column, Trim(choices.text1), Trim(choices.text2));
}

QString commissions(const FormulaChoices& choices)
{
    const DateParts from = dateParts(choices.date1);
    const DateParts to = dateParts(choices.date2);
    // A box that is no 16-bit number leaves its place as it started: the first empty, the second 0.
    QString numero1;
    QString numero2 = u"0"_s;
    attempt([&] { numero1 = CStr(CInt(choices.text1)); });
    attempt([&] { numero2 = CStr(CInt(choices.text2)); });
    return dateHeader(u"{FacturaTabla.FACTURAFecha}") + u"fecha:= Date(Any,Mes ,Dia);fecha in Date("_s +
           from.any + u" , "_s + from.mes + u" , "_s + from.dia + u") to Date("_s + to.any + u" , "_s +
           to.mes + u" , "_s + to.dia +
           u")And {COMISIONESTAB.COMISIONESDOCUMENTO}='FACT' and val({facturatabla.facturanumrepre}) in "_s +
           numero1 + u" to "_s + numero2;
}

QString journal(const std::optional<AccountingParameters>& accounting)
{
    const AccountingParameters values = accounting.value_or(AccountingParameters{});
    QString formula = dateHeader(u"{lineaapunte.fechaasiento}") +
                      wideDateTest(dateParts(values.DesdeFecha), dateParts(values.HastaFecha));
    if (accounting)
        formula += u" AND {lineaapunte.numeroasiento}>='"_s + values.DesdeAsiento +
                   u"' and {lineaapunte.numeroasiento}<='"_s + values.HastaAsiento +
                   u"' AND {lineaapunte.cuentaasiento}={cta.numcuenta}"_s;
    return formula;
}

QString accountingRow(const FormulaChoices& choices)
{
    if (choices.report == kJournal)
        return journal(choices.accounting);
    if (choices.report == kLedger) {
        if (!choices.accounting)
            return {};
        const QString account = choices.accounting->NCuenta;
        return u"mid({lineaapunte.cuentaasiento},1,"_s + QString::number(account.size()) + u") in '"_s +
               account + u"'"_s;
    }
    // Without a parameter object the test of the option fails, and a failed test counts as passed.
    const int option = choices.accounting ? choices.accounting->OPCIONES : 0;
    if (option != 0 && option != 1)
        return {};
    return u"{BALANCES.NATURALEZA} in '21' to '22' AND "_s +
           (option == 0 ? u"length({BALANCES.CTA})=0 AND "_s : QString()) +
           u"{BALANCES.DESCRIP}<>'DEBE' AND {BALANCES.DESCRIP}<>'HABER'"_s;
}

} // namespace

std::optional<QString> selectionFormula(const FormulaChoices& choices)
{
    const ReportRow* row = reportRow(choices.report);
    if (!row)
        return std::nullopt;
    switch (row->family) {
    case FormulaFamily::Nothing:
        return std::nullopt;
    case FormulaFamily::Documents:
        return documents(choices);
    case FormulaFamily::Portfolio:
        return portfolio(choices);
    case FormulaFamily::MasterRanges:
        return masterRanges(choices);
    case FormulaFamily::Month:
        return u"Mid ({CONS.FEINICIO},4,2) = \""_s + Trim(choices.month) + u"\""_s;
    case FormulaFamily::Commissions:
        return commissions(choices);
    case FormulaFamily::Accounting:
        return accountingRow(choices);
    case FormulaFamily::Lookup:
        return choices.lookupFormula;
    }
    return std::nullopt;
}

QString dateList(QDate first, QDate last)
{
    const QString end = FormatDate(last);
    QString list;
    for (int day = 0; day <= 365; ++day) {
        const QString text = FormatDate(first.addDays(day));
        if (text == end)
            return list + u"\""_s + end + u"\""_s;
        list += u"\""_s + text + u"\", "_s;
    }
    return list;
}

} // namespace reports
