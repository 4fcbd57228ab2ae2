// SPDX-License-Identifier: GPL-3.0-or-later
#include "lookup/lisemwindow.h"

#include "ui_lisem.h"

#include "lookup/buscar.h"
#include "lookup/fittedcolumns.h"
#include "lookup/logo.h"
#include "platform/core/regime.h"
#include "platform/window/focusrules.h"
#include "platform/window/formhelpers.h"
#include "platform/window/formkeys.h"
#include "platform/window/handlers.h"
#include "platform/window/icons.h"
#include "shell/globalsat.h"

#include <QLayout>
#include <QMouseEvent>

using namespace Qt::StringLiterals;
using platform::attempt;
using platform::handle;
using platform::holds;

namespace {

/// Text of an item of the families: code, ".-", description.
QString familyItem(const platform::dao::Recordset& families)
{
    return platform::asText(families[0].Value()) + u".-"_s + platform::asText(families[1].Value());
}

} // namespace

LISEM::LISEM(QWidget* parent)
    : Form(parent)
    , ui(std::make_unique<Ui::LISEM>())
{
    ui->setupUi(this);
    setUpControls();
    connectEvents();
}

LISEM::~LISEM() = default;

/// What a form file can't hold.
void LISEM::setUpControls()
{
    showPicture(*ui->imgwl, platform::Icon::Application);
    m_columns = new lookup::FittedColumns(ui->busi);
    layout()->activate(); // the load computes widths from the grid's, ahead of the first showing
    setMouseTracking(true);
    ui->Text1->setFocus();
}

void LISEM::connectEvents()
{
    handle(watchKeys(), &platform::FormKeys::keyDown, this, [this](int key, bool*) {
        if (key == Qt::Key_Escape)
            unload();
    });
    handle(ui->Text1, &QLineEdit::textChanged, this, [this] { textChanged(); });
    handle(ui->Text1, &platform::TextBox::keyPressed, this, [this](int key) { textKey(key); });
    handle(ui->Text1, &platform::TextBox::doubleClicked, this,
           [this] { attempt([&] { ui->Text1->setText({}); }); });
    handle(ui->Combo1, &platform::ComboList::click, this, [this] { LEERLISTA(); });
    handle(ui->Command2, &QAbstractButton::clicked, this, [this] { LEERLISTA(); });
    handle(ui->busi, &platform::FlexGrid::DblClick, this, [this] { ELIGEFILA(); });
    handle(ui->busi, &platform::FlexGrid::KeyPress, this, [this] { ELIGEFILA(); });
    handle(ui->busi, &platform::FlexGrid::MouseMove, this, [this] { showCellTip(); });
    handle(ui->Check1, &QAbstractButton::toggled, this, [this] { LEERLISTA(); });
    handle(ui->Label1, &platform::ImageLabel::clicked, this, [this] { ui->Check1->toggle(); });
    handle(ui->imgwl, &platform::ImageLabel::MouseMove, this,
           [this] { showPicture(*ui->imgwl, platform::Icon::ApplicationLit); });
    handle(ui->Command1, &QAbstractButton::clicked, this, [this] { leave(); });
}

/// The load. Skip mode.
void LISEM::onLoad()
{
    FILTRADA = 0;
    ui->imgwl->setToolTip(versionHint());
    if (TIPOBUSQUEDA == lookup::kClients) {
        showFirstClients();
        return;
    }
    if (lookup::ordersByNumber(TIPOBUSQUEDA))
        showOrder(true);
    else if (!lookup::listsArticles(TIPOBUSQUEDA))
        showOrder(false);
    if (TIPOBUSQUEDA == lookup::kArticlesToTick)
        ui->busi->setEditable(true);
    if (!lookup::listsArticles(TIPOBUSQUEDA))
        LEERLISTA();
}

/// The first change of size, when the window comes up. Skip mode.
void LISEM::onResize()
{
    if (m_familiesRead || !isLoaded() || !lookup::listsArticles(TIPOBUSQUEDA))
        return;
    m_familiesRead = true;
    LEERFAMILIAS();
}

void LISEM::onFirstShown()
{
    attempt([&] { platform::setFocusTo(ui->Text1); });
}

void LISEM::mouseMoveEvent(QMouseEvent* event)
{
    // A move over the logo comes up to the form as well.
    if (!ui->imgwl->geometry().contains(event->position().toPoint()))
        showPicture(*ui->imgwl, platform::Icon::Application);
    Form::mouseMoveEvent(event);
}

void LISEM::showOrder(bool visible)
{
    ui->Check1->setVisible(visible);
    ui->Label1->setVisible(visible);
}

lookup::Request LISEM::request() const
{
    lookup::Request wanted;
    wanted.kind = TIPOBUSQUEDA;
    wanted.checked = ui->Check1->isChecked();
    wanted.family = ui->Combo1->text();
    return wanted;
}

/// Skip mode. The suite's store of families would be bound here; in this program nothing binds it.
void LISEM::LEERFAMILIAS()
{
    const platform::dao::Database store;
    platform::dao::Recordset families;
    attempt([&] {
        families = store.OpenRecordset(
            u"SELECT FAMICODIGO, FAMIDESCRIPCION FROM FAMI ORDER BY FAMIDESCRIPCION ASC"_s,
            platform::dao::dbOpenDynaset);
    });
    attempt([&] { families.MoveLast(); });
    attempt([&] { families.MoveFirst(); });
    attempt([&] { ui->Combo1->addItem(u"(Incluir todas las familias)"_s); });
    while (holds([&] { return !families.EOF_(); })) {
        attempt([&] { ui->Combo1->addItem(familyItem(families)); });
        attempt([&] { families.MoveNext(); });
        // The test of an unbound recordset counts as passed at every turn: one pass is all there is.
        if (!families.isBound())
            break;
    }
    attempt([&] { families.Close(); });
    attempt([&] { ui->Combo1->setListIndex(0); });
    ui->famiart->show();
    attempt([&] { platform::setFocusTo(ui->Text1); });
}
