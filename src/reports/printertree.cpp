// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/core/regime.h"
#include "platform/print/output/printers.h"
#include "platform/system/messagebox.h"
#include "platform/text/textfunctions.h"
#include "platform/window/icons.h"
#include "reports/lista.h"
#include "ui_lista.h"

using namespace platform;
using namespace Qt::StringLiterals;

namespace reports {

namespace {

constexpr int kMailImage = 1;
constexpr int kPrinterImage = 2;

} // namespace

void LISTA::fillPrinterTree()
{
    TreeView& tree = *ui->TreeView1;
    tree.setImage(kMailImage, icon(Icon::Mail));
    tree.setImage(kPrinterImage, icon(Icon::Printer));
    attempt([&] { tree.nodesAdd({}, u"I"_s, u"Impresoras"_s, kPrinterImage); });
    attempt([&] { tree.nodesAdd({}, u"E"_s, u"E-Mail"_s, kMailImage); });
    const QList<Printer> printers = Printers();
    for (int position = 0; position < printers.size(); ++position) {
        const QString key = u"I"_s + QString::number(position);
        attempt([&] { tree.nodesAdd(u"I"_s, key, printers[position].DeviceName, kPrinterImage); });
        attempt([&] { tree.ensureNodeVisible(key); });
    }
    // By text over all nodes, so that the last of two printers with one name is the one selected.
    const QString current = currentPrinter().DeviceName;
    for (int position = 0; position < printers.size(); ++position) {
        if (printers[position].DeviceName == current)
            attempt([&] { tree.selectNode(u"I"_s + QString::number(position)); });
    }
    showPresentPrinter();
}

void LISTA::showPresentPrinter()
{
    const QString name = currentPrinter().DeviceName;
    ui->printerNow->setText(name.isEmpty() ? u"No hay ninguna impresora predeterminada"_s
                                           : u"Impresora predeterminada: "_s + name);
}

void LISTA::chooseSelectedPrinter()
{
    QString key;
    attempt([&] { key = ui->TreeView1->selectedKey(); });
    if (!key.startsWith(u'I') || key.size() < 2)
        return;
    attempt([&] { setCurrentPrinter(CInt(Mid(key, 2))); });
    attempt([] {
        messageBox({u"HA CAMBIADO LA SELECCION DE SU IMPRESORA\r"
                    "Quenda ha instalado su impresora predeterminada en:\r"
                    "Impresora: "_s +
                        currentPrinter().DeviceName + u"\r"_s,
                    {},
                    MessageIcon::Information});
    });
    attempt([&] { showPresentPrinter(); });
}

} // namespace reports
