// SPDX-License-Identifier: GPL-3.0-or-later
#include "clients/climant.h"

#include "ui_climant.h"

#include "clients/elplan.h"
#include "clients/linetables.h"
#include "platform/core/regime.h"
#include "platform/dao/rowwalk.h"
#include "platform/text/textfunctions.h"
#include "platform/window/combolist.h"
#include "platform/window/focusrules.h"
#include "shell/globalsat.h"

using namespace Qt::StringLiterals;
using platform::asText;
using platform::attempt;
using platform::FlexGrid;
using platform::holds;
using platform::dao::Recordset;

namespace {

struct FieldColumn
{
    platform::TextBox* Ui_climant::*field;
    QStringView column;
};

/// Fields of one line in the order of reading. `Text60` (Notas) follows them.
constexpr std::array kReadFields{
    FieldColumn{&Ui_climant::Text49, u"CliCodigo"},           // Código
    FieldColumn{&Ui_climant::Text51, u"CliNombre"},           // Nombre
    FieldColumn{&Ui_climant::Text8, u"CliCif"},               // Cif:
    FieldColumn{&Ui_climant::Text9, u"CliPGC"},               // Cta. Contable
    FieldColumn{&Ui_climant::Text4, u"CliDireccion"},         // Dirección:
    FieldColumn{&Ui_climant::Text5, u"CliCodPostal"},         // Código Postal:
    FieldColumn{&Ui_climant::Text6, u"CliCodPostalLocali"},   // locality
    FieldColumn{&Ui_climant::Text1, u"CliCodPostalProvin"},   // Provincia
    FieldColumn{&Ui_climant::Text2, u"CliCodPostalPais"},     // Pais
    FieldColumn{&Ui_climant::Text7, u"CliEMail"},             // E-mail:
    FieldColumn{&Ui_climant::Text40, u"CliNomComercial"},     // Nom. Comer.
    FieldColumn{&Ui_climant::Text20, u"RepresentanteCodigo"}, // Representante:
    FieldColumn{&Ui_climant::Text3, u"RepresentanteDesc"},
    FieldColumn{&Ui_climant::Text21, u"ZonaCodigo"}, // Zona:
    FieldColumn{&Ui_climant::Text25, u"ZonaDesc"},
    FieldColumn{&Ui_climant::Text27, u"TipoClienteCodigo"}, // Tipo de Cliente:
    FieldColumn{&Ui_climant::Text26, u"TipoClienteDesc"},
};

/// The same fields in the order of writing.
constexpr std::array kWrittenFields{
    FieldColumn{&Ui_climant::Text49, u"CliCodigo"},
    FieldColumn{&Ui_climant::Text51, u"CliNombre"},
    FieldColumn{&Ui_climant::Text8, u"CliCif"},
    FieldColumn{&Ui_climant::Text9, u"CliPGC"},
    FieldColumn{&Ui_climant::Text4, u"CliDireccion"},
    FieldColumn{&Ui_climant::Text5, u"CliCodPostal"},
    FieldColumn{&Ui_climant::Text6, u"CliCodPostalLocali"},
    FieldColumn{&Ui_climant::Text1, u"CliCodPostalProvin"},
    FieldColumn{&Ui_climant::Text2, u"CliCodPostalPais"},
    FieldColumn{&Ui_climant::Text7, u"CliEMail"},
    FieldColumn{&Ui_climant::Text20, u"RepresentanteCodigo"},
    FieldColumn{&Ui_climant::Text3, u"RepresentanteDesc"},
    FieldColumn{&Ui_climant::Text21, u"ZonaCodigo"},
    FieldColumn{&Ui_climant::Text25, u"ZonaDesc"},
    FieldColumn{&Ui_climant::Text27, u"TipoClienteCodigo"},
    FieldColumn{&Ui_climant::Text26, u"TipoClienteDesc"},
    FieldColumn{&Ui_climant::Text40, u"CliNomComercial"},
};

/// Fields in the order in which the window is emptied; the consultation's number and `Text60` follow them.
constexpr std::array kEmptiedFields{
    &Ui_climant::Text49, &Ui_climant::Text51, &Ui_climant::Text8,  &Ui_climant::Text9,  &Ui_climant::Text4,
    &Ui_climant::Text5,  &Ui_climant::Text6,  &Ui_climant::Text1,  &Ui_climant::Text2,  &Ui_climant::Text7,
    &Ui_climant::Text20, &Ui_climant::Text3,  &Ui_climant::Text21, &Ui_climant::Text25, &Ui_climant::Text27,
    &Ui_climant::Text26, &Ui_climant::Text40,
};

constexpr std::array kLineGrids{&Ui_climant::vsFlexGrid1, &Ui_climant::vsFlexGrid2, &Ui_climant::vsFlexGrid3,
                                &Ui_climant::vsFlexGrid4};

/// Columns of check boxes that aren't on the window: the failed tests take the branch of a ticked box.
constexpr std::array<QStringView, 2> kAlwaysOne{u"AgruparAlbaranes", u"CliAplicarTasaPtoVerde"};

struct AccountField
{
    QString* variable;
    platform::TextBox* Ui_climant::*field;
    int width;
};

const std::array kAccountFields{
    AccountField{&CUENTANOMBRE, &Ui_climant::Text51, 35},
    AccountField{&CUENTADIRECCION, &Ui_climant::Text4, 35},
    AccountField{&CUENTACPOSTAL, &Ui_climant::Text5, 5},
    AccountField{&CUENTALOCALIDAD, &Ui_climant::Text6, 35},
    AccountField{&CUENTANIF, &Ui_climant::Text8, 10},
};

} // namespace

