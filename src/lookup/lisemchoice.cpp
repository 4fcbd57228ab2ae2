// SPDX-License-Identifier: GPL-3.0-or-later

// What leaves the window: the code of the row chosen, or the formula of the rows ticked.

#include "lookup/lisemwindow.h"

#include "ui_lisem.h"

#include "lookup/buscar.h"
#include "platform/core/regime.h"
#include "platform/text/textfunctions.h"
#include "shell/globalsat.h"

using namespace Qt::StringLiterals;
using platform::attempt;
using platform::dao::Recordset;

namespace {

constexpr int kCodeColumn = 0;
constexpr int kTickedCodeColumn = 1; // behind the column of ticks

/// The recordset that a choice sets the index of. One that this program doesn't have is unbound, and setting
/// it fails.
Recordset& recordsetOf(lookup::IndexTarget target)
{
    static Recordset unbound;
    switch (target) {
    case lookup::IndexTarget::Postal:
        return RSPOSTAL;
    case lookup::IndexTarget::Zones:
        return RSZONAS;
    case lookup::IndexTarget::Articles:
        return RSARTICULOS;
    case lookup::IndexTarget::Types:
        return RSTIPOCLI;
    case lookup::IndexTarget::Representatives:
        return RSREPRESENTANTES;
    case lookup::IndexTarget::Clients:
        return RSCLIENTES;
    case lookup::IndexTarget::None:
        break;
    }
    return unbound;
}

QString quoted(const QString& text)
{
    return u'"' + text + u'"';
}

} // namespace

void LISEM::ELIGEFILA()
{
    if (TIPOBUSQUEDA == lookup::kArticlesToTick || ui->busi->row() == 0)
        return;
    if (const lookup::Choice* choice = lookup::choiceOf(TIPOBUSQUEDA)) {
        QString ownValue; // where the kinds end whose choice doesn't reach the caller
        QString& target = choice->reachesCaller ? RESULTADOBUSQUEDA : ownValue;
        if (choice->clearsFirst)
            target.clear();
        attempt([&] { ui->busi->setCol(kCodeColumn); });
        attempt([&] { target = platform::Trim(ui->busi->text()); });
        if (!choice->index.isEmpty())
            attempt([&] { recordsetOf(choice->on).setIndex(choice->index.toString()); });
    }
    unload();
}

/// "&Salir". Skip mode.
void LISEM::leave()
{
    FORMULABUSQUEDA.clear();
    if (TIPOBUSQUEDA == lookup::kArticlesToTick)
        FORMULABUSQUEDA = tickedFormula();
    unload();
}

bool LISEM::isChecked(int row) const
{
    return ui->busi->column(kCodeColumn).kind == platform::CellKind::Boolean &&
           ui->busi->isTickedAt(row, kCodeColumn);
}

/// The concepts, not ended, of the articles that are ticked.
QString LISEM::tickedFormula() const
{
    int last = 0;
    for (int row = 1; row < ui->busi->rows(); ++row) {
        if (isChecked(row))
            last = row;
    }
    QString formula = u"{clientescyctabla.clientescycarticulo} in ["_s;
    for (int row = 1; row <= last; ++row) {
        const QString code = ui->busi->textMatrix(row, kTickedCodeColumn);
        if (!isChecked(row) || code.isEmpty())
            continue;
        formula += quoted(platform::Trim(code));
        if (row != last)
            formula += u", "_s;
    }
    return formula + u"] and {clientescyctabla.clientescycfecbaja} in ["_s + quoted({}) + u", "_s +
           quoted(u"  /  /"_s) + u']';
}

/// The tip of the grid is the text of the cell under the pointer. Skip mode.
void LISEM::showCellTip()
{
    attempt([&] {
        const QString text = ui->busi->textMatrix(ui->busi->mouseRow(), ui->busi->mouseCol());
        // A tip that looks like markup would be shown as such.
        ui->busi->setToolTip(Qt::mightBeRichText(text) ? text.toHtmlEscaped() : text);
    });
}
