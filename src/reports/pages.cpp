// SPDX-License-Identifier: GPL-3.0-or-later
#include "lookup/lisem.h"
#include "platform/core/regime.h"
#include "platform/text/textfunctions.h"
#include "platform/window/formhelpers.h"
#include "reports/catalogue.h"
#include "reports/lista.h"
#include "shell/globalsat.h"
#include "ui_lista.h"

using namespace platform;
using namespace Qt::StringLiterals;

namespace reports {

void LISTA::turnToDates()
{
    const ReportRow* row = reportRow(NUMINFORME);
    if (row && row->pages == RangePages::Number)
        return;
    ui->Picture5->show();
    ui->Picture4->hide();
    ui->Picture6->show();
    ui->Picture3->hide();
    ui->DTPicker1->setFocus();
}

void LISTA::turnToNumbers()
{
    ui->Picture4->show();
    ui->Picture5->hide();
    ui->Picture3->show();
    ui->Picture6->hide();
    ui->Text1->setFocus();
}

bool LISTA::pick()
{
    const ReportRow* row = reportRow(NUMINFORME);
    if (!row || row->lookupKind == 0)
        return false;
    TIPOBUSQUEDA = row->lookupKind;
    attempt([&] { MuestraLISEM(this); });
    return !RESULTADOBUSQUEDA.isEmpty();
}

void LISTA::pickFirst()
{
    attempt([&] { setMousePointer(this, kBusyPointer); });
    if (pick()) {
        attempt([&] { ui->Text1->setText(RESULTADOBUSQUEDA); });
        attempt([&] { ui->Text2->setText(RESULTADOBUSQUEDA); });
        attempt([&] { ui->Text2->setFocus(); });
        RESULTADOBUSQUEDA = QString();
        TIPOBUSQUEDA = 0;
    }
    attempt([&] { setMousePointer(this, kDefaultPointer); });
}

void LISTA::pickSecond()
{
    attempt([&] { setMousePointer(this, kBusyPointer); });
    if (pick()) {
        attempt([&] { ui->Text2->setText(RESULTADOBUSQUEDA); });
        RESULTADOBUSQUEDA = QString();
        TIPOBUSQUEDA = 0;
    }
    attempt([&] { setMousePointer(this, kDefaultPointer); });
}

void LISTA::checkRange()
{
    const double from = Val(ui->Text1->text());
    const double to = Val(ui->Text2->text());
    if (to >= from)
        return;
    attempt([&] { ui->Text1->setText(CStr(to)); });
    attempt([&] { ui->Text2->setText(CStr(from)); });
}

void LISTA::clearBlankBox(int box)
{
    TextBox* text = box == 1 ? ui->Text1 : ui->Text2;
    if (Trim(text->text()).isEmpty())
        attempt([&] { text->setText({}); });
}

} // namespace reports
