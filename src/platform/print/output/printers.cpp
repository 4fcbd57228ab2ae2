// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/output/printers.h"

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"

#include <QPrinterInfo>

#include <optional>

namespace platform {

namespace {

std::function<PrinterList()> printerSource;
std::optional<Printer> chosen;

PrinterList systemPrinters()
{
    PrinterList list;
    const QString defaultName = QPrinterInfo::defaultPrinterName();
    for (const QPrinterInfo& info : QPrinterInfo::availablePrinters()) {
        if (info.printerName() == defaultName)
            list.defaultPosition = static_cast<int>(list.printers.size());
        list.printers.append({info.printerName(), info.makeAndModel(), info.location()});
    }
    return list;
}

PrinterList printerList()
{
    return printerSource ? printerSource() : systemPrinters();
}

} // namespace

QList<Printer> Printers()
{
    return printerList().printers;
}

Printer currentPrinter()
{
    if (chosen)
        return *chosen;
    const PrinterList list = printerList();
    return list.printers.value(list.defaultPosition);
}

void setCurrentPrinter(int position)
{
    const QList<Printer> printers = Printers();
    if (position < 0 || position >= printers.size())
        throw Failure(kSubscriptOutOfRange, QStringLiteral("no printer at position %1").arg(position));
    chosen = printers.at(position);
}

void setPrinterSource(std::function<PrinterList()> source)
{
    printerSource = std::move(source);
    chosen.reset();
}

} // namespace platform
