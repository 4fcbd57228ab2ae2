// SPDX-License-Identifier: GPL-3.0-or-later
#include "clients/climant.h"

#include "ui_climant.h"

#include "clients/linetables.h"
#include "lookup/logo.h"
#include "platform/core/regime.h"
#include "platform/text/textfunctions.h"
#include "platform/window/focusrules.h"
#include "platform/window/formhelpers.h"
#include "platform/window/formkeys.h"
#include "platform/window/handlers.h"
#include "platform/window/icons.h"
#include "stores/consultas.h"

#include <QMenu>

using namespace Qt::StringLiterals;
using platform::attempt;
using platform::FlexGrid;
using platform::handle;
using platform::TextBox;

namespace {

// Pictures of the main window's list, counted from 1.
constexpr platform::Icon kFirstPicture = platform::Icon::Application;
constexpr platform::Icon kSecondPicture = platform::Icon::Network;

} // namespace

climant::climant(QWidget* parent)
    : Form(parent)
    , ui(std::make_unique<Ui::climant>())
{
    ui->setupUi(this);
    setUpControls();
    connectEvents();
}

climant::~climant() = default;

/// What a form file can't hold: the items of the side bar, the line menu, and the place of another form's
/// controls in the tab order.
void climant::setUpControls()
{
    ui->SSListBar1->addGroup(u"Clientes S.A.T."_s);
    ui->SSListBar1->addItem(u"NUEVA"_s, u"&Nuevo"_s, platform::icon(platform::Icon::New));
    ui->SSListBar1->addItem(u"GRABAR"_s, u"&Grabar"_s, platform::icon(platform::Icon::Save));
    ui->SSListBar1->addItem(u"CORREO"_s, u"Correo"_s, platform::icon(platform::Icon::Mail));
    ui->SSListBar1->addItem(u"SALIR"_s, u"&Salir"_s, platform::icon(platform::Icon::Quit));
    showPicture(*ui->imgwl, kFirstPicture);
    ui->consultas->setClientControls({ui->Text49, ui->vsFlexGrid4, ui->SSTab1});
    platform::placePageInTabOrder(ui->Text60, ui->consultas);

    m_menucli = new QMenu(this);
    m_menucli->setObjectName(u"menucli"_s);
    m_menucli->addAction(u"&Eliminar Linea"_s)->setObjectName(u"eliminar"_s);
    m_menucli->addSeparator()->setObjectName(u"ssee"_s);
    m_menucli->addAction(u"&Cancelar"_s)->setObjectName(u"cancelar"_s);
}

/// The load. Skip mode.
void climant::onLoad()
{
    attempt([] { CREARCONSULTAS(); });
    attempt([] { ABRIRCONSULTAS(); });
    attempt([&] { ui->imgwl->setToolTip(versionHint()); });
    attempt([&] { DIBUJAREJAS(); });
    attempt([&] {
        connect(watchKeys(), &platform::FormKeys::keyDown, this,
                [this](int key, bool*) { platform::runHandler([&] { formKeyDown(key); }); });
    });
}

/// The focus comes to the code, whose rule empties the window.
void climant::onFirstShown()
{
    {
        const platform::QuietFocus quiet;
        attempt([&] { platform::setFocusTo(ui->Text49); });
    }
    attempt([&] { Text49_GotFocus(); });
}

/// Every key before the control gets it. No field of this window is aligned right; the rule stands for those
/// that may be.
void climant::formKeyDown(int key)
{
    const bool isEnter = key == Qt::Key_Return || key == Qt::Key_Enter;
    QWidget* active = focusWidget();
    if (auto* field = qobject_cast<TextBox*>(active); field && field->textAlignment() == TextBox::kRight) {
        if (isEnter || key == Qt::Key_Tab)
            attempt([&] { field->setText(platform::FormatAmount(field->text())); });
        if (!isEnter)
            return;
        attempt([&] { field->setSelStart(0); });
        attempt([&] { platform::sendTab(this); });
        return;
    }
    const bool isText = qobject_cast<TextBox*>(active) || qobject_cast<platform::MultiLineBox*>(active);
    if (isText && isEnter)
        attempt([&] { platform::sendTab(this); });
}

void climant::connectEvents()
{
    connectFields();
    connectGrids();
    connectCommands();
    connectPictures();
}

