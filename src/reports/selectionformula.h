// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Selection formulas of the reports, in the print engine's formula language. Pure text: no window, no engine.
// The blanks, the mixed capitals of table names and the odd forms of `DateTime` are the required text.

#include <QDate>
#include <QString>

#include <optional>

namespace reports {

/// What the accounting rows read; nothing in this system provides one.
struct AccountingParameters
{
    int OPCIONES = 0;
    QDate DesdeFecha;
    QDate HastaFecha;
    QString DesdeAsiento;
    QString HastaAsiento;
    QString NCuenta;
};

/// The user's choices in the report window, as they stand.
struct FormulaChoices
{
    double report = 0;     ///< `NUMINFORME`
    QString reportFile;    ///< `FICHEROINFORME`
    QString programFolder; ///< with "\", without one at the end
    QString text1;
    QString text2;
    QDate date1;
    QDate date2;
    bool isDatesPageUp = false;
    QString month;         ///< "01" to "12"
    QString lookupFormula; ///< `FORMULABUSQUEDA`
    /// Receipt number of a chained run; empty when it couldn't be found. Only looked at when
    /// `isChainedReceipt`.
    std::optional<QString> chainedReceipt;
    bool isChainedReceipt = false;
    std::optional<AccountingParameters> accounting;
};

/// The formula of the report, without the zero characters that end it for the engine. Nothing when the number
/// has no formula row (8881 and every number outside the catalogue); an empty text when the row yields none.
[[nodiscard]] std::optional<QString> selectionFormula(const FormulaChoices& choices);

/// Dates from `first` on, each in double quotes, parted by ", ", up to and with `last`; at most 366. When
/// `last` isn't reached the list keeps its last ", ".
[[nodiscard]] QString dateList(QDate first, QDate last);

} // namespace reports
