// SPDX-License-Identifier: GPL-3.0-or-later
#include "assistance/consultaspage.h"

#include "ui_consultas.h"

#include "platform/core/regime.h"
#include "platform/dao/rowwalk.h"
#include "platform/system/clock.h"
#include "platform/text/textfunctions.h"
#include "platform/window/icons.h"
#include "shell/globalsat.h"

using namespace Qt::StringLiterals;
using platform::asText;
using platform::attempt;
using platform::holds;
using platform::dao::Recordset;

namespace {

constexpr int kNumberWidth = 10;

// Image indexes of the tree.
constexpr int kClosedRootImage = 2;
constexpr int kPendingRootImage = 3;
constexpr int kConsultationImage = 4;

/// Number and subject. The parts fail each alone: a number of more than ten digits, or a Null subject, stays
/// empty.
QString nodeText(const Recordset& row)
{
    QString digits;
    attempt([&] { digits = platform::Trim(platform::Str(platform::Val(asText(row[u"ORDEN"].Value())))); });
    QString number;
    attempt([&] { number = platform::String(kNumberWidth - digits.size(), u'0') + digits; });
    QString subject;
    attempt([&] { subject = platform::Trim(asText(row[u"TEMA"].Value())); });
    return number + u' ' + subject;
}

/// First two characters of the state. Null fails.
QString stateCode(const Recordset& row)
{
    return platform::Left(platform::Trim(asText(row[u"ESTADO"].Value())), 2);
}

} // namespace

void ConsultasPage::setTreeImages()
{
    ui->TreeView1->setImage(kClosedRootImage, platform::icon(platform::Icon::FolderClosed));
    ui->TreeView1->setImage(kPendingRootImage, platform::icon(platform::Icon::FolderOpen));
    ui->TreeView1->setImage(kConsultationImage, platform::icon(platform::Icon::Note));
}

void ConsultasPage::TreeView1_NodeClick(int image)
{
    if (image == kConsultationImage)
        attempt([&] { leerconsulas(); });
}

void ConsultasPage::leeconsultree()
{
    platform::TreeView& tree = *ui->TreeView1;
    attempt([&] { tree.nodesClear(); });
    attempt([&] { tree.nodesAdd(QString(), u"A"_s, u"Consultas Pendientes"_s, kPendingRootImage); });
    attempt([&] { tree.nodesAdd(QString(), u"B"_s, u"Consultas Cerradas"_s, kClosedRootImage); });

    QString client;
    attempt([&] { client = platform::Trim(m_client.Text49->text()); });
    Recordset rows;
    attempt([&] {
        rows = BDASISTENCIAS.OpenRecordset(u"SELECT CONS.* From CONS WHERE (((CONS.CLICONSULTA)='"_s +
                                               client + u"'))"_s,
                                           platform::dao::dbOpenDynaset);
    });
    attempt([&] { rows.MoveLast(); });
    attempt([&] { rows.MoveFirst(); });
    if (holds([&] { return rows.RecordCount() <= 0; }))
        return;

    int pending = 0;
    int closed = 0;
    walkToEnd(rows, [&] {
        // A Null state fails either test and so stands under both roots.
        if (holds([&] { return stateCode(rows) == u"01"; })) {
            ++pending;
            attempt([&] {
                tree.nodesAdd(u"A"_s, u'A' + QString::number(pending), nodeText(rows), kConsultationImage);
            });
        }
        if (holds([&] { return stateCode(rows) == u"02"; })) {
            ++closed;
            attempt([&] {
                tree.nodesAdd(u"B"_s, u'B' + QString::number(closed), nodeText(rows), kConsultationImage);
            });
        }
    });
    attempt([&] { rows.Close(); });
}

void ConsultasPage::LEEOLASCONSULTASCLI()
{
    CONSULTALEIDA = 0;
    attempt([&] { leeconsultree(); });
    attempt([&] { ui->vsFlexGrid6->setRedraw(false); });
    prepareGrid();
    attempt([&] { ui->vsFlexGrid6->refresh(); });
    attempt([&] { ui->vsFlexGrid6->setRedraw(true); });
    proposeNumberAfterRead();
}

/// The defaults of a new consultation. The columns of the end keep what they held.
void ConsultasPage::prepareGrid()
{
    platform::FlexGrid& grid = *ui->vsFlexGrid6;
    attempt([&] { grid.setRow(1); });
    attempt([&] { grid.setCol(0); });
    attempt([&] { grid.setText(platform::FormatDate(platform::now().date())); });
    attempt([&] { grid.setCol(1); });
    attempt([&] { grid.setText(platform::FormatTime(platform::now().time())); });
    attempt([&] { grid.setCol(2); });
    attempt([&] { grid.setText(platform::Trim(USUARIO)); });
    attempt([&] { grid.setCol(5); });
    attempt([&] { grid.setText(u"01 Abierta"_s); });
    attempt([&] { grid.setCol(6); });
    attempt([&] { grid.setText(u"01 No"_s); }); // not an item of the column's list, and stored so
}

/// As the clearing's proposal, but filled with zeros on an empty table, too.
void ConsultasPage::proposeNumberAfterRead()
{
    const bool isEmpty = holds([] {
        const bool atEnd = RSCONSULTAS.EOF_();
        const bool atBegin = RSCONSULTAS.BOF();
        return atEnd && atBegin;
    });
    if (isEmpty) {
        attempt([&] { ui->Text10->setText(u"1"_s); });
    } else {
        attempt([] { RSCONSULTAS.setIndex(u"CONnum"_s); });
        attempt([] { RSCONSULTAS.MoveFirst(); });
        attempt([] { RSCONSULTAS.MoveLast(); });
        attempt([&] {
            ui->Text10->setText(platform::CStr(platform::asNumber(RSCONSULTAS[u"ORDEN"].Value()) + 1));
        });
    }
    if (!platform::Trim(ui->Text10->text()).isEmpty())
        fillNumber();
}
