// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/catalogue.h"

#include <algorithm>
#include <array>

namespace reports {

namespace {

using enum FormulaFamily;
using enum RangePages;

constexpr std::array kCatalogue{
    ReportRow{kInvoices, NumberAndDates, true, u"0", u"0", 27, Documents},
    ReportRow{kDeliveryNotes, NumberAndDates, true, u"0", u"0", 26, Documents},
    ReportRow{kOrders, NumberAndDates, true, u"0", u"0", 25, Documents},
    ReportRow{kBudgets, NumberAndDates, true, u"0", u"0", 22, Documents},
    ReportRow{kPurchaseOrders, NumberAndDates, true, u"0", u"0", 28, Documents},
    ReportRow{kRemittancesByBank, NumberAndDates, true, u"0001", u"0001", 7, Portfolio},
    ReportRow{kPurchaseDeliveryNotes, NumberAndDates, true, u"0", u"0", 29, Documents},
    ReportRow{kPurchaseInvoices, NumberAndDates, true, u"0", u"0", 30, Documents},
    ReportRow{kReceipts, NumberAndDates, true, u"", u"", 333, Portfolio},
    ReportRow{kRemittanceByNumber, Number, true, u"", u"", 444, Portfolio},
    ReportRow{kClients, NumberAndDates, true, u"0000000001", u"9999999999", 20, MasterRanges},
    ReportRow{kPortfolioByDueDate, NumberAndDates, false, u"0001", u"9999", 16, Portfolio},
    ReportRow{kMaintenanceNotes, Number, true, u"0000000001", u"9999999999", 9, MasterRanges},
    ReportRow{kCommissions, NumberAndDates, false, u"0001", u"9999", 17, Commissions},
    ReportRow{kServiceSummary, NoPages, false, u"", u"", 0, Month},
    ReportRow{kByLookupFormula, NoPages, false, u"", u"", 0, Lookup},
    ReportRow{kBalance, NoPages, false, u"", u"", 0, Accounting},
    ReportRow{kJournal, NoPages, false, u"", u"", 0, Accounting},
    ReportRow{kLedger, NoPages, false, u"", u"", 0, Accounting},
    ReportRow{kNumberRange, Number, true, u"0", u"0", 26, Nothing},
    ReportRow{kClientsByType, NoPages, false, u"", u"", 0, MasterRanges},
};

} // namespace

std::span<const ReportRow> catalogue() noexcept
{
    return kCatalogue;
}

const ReportRow* reportRow(double number) noexcept
{
    const auto isWanted = [number](const ReportRow& row) {
        return static_cast<double>(row.number) == number;
    };
    const auto* found = std::find_if(kCatalogue.begin(), kCatalogue.end(), isWanted);
    return found == kCatalogue.end() ? nullptr : found;
}

} // namespace reports
