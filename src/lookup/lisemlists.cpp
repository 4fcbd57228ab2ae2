// SPDX-License-Identifier: GPL-3.0-or-later

// What the list shows: the full list of a kind, the first list of clients, and the rows that hold a typed
// text.

#include "lookup/lisemwindow.h"

#include "ui_lisem.h"

#include "lookup/buscar.h"
#include "lookup/fittedcolumns.h"
#include "platform/core/regime.h"
#include "platform/text/textfunctions.h"
#include "platform/window/focusrules.h"
#include "platform/window/formhelpers.h"
#include "shell/globalsat.h"

using namespace Qt::StringLiterals;
using platform::attempt;
using platform::holds;
using platform::dao::Database;
using platform::dao::Recordset;

namespace {

/// The column that lists are in order of, and that typing looks at.
constexpr std::uint8_t kSearchColumn = 1;

/// The store of a kind. Those that this program doesn't open are unbound, and every query on them fails.
const Database& baseOf(lookup::Store store)
{
    static const Database kUnbound;
    switch (store) {
    case lookup::Store::Postal:
        return BDPOSTAL;
    case lookup::Store::Zones:
        return BDZONAS;
    case lookup::Store::Articles:
        return BDARTICULOS;
    case lookup::Store::Types:
        return BDTIPOS;
    case lookup::Store::Clients:
        return BDCLIENTES;
    case lookup::Store::Representatives:
    case lookup::Store::None:
        break;
    }
    return kUnbound;
}

bool isReturn(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

bool isBlank(const QString& text)
{
    return platform::Trim(text).isEmpty();
}

} // namespace

/// The list of clients as the window opens with it, through a data control of its own: caption, count and the
/// index of letters stay as they are until the list is loaded anew. Skip mode.
void LISEM::showFirstClients()
{
    ui->busi->setRedraw(false);
    const DataControl datos{RUTAEMPRESA + u"CLIENTES.MDB"_s, lookup::fullList(request()).sql};
    attempt([&] { ui->busi->clear(); });
    refresh(datos);
    ui->busi->setRedraw(true);
}

void LISEM::refresh(const DataControl& datos)
{
    Database base;
    Recordset rows;
    attempt([&] { base = platform::dao::DBEngine().Workspaces(0).OpenDatabase(datos.databaseName); });
    attempt([&] { rows = base.OpenRecordset(datos.recordSource, platform::dao::dbOpenSnapshot); });
    if (!rows.isBound())
        return;
    attempt([&] { rows.MoveLast(); });
    attempt([&] { rows.MoveFirst(); });
    attempt([&] { ui->busi->bindToArray(std::make_shared<FilasRejilla>(rows.GetRows(rows.RecordCount()))); });
    ponColumnas(*ui->busi, rows);
    m_columns->fit();
    attempt([&] { rows.Close(); });
    attempt([&] { base.Close(); });
}

void LISEM::LEERLISTA()
{
    attempt([&] { ui->busi->setRows(1); });
    if (lookup::hasFullList(TIPOBUSQUEDA)) {
        const lookup::FullList list = lookup::fullList(request());
        ULTIMAFILA = CARGAREJILLA(*ui->busi, baseOf(list.store), list.sql, kSearchColumn);
        if (lookup::listsArticles(TIPOBUSQUEDA))
            leaveTheTickAlone();
        writeCaption(list.caption);
        m_columns->fit();
    }
    attempt([&] { platform::setMousePointer(this, platform::kDefaultPointer); });
}

/// Without the switch of obsolete articles, which is off, the tick only loads the list anew.
void LISEM::leaveTheTickAlone()
{
    ui->Label1->hide();
    ui->Check1->setAccessibleName(u"Volver a cargar la lista"_s);
    ui->Check1->setToolTip(ui->Check1->accessibleName());
}

void LISEM::writeCaption(QStringView caption)
{
    const QString count = platform::Str(REGISTROSREJILLA);
    const QString records = REGISTROSREJILLA == 1 ? u" Registro"_s : u" Registros"_s;
    if (lookup::listsArticles(TIPOBUSQUEDA))
        ui->BAJO->setText(u"Búsqueda de Artículos "_s + count + records);
    else
        ui->BAJO->setText(caption.toString() + u' ' + count + records);
}

/// The text of the box changed, by whoever. Skip mode.
void LISEM::textChanged()
{
    const QString text = ui->Text1->text();
    if (!isBlank(text)) {
        BUSCAREJILLA(*ui->busi, text, kSearchColumn);
    } else if (FILTRADA == 1) {
        FILTRADA = 0;
        LEERLISTA();
    } else {
        attempt([&] { ui->busi->setTopRow(1); });
        attempt([&] { ui->busi->setRow(1); });
    }
}

/// A key in the box. Skip mode.
void LISEM::textKey(int key)
{
    if (isReturn(key) && !isBlank(ui->Text1->text())) {
        searchTyped();
    } else if (key == Qt::Key_Escape) {
        if (TIPOBUSQUEDA == lookup::kWarehouses)
            RESULTADOBUSQUEDA.clear();
        unload();
    } else if (key == Qt::Key_Down || key == Qt::Key_Up) {
        attempt([&] { platform::setFocusTo(ui->busi); });
    }
}

/// Lists the rows that hold the text. The index of letters, the caption and the count stay. Skip mode.
void LISEM::searchTyped()
{
    m_foundRows.reset();
    attempt([&] { ui->busi->clear(); });
    FILTRADA = 1;
    const lookup::TypedSearch search = lookup::typedSearch(request(), ui->Text1->text());
    platform::clearError();
    Recordset found;
    attempt([&] { found = baseOf(search.store).OpenRecordset(search.sql, platform::dao::dbOpenDynaset); });
    if (platform::lastError() == 0)
        showFound(found);
    attempt([&] { ui->busi->setColKind(0, platform::CellKind::Text); }); // the rows come without a tick
    attempt([&] { ui->busi->setColWidth(0, 0); });
    int fields = 0;
    attempt([&] { fields = found.Fields().Count(); });
    for (int i = 1; i < fields; ++i)
        attempt([&] { ui->busi->setHeading(i, found[i].Name()); });
    m_columns->fit();
    if (holds([&] { return ui->busi->rows() >= 2; }))
        attempt([&] { ui->busi->setRow(1); });
    attempt([&] { found.Close(); });
}

void LISEM::showFound(Recordset& found)
{
    if (holds([&] { return found.RecordCount() >= 1; })) {
        attempt([&] { found.MoveLast(); });
        attempt([&] { found.MoveFirst(); });
        attempt([&] { m_foundRows = std::make_shared<FilasRejilla>(found.GetRows(found.RecordCount())); });
        attempt([&] { ui->busi->bindToArray(m_foundRows); });
    } else {
        attempt([&] { ui->busi->bindToArray(nullptr); });
    }
}
