// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/lista.h"

#include "lookup/logo.h"
#include "platform/core/regime.h"
#include "platform/system/clock.h"
#include "platform/text/textfunctions.h"
#include "platform/window/handlers.h"
#include "platform/window/icons.h"
#include "reports/catalogue.h"
#include "shell/globalsat.h"
#include "ui_lista.h"

#include <QPointer>
#include <QShortcut>

#include <array>

using namespace platform;
using namespace Qt::StringLiterals;

namespace reports {

namespace {

constexpr int kMostCopies = 20;
constexpr int kMonths = 12;

/// The one report window of the program, while it is loaded.
QPointer<LISTA> present;

LISTA* loadedWindow(QWidget* parent)
{
    if (!present) {
        present = new LISTA(parent);
        QObject::connect(present, &LISTA::unloaded, present, &QObject::deleteLater);
        QObject::connect(present, &LISTA::unloaded, present, [] { present.clear(); });
    }
    return present;
}

} // namespace

LISTA::LISTA(QWidget* parent)
    : Form(parent)
    , ui(std::make_unique<Ui::LISTA>())
{
    ui->setupUi(this);
    m_readLocation.StructSize = 1026;
    m_writeLocation.StructSize = 258;
    ui->SSListBar1->addGroup(u"Impresión"_s);
    ui->SSListBar1->addItem(u"UNO"_s, u"&Visualizar"_s, icon(Icon::Preview));
    ui->SSListBar1->addItem(u"DOS"_s, u"&Imprimir"_s, icon(Icon::Print));
    ui->SSListBar1->addItem(u"TRES"_s, u"&Enviar"_s, icon(Icon::Send));
    ui->SSListBar1->addItem(u"CUATRO"_s, u"&Salir"_s, icon(Icon::Quit));
    // The buttons bear the same letters, and they are the ones in sight of the field that has the focus.
    ui->SSListBar1->setAltKeys(false);
    showPicture(*ui->imgwl, Icon::Application);
    connectEvents();
}

LISTA::~LISTA() = default;

void LISTA::connectEvents()
{
    handle(ui->Text1, &TextBox::textChanged, this, [this] { clearBlankBox(1); });
    handle(ui->Image1, &PictureBox::clicked, this, [this] { pickFirst(); });
    handle(ui->Text2, &TextBox::textChanged, this, [this] { clearBlankBox(2); });
    handle(ui->Image2, &PictureBox::clicked, this, [this] { pickSecond(); });
    handle(ui->Label5, &ImageLabel::clicked, this, [this] { turnToDates(); });
    handle(ui->Label7, &ImageLabel::clicked, this, [this] { turnToNumbers(); });
    handle(ui->TreeView1, &TreeView::doubleClickedNode, this, [this] { chooseSelectedPrinter(); });
    handle(ui->SSListBar1, &ListBar::ItemClick, this, [this](const QString& key) { itemChosen(key); });
    handle(ui->Command1, &QPushButton::clicked, this, [this] { runToWindow(); });
    handle(ui->Command2, &QPushButton::clicked, this, [this] { runToPrinter(); });
    handle(ui->Command3, &QPushButton::clicked, this, [this] { unload(); });

    // Enter stands for the double click.
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto* choose = new QShortcut(key, ui->TreeView1);
        choose->setContext(Qt::WidgetShortcut);
        handle(choose, &QShortcut::activated, this, [this] { chooseSelectedPrinter(); });
    }

    // The tab labels are no stops of the keyboard: Ctrl+Tab turns the page for those who keep off the mouse.
    auto* turn = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Tab), this);
    handle(turn, &QShortcut::activated, this, [this] {
        if (ui->Picture4->isHidden() && !ui->Picture5->isHidden())
            turnToNumbers();
        else if (!ui->Picture4->isHidden())
            turnToDates();
    });
}

