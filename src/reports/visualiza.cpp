// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/core/regime.h"
#include "platform/dao/dao.h"
#include "platform/system/paths.h"
#include "platform/text/textfunctions.h"
#include "reports/catalogue.h"
#include "reports/enginetext.h"
#include "reports/lista.h"
#include "shell/globalsat.h"
#include "ui_lista.h"

#include <QCoreApplication>

using namespace platform;
using namespace Qt::StringLiterals;

namespace reports {

namespace {

/// Number of the receipt that belongs to an invoice. Nothing in this system opens the invoices' database, so
/// the query fails and there is none; the failure itself is what decides.
std::optional<QString> receiptOfInvoice(const QString& invoice)
{
    dao::Database invoices;
    dao::Recordset lines;
    const QString query =
        u"SELECT FACTURASLineas.FACTURAS2DocuVa From FACTURASLineas WHERE (((FACTURASLineas.FACTURAS2Numero)="_s +
        invoice + u") AND ((FACTURASLineas.FACTURAS2Linea)=1) AND ((FACTURASLineas.FACTURAS2Canal)=''))"_s;
    std::optional<QString> receipt;
    clearError();
    attempt([&] { lines = invoices.OpenRecordset(query, dao::dbOpenDynaset); });
    if (lastError() == 0)
        attempt([&] { receipt = asText(lines[0].Value()); });
    attempt([&] { lines.Close(); });
    return receipt;
}

} // namespace

FormulaChoices LISTA::choices()
{
    FormulaChoices choices;
    choices.report = NUMINFORME;
    choices.reportFile = FICHEROINFORME;
    choices.programFolder = programPath(QCoreApplication::applicationDirPath());
    choices.text1 = ui->Text1->text();
    choices.text2 = ui->Text2->text();
    choices.date1 = ui->DTPicker1->date();
    choices.date2 = ui->DTPicker2->date();
    choices.isDatesPageUp = !ui->Picture6->isHidden();
    choices.month = ui->Combo2->text();
    choices.lookupFormula = FORMULABUSQUEDA;
    choices.isChainedReceipt = RECIBOENCADENADO == 1;
    if (NUMINFORME == kReceipts && choices.isChainedReceipt && !choices.isDatesPageUp) {
        choices.chainedReceipt = receiptOfInvoice(CStr(Val(choices.text1)));
        RECIBOENCADENADO = 0;
    }
    return choices;
}

void LISTA::VISUALIZA(PEJob job)
{
    std::optional<QString> formula;
    attempt([&] { formula = selectionFormula(choices()); });
    if (!formula) {
        FORMULAINFORME = QString();
        return;
    }
    if (NUMINFORME == kCommissions)
        TITULOINFORME = u"Liquidación de comisiones"_s;
    // A row with a formula ends it with a zero of its own; the call adds another. The engine reads up to the
    // first.
    if (!formula->isEmpty())
        *formula += QChar(u'\0');
    FORMULAINFORME = *formula + QChar(u'\0');
    attempt([&] { PESetGroupSelectionFormula(job, engineText(FORMULAINFORME)); });
}

} // namespace reports
