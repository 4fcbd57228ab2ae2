// SPDX-License-Identifier: GPL-3.0-or-later
#include "assistance/consultaspage.h"

#include "ui_consultas.h"

#include "assistance/longitudes.h"
#include "platform/core/regime.h"
#include "platform/text/textfunctions.h"
#include "shell/globalsat.h"

#include <array>

using namespace Qt::StringLiterals;
using platform::asText;
using platform::attempt;
using platform::FlexGrid;
using platform::holds;

namespace {

struct CellColumn
{
    int col;
    QStringView column;
};

/// Cells of row 1 of `vsFlexGrid6`, in the order of reading and writing.
constexpr std::array kCells{
    CellColumn{0, u"FEINICIO"},      CellColumn{1, u"HOINICIO"}, CellColumn{2, u"TECNICO"},
    CellColumn{3, u"FEFINAL"},       CellColumn{4, u"HOFINAL"},  CellColumn{5, u"ESTADO"},
    CellColumn{6, u"conpublicable"},
};

/// Characters of a node's text, and of the number field, that are the number.
constexpr int kNumberWidth = 10;

} // namespace

void ConsultasPage::GUARDARCONSULTAS()
{
    attempt([] { RSCONSULTAS.setIndex(u"CONnum"_s); });
    QString number;
    attempt([&] { number = platform::CStr(platform::Val(ui->Text10->text())); });
    QString client;
    attempt([&] { client = platform::Trim(m_client.Text49->text()); });
    attempt([&] { RSCONSULTAS.Seek(u"=", number, client); });
    if (holds([] { return RSCONSULTAS.NoMatch(); })) {
        attempt([] { RSCONSULTAS.AddNew(); });
    } else if (CONSULTALEIDA == 0) {
        // Another station has stored the number since it was proposed here.
        attempt([&] { number = platform::CStr(double(RSCONSULTAS.RecordCount()) + 1); });
        attempt([] { RSCONSULTAS.AddNew(); });
    } else {
        attempt([] { RSCONSULTAS.Edit(); });
    }

    attempt([&] { RSCONSULTAS[u"CLICONSULTA"].setValue(client); });
    attempt([&] { RSCONSULTAS[u"ORDEN"].setValue(number); });
    attempt([&] { RSCONSULTAS[u"TEMA"].setValue(ui->Text11->text()); });
    attempt([&] { RSCONSULTAS[u"PROGRAMA"].setValue(double(ui->Combo3->listIndex())); });
    writeGridColumns();
    attempt([&] { RSCONSULTAS[u"DESCRIPCION"].setValue(ui->Text12->text()); });
    attempt([&] { RSCONSULTAS[u"SOLUCION"].setValue(ui->Text13->text()); });
    attempt([] { RSCONSULTAS.Update(); });
    attempt([&] { limpiaconsultas(); });
}

void ConsultasPage::writeGridColumns()
{
    FlexGrid& grid = *ui->vsFlexGrid6;
    attempt([&] { grid.setRow(1); });
    for (const CellColumn& cell : kCells) {
        attempt([&] { grid.setCol(cell.col); });
        attempt([&] { RSCONSULTAS[cell.column].setValue(platform::Trim(grid.text())); });
    }
}

void ConsultasPage::leerconsulas()
{
    attempt([] { RSCONSULTAS.setIndex(u"CONnum"_s); });
    QString client;
    attempt([&] { client = platform::Trim(m_client.Text49->text()); });
    QString number;
    attempt([&] { number = platform::Left(platform::Trim(ui->TreeView1->selectedText()), kNumberWidth); });
    attempt([&] { RSCONSULTAS.Seek(u"=", number, client); });
    if (holds([] { return RSCONSULTAS.NoMatch(); }))
        return;

    // Never updated: the next positioning drops it.
    attempt([] { RSCONSULTAS.Edit(); });
    attempt([&] { ui->Text10->setText(number); });
    attempt([&] { ui->Text11->setText(asText(RSCONSULTAS[u"TEMA"].Value())); });
    attempt([&] { ui->Combo3->setListIndex(platform::CInt(asText(RSCONSULTAS[u"PROGRAMA"].Value()))); });
    CONSULTALEIDA = 1;
    readGridColumns();
    attempt([&] { ui->Text12->setText(asText(RSCONSULTAS[u"DESCRIPCION"].Value())); });
    attempt([&] { ui->Text13->setText(asText(RSCONSULTAS[u"SOLUCION"].Value())); });
}

