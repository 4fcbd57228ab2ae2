// SPDX-License-Identifier: GPL-3.0-or-later
#include "clients/climant.h"

#include "ui_climant.h"

#include "clients/linetables.h"
#include "lookup/lisem.h"
#include "platform/core/regime.h"
#include "platform/dao/rowwalk.h"
#include "platform/text/textfunctions.h"
#include "platform/window/formhelpers.h"
#include "shell/globalsat.h"

using namespace Qt::StringLiterals;
using platform::asText;
using platform::attempt;
using platform::CellKind;
using platform::FlexGrid;
using platform::holds;
using platform::dao::Recordset;

namespace {

constexpr int kArticleKind = 11;
constexpr int kDueDateCol = 3;
constexpr QStringView kNoDueDate = u"01/01/100";

constexpr Qt::Alignment kLeft = Qt::AlignLeft | Qt::AlignVCenter;
constexpr Qt::Alignment kRight = Qt::AlignRight | Qt::AlignVCenter;
constexpr QStringView kDateFormat = u"dd/mm/yyyy";
constexpr QStringView kDateMask = u"99/99/9999";
constexpr QStringView kAmountFormat = u"##,##.00";
constexpr QStringView kMonths = u"01|02|03|04|05|06|07|08|09|10|11|12";
constexpr QStringView kKinds = u"#1*0;F\tFijo:Todos los períodos mismo importe"
                               u"|#2;R\tRequiere actualizar el importe en cada periodo"
                               u"|#3;V\tVariable.- Desaparecerá en factura automática"
                               u"|#4;T\tTabla.- Necesita actualizar unidades tabla";

constexpr GridColumn dateColumn(QStringView heading)
{
    return {.heading = heading,
            .widthTwips = 1000,
            .kind = CellKind::Date,
            .format = kDateFormat,
            .mask = kDateMask};
}

constexpr GridColumn amountColumn(QStringView heading)
{
    return {.heading = heading,
            .widthTwips = 1000,
            .kind = CellKind::Number,
            .format = kAmountFormat,
            .alignment = kRight};
}

constexpr std::array kConceptGrid{
    GridColumn{.heading = u"Artículo", .widthTwips = 1000, .list = u"|..."},
    GridColumn{.heading = u"Descripción", .widthTwips = 2700, .alignment = kLeft},
    dateColumn(u"Fecha Inic"),
    dateColumn(u"Fecha Vcto"),
    dateColumn(u"Fecha baja"),
    GridColumn{.heading = u"T", .widthTwips = 250, .list = kKinds},
    GridColumn{.heading = u"PE", .widthTwips = 350, .list = kMonths},
    GridColumn{.heading = u"EM", .widthTwips = 350, .list = kMonths},
    amountColumn(u"Unidades"),
    amountColumn(u"Precio"),
    GridColumn{.heading = u"Imp.", .widthTwips = 500}, // its list and the next one's are filled by nothing
    GridColumn{.heading = u"Irpf", .widthTwips = 500},
    GridColumn{
        .heading = u"Causa de la baja", .widthTwips = 2000, .alignment = kLeft, .headingAlignment = kLeft},
    GridColumn{.heading = u"Nº de Serie", .alignment = kLeft, .headingAlignment = kLeft},
};

enum class ConceptWriting { AsItStands, Trimmed, First1, First2, LeadingNumber };

struct ConceptColumn
{
    int col;
    int position; ///< of the column in the table
    QStringView column;
    ConceptWriting writing;
};

constexpr std::array kConceptColumns{
    ConceptColumn{0, 0, u"clientescycarticulo", ConceptWriting::Trimmed},
    ConceptColumn{1, 2, u"clientescycdescrip", ConceptWriting::AsItStands},
    ConceptColumn{2, 3, u"clientescycfecinic", ConceptWriting::AsItStands},
    ConceptColumn{3, 4, u"clientescycfecvcto", ConceptWriting::Trimmed},
    ConceptColumn{4, 5, u"clientescycfecbaja", ConceptWriting::AsItStands},
    ConceptColumn{5, 6, u"clientescyct", ConceptWriting::First1},
    ConceptColumn{6, 7, u"clientescycpe", ConceptWriting::First2},
    ConceptColumn{7, 8, u"clientescycEM", ConceptWriting::First2},
    ConceptColumn{8, 9, u"clientescycunidades", ConceptWriting::LeadingNumber},
    ConceptColumn{9, 10, u"clientescycprecio", ConceptWriting::LeadingNumber},
    ConceptColumn{10, 11, u"clientescycim", ConceptWriting::LeadingNumber},
    ConceptColumn{11, 12, u"clientescycre", ConceptWriting::LeadingNumber},
    ConceptColumn{12, 13, u"clientescyccausa", ConceptWriting::AsItStands},
    ConceptColumn{13, 14, u"clientescynumserie", ConceptWriting::AsItStands},
};

platform::Value valueToWrite(const QString& cell, ConceptWriting writing)
{
    switch (writing) {
    case ConceptWriting::AsItStands:
        return cell;
    case ConceptWriting::Trimmed:
        return platform::Trim(cell);
    case ConceptWriting::First1:
        return platform::Left(platform::Trim(cell), 1);
    case ConceptWriting::First2:
        return platform::Left(platform::Trim(cell), 2);
    case ConceptWriting::LeadingNumber:
        return platform::Val(cell);
    }
    return platform::Null{};
}

void readConcept(FlexGrid& grid, const Recordset& record)
{
    for (const ConceptColumn& cell : kConceptColumns) {
        attempt([&] { grid.setCol(cell.col); });
        attempt([&] { grid.setText(record[cell.position].Value()); });
        if (cell.col != kDueDateCol)
            continue;
        const bool hasNoDueDate = holds([&] {
            const platform::Value stored = record[cell.position].Value();
            return !platform::isNull(stored) && asText(stored) == kNoDueDate;
        });
        if (hasNoDueDate)
            attempt([&] { grid.setText(QString()); });
    }
}

void writeConcept(FlexGrid& grid, const QString& client, const QString& article)
{
    // Client and article stand the wrong way round for the index, so as a rule nothing is found.
    attempt([&] { RSCYC.Seek(u"=", client, article); });
    if (holds([] { return RSCYC.NoMatch(); }))
        attempt([] { RSCYC.AddNew(); });
    else
        attempt([] { RSCYC.Edit(); });
    attempt([&] { RSCYC[u"clientescyccliente"].setValue(client); });
    for (const ConceptColumn& cell : kConceptColumns) {
        attempt([&] { grid.setCol(cell.col); });
        attempt([&] { RSCYC[cell.column].setValue(valueToWrite(grid.text(), cell.writing)); });
    }
    // A record added here has no line number, which the primary index asks for: the store refuses it.
    attempt([] { RSCYC.Update(); });
}

/// Puts the article chosen in the grid's current line. Failures pass to the caller.
void takeArticle(FlexGrid& grid)
{
    RSARTICULOS.setIndex(u"ARTCODIGOINDICE"_s);
    RSARTICULOS.Seek(u"=", RESULTADOBUSQUEDA);
    if (RSARTICULOS.NoMatch())
        return;
    RSARTICULOS.Edit();
    grid.setText(RSARTICULOS[u"ArtCodigo"].Value());
    grid.setCol(1);
    grid.setText(RSARTICULOS[u"Descripcion"].Value());
}

} // namespace

