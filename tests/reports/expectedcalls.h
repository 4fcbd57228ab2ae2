// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What a run of a report asks of the print engine, call by call with every argument, and what a failure of
// each call changes in those that follow. Written out by hand: nothing here looks at the program.
//
// The runs are those of `DrivenWindow`: day, printer, paths and starts of the boxes are its own. The report
// file has the tables and the subreports that `kTablesOfTheFile` and `kSubreportsOfTheFile` tell.

#include <QList>
#include <QStringList>

namespace reporttest {

struct ExpectedCall
{
    QString call; ///< as the recording engine writes it down
    /// When the call fails so many of those that follow don't come …
    qsizetype dropped = 0;
    /// … and these come in their place.
    QStringList instead = {};
};
using ExpectedCalls = QList<ExpectedCall>;

enum class Output { Window, Printer, PrinterWithReceipts };

/// The calls of a whole run. `Output::PrinterWithReceipts` is for report 1 alone.
[[nodiscard]] ExpectedCalls expectedCalls(int report, Output output);

/// All reports of the catalogue and a number outside it.
[[nodiscard]] QList<int> expectedReports();

/// The calls of a run, none of them failing.
[[nodiscard]] QStringList namesOf(const ExpectedCalls& calls);
/// The calls of a run in which the one at the position fails.
[[nodiscard]] QStringList namesAfterFailure(const ExpectedCalls& calls, qsizetype failing);

inline const QStringList kTablesOfTheFile{QStringLiteral("D:\\datos\\facturas2003.mdb"),
                                          QStringLiteral("D:\\datos\\CLIENTES.MDB")};
inline const QList<QStringList> kSubreportsOfTheFile{
    {}, {QStringLiteral("primero"), QStringLiteral("segundo")}, {QStringLiteral("tercero")}};
/// `FORMULABUSQUEDA` of the runs.
inline const QString kLookupFormula = QStringLiteral("{ClientesTabla.CliCodigo} = '0000000007'");

} // namespace reporttest
