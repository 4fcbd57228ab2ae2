// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The catalogue of reports: what the report window offers for each number. A new report is a new caller and a
// new row here.

#include <QStringView>

#include <span>

namespace reports {

/// How a report's selection formula is built.
enum class FormulaFamily {
    Nothing,
    Documents,
    Portfolio,
    MasterRanges,
    Month,
    Commissions,
    Accounting,
    Lookup
};

/// Which of the two range pages a report offers. With `Number` the tab of the dates refuses to turn.
enum class RangePages { NoPages, Number, NumberAndDates };

struct ReportRow
{
    int number;
    RangePages pages;
    bool hasBanner;          ///< `Picture2` is shown with the pages
    QStringView firstStart;  ///< start of `Text1`
    QStringView secondStart; ///< start of `Text2`
    int lookupKind;          ///< `TIPOBUSQUEDA` of both pickers, 0 for none
    FormulaFamily family;
};

inline constexpr int kInvoices = 1;
inline constexpr int kDeliveryNotes = 2;
inline constexpr int kOrders = 3;
inline constexpr int kBudgets = 4;
inline constexpr int kPurchaseOrders = 5;
inline constexpr int kRemittancesByBank = 6;
inline constexpr int kPurchaseDeliveryNotes = 7;
inline constexpr int kPurchaseInvoices = 8;
inline constexpr int kReceipts = 333;
inline constexpr int kRemittanceByNumber = 444;
inline constexpr int kClients = 525;
inline constexpr int kPortfolioByDueDate = 662;
inline constexpr int kMaintenanceNotes = 725;
inline constexpr int kCommissions = 726;
inline constexpr int kServiceSummary = 888;
inline constexpr int kByLookupFormula = 1099;
inline constexpr int kBalance = 5001;
inline constexpr int kJournal = 5002;
inline constexpr int kLedger = 5003;
inline constexpr int kNumberRange = 8881;
inline constexpr int kClientsByType = 8888;

/// All rows, by number.
[[nodiscard]] std::span<const ReportRow> catalogue() noexcept;

/// The row of a report; null for a number outside the catalogue. A fraction belongs to no row. Borrowed.
[[nodiscard]] const ReportRow* reportRow(double number) noexcept;

} // namespace reports
