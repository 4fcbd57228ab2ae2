// SPDX-License-Identifier: GPL-3.0-or-later
#include "clients/climant.h"

#include "ui_climant.h"

#include "assistance/longitudes.h"
#include "platform/core/regime.h"
#include "platform/text/textfunctions.h"
#include "platform/window/focusrules.h"
#include "platform/window/formhelpers.h"
#include "shell/globalsat.h"

using namespace Qt::StringLiterals;
using platform::asText;
using platform::attempt;
using platform::holds;
using platform::TextBox;
using platform::dao::Recordset;

namespace {

constexpr int kPostalCodeWidth = 5;

/// Digits of an account. Set by nothing, so that the zero fill of a proposed account always fails.
constexpr int kAccountLength = 0;

/// A small catalogue and the pair of fields that it fills.
struct Catalogue
{
    Recordset& rows;
    QStringView index;
    QStringView codeColumn;
    QStringView descriptionColumn;
    TextBox& code;
    TextBox& description;
};

void loadDescription(const Catalogue& catalogue)
{
    attempt([&] { catalogue.rows.setIndex(catalogue.index.toString()); });
    attempt([&] { catalogue.rows.Seek(u"=", catalogue.code.text()); });
    if (holds([&] { return catalogue.rows.NoMatch(); })) {
        attempt([&] { catalogue.description.setText(QString()); });
        return;
    }
    // Never updated: the next positioning drops it.
    attempt([&] { catalogue.rows.Edit(); });
    attempt([&] { catalogue.code.setText(asText(catalogue.rows[catalogue.codeColumn].Value())); });
    attempt(
        [&] { catalogue.description.setText(asText(catalogue.rows[catalogue.descriptionColumn].Value())); });
}

bool isBlank(const TextBox& field)
{
    return platform::Trim(field.text()).isEmpty();
}

} // namespace

void climant::LEERTIPCLIENTES()
{
    loadDescription({RSTIPOCLI, u"TIPOINDICE", u"TIPOCODIGO", u"TIPODESCRIPCION", *ui->Text27, *ui->Text26});
}

void climant::LEERZONAS()
{
    loadDescription({RSZONAS, u"ZONASINDICE", u"ZONCODIGO", u"ZONDESCRIPCION", *ui->Text21, *ui->Text25});
}

/// As long as no store of representatives is open its failing test empties the description.
void climant::LEERREPRESENTANTES()
{
    loadDescription({RSREPRESENTANTES, u"REPINDICE", u"REPCODIGO", u"REPDESCRI", *ui->Text20, *ui->Text3});
}

/// The beginning that the rules of leaving a code field share.
void climant::fillWithZeros(TextBox& field)
{
    if (isBlank(field))
        return;
    attempt([&] { VALORLONGITUD = platform::Trim(field.text()); });
    attempt([&] { ANCHOLONGITUD = field.maxLength(); });
    attempt([] { AJUSTALONGITUD(); });
    attempt([&] { field.setText(RESULTADOLONGITUD); });
}

void climant::Text49_GotFocus()
{
    if (RESULTADOBUSQUEDA.isEmpty())
        limpiaclientes();
}

void climant::Text49_LostFocus()
{
    fillWithZeros(*ui->Text49);
    LeerClientes();
}

void climant::Text49_KeyPress(int key)
{
    if ((key != Qt::Key_Return && key != Qt::Key_Enter) || !isBlank(*ui->Text49))
        return;
    platform::setFocusTo(ui->Picture3);
    Picture3_Click();
}

void climant::Text51_GotFocus()
{
    if (ui->Text49->text().isEmpty())
        platform::setFocusTo(ui->Text49);
}

void climant::Text20_LostFocus()
{
    if (!isBlank(*ui->Text20)) {
        fillWithZeros(*ui->Text20);
        attempt([&] { RESULTADOBUSQUEDA = ui->Text20->text(); });
        attempt([&] { LEERREPRESENTANTES(); });
    }
    attempt([] { RESULTADOBUSQUEDA.clear(); });
}

void climant::Text21_LostFocus()
{
    fillWithZeros(*ui->Text21);
    attempt([&] { LEERZONAS(); });
}

void climant::Text27_LostFocus()
{
    if (isBlank(*ui->Text27))
        return;
    fillWithZeros(*ui->Text27);
    attempt([&] { LEERTIPCLIENTES(); });
}

/// Proposes the account of a client whose code is a number: 430 and its digits.
void climant::Text9_GotFocus()
{
    if (!isBlank(*ui->Text9))
        return;
    const double number = platform::Val(ui->Text49->text());
    if (number == 0)
        return;
    const QString digits = platform::CStr(number);
    QString zeros;
    attempt([&] { zeros = platform::String(kAccountLength - 3 - digits.size(), u'0'); });
    attempt([&] { ui->Text9->setText(u"430"_s + zeros + digits); });
}

/// Fills locality and province from the postal code. As long as no store of postal codes is open its failing
/// test empties them.
void climant::Text6_GotFocus()
{
    const QString postalCode = platform::Trim(ui->Text5->text());
    if (postalCode.isEmpty())
        return;
    attempt([&] { ui->Text5->setText(platform::Left(postalCode, kPostalCodeWidth)); });
    attempt([] { RSPOSTAL.setIndex(u"CPNU"_s); });
    attempt([&] { CPOSTALBUSCADO = postalCode; });
    attempt([&] { RSPOSTAL.Seek(u"=", postalCode); });
    if (holds([] { return RSPOSTAL.NoMatch(); })) {
        attempt([&] { ui->Text6->setText(QString()); });
        attempt([&] { ui->Text1->setText(QString()); });
        attempt([&] { platform::setFocusTo(ui->Text6); });
    } else {
        attempt([&] { ui->Text5->setText(platform::Left(postalCode, kPostalCodeWidth)); });
        attempt([&] { ui->Text6->setText(asText(RSPOSTAL[u"LOCALI"].Value())); });
        attempt([&] { ui->Text1->setText(asText(RSPOSTAL[u"LOPROVI"].Value())); });
        attempt([&] { platform::setFocusTo(ui->Text1); });
    }
    attempt([&] { platform::setMousePointer(this, platform::kDefaultPointer); });
}