void climant::LeerClientes()
{
    if (!ui->Text49->text().isEmpty())
        attempt([&] { ui->SSTab1->setTabStop(true); });
    attempt([] { RSCLIENTES.setIndex(u"CliCodigoIndice"_s); });
    QString client;
    attempt([&] { client = platform::Trim(ui->Text49->text()); });
    attempt([&] { RSCLIENTES.Seek(u"=", client); });
    if (holds([] { return RSCLIENTES.NoMatch(); })) {
        fillArticleList();
        return;
    }
    // Never updated: the next positioning drops it.
    attempt([] { RSCLIENTES.Edit(); });
    readFields();
    readLines(shippingLines(*ui->vsFlexGrid1), u"CLIENVICODIGO", client);
    readLines(bankLines(*ui->vsFlexGrid2), u"CLIBANCOSCODIGO", client);
    attempt([&] { ui->consultas->LEEOLASCONSULTASCLI(); });
    readConcepts();
    readTelephones();
    fillArticleList();
}

void climant::readFields()
{
    for (const FieldColumn& pair : kReadFields)
        attempt([&] { ((*ui).*pair.field)->setText(asText(RSCLIENTES[pair.column].Value())); });
    attempt([&] { ui->Text60->setText(asText(RSCLIENTES[u"Notas"].Value())); });
}

void climant::readTelephones()
{
    Recordset rows;
    attempt([&] {
        rows = BDTELEFONOS.OpenRecordset(
            u"SELECT TELEFON.* From TELEFON WHERE (((TELEFON.TELECODIGOEMPRESA)='"_s + NUMEMPRESA +
                u"') AND ((TELEFON.TELECODIGO)='"_s + ui->Text49->text() + u"'))"_s,
            platform::dao::dbOpenDynaset);
    });
    attempt([&] { rows.MoveLast(); });
    attempt([&] { rows.MoveFirst(); });
    if (holds([&] { return rows.RecordCount() > 0; })) {
        FlexGrid& grid = *ui->vsFlexGrid4;
        int line = 0;
        walkToEnd(rows, [&] {
            ++line;
            attempt([&] { grid.setRow(line); });
            readCells(telephoneLines(grid), rows);
        });
    }
    attempt([&] { rows.Close(); });
}

/// The articles that a consultation can be about: the lines of the concepts grid as they stand on the screen.
void climant::fillArticleList()
{
    platform::ComboList& articles = ui->consultas->Combo3();
    attempt([&] { articles.clear(); });
    const FlexGrid& grid = *ui->vsFlexGrid3;
    for (int row = 1; row < grid.rows(); ++row) {
        if (holds([&] { return !grid.textMatrix(row, 0).isEmpty(); })) {
            attempt([&] {
                articles.addItem(grid.textMatrix(row, 0) + u' ' + platform::Trim(grid.textMatrix(row, 1)));
            });
        }
    }
    attempt([&] { articles.setListIndex(0); });
}

void climant::EscribeCliente()
{
    const QString typed = ui->Text49->text();
    const QString client = platform::Trim(typed);
    if (!client.isEmpty()) {
        writeFields();
        // The address lines alone take the code as typed; a later read looks for the trimmed one.
        writeLines(shippingLines(*ui->vsFlexGrid1), std::array{FixedColumn{u"CLIENVICODIGO", typed}});
        writeLines(bankLines(*ui->vsFlexGrid2), std::array{FixedColumn{u"CLIBANCOSCODIGO", client}});
        writeConcepts();
        writeLines(telephoneLines(*ui->vsFlexGrid4),
                   std::array{FixedColumn{u"TELECODIGOEMPRESA", platform::Trim(NUMEMPRESA)},
                              FixedColumn{u"TELECODIGO", client}});
    }
    writeAccount();
}

void climant::writeFields()
{
    attempt([] { RSCLIENTES.setIndex(u"CliCodigoIndice"_s); });
    attempt([&] { RSCLIENTES.Seek(u"=", platform::Trim(ui->Text49->text())); });
    if (holds([] { return RSCLIENTES.NoMatch(); }))
        attempt([] { RSCLIENTES.AddNew(); });
    else
        attempt([] { RSCLIENTES.Edit(); });
    for (const FieldColumn& pair : kWrittenFields)
        attempt([&] { RSCLIENTES[pair.column].setValue(((*ui).*pair.field)->text()); });
    attempt([&] { RSCLIENTES[u"Notas"].setValue(ui->Text60->text()); });
    for (QStringView column : kAlwaysOne)
        attempt([&] { RSCLIENTES[column].setValue(1.0); });
    attempt([] { RSCLIENTES.Update(); });
}

void climant::writeAccount()
{
    attempt([&] { CUENTACODIGO = ui->Text9->text(); });
    for (const AccountField& account : kAccountFields)
        attempt([&] { *account.variable = platform::Left(((*ui).*account.field)->text(), account.width); });
    attempt([] { ESCRIBIRCUENTA(); });
}

void climant::limpiaclientes()
{
    attempt([&] { ui->SSTab1->setTabStop(false); });
    for (const auto field : kEmptiedFields)
        attempt([&] { ((*ui).*field)->setText(QString()); });
    attempt([&] { ui->consultas->Text10().setText(QString()); });
    attempt([&] { ui->Text60->setText(QString()); });
    for (const auto grid : kLineGrids)
        attempt([&] { ((*ui).*grid)->setRangeText(QString()); });
    for (const auto grid : kLineGrids)
        attempt([&] { ((*ui).*grid)->setTopRow(1); });
    attempt([&] { ui->SSTab1->setTab(kIdentificationPage); });
    attempt([&] { ui->consultas->limpiaconsultas(); });
    attempt([&] { ui->SSTab1->setTab(kAdditionalPage); });
    attempt([&] { ui->SSTab1->setTab(kIdentificationPage); });
    attempt([&] { platform::setFocusTo(ui->Text49); });
}