void climant::connectFields()
{
    handle(ui->Text49, &TextBox::gotFocus, this, [this] { Text49_GotFocus(); });
    handle(ui->Text49, &TextBox::lostFocus, this, [this] { Text49_LostFocus(); });
    handle(ui->Text49, &TextBox::keyPressed, this, [this](int key) { Text49_KeyPress(key); });
    handle(ui->Picture3, &QAbstractButton::clicked, this, [this] { Picture3_Click(); });
    handle(ui->Text51, &TextBox::gotFocus, this, [this] { Text51_GotFocus(); });
    handle(ui->Text14, &TextBox::keyPressed, this, [this](int key) { Text14_KeyPress(key); });
    handle(ui->Text9, &TextBox::gotFocus, this, [this] { Text9_GotFocus(); });
    handle(ui->Picture1, &QAbstractButton::clicked, this, [this] { Picture1_Click(); });
    handle(ui->Text6, &TextBox::gotFocus, this, [this] { Text6_GotFocus(); });
    handle(ui->Text20, &TextBox::lostFocus, this, [this] { Text20_LostFocus(); });
    handle(ui->Picture2, &QAbstractButton::clicked, this, [this] { Picture2_Click(); });
    handle(ui->Text21, &TextBox::lostFocus, this, [this] { Text21_LostFocus(); });
    handle(ui->Picture4, &QAbstractButton::clicked, this, [this] { Picture4_Click(); });
    handle(ui->Text27, &TextBox::lostFocus, this, [this] { Text27_LostFocus(); });
    handle(ui->Picture5, &QAbstractButton::clicked, this, [this] { Picture5_Click(); });
}

void climant::connectGrids()
{
    FlexGrid* shipping = ui->vsFlexGrid1;
    FlexGrid* banks = ui->vsFlexGrid2;
    FlexGrid* telephones = ui->vsFlexGrid4;

    handle(telephones, &FlexGrid::StartEdit, this,
           [telephones](int, int col, bool*) { limitEdit(*telephones, kTelephoneGrid, col); });
    handle(telephones, &FlexGrid::MouseDown, this,
           [this](Qt::MouseButton button, QPoint place) { showLineMenu(button, place); });

    handle(shipping, &FlexGrid::StartEdit, this,
           [shipping](int, int col, bool*) { limitEdit(*shipping, kShippingGrid, col); });
    handle(shipping, &FlexGrid::AfterEdit, this,
           [this, shipping](int row, int col) { keepOneTick(*shipping, row, col, kShippingTickCol); });
    handle(shipping, &FlexGrid::CellButtonClick, this,
           [this](int, int col) { vsFlexGrid1_CellButtonClick(col); });
    handle(shipping, &FlexGrid::MouseDown, this,
           [this](Qt::MouseButton button, QPoint place) { vsFlexGrid1_MouseDown(button, place); });

    handle(banks, &FlexGrid::StartEdit, this,
           [banks](int, int col, bool*) { limitEdit(*banks, kBankGrid, col); });
    handle(banks, &FlexGrid::AfterEdit, this,
           [this, banks](int row, int col) { keepOneTick(*banks, row, col, kBankTickCol); });
    handle(banks, &FlexGrid::MouseDown, this,
           [this](Qt::MouseButton button, QPoint place) { vsFlexGrid2_MouseDown(button, place); });

    handle(ui->vsFlexGrid3, &FlexGrid::CellButtonClick, this,
           [this](int, int col) { vsFlexGrid3_CellButtonClick(col); });
    handle(ui->vsFlexGrid3, &FlexGrid::MouseDown, this,
           [this](Qt::MouseButton button, QPoint place) { showLineMenu(button, place); });

    handle(m_menucli->findChild<QAction*>(u"eliminar"_s), &QAction::triggered, this,
           [this] { eliminar_Click(); });
}

void climant::connectCommands()
{
    handle(ui->SSListBar1, &platform::ListBar::ItemClick, this,
           [this](const QString& key) { SSListBar1_ItemClick(key); });
    handle(ui->Command1, &QAbstractButton::clicked, this, [this] { Command1_Click(); });
    handle(ui->Command2, &QAbstractButton::clicked, this, [this] { Command2_Click(); });
    handle(ui->Command5, &QAbstractButton::clicked, this, [this] { attempt([&] { unload(); }); });
}

void climant::connectPictures()
{
    const auto showFirst = [this] { showPicture(*ui->imgwl, kFirstPicture); };
    handle(ui->imgwl, &platform::ImageLabel::MouseMove, this,
           [this] { showPicture(*ui->imgwl, kSecondPicture); });
    handle(ui->BAJO, &platform::ImageLabel::MouseMove, this, showFirst);
    handle(ui->SSListBar1, &platform::ListBar::MouseMove, this, showFirst);
    handle(ui->SSTab1, &platform::TabPages::MouseMove, this, showFirst);
}

/// "&Nuevo".
void climant::Command1_Click()
{
    attempt([&] { ui->consultas->limpiaconsultas(); });
    attempt([&] { limpiaclientes(); });
    attempt([&] { proximocliente(); });
}

/// "&Grabar".
void climant::Command2_Click()
{
    attempt([&] { EscribeCliente(); });
    attempt([&] { ui->consultas->limpiaconsultas(); });
    attempt([&] { limpiaclientes(); });
}

void climant::SSListBar1_ItemClick(const QString& key)
{
    if (key == u"NUEVA") {
        Command1_Click();
    } else if (key == u"GRABAR") {
        attempt([&] { EscribeCliente(); });
        attempt([&] { limpiaclientes(); });
    } else if (key == u"CORREO") {
        attempt([&] { sendMail(); });
    } else if (key == u"SALIR") {
        attempt([&] { unload(); });
    }
}
