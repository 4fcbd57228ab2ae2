// SPDX-License-Identifier: GPL-3.0-or-later
#include "assistance/consultaspage.h"

#include "ui_consultas.h"

#include "assistance/gridcolumns.h"
#include "platform/core/regime.h"
#include "platform/system/clock.h"
#include "platform/text/textfunctions.h"
#include "platform/window/handlers.h"

#include <array>

using platform::attempt;
using platform::CellKind;
using platform::handle;

namespace {

constexpr std::array kGridColumns{
    GridColumn{.heading = u"F. Incic.", .widthTwips = 1200, .kind = CellKind::Date, .format = u"dd/mm/yyyy"},
    GridColumn{.heading = u"H. Inici.", .widthTwips = 1100},
    GridColumn{.heading = u"Técnico",
               .widthTwips = 1700}, // free text: the users that it was to offer are nowhere
    GridColumn{.heading = u"F. Final", .widthTwips = 1200, .kind = CellKind::Date, .format = u"dd/mm/yyyy"},
    GridColumn{.heading = u"H. Final", .widthTwips = 1100},
    GridColumn{.heading = u"Estado", .widthTwips = 1000, .list = u"01 Abierta|02 Cerrada"},
    GridColumn{.heading = u"Publicable", .widthTwips = 100, .list = u"01 Si|02 No"},
};

} // namespace

ConsultasPage::ConsultasPage(QWidget* parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::consultas>())
{
    ui->setupUi(this);
    setTreeImages();
    connectEvents();
}

ConsultasPage::~ConsultasPage() = default;

platform::TextBox& ConsultasPage::Text10() const
{
    return *ui->Text10;
}

platform::ComboList& ConsultasPage::Combo3() const
{
    return *ui->Combo3;
}

void ConsultasPage::connectEvents()
{
    handle(ui->TreeView1, &platform::TreeView::nodeClick, this,
           [this](const QString&, int image) { TreeView1_NodeClick(image); });
    handle(ui->Command6, &QAbstractButton::clicked, this, [this] { Command6_Click(); });
    handle(ui->Command7, &QAbstractButton::clicked, this, [this] { Command7_Click(); });
}

void ConsultasPage::drawGrid()
{
    drawGridColumns(*ui->vsFlexGrid6, kGridColumns);
}

void ConsultasPage::Command6_Click()
{
    platform::FlexGrid& grid = *ui->vsFlexGrid6;
    attempt([&] { grid.setRow(1); });
    attempt([&] { grid.setCol(3); }); // F. Final
    attempt([&] { grid.setText(platform::FormatDate(platform::now().date())); });
    attempt([&] { grid.setCol(4); }); // H. Final
    attempt([&] { grid.setText(platform::FormatTime(platform::now().time())); });
    attempt([&] { GUARDARCONSULTAS(); });
    attempt([&] { limpiaconsultas(); });
    attempt([&] { leeconsultree(); });
}

void ConsultasPage::Command7_Click()
{
    attempt([&] { limpiaconsultas(); });
}
