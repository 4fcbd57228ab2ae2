// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The printers of the system and the one that the program has chosen for this run. The system's own default
// is read once and never touched.

#include <QList>
#include <QString>

#include <functional>

namespace platform {

struct Printer
{
    QString DeviceName;
    QString DriverName;
    QString Port;

    friend bool operator==(const Printer&, const Printer&) = default;
};

/// The system's printers, in its order.
[[nodiscard]] QList<Printer> Printers();

/// The program's printer: the one chosen last, else the system's default, else one without a name.
[[nodiscard]] Printer currentPrinter();

/// Chooses the printer at a position from 0; outside the list it fails with 9 and the choice stays.
void setCurrentPrinter(int position);

/// Where the list comes from, for tests: all printers and the position of the default, -1 for none. An empty
/// function brings the system's back. Forgets the program's choice.
struct PrinterList
{
    QList<Printer> printers;
    int defaultPosition = -1;
};
void setPrinterSource(std::function<PrinterList()> source);

} // namespace platform