void ConsultasPage::readGridColumns()
{
    FlexGrid& grid = *ui->vsFlexGrid6;
    attempt([&] { grid.setRow(1); });
    for (const CellColumn& cell : kCells) {
        attempt([&] { grid.setCol(cell.col); });
        attempt([&] { grid.setText(RSCONSULTAS[cell.column].Value()); });
    }
}

void ConsultasPage::limpiaconsultas()
{
    attempt([&] { ui->Text10->setText(QString()); });
    proposeNumber();
    attempt([&] { ui->Text11->setText(QString()); });
    attempt([&] { ui->Text12->setText(QString()); });
    attempt([&] { ui->Text13->setText(QString()); });
    attempt([&] { ui->Combo3->setListIndex(0); });
    clearGrid();
    attempt([&] { m_client.vsFlexGrid4->setCol(0); });
    attempt([&] { m_client.vsFlexGrid4->setRow(0); });
    attempt([&] { m_client.SSTab1->setTab(3); });
    attempt([&] { m_client.SSTab1->setTab(4); }); // There are pages 0 to 3: it fails, and page 3 stays.
}

/// The highest number of any client plus 1, filled with zeros; a plain "1" while the table is empty.
void ConsultasPage::proposeNumber()
{
    const bool isEmpty = holds([] {
        const bool atEnd = RSCONSULTAS.EOF_();
        const bool atBegin = RSCONSULTAS.BOF();
        return atEnd && atBegin;
    });
    if (isEmpty) {
        attempt([&] { ui->Text10->setText(u"1"_s); });
        return;
    }
    attempt([] { RSCONSULTAS.MoveLast(); });
    attempt(
        [&] { ui->Text10->setText(platform::CStr(platform::asNumber(RSCONSULTAS[u"ORDEN"].Value()) + 1)); });
    fillNumber();
}

void ConsultasPage::fillNumber()
{
    attempt([&] { VALORLONGITUD = platform::Trim(ui->Text10->text()); });
    attempt([&] { ANCHOLONGITUD = ui->Text10->maxLength(); });
    attempt([] { AJUSTALONGITUD(); });
    attempt([&] { ui->Text10->setText(RESULTADOLONGITUD); });
}

void ConsultasPage::clearGrid()
{
    FlexGrid& grid = *ui->vsFlexGrid6;
    for (int row = 1; row < grid.rows(); ++row) {
        for (int col = 0; col < grid.cols(); ++col) {
            attempt([&] { grid.setRow(row); });
            attempt([&] { grid.setCol(col); });
            attempt([&] { grid.setText(QString()); });
        }
    }
}

void ConsultasPage::BORRACONSULTAS()
{
    attempt([] { RSCONSULTAS.setIndex(u"CONnum"_s); });
    QString client;
    attempt([&] { client = platform::Trim(m_client.Text49->text()); });
    attempt([] { RSCONSULTAS.MoveFirst(); });
    std::int16_t passes = 0;
    attempt([&] { passes = platform::CInt(double(RSCONSULTAS.RecordCount())); });
    for (int pass = 0; pass < passes; ++pass) {
        const bool isOfClient = holds([&] {
            const platform::Value code = RSCONSULTAS[u"CLICONSULTA"].Value();
            return !platform::isNull(code) && asText(code) == client;
        });
        // No Seek stands here: NoMatch is what the last one left.
        if (isOfClient) {
            if (holds([] { return !RSCONSULTAS.NoMatch(); }))
                attempt([] { RSCONSULTAS.Delete(); });
        }
        attempt([] { RSCONSULTAS.MoveNext(); });
    }
}