void LISTA::onLoad()
{
    attempt([] { PEOpenEngine(); });
    attempt([&] { ui->imgwl->setToolTip(versionHint()); });
    attempt([&] { fillPrinterTree(); });
    attempt([&] {
        ui->Label1->setText(u"Quenda está preparado para la impresión del informe: "_s + Trim(TITULOINFORME) +
                            u". Por favor, seleccione los parámetros que considere oportunos:"_s);
    });
    attempt([&] { showParameters(); });
    attempt([&] { ui->DTPicker1->setDate(now().date()); });
    attempt([&] { ui->DTPicker2->setDate(now().date()); });
    for (int copies = 1; copies <= kMostCopies; ++copies)
        attempt([&] { ui->Combo1->addItem(CStr(copies)); });
    attempt([&] { ui->Combo1->setListIndex(0); });
    attempt([&] { fillMonths(); });
}

void LISTA::onFirstShown()
{
    // The first parameter that the report takes, so that its value can be typed at once.
    const std::array<QWidget*, 3> firstControls{ui->Text1, ui->Combo2, ui->Combo1};
    for (QWidget* control : firstControls) {
        if (control->isVisible()) {
            control->setFocus();
            ui->Text1->selectAll(); // typing replaces what stands there
            return;
        }
    }
}

void LISTA::showParameters()
{
    const ReportRow* row = reportRow(NUMINFORME);
    const bool hasPages = row && row->pages != RangePages::NoPages;
    ui->Picture2->setVisible(hasPages && row->hasBanner);
    ui->Picture3->setVisible(hasPages);
    ui->Picture4->setVisible(hasPages);
    ui->Picture5->hide();
    ui->Picture6->hide();
    ui->rangeBlock->setVisible(hasPages);
    if (row && row->pages == RangePages::Number) {
        // The tab that refuses to turn looks so.
        ui->Label5->setEnabled(false);
        ui->Label5->setToolTip(u"Este informe sólo se elige por números"_s);
    }
    if (row) {
        ui->Text1->setText(row->firstStart.toString());
        ui->Text2->setText(row->secondStart.toString());
    }
    if (NUMINFORME == kRemittancesByBank)
        ui->Label2->setText(u"Desde Banco"_s);
    const bool hasReceipt = NUMINFORME == kInvoices;
    ui->Check1->setVisible(hasReceipt);
    ui->Label12->setVisible(hasReceipt);
    ui->Combo2->hide();
    ui->Label11->hide();
}

void LISTA::fillMonths()
{
    if (NUMINFORME != kServiceSummary)
        return;
    for (int month = 1; month <= kMonths; ++month)
        ui->Combo2->addItem(u"%1"_s.arg(month, 2, 10, QChar(u'0')));
    ui->Label11->show();
    ui->Combo2->show();
    ui->Combo2->setListIndex(now().date().month() - 1);
}

void LISTA::onUnload()
{
    attempt([] { PECloseEngine(); });
    attempt([&] { ui->Text1->setText({}); });
    attempt([&] { ui->Text2->setText({}); });
    const std::array request{&RESULTADOBUSQUEDA, &TITULOINFORME, &FICHEROINFORME, &BASEINFORME,
                             &BASEINFORME1,      &BASEINFORME2,  &BASEINFORME3,   &BASEINFORME4,
                             &BASEINFORME5,      &BASEINFORME6,  &BASEINFORME7};
    for (QString* text : request)
        *text = QString();
    NUMINFORME = 0;
}

void LISTA::runToWindow()
{
    MODOSALIDA = 1;
    attempt([&] { LANZAINFORME(); });
    MODOSALIDA = 0;
}

void LISTA::runToPrinter()
{
    MODOSALIDA = 2;
    attempt([&] { LANZAINFORME(); });
    MODOSALIDA = 0;
}

void LISTA::itemChosen(const QString& key)
{
    attempt([&] { checkRange(); });
    // Only this road refuses the two reports, and only this road puts the range in order.
    const bool isRefused = NUMINFORME == kNumberRange || NUMINFORME == kCommissions;
    if (key == u"UNO"_s && !isRefused)
        runToWindow();
    else if (key == u"DOS"_s && !isRefused)
        runToPrinter();
    else if (key == u"CUATRO"_s)
        unload();
}

void MuestraLISTAModal(QWidget* parent)
{
    LISTA* window = loadedWindow(parent);
    if (window->isVisible()) {
        window->raise();
        window->activateWindow();
    }
    window->showModal();
}

void MuestraLISTA(QWidget* parent)
{
    loadedWindow(parent)->showModeless();
}

} // namespace reports
