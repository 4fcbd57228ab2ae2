// SPDX-License-Identifier: GPL-3.0-or-later
#include "clients/climant.h"

#include "ui_climant.h"

#include "clients/linetables.h"
#include "lookup/lisem.h"
#include "platform/core/regime.h"
#include "platform/text/textfunctions.h"
#include "platform/window/formhelpers.h"
#include "shell/globalsat.h"

#include <QMenu>

using namespace Qt::StringLiterals;
using platform::attempt;
using platform::FlexGrid;

namespace {

constexpr int kPostalCodeKind = 3;

} // namespace

LineTable shippingLines(FlexGrid& vsFlexGrid1)
{
    return {RSENVIOS, u"CLIEVNIOSINDICE", vsFlexGrid1, kShippingColumns, 0};
}

LineTable bankLines(FlexGrid& vsFlexGrid2)
{
    return {RSBANCOS, u"CLIBANCOSINDICE", vsFlexGrid2, kBankColumns, 4};
}

LineTable telephoneLines(FlexGrid& vsFlexGrid4)
{
    return {RSTELEFONOS, u"TELEINDICE", vsFlexGrid4, kTelephoneColumns, 0};
}

void climant::DIBUJAREJAS()
{
    attempt([&] { drawGridColumns(*ui->vsFlexGrid1, kShippingGrid); });
    attempt([&] { drawGridColumns(*ui->vsFlexGrid2, kBankGrid); });
    attempt([&] { drawConceptGrid(); });
    attempt([&] { drawGridColumns(*ui->vsFlexGrid4, kTelephoneGrid); });
    attempt([&] { ui->consultas->drawGrid(); });
}

void climant::keepOneTick(FlexGrid& grid, int row, int col, int tickCol)
{
    if (col != tickCol || !grid.isTickedAt(row, col))
        return;
    for (int other = 1; other < grid.rows(); ++other) {
        attempt([&] { grid.setRow(other); });
        attempt([&] { grid.setCol(tickCol); });
        attempt([&] { grid.setTicked(false); });
    }
    attempt([&] { grid.setRow(row); });
    attempt([&] { grid.setTicked(true); });
}

void climant::vsFlexGrid1_CellButtonClick(int col)
{
    if (!ui->vsFlexGrid1->heading(col).contains(u"C. Postal"))
        return;
    TIPOBUSQUEDA = kPostalCodeKind;
    platform::setMousePointer(this, platform::kBusyPointer);
    MuestraLISEM(this);
    // The choice stays in a variable of the lookup's own, so nothing reaches the cell.
    ui->SSTab1->setTab(kConceptsPage);
    ui->SSTab1->setTab(kAdditionalPage);
    platform::setMousePointer(this, platform::kDefaultPointer);
}

void climant::vsFlexGrid1_MouseDown(Qt::MouseButton button, QPoint place)
{
    LINEAENVIOS = 0;
    LINEABANCOS = 0;
    if (button != Qt::RightButton)
        return;
    LINEAENVIOS = 1;
    showLineMenu(button, place);
}

void climant::vsFlexGrid2_MouseDown(Qt::MouseButton button, QPoint place)
{
    LINEAENVIOS = 0;
    LINEABANCOS = 0;
    if (button != Qt::RightButton)
        return;
    LINEABANCOS = 1;
    showLineMenu(button, place);
}

void climant::showLineMenu(Qt::MouseButton button, QPoint place)
{
    if (button == Qt::RightButton)
        attempt([&] { platform::popupMenu(m_menucli, place); });
}

void climant::eliminar_Click()
{
    switch (ui->SSTab1->tab()) {
    case kIdentificationPage:
        attempt([&] { BORRAUNALINEATELEFON(); });
        break;
    case kAdditionalPage:
        if (LINEAENVIOS == 1)
            attempt([&] { borraunalinea(); });
        if (LINEABANCOS == 1)
            attempt([&] { BORRAUNALINEABANCOS(); });
        break;
    case kConceptsPage:
        attempt([&] { BORRAUNALINEACYC(); });
        break;
    default:
        break;
    }
}

void climant::borraunalinea()
{
    const std::array fixed{FixedColumn{u"CLIENVICODIGO", platform::Trim(ui->Text49->text())}};
    deleteLine(shippingLines(*ui->vsFlexGrid1), fixed);
}

void climant::BORRAUNALINEABANCOS()
{
    const std::array fixed{FixedColumn{u"CLIBANCOSCODIGO", platform::Trim(ui->Text49->text())}};
    deleteLine(bankLines(*ui->vsFlexGrid2), fixed);
}

void climant::BORRAUNALINEATELEFON()
{
    const std::array fixed{FixedColumn{u"TELECODIGOEMPRESA", platform::Trim(NUMEMPRESA)},
                           FixedColumn{u"TELECODIGO", platform::Trim(ui->Text49->text())}};
    deleteLine(telephoneLines(*ui->vsFlexGrid4), fixed);
}
