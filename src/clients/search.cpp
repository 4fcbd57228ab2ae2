// SPDX-License-Identifier: GPL-3.0-or-later
#include "clients/climant.h"

#include "ui_climant.h"

#include "lookup/lisem.h"
#include "platform/core/regime.h"
#include "platform/system/messagebox.h"
#include "platform/system/process.h"
#include "platform/text/textfunctions.h"
#include "platform/window/focusrules.h"
#include "platform/window/formhelpers.h"
#include "shell/globalsat.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using platform::asText;
using platform::attempt;
using platform::holds;
using platform::dao::Recordset;

namespace {

constexpr int kPostalCodeKind = 3;
constexpr int kZoneKind = 9;
constexpr int kClientTypeKind = 15;
constexpr int kRepresentativeKind = 17;
constexpr int kClientKind = 20;

bool isDigit(QChar character)
{
    return character >= u'0' && character <= u'9';
}

bool isEnter(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

/// Shows the lookup of a kind under the busy pointer, which the caller sets back after looking at the result.
void lookUp(QWidget* form, int kind)
{
    attempt([&] { TIPOBUSQUEDA = kind; });
    attempt([&] { platform::setMousePointer(form, platform::kBusyPointer); });
    attempt([&] { MuestraLISEM(form); });
}

void restorePointer(QWidget* form)
{
    attempt([&] { platform::setMousePointer(form, platform::kDefaultPointer); });
}

} // namespace

void climant::proximocliente()
{
    attempt([] { RSCLIENTES.setIndex(u"CliCodigoIndice"_s); });
    attempt([] { RSCLIENTES.MoveFirst(); });
    attempt([] { RSCLIENTES.MoveLast(); });
    QString last;
    bool isNumeric = false; // stays so without a last record
    attempt([&] {
        last = asText(RSCLIENTES[u"CliCodigo"].Value());
        isNumeric = std::all_of(last.cbegin(), last.cend(), isDigit);
    });
    double next = 0;
    if (isNumeric)
        next = platform::Val(last) + 1;
    else
        attempt([&] { next = double(RSCLIENTES.RecordCount()) + 1; });
    attempt([&] { ui->Text49->setText(platform::CStr(next)); });
    attempt([&] { platform::setFocusTo(ui->Text51); });
}

void climant::Text14_KeyPress(int key)
{
    if (isEnter(key))
        searchTelephone();
}

void climant::searchTelephone()
{
    if (platform::Trim(ui->Text14->text()).isEmpty())
        return;
    Recordset rows;
    platform::clearError();
    attempt([&] {
        rows = BDTELEFONOS.OpenRecordset(u"SELECT TELECODIGO From TELEFON WHERE TELECODIGOEMPRESA='"_s +
                                             NUMEMPRESA + u"' AND TELETELEFONO='"_s + ui->Text14->text() +
                                             u"'"_s,
                                         platform::dao::dbOpenDynaset);
    });
    if (platform::lastError() != 0)
        return;
    if (holds([&] { return rows.RecordCount() > 0; })) {
        attempt([&] { ui->Text49->setText(asText(rows[u"TELECODIGO"].Value())); });
        attempt([&] { RESULTADOBUSQUEDA = asText(rows[u"TELECODIGO"].Value()); });
        attempt([&] { LeerClientes(); });
    } else {
        attempt([] {
            platform::messageBox({u"El clientes a buscar no existe en la base de datos"_s,
                                  u"Orvane.- Servicio de asistencia técnica"_s,
                                  platform::MessageIcon::Information});
        });
    }
    attempt([&] { rows.Close(); });
}

/// Client.
void climant::Picture3_Click()
{
    lookUp(this, kClientKind);
    if (!RESULTADOBUSQUEDA.isEmpty()) {
        attempt([&] { limpiaclientes(); });
        attempt([&] { ui->Text49->setText(RESULTADOBUSQUEDA); });
        attempt([&] { ui->vsFlexGrid4->setRedraw(false); });
        attempt([&] { LeerClientes(); });
        attempt([&] { ui->vsFlexGrid4->setRedraw(true); });
        attempt([&] { platform::setFocusTo(ui->Text51); });
    }
    restorePointer(this);
}

/// Representative.
void climant::Picture2_Click()
{
    lookUp(this, kRepresentativeKind);
    if (!RESULTADOBUSQUEDA.isEmpty()) {
        attempt([&] { ui->Text20->setText(RESULTADOBUSQUEDA); });
        attempt([&] { LEERREPRESENTANTES(); });
        attempt([&] { platform::setFocusTo(ui->Text3); });
    }
    restorePointer(this);
    attempt([] { RESULTADOBUSQUEDA.clear(); });
}

/// Client type.
void climant::Picture5_Click()
{
    lookUp(this, kClientTypeKind);
    if (!RESULTADOBUSQUEDA.isEmpty()) {
        attempt([&] { ui->Text27->setText(RESULTADOBUSQUEDA); });
        attempt([&] { LEERTIPCLIENTES(); });
        attempt([&] { platform::setFocusTo(ui->Text26); });
    }
    restorePointer(this);
    attempt([] { RESULTADOBUSQUEDA.clear(); });
}

/// Postal code: the choice stays in a variable of the lookup's own, so nothing reaches the fields.
void climant::Picture1_Click()
{
    lookUp(this, kPostalCodeKind);
    restorePointer(this);
}

/// Zone: as with the postal code; here the pointer comes before the kind.
void climant::Picture4_Click()
{
    attempt([&] { platform::setMousePointer(this, platform::kBusyPointer); });
    attempt([] { TIPOBUSQUEDA = kZoneKind; });
    attempt([&] { MuestraLISEM(this); });
    restorePointer(this);
}

void climant::sendMail()
{
    const QString address = platform::Trim(ui->Text7->text());
    if (!address.isEmpty())
        attempt([&] { platform::openMail(address); });
}