void climant::drawConceptGrid()
{
    drawGridColumns(*ui->vsFlexGrid3, kConceptGrid);
}

void climant::readConcepts()
{
    Recordset rows;
    attempt([&] {
        rows = BDCLIENTES.OpenRecordset(u"SELECT clientescyctabla.* From clientescyctabla WHERE "
                                        "(((clientescyctabla.clientescyccliente)='"_s +
                                            ui->Text49->text() + u"')) "_s,
                                        platform::dao::dbOpenDynaset);
    });
    attempt([&] { rows.MoveLast(); });
    attempt([&] { rows.MoveFirst(); });
    if (holds([&] { return rows.RecordCount() <= 0; }))
        return;
    FlexGrid& grid = *ui->vsFlexGrid3;
    int line = 0;
    walkToEnd(rows, [&] {
        ++line;
        attempt([&] { grid.setRow(line); });
        readConcept(grid, rows);
    });
    attempt([&] { rows.Close(); });
}

void climant::writeConcepts()
{
    FlexGrid& grid = *ui->vsFlexGrid3;
    attempt([] { RSCYC.setIndex(u"clientescyccodigoindice"_s); });
    QString client;
    attempt([&] { client = platform::Trim(ui->Text49->text()); });
    QString article;
    // One pass beyond the last row, as with the other grids.
    for (int row = 1; row <= grid.rows(); ++row) {
        attempt([&] { grid.setRow(row); });
        attempt([&] { grid.setCol(0); });
        attempt([&] { article = platform::Trim(grid.text()); });
        if (!article.isEmpty())
            writeConcept(grid, client, article);
    }
}

void climant::vsFlexGrid3_CellButtonClick(int col)
{
    FlexGrid& grid = *ui->vsFlexGrid3;
    grid.setRedraw(false);
    if (grid.heading(col).contains(u"Artículo")) {
        TIPOBUSQUEDA = kArticleKind;
        platform::setMousePointer(this, platform::kBusyPointer);
        MuestraLISEM(this);
        if (!RESULTADOBUSQUEDA.isEmpty())
            takeArticle(grid);
        platform::setMousePointer(this, platform::kDefaultPointer);
        RESULTADOBUSQUEDA.clear();
    }
    grid.setRedraw(true);
}

void climant::BORRAUNALINEACYC()
{
    FlexGrid& grid = *ui->vsFlexGrid3;
    attempt([] { RSCYC.setIndex(u"clientescyccodigoindice"_s); });
    QString client;
    attempt([&] { client = platform::Trim(ui->Text49->text()); });
    QString article;
    attempt([&] { grid.setCol(0); });
    attempt([&] { article = platform::Trim(grid.text()); });
    if (article.isEmpty())
        return;
    // Two values on an index of three columns: the first line of that article is found.
    attempt([&] { RSCYC.Seek(u"=", article, client); });
    if (holds([] { return RSCYC.NoMatch(); }))
        return;
    attempt([] { RSCYC.Delete(); });
    for (const ConceptColumn& cell : kConceptColumns) {
        attempt([&] { grid.setCol(cell.col); });
        attempt([&] { grid.setText(QString()); });
    }
}
